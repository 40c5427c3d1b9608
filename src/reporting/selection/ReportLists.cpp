#include "reporting/selection/ReportLists.h"

#include "core/records/Bill.h"
#include "core/records/Dividend.h"
#include "core/records/Lot.h"
#include "core/records/Opening.h"
#include "core/records/Query.h"
#include "core/records/Transfer.h"

namespace quorvane::reporting {
namespace {

std::vector<lookups::Item> ReadItems(database::Recordset rows) {
  std::vector<lookups::Item> items;
  while (rows.Next()) {
    items.push_back({rows.Int(0), rows.Text(1)});
  }
  return items;
}

// The ids as a joined table, which is made once; "Id In (... Union ...)" would be asked again for
// every scrip.
constexpr std::string_view kScripsOfLots =
    "Select Script.Id,Script.Name From Script Join (Select ScriptId From Stock Where Cid=? "
    "Union Select ScriptId From StkOpBal Where Cid=? and Fyear=? "
    "Union Select ScriptId From SPTrans Where Cid=? and Fyear=?) As Held "
    "On Held.ScriptId=Script.Id Order By Script.Name";

constexpr std::string_view kScripsOfLotsAndChoice =
    "Select Script.Id,Script.Name From Script Join (Select ScriptId From Stock Where Cid=? "
    "Union Select ScriptId From StkOpBal Where Cid=? and Fyear=? and FO=? "
    "Union Select ScriptId From SPTrans Where Cid=? and Fyear=? and FO=?) As Held "
    "On Held.ScriptId=Script.Id Order By Script.Name";

constexpr std::string_view kScripsOfChoice =
    "Select Script.Id,Script.Name From Script Join ("
    "Select ScriptId From StkOpBal Where Cid=? and Fyear=? and FO=? "
    "Union Select ScriptId From SPTrans Where Cid=? and Fyear=? and FO=?) As Held "
    "On Held.ScriptId=Script.Id Order By Script.Name";

}  // namespace

std::vector<lookups::Item> AccountsByNumber(database::Connection& connection, ClientId client) {
  return ReadItems(
      connection.Open("Select Id,AcNo From ClientActDet Where Cid=? Order By ACNo", client));
}

std::vector<lookups::Item> ScripsOfClient(database::Connection& connection, const ClientYear& of,
                                          gains::FoChoice fo) {
  const QString year = of.year.Text();
  switch (fo) {
    case gains::FoChoice::kFo:
      return ReadItems(connection.Open(kScripsOfChoice, of.client, year, 1, of.client, year, 1));
    case gains::FoChoice::kNonFo:
      return ReadItems(connection.Open(kScripsOfLotsAndChoice, of.client, of.client, year, 0,
                                       of.client, year, 0));
    case gains::FoChoice::kAll:
      break;
  }
  return ReadItems(connection.Open(kScripsOfLots, of.client, of.client, year, of.client, year));
}

std::vector<lookups::Item> ScripsEverHeld(database::Connection& connection,
                                          const std::set<ClientId>& clients) {
  std::set<ScripId> had;
  const auto add = [&]<class Record>(records::Select<Record> select) {
    select.In(&Record::client, clients).template Only<&Record::scrip>([&](const Record& record) {
      had.insert(record.scrip);
    });
  };
  add(records::Select<records::Opening>(connection));
  add(records::Select<records::BillLine>(connection));
  add(records::Select<records::Transfer>(connection));
  add(records::Select<records::Lot>(connection));
  add(records::Select<records::Dividend>(connection));
  std::vector<lookups::Item> items = lookups::DropDownItems(connection, lookups::DropDown::kScrips);
  std::erase_if(items, [&](const lookups::Item& item) { return !had.contains(ScripId{item.id}); });
  return items;
}

std::set<ClientId> FamilyOf(database::Connection& connection, ClientId client) {
  std::set<ClientId> family{client};
  for (const auto& row :
       connection.Open("Select B.Id From ClientInfo A Join ClientInfo B On B.GCode=A.GCode Where "
                       "A.Id=? And Trim(A.GCode)<>''",
                       client)) {
    family.insert(ClientId{row.Int(0)});
  }
  return family;
}

std::set<ClientId> ClientsOfGroup(database::Connection& connection, const QString& group) {
  std::set<ClientId> clients;
  for (const auto& row : connection.Open(
           "Select Id From ClientInfo Where Trim(GCode)=? And Trim(GCode)<>''", group.trimmed())) {
    clients.insert(ClientId{row.Int(0)});
  }
  return clients;
}

std::vector<lookups::Item> AllScrips(database::Connection& connection) {
  return ReadItems(connection.Open("Select Id,Name From Script Order By Name"));
}

}  // namespace quorvane::reporting
