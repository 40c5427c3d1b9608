#pragma once

#include "controls/ChildWindow.h"
#include "controls/ComboBox.h"
#include "controls/Grid.h"
#include "masters/fair_values/FairValueBook.h"

#include <QLabel>

#include <set>

namespace quorvane::fair_values {

/// "Fair Values of 31-Jan-2018": every scrip with the highest price quoted on that day, typed or
/// taken from the exchanges' files of the day. Saved as a whole or not at all.
class FrmFairValue final : public controls::ChildWindow {
  Q_OBJECT

 public:
  explicit FrmFairValue(controls::Desk& desk);

 protected:
  bool MayClose() override;

 private:
  void Build();
  void BuildGrid();
  void CmdFile_Click();
  void CmdUpdate_Click();
  void CmdExit_Click();
  void CboShow_Click();
  void VSF_AfterEdit(int row, int column);

  void LoadFile(const QString& path);
  void Fill();
  void Count();
  bool IsShown(ScripId scrip) const;
  bool IsDirty() const { return entered_ != stored_; }

  FairValueBook book_;
  std::vector<rates::ListedScrip> scrips_;
  std::set<ScripId> held_;  ///< acquired up to the day
  tax::FairValues stored_;
  tax::FairValues entered_;
  controls::ZENButton* CmdFile;
  controls::ComboBox* CboShow;
  QLabel* LblCount;
  controls::Grid* VSF;
  controls::ZENButton* CmdUpdate;
  controls::ZENButton* CmdExit;
};

}  // namespace quorvane::fair_values
