#pragma once

#include "controls/ComboBox.h"
#include "controls/Desk.h"
#include "controls/Grid.h"
#include "reports/home/HomeWork.h"

#include <QDateTime>
#include <QLabel>
#include <QTimer>
#include <QWidget>

#include <optional>

class QGridLayout;

namespace quorvane::home {

/// What the main window shows while no window is open: value and gains of all clients or of a
/// family, the largest holdings, dividends to come, what is missing, and the last records. Enter or
/// a double click on a line opens what it is made of. The figures are read and checked in the
/// background; the line at the top says of when they are.
class HomePane : public QWidget {
  Q_OBJECT

 public:
  /// Covers `area` and keeps its size.
  HomePane(controls::Desk& desk, QWidget& area);

  /// When the newest backup was made; none when there is no backup.
  void SetBackup(const std::optional<QDateTime>& made);

  /// Writes its texts in the language in force.
  void ShowTexts();

 Q_SIGNALS:
  /// The menu item under that name is to be done.
  void Chosen(const QString& menu_item);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;

 private:
  struct Part {
    QLabel* heading = nullptr;
    controls::Grid* grid = nullptr;
  };

  void Build();
  QWidget* Head();
  Part AddPart(QGridLayout& layout, const QString& name, int row, int column, int span);
  void FillChoices();
  void FillYears();
  void Ask();
  Scope Wanted() const;

  void Ready(const Shown& shown);
  void Failed(const QString& why);
  void ShowState();
  void ShowParts();
  void ShowFigures();
  void ShowLargest();
  void ShowDividends();
  void ShowMissing();
  void ShowLast();

  void Cbo_Click();
  void Timer1_Timer();
  void VSFigures_DblClick(int row);
  void VSLargest_DblClick(int row);
  void VSDividends_DblClick(int row);
  void VSMissing_DblClick(int row);
  void VSLast_DblClick(int row);

  controls::Desk& desk_;
  controls::Guard guard_;
  HomeWork* work_ = nullptr;  ///< from the first question on
  std::optional<Shown> shown_;
  std::optional<QDateTime> backup_;
  QString failure_;
  QTimer Timer1;  ///< looks for changes by others
  QLabel* family_label_;
  QLabel* year_label_;
  QLabel* LblState;
  controls::ComboBox* CboFamily;
  controls::ComboBox* CboYear;
  Part figures_;
  Part largest_;
  Part dividends_;
  Part missing_;
  Part last_;
};

}  // namespace quorvane::home
