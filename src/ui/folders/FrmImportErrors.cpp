#include "ui/folders/FrmImportErrors.h"

#include "controls/Grid.h"
#include "controls/Style.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace quorvane::ui {
namespace {

QString HeadOf(std::size_t errors) {
  return errors >= portfolio::ErrorList::kMost
             ? FrmImportErrors::tr(
                   "Nothing was taken in. Mend the first %1 errors, then try again:")
                   .arg(portfolio::ErrorList::kMost)
             : FrmImportErrors::tr("Nothing was taken in. Mend these errors, then try again:");
}

}  // namespace

FrmImportErrors::FrmImportErrors(controls::Desk& desk,
                                 const std::vector<portfolio::ImportError>& errors)
    : ChildWindow(desk, QStringLiteral("FrmImportErrors"), tr("Errors in the Portfolio Folder"),
                  {700, 400}) {
  auto* grid = new controls::Grid(QStringLiteral("VSF"), tr("Errors"));
  grid->SetFilterable(true);
  grid->SetColumns({{.heading = tr("File")},
                    {.heading = tr("Line"), .mask = controls::Mask::kNumber},
                    {.heading = tr("Column")},
                    {.heading = tr("What is Wrong")}});
  std::vector<controls::Row> rows;
  for (const portfolio::ImportError& error : errors) {
    const QVariant line = error.line == 0 ? QVariant() : QVariant(static_cast<int>(error.line));
    rows.push_back(
        {.id = static_cast<int>(rows.size()) + 1,
         .cells = {QString::fromStdString(error.file), line, QString::fromStdString(error.column),
                   QString::fromStdString(error.message)}});
  }
  grid->SetRows(std::move(rows));
  grid->SelectRow(0);
  auto* exit = new controls::ZENButton(QStringLiteral("cmdexit"), tr("E&xit"));
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(exit);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                             controls::kMargin);
  layout->addWidget(new QLabel(HeadOf(errors.size())));
  layout->addWidget(grid, 1);
  layout->addLayout(buttons);
  OnClick(exit, &FrmImportErrors::cmdexit_Click);
}

void FrmImportErrors::cmdexit_Click() {
  close();
}

}  // namespace quorvane::ui
