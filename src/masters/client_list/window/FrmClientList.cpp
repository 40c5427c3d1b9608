#include "masters/client_list/window/FrmClientList.h"

#include "controls/ProgressDialog.h"
#include "controls/Style.h"
#include "masters/client_list/ClientList.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace quorvane::client_list {
namespace {

enum ListColumn { kCode, kName };

QLabel* LabelFor(const QString& text, QWidget* buddy) {
  auto* label = new QLabel(text);
  label->setBuddy(buddy);
  return label;
}

}  // namespace

FrmClientList::FrmClientList(controls::Desk& desk)
    : ChildWindow(desk, QStringLiteral("FrmClientList"), tr("Client List"), {520, 420}) {
  BuildControls();
  FillClients();
  FillYears();
  AskedAgain();
}

void FrmClientList::AskedAgain() {
  target_ = Session().target;
  TxtSearch->setFocus(Qt::OtherFocusReason);
}

bool FrmClientList::eventFilter(QObject* watched, QEvent* event) {
  return (event->type() == QEvent::KeyPress && SearchKey(*static_cast<QKeyEvent*>(event))) ||
         ChildWindow::eventFilter(watched, event);
}

/// The keys of the list and of the button that the search has, too.
bool FrmClientList::SearchKey(const QKeyEvent& event) {
  const int last = CVS->Model().RowCount() - 1;
  if (controls::IsEnter(event)) {
    cmdproceed->click();
  } else if (event.key() == Qt::Key_Up) {
    CVS->SelectRow(std::max(CVS->CurrentRow() - 1, 0));
  } else if (event.key() == Qt::Key_Down) {
    CVS->SelectRow(std::min(CVS->CurrentRow() + 1, last));
  } else {
    return false;
  }
  return true;
}

void FrmClientList::BuildControls() {
  TxtSearch = new controls::TextBox();
  TxtSearch->setObjectName(QStringLiteral("TxtSearch"));
  TxtSearch->setPlaceholderText(tr("Code or name begins with ..."));
  TxtSearch->installEventFilter(this);
  CVS = new controls::Grid(QStringLiteral("CVS"), tr("Clients"));
  CVS->SetColumns({{.heading = tr("Code")}, {.heading = tr("Client Name")}});
  CboYr = new controls::ComboBox();
  CboYr->setObjectName(QStringLiteral("CboYr"));
  cmdproceed = new controls::ZENButton(QStringLiteral("cmdproceed"), tr("&Proceed"));
  cmdproceed->setDefault(true);
  cmdexit = new controls::ZENButton(QStringLiteral("cmdexit"), tr("E&xit"));
  cmdexit->SetCancels(true);

  auto* search = new QHBoxLayout;
  search->addWidget(LabelFor(tr("&Search"), TxtSearch));
  search->addWidget(TxtSearch, 1);
  auto* bottom = new QHBoxLayout;
  bottom->addWidget(LabelFor(tr("Financial &Year"), CboYr));
  bottom->addWidget(CboYr);
  bottom->addStretch(1);
  bottom->addWidget(cmdproceed);
  bottom->addWidget(cmdexit);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                             controls::kMargin);
  layout->setSpacing(controls::kSpacing);
  layout->addLayout(search);
  layout->addWidget(CVS, 1);
  layout->addLayout(bottom);

  On(TxtSearch, &QLineEdit::textChanged, &FrmClientList::TxtSearch_Change,
     QStringLiteral("TxtSearch_Change"));
  On(CVS, &controls::Grid::RowActivated, &FrmClientList::CVS_RowActivated,
     QStringLiteral("CVS_DblClick"));
  OnClick(cmdproceed, &FrmClientList::cmdproceed_Click);
  OnClick(cmdexit, &FrmClientList::cmdexit_Click);
}

void FrmClientList::FillClients() {
  const lookups::Directory directory(*Session().connection);
  for (const lookups::ClientEntry& client : directory.Clients()) {
    clients_.push_back(
        {.id = client.id.value,
         .cells = {QString::fromStdString(client.code), QString::fromStdString(client.name)}});
  }
  CVS->SetRows(clients_);
  if (Session().current) {
    CVS->SelectId(Session().current->client.value);
  }
  if (CVS->CurrentRow() < 0 && CVS->Model().RowCount() > 0) {
    CVS->SelectRow(0);
  }
}

void FrmClientList::FillYears() {
  years_ = YearsUpTo(TheDesk().today());
  QStringList texts;
  for (const text::FinancialYear year : years_) {
    texts << year.Text();
  }
  CboYr->SetTexts(texts);
  CboYr->setCurrentText(
      (Session().current ? Session().current->year : DefaultYear(TheDesk().today())).Text());
}

void FrmClientList::TxtSearch_Change() {
  const QString wanted = TxtSearch->text();
  std::vector<controls::Row> found;
  for (const controls::Row& row : clients_) {
    if (row.cells[kCode].toString().startsWith(wanted, Qt::CaseInsensitive) ||
        row.cells[kName].toString().startsWith(wanted, Qt::CaseInsensitive)) {
      found.push_back(row);
    }
  }
  CVS->SetRows(std::move(found));
  if (CVS->CurrentRow() < 0 && CVS->Model().RowCount() > 0) {
    CVS->SelectRow(0);
  }
}

void FrmClientList::CVS_RowActivated(int row) {
  CVS->SelectRow(row);
  cmdproceed_Click();
}

void FrmClientList::cmdproceed_Click() {
  const int client = CVS->CurrentId();
  if (client == 0) {
    ShowAt(tr("Select Client!"), CVS);
    return;
  }
  const auto year = text::FinancialYear::Parse(CboYr->currentText());
  if (!year) {
    ShowAt(tr("Enter Proper Financial Year"), CboYr);
    return;
  }
  Proceed(client, *year);
}

void FrmClientList::Proceed(int client, text::FinancialYear year) {
  app::Session& session = Session();
  session.current = ClientYear{ClientId{client}, year};
  session.current_client_name = CVS->Model().Text(CVS->CurrentRow(), kName);
  session.target = target_;  // a window of two duties reads it
  if (target_.compare(QLatin1String(kUpdateStock), Qt::CaseInsensitive) == 0) {
    controls::ProgressDialog progress(this);
    Say().Inform(UpdateStock(*session.connection, *session.current, progress));
  } else {
    TheDesk().open(target_);
  }
  close();
}

void FrmClientList::cmdexit_Click() {
  close();
}

}  // namespace quorvane::client_list
