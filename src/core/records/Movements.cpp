#include "core/records/Movements.h"

#include "core/IdMap.h"
#include "core/records/MovementOf.h"
#include "core/records/Query.h"

namespace quorvane::records {
namespace {

constexpr int kSteps = 5;

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
        TakeOpening(opening);
      }
    });
  }

  void TakeOpening(const Opening& opening) {
    const auto date = text::ParseDmy(opening.purchase_date);
    if (!date) {
      faults_.push_back({FaultKind::kOpeningWithoutDate,
                         opening.client,
                         opening.id.value,
                         {},
                         opening.purchase_date.toStdString()});
    }
    take_(MovementOf(opening, date.value_or(opening.year.FirstDay() - std::chrono::days(1))));
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
      const BillHead* bill = headers_.Find(line.bill.value);
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
                 &BillLine::rate, &BillLine::fo, &BillLine::delivery_type>(take);
    } else {
      lines.Only<&BillLine::client, &BillLine::year, &BillLine::bill, &BillLine::number,
                 &BillLine::side, &BillLine::lot, &BillLine::scrip, &BillLine::quantity,
                 &BillLine::rate>(take);
    }
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
    const Movement out = TransferOut(transfer);
    if (!out.dated) {
      AddFault(FaultKind::kTransferWithoutDate, transfer);
    }
    if (IsWanted(transfer.client)) {
      take_(out);
    }
    if (transfer.from == transfer.to) {
      AddFault(FaultKind::kTransferToItself, transfer);
    } else if (IsWanted(transfer.to_client)) {
      take_(TransferIn(transfer));
    }
  }

  void AddFault(FaultKind kind, const Transfer& transfer) {
    faults_.push_back({kind, transfer.client, transfer.id.value, {}, transfer.date.toStdString()});
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
      take_(ActionOut(lot, day));
    }
    if (lot.in && (!scope_.scrip || lot.to_scrip == *scope_.scrip)) {
      take_(ActionIn(lot, day));
    }
  }

  database::Connection& connection_;
  const MovementScope& scope_;
  Faults& faults_;
  Progress& progress_;
  const std::function<void(const Movement&)>& take_;
  IdMap<BillHead> headers_;
  int steps_ = 0;
};

}  // namespace

void ReadMovements(database::Connection& connection, const MovementScope& scope, Faults& faults,
                   Progress& progress, const std::function<void(const Movement&)>& take) {
  MovementReader(connection, scope, faults, progress, take).Read();
}

}  // namespace quorvane::records
