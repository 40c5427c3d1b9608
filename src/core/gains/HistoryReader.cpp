#include "core/gains/HistoryReader.h"

#include "core/text/Amounts.h"

#include <fmt/format.h>

#include <limits>
#include <stdexcept>

namespace quorvane::gains {
namespace {

constexpr int kSteps = 5;

std::int32_t DayNumber(Date date) {
  return static_cast<std::int32_t>(date.time_since_epoch().count());
}

}  // namespace

HistoryReader::HistoryReader(database::Connection& connection, History& history, Progress& progress)
    : connection_(connection), history_(history), progress_(progress) {}

void HistoryReader::Read() {
  progress_.Begin(QStringLiteral("Movements"), kSteps);
  ReadRanking(clients_, history_.clients_, "Select Id From ClientInfo Order By Code,Id");
  ReadRanking(scrips_, history_.scrips_, "Select Id From Script Order By Name,Id");
  ReadRanking(accounts_, history_.accounts_, "Select Id From ClientActDet Order By ACNo,Id");
  ReadOpenings();
  Done();
  ReadBills();
  Done();
  ReadLotRates();
  Done();
  ReadLines();
  Done();
  ReadTransfers();
  Done();
}

void HistoryReader::Done() {
  progress_.Step(++steps_);
  progress_.ThrowIfCancelled();
}

void HistoryReader::ReadRanking(Ranking& ranking, std::vector<int>& ids, std::string_view sql) {
  ranking.ids = &ids;
  for (const auto& row : connection_.Open(sql)) {
    ranking.known.Put(row.Int(std::size_t{0}), static_cast<std::uint32_t>(ids.size()));
    ids.push_back(row.Int(std::size_t{0}));
  }
  ranking.known.Seal();
}

std::uint32_t HistoryReader::Ranking::Of(int id) {
  if (const std::uint32_t* rank = known.Find(id)) {
    return *rank;
  }
  for (const auto& [stranger, rank] : strangers) {
    if (stranger == id) {
      return rank;
    }
  }
  const auto rank = static_cast<std::uint32_t>(ids->size());
  ids->push_back(id);
  strangers.emplace_back(id, rank);
  return rank;
}

database::Recordset HistoryReader::OpenScoped(std::string_view sql,
                                              std::string_view client_column) {
  const HistoryQuery& query = history_.query_;
  std::vector<database::Value> values{query.year.Text()};
  std::string text = fmt::format("{} Where Fyear=?", sql);
  if (query.client) {
    text += fmt::format(" and {}=?", client_column);
    values.emplace_back(*query.client);
  }
  return connection_.OpenValues(text, values);
}

bool HistoryReader::IsWanted(bool fo) const {
  switch (history_.query_.fo) {
    case FoChoice::kFo:
      return fo;
    case FoChoice::kNonFo:
      return !fo;
    case FoChoice::kAll:
      break;
  }
  return true;
}

std::int32_t HistoryReader::DayOf(std::string_view text, const char* document, int id) const {
  const auto date = text::ParseDmy(text);
  if (!date) {
    throw std::runtime_error(
        fmt::format("{} {} has no valid date (\"{}\"); correct it before a statement is made",
                    document, id, text));
  }
  return DayNumber(*date);
}

History::Movement& HistoryReader::Add(int client, int scrip, int account) {
  History::Movement& movement = history_.movements_.Add();
  movement.client_rank = clients_.Of(client);
  movement.scrip_rank = scrips_.Of(scrip);
  movement.account_rank = accounts_.Of(account);
  return movement;
}

void HistoryReader::ReadOpenings() {
  const std::int32_t first_day = DayNumber(history_.query_.year.FirstDay());
  for (const auto& row : OpenScoped(
           "Select CId,ScriptId,AcId,Id,PDate,Qty,Rate,Total,STax,STT,Brk,FO From StkOpBal")) {
    const bool fo = row.Int(11) != 0;
    if (!IsWanted(fo)) {
      continue;
    }
    History::Movement& m = Add(row.Int(std::size_t{0}), row.Int(1), row.Int(2));
    m.kind = History::Kind::kOpening;
    m.document = row.Int(3);
    // Old opening rows may lack their date; they count from the year's first day.
    const auto date = text::ParseDmy(row.Utf8(4));
    m.day = date ? DayNumber(*date) : first_day;
    m.quantity = row.Double(5);
    m.lot_rate = row.Double(6);
    m.amount = row.Double(7);
    m.brokerage = row.Double(10);
    m.net = text::Tidy(m.lot_rate + m.brokerage);
    m.service_tax = row.Double(8);
    m.stt = row.Double(9);
    m.fo = fo;
  }
}

void HistoryReader::ReadBills() {
  for (const auto& row : OpenScoped("Select ID,BDate,AcId From SPMaster")) {
    const int id = row.Int(std::size_t{0});
    bills_.Put(id, {DayOf(row.Utf8(1), "Bill", id), row.Int(2)});
  }
  bills_.Seal();
}

void HistoryReader::ReadLotRates() {
  for (const auto& row : OpenScoped("Select Id,Rate From Stock")) {
    lot_rates_.Put(row.Int(std::size_t{0}), row.Double(1));
  }
  lot_rates_.Seal();
}

void HistoryReader::ReadLines() {
  const std::int32_t first = DayNumber(history_.query_.year.FirstDay());
  const std::int32_t last = DayNumber(history_.query_.to);
  constexpr int kPurchase = 1;
  for (const auto& row : OpenScoped(
           "Select Cid,SID,Id,SP,StkId,ScriptId,Qty,Rate,Brk,Net,Amt,STax,STT,FO From SPTrans")) {
    const BillHeader* bill = bills_.Find(row.Int(1));
    const bool purchase = row.Int(3) == kPurchase;
    const bool fo = row.Int(13) != 0;
    if (bill == nullptr || !IsWanted(fo) || bill->day > last || (purchase && bill->day < first)) {
      continue;
    }
    History::Movement& m = Add(row.Int(std::size_t{0}), row.Int(5), bill->account);
    m.kind = purchase ? History::Kind::kPurchase : History::Kind::kSale;
    m.day = bill->day;
    m.document = row.Int(1);
    m.line = row.Int(2);
    m.quantity = row.Double(6);
    m.brokerage = row.Double(8);
    m.net = row.Double(9);
    m.amount = row.Double(10);
    m.service_tax = row.Double(11);
    m.stt = row.Double(12);
    m.fo = fo;
    // A sale of a lot that is gone from the ledger finds no purchase: no rate equals NaN.
    const double* lot_rate = lot_rates_.Find(row.Int(4));
    m.lot_rate = purchase
                     ? row.Double(7)
                     : (lot_rate != nullptr ? *lot_rate : std::numeric_limits<double>::quiet_NaN());
  }
}

void HistoryReader::ReadTransfers() {
  const HistoryQuery& query = history_.query_;
  if (query.fo == FoChoice::kFo) {
    return;
  }
  std::string sql =
      "Select ID,Cid,FrmAcId,ToClientID,ToAcId,ScrId,TDate,PRate,Qty From ScrTransfer Where "
      "Fyear=?";
  std::vector<database::Value> values{query.year.Text()};
  if (query.client) {
    sql += " and (Cid=? or ToClientID=?)";
    values.insert(values.end(), 2, *query.client);
  }
  const auto add = [&](const database::Recordset& row, std::int32_t day, int client, int account,
                       History::Kind kind) {
    if (query.client && query.client->value != client) {
      return;
    }
    History::Movement& m = Add(client, row.Int(5), account);
    m.kind = kind;
    m.day = day;
    m.document = row.Int(std::size_t{0});
    m.lot_rate = row.Double(7);
    m.net = m.lot_rate;
    m.quantity = row.Double(8);
    m.amount = text::RoundAmount(m.lot_rate * m.quantity);
  };
  for (const auto& row : connection_.OpenValues(sql, values)) {
    const std::int32_t day = DayOf(row.Utf8(6), "Transfer", row.Int(std::size_t{0}));
    if (day > DayNumber(query.to)) {
      continue;
    }
    add(row, day, row.Int(1), row.Int(2), History::Kind::kTransferOut);
    add(row, day, row.Int(3), row.Int(4), History::Kind::kTransferIn);
  }
}

}  // namespace quorvane::gains
