#include "reports/search/window/FrmSearch.h"

#include "controls/Style.h"
#include "controls/WindowMemory.h"

#include <QKeyEvent>
#include <QVBoxLayout>

namespace quorvane::search {
namespace {

constexpr int kPauseMs = 60;
const QString kLastText = QStringLiteral("Text");

controls::RecordPlace PlaceOf(const Found& found) {
  const auto in = [&](const char* window) {
    return controls::RecordPlace{QLatin1String(window), found.record, found.of, found.client_name};
  };
  switch (found.kind) {
    case Kind::kClient:
    case Kind::kAccount:
      return in("FrmClientMaster");
    case Kind::kScrip:
      return in("FrmScript");
    case Kind::kBill:
      return in("FrmSalePurchase");
    case Kind::kPayment:
      return in("FrmBrPayment");
    case Kind::kReceipt:
      return in("FrmBrRec");
  }
  return {};
}

}  // namespace

FrmSearch::FrmSearch(controls::Desk& desk)
    : ChildWindow(desk, QStringLiteral("FrmSearch"), tr("Search"), {560, 420}),
      TxtSearch(new controls::TextBox),
      VSF(new controls::Grid(QStringLiteral("VSF"), tr("What was found"))),
      LblHint(new QLabel) {
  TxtSearch->setObjectName(QStringLiteral("TxtSearch"));
  TxtSearch->setClearButtonEnabled(true);
  TxtSearch->installEventFilter(this);
  VSF->SetColumns({{.heading = tr("Found")}, {.heading = tr("About")}});
  VSF->SetSortable(false);
  LblHint->setObjectName(QStringLiteral("LblHint"));
  LblHint->setWordWrap(true);
  Arrange();
  Timer1.setSingleShot(true);
  connect(TxtSearch, &QLineEdit::textChanged, &Timer1, [this] { Timer1.start(kPauseMs); });
  On(&Timer1, &QTimer::timeout, &FrmSearch::Timer1_Timer, QStringLiteral("Timer1_Timer"));
  On(VSF, &controls::Grid::RowActivated, &FrmSearch::VSF_DblClick, QStringLiteral("VSF_DblClick"));
  TxtSearch->setText(controls::WindowMemory(Session().folders).Text(objectName(), kLastText));
  TxtSearch->selectAll();
  Timer1_Timer();
}

void FrmSearch::Arrange() {
  auto* label = new QLabel(tr("&Search"));
  label->setBuddy(TxtSearch);
  auto* line = new QHBoxLayout;
  line->addWidget(label);
  line->addWidget(TxtSearch, 1);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                           controls::kMargin);
  rows->setSpacing(controls::kSpacing);
  rows->addLayout(line);
  rows->addWidget(VSF, 1);
  rows->addWidget(LblHint);
  TxtSearch->setFocus();
}

void FrmSearch::Timer1_Timer() {
  Timer1.stop();
  searched_ = TxtSearch->text();
  found_ = Search(*Session().connection, searched_);
  ShowFound();
}

void FrmSearch::ShowFound() {
  std::vector<controls::Row> rows;
  for (std::size_t at = 0; at < found_.size(); ++at) {
    const Found& found = found_[at];
    if (at == 0 || found_[at - 1].kind != found.kind) {
      rows.push_back({.kind = controls::RowKind::kGroup, .cells = {HeadingOf(found.kind)}});
    }
    rows.push_back({.id = static_cast<int>(at) + 1, .cells = {found.name, found.about}});
  }
  VSF->SetRows(std::move(rows));
  VSF->SelectId(found_.empty() ? 0 : 1);
  if (searched_.trimmed().isEmpty()) {
    LblHint->setText(
        tr("Part of a client, an account or a scrip, or the beginning of an ISIN, a "
           "bill number or a cheque number."));
  } else {
    LblHint->setText(found_.empty() ? tr("Nothing was found.")
                                    : tr("Enter opens the chosen record. At most %1 of a kind are "
                                         "shown.")
                                          .arg(kMostOfAKind));
  }
}

bool FrmSearch::IsRecord(int row) const {
  return row >= 0 && row < VSF->Model().RowCount() && VSF->Model().IdOf(row) != 0;
}

/// To the next record; headings are passed over.
void FrmSearch::Move(int step) {
  int row = VSF->CurrentRow() + step;
  while (row >= 0 && row < VSF->Model().RowCount() && !IsRecord(row)) {
    row += step;
  }
  if (IsRecord(row)) {
    VSF->SelectRow(row);
  }
}

void FrmSearch::Open() {
  if (searched_ != TxtSearch->text()) {
    Timer1_Timer();
  }
  const int at = VSF->CurrentId();
  if (at == 0) {
    return;
  }
  controls::WindowMemory(Session().folders).Keep(objectName(), kLastText, searched_);
  const controls::RecordPlace place = PlaceOf(found_[static_cast<std::size_t>(at) - 1]);
  // It is in front of every other window: the record's would open behind it.
  controls::Desk& desk = TheDesk();
  close();
  desk.open_record(place);
}

void FrmSearch::VSF_DblClick(int row) {
  VSF->SelectRow(row);
  Open();
}

bool FrmSearch::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress || watched != TxtSearch) {
    return ChildWindow::eventFilter(watched, event);
  }
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (controls::IsEnter(key)) {
    TheGuard().Run(QStringLiteral("TxtSearch_KeyPress"), [this] { Open(); });
  } else if (key.key() == Qt::Key_Down) {
    Move(1);
  } else if (key.key() == Qt::Key_Up) {
    Move(-1);
  } else {
    return false;
  }
  return true;
}

}  // namespace quorvane::search
