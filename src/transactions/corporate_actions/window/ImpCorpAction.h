#pragma once

#include "controls/ChildWindow.h"
#include "controls/Grid.h"
#include "controls/ZENButton.h"
#include "transactions/corporate_actions/ActionBook.h"
#include "transactions/corporate_actions/ActionList.h"

#include <vector>

class QCheckBox;
class QLabel;

namespace quorvane::corporate_actions {

/// "Corporate Actions from a File": shows what was understood of the lists of the exchanges, before
/// anything is recorded. Actions without open points are ticked; the others are
/// recorded by hand.
class ImpCorpAction : public controls::ChildWindow {
  Q_OBJECT

 public:
  explicit ImpCorpAction(controls::Desk& desk);

 private:
  void Build();
  void Load(const QString& path);
  void Fill();
  std::vector<Action> Chosen() const;

  void CmdFile_Click();
  void CmdRecord_Click();
  void CmdApply_Click();
  void ChkHeld_Click();

  ActionBook book_;
  QString path_;
  ActionList list_;
  controls::Grid* VSF = nullptr;
  QLabel* LblFile = nullptr;
  QCheckBox* ChkHeld = nullptr;  ///< only scrips that somebody holds or held
  controls::ZENButton* CmdFile = nullptr;
  controls::ZENButton* CmdRecord = nullptr;
  controls::ZENButton* CmdApply = nullptr;
};

}  // namespace quorvane::corporate_actions
