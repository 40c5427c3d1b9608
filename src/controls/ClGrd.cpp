#include "controls/ClGrd.h"

#include "controls/Style.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>

#include <algorithm>

namespace quorvane::controls {
namespace {

enum ListColumn { kCode, kName };

}  // namespace

ClGrd::ClGrd(const QString& list_name, const QString& purpose, const QString& name_heading,
             const Guard& guard, QWidget* parent)
    : QWidget(parent), TxtSearch(new TextBox), CVS(new Grid(list_name, purpose)) {
  TxtSearch->setObjectName(QStringLiteral("TxtSearch"));
  TxtSearch->setPlaceholderText(tr("Code or name begins with ..."));
  TxtSearch->installEventFilter(this);
  CVS->SetColumns({{.heading = tr("Code")}, {.heading = name_heading}});
  Arrange();
  guard.Connect(TxtSearch, &QLineEdit::textChanged, this, &ClGrd::TxtSearch_Change,
                QStringLiteral("TxtSearch_Change"));
  connect(CVS, &Grid::RowActivated, this, [this](int row) {
    CVS->SelectRow(row);
    Q_EMIT Taken();
  });
}

void ClGrd::Arrange() {
  auto* label = new QLabel(tr("&Search"));
  label->setBuddy(TxtSearch);
  auto* search = new QHBoxLayout;
  search->addWidget(label);
  search->addWidget(TxtSearch, 1);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(kSpacing);
  rows->addLayout(search);
  rows->addWidget(CVS, 1);
}

void ClGrd::SetRecords(std::vector<Record> records) {
  records_ = std::move(records);
  TxtSearch_Change();
}

QString ClGrd::CurrentName() const {
  return CVS->CurrentRow() < 0 ? QString() : CVS->Model().Text(CVS->CurrentRow(), kName);
}

void ClGrd::Choose(int id) {
  if (CVS->Model().RowOf(id) >= 0) {
    CVS->SelectId(id);
  }
}

void ClGrd::TxtSearch_Change() {
  const QString wanted = TxtSearch->text();
  std::vector<Row> found;
  for (const Record& record : records_) {
    if (record.code.startsWith(wanted, Qt::CaseInsensitive) ||
        record.name.startsWith(wanted, Qt::CaseInsensitive)) {
      found.push_back({.id = record.id, .cells = {record.code, record.name}});
    }
  }
  CVS->SetRows(std::move(found));
  if (CVS->CurrentRow() < 0 && CVS->Model().RowCount() > 0) {
    CVS->SelectRow(0);
  }
}

bool ClGrd::eventFilter(QObject* watched, QEvent* event) {
  return (event->type() == QEvent::KeyPress && SearchKey(*static_cast<QKeyEvent*>(event))) ||
         QWidget::eventFilter(watched, event);
}

/// The keys of the list that the search has, too.
bool ClGrd::SearchKey(const QKeyEvent& event) {
  const int last = CVS->Model().RowCount() - 1;
  if (IsEnter(event)) {
    Q_EMIT Taken();
  } else if (event.key() == Qt::Key_Up) {
    CVS->SelectRow(std::max(CVS->CurrentRow() - 1, 0));
  } else if (event.key() == Qt::Key_Down) {
    CVS->SelectRow(std::min(CVS->CurrentRow() + 1, last));
  } else {
    return false;
  }
  return true;
}

}  // namespace quorvane::controls
