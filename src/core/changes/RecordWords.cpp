#include "core/changes/RecordWords.h"

#include "core/text/Tr.h"

#include <algorithm>
#include <array>

namespace quorvane::changes {
namespace {

struct Word {
  std::string_view name;
  const char* text;
};

constexpr auto kRecordNames = std::to_array<Word>({
    {"LoginId", QT_TRANSLATE_NOOP("Changes", "User")},
    {"UserRight", QT_TRANSLATE_NOOP("Changes", "User's Rights")},
    {"ClientInfo", QT_TRANSLATE_NOOP("Changes", "Client")},
    {"ClientActDet", QT_TRANSLATE_NOOP("Changes", "Demat A/c")},
    {"RemovedAccount", QT_TRANSLATE_NOOP("Changes", "Removed Demat A/c")},
    {"DepPart", QT_TRANSLATE_NOOP("Changes", "Participant")},
    {"DpIDs", QT_TRANSLATE_NOOP("Changes", "DP Id")},
    {"Broker", QT_TRANSLATE_NOOP("Changes", "Broker")},
    {"Script", QT_TRANSLATE_NOOP("Changes", "Script")},
    {"ScripIsin", QT_TRANSLATE_NOOP("Changes", "ISIN")},
    {"ScriptType", QT_TRANSLATE_NOOP("Changes", "Script Type")},
    {"ScriptClass", QT_TRANSLATE_NOOP("Changes", "Script Class")},
    {"Exchange", QT_TRANSLATE_NOOP("Changes", "Exchange")},
    {"STTPer", QT_TRANSLATE_NOOP("Changes", "S.T.T. Percent")},
    {"TransTaxPer", QT_TRANSLATE_NOOP("Changes", "Percentage")},
    {"CorpAction", QT_TRANSLATE_NOOP("Changes", "Corporate Action")},
    {"CorpActionLot", QT_TRANSLATE_NOOP("Changes", "Shares of the Action")},
    {"SPMaster", QT_TRANSLATE_NOOP("Changes", "Bill")},
    {"SPTrans", QT_TRANSLATE_NOOP("Changes", "Bill Line")},
    {"StkOpBal", QT_TRANSLATE_NOOP("Changes", "Opening Stock")},
    {"OpeningMark", QT_TRANSLATE_NOOP("Changes", "Opening Stock")},
    {"ScrTransfer", QT_TRANSLATE_NOOP("Changes", "Transfer")},
    {"BrOpBal", QT_TRANSLATE_NOOP("Changes", "Broker's Opening Balance")},
    {"BrPayment", QT_TRANSLATE_NOOP("Changes", "Payment to Broker")},
    {"BrRec", QT_TRANSLATE_NOOP("Changes", "Receipt from Broker")},
    {"Dividend", QT_TRANSLATE_NOOP("Changes", "Dividend")},
    {"TradeKey", QT_TRANSLATE_NOOP("Changes", "Trade of a Broker's File")},
    {"FairValue", QT_TRANSLATE_NOOP("Changes", "Fair Value of 31-Jan-2018")},
    {"TaxLoss", QT_TRANSLATE_NOOP("Changes", "Loss Brought Forward")},
    {"StatementCheck", QT_TRANSLATE_NOOP("Changes", "Comparison with a Statement")},
    {"MarketRate", QT_TRANSLATE_NOOP("Changes", "Market Rate")},
    {"Stock", QT_TRANSLATE_NOOP("Changes", "Lot")},
});

constexpr auto kColumnNames = std::to_array<Word>({
    {"Code", QT_TRANSLATE_NOOP("Changes", "Code")},
    {"GCode", QT_TRANSLATE_NOOP("Changes", "Group Code")},
    {"NCode", QT_TRANSLATE_NOOP("Changes", "Second Code")},
    {"Name", QT_TRANSLATE_NOOP("Changes", "Name")},
    {"ExName", QT_TRANSLATE_NOOP("Changes", "Name")},
    {"STD", QT_TRANSLATE_NOOP("Changes", "STD Code")},
    {"DOB", QT_TRANSLATE_NOOP("Changes", "Date of Birth")},
    {"MStatus", QT_TRANSLATE_NOOP("Changes", "Marital Status")},
    {"SignDoc", QT_TRANSLATE_NOOP("Changes", "Document")},
    {"DMATAC", QT_TRANSLATE_NOOP("Changes", "Participant")},
    {"ACNo", QT_TRANSLATE_NOOP("Changes", "A/c No.")},
    {"ScrCls", QT_TRANSLATE_NOOP("Changes", "Class")},
    {"Ason", QT_TRANSLATE_NOOP("Changes", "As On")},
    {"ScrId", QT_TRANSLATE_NOOP("Changes", "Script")},
    {"ScriptId", QT_TRANSLATE_NOOP("Changes", "Script")},
    {"OtherScrId", QT_TRANSLATE_NOOP("Changes", "Other Script")},
    {"ToScrId", QT_TRANSLATE_NOOP("Changes", "Other Script")},
    {"AcId", QT_TRANSLATE_NOOP("Changes", "Demat A/c")},
    {"FrmAcId", QT_TRANSLATE_NOOP("Changes", "From Demat A/c")},
    {"ToAcId", QT_TRANSLATE_NOOP("Changes", "To Demat A/c")},
    {"ToClientID", QT_TRANSLATE_NOOP("Changes", "To Client")},
    {"BrId", QT_TRANSLATE_NOOP("Changes", "Broker")},
    {"BrokId", QT_TRANSLATE_NOOP("Changes", "Broker")},
    {"ExId", QT_TRANSLATE_NOOP("Changes", "Exchange")},
    {"StkId", QT_TRANSLATE_NOOP("Changes", "Lot")},
    {"Qty", QT_TRANSLATE_NOOP("Changes", "Quantity")},
    {"InQty", QT_TRANSLATE_NOOP("Changes", "Shares In")},
    {"OutQty", QT_TRANSLATE_NOOP("Changes", "Shares Out")},
    {"ToRate", QT_TRANSLATE_NOOP("Changes", "New Rate")},
    {"FO", QT_TRANSLATE_NOOP("Changes", "F & O")},
    {"PRate", QT_TRANSLATE_NOOP("Changes", "Purchase Rate")},
    {"Brk", QT_TRANSLATE_NOOP("Changes", "Brokerage")},
    {"Net", QT_TRANSLATE_NOOP("Changes", "Net Rate")},
    {"Amt", QT_TRANSLATE_NOOP("Changes", "Amount")},
    {"OpBal", QT_TRANSLATE_NOOP("Changes", "Amount")},
    {"Dr", QT_TRANSLATE_NOOP("Changes", "Dr/Cr")},
    {"STax", QT_TRANSLATE_NOOP("Changes", "S. Tax")},
    {"STTPer", QT_TRANSLATE_NOOP("Changes", "S.T.T. Percent")},
    {"DelvType", QT_TRANSLATE_NOOP("Changes", "Delivery Type")},
    {"BillNo", QT_TRANSLATE_NOOP("Changes", "Bill No.")},
    {"SettlNo", QT_TRANSLATE_NOOP("Changes", "Settlement No.")},
    {"BDate", QT_TRANSLATE_NOOP("Changes", "Date")},
    {"TDate", QT_TRANSLATE_NOOP("Changes", "Date")},
    {"PDate", QT_TRANSLATE_NOOP("Changes", "Date")},
    {"DDate", QT_TRANSLATE_NOOP("Changes", "Date")},
    {"Tot", QT_TRANSLATE_NOOP("Changes", "Total of the Lines")},
    {"OthCharge", QT_TRANSLATE_NOOP("Changes", "Other Charges")},
    {"TranChg", QT_TRANSLATE_NOOP("Changes", "Transaction Charges")},
    {"TMode", QT_TRANSLATE_NOOP("Changes", "Transaction Mode")},
    {"PMode", QT_TRANSLATE_NOOP("Changes", "Payment Mode")},
    {"ChqNo", QT_TRANSLATE_NOOP("Changes", "Cheque No.")},
    {"ChqDate", QT_TRANSLATE_NOOP("Changes", "Cheque Date")},
    {"DrawOn", QT_TRANSLATE_NOOP("Changes", "Drawn On")},
    {"ExDay", QT_TRANSLATE_NOOP("Changes", "Ex-Date")},
    {"RecordDay", QT_TRANSLATE_NOOP("Changes", "Record Date")},
    {"AllotDay", QT_TRANSLATE_NOOP("Changes", "Allotment Date")},
    {"NewShares", QT_TRANSLATE_NOOP("Changes", "New Shares")},
    {"OldShares", QT_TRANSLATE_NOOP("Changes", "Old Shares")},
    {"CostPercent", QT_TRANSLATE_NOOP("Changes", "Part of the Cost")},
    {"PerShare", QT_TRANSLATE_NOOP("Changes", "Dividend per Share")},
    {"FromDay", QT_TRANSLATE_NOOP("Changes", "From")},
    {"LossYear", QT_TRANSLATE_NOOP("Changes", "Year of the Loss")},
    {"StatementDay", QT_TRANSLATE_NOOP("Changes", "Statement of")},
    {"Compared", QT_TRANSLATE_NOOP("Changes", "Holdings Compared")},
    {"Differing", QT_TRANSLATE_NOOP("Changes", "Holdings that Differ")},
    {"CheckedOn", QT_TRANSLATE_NOOP("Changes", "Compared On")},
    {"Address", QT_TRANSLATE_NOOP("Changes", "Address")},
    {"City", QT_TRANSLATE_NOOP("Changes", "City")},
    {"State", QT_TRANSLATE_NOOP("Changes", "State")},
    {"PIN", QT_TRANSLATE_NOOP("Changes", "PIN")},
    {"Phone", QT_TRANSLATE_NOOP("Changes", "Phone")},
    {"Mobile", QT_TRANSLATE_NOOP("Changes", "Mobile")},
    {"Fax", QT_TRANSLATE_NOOP("Changes", "Fax")},
    {"Email", QT_TRANSLATE_NOOP("Changes", "E-Mail")},
    {"EMail", QT_TRANSLATE_NOOP("Changes", "E-Mail")},
    {"PAN", QT_TRANSLATE_NOOP("Changes", "PAN")},
    {"Sex", QT_TRANSLATE_NOOP("Changes", "Sex")},
    {"Person", QT_TRANSLATE_NOOP("Changes", "Contact Person")},
    {"Designation", QT_TRANSLATE_NOOP("Changes", "Designation")},
    {"Depository", QT_TRANSLATE_NOOP("Changes", "Depository")},
    {"DPID", QT_TRANSLATE_NOOP("Changes", "DP Id")},
    {"Type", QT_TRANSLATE_NOOP("Changes", "Type")},
    {"Kind", QT_TRANSLATE_NOOP("Changes", "Kind")},
    {"Isin", QT_TRANSLATE_NOOP("Changes", "ISIN")},
    {"Rights", QT_TRANSLATE_NOOP("Changes", "Rights")},
    {"Percent", QT_TRANSLATE_NOOP("Changes", "Percent")},
    {"Rate", QT_TRANSLATE_NOOP("Changes", "Rate")},
    {"Price", QT_TRANSLATE_NOOP("Changes", "Price")},
    {"Amount", QT_TRANSLATE_NOOP("Changes", "Amount")},
    {"Total", QT_TRANSLATE_NOOP("Changes", "Total")},
    {"STT", QT_TRANSLATE_NOOP("Changes", "S.T.T.")},
    {"Tax", QT_TRANSLATE_NOOP("Changes", "Tax Deducted")},
    {"SP", QT_TRANSLATE_NOOP("Changes", "Sale/Purchase")},
    {"TransTo", QT_TRANSLATE_NOOP("Changes", "To")},
    {"MDate", QT_TRANSLATE_NOOP("Changes", "Date")},
    {"Acquired", QT_TRANSLATE_NOOP("Changes", "Acquired")},
    {"Applied", QT_TRANSLATE_NOOP("Changes", "Applied")},
    {"Note", QT_TRANSLATE_NOOP("Changes", "Note")},
    {"Remark", QT_TRANSLATE_NOOP("Changes", "Remark")},
});

template <std::size_t Count>
QString TextOf(const std::array<Word, Count>& words, std::string_view name) {
  const auto found = std::ranges::find(words, name, &Word::name);
  return found == words.end() ? QString::fromUtf8(name.data(), std::ssize(name))
                              : Tr("Changes", found->text);
}

}  // namespace

QString RecordName(std::string_view table) {
  return TextOf(kRecordNames, table);
}

QString ColumnText(std::string_view column) {
  return TextOf(kColumnNames, column);
}

}  // namespace quorvane::changes
