#include "ui/main/MenuTable.h"

#include <QtGlobal>

namespace quorvane::ui {
namespace {

using enum MenuAction;

#define CAPTION(text) QT_TRANSLATE_NOOP("MainMenu", text)

constexpr MenuItem kItems[] = {
    {"mnuClientInfo", CAPTION("&Client Info"), kOpenWindow, "FrmClientMaster", ""},
    {"mnuMasterDetails", CAPTION("&Master Details"), kHeading, "", ""},
    {"mnuDepPart", CAPTION("&Depository Participant"), kOpenWindow, "FrmDepPart",
     "mnuMasterDetails"},
    {"mnuBrokerDetail", CAPTION("&Broker Details"), kOpenModal, "FrmBroker", "mnuMasterDetails"},
    {"mnuExchange", CAPTION("&Exchange"), kOpenWindow, "FrmExchange", "mnuMasterDetails"},
    {"mnuScriptDetails", CAPTION("&Script Details"), kOpenWindow, "FrmScript", "mnuMasterDetails"},
    {"mnuSttDetail", CAPTION("S&TT Percent Detail"), kOpenWindow, "FrmSttPer", "mnuMasterDetails"},
    {"mnuTransaction", CAPTION("&Transaction"), kHeading, "", ""},
    {"mnuBrokerOpBal", CAPTION("&Broker Opening Balance"), kClientSelection, "FrmBrOpBal",
     "mnuTransaction"},
    {"mnuStkOpBal", CAPTION("Stock &Opening Balance"), kClientSelection, "FrmStkOpBalance",
     "mnuTransaction"},
    {"mnuSalePurchaseEntry", CAPTION("&Sale/Purchase Entry"), kClientSelection, "FrmSalePurchase",
     "mnuTransaction"},
    {"mnuBrPayment", CAPTION("&Payment to Broker"), kClientSelection, "FrmBrPayment",
     "mnuTransaction"},
    {"mnuBrReceipt", CAPTION("&Receipt From Broker"), kClientSelection, "FrmBrRec",
     "mnuTransaction"},
    {"mnuTransferScr", CAPTION("&Transfer of Scripts"), kClientSelection, "FrmScriptTransfer",
     "mnuTransaction"},
    {"mnuReport", CAPTION("&Report"), kHeading, "", ""},
    {"mnuTransRpt", CAPTION("&Transaction Report"), kClientSelection, "RptTransaction",
     "mnuReport"},
    {"mnuVarReports", CAPTION("&Various MIS Reports"), kOpenWindow, "RptVariousReport",
     "mnuReport"},
    {"mnuBrokerLedger", CAPTION("&Broker Ledger"), kClientSelection, "RptBrokerLedger",
     "mnuReport"},
    {"mnuDmatStatement", CAPTION("&Demat A/c Statement"), kClientSelection, "RptDMatStatement",
     "mnuReport"},
    {"mnuProfitStatement", CAPTION("&Profit Statement"), kClientSelection, "RptProfitStatement",
     "mnuReport"},
    {"mnuCapitalGain", CAPTION("&Capital Gain Statement"), kClientSelection, "RptCapitalGain",
     "mnuReport"},
    {"mnuUtility", CAPTION("&Utility"), kHeading, "", ""},
    {"mnuImpScrMaster", CAPTION("&Import Script Master"), kOpenWindow, "ImpScrMaster",
     "mnuUtility"},
    {"mnuImpScrRate", CAPTION("Import Script Market Rate"), kOpenWindow, "ImpScrRate",
     "mnuUtility"},
    {"mnuLineImpSC", "", kSeparator, "", "mnuUtility"},
    {"mnuRefreshData", CAPTION("Re&fresh Data"), kOpenWindow, "RepairTable", "mnuUtility"},
    {"mnuAutoUpdateStock", CAPTION("&Auto Update Stock"), kClientSelection, "UpdateStock",
     "mnuUtility"},
    {"ln120", "", kSeparator, "", "mnuUtility"},
    {"mnuBackUp", CAPTION("&BackUp"), kBackUp, "frmBackUpRestore", "mnuUtility"},
    {"mnuRestore", CAPTION("&Restore"), kOpenWindow, "frmrestoration", "mnuUtility"},
    {"mnuU1", "", kSeparator, "", "mnuUtility"},
    {"mnuPrintSet", CAPTION("&Printer Setting"), kOpenWindow, "frmsettings", "mnuUtility"},
    {"mnuU2", "", kSeparator, "", "mnuUtility"},
    {"mnuCalculator", CAPTION("&Calculator"), kOpenWindow, "frmcalc", "mnuUtility"},
    {"mnuU3", "", kSeparator, "", "mnuUtility"},
    {"mnuMisc", CAPTION("&Miscellaneous Information"), kMiscellaneous, "", "mnuUtility"},
    {"mnuU4", "", kSeparator, "", "mnuUtility"},
    {"mnuConverter", CAPTION("Con&verter"), kConverter, "", "mnuUtility"},
    {"mnuLogOut", CAPTION("&Log Out"), kLogOut, "", ""},
    {"mnuContact", CAPTION("C&ontact Us"), kContact, "", ""},
    {"mnuQuit", CAPTION("&Quit"), kQuit, "", ""},
};

#undef CAPTION

}  // namespace

std::span<const MenuItem> MenuItems() {
  return kItems;
}

}  // namespace quorvane::ui
