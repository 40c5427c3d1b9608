#include "ui/Features.h"

#include "admin/backup/window/frmBackUpRestore.h"
#include "admin/backup/window/frmrestoration.h"
#include "admin/calculator/window/frmcalc.h"
#include "admin/change_log/window/FrmChangeLog.h"
#include "admin/documents/window/frmdocuments.h"
#include "admin/repair/window/RepairTable.h"
#include "admin/settings/window/frmsettings.h"
#include "controls/ChildWindow.h"
#include "masters/brokers/window/FrmBroker.h"
#include "masters/client_list/window/FrmClientList.h"
#include "masters/clients/window/FrmClientMaster.h"
#include "masters/fair_values/window/FrmFairValue.h"
#include "masters/imports/window/ImpScrMaster.h"
#include "masters/imports/window/ImpScrRate.h"
#include "masters/lookup_masters/window/FrmLookup.h"
#include "masters/participants/window/FrmDepPart.h"
#include "masters/scrips/window/FrmScript.h"
#include "portfolio/notes/window/ImpNotes.h"
#include "portfolio/reconcile/window/FrmReconcile.h"
#include "portfolio/trades/window/ImpTrades.h"
#include "reports/Reports.h"
#include "reports/booklet/window/RptBooklet.h"
#include "reports/broker_account/window/RptBrokerAccount.h"
#include "reports/broker_ledger/window/RptBrokerLedger.h"
#include "reports/demat/window/RptDMatStatement.h"
#include "reports/dividends/window/RptDividends.h"
#include "reports/home/window/FrmFigures.h"
#include "reports/home/window/FrmStatements.h"
#include "reports/mis/window/RptVariousReport.h"
#include "reports/performance/window/RptReturns.h"
#include "reports/profit/window/RptProfitStatement.h"
#include "reports/scrip_page/window/RptScripPage.h"
#include "reports/search/window/FrmSearch.h"
#include "reports/tax/window/RptTaxYear.h"
#include "transactions/bills/window/FrmSalePurchase.h"
#include "transactions/broker_money/window/FrmBrOpBal.h"
#include "transactions/broker_money/window/FrmBrPayment.h"
#include "transactions/corporate_actions/window/FrmCorpAction.h"
#include "transactions/corporate_actions/window/ImpCorpAction.h"
#include "transactions/dividends/window/FrmDividend.h"
#include "transactions/opening_stock/window/FrmStkOpBalance.h"
#include "transactions/tax_losses/window/FrmTaxLoss.h"
#include "transactions/transfers/window/FrmScriptTransfer.h"

#include <algorithm>

namespace quorvane::ui {
namespace {

using broker_money::PaymentKind;
using controls::ChildWindow;
using home::FrmFigures;
using lookup_masters::LookupKind;
using reporting::ReportDesk;
using enum MenuAction;

template <class Window>
ChildWindow* Make(ReportDesk& desk) {
  return new Window(desk);
}

template <LookupKind kind>
ChildWindow* MakeLookup(ReportDesk& desk) {
  return new lookup_masters::FrmLookup(desk, kind);
}

template <PaymentKind kind>
ChildWindow* MakePayment(ReportDesk& desk) {
  return new broker_money::FrmBrPayment(desk, kind);
}

template <FrmFigures::What what>
ChildWindow* MakeFigures(ReportDesk& desk) {
  return new FrmFigures(desk, what);
}

constexpr Feature ReportOf(const reports::WindowEntry& report, ChildWindow* (*make)(ReportDesk&)) {
  return {report.item, report.caption, report.of_client ? kClientSelection : kOpenWindow,
          report.menu, report.name,    report.chapter,
          make};
}

constexpr Feature kFeatures[] = {
    {"mnuClientInfo", QT_TRANSLATE_NOOP("MainMenu", "&Client Info"), kOpenWindow, "",
     "FrmClientMaster", "masters.md", Make<clients::FrmClientMaster>},
    {"mnuMasterDetails", QT_TRANSLATE_NOOP("MainMenu", "&Master Details"), kHeading, ""},
    {"mnuDepPart", QT_TRANSLATE_NOOP("MainMenu", "&Depository Participant"), kOpenWindow,
     "mnuMasterDetails", "FrmDepPart", "masters.md", Make<participants::FrmDepPart>},
    {"mnuBrokerDetail", QT_TRANSLATE_NOOP("MainMenu", "&Broker Details"), kOpenModal,
     "mnuMasterDetails", "FrmBroker", "masters.md", Make<brokers::FrmBroker>},
    {"mnuExchange", QT_TRANSLATE_NOOP("MainMenu", "&Exchange"), kOpenWindow, "mnuMasterDetails",
     "FrmExchange", "masters.md", MakeLookup<LookupKind::kExchanges>},
    {"mnuScriptDetails", QT_TRANSLATE_NOOP("MainMenu", "&Script Details"), kOpenWindow,
     "mnuMasterDetails", "FrmScript", "masters.md", Make<scrips::FrmScript>},
    {"mnuSttDetail", QT_TRANSLATE_NOOP("MainMenu", "S&TT Percent Detail"), kOpenWindow,
     "mnuMasterDetails", "FrmSttPer", "masters.md", MakeLookup<LookupKind::kSttPercentages>},
    {"mnuTransaction", QT_TRANSLATE_NOOP("MainMenu", "&Transaction"), kHeading, ""},
    {"mnuBrokerOpBal", QT_TRANSLATE_NOOP("MainMenu", "&Broker Opening Balance"), kClientSelection,
     "mnuTransaction", "FrmBrOpBal", "broker-money.md", Make<broker_money::FrmBrOpBal>},
    {"mnuStkOpBal", QT_TRANSLATE_NOOP("MainMenu", "Stock &Opening Balance"), kClientSelection,
     "mnuTransaction", "FrmStkOpBalance", "opening-stock.md", Make<opening_stock::FrmStkOpBalance>},
    {"mnuSalePurchaseEntry", QT_TRANSLATE_NOOP("MainMenu", "&Sale/Purchase Entry"),
     kClientSelection, "mnuTransaction", "FrmSalePurchase", "bills.md",
     Make<bills::FrmSalePurchase>},
    {"mnuBrPayment", QT_TRANSLATE_NOOP("MainMenu", "&Payment to Broker"), kClientSelection,
     "mnuTransaction", "FrmBrPayment", "broker-money.md", MakePayment<PaymentKind::kPayment>},
    {"mnuBrReceipt", QT_TRANSLATE_NOOP("MainMenu", "&Receipt From Broker"), kClientSelection,
     "mnuTransaction", "FrmBrRec", "broker-money.md", MakePayment<PaymentKind::kReceipt>},
    {"mnuTransferScr", QT_TRANSLATE_NOOP("MainMenu", "&Transfer of Scripts"), kClientSelection,
     "mnuTransaction", "FrmScriptTransfer", "transfers.md", Make<transfers::FrmScriptTransfer>},
    {"mnuReport", QT_TRANSLATE_NOOP("MainMenu", "&Report"), kHeading, ""},
    ReportOf(reports::kTransactionWindow, Make<demat::RptDMatStatement>),
    ReportOf(reports::kMisWindow, Make<mis::RptVariousReport>),
    ReportOf(reports::kLedgerWindow, Make<broker_ledger::RptBrokerLedger>),
    ReportOf(reports::kDematWindow, Make<demat::RptDMatStatement>),
    ReportOf(reports::kProfitWindow, Make<profit::RptProfitStatement>),
    ReportOf(reports::kCapitalGainWindow, Make<profit::RptProfitStatement>),
    {"mnuUtility", QT_TRANSLATE_NOOP("MainMenu", "&Utility"), kHeading, ""},
    {"mnuImpScrMaster", QT_TRANSLATE_NOOP("MainMenu", "&Import Script Master"), kOpenWindow,
     "mnuUtility", "ImpScrMaster", "rates-and-imports.md", Make<imports::ImpScrMaster>},
    {"mnuImpScrRate", QT_TRANSLATE_NOOP("MainMenu", "Import Script Market Rate"), kOpenWindow,
     "mnuUtility", "ImpScrRate", "rates-and-imports.md", Make<imports::ImpScrRate>},
    {"mnuLineImpSC", "", kSeparator, "mnuUtility"},
    {"mnuRefreshData", QT_TRANSLATE_NOOP("MainMenu", "Re&fresh Data"), kOpenWindow, "mnuUtility",
     "RepairTable", "backup-and-repair.md", Make<repair::RepairTable>},
    {"mnuAutoUpdateStock", QT_TRANSLATE_NOOP("MainMenu", "&Auto Update Stock"), kClientSelection,
     "mnuUtility", "UpdateStock", "", nullptr},
    {"ln120", "", kSeparator, "mnuUtility"},
    {"mnuBackUp", QT_TRANSLATE_NOOP("MainMenu", "&BackUp"), kBackUp, "mnuUtility",
     "frmBackUpRestore", "backup-and-repair.md", Make<backup::frmBackUpRestore>},
    {"mnuRestore", QT_TRANSLATE_NOOP("MainMenu", "&Restore"), kOpenWindow, "mnuUtility",
     "frmrestoration", "backup-and-repair.md", Make<backup::frmrestoration>},
    {"mnuU1", "", kSeparator, "mnuUtility"},
    {"mnuPrintSet", QT_TRANSLATE_NOOP("MainMenu", "&Printer Setting"), kOpenWindow, "mnuUtility",
     "frmsettings", "users-and-settings.md", Make<settings::frmsettings>},
    {"mnuU2", "", kSeparator, "mnuUtility"},
    {"mnuCalculator", QT_TRANSLATE_NOOP("MainMenu", "&Calculator"), kOpenWindow, "mnuUtility",
     "frmcalc", "users-and-settings.md", Make<calculator::frmcalc>},
    {"mnuU3", "", kSeparator, "mnuUtility"},
    {"mnuMisc", QT_TRANSLATE_NOOP("MainMenu", "&Miscellaneous Information"), kMiscellaneous,
     "mnuUtility"},
    {"mnuU4", "", kSeparator, "mnuUtility"},
    {"mnuConverter", QT_TRANSLATE_NOOP("MainMenu", "Con&verter"), kConverter, "mnuUtility"},
    {"mnuPortfolio", QT_TRANSLATE_NOOP("MainMenu", "&Portfolio"), kHeading, ""},
    {"mnuImpFolder", QT_TRANSLATE_NOOP("MainMenu", "&Import Portfolio Folder"), kImportFolder,
     "mnuPortfolio"},
    {"mnuExpFolder", QT_TRANSLATE_NOOP("MainMenu", "&Export Portfolio Folder"), kExportFolder,
     "mnuPortfolio"},
    {"mnuImpSample", QT_TRANSLATE_NOOP("MainMenu", "Take In the &Sample Portfolio"), kImportSample,
     "mnuPortfolio"},
    {"mnuLinePapers", "", kSeparator, "mnuPortfolio"},
    {"mnuImpTrades", QT_TRANSLATE_NOOP("MainMenu", "Trade Boo&ks of Brokers"), kOpenWindow,
     "mnuPortfolio", "ImpTrades", "trade-books.md", Make<portfolio::ImpTrades>},
    {"mnuNotes", QT_TRANSLATE_NOOP("MainMenu", "Contract &Notes"), kOpenWindow, "mnuPortfolio",
     "ImpNotes", "contract-notes.md", Make<notes::ImpNotes>},
    {"mnuReconcile", QT_TRANSLATE_NOOP("MainMenu", "Co&mpare with Statement"), kOpenWindow,
     "mnuPortfolio", "FrmReconcile", "statements.md", Make<reconcile::FrmReconcile>},
    {"mnuLineActions", "", kSeparator, "mnuPortfolio"},
    {"mnuCorpAction", QT_TRANSLATE_NOOP("MainMenu", "&Corporate Actions"), kOpenWindow,
     "mnuPortfolio", "FrmCorpAction", "corporate-actions.md",
     Make<corporate_actions::FrmCorpAction>},
    {"mnuDividends", QT_TRANSLATE_NOOP("MainMenu", "&Dividends"), kClientSelection, "mnuPortfolio",
     "FrmDividend", "dividends.md", Make<dividends::FrmDividend>},
    ReportOf(reports::kDividendWindow, Make<dividends::RptDividends>),
    ReportOf(reports::kScripPageWindow, Make<scrip_page::RptScripPage>),
    {"mnuLineTax", "", kSeparator, "mnuPortfolio"},
    ReportOf(reports::kTaxYearWindow, Make<tax_year::RptTaxYear>),
    {"mnuFairValues", QT_TRANSLATE_NOOP("MainMenu", "&Fair Values of 31-Jan-2018"), kOpenWindow,
     "mnuPortfolio", "FrmFairValue", "fair-values.md", Make<fair_values::FrmFairValue>},
    {"mnuTaxLosses", QT_TRANSLATE_NOOP("MainMenu", "L&osses Brought Forward"), kClientSelection,
     "mnuPortfolio", "FrmTaxLoss", "tax-losses.md", Make<tax_losses::FrmTaxLoss>},
    {"mnuLineAccounts", "", kSeparator, "mnuPortfolio"},
    ReportOf(reports::kBrokerAccountWindow, Make<broker_account::RptBrokerAccount>),
    ReportOf(reports::kReturnsWindow, Make<performance::RptReturns>),
    ReportOf(reports::kBookletWindow, Make<booklet::RptBooklet>),
    {"mnuLineChanges", "", kSeparator, "mnuPortfolio"},
    {"mnuUndo", QT_TRANSLATE_NOOP("MainMenu", "Take &Back the Last Change"), kUndo, "mnuPortfolio"},
    {"mnuChangeLog", QT_TRANSLATE_NOOP("MainMenu", "&Log of Changes"), kOpenWindow, "mnuPortfolio",
     "FrmChangeLog", "log-of-changes.md", Make<change_log::FrmChangeLog>},
    {"mnuWindow", QT_TRANSLATE_NOOP("MainMenu", "&Window"), kHeading, ""},
    {"mnuSearch", QT_TRANSLATE_NOOP("MainMenu", "&Search"), kOpenModal, "mnuWindow", "FrmSearch",
     "search.md", Make<search::FrmSearch>, "Ctrl+F"},
    {"mnuClientBar", QT_TRANSLATE_NOOP("MainMenu", "&Client and Year"), kClientBar, "mnuWindow", "",
     "", nullptr, "Ctrl+L"},
    {"mnuLineWindow", "", kSeparator, "mnuWindow"},
    {"mnuTabs", QT_TRANSLATE_NOOP("MainMenu", "Windows as &Tabs"), kTabs, "mnuWindow"},
    {"mnuCloseAll", QT_TRANSLATE_NOOP("MainMenu", "Close &All Windows"), kCloseAll, "mnuWindow", "",
     "", nullptr, "Ctrl+Shift+W"},
    {"mnuLogOut", QT_TRANSLATE_NOOP("MainMenu", "&Log Out"), kLogOut, ""},
    {"mnuContact", QT_TRANSLATE_NOOP("MainMenu", "C&ontact Us"), kContact, ""},
    {"mnuQuit", QT_TRANSLATE_NOOP("MainMenu", "&Quit"), kQuit, ""},

    {"", "", kNoItem, "", "FrmClientList", "main-window.md", Make<client_list::FrmClientList>},
    {"", "", kNoItem, "", "frmdocuments", "users-and-settings.md", Make<documents::frmdocuments>},
    {"", "", kNoItem, "", "ImpCorpAction", "corporate-actions.md",
     Make<corporate_actions::ImpCorpAction>},
    {"", "", kNoItem, "", "FrmHoldings", "home.md", MakeFigures<FrmFigures::What::kHoldings>},
    {"", "", kNoItem, "", "FrmGains", "home.md", MakeFigures<FrmFigures::What::kGains>},
    {"", "", kNoItem, "", "FrmStatements", "home.md", Make<home::FrmStatements>},
    {"", "", kNoItem, "", "FrmScriptType", "masters.md", MakeLookup<LookupKind::kScripTypes>},
    {"", "", kNoItem, "", "FrmScriptCls", "masters.md", MakeLookup<LookupKind::kScripClasses>},
    {"", "", kNoItem, "", "FrmTransPer", "masters.md", MakeLookup<LookupKind::kTaxPercentages>},
    {"", "", kNoItem, "", "MDIForm1", "main-window.md"},
    {"", "", kNoItem, "", "MiscInfo", "main-window.md"},
    {"", "", kNoItem, "", "frmLogin", "users-and-settings.md"},
    {"", "", kNoItem, "", "frmLoginSetUp", "users-and-settings.md"},
    {"", "", kNoItem, "", "RepView", "reports.md"},
    {"", "", kNoItem, "", "PreviewWindow", "reports.md"},
};

}  // namespace

std::span<const Feature> Features() {
  return kFeatures;
}

const Feature* FindFeature(const QString& name) {
  const auto* found = std::ranges::find_if(kFeatures, [&](const Feature& feature) {
    return !name.isEmpty() && name.compare(QLatin1String(feature.name), Qt::CaseInsensitive) == 0;
  });
  return found == std::end(kFeatures) ? nullptr : found;
}

}  // namespace quorvane::ui
