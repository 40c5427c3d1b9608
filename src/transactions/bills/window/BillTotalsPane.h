#pragma once

#include "controls/Messages.h"
#include "controls/TextBox.h"
#include "transactions/bills/BillBoxes.h"
#include "transactions/bills/window/BillContext.h"

#include <QLabel>
#include <QWidget>

#include <map>

class QVBoxLayout;

namespace quorvane::bills {

/// The foot of a bill: its totals, which follow from the lines, its charges, and the net of its
/// contract note.
class BillTotalsPane : public QWidget {
  Q_OBJECT

 public:
  explicit BillTotalsPane(const BillContext& context);

  void Show();

  /// Gives the charges to the entry, also one that is being typed, and shows the totals.
  void Take();

 private:
  void AddNoteNet(QVBoxLayout& rows);
  void Read();
  void ShowBoxes();
  void Text1_Validate(BillBox box);

  const BillContext& context_;
  BillBoxes boxes_;
  std::map<BillBox, controls::TextBox*> Text1;
  QLabel* LblTotal = nullptr;
  controls::TextBox* TxtNoteNet = nullptr;  ///< what the contract note comes to
};

}  // namespace quorvane::bills
