#include "masters/client_list/window/FrmClientList.h"

#include "controls/ProgressDialog.h"
#include "controls/Style.h"
#include "core/lookups/Directory.h"
#include "masters/client_list/ClientList.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace quorvane::client_list {
namespace {

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
  ClGrd1->FocusSearch();
}

void FrmClientList::BuildControls() {
  ClGrd1 = new controls::ClGrd(QStringLiteral("CVS"), tr("Clients"), tr("Client Name"), TheGuard());
  ClGrd1->setObjectName(QStringLiteral("ClGrd1"));
  CboYr = new controls::ComboBox();
  CboYr->setObjectName(QStringLiteral("CboYr"));
  cmdproceed = new controls::ZENButton(QStringLiteral("cmdproceed"), tr("&Proceed"));
  cmdproceed->setDefault(true);
  cmdexit = new controls::ZENButton(QStringLiteral("cmdexit"), tr("E&xit"));
  cmdexit->SetCancels(true);

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
  layout->addWidget(ClGrd1, 1);
  layout->addLayout(bottom);

  On(ClGrd1, &controls::ClGrd::Taken, &FrmClientList::cmdproceed_Click,
     QStringLiteral("cmdproceed_Click"));
  OnClick(cmdproceed, &FrmClientList::cmdproceed_Click);
  OnClick(cmdexit, &FrmClientList::cmdexit_Click);
}

void FrmClientList::FillClients() {
  const lookups::Directory directory(*Session().connection);
  std::vector<controls::ClGrd::Record> clients;
  for (const lookups::ClientEntry& client : directory.Clients()) {
    clients.push_back({.id = client.id.value,
                       .code = QString::fromStdString(client.code),
                       .name = QString::fromStdString(client.name)});
  }
  ClGrd1->SetRecords(std::move(clients));
  if (Session().current) {
    ClGrd1->Choose(Session().current->client.value);
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

void FrmClientList::cmdproceed_Click() {
  const int client = ClGrd1->CurrentId();
  if (client == 0) {
    ShowAt(tr("Select Client!"), ClGrd1);
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
  session.current_client_name = ClGrd1->CurrentName();
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
