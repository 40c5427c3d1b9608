#pragma once

#include "core/Refusal.h"
#include "transactions/bills/Bill.h"
#include "transactions/posting/ScratchLots.h"

#include <optional>
#include <span>
#include <vector>

namespace quorvane::bills {

/// The lots of a demat account while a bill is edited: each line that is entered moves them on the
/// scratch table, so that the balance on the screen is the one after the lines entered so far. The
/// ledger changes when the bill is saved (BillBook::Save), not before. Each command is one
/// transaction; a refused one changes nothing.
class StagedHoldings {
 public:
  StagedHoldings(database::Connection& connection, const ClientYear& of);

  /// Starts over from the ledger's lots of the account.
  void Begin(AccountId account);

  /// The same with the lines of a bill posted: `recorded` are those that the ledger has of it for
  /// this account, `lines` those that it has now. Sets the lots of the purchases. A refusal leaves
  /// everything as it was.
  MaybeRefusal Begin(AccountId account, std::span<const BillLine> recorded,
                     std::vector<BillLine>& lines);

  /// The account's lots, smallest quantity first.
  std::vector<ledger::Lot> Balance() const { return lots_.Lots(account_); }

  /// How many shares a sale may take from a lot, a line that it replaces taken back first; none
  /// when the account has no lots at all, so that there is no balance to check a sale against.
  std::optional<double> Available(LotId lot, const BillLine* replaced = nullptr) const;

  /// The same over all lots of a scrip.
  std::optional<double> Available(ScripId scrip, const BillLine* replaced = nullptr) const;

  /// Posts a line and sets the lot that a purchase landed in.
  MaybeRefusal AddLine(BillLine& line);

  /// Takes `old` back, as it was recorded, and posts `line` in its place.
  MaybeRefusal ChangeLine(const BillLine& old, BillLine& line);

  MaybeRefusal RemoveLine(const BillLine& old);

  /// Forgets everything since Begin; the balance is empty until the next one.
  void Cancel() { lots_.Clear(); }

 private:
  MaybeRefusal Replace(const BillLine* old, BillLine* line);

  template <class Fits>
  std::optional<double> SumAvailable(const BillLine* replaced, const Fits& fits) const;

  posting::Place PlaceOfLots() const { return {of_, account_}; }

  ClientYear of_;
  AccountId account_;
  posting::ScratchLots lots_;
};

}  // namespace quorvane::bills
