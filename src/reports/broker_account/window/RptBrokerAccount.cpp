#include "reports/broker_account/window/RptBrokerAccount.h"

#include "core/app/Session.h"
#include "reports/broker_account/BrokerAccount.h"

namespace quorvane::broker_account {
namespace {

constexpr float kBrokerWidth = 190;  // on a screen of 800 by 600

}  // namespace

RptBrokerAccount::RptBrokerAccount(reporting::ReportDesk& desk)
    : ReportWindow(desk, QStringLiteral("RptBrokerAccount"),
                   app::ClientTitle(tr("Broker Account"), desk.session), {790, 520}),
      of_(app::CurrentOf(desk.session)) {
  AddPeriod(Months::kYes);
  VSB = AddTickGrid(QStringLiteral("VSB"), tr("BROKER NAME"), tr("Brokers"));
  Hold({{Field::kBrokers, "VSB"}});
  VSB->parentWidget()->setMinimumWidth(
      static_cast<int>(kBrokerWidth * desk.session.screen_factors.horizontal));
  VSB->Fill(lookups::DropDownItems(*Session().connection, lookups::DropDown::kBrokers));
  Start();
}

MaybeRefusal RptBrokerAccount::CheckSelection() {
  if (MaybeRefusal refusal = reporting::RefuseOutside(ThePeriod(), of_.year)) {
    return refusal;
  }
  return VSB->RefuseWithoutTick(tr("Enter Broker Name."), Field::kBrokers);
}

// The period stands in the report's name.
QStringList RptBrokerAccount::Choices() const {
  return VSB->TickedTexts();
}

std::optional<reporting::ReportDocument> RptBrokerAccount::BuildDocument(Progress& progress) {
  AccountQuery query{of_, ThePeriod(), {}};
  if (!VSB->Model().AllTicked()) {
    query.brokers = VSB->Ticked<BrokerId>();
  }
  database::Connection& connection = *Session().connection;
  const BrokerAccounts accounts = ReadBrokerAccounts(connection, query, progress);
  reporting::ReportDocument document = MakeAccountDocument(query, ClientName(), accounts);
  document.notes += records::FaultTexts(connection, accounts.faults);
  return document;
}

}  // namespace quorvane::broker_account
