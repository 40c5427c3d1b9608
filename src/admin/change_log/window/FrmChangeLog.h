#pragma once

#include "controls/ChildWindow.h"
#include "controls/ComboBox.h"
#include "controls/Grid.h"
#include "core/changes/Log.h"
#include "core/lookups/Directory.h"

#include <memory>
#include <vector>

class QLabel;
class QVBoxLayout;

namespace quorvane::change_log {

/// "Log of Changes": what was changed, by whom and when, the newest first; below it what the chosen
/// change made of the record, before and after beside each other. A user who may administer writes
/// old entries to a file and removes them.
class FrmChangeLog : public controls::ChildWindow {
  Q_OBJECT

 public:
  explicit FrmChangeLog(controls::Desk& desk);

  void LookAround(const changes::Novelties& news) override;

 private:
  void Build();
  void BuildFilter(QVBoxLayout& rows);
  void FillLists();
  void Fill();
  void ShowDifferences();
  bool HasProperDates();
  changes::Filter Chosen() const;

  void CmdShow_Click();
  void CmdRemove_Click();
  void VSF_RowColChange(int row);

  std::unique_ptr<lookups::Directory> directory_;
  controls::DateBox* Text1_0 = nullptr;  ///< first day
  controls::DateBox* Text1_1 = nullptr;  ///< last day
  controls::ComboBox* Combo1 = nullptr;  ///< user
  controls::ComboBox* Combo2 = nullptr;  ///< kind of change
  controls::ComboBox* Combo3 = nullptr;  ///< client
  controls::Grid* VSF = nullptr;         ///< entries
  controls::Grid* VSFRows = nullptr;     ///< values before and after
  QLabel* LblCount = nullptr;
  controls::ZENButton* CmdShow = nullptr;
  controls::ZENButton* CmdRemove = nullptr;
};

}  // namespace quorvane::change_log
