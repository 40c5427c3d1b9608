#include "ui/main/MenuTable.h"

#include <QtGlobal>

namespace quorvane::ui {
namespace {

using enum MenuAction;

constexpr MenuItem kItems[] = {
    {"mnuClientInfo", QT_TRANSLATE_NOOP("MainMenu", "&Client Info"), kOpenWindow, "FrmClientMaster",
     ""},
    {"mnuMasterDetails", QT_TRANSLATE_NOOP("MainMenu", "&Master Details"), kHeading, "", ""},
    {"mnuDepPart", QT_TRANSLATE_NOOP("MainMenu", "&Depository Participant"), kOpenWindow,
     "FrmDepPart", "mnuMasterDetails"},
    {"mnuBrokerDetail", QT_TRANSLATE_NOOP("MainMenu", "&Broker Details"), kOpenModal, "FrmBroker",
     "mnuMasterDetails"},
    {"mnuExchange", QT_TRANSLATE_NOOP("MainMenu", "&Exchange"), kOpenWindow, "FrmExchange",
     "mnuMasterDetails"},
    {"mnuScriptDetails", QT_TRANSLATE_NOOP("MainMenu", "&Script Details"), kOpenWindow, "FrmScript",
     "mnuMasterDetails"},
    {"mnuSttDetail", QT_TRANSLATE_NOOP("MainMenu", "S&TT Percent Detail"), kOpenWindow, "FrmSttPer",
     "mnuMasterDetails"},
    {"mnuTransaction", QT_TRANSLATE_NOOP("MainMenu", "&Transaction"), kHeading, "", ""},
    {"mnuBrokerOpBal", QT_TRANSLATE_NOOP("MainMenu", "&Broker Opening Balance"), kClientSelection,
     "FrmBrOpBal", "mnuTransaction"},
    {"mnuStkOpBal", QT_TRANSLATE_NOOP("MainMenu", "Stock &Opening Balance"), kClientSelection,
     "FrmStkOpBalance", "mnuTransaction"},
    {"mnuSalePurchaseEntry", QT_TRANSLATE_NOOP("MainMenu", "&Sale/Purchase Entry"),
     kClientSelection, "FrmSalePurchase", "mnuTransaction"},
    {"mnuBrPayment", QT_TRANSLATE_NOOP("MainMenu", "&Payment to Broker"), kClientSelection,
     "FrmBrPayment", "mnuTransaction"},
    {"mnuBrReceipt", QT_TRANSLATE_NOOP("MainMenu", "&Receipt From Broker"), kClientSelection,
     "FrmBrRec", "mnuTransaction"},
    {"mnuTransferScr", QT_TRANSLATE_NOOP("MainMenu", "&Transfer of Scripts"), kClientSelection,
     "FrmScriptTransfer", "mnuTransaction"},
    {"mnuReport", QT_TRANSLATE_NOOP("MainMenu", "&Report"), kHeading, "", ""},
    {"mnuTransRpt", QT_TRANSLATE_NOOP("MainMenu", "&Transaction Report"), kClientSelection,
     "RptTransaction", "mnuReport"},
    {"mnuVarReports", QT_TRANSLATE_NOOP("MainMenu", "&Various MIS Reports"), kOpenWindow,
     "RptVariousReport", "mnuReport"},
    {"mnuBrokerLedger", QT_TRANSLATE_NOOP("MainMenu", "&Broker Ledger"), kClientSelection,
     "RptBrokerLedger", "mnuReport"},
    {"mnuDmatStatement", QT_TRANSLATE_NOOP("MainMenu", "&Demat A/c Statement"), kClientSelection,
     "RptDMatStatement", "mnuReport"},
    {"mnuProfitStatement", QT_TRANSLATE_NOOP("MainMenu", "&Profit Statement"), kClientSelection,
     "RptProfitStatement", "mnuReport"},
    {"mnuCapitalGain", QT_TRANSLATE_NOOP("MainMenu", "&Capital Gain Statement"), kClientSelection,
     "RptCapitalGain", "mnuReport"},
    {"mnuUtility", QT_TRANSLATE_NOOP("MainMenu", "&Utility"), kHeading, "", ""},
    {"mnuImpScrMaster", QT_TRANSLATE_NOOP("MainMenu", "&Import Script Master"), kOpenWindow,
     "ImpScrMaster", "mnuUtility"},
    {"mnuImpScrRate", QT_TRANSLATE_NOOP("MainMenu", "Import Script Market Rate"), kOpenWindow,
     "ImpScrRate", "mnuUtility"},
    {"mnuLineImpSC", "", kSeparator, "", "mnuUtility"},
    {"mnuRefreshData", QT_TRANSLATE_NOOP("MainMenu", "Re&fresh Data"), kOpenWindow, "RepairTable",
     "mnuUtility"},
    {"mnuAutoUpdateStock", QT_TRANSLATE_NOOP("MainMenu", "&Auto Update Stock"), kClientSelection,
     "UpdateStock", "mnuUtility"},
    {"ln120", "", kSeparator, "", "mnuUtility"},
    {"mnuBackUp", QT_TRANSLATE_NOOP("MainMenu", "&BackUp"), kBackUp, "frmBackUpRestore",
     "mnuUtility"},
    {"mnuRestore", QT_TRANSLATE_NOOP("MainMenu", "&Restore"), kOpenWindow, "frmrestoration",
     "mnuUtility"},
    {"mnuU1", "", kSeparator, "", "mnuUtility"},
    {"mnuPrintSet", QT_TRANSLATE_NOOP("MainMenu", "&Printer Setting"), kOpenWindow, "frmsettings",
     "mnuUtility"},
    {"mnuU2", "", kSeparator, "", "mnuUtility"},
    {"mnuCalculator", QT_TRANSLATE_NOOP("MainMenu", "&Calculator"), kOpenWindow, "frmcalc",
     "mnuUtility"},
    {"mnuU3", "", kSeparator, "", "mnuUtility"},
    {"mnuMisc", QT_TRANSLATE_NOOP("MainMenu", "&Miscellaneous Information"), kMiscellaneous, "",
     "mnuUtility"},
    {"mnuU4", "", kSeparator, "", "mnuUtility"},
    {"mnuConverter", QT_TRANSLATE_NOOP("MainMenu", "Con&verter"), kConverter, "", "mnuUtility"},
    {"mnuPortfolio", QT_TRANSLATE_NOOP("MainMenu", "&Portfolio"), kHeading, "", ""},
    {"mnuImpFolder", QT_TRANSLATE_NOOP("MainMenu", "&Import Portfolio Folder"), kImportFolder, "",
     "mnuPortfolio"},
    {"mnuExpFolder", QT_TRANSLATE_NOOP("MainMenu", "&Export Portfolio Folder"), kExportFolder, "",
     "mnuPortfolio"},
    {"mnuImpSample", QT_TRANSLATE_NOOP("MainMenu", "Take In the &Sample Portfolio"), kImportSample,
     "", "mnuPortfolio"},
    {"mnuLogOut", QT_TRANSLATE_NOOP("MainMenu", "&Log Out"), kLogOut, "", ""},
    {"mnuContact", QT_TRANSLATE_NOOP("MainMenu", "C&ontact Us"), kContact, "", ""},
    {"mnuQuit", QT_TRANSLATE_NOOP("MainMenu", "&Quit"), kQuit, "", ""},
};

}  // namespace

std::span<const MenuItem> MenuItems() {
  return kItems;
}

}  // namespace quorvane::ui
