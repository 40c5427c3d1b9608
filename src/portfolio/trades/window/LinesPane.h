#pragma once

#include "controls/ComboBox.h"
#include "controls/Grid.h"
#include "portfolio/trades/TradePlan.h"

#include <QWidget>

class QBoxLayout;
class QLabel;

namespace quorvane::portfolio {

/// The bill lines that trades make, to be ticked and corrected, and how many there are of each
/// state.
class LinesPane : public QWidget {
  Q_OBJECT

 public:
  explicit LinesPane(QWidget* parent = nullptr);

  /// Shows the lines of a plan, which outlives its being shown; nullptr shows none and tells
  /// `outcome`, which is otherwise told behind the counts.
  void Show(TradePlan* plan, database::Connection& connection, const QString& outcome);

  /// Gives the plan the ticks of the rows that are shown.
  void TakeTicks();

  /// Gives the plan what the user typed into a cell; why not, when that cannot be.
  QString TakeEdit(int row, int column);

  /// The scrip of the current line, by its place in the plan.
  std::optional<std::uint32_t> CurrentScrip() const;

  controls::Grid* VSF = nullptr;
  controls::ComboBox* CboShow = nullptr;  ///< which lines are shown

 private:
  bool IsShown(const TradeLine& line) const;
  void Count(const QString& outcome);

  TradePlan* plan_ = nullptr;
  QLabel* LblTotal = nullptr;
};

/// A label in front of a control, which its access key leads to. The control takes that part of the
/// width that is left over.
void AddLabelled(QBoxLayout& row, const QString& text, QWidget* control, int stretch = 0);

}  // namespace quorvane::portfolio
