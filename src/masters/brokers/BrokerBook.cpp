#include "masters/brokers/BrokerBook.h"

#include "core/ledger/Rebuild.h"
#include "core/records/Bill.h"
#include "core/records/Masters.h"
#include "core/records/Money.h"
#include "core/records/TradeKey.h"
#include "core/records/Writing.h"
#include "core/text/Tr.h"

#include <fmt/format.h>

namespace quorvane::brokers {
namespace {

using database::Connection;
using database::Recordset;
using database::TextCell;
using database::Transaction;

constexpr std::size_t kFirstContactColumn = 2;

std::string Columns() {
  return fmt::format("Id,Name,{}", masters::kContactColumns);
}

Broker BrokerOf(const Recordset& row) {
  return {BrokerId{row.Int(0)}, row.Text(1), masters::ContactOf(row, kFirstContactColumn)};
}

records::Broker RecordOf(const Broker& broker) {
  records::Broker record;
  static_cast<records::Contact&>(record) = broker.contact;
  record.id = broker.id;
  record.name = broker.name;
  return record;
}

void DeleteRows(Transaction& transaction, BrokerId id) {
  using records::Payment;
  records::Delete<records::Broker>(transaction).Where(&records::Broker::id, id).Run();
  records::Delete<records::BrokerOpening>(transaction)
      .Where(&records::BrokerOpening::broker, id)
      .Run();
  records::Delete<Payment>(transaction).Where(&Payment::broker, id).Run();
  records::Delete<Payment>(transaction, records::kReceipts).Where(&Payment::broker, id).Run();
  std::vector<BillId> bills;
  for (const auto& row :
       transaction.Open("Select ID From SPMaster Where BrokId=? For Update", id)) {
    bills.push_back(BillId{row.Int(0)});
  }
  records::DeleteNaming(transaction, &records::TradeKey::bill, std::span<const BillId>(bills));
  records::DeleteNaming(transaction, &records::BillLine::bill, std::span<const BillId>(bills));
  records::Delete<records::Bill>(transaction).Where(&records::Bill::broker, id).Run();
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
    saved.id = records::ClaimKey(transaction, &records::Broker::id, saved.id);
    records::Insert(transaction, RecordOf(saved));
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
