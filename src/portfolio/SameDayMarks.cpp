#include "portfolio/SameDayMarks.h"

#include "core/ledger/Lots.h"
#include "core/records/BillAmounts.h"
#include "core/records/Writing.h"
#include "core/text/Paise.h"

#include <algorithm>
#include <utility>

namespace quorvane::portfolio {
namespace {

using database::Transaction;
using records::Bill;
using records::BillLine;
using records::Side;
using text::Shares;

/// The owner's bills of a day with their lines, the earliest first.
std::vector<Bill> BillsOf(Transaction& transaction, const DayOwner& owner, text::Date day) {
  std::vector<Bill> bills = records::Select<Bill>(transaction.GetConnection())
                                .Where(&Bill::client, owner.client)
                                .Where(&Bill::account, owner.account)
                                .Where(&Bill::broker, owner.broker)
                                .Where(&Bill::date, text::FormatDmy(day))
                                .OrderBy(&Bill::id)
                                .ForUpdate()
                                .All();
  for (Bill& bill : bills) {
    bill.lines = records::Select<BillLine>(transaction.GetConnection())
                     .Where(&BillLine::bill, bill.id)
                     .Where(&BillLine::client, bill.client)
                     .OrderBy(&BillLine::number)
                     .ForUpdate()
                     .All();
  }
  return bills;
}

/// Puts the lines in the place of the bill's recorded ones.
void Rewrite(Transaction& transaction, Bill& bill) {
  const records::BillTotals totals =
      records::ComputeTotals(bill.lines, bill.other_charges, bill.transaction_charges);
  bill.total = totals.total;
  bill.stt = totals.stt;
  bill.grand_total = totals.grand_total;
  records::Replace(transaction, bill);
  records::Delete<BillLine>(transaction)
      .Where(&BillLine::bill, bill.id)
      .Where(&BillLine::client, bill.client)
      .Run();
  for (std::size_t i = 0; i < bill.lines.size(); ++i) {
    bill.lines[i].number = static_cast<int>(i) + 1;
  }
  records::Insert(transaction, std::span<const BillLine>(bill.lines));
}

/// Makes the first shares of a line one of their own, with their part of its charges, and returns
/// the place of that line; the rest follows it. A line of no more shares stays.
std::size_t Divide(Bill& bill, std::size_t place, Shares quantity) {
  BillLine rest = bill.lines[place];
  if (quantity >= rest.quantity) {
    return place;
  }
  text::ShareOut service_tax(rest.service_tax, rest.quantity);
  text::ShareOut stt(rest.stt, rest.quantity);
  BillLine& part = bill.lines[place];
  part.quantity = quantity;
  rest.quantity -= quantity;
  for (BillLine* line : {&part, &rest}) {
    line->service_tax = service_tax.Next(line->quantity);
    line->stt = stt.Next(line->quantity);
    records::ComputeAmount(*line);
  }
  bill.lines.insert(bill.lines.begin() + static_cast<std::ptrdiff_t>(place) + 1, std::move(rest));
  return place;
}

bool IsUndelivered(const BillLine& line, Side side, ScripId scrip) {
  return line.side == side && line.scrip == scrip && !line.fo &&
         line.delivery_type == records::kNonDeliveryBased;
}

bool IsDelivered(const BillLine& line, Side side, ScripId scrip) {
  return line.side == side && line.scrip == scrip && !line.fo &&
         line.delivery_type != records::kNonDeliveryBased;
}

/// What sales without delivery may still draw on: the shares that the day bought without delivery,
/// by lot.
using OpenLots = std::vector<std::pair<LotId, Shares>>;

OpenLots LotsBought(const std::vector<Bill>& bills, ScripId scrip) {
  OpenLots open;
  for (const Bill& bill : bills) {
    for (const BillLine& line : bill.lines) {
      if (IsUndelivered(line, Side::kPurchase, scrip)) {
        const auto same = std::ranges::find(open, line.lot, &OpenLots::value_type::first);
        if (same == open.end()) {
          open.emplace_back(line.lot, line.quantity);
        } else {
          same->second += line.quantity;
        }
      }
    }
  }
  return open;
}

/// Lets the sales of a scrip on a day draw on its open lots.
class Redrawing {
 public:
  Redrawing(std::vector<Bill>& bills, ScripId scrip, ledger::Lots& lots)
      : bills_(bills), scrip_(scrip), lots_(lots), open_(LotsBought(bills, scrip)) {}

  void Run(Transaction& transaction) {
    for (const Bill& bill : bills_) {
      for (const BillLine& line : bill.lines) {
        UseOwn(line);
      }
    }
    for (Bill& bill : bills_) {
      if (Redraw(bill)) {
        Rewrite(transaction, bill);
      }
    }
  }

 private:
  using Open = OpenLots::value_type;

  /// A sale that draws on the day's purchases already keeps its lot.
  void UseOwn(const BillLine& line) {
    const auto own = std::ranges::find(open_, line.lot, &Open::first);
    if (own != open_.end() && IsUndelivered(line, Side::kSale, scrip_)) {
      own->second -= std::min(own->second, line.quantity);
    }
  }

  bool IsToBeRedrawn(const BillLine& line) const {
    return IsUndelivered(line, Side::kSale, scrip_) && lots_.Find(line.lot) != nullptr &&
           std::ranges::find(open_, line.lot, &Open::first) == open_.end();
  }

  Shares AvailableIn(const Open& open) const {
    const records::Lot* lot = lots_.Find(open.first);
    return lot == nullptr ? Shares() : std::min(open.second, lot->quantity);
  }

  bool Redraw(Bill& bill) {
    bool changed = false;
    for (std::size_t i = 0; i < bill.lines.size(); ++i) {
      if (!IsToBeRedrawn(bill.lines[i])) {
        continue;
      }
      const auto open = std::ranges::find_if(
          open_, [this](const Open& one) { return AvailableIn(one) > Shares(); });
      if (open == open_.end()) {
        return changed;
      }
      BillLine& line = bill.lines[Divide(bill, i, AvailableIn(*open))];
      open->second -= line.quantity;
      lots_.AdjustLotQty(ledger::Posting::kAdd, line.lot, line.quantity);
      lots_.AdjustLotQty(ledger::Posting::kSubtract, open->first, line.quantity);
      line.lot = open->first;
      changed = true;
    }
    return changed;
  }

  std::vector<Bill>& bills_;
  ScripId scrip_;
  ledger::Lots& lots_;
  OpenLots open_;
};

}  // namespace

void SameDayMarks::Mark(Transaction& transaction) const {
  for (const DayMark& mark : marks_) {
    Shares left = mark.quantity;
    for (Bill& bill : BillsOf(transaction, owner_, mark.of.day)) {
      const Shares before = left;
      for (std::size_t i = 0; i < bill.lines.size() && left; ++i) {
        if (IsDelivered(bill.lines[i], mark.side, mark.of.scrip)) {
          BillLine& line = bill.lines[Divide(bill, i, left)];
          line.delivery_type = records::kNonDeliveryBased;
          left -= line.quantity;
        }
      }
      if (left != before) {
        Rewrite(transaction, bill);
      }
    }
  }
}

void SameDayMarks::Redraw(Transaction& transaction) const {
  for (const DayMark& mark : marks_) {
    if (mark.side != Side::kSale) {
      continue;
    }
    const ledger::Place place{{owner_.client, text::FinancialYear::Of(mark.of.day)},
                              owner_.account};
    ledger::Lots lots;
    ledger::LockAndLoad(transaction, lots, std::span(&place, 1));
    std::vector<Bill> bills = BillsOf(transaction, owner_, mark.of.day);
    Redrawing(bills, mark.of.scrip, lots).Run(transaction);
    lots.Write(transaction);
  }
}

}  // namespace quorvane::portfolio
