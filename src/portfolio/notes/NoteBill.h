#pragma once

#include "portfolio/notes/Note.h"

#include <span>
#include <string>
#include <vector>

namespace quorvane::notes {

/// A line of the bill that a note becomes. Rupees as records::BillLine has them.
struct BillEntry {
  std::size_t note_line = 0;  ///< place in Note::lines
  Side side = Side::kPurchase;
  bool non_delivery = false;
  Shares quantity;
  double rate = 0;
  double brokerage = 0;    ///< a share
  double service_tax = 0;  ///< of the quantity
  double stt = 0;          ///< of the quantity

  bool operator==(const BillEntry&) const = default;
};

/// A note as a bill: its lines with their parts of tax and STT, and the charges of the whole.
struct NoteBill {
  std::vector<BillEntry> entries;
  double transaction_charges = 0;
  double other_charges = 0;
};

/// Makes the bill of a note that adds up. `undelivered` has for each of its lines the shares that
/// are without delivery. The amounts of the lines are the note's totals to the paisa, tax and STT
/// are spread over them by their values, so that the bill comes to the note's net amount.
NoteBill MakeBill(const Note& note, const NoteBalance& balance,
                  std::span<const Shares> undelivered);

}  // namespace quorvane::notes
