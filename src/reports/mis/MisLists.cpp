#include "reports/mis/MisLists.h"

#include <algorithm>
#include <bit>

namespace quorvane::mis {
namespace {

using database::Value;

std::vector<lookups::Item> ReadItems(database::Recordset rows) {
  std::vector<lookups::Item> items;
  while (rows.Next()) {
    items.push_back({rows.Int(0), rows.Text(1)});
  }
  return items;
}

/// "(?,?,?,?)" for the clients, and their values. The number of places is a power of two, filled up
/// with the last client, so that there are few different statements.
class ClientSet {
 public:
  explicit ClientSet(const std::vector<ClientId>& clients)
      : values_(clients.begin(), clients.end()) {
    values_.resize(std::bit_ceil(values_.size()), values_.back());
    places_ = "(?";
    for (std::size_t i = 1; i < values_.size(); ++i) {
      places_ += ",?";
    }
    places_ += ')';
  }

  const std::string& Places() const { return places_; }
  void AppendTo(std::vector<Value>& values) const {
    values.insert(values.end(), values_.begin(), values_.end());
  }

 private:
  std::vector<Value> values_;
  std::string places_;
};

}  // namespace

QStringList ClientGroups(database::Connection& connection) {
  QStringList groups;
  for (const auto& row : connection.Open(
           "Select Min(Trim(GCode)) From ClientInfo Where Trim(GCode)<>'' Group By Trim(GCode) "
           "Order By 1")) {
    groups << row.Text(0);
  }
  return groups;
}

std::vector<lookups::Item> AllClients(database::Connection& connection) {
  return ReadItems(connection.Open("Select Id,Name From ClientInfo Order By Name,Code,Id"));
}

std::vector<lookups::Item> ClientsOfGroup(database::Connection& connection, const QString& group) {
  return ReadItems(connection.Open(
      "Select Id,Name From ClientInfo Where Trim(GCode)=? Order By Name,Code,Id", group.trimmed()));
}

QString GroupOfClient(database::Connection& connection, ClientId client) {
  auto rows = connection.Open("Select Trim(GCode) From ClientInfo Where Id=?", client);
  return rows.Next() ? rows.Text(0) : QString();
}

std::vector<AccountItem> AccountsOfClients(database::Connection& connection,
                                           const std::vector<ClientId>& clients) {
  std::vector<AccountItem> accounts;
  if (clients.empty()) {
    return accounts;
  }
  const ClientSet set(clients);
  std::vector<Value> values;
  set.AppendTo(values);
  for (const auto& row :
       connection.OpenValues("Select id,ACNo,CId From ClientActDet Where CId In " + set.Places() +
                                 " Order By ACNo,id",
                             values)) {
    accounts.push_back({AccountId{row.Int(0)}, row.Text(1), ClientId{row.Int(2)}});
  }
  return accounts;
}

std::vector<lookups::Item> ScripsOfClients(database::Connection& connection,
                                           const std::vector<ClientId>& clients,
                                           text::FinancialYear year) {
  if (clients.empty()) {
    return {};
  }
  const ClientSet set(clients);
  std::vector<Value> values;
  set.AppendTo(values);
  for (int table = 0; table < 2; ++table) {
    values.emplace_back(year.Text());
    set.AppendTo(values);
  }
  const std::string in = "Cid In " + set.Places();
  // A joined table is made once; "Id In (... Union ...)" would be asked again for every scrip.
  return ReadItems(connection.OpenValues(
      "Select Script.Id,Script.Name From Script Join (Select ScriptId From Stock Where " + in +
          " Union Select ScriptId From StkOpBal Where Fyear=? and " + in +
          " Union Select ScriptId From SPTrans Where Fyear=? and " + in +
          ") As Held On Held.ScriptId=Script.Id Order By Script.Name,Script.Id",
      values));
}

}  // namespace quorvane::mis
