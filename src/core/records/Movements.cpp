#include "core/records/Movements.h"

#include "core/IdMap.h"
#include "core/records/Bill.h"
#include "core/records/Opening.h"
#include "core/records/Query.h"
#include "core/records/Transfer.h"
#include "core/text/Amounts.h"

namespace quorvane::records {
namespace {

constexpr int kSteps = 4;

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
    Scoped<Opening>().Each([this](const Opening& opening) {
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
    Select<BillLine> lines = Scoped<BillLine>();
    if (scope_.charges) {
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
    Select<Transfer>(connection_).Where(&Transfer::year, scope_.year).Each([this](const auto& row) {
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
    m.document = transfer.id.value;
    m.other = transfer.to.value;
    m.lot = transfer.lot;
    m.quantity = transfer.quantity;
    m.rate = transfer.rate;
    m.net = transfer.rate;
    m.amount = text::RoundAmount(transfer.rate * transfer.quantity.Number());
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
