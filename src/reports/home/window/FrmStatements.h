#pragma once

#include "controls/ChildWindow.h"
#include "controls/ComboBox.h"
#include "controls/Grid.h"
#include "reports/home/StatementChecks.h"

#include <QElapsedTimer>

namespace quorvane::home {

/// The demat accounts and what their last statements of holdings said. Enter on an account opens
/// the comparison with a statement for it.
class FrmStatements : public controls::ChildWindow {
  Q_OBJECT

 public:
  explicit FrmStatements(controls::Desk& desk);

  /// Lists the accounts that are in a CheckState; 0: all.
  bool GoTo(int record) override;

  /// With the family that the home page shows.
  void AskedAgain() override;

 protected:
  void Activated() override;

 private:
  void Build();
  void FillStates();
  void Read();
  void ShowLines();

  void Cbo_Click();
  void VSF_DblClick(int row);
  void cmdOpen_Click();
  void cmdExit_Click();

  std::vector<CheckedAccount> accounts_;
  QElapsedTimer since_read_;
  controls::ComboBox* CboFamily;
  controls::ComboBox* CboState;
  controls::Grid* VSF;
  controls::ZENButton* cmdOpen;
  controls::ZENButton* cmdExit;
};

}  // namespace quorvane::home
