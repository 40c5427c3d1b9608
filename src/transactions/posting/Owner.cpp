#include "transactions/posting/Owner.h"

#include "core/text/Tr.h"

#include <fmt/format.h>

#include <set>
#include <string>
#include <vector>

namespace quorvane::posting {

namespace {

template <class Key>
bool IsThere(database::Transaction& transaction, std::string_view sql, Key key) {
  return transaction.Open(sql, key).Next();
}

}  // namespace

MaybeRefusal CheckClient(database::Transaction& transaction, ClientId client, Field field) {
  auto rows = transaction.Open("Select Id From ClientInfo Where Id=? Lock In Share Mode", client);
  if (rows.Next()) {
    return std::nullopt;
  }
  return Refusal{Tr("Posting", "This Client was Deleted in the Meantime."), field};
}

MaybeRefusal CheckAccount(database::Transaction& transaction, ClientId client, AccountId account,
                          AccountId recorded, Field field) {
  if (!account || account == recorded) {
    return std::nullopt;
  }
  auto rows = transaction.Open(
      "Select id From ClientActDet Where id=? and CId=? Lock In Share Mode", account, client);
  if (rows.Next()) {
    return std::nullopt;
  }
  return Refusal{Tr("Posting", "This Demat A/c was Deleted in the Meantime."), field};
}

MaybeRefusal CheckBroker(database::Transaction& transaction, BrokerId broker, BrokerId recorded,
                         Field field) {
  const bool stays = !broker || broker == recorded;
  if (stays ||
      IsThere(transaction, "Select Id From Broker Where Id=? Lock In Share Mode", broker)) {
    return std::nullopt;
  }
  return Refusal{Tr("Posting", "This Broker was Deleted in the Meantime."), field};
}

MaybeRefusal CheckExchange(database::Transaction& transaction, ExchangeId exchange,
                           ExchangeId recorded, Field field) {
  const bool stays = !exchange || exchange == recorded;
  if (stays ||
      IsThere(transaction, "Select Id From Exchange Where Id=? Lock In Share Mode", exchange)) {
    return std::nullopt;
  }
  return Refusal{Tr("Posting", "This Exchange was Deleted in the Meantime."), field};
}

MaybeRefusal CheckScrips(database::Transaction& transaction, std::span<const ScripId> scrips,
                         std::span<const ScripId> recorded, Field field) {
  std::set<ScripId> missing(scrips.begin(), scrips.end());
  missing.erase(ScripId{});
  for (const ScripId scrip : recorded) {
    missing.erase(scrip);
  }
  if (missing.empty()) {
    return std::nullopt;
  }
  std::string places;
  std::vector<database::Value> values;
  for (const ScripId scrip : missing) {
    places += places.empty() ? "?" : ",?";
    values.emplace_back(scrip);
  }
  for (const auto& row : transaction.GetConnection().OpenValues(
           fmt::format("Select Id From Script Where Id In ({}) Lock In Share Mode", places),
           values)) {
    missing.erase(ScripId{row.Int(0)});
  }
  if (missing.empty()) {
    return std::nullopt;
  }
  return Refusal{Tr("Posting", "This Script was Deleted in the Meantime."), field};
}

MaybeRefusal RefuseShortage(database::Connection& connection, const ledger::Lots& lots,
                            Field field) {
  const std::optional<ScripId> scrip = lots.Shortage();
  if (!scrip) {
    return std::nullopt;
  }
  auto rows = connection.Open("Select Name From Script Where Id=?", *scrip);
  const QString name = rows.Next() ? rows.Text(0) : QString();
  return Refusal{
      Tr("Posting", "You Can't Update Record.\n\nQunatity of %1 Script Can't be Negative Value.")
          .arg(name),
      field};
}

}  // namespace quorvane::posting
