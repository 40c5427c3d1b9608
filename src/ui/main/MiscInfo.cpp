#include "ui/main/MiscInfo.h"

#include "admin/repair/TableCheck.h"
#include "controls/Style.h"
#include "core/app/AppInfo.h"

#include <QLabel>
#include <QVBoxLayout>

namespace quorvane::ui {

MiscInfo::MiscInfo(controls::Desk& desk)
    : ChildWindow(desk, QStringLiteral("MiscInfo"), tr("Miscellaneous Information"), {560, 420}) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                             controls::kMargin);
  auto* grid = new controls::Grid(QStringLiteral("VSF"), tr("Facts about the program"));
  grid->SetColumns({{.heading = tr("What")}, {.heading = tr("Value")}});
  grid->SetSortable(false);
  grid->SetRows(Facts());
  layout->addWidget(grid);
}

std::vector<controls::Row> MiscInfo::Facts() const {
  std::vector<controls::Row> rows;
  const auto add = [&](const QString& what, const QVariant& value) {
    rows.push_back({.cells = {what, value}});
  };
  const auto& session = Session();
  add(tr("Program"), app::TitleText().trimmed());
  add(tr("Application folder"), session.folders.application);
  const auto& settings = session.connection->Settings();
  add(tr("Database"),
      settings.database + QStringLiteral(" @ ") +
          (settings.socket.isEmpty() ? session.connection->Address().host : settings.socket));
  add(tr("Set-up statements skipped"), QString::number(session.skipped.size()));
  for (const auto& size : repair::CountRows(*session.connection)) {
    add(tr("Records in %1").arg(QString::fromStdString(size.table)), QString::number(size.rows));
  }
  return rows;
}

}  // namespace quorvane::ui
