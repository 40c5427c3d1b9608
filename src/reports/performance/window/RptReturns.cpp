#include "reports/performance/window/RptReturns.h"

#include "controls/FieldLayout.h"
#include "core/app/Session.h"
#include "reporting/selection/ReportLists.h"

namespace quorvane::performance {
namespace {

enum Whose { kClient, kFamily };
constexpr int kFrameTop = 27;  // the boxes are beside those in the period's frame

}  // namespace

RptReturns::RptReturns(reporting::ReportDesk& desk)
    : ReportWindow(desk, QStringLiteral("RptReturns"),
                   app::ClientTitle(tr("Returns"), desk.session), {790, 540}),
      of_(app::CurrentOf(desk.session)) {
  QBoxLayout* row = AddPeriodFrame();
  auto* fields = new controls::FieldLayout;
  CmbScript = fields->Add(tr("&Script Name"), QStringLiteral("CmbScript"), new controls::ComboBox);
  CmbAccount =
      fields->Add(tr("&Demat A/c No."), QStringLiteral("CmbAccount"), new controls::ComboBox);
  fields->setContentsMargins(0, kFrameTop, 0, 0);
  row->addLayout(fields, 1);
  row->setAlignment(fields, Qt::AlignTop);
  whose_ = MakeChoice(QStringLiteral("Frame1"), tr("Whose"), QStringLiteral("optW"),
                      {tr("&Client"), tr("&Family")});
  row->addWidget(whose_.frame);
  chart_ = new charts::ChartPane(TheGuard(), TheDesk());
  AddPage(tr("Chart"), chart_);
  FillLists();
  On(whose_.group, &QButtonGroup::idClicked, &RptReturns::optW_Click, QStringLiteral("optW_Click"));
  Start();
}

std::set<ClientId> RptReturns::Clients() const {
  return whose_.Index() == kFamily ? reporting::FamilyOf(*Session().connection, of_.client)
                                   : std::set<ClientId>{of_.client};
}

/// Everything is the first line of each list, and chosen.
void RptReturns::FillLists() {
  database::Connection& connection = *Session().connection;
  const std::set<ClientId> clients = Clients();
  std::vector<lookups::Item> scrips = reporting::ScripsEverHeld(connection, clients);
  scrips.insert(scrips.begin(), {0, tr("All Scripts")});
  CmbScript->SetItems(scrips);
  CmbScript->setCurrentIndex(0);
  std::vector<lookups::Item> accounts{{0, tr("All Accounts")}};
  for (const ClientId client : clients) {
    const auto own = reporting::AccountsByNumber(connection, client);
    accounts.insert(accounts.end(), own.begin(), own.end());
  }
  CmbAccount->SetItems(accounts);
  CmbAccount->setCurrentIndex(0);
}

void RptReturns::optW_Click(int /*whose*/) {
  FillLists();
}

QStringList RptReturns::Choices() const {
  QStringList choices = ReportWindow::Choices();
  for (const controls::ComboBox* combo : {CmbScript, CmbAccount}) {
    if (combo->CurrentId() > 0) {
      choices << combo->currentText();
    }
  }
  return choices << (whose_.Index() == kFamily ? tr("Family") : QString());
}

std::optional<reporting::ReportDocument> RptReturns::BuildDocument(Progress& progress) {
  const reporting::Period period = ThePeriod();
  ReturnsQuery query{.clients = Clients(), .from = period.from, .to = period.to};
  if (CmbScript->CurrentId() > 0) {
    query.scrip = ScripId{CmbScript->CurrentId()};
  }
  if (CmbAccount->CurrentId() > 0) {
    query.account = AccountId{CmbAccount->CurrentId()};
  }
  database::Connection& connection = *Session().connection;
  const Returns returns = ReadReturns(connection, query, progress);
  chart_->Show(ValueChart(returns));
  reporting::ReportDocument document = MakeReturnsDocument(returns);
  document.notes += records::FaultTexts(connection, returns.faults);
  return document;
}

}  // namespace quorvane::performance
