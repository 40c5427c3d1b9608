#include "reports/broker_ledger/window/RptBrokerLedger.h"

#include "core/app/Session.h"
#include "reporting/period/Period.h"
#include "reports/broker_ledger/BrokerLedger.h"

#include <QLabel>

namespace quorvane::broker_ledger {

using app::CurrentOf;

namespace {

constexpr float kBrokerWidth = 190;  // on a screen of 800 by 600

}  // namespace

RptBrokerLedger::RptBrokerLedger(reporting::ReportDesk& desk)
    : ReportWindow(desk, QStringLiteral("RptBrokerLedger"),
                   app::ClientTitle(tr("Broker Ledger"), desk.session), {790, 520}),
      of_(CurrentOf(desk.session)) {
  AddPeriod();
  auto* months = new QHBoxLayout;
  CmbMth = new controls::ComboBox();
  CmbMth->setObjectName(QStringLiteral("CmbMth"));
  CmbMth->setAccessibleName(tr("Month"));
  CmbMth->SetTexts(reporting::MonthNames());
  auto* label = new QLabel(tr("Mo&nth"));
  label->setBuddy(CmbMth);
  months->addWidget(label);
  months->addWidget(CmbMth);
  months->addStretch();
  AddOptions(months);
  On(CmbMth, &QComboBox::currentIndexChanged, &RptBrokerLedger::CmbMth_Click,
     QStringLiteral("CmbMth_Click"));
  VSB = AddTickGrid(QStringLiteral("VSB"), tr("BROKER NAME"), tr("Brokers"));
  Hold({{Field::kBrokers, "VSB"}});
  // Narrower than beside other reports: the balance is in sight on a small screen.
  VSB->parentWidget()->setMinimumWidth(
      static_cast<int>(kBrokerWidth * desk.session.screen_factors.horizontal));
  VSB->Fill(lookups::DropDownItems(*Session().connection, lookups::DropDown::kBrokers));
  Start();
}

/// A month sets the period to its first and last day.
void RptBrokerLedger::CmbMth_Click() {
  if (!CmbMth->HasChoice()) {
    return;
  }
  const Result<reporting::Period> month = reporting::MonthPeriod(
      of_.year, reporting::MonthNumber(CmbMth->itemText(CmbMth->CurrentPosition())));
  if (!month) {
    Show(month.Why());
    return;
  }
  ThePeriodPane().Set(*month);
}

MaybeRefusal RptBrokerLedger::CheckSelection() {
  if (MaybeRefusal refusal = reporting::RefuseOutside(ThePeriod(), of_.year)) {
    return refusal;
  }
  return VSB->RefuseWithoutTick(tr("Enter Broker Name."), Field::kBrokers);
}

// The period stands in the report's name.
QStringList RptBrokerLedger::Choices() const {
  return VSB->TickedTexts();
}

std::optional<reporting::ReportDocument> RptBrokerLedger::BuildDocument(Progress& progress) {
  const LedgerQuery query{of_, ThePeriod(), VSB->Ticked<BrokerId>()};
  database::Connection& connection = *Session().connection;
  const BrokerLedger ledger = ReadBrokerLedger(connection, query, progress);
  reporting::ReportDocument document = MakeLedgerDocument(query, ClientName(), ledger.accounts);
  document.notes += records::FaultTexts(connection, ledger.faults);
  return document;
}

}  // namespace quorvane::broker_ledger
