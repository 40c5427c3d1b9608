#pragma once

#include "controls/ComboBox.h"
#include "controls/FieldLayout.h"
#include "controls/TextBox.h"
#include "transactions/bills/LineEntry.h"

#include <QCheckBox>
#include <QWidget>

#include <map>

namespace quorvane::bills {

/// The boxes of a bill line and their layout: shows the line and gives it what was typed.
/// BillLinePane says what the boxes do.
class BillLineForm : public QWidget {
  Q_OBJECT

 public:
  /// Focuses the first box that has to be filled in for a new line, or the quantity.
  void FocusFirst();
  void FocusQuantity();

 protected:
  BillLineForm();

  /// Shows everything of the line; `scrip` is the line's, or nullptr.
  void ShowLine(const LineEntry& line, const ScripFound* scrip);

  /// These show parts of it. What is typed and not yet read is lost.
  void ShowBoxes(const LineEntry& line);
  void ShowScrip(const ScripFound* scrip);
  void ShowLot(const LineEntry& line);
  void ShowSttPercent(const LineEntry& line);

  /// Gives the line what was typed and is not yet read.
  void ReadInto(LineEntry& line);

  /// What the user chose.
  std::optional<Side> ChosenSide() const;
  std::optional<Delivery> ChosenDelivery() const;

  std::map<BillBox, controls::TextBox*> Text1;
  controls::ComboBox* Combo3;  ///< side
  controls::ComboBox* Combo4;  ///< scrip
  controls::ComboBox* Combo5;  ///< percentage of STT
  controls::ComboBox* Combo6;  ///< delivery type
  controls::TextBox* TxtScr;
  controls::TextBox* TxtStkId;
  QCheckBox* Check1;

 private:
  void Arrange();
  void AddBox(controls::FieldLayout& fields, BillBox box, const QString& label, bool computed);
  void AddScrip(controls::FieldLayout& fields);
  void AddLot(controls::FieldLayout& fields);
};

}  // namespace quorvane::bills
