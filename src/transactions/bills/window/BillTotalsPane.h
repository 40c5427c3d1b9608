#pragma once

#include "controls/Messages.h"
#include "controls/TextBox.h"
#include "core/records/BillAmounts.h"
#include "transactions/bills/BillBoxes.h"

#include <QLabel>
#include <QWidget>

#include <map>

namespace quorvane::bills {

using records::Bill;
using records::Side;

/// The foot of a bill: its totals, which follow from the lines, and its charges.
class BillTotalsPane : public QWidget {
  Q_OBJECT

 public:
  explicit BillTotalsPane(const controls::Guard& guard);

  void Show(const Bill& bill, records::TotalCaption caption);

  /// Rupees, with whatever is being typed.
  double OtherCharges();
  double TransactionCharges();

 Q_SIGNALS:
  void ChargesLeft();

 private:
  void Read();
  void ShowBoxes();
  void Leave(BillBox box);

  BillBoxes boxes_;
  std::map<BillBox, controls::TextBox*> Text1;
  QLabel* LblTotal = nullptr;
};

}  // namespace quorvane::bills
