#include "transactions/bills/BillBook.h"

#include "core/database/Keys.h"
#include "core/ledger/Posting.h"
#include "core/lookups/Choices.h"
#include "core/lookups/Patch.h"
#include "core/records/Query.h"
#include "core/records/TradeKey.h"
#include "core/records/Writing.h"
#include "core/text/Dates.h"
#include "transactions/bills/BillChecks.h"
#include "transactions/posting/Owner.h"

#include <QHash>

namespace quorvane::bills {

namespace {

using database::Connection;
using database::Transaction;
using ledger::Place;
using records::Select;

std::optional<Bill> ReadBill(Connection& connection, const ClientYear& of, BillId id, bool lock) {
  Select<Bill> bills(connection);
  bills.Where(&Bill::id, id).Where(&Bill::client, of.client).Where(&Bill::year, of.year);
  Select<BillLine> lines(connection);
  lines.Where(&BillLine::bill, id)
      .Where(&BillLine::client, of.client)
      .Where(&BillLine::year, of.year)
      .OrderBy(&BillLine::number);
  if (lock) {
    bills.ForUpdate();
    lines.ForUpdate();
  }
  std::optional<Bill> bill = bills.First();
  if (bill) {
    bill->lines = lines.All();
  }
  return bill;
}

void DeleteRows(Transaction& transaction, const Bill& bill) {
  records::Delete<Bill>(transaction)
      .Where(&Bill::id, bill.id)
      .Where(&Bill::client, bill.client)
      .Where(&Bill::year, bill.year)
      .Run();
  records::Delete<BillLine>(transaction)
      .Where(&BillLine::bill, bill.id)
      .Where(&BillLine::client, bill.client)
      .Where(&BillLine::year, bill.year)
      .Run();
}

void InsertRows(Transaction& transaction, Bill& bill) {
  int number = 0;
  for (BillLine& line : bill.lines) {
    line.client = bill.client;
    line.year = bill.year;
    line.bill = bill.id;
    line.number = ++number;
  }
  records::Insert(transaction, bill);
  records::Insert(transaction, std::span<const BillLine>(bill.lines));
}

std::vector<ScripId> ScripsOf(const Bill& bill) {
  std::vector<ScripId> scrips;
  for (const BillLine& line : bill.lines) {
    scrips.push_back(line.scrip);
  }
  return scrips;
}

/// What the bill names is still there. `old` is the bill as it is recorded, or an empty one.
MaybeRefusal CheckNames(Transaction& transaction, const Bill& old, const Bill& bill) {
  MaybeRefusal refusal =
      posting::CheckAccount(transaction, bill.client, bill.account, old.account, Field::kAccount);
  if (!refusal) {
    refusal = posting::CheckBroker(transaction, bill.broker, old.broker, Field::kBroker);
  }
  if (!refusal) {
    refusal = posting::CheckExchange(transaction, bill.exchange, old.exchange, Field::kExchange);
  }
  if (!refusal) {
    refusal = posting::CheckScrips(transaction, ScripsOf(bill), ScripsOf(old), Field::kLines);
  }
  return refusal;
}

/// Puts the lines of `bill` in the place of those of `old` in the ledger. Either may have none.
MaybeRefusal Post(Transaction& transaction, const Bill& old, Bill& bill, Field field) {
  const Place was{bill.Of(), old.account};
  const Place is{bill.Of(), bill.account};
  std::vector<Place> places{is};
  if (!old.lines.empty()) {
    places.push_back(was);
  }
  ledger::Lots lots;
  ledger::LockAndLoad(transaction, lots, places);
  ledger::PostLines(lots, is, bill.lines);
  ledger::TakeBackLines(lots, was, old.lines);
  if (MaybeRefusal refusal = posting::RefuseShortage(transaction, lots, field)) {
    return refusal;
  }
  lots.Write(transaction);
  ledger::NumberLots(lots, bill.lines);
  return std::nullopt;
}

Result<Bill> SaveIn(Transaction& transaction, Bill bill) {
  if (const MaybeRefusal refusal =
          posting::CheckClient(transaction, bill.client, Field::kAccount)) {
    return *refusal;
  }
  const std::optional<Bill> recorded =
      bill.id ? ReadBill(transaction.GetConnection(), bill.Of(), bill.id, true) : std::nullopt;
  const Bill old = recorded.value_or(Bill());
  if (const MaybeRefusal refusal = CheckNames(transaction, old, bill)) {
    return *refusal;
  }
  // Before new lots are numbered, so that they can have the numbers that they had there.
  ledger::ClearScratch(transaction, bill.Of());
  if (const MaybeRefusal refusal = Post(transaction, old, bill, Field::kLines)) {
    return *refusal;
  }
  if (recorded) {
    DeleteRows(transaction, old);
  } else {
    // A bill that was deleted meanwhile is written as a new one.
    if (bill.id) {
      transaction.Changes().Missed("SPMaster", bill.id.value);
    }
    bill.id = BillId{database::NextKey(transaction, "SPMaster")};
  }
  InsertRows(transaction, bill);
  return bill;
}

}  // namespace

BillBook::BillBook(Connection& connection, const ClientYear& of)
    : connection_(connection), of_(of) {}

std::vector<Bill> BillBook::List() const {
  return Select<Bill>(connection_)
      .Where(&Bill::client, of_.client)
      .Where(&Bill::year, of_.year)
      .OrderByDay(&Bill::date)
      .OrderBy(&Bill::id)
      .All();
}

std::vector<Bill> BillBook::List(std::span<const int> keys) const {
  return Select<Bill>(connection_)
      .Where(&Bill::client, of_.client)
      .Where(&Bill::year, of_.year)
      .In(&Bill::id, keys)
      .All();
}

std::optional<Bill> BillBook::Load(BillId id) const {
  return ReadBill(connection_, of_, id, false);
}

bool BillBook::HasTwin(const Bill& bill) const {
  bool found = false;
  Select<Bill>(connection_)
      .Where(&Bill::client, of_.client)
      .Where(&Bill::year, of_.year)
      .Where(&Bill::broker, bill.broker)
      .Where(&Bill::number, bill.number)
      .Where(&Bill::date, bill.date)
      .Only<&Bill::id>([&](const Bill& other) { found = found || other.id != bill.id; });
  return found;
}

Result<Bill> BillBook::Save(const Bill& bill) {
  if (const MaybeRefusal refusal = CheckBill(bill, of_.year)) {
    return *refusal;
  }
  Bill owned = bill;
  owned.client = of_.client;
  owned.year = of_.year;
  return database::InTransaction(
      connection_, [&](Transaction& transaction) { return SaveIn(transaction, owned); });
}

MaybeRefusal BillBook::Delete(BillId id) {
  return database::InTransaction(connection_, [&](Transaction& transaction) -> MaybeRefusal {
    const std::optional<Bill> old = ReadBill(transaction.GetConnection(), of_, id, true);
    if (!old) {
      return std::nullopt;
    }
    Bill nothing = *old;
    nothing.lines.clear();
    if (MaybeRefusal refusal = Post(transaction, *old, nothing, Field::kRecord)) {
      return refusal;
    }
    DeleteRows(transaction, *old);
    records::Delete<records::TradeKey>(transaction).Where(&records::TradeKey::bill, id).Run();
    return std::nullopt;
  });
}

namespace {

using lookups::DropDown;

QHash<int, QString> TextsById(const std::vector<lookups::Item>& items) {
  QHash<int, QString> texts;
  for (const lookups::Item& item : items) {
    texts.insert(item.id, item.text);
  }
  return texts;
}

std::vector<ListedBill> WithNames(database::Connection& connection, const ClientYear& of,
                                  std::vector<Bill> bills) {
  const auto brokers = TextsById(lookups::DropDownItems(connection, DropDown::kBrokers));
  const auto exchanges = TextsById(lookups::DropDownItems(connection, DropDown::kExchanges));
  const auto accounts = TextsById(lookups::AccountItems(connection, of.client));
  std::vector<ListedBill> listed;
  for (Bill& bill : bills) {
    ListedBill& row = listed.emplace_back();
    row.broker = brokers.value(bill.broker.value);
    row.exchange = exchanges.value(bill.exchange.value);
    row.account = accounts.value(bill.account.value);
    row.bill = std::move(bill);
  }
  return listed;
}

}  // namespace

bool ListedBill::Has(const QString& text) const {
  return bill.number.contains(text, Qt::CaseInsensitive) || bill.date.contains(text) ||
         broker.contains(text, Qt::CaseInsensitive);
}

std::vector<ListedBill> ListBills(database::Connection& connection, const ClientYear& of) {
  return WithNames(connection, of, BillBook(connection, of).List());
}

void ReadBills(database::Connection& connection, const ClientYear& of, std::span<const int> keys,
               std::vector<ListedBill>& into) {
  const auto order = [](const ListedBill& listed) {
    return std::pair(text::ParseDmy(listed.bill.date), listed.bill.id);
  };
  lookups::Patch(
      into, keys, WithNames(connection, of, BillBook(connection, of).List(keys)),
      [](const ListedBill& listed) { return listed.bill.id.value; },
      [&](const ListedBill& one, const ListedBill& other) { return order(one) < order(other); });
}

}  // namespace quorvane::bills
