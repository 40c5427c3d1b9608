#include "ui/main/WindowTable.h"

#include "admin/backup/frmBackUpRestore.h"
#include "admin/backup/frmrestoration.h"
#include "admin/calculator/frmcalc.h"
#include "admin/documents/frmdocuments.h"
#include "admin/repair/RepairTable.h"
#include "admin/settings/frmsettings.h"
#include "controls/ChildWindow.h"
#include "masters/brokers/FrmBroker.h"
#include "masters/client_list/FrmClientList.h"
#include "masters/clients/FrmClientMaster.h"
#include "masters/imports/ImpScrMaster.h"
#include "masters/imports/ImpScrRate.h"
#include "masters/lookup_masters/FrmLookup.h"
#include "masters/participants/FrmDepPart.h"
#include "masters/scrips/FrmScript.h"
#include "reports/demat/RptDMatStatement.h"
#include "reports/mis/RptVariousReport.h"
#include "reports/profit/RptProfitStatement.h"
#include "transactions/bills/FrmSalePurchase.h"
#include "transactions/broker_ledger/RptBrokerLedger.h"
#include "transactions/broker_money/FrmBrOpBal.h"
#include "transactions/broker_money/FrmBrPayment.h"
#include "transactions/opening_stock/FrmStkOpBalance.h"
#include "transactions/transfers/FrmScriptTransfer.h"

#include <functional>
#include <map>

namespace quorvane::ui {
namespace {

using controls::ChildWindow;
using controls::Desk;
using Maker = std::function<ChildWindow*(Desk&)>;

template <class Window>
ChildWindow* Make(Desk& desk) {
  return new Window(desk);
}

template <lookup_masters::LookupKind kind>
ChildWindow* MakeLookup(Desk& desk) {
  return new lookup_masters::FrmLookup(desk, kind);
}

template <broker_money::PaymentKind kind>
ChildWindow* MakePayment(Desk& desk) {
  return new broker_money::FrmBrPayment(desk, kind);
}

struct WithoutCase {
  bool operator()(const QString& one, const QString& other) const {
    return one.compare(other, Qt::CaseInsensitive) < 0;
  }
};

/// Windows by their names, and the targets of the menu that need no window of
/// their own.
const std::map<QString, Maker, WithoutCase>& Makers() {
  using broker_money::PaymentKind;
  using lookup_masters::LookupKind;
  static const std::map<QString, Maker, WithoutCase> kMakers{
      {QStringLiteral("FrmClientList"), Make<client_list::FrmClientList>},
      {QStringLiteral("UpdateStock"), Make<client_list::FrmClientList>},
      {QStringLiteral("FrmSalePurchase"), Make<bills::FrmSalePurchase>},
      {QStringLiteral("FrmStkOpBalance"), Make<opening_stock::FrmStkOpBalance>},
      {QStringLiteral("FrmScriptTransfer"), Make<transfers::FrmScriptTransfer>},
      {QStringLiteral("FrmClientMaster"), Make<clients::FrmClientMaster>},
      {QStringLiteral("frmcalc"), Make<calculator::frmcalc>},
      {QStringLiteral("frmdocuments"), Make<documents::frmdocuments>},
      {QStringLiteral("frmsettings"), Make<settings::frmsettings>},
      {QStringLiteral("FrmDepPart"), Make<participants::FrmDepPart>},
      {QStringLiteral("FrmBroker"), Make<brokers::FrmBroker>},
      {QStringLiteral("FrmScript"), Make<scrips::FrmScript>},
      {QStringLiteral("RptDMatStatement"), Make<demat::RptDMatStatement>},
      {QStringLiteral("RptTransaction"), Make<demat::RptDMatStatement>},
      {QStringLiteral("RptVariousReport"), Make<mis::RptVariousReport>},
      {QStringLiteral("ImpScrMaster"), Make<imports::ImpScrMaster>},
      {QStringLiteral("ImpScrRate"), Make<imports::ImpScrRate>},
      {QStringLiteral("RptProfitStatement"), Make<profit::RptProfitStatement>},
      {QStringLiteral("RptCapitalGain"), Make<profit::RptProfitStatement>},
      {QStringLiteral("FrmScriptType"), MakeLookup<LookupKind::kScripTypes>},
      {QStringLiteral("FrmScriptCls"), MakeLookup<LookupKind::kScripClasses>},
      {QStringLiteral("FrmExchange"), MakeLookup<LookupKind::kExchanges>},
      {QStringLiteral("FrmSttPer"), MakeLookup<LookupKind::kSttPercentages>},
      {QStringLiteral("FrmTransPer"), MakeLookup<LookupKind::kTaxPercentages>},
      {QStringLiteral("FrmBrOpBal"), Make<broker_money::FrmBrOpBal>},
      {QStringLiteral("FrmBrPayment"), MakePayment<PaymentKind::kPayment>},
      {QStringLiteral("RptBrokerLedger"), Make<broker_ledger::RptBrokerLedger>},
      {QStringLiteral("FrmBrRec"), MakePayment<PaymentKind::kReceipt>},
      {QStringLiteral("frmBackUpRestore"), Make<backup::frmBackUpRestore>},
      {QStringLiteral("frmrestoration"), Make<backup::frmrestoration>},
      {QStringLiteral("RepairTable"), Make<repair::RepairTable>},
  };
  return kMakers;
}

}  // namespace

QStringList WindowNames() {
  QStringList names;
  for (const auto& [name, maker] : Makers()) {
    names << name;
  }
  return names;
}

ChildWindow* MakeWindow(const QString& name, Desk& desk) {
  const auto found = Makers().find(name);
  return found == Makers().end() ? nullptr : found->second(desk);
}

}  // namespace quorvane::ui
