#pragma once

#include "core/records/BillAmounts.h"

#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>

namespace quorvane::bills {

using records::Side;

/// The entry boxes of a bill and of the line being entered.
enum class BillBox : std::uint8_t {
  kNumber = 0,
  kDate = 1,
  kBroker = 2,
  kQuantity = 3,
  kRate = 4,
  kBrokerage = 5,
  kNet = 6,
  kAmount = 7,
  kServiceTax = 8,
  kTotal = 9,
  kOtherCharges = 10,
  kStt = 11,
  kGrandTotal = 12,
  kLineStt = 13,
  kTransactionCharges = 14,
  kSettlementNumber = 15,
};

inline constexpr std::size_t kBillBoxCount = 16;

/// The texts of the boxes, by BillBox, and the numbers behind them.
class BillBoxes {
 public:
  QString& operator[](BillBox box) { return texts_[static_cast<std::size_t>(box)]; }
  const QString& operator[](BillBox box) const { return texts_[static_cast<std::size_t>(box)]; }

  /// Takes over what the user typed.
  void Type(BillBox box, const QString& text);

  /// Shows a number in the form of its box. The box shows two decimals; the number behind it stays
  /// what it is until the text of the box changes, so that a lot's rate of 33.333333 survives
  /// a change of the quantity. A net rate of 0 is shown as an empty box.
  void Show(BillBox box, double number);

  /// The number behind a box: what was shown, or the number at the start of what was typed, without
  /// grouping commas; 0 when there is none.
  double Number(BillBox box) const;

 private:
  struct Shown {
    QString text;
    double number = 0;
  };

  std::array<QString, kBillBoxCount> texts_;
  std::array<Shown, kBillBoxCount> shown_;
};

/// What leaving a box does: the box is brought into its form (a quantity and the line's amounts
/// lose their sign, a quantity keeps six decimals at most, amounts get two), and leaving one of the
/// line's boxes up to the service tax recomputes net rate and amount. A net rate of 0 is shown as
/// an empty box. The caller recomputes the bill's totals when a charge or the STT of the bill was
/// left.
void LeaveBox(BillBox box, Side side, BillBoxes& boxes);

/// Net rate and amount from rate, brokerage and quantity; also called when the side changes.
void RecomputeLine(Side side, BillBoxes& boxes);

}  // namespace quorvane::bills
