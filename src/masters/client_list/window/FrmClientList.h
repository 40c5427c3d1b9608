#pragma once

#include "controls/ChildWindow.h"
#include "controls/ComboBox.h"
#include "controls/Grid.h"
#include "controls/TextBox.h"
#include "controls/ZENButton.h"
#include "core/lookups/Directory.h"

#include <vector>

class QKeyEvent;

namespace quorvane::client_list {

/// The chooser of client and financial year that stands before every window that works on one
/// client in one year. It opens what was the session's target when it was asked for last, so that
/// other windows may be opened meanwhile. The keyboard starts in the search, whose Up and Down move
/// the chosen row and whose Enter proceeds.
class FrmClientList : public controls::ChildWindow {
  Q_OBJECT

 public:
  explicit FrmClientList(controls::Desk& desk);

  void AskedAgain() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildControls();
  void FillClients();
  void FillYears();
  void TxtSearch_Change();
  void CVS_RowActivated(int row);
  void cmdproceed_Click();
  void cmdexit_Click();
  void Proceed(int client, text::FinancialYear year);
  bool SearchKey(const QKeyEvent& event);

  QString target_;

  std::vector<text::FinancialYear> years_;
  std::vector<controls::Row> clients_;
  controls::TextBox* TxtSearch = nullptr;
  controls::Grid* CVS = nullptr;
  controls::ComboBox* CboYr = nullptr;
  controls::ZENButton* cmdproceed = nullptr;
  controls::ZENButton* cmdexit = nullptr;
};

}  // namespace quorvane::client_list
