#include "ui/main/WindowTable.h"

#include "admin/backup/window/frmBackUpRestore.h"
#include "admin/backup/window/frmrestoration.h"
#include "admin/calculator/window/frmcalc.h"
#include "admin/documents/window/frmdocuments.h"
#include "admin/repair/window/RepairTable.h"
#include "admin/settings/window/frmsettings.h"
#include "controls/ChildWindow.h"
#include "masters/brokers/window/FrmBroker.h"
#include "masters/client_list/window/FrmClientList.h"
#include "masters/clients/window/FrmClientMaster.h"
#include "masters/imports/window/ImpScrMaster.h"
#include "masters/imports/window/ImpScrRate.h"
#include "masters/lookup_masters/window/FrmLookup.h"
#include "masters/participants/window/FrmDepPart.h"
#include "masters/scrips/window/FrmScript.h"
#include "reports/demat/window/RptDMatStatement.h"
#include "reports/mis/window/RptVariousReport.h"
#include "reports/profit/window/RptProfitStatement.h"
#include "transactions/bills/window/FrmSalePurchase.h"
#include "reports/broker_ledger/window/RptBrokerLedger.h"
#include "transactions/broker_money/window/FrmBrOpBal.h"
#include "transactions/broker_money/window/FrmBrPayment.h"
#include "transactions/opening_stock/window/FrmStkOpBalance.h"
#include "transactions/transfers/window/FrmScriptTransfer.h"

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
