#pragma once

#include "transactions/bills/BillBook.h"
#include "transactions/bills/StagedHoldings.h"

#include <optional>
#include <vector>

namespace quorvane::bills {

/// A bill while it is entered or changed, with the lots of its account as its lines leave them. The
/// records and the ledger change when it is saved, not before. A command that is refused or throws
/// leaves bill and lots as they were.
class BillEntry {
 public:
  BillEntry(database::Connection& connection, const ClientYear& of);

  /// Starts to enter a bill: an empty one, or a saved one that is to be changed.
  void Begin(const Bill& bill);
  bool IsOpen() const { return open_; }

  const Bill& Current() const { return bill_; }
  TotalCaption Caption() const { return caption_; }

  /// Number, date, broker, exchange and settlement number of `header`.
  void SetHeader(const Bill& header);

  /// The lines move to the lots of another account. Refused when one of them sells from the old
  /// one.
  MaybeRefusal ChooseAccount(AccountId account);

  /// Reads the account's lots from the ledger again and posts the lines to them.
  MaybeRefusal Refresh();

  /// The account's lots as the lines leave them, smallest quantity first.
  std::vector<ledger::Lot> Balance() const { return staged_.Balance(); }

  /// The quantity of a sale against the lot that it names, or against all lots of its scrip as long
  /// as it names none. `changed` is the place of the line that it replaces.
  MaybeRefusal CheckQuantity(const BillLine& line, std::optional<std::size_t> changed) const;

  /// Adds a line, or puts it in the place of another. Totals follow.
  MaybeRefusal Put(BillLine line, std::optional<std::size_t> changed);

  MaybeRefusal Remove(std::size_t place);

  /// Rupees; the totals follow.
  void SetCharges(double other_charges, double transaction_charges);

  /// Saves the bill and ends its entry.
  MaybeRefusal Save();

  /// Gives the bill up.
  void Cancel();

 private:
  MaybeRefusal Stage(AccountId account);
  MaybeRefusal CheckChoiceOfLot(const BillLine& line, std::optional<std::size_t> changed) const;
  const BillLine* LineAt(std::optional<std::size_t> place) const;
  void Recompute();

  BillBook book_;
  StagedHoldings staged_;
  Bill saved_;  ///< as it is recorded; without an id when it is new
  Bill bill_;
  TotalCaption caption_ = TotalCaption::kReceivable;
  bool open_ = false;
};

}  // namespace quorvane::bills
