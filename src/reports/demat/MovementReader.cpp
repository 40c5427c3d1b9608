#include "reports/demat/MovementReader.h"

#include "core/text/Amounts.h"

#include <QCoreApplication>

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>
#include <tuple>

namespace quorvane::demat {
namespace {

constexpr int kSteps = 5;

Date DateOf(std::string_view text, const char* document, int id) {
  const auto date = text::ParseDmy(text);
  if (!date) {
    throw std::runtime_error(
        fmt::format("{} {} has no valid date (\"{}\"); correct it before a statement is made",
                    document, id, text));
  }
  return *date;
}

auto OrderOf(const RawMovement& m) {
  return std::tuple(m.client_rank, m.account_rank, m.scrip_rank, m.date, m.kind, m.document);
}

template <class IdType>
bool IsWanted(const std::vector<IdType>& wanted, int id) {
  return wanted.empty() || std::ranges::find(wanted, IdType{id}) != wanted.end();
}

}  // namespace

MovementReader::MovementReader(database::Connection& connection, const StatementQuery& query,
                               Progress& progress)
    : connection_(connection), query_(query), progress_(progress) {}

std::vector<RawMovement> MovementReader::Read() {
  progress_.Begin(QCoreApplication::translate("DematStatement", "Reading movements"), kSteps);
  ReadMasters();
  Step();
  ReadOpenings();
  Step();
  ReadBills();
  ReadLines();
  Step();
  ReadTransfers();
  Step();
  Sort();
  Step();
  return std::move(movements_);
}

void MovementReader::Step() {
  progress_.Step(++steps_);
  progress_.ThrowIfCancelled();
}

void MovementReader::ReadMasters() {
  for (const auto& row : connection_.Open("Select Id From ClientInfo Order By Code,Id")) {
    clients_.Add(row.Int(std::size_t{0}));
  }
  for (const auto& row :
       connection_.Open("Select Id,CId,ACNo From ClientActDet Order By ACNo,Id")) {
    const int id = row.Int(std::size_t{0});
    accounts_.Add(id);
    owners_.emplace(id, row.Int(1));
    numbers_.emplace(id, row.Text(2));
  }
  for (const auto& row : connection_.Open("Select Id From Script Order By Name,Id")) {
    scrips_.Add(row.Int(std::size_t{0}));
  }
  for (const auto& row : connection_.Open("Select Id,Name From Broker")) {
    brokers_.emplace(row.Int(std::size_t{0}), row.Text(1));
  }
}

QString MovementReader::Text(const Texts& texts, int id) {
  const auto found = texts.find(id);
  return found == texts.end() ? QString() : found->second;
}

database::Recordset MovementReader::OpenOfYear(std::string_view sql) const {
  std::vector<database::Value> values{query_.year.Text()};
  std::string text = fmt::format("{} Where Fyear=?", sql);
  if (query_.client) {
    text += " and Cid=?";
    values.emplace_back(*query_.client);
  }
  return connection_.OpenValues(text, values);
}

/// nullptr when the statement does not ask for it.
RawMovement* MovementReader::Add(int client, int account, int scrip) {
  const bool wanted = (!query_.client || query_.client->value == client) &&
                      IsWanted(query_.accounts, account) && IsWanted(query_.scrips, scrip);
  if (!wanted) {
    return nullptr;
  }
  RawMovement& movement = movements_.emplace_back();
  movement.client_rank = clients_.Of(client);
  movement.account_rank = accounts_.Of(account);
  movement.scrip_rank = scrips_.Of(scrip);
  return &movement;
}

void MovementReader::ReadOpenings() {
  for (const auto& row : OpenOfYear("Select CId,AcId,ScriptId,PDate,Qty From StkOpBal")) {
    if (RawMovement* m = Add(row.Int(std::size_t{0}), row.Int(1), row.Int(2))) {
      // Old opening rows may lack their date; they count from the year's first day.
      m->date = text::ParseDmy(row.Utf8(3)).value_or(query_.year.FirstDay());
      m->in = row.Double(4);
    }
  }
}

void MovementReader::ReadBills() {
  for (const auto& row : OpenOfYear("Select ID,BDate,AcId,BrokId From SPMaster")) {
    const int id = row.Int(std::size_t{0});
    bills_.emplace(id, Bill{DateOf(row.Utf8(1), "Bill", id), row.Int(2), row.Int(3)});
  }
}

void MovementReader::ReadLines() {
  constexpr int kPurchase = 1;
  for (const auto& row : OpenOfYear("Select Cid,SID,SP,ScriptId,Qty From SPTrans")) {
    const int id = row.Int(1);
    const auto bill = bills_.find(id);
    if (bill == bills_.end() || bill->second.date > query_.period.to) {
      continue;
    }
    if (RawMovement* m = Add(row.Int(std::size_t{0}), bill->second.account, row.Int(3))) {
      m->date = bill->second.date;
      m->kind = RawMovement::Kind::kBill;
      m->document = id;
      m->other = bill->second.broker;
      (row.Int(2) == kPurchase ? m->in : m->out) = row.Double(4);
    }
  }
}

void MovementReader::ReadTransfers() {
  const auto owner_of = [this](int account, int said) {
    const auto found = owners_.find(account);
    return found == owners_.end() ? said : found->second;
  };
  const auto add = [&](const database::Recordset& row, Date date, int client, int account,
                       int other) {
    RawMovement* m = Add(owner_of(account, client), account, row.Int(5));
    if (m != nullptr) {
      m->date = date;
      m->kind = RawMovement::Kind::kTransfer;
      m->document = row.Int(std::size_t{0});
      m->other = other;
    }
    return m;
  };
  for (const auto& row : connection_.Open(
           "Select ID,Cid,FrmAcId,ToClientID,ToAcId,ScrId,TDate,Qty From ScrTransfer Where Fyear=?",
           query_.year.Text())) {
    const Date date = DateOf(row.Utf8(6), "Transfer", row.Int(std::size_t{0}));
    if (date > query_.period.to) {
      continue;
    }
    const int from = row.Int(2);
    const int to = row.Int(4);
    if (RawMovement* m = add(row, date, row.Int(1), from, to)) {
      m->out = row.Double(7);
    }
    // The account is the sender then, and nothing else.
    if (RawMovement* m = from == to ? nullptr : add(row, date, row.Int(3), to, from)) {
      m->in = row.Double(7);
    }
  }
}

void MovementReader::Sort() {
  std::ranges::stable_sort(movements_, {}, OrderOf);
  std::vector<RawMovement> merged;
  for (const RawMovement& movement : movements_) {
    const bool same = !merged.empty() && movement.kind != RawMovement::Kind::kTransfer &&
                      OrderOf(merged.back()) == OrderOf(movement);
    if (same) {
      merged.back().in = text::Tidy(merged.back().in + movement.in);
      merged.back().out = text::Tidy(merged.back().out + movement.out);
    } else {
      merged.push_back(movement);
    }
  }
  movements_ = std::move(merged);
}

ClientId MovementReader::ClientOf(const RawMovement& movement) const {
  return {clients_.IdOf(movement.client_rank)};
}
AccountId MovementReader::AccountOf(const RawMovement& movement) const {
  return {accounts_.IdOf(movement.account_rank)};
}
ScripId MovementReader::ScripOf(const RawMovement& movement) const {
  return {scrips_.IdOf(movement.scrip_rank)};
}

}  // namespace quorvane::demat
