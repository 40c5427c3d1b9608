#include "controls/ClGrd.h"

#include "controls/Style.h"

#include <QGridLayout>
#include <QKeyEvent>

namespace quorvane::controls {

ClGrd::ClGrd(const QString& name, const QString& purpose, const Guard& guard, QWidget* parent)
    : QWidget(parent),
      guard_(guard),
      code_(new TextBox(this)),
      name_(new TextBox(this)),
      grid_(new Grid(name + QLatin1String("_Grid"), purpose, this)) {
  setObjectName(name);
  code_->setObjectName(name + QLatin1String("_Code"));
  name_->setObjectName(name + QLatin1String("_Name"));
  code_->setPlaceholderText(tr("Code"));
  name_->setPlaceholderText(tr("Name"));
  grid_->SetColumns({{.heading = tr("Code")}, {.heading = tr("Name")}});
  BuildLayout();
  for (TextBox* box : {code_, name_}) {
    box->setClearButtonEnabled(true);
    box->setAccessibleName(box->placeholderText());
    box->installEventFilter(this);
    connect(box, &QLineEdit::textChanged, this, &ClGrd::Refresh);
  }
  connect(grid_, &Grid::CurrentRowChanged, this, [this] { Q_EMIT CurrentChanged(CurrentId()); });
  connect(grid_, &Grid::RowActivated, this, [this] { Q_EMIT Chosen(CurrentId()); });
}

void ClGrd::BuildLayout() {
  auto* rows = new QGridLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(kTightSpacing);
  rows->addWidget(code_, 0, 0);
  rows->addWidget(name_, 0, 1);
  rows->addWidget(grid_, 1, 0, 1, 2);
  rows->setColumnStretch(0, 1);
  rows->setColumnStretch(1, 2);
}

void ClGrd::SetSource(Source source) {
  source_ = std::move(source);
  Refresh();
}

void ClGrd::Refresh() {
  guard_.Run(objectName() + QLatin1String("_Change"), [this] {
    if (!source_) {
      return;
    }
    std::vector<Row> rows;
    for (const Record& record : source_(code_->text().toUpper(), name_->text().toUpper())) {
      rows.push_back({.id = record.id, .cells = {record.code, record.name}});
    }
    grid_->SetRows(std::move(rows));
  });
}

QString ClGrd::CurrentName() const {
  return grid_->CurrentRow() < 0 ? QString() : grid_->Model().Text(grid_->CurrentRow(), 1);
}

// The list is one key away from the boxes.
bool ClGrd::eventFilter(QObject* watched, QEvent* event) {
  const bool down =
      event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Down;
  if (!down) {
    return QWidget::eventFilter(watched, event);
  }
  grid_->setFocus(Qt::OtherFocusReason);
  if (grid_->CurrentRow() < 0) {
    grid_->SelectRow(0);
  }
  return true;
}

ClGrd::Source SourceOf(std::vector<ClGrd::Record> records) {
  return [records = std::move(records)](const QString& code, const QString& name) {
    std::vector<ClGrd::Record> found;
    for (const ClGrd::Record& record : records) {
      if (record.code.toUpper().startsWith(code) && record.name.toUpper().startsWith(name)) {
        found.push_back(record);
      }
    }
    return found;
  };
}

}  // namespace quorvane::controls
