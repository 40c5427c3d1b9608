#include "transactions/bills/BillEntry.h"

#include "core/database/Transaction.h"
#include "core/text/Tr.h"
#include "transactions/bills/BillChecks.h"

#include <algorithm>
#include <utility>

namespace quorvane::bills {
namespace {

using text::Shares;

bool SellsFromALot(const BillLine& line) {
  return !line.IsPurchase() && line.lot;
}

bool SellsFromNone(const BillLine& line) {
  return !line.IsPurchase() && !line.lot;
}

Refusal InLine(std::size_t place, const Refusal& refusal) {
  return {Tr("Bills", "Line %1: %2").arg(place + 1).arg(refusal.text), Field::kLines};
}

}  // namespace

BillEntry::BillEntry(database::Connection& connection, const ClientYear& of)
    : connection_(connection), of_(of), book_(connection, of) {}

void BillEntry::Show(const Bill& bill) {
  lots_.reset();
  saved_ = bill;
  bill_ = bill;
  caption_ = records::SavedCaption(bill.grand_total);
}

void BillEntry::Begin(const Bill& bill) {
  lots_.emplace(connection_, ledger::Place{of_, bill.account}, bill);
  saved_ = bill.id ? bill : Bill();
  bill_ = bill;
  caption_ = bill.id ? records::SavedCaption(bill.grand_total) : records::TotalCaption::kReceivable;
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
    return Refusal{Tr("Bills", "The Bill has Sales from the Lots of its Demat A/c."),
                   Field::kAccount};
  }
  return Stage(account);
}

MaybeRefusal BillEntry::Refresh() {
  return Stage(bill_.account);
}

MaybeRefusal BillEntry::Stage(AccountId account) {
  EntryLots lots(connection_, {of_, account}, saved_);
  Result<std::vector<BillLine>> posted = lots.Post(bill_.lines, Field::kLines);
  if (posted) {
    bill_.account = account;
    bill_.lines = std::move(*posted);
    lots_ = std::move(lots);
  }
  return posted.Refused();
}

const BillLine* BillEntry::LineAt(Changed place) const {
  return place ? &bill_.lines.at(*place) : nullptr;
}

/// How many shares a sale may take: from a lot, or from all lots of a scrip without one. None when
/// the account has no lots at all, so that there is no balance to check a sale against.
std::optional<Shares> BillEntry::Available(ScripId scrip, LotId lot, Changed changed) const {
  const std::vector<HeldLot> balance = lots_->Balance(bill_, LineAt(changed));
  if (balance.empty()) {
    return std::nullopt;
  }
  Shares available;
  for (const HeldLot& held : balance) {
    if (held.lot.scrip == scrip && (!lot || held.lot.id == lot)) {
      available += std::max(Shares(), held.lot.quantity);
    }
  }
  return available;
}

MaybeRefusal BillEntry::CheckQuantity(const BillLine& line, Changed changed) const {
  if (line.IsPurchase() || !line.scrip) {
    return std::nullopt;
  }
  return CheckSale(line.side, line.quantity, Available(line.scrip, {}, changed));
}

MaybeRefusal BillEntry::CheckSaleLine(const BillLine& line, Changed changed) const {
  if (line.IsPurchase()) {
    return std::nullopt;
  }
  const std::optional<Shares> available = Available(line.scrip, line.lot, changed);
  if (MaybeRefusal refusal = CheckSale(line.side, line.quantity, available)) {
    return refusal;
  }
  return CheckLot(line.side, line.lot, available && *available > Shares());
}

std::vector<Piece> BillEntry::Spread(const BillLine& sale, Changed changed) const {
  const bool fits = sale.IsPurchase() || (sale.lot && !CheckSaleLine(sale, changed));
  if (fits) {
    return {};
  }
  std::vector<HeldLot> balance = lots_->Balance(bill_, LineAt(changed));
  return TakeOldest(balance, sale.scrip, sale.lot, sale.quantity);
}

MaybeRefusal BillEntry::Put(const BillLine& line, Changed changed) {
  if (MaybeRefusal refusal = CheckSaleLine(line, changed)) {
    return refusal;
  }
  return Put(std::span(&line, 1), changed);
}

MaybeRefusal BillEntry::Put(std::span<const BillLine> lines, Changed changed) {
  std::vector<BillLine> all = bill_.lines;
  auto place = all.end();
  if (changed) {
    place = all.erase(all.begin() + static_cast<std::ptrdiff_t>(*changed));
  }
  all.insert(place, lines.begin(), lines.end());
  return Take(std::move(all), Field::kQuantity);
}

MaybeRefusal BillEntry::Remove(std::size_t place) {
  std::vector<BillLine> rest = bill_.lines;
  rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(place));
  return Take(std::move(rest), Field::kQuantity);
}

MaybeRefusal BillEntry::Take(std::vector<BillLine> lines, Field field) {
  Result<std::vector<BillLine>> posted = lots_->Post(std::move(lines), field);
  if (posted) {
    bill_.lines = std::move(*posted);
    Recompute();
  }
  return posted.Refused();
}

bool BillEntry::WantsLot(const BillLine& line) const {
  const auto is_recorded = [&](const BillLine& old) {
    return SellsFromNone(old) && old.scrip == line.scrip && old.quantity == line.quantity;
  };
  return SellsFromNone(line) &&
         !(saved_.account == bill_.account && std::ranges::any_of(saved_.lines, is_recorded));
}

std::size_t BillEntry::SalesWithoutLot() const {
  return static_cast<std::size_t>(std::ranges::count_if(bill_.lines, [&](const BillLine& line) {
    return WantsLot(line) && Available(line.scrip, {}, {}).value_or(Shares()) > Shares();
  }));
}

MaybeRefusal BillEntry::TakeOldestLots() {
  std::vector<HeldLot> balance = Balance();
  std::vector<BillLine> lines;
  for (std::size_t place = 0; place < bill_.lines.size(); ++place) {
    const BillLine& line = bill_.lines[place];
    if (!WantsLot(line)) {
      lines.push_back(line);
      continue;
    }
    const std::vector<Piece> pieces = TakeOldest(balance, line.scrip, {}, line.quantity);
    if (pieces.empty()) {
      Shares left;
      for (const HeldLot& held : balance) {
        left += held.lot.scrip == line.scrip ? std::max(Shares(), held.lot.quantity) : Shares();
      }
      return InLine(place, *CheckSale(line.side, line.quantity, left));
    }
    std::ranges::copy(SpreadOver(line, pieces), std::back_inserter(lines));
  }
  return Take(std::move(lines), Field::kLines);
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
  const records::BillTotals totals =
      records::ComputeTotals(bill_.lines, bill_.other_charges, bill_.transaction_charges);
  bill_.total = totals.total;
  bill_.stt = totals.stt;
  bill_.grand_total = totals.grand_total;
  caption_ = totals.caption;
}

MaybeRefusal BillEntry::CheckLots() const {
  for (std::size_t place = 0; place < bill_.lines.size(); ++place) {
    const BillLine& line = bill_.lines[place];
    if (!WantsLot(line)) {
      continue;
    }
    if (const MaybeRefusal refusal = CheckSaleLine(line, {})) {
      return InLine(place, *refusal);
    }
  }
  return std::nullopt;
}

bool BillEntry::IsTwin() const {
  const bool stays = saved_.id && saved_.number == bill_.number && saved_.date == bill_.date &&
                     saved_.broker == bill_.broker;
  return !stays && book_.HasTwin(bill_);
}

MaybeRefusal BillEntry::Save() {
  if (MaybeRefusal refusal = CheckLots()) {
    return refusal;
  }
  Result<Bill> saved = book_.Save(bill_);
  if (saved) {
    bill_ = std::move(*saved);
    lots_.reset();
  }
  return saved.Refused();
}

void BillEntry::Cancel() {
  lots_.reset();
  database::InTransaction(connection_, [&](database::Transaction& transaction) {
    ledger::ClearScratch(transaction, of_);
  });
}

}  // namespace quorvane::bills
