#pragma once

#include "controls/ChildWindow.h"
#include "controls/ClGrd.h"
#include "controls/ComboBox.h"
#include "controls/ZENButton.h"
#include "core/text/FinancialYear.h"

#include <vector>

namespace quorvane::client_list {

/// The chooser of client and financial year that stands before every window that works on one
/// client in one year. It opens what was the session's target when it was asked for last, so that
/// other windows may be opened meanwhile. The keyboard starts in the search, whose Enter proceeds.
class FrmClientList : public controls::ChildWindow {
  Q_OBJECT

 public:
  explicit FrmClientList(controls::Desk& desk);

  void AskedAgain() override;

 private:
  void BuildControls();
  void FillClients();
  void FillYears();
  void cmdproceed_Click();
  void cmdexit_Click();
  void Proceed(int client, text::FinancialYear year);

  QString target_;

  std::vector<text::FinancialYear> years_;
  controls::ClGrd* ClGrd1 = nullptr;  ///< the search over the clients
  controls::ComboBox* CboYr = nullptr;
  controls::ZENButton* cmdproceed = nullptr;
  controls::ZENButton* cmdexit = nullptr;
};

}  // namespace quorvane::client_list
