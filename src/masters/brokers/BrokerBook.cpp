#include "masters/brokers/BrokerBook.h"

#include "core/database/Keys.h"
#include "core/ledger/Rebuild.h"
#include "core/text/Tr.h"

#include <fmt/format.h>

namespace quorvane::brokers {
namespace {

using database::Connection;
using database::Recordset;
using database::TextCell;
using database::Transaction;
using database::Value;

constexpr std::size_t kFirstContactColumn = 2;
constexpr std::size_t kColumnCount = kFirstContactColumn + masters::kContactColumnCount;

std::string Columns() {
  return fmt::format("Id,Name,{}", masters::kContactColumns);
}

Broker BrokerOf(const Recordset& row) {
  return {BrokerId{row.Int(0)}, row.Text(1), masters::ContactOf(row, kFirstContactColumn)};
}

void Insert(Transaction& transaction, const Broker& broker) {
  std::vector<Value> values{broker.id, broker.name};
  masters::AppendValues(values, broker.contact);
  transaction.GetConnection().ExecuteValues(
      fmt::format("Insert Into Broker({}) Values{}", Columns(),
                  masters::Placeholders(kColumnCount)),
      values);
}

void DeleteRows(Transaction& transaction, BrokerId id) {
  transaction.Execute("Delete From Broker Where Id=?", id);
  transaction.Execute("Delete From BrOpBal Where BrId=?", id);
  transaction.Execute("Delete From BrPayment Where BrId=?", id);
  transaction.Execute("Delete From BrRec Where BrId=?", id);
  transaction.Execute(
      "Delete SPTrans From SPMaster Join SPTrans On SPTrans.SID=SPMaster.ID "
      "Where SPMaster.BrokId=?",
      id);
  transaction.Execute(
      "Delete TradeKey From SPMaster Join TradeKey On TradeKey.BillId=SPMaster.ID "
      "Where SPMaster.BrokId=?",
      id);
  transaction.Execute("Delete From SPMaster Where BrokId=?", id);
}

}  // namespace

MaybeRefusal CheckBroker(const Broker& broker) {
  if (broker.name.trimmed().isEmpty()) {
    return Refusal{Tr("Masters", "Enter Name."), Field::kName};
  }
  std::vector<TextCell> cells{
      {"Name", QT_TRANSLATE_NOOP("Masters", "Name"), broker.name, Field::kName}};
  masters::AppendCells(cells, broker.contact);
  return database::CheckTextWidths("Broker", cells);
}

BrokerBook::BrokerBook(Connection& connection) : connection_(connection) {}

std::vector<Broker> BrokerBook::List() const {
  std::vector<Broker> brokers;
  for (const auto& row : connection_.Open(fmt::format("Select {} From Broker", Columns()))) {
    brokers.push_back(BrokerOf(row));
  }
  return brokers;
}

std::optional<Broker> BrokerBook::Load(BrokerId id) const {
  Recordset rows = connection_.Open(fmt::format("Select {} From Broker Where Id=?", Columns()), id);
  return rows.Next() ? std::optional(BrokerOf(rows)) : std::nullopt;
}

Result<BrokerId> BrokerBook::Save(const Broker& broker) {
  if (const MaybeRefusal refusal = CheckBroker(broker)) {
    return *refusal;
  }
  return database::InTransaction(connection_, [&](Transaction& transaction) -> Result<BrokerId> {
    Broker saved = broker;
    saved.id = database::ClaimKey(transaction, "Broker", saved.id);
    Insert(transaction, saved);
    return saved.id;
  });
}

void BrokerBook::Delete(BrokerId id, Progress& progress) {
  database::InTransaction(connection_, [&](Transaction& transaction) {
    DeleteRows(transaction, id);
    ledger::RebuildStock(transaction, std::nullopt, progress);
  });
}

}  // namespace quorvane::brokers
