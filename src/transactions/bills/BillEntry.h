#pragma once

#include "core/records/Bill.h"
#include "transactions/bills/BillBook.h"
#include "transactions/bills/EntryLots.h"

#include <optional>
#include <vector>

namespace quorvane::bills {

using records::Bill;
using records::BillLine;

/// The bill of the window: one that is shown, or one that is entered or changed, with the lots of
/// its account as they are after its lines. The records and the ledger change when it is saved, not
/// before. A command that is refused or throws leaves bill and lots as they were. Commands and
/// questions about lots need an open entry.
class BillEntry {
 public:
  /// The place of a line that another one replaces; none for a new one.
  using Changed = std::optional<std::size_t>;

  BillEntry(database::Connection& connection, const ClientYear& of);

  /// Shows a bill. Ends an open entry; unlike Cancel, it leaves the scratch table as it is.
  void Show(const Bill& bill);

  /// Starts to enter a bill: an empty one, or a saved one that is to be changed.
  void Begin(const Bill& bill);
  bool IsOpen() const { return lots_.has_value(); }

  const Bill& Current() const { return bill_; }
  ledger::Place Place() const { return {of_, bill_.account}; }
  records::TotalCaption Caption() const { return caption_; }

  /// Number, date, broker, exchange and settlement number of `header`.
  void SetHeader(const Bill& header);

  /// The lines move to the lots of another account. Refused when one of them sells from the old
  /// one.
  MaybeRefusal ChooseAccount(AccountId account);

  /// Reads the account's lots from the ledger again and posts the lines to them.
  MaybeRefusal Refresh();

  /// The account's lots after the lines, smallest quantity first.
  std::vector<HeldLot> Balance() const { return lots_->Balance(bill_); }
  const std::vector<records::Movement>& Movements() const { return lots_->Movements(); }

  /// Checks the quantity of a sale against all lots of its scrip.
  MaybeRefusal CheckQuantity(const BillLine& line, Changed changed) const;

  /// The parts of a sale that names no lot, or one that has too few shares: of that lot, then of
  /// the oldest ones. Empty when the sale needs none or the lots do not have so many shares.
  std::vector<Piece> Spread(const BillLine& sale, Changed changed) const;

  /// Adds a line, or puts it in the place of another. Totals follow.
  MaybeRefusal Put(const BillLine& line, Changed changed);

  /// The same with several lines in one step.
  MaybeRefusal Put(std::span<const BillLine> lines, Changed changed);

  MaybeRefusal Remove(std::size_t place);

  /// How many sales name no lot although their scrip has shares in the account: they were entered
  /// before the account was chosen.
  std::size_t SalesWithoutLot() const;

  /// Gives those sales the oldest lots; a sale of several lots becomes a line for each.
  MaybeRefusal TakeOldestLots();

  /// Rupees; the totals follow.
  void SetCharges(double other_charges, double transaction_charges);

  /// Refuses a sale that names no lot while the account has lots; recorded ones may stay.
  MaybeRefusal CheckLots() const;

  /// Whether another bill has the same broker, number and date and this one is new or got them now.
  bool IsTwin() const;

  /// Saves the bill and ends its entry.
  MaybeRefusal Save();

  /// Ends the entry without saving.
  void Cancel();

 private:
  MaybeRefusal Stage(AccountId account);
  MaybeRefusal Take(std::vector<BillLine> lines, Field field);
  MaybeRefusal CheckSaleLine(const BillLine& line, Changed changed) const;
  bool WantsLot(const BillLine& line) const;
  std::optional<text::Shares> Available(ScripId scrip, LotId lot, Changed changed) const;
  const BillLine* LineAt(Changed place) const;
  void Recompute();

  database::Connection& connection_;
  ClientYear of_;
  BillBook book_;
  std::optional<EntryLots> lots_;  ///< while the entry is open
  Bill saved_;                     ///< as it is recorded; without an id when it is new
  Bill bill_;
  records::TotalCaption caption_ = records::TotalCaption::kReceivable;
};

}  // namespace quorvane::bills
