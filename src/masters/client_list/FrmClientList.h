#pragma once

#include "controls/ChildWindow.h"
#include "controls/ComboBox.h"
#include "controls/Grid.h"
#include "controls/TextBox.h"
#include "controls/ZENButton.h"
#include "core/lookups/Directory.h"

#include <vector>

namespace quorvane::client_list {

/// The chooser of client and financial year that stands before every window that works on one
/// client in one year. The target that it opens is the session's.
class FrmClientList : public controls::ChildWindow {
  Q_OBJECT

 public:
  explicit FrmClientList(controls::Desk& desk);

 private:
  void BuildControls();
  void FillClients();
  void FillYears();
  void TxtSearch_Change();
  void CVS_RowActivated(int row);
  void cmdproceed_Click();
  void cmdexit_Click();
  void Proceed(int client, text::FinancialYear year);

  std::vector<text::FinancialYear> years_;
  std::vector<controls::Row> clients_;
  controls::TextBox* TxtSearch = nullptr;
  controls::Grid* CVS = nullptr;
  controls::ComboBox* CboYr = nullptr;
  controls::ZENButton* cmdproceed = nullptr;
  controls::ZENButton* cmdexit = nullptr;
};

}  // namespace quorvane::client_list
