#pragma once

#include "controls/ChildWindow.h"
#include "controls/ClGrd.h"
#include "controls/ComboBox.h"
#include "controls/ZENButton.h"
#include "core/text/FinancialYear.h"

#include <vector>

namespace quorvane::client_list {

/// Lets the user choose client and financial year before a window that works on one client in one
/// year. It then opens the target that the session had when the list was last asked for; other
/// windows may be opened meanwhile. The search has the focus first; Enter there goes on.
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
