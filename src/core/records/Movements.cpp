#include "core/records/Movements.h"

#include "core/IdMap.h"
#include "core/records/Action.h"
#include "core/records/Bill.h"
#include "core/records/Opening.h"
#include "core/records/Query.h"
#include "core/records/Transfer.h"
#include "core/text/Amounts.h"

namespace quorvane::records {
namespace {

constexpr int kSteps = 5;

/// What the lines of a bill need of it.
struct Header {
  ClientYear of;
  AccountId account;
  BrokerId broker;
  text::Date date;
  bool dated = false;
};

class MovementReader {
 public:
  MovementReader(database::Connection& connection, const MovementScope& scope, Faults& faults,
                 Progress& progress, const std::function<void(const Movement&)>& take)
      : connection_(connection), scope_(scope), faults_(faults), progress_(progress), take_(take) {}

  void Read() {
    progress_.Begin(QStringLiteral("Movements"), kSteps);
    ReadOpenings();
    Done();
    ReadBills();
    Done();
    ReadLines();
    Done();
    ReadTransfers();
    Done();
    ReadActions();
    Done();
  }

 private:
  void Done() {
    progress_.Step(++steps_);
    progress_.ThrowIfCancelled();
  }

  template <class Record>
  Select<Record> Scoped() {
    Select<Record> select(connection_);
    select.Where(&Record::client, scope_.client).Where(&Record::year, scope_.year);
    return select;
  }

  /// The same of one scrip.
  template <class Record>
  Select<Record> ScopedToScrip() {
    Select<Record> select = Scoped<Record>();
    select.Where(&Record::scrip, scope_.scrip);
    return select;
  }

  /// Without a year a record belongs to no ledger and no statement.
  template <class Record>
  bool HasYear(const Record& record, int key) {
    if (record.year == text::FinancialYear()) {
      faults_.push_back({FaultKind::kRecordWithoutYear, record.client, key, {}, {}});
      return false;
    }
    return true;
  }

  void ReadOpenings() {
    ScopedToScrip<Opening>().Each([this](const Opening& opening) {
      if (HasYear(opening, opening.id.value)) {
        take_(MovementOf(opening));
      }
    });
  }

  Movement MovementOf(const Opening& opening) {
    Movement m;
    m.kind = MovementKind::kOpening;
    m.fo = opening.fo;
    m.dated = true;
    m.client = opening.client;
    m.year = opening.year;
    m.account = opening.account;
    m.scrip = opening.scrip;
    m.document = opening.id.value;
    m.quantity = opening.quantity;
    m.rate = opening.rate;
    m.brokerage = opening.brokerage;
    m.net = text::Tidy(opening.rate + opening.brokerage);
    m.amount = opening.total;
    m.service_tax = opening.service_tax;
    m.stt = opening.stt;
    if (const auto date = text::ParseDmy(opening.purchase_date)) {
      m.date = *date;
    } else {
      m.date = opening.year.FirstDay() - std::chrono::days(1);
      faults_.push_back({FaultKind::kOpeningWithoutDate,
                         opening.client,
                         opening.id.value,
                         {},
                         opening.purchase_date.toStdString()});
    }
    m.acquired = m.date;
    return m;
  }

  void ReadBills() {
    Scoped<Bill>()
        .Only<&Bill::client, &Bill::year, &Bill::id, &Bill::number, &Bill::date, &Bill::broker,
              &Bill::account>([this](const Bill& bill) {
          if (!HasYear(bill, bill.id.value)) {
            return;
          }
          const auto date = text::ParseDmy(bill.date);
          if (!date) {
            faults_.push_back({FaultKind::kBillWithoutDate, bill.client, bill.id.value,
                               bill.number.toStdString(), bill.date.toStdString()});
          }
          headers_.Put(bill.id.value, {bill.Of(), bill.account, bill.broker,
                                       date.value_or(text::Date{}), date.has_value()});
        });
    headers_.Seal();
  }

  void ReadLines() {
    const auto take = [this](const BillLine& line) {
      const Header* bill = headers_.Find(line.bill.value);
      if (bill == nullptr) {
        return;
      }
      if (bill->of != line.Of()) {
        faults_.push_back({FaultKind::kLineOfAnotherBill, line.client, line.bill.value, {}, {}});
        return;
      }
      take_(MovementOf(line, *bill));
    };
    Select<BillLine> lines = ScopedToScrip<BillLine>();
    if (scope_.charges && scope_.delivery) {
      lines.Only<&BillLine::client, &BillLine::year, &BillLine::bill, &BillLine::number,
                 &BillLine::side, &BillLine::lot, &BillLine::scrip, &BillLine::quantity,
                 &BillLine::rate, &BillLine::brokerage, &BillLine::net, &BillLine::amount,
                 &BillLine::service_tax, &BillLine::stt, &BillLine::fo, &BillLine::delivery_type>(
          take);
    } else if (scope_.charges) {
      lines.Only<&BillLine::client, &BillLine::year, &BillLine::bill, &BillLine::number,
                 &BillLine::side, &BillLine::lot, &BillLine::scrip, &BillLine::quantity,
                 &BillLine::rate, &BillLine::brokerage, &BillLine::net, &BillLine::amount,
                 &BillLine::service_tax, &BillLine::stt, &BillLine::fo>(take);
    } else if (scope_.delivery) {
      lines.Only<&BillLine::client, &BillLine::year, &BillLine::bill, &BillLine::number,
                 &BillLine::side, &BillLine::lot, &BillLine::scrip, &BillLine::quantity,
                 &BillLine::rate, &BillLine::delivery_type>(take);
    } else {
      lines.Only<&BillLine::client, &BillLine::year, &BillLine::bill, &BillLine::number,
                 &BillLine::side, &BillLine::lot, &BillLine::scrip, &BillLine::quantity,
                 &BillLine::rate>(take);
    }
  }

  static Movement MovementOf(const BillLine& line, const Header& bill) {
    Movement m;
    m.kind = line.IsPurchase() ? MovementKind::kPurchase : MovementKind::kSale;
    m.fo = line.fo;
    m.dated = bill.dated;
    m.non_delivery = line.delivery_type == kNonDeliveryBased;
    m.client = line.client;
    m.year = line.year;
    m.account = bill.account;
    m.scrip = line.scrip;
    m.date = bill.date;
    m.acquired = m.date;
    m.document = line.bill.value;
    m.line = line.number;
    m.other = bill.broker.value;
    m.lot = line.lot;
    m.quantity = line.quantity;
    m.rate = line.rate;
    m.brokerage = line.brokerage;
    m.net = line.net;
    m.amount = line.amount;
    m.service_tax = line.service_tax;
    m.stt = line.stt;
    return m;
  }

  void ReadTransfers() {
    Select<Transfer> transfers(connection_);
    transfers.Where(&Transfer::year, scope_.year).Where(&Transfer::scrip, scope_.scrip);
    transfers.Each([this](const Transfer& row) {
      const bool wanted = !scope_.client || scope_.every_transfer || row.client == *scope_.client ||
                          row.to_client == *scope_.client;
      if (wanted && HasYear(row, row.id.value)) {
        TakeBothEnds(row);
      }
    });
  }

  bool IsWanted(ClientId client) const {
    return !scope_.client || scope_.every_transfer || *scope_.client == client;
  }

  void TakeBothEnds(const Transfer& transfer) {
    Movement m = MovementOf(transfer);
    if (!m.dated) {
      AddFault(FaultKind::kTransferWithoutDate, transfer);
    }
    if (IsWanted(transfer.client)) {
      take_(m);
    }
    if (transfer.from == transfer.to) {
      AddFault(FaultKind::kTransferToItself, transfer);
      return;
    }
    m.kind = MovementKind::kTransferIn;
    m.client = transfer.to_client;
    m.account = transfer.to;
    m.other = transfer.from.value;
    m.lot = {};
    if (IsWanted(transfer.to_client)) {
      take_(m);
    }
  }

  void AddFault(FaultKind kind, const Transfer& transfer) {
    faults_.push_back({kind, transfer.client, transfer.id.value, {}, transfer.date.toStdString()});
  }

  static Movement MovementOf(const Transfer& transfer) {
    Movement m;
    m.kind = MovementKind::kTransferOut;
    m.client = transfer.client;
    m.year = transfer.year;
    m.account = transfer.from;
    m.scrip = transfer.scrip;
    const auto date = text::ParseDmy(transfer.date);
    m.dated = date.has_value();
    m.date = date.value_or(text::Date{});
    m.acquired = m.date;
    m.document = transfer.id.value;
    m.other = transfer.to.value;
    m.lot = transfer.lot;
    m.quantity = transfer.quantity;
    m.rate = transfer.rate;
    m.net = transfer.rate;
    m.amount = text::RoundAmount(transfer.rate * transfer.quantity.Number());
    return m;
  }

  void ReadActions() {
    IdMap<text::Date> days;
    Select<Action>(connection_)
        .Where(&Action::applied, true)
        .Only<&Action::id, &Action::ex_day>([&](const Action& action) {
          if (const auto day = text::ParseDmy(action.ex_day)) {
            days.Put(action.id.value, *day);
          }
        });
    days.Seal();
    Scoped<ActionLot>().Each([&](const ActionLot& lot) {
      if (const text::Date* day = days.Find(lot.action.value)) {
        TakeLot(lot, *day);
      }
    });
  }

  void TakeLot(const ActionLot& lot, text::Date day) {
    if (lot.out && (!scope_.scrip || lot.scrip == *scope_.scrip)) {
      take_(OutOf(lot, day));
    }
    if (lot.in && (!scope_.scrip || lot.to_scrip == *scope_.scrip)) {
      take_(IntoOf(lot, day));
    }
  }

  static Movement MovementOf(const ActionLot& lot, text::Date day) {
    Movement m;
    m.fo = lot.fo;
    m.dated = true;
    m.client = lot.client;
    m.year = lot.year;
    m.account = lot.account;
    m.date = day;
    m.acquired = day;
    m.document = lot.action.value;
    m.line = lot.number;
    return m;
  }

  static Movement OutOf(const ActionLot& lot, text::Date day) {
    Movement m = MovementOf(lot, day);
    m.kind = MovementKind::kActionOut;
    m.scrip = lot.scrip;
    m.quantity = lot.out;
    m.rate = lot.rate;
    m.net = lot.rate;
    m.amount = text::RoundAmount(lot.rate * lot.out.Number());
    return m;
  }

  static Movement IntoOf(const ActionLot& lot, text::Date day) {
    Movement m = MovementOf(lot, day);
    m.kind = MovementKind::kActionIn;
    m.scrip = lot.to_scrip;
    m.acquired = text::ParseDmy(lot.acquired).value_or(day);
    m.quantity = lot.in;
    m.rate = lot.to_rate;
    m.brokerage = lot.brokerage;
    m.net = text::Tidy(lot.to_rate + lot.brokerage);
    m.amount = OpeningTotal(lot.in, lot.to_rate, lot.brokerage);
    m.service_tax = lot.service_tax;
    m.stt = lot.stt;
    return m;
  }

  database::Connection& connection_;
  const MovementScope& scope_;
  Faults& faults_;
  Progress& progress_;
  const std::function<void(const Movement&)>& take_;
  IdMap<Header> headers_;
  int steps_ = 0;
};

}  // namespace

void ReadMovements(database::Connection& connection, const MovementScope& scope, Faults& faults,
                   Progress& progress, const std::function<void(const Movement&)>& take) {
  MovementReader(connection, scope, faults, progress, take).Read();
}

}  // namespace quorvane::records
