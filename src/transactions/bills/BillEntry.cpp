#include "transactions/bills/BillEntry.h"

#include "transactions/bills/BillChecks.h"

#include <QCoreApplication>

#include <algorithm>
#include <span>
#include <utility>

namespace quorvane::bills {
namespace {

bool SellsFromALot(const BillLine& line) {
  return line.side == Side::kSale && line.lot;
}

}  // namespace

BillEntry::BillEntry(database::Connection& connection, const ClientYear& of)
    : book_(connection, of), staged_(connection, of) {}

void BillEntry::Begin(const Bill& bill) {
  staged_.Begin(bill.account);
  saved_ = bill.id ? bill : Bill();
  bill_ = bill;
  caption_ = bill.id ? SavedCaption(bill.grand_total) : TotalCaption::kReceivable;
  open_ = true;
}

void BillEntry::SetHeader(const Bill& header) {
  bill_.number = header.number;
  bill_.date = header.date;
  bill_.broker = header.broker;
  bill_.exchange = header.exchange;
  bill_.settlement_number = header.settlement_number;
}

MaybeRefusal BillEntry::ChooseAccount(AccountId account) {
  if (account == bill_.account) {
    return std::nullopt;
  }
  if (std::ranges::any_of(bill_.lines, SellsFromALot)) {
    return Refusal{
        QCoreApplication::translate("Bills", "The Bill has Sales from the Lots of its Demat A/c."),
        QStringLiteral("Combo2")};
  }
  return Stage(account);
}

MaybeRefusal BillEntry::Refresh() {
  return Stage(bill_.account);
}

MaybeRefusal BillEntry::Stage(AccountId account) {
  std::span<const BillLine> recorded;
  if (saved_.id && saved_.account == account) {
    recorded = saved_.lines;
  }
  MaybeRefusal refusal = staged_.Begin(account, recorded, bill_.lines);
  if (!refusal) {
    bill_.account = account;
  }
  return refusal;
}

const BillLine* BillEntry::LineAt(std::optional<std::size_t> place) const {
  return place ? &bill_.lines.at(*place) : nullptr;
}

MaybeRefusal BillEntry::CheckQuantity(const BillLine& line,
                                      std::optional<std::size_t> changed) const {
  if (line.side != Side::kSale || !line.scrip) {
    return std::nullopt;
  }
  const BillLine* replaced = LineAt(changed);
  return CheckSale(
      line.side, line.quantity,
      line.lot ? staged_.Available(line.lot, replaced) : staged_.Available(line.scrip, replaced));
}

// The lot that a sale names is checked when it is staged.
MaybeRefusal BillEntry::CheckChoiceOfLot(const BillLine& line,
                                         std::optional<std::size_t> changed) const {
  if (line.side != Side::kSale || line.lot) {
    return std::nullopt;
  }
  const std::optional<double> available = staged_.Available(line.scrip, LineAt(changed));
  if (MaybeRefusal refusal = CheckSale(line.side, line.quantity, available)) {
    return refusal;
  }
  return CheckLot(line.side, line.lot, available.value_or(0) > 0);
}

MaybeRefusal BillEntry::Put(BillLine line, std::optional<std::size_t> changed) {
  MaybeRefusal refusal = CheckChoiceOfLot(line, changed);
  if (refusal) {
    return refusal;
  }
  refusal = changed ? staged_.ChangeLine(*LineAt(changed), line) : staged_.AddLine(line);
  if (refusal) {
    return refusal;
  }
  if (changed) {
    bill_.lines[*changed] = std::move(line);
  } else {
    bill_.lines.push_back(std::move(line));
  }
  Recompute();
  return std::nullopt;
}

MaybeRefusal BillEntry::Remove(std::size_t place) {
  if (MaybeRefusal refusal = staged_.RemoveLine(bill_.lines.at(place))) {
    return refusal;
  }
  bill_.lines.erase(bill_.lines.begin() + static_cast<std::ptrdiff_t>(place));
  Recompute();
  return std::nullopt;
}

void BillEntry::SetCharges(double other_charges, double transaction_charges) {
  if (other_charges == bill_.other_charges && transaction_charges == bill_.transaction_charges) {
    return;
  }
  bill_.other_charges = other_charges;
  bill_.transaction_charges = transaction_charges;
  Recompute();
}

void BillEntry::Recompute() {
  const BillTotals totals =
      ComputeTotals(bill_.lines, bill_.other_charges, bill_.transaction_charges);
  bill_.total = totals.total;
  bill_.stt = totals.stt;
  bill_.grand_total = totals.grand_total;
  caption_ = totals.caption;
}

MaybeRefusal BillEntry::Save() {
  MaybeRefusal refusal = book_.Save(bill_);
  if (!refusal) {
    open_ = false;
  }
  return refusal;
}

void BillEntry::Cancel() {
  open_ = false;
  staged_.Cancel();
}

}  // namespace quorvane::bills
