#include "portfolio/trades/TradeMemory.h"

#include "core/database/BulkWriter.h"
#include "core/records/TradeKey.h"
#include "core/records/Writing.h"

#include <QCryptographicHash>

namespace quorvane::portfolio {
namespace {

constexpr std::string_view kColumns = "columns";

std::string ScripKind(BrokerId broker) {
  return "scrip of broker " + std::to_string(broker.value);
}

std::string HashOf(const std::string& text) {
  return QCryptographicHash::hash(QByteArray::fromStdString(text), QCryptographicHash::Sha256)
      .toHex()
      .toStdString();
}

}  // namespace

std::optional<ColumnMap> RememberedColumns(database::Connection& connection,
                                           const std::string& header_text) {
  auto rows = connection.Open("Select Mapping From ImportProfile Where Kind=? and ProfileKey=?",
                              kColumns, HashOf(header_text));
  return rows.Next() ? ColumnMap::Parse(rows.Utf8(0)) : std::nullopt;
}

void RememberColumns(database::Transaction& transaction, const std::string& header_text,
                     const ColumnMap& map) {
  constexpr std::size_t kLongest = 4000;
  const std::string mapping = map.Text();
  if (mapping.size() > kLongest) {
    return;
  }
  // The header's text is for people alone; the hash tells headers apart.
  transaction.Execute("Replace Into ImportProfile(Kind,ProfileKey,Header,Mapping) Values(?,?,?,?)",
                      kColumns, HashOf(header_text), header_text.substr(0, kLongest), mapping);
}

ConfirmedScrips ConfirmedScripsOf(database::Connection& connection, BrokerId broker) {
  ConfirmedScrips scrips;
  for (const auto& row : connection.Open(
           "Select ProfileKey,Mapping From ImportProfile Where Kind=?", ScripKind(broker))) {
    scrips.emplace(std::string(row.Utf8(0)), ScripId{row.Text(1).toInt()});
  }
  return scrips;
}

void RememberScrips(database::Transaction& transaction, BrokerId broker,
                    const ConfirmedScrips& scrips) {
  database::BulkWriter replace(
      transaction, "Replace Into ImportProfile(Kind,ProfileKey,Header,Mapping) Values(?,?,?,?)",
      "tttt");
  for (const auto& [name, scrip] : scrips) {
    replace.Text(ScripKind(broker)).Text(name).Text(name).Text(std::to_string(scrip.value));
    replace.EndRow();
  }
  replace.Finish();
}

std::unordered_set<std::string> TakenTrades(database::Connection& connection, AccountId account) {
  std::unordered_set<std::string> keys;
  for (const auto& [key, bill] : TakenTradeBills(connection, account)) {
    keys.insert(key);
  }
  return keys;
}

std::map<std::string, BillId> TakenTradeBills(database::Connection& connection, AccountId account) {
  std::map<std::string, BillId> bills;
  for (const auto& row : connection.Open(
           "Select T.TradeKey,T.BillId From TradeKey T Join SPMaster M On M.ID=T.BillId "
           "Where T.AcId=?",
           account)) {
    bills.emplace(std::string(row.Utf8(0)), BillId{row.Int(1)});
  }
  return bills;
}

void RememberTrades(database::Transaction& transaction, AccountId account,
                    const std::vector<TakenTrade>& trades) {
  // Identities whose bill is gone stand in nobody's way.
  transaction.Execute(
      "Delete T From TradeKey T Left Join SPMaster M On M.ID=T.BillId Where T.AcId=? and M.ID Is "
      "Null",
      account);
  records::Writer<records::TradeKey> writer(transaction);
  for (const TakenTrade& trade : trades) {
    writer.Write({account, QString::fromStdString(trade.key), trade.bill});
  }
  writer.Finish();
}

std::vector<EnteredTotal> EnteredTotals(database::Connection& connection, ClientId client,
                                        AccountId account) {
  std::vector<EnteredTotal> totals;
  for (const auto& row : connection.Open(
           "Select M.BDate,L.ScriptId,L.SP,Sum(L.Qty) From SPMaster M Join SPTrans L On L.SID=M.ID "
           "Left Join (Select Distinct BillId From TradeKey Where AcId=?) T On T.BillId=M.ID "
           "Where M.Cid=? and M.AcId=? and T.BillId Is Null Group By M.BDate,L.ScriptId,L.SP",
           account, client, account)) {
    if (const auto day = text::ParseDmy(row.Utf8(0))) {
      const auto side = row.Int(2) == 1 ? records::Side::kPurchase : records::Side::kSale;
      totals.push_back({*day, ScripId{row.Int(1)}, side, text::Shares(row.Double(3))});
    }
  }
  return totals;
}

}  // namespace quorvane::portfolio
