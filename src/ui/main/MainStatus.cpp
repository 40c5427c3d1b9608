#include "ui/main/MainStatus.h"

#include "controls/Style.h"
#include "reporting/output/window/PagesView.h"
#include "reporting/output/window/PreviewWindow.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPdfPageNavigator>
#include <QStatusBar>

namespace quorvane::ui {
namespace {

using reporting::PreviewWindow;

QLabel* AddPanel(QStatusBar& bar, const QString& name) {
  auto* panel = new QLabel;
  panel->setObjectName(name);
  panel->hide();
  bar.addPermanentWidget(panel);
  return panel;
}

void ShowIn(QLabel& panel, const QString& text) {
  panel.setText(text);
  panel.setVisible(!text.isEmpty());
}

/// Columns are counted as they are seen.
int ColumnInSight(const QAbstractItemView& grid) {
  int place = 0;
  for (int column = 0; column <= grid.currentIndex().column(); ++column) {
    const bool hidden = grid.visualRect(grid.currentIndex().siblingAtColumn(column)).width() == 0;
    place += hidden ? 0 : 1;
  }
  return place;
}

QAbstractItemView* GridAround(QWidget* widget) {
  while (widget != nullptr && qobject_cast<QAbstractItemView*>(widget) == nullptr) {
    widget = widget->parentWidget();
  }
  return qobject_cast<QAbstractItemView*>(widget);
}

}  // namespace

MainStatus::MainStatus(QStatusBar& bar, QMdiArea& area, const QString& folder)
    : QObject(&bar),
      area_(area),
      page_(AddPanel(bar, QStringLiteral("Page"))),
      line_(AddPanel(bar, QStringLiteral("Line"))),
      column_(AddPanel(bar, QStringLiteral("Col"))) {
  bar.setObjectName(QStringLiteral("TXStatusBar1"));
  auto* label = new QLabel(folder);
  label->setObjectName(QStringLiteral("Folder"));
  label->setTextFormat(Qt::PlainText);
  label->setIndent(controls::kSpacing);
  label->setToolTip(folder);
  // A long path is cut off rather than making the window wide.
  label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  bar.addWidget(label, 1);
  connect(&area, &QMdiArea::subWindowActivated, this, &MainStatus::WindowActivated);
  connect(qApp, &QApplication::focusChanged, this,
          [this](QWidget*, QWidget* now) { FocusChanged(now); });
}

void MainStatus::WindowActivated(QMdiSubWindow* frame) {
  auto* preview = frame == nullptr ? nullptr : qobject_cast<PreviewWindow*>(frame->widget());
  if (preview != nullptr) {
    connect(preview, &PreviewWindow::PageShown, this, &MainStatus::Refresh, Qt::UniqueConnection);
  }
  Refresh();
}

void MainStatus::FocusChanged(QWidget* focused) {
  QAbstractItemView* grid = GridAround(focused);
  if (grid == grid_ || focused == nullptr) {
    return;
  }
  if (grid_ != nullptr) {
    disconnect(grid_->selectionModel(), nullptr, this, nullptr);
  }
  grid_ = grid != nullptr && area_.isAncestorOf(grid) ? grid : nullptr;
  if (grid_ != nullptr) {
    connect(grid_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            &MainStatus::Refresh);
  }
  Refresh();
}

void MainStatus::Refresh() {
  const bool in_grid = grid_ != nullptr && grid_->currentIndex().isValid();
  ShowIn(*line_, in_grid ? tr("Line") + QStringLiteral(" %1").arg(grid_->currentIndex().row() + 1)
                         : QString());
  ShowIn(*column_,
         in_grid ? tr("Col") + QStringLiteral(" %1").arg(ColumnInSight(*grid_)) : QString());
  const QMdiSubWindow* frame = area_.activeSubWindow();
  auto* preview = frame == nullptr ? nullptr : qobject_cast<PreviewWindow*>(frame->widget());
  ShowIn(*page_, preview == nullptr
                     ? QString()
                     : tr("Page") + QStringLiteral(" %1/%2")
                                        .arg(preview->Pages().pageNavigator()->currentPage() + 1)
                                        .arg(preview->PageCount()));
}

}  // namespace quorvane::ui
