#pragma once

#include "admin/repair/TableCheck.h"
#include "controls/ChildWindow.h"
#include "controls/Grid.h"

#include <QLabel>

namespace quorvane::repair {

/// Checks every table and shows what it finds; offers to compute the holdings anew, and new keys
/// for records that share one.
class RepairTable : public controls::ChildWindow {
  Q_OBJECT

 public:
  explicit RepairTable(controls::Desk& desk);

 private:
  void BuildControls();
  void ShowCheck(const TableCheck& check);
  QString Summary(const TableCheck& check) const;
  void cmdCheck_Click();
  void cmdUpdateStock_Click();
  void cmdNewKeys_Click();
  void cmdexit_Click();

  controls::Grid* VSF = nullptr;
  QLabel* LblResult = nullptr;
  controls::ZENButton* cmdUpdateStock = nullptr;
  controls::ZENButton* cmdNewKeys = nullptr;
};

}  // namespace quorvane::repair
