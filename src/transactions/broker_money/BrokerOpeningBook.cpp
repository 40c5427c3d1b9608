#include "transactions/broker_money/BrokerOpeningBook.h"

#include "core/database/Keys.h"
#include "core/records/Bill.h"
#include "core/records/Writing.h"
#include "core/text/Amounts.h"
#include "core/text/Tr.h"

#include <map>

namespace quorvane::broker_money {

QString SideChoices() {
  return QStringLiteral("#0;%1|#1;%2").arg(Tr("BrokerMoney", "Dr"), Tr("BrokerMoney", "Cr"));
}

MaybeRefusal CheckBrokerOpening(const BrokerOpening& opening) {
  if (!opening.broker) {
    return Refusal{Tr("BrokerMoney", "Enter Broker Name."), Field::kBroker};
  }
  if (!(opening.amount > 0)) {
    return Refusal{Tr("BrokerMoney", "Enter Opening Balance Greater than Zero."), Field::kAmount};
  }
  if (!opening.side) {
    return Refusal{Tr("BrokerMoney", "Select Dr/Cr."), Field::kSide};
  }
  return std::nullopt;
}

BrokerOpening CarriedOpening(BrokerId broker, std::int64_t balance_paise) {
  const bool debit = balance_paise < 0;
  return {.id = {},
          .broker = broker,
          .amount = text::FromPaise(debit ? -balance_paise : balance_paise),
          .side = debit ? LedgerSide::kDebit : LedgerSide::kCredit};
}

namespace {

using database::Connection;
using database::Transaction;

struct Balance {
  std::int64_t paise = 0;  ///< credit positive
  bool recorded = false;   ///< there is something that it is made of
};

using Balances = std::map<BrokerId, Balance>;

records::BrokerOpening RecordOf(const ClientYear& of, const BrokerOpening& opening) {
  return {of.client, of.year, opening.id.value, opening.broker, opening.amount, *opening.side};
}

BrokerOpening OpeningOf(const records::BrokerOpening& record) {
  return {.id = BrokerOpeningId{record.id},
          .broker = record.broker,
          .amount = record.amount,
          .side = record.side};
}

template <class Record>
records::Select<Record> SelectOf(Connection& connection, const ClientYear& of,
                                 std::string_view table = records::Table<Record>::kName) {
  records::Select<Record> select(connection, table);
  select.Where(&Record::client, of.client).Where(&Record::year, of.year);
  return select;
}

bool IsTaken(Transaction& transaction, const ClientYear& of, const BrokerOpening& opening) {
  bool taken = false;
  SelectOf<records::BrokerOpening>(transaction.GetConnection(), of)
      .Where(&records::BrokerOpening::broker, opening.broker)
      .ForUpdate()
      .Each([&](const records::BrokerOpening& other) { taken |= other.id != opening.id.value; });
  return taken;
}

/// What every broker's account closed with. Each row is taken in whole paise, as the ledger shows
/// it, and is held until the transaction ends.
class Closing {
 public:
  Closing(Transaction& transaction, const ClientYear& of)
      : connection_(transaction.GetConnection()), of_(of) {}

  Balances Read() {
    for (const auto& row : connection_.Open("Select Id From Broker")) {
      balances_.try_emplace(BrokerId{row.Int(0)});
    }
    SelectOf<records::BrokerOpening>(connection_, of_).Shared().Each([this](const auto& row) {
      Add(row.broker, row.side == LedgerSide::kDebit ? -row.amount : row.amount);
    });
    SelectOf<records::Bill>(connection_, of_)
        .Shared()
        .template Only<&records::Bill::broker, &records::Bill::grand_total>(
            [this](const records::Bill& bill) { Add(bill.broker, -bill.grand_total); });
    SelectOf<records::Payment>(connection_, of_).Shared().Each([this](const auto& row) {
      Add(row.broker, -row.amount);
    });
    SelectOf<records::Payment>(connection_, of_, records::kReceipts)
        .Shared()
        .Each([this](const auto& row) { Add(row.broker, row.amount); });
    return std::move(balances_);
  }

 private:
  void Add(BrokerId broker, double rupees) {
    const auto found = balances_.find(broker);
    if (found != balances_.end()) {
      found->second.paise += text::ToPaise(rupees);
      found->second.recorded = true;
    }
  }

  Connection& connection_;
  ClientYear of_;
  Balances balances_;
};

/// A balance that was typed for a broker of whom the year before knows nothing stays: nothing else
/// tells it.
void KeepOthers(Transaction& transaction, const ClientYear& of, Balances& balances) {
  const auto keep = [&](const records::BrokerOpening& row) {
    const auto broker = balances.find(row.broker);
    if (broker != balances.end() && !broker->second.recorded) {
      balances.erase(broker);
    }
  };
  SelectOf<records::BrokerOpening>(transaction.GetConnection(), of).ForUpdate().Each(keep);
}

void DeleteRows(Transaction& transaction, const ClientYear& of, const Balances& balances) {
  std::vector<BrokerId> brokers;
  for (const auto& [broker, balance] : balances) {
    brokers.push_back(broker);
  }
  records::Delete<records::BrokerOpening>(transaction)
      .Where(&records::BrokerOpening::client, of.client)
      .Where(&records::BrokerOpening::year, of.year)
      .In(&records::BrokerOpening::broker, brokers)
      .Run();
}

void InsertRows(Transaction& transaction, const ClientYear& of, const Balances& balances) {
  records::Writer<records::BrokerOpening> writer(transaction);
  int next = database::NextKeys(transaction, "BrOpBal", static_cast<int>(balances.size()));
  for (const auto& [broker, balance] : balances) {
    BrokerOpening carried = CarriedOpening(broker, balance.paise);
    carried.id = BrokerOpeningId{next++};
    writer.Write(RecordOf(of, carried));
  }
  writer.Finish();
}

}  // namespace

BrokerOpeningBook::BrokerOpeningBook(Connection& connection, const ClientYear& of)
    : connection_(connection), of_(of) {}

std::vector<BrokerOpening> BrokerOpeningBook::List() const {
  std::vector<BrokerOpening> openings;
  SelectOf<records::BrokerOpening>(connection_, of_)
      .OrderDownBy(&records::BrokerOpening::amount)
      .OrderBy(&records::BrokerOpening::id)
      .Each([&](const records::BrokerOpening& row) { openings.push_back(OpeningOf(row)); });
  return openings;
}

Result<BrokerOpeningId> BrokerOpeningBook::Save(const BrokerOpening& opening) {
  if (const MaybeRefusal refusal = CheckBrokerOpening(opening)) {
    return *refusal;
  }
  return database::InTransaction(
      connection_, [&](Transaction& transaction) -> Result<BrokerOpeningId> {
        if (IsTaken(transaction, of_, opening)) {
          return Refusal{Tr("BrokerMoney", "Record Already Exists!"), Field::kBroker};
        }
        BrokerOpening saved = opening;
        saved.id = BrokerOpeningId{
            records::ClaimKey(transaction, &records::BrokerOpening::id, saved.id.value)};
        records::Insert(transaction, RecordOf(of_, saved));
        return saved.id;
      });
}

void BrokerOpeningBook::Delete(BrokerOpeningId id) {
  database::InTransaction(connection_, [&](Transaction& transaction) {
    records::Delete<records::BrokerOpening>(transaction)
        .Where(&records::BrokerOpening::id, id.value)
        .Run();
  });
}

bool BrokerOpeningBook::HasBalancesToCarryForward() const {
  const ClientYear before{of_.client, of_.year.Previous()};
  return SelectOf<records::BrokerOpening>(connection_, before).First() ||
         SelectOf<records::Bill>(connection_, before).First() ||
         SelectOf<records::Payment>(connection_, before).First() ||
         SelectOf<records::Payment>(connection_, before, records::kReceipts).First();
}

std::size_t BrokerOpeningBook::CarryForward() {
  std::size_t written = 0;
  database::InTransaction(connection_, [&](Transaction& transaction) {
    transaction.Changes().Summarise(changes::Kind::kCarriedForward,
                                    Tr("BrokerMoney", "Broker balances"),
                                    {.client = of_.client.value, .year = of_.year.Utf8()});
    Balances balances = Closing(transaction, {of_.client, of_.year.Previous()}).Read();
    KeepOthers(transaction, of_, balances);
    DeleteRows(transaction, of_, balances);
    InsertRows(transaction, of_, balances);
    written = balances.size();
  });
  return written;
}

}  // namespace quorvane::broker_money
