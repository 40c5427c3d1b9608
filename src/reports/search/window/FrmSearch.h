#pragma once

#include "controls/ChildWindow.h"
#include "controls/Grid.h"
#include "controls/TextBox.h"
#include "reports/search/Search.h"

#include <QLabel>
#include <QTimer>

#include <vector>

namespace quorvane::search {

/// "Search": one box over clients, accounts, scrips, bills and payments of all years. The results
/// follow the typing, grouped by kind. The keyboard stays in the box: Up and Down move in the
/// results, Enter opens the chosen record in its window and closes the search.
class FrmSearch : public controls::ChildWindow {
  Q_OBJECT

 public:
  explicit FrmSearch(controls::Desk& desk);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Arrange();
  void Timer1_Timer();
  void VSF_DblClick(int row);
  void ShowFound();
  void Move(int step);
  void Open();
  bool IsRecord(int row) const;

  std::vector<Found> found_;
  QString searched_;  ///< what the results are of
  QTimer Timer1;      ///< the typing has paused
  controls::TextBox* TxtSearch;
  controls::Grid* VSF;
  QLabel* LblHint;
};

}  // namespace quorvane::search
