#include "masters/lookup_masters/LookupMaster.h"

#include "core/database/TextWidths.h"
#include "core/text/Amounts.h"
#include "core/text/FinancialYear.h"
#include "core/text/Tr.h"

#include <algorithm>
#include <array>

namespace quorvane::lookup_masters {
namespace {

using Kind = LookupColumn::Kind;

constexpr std::array kTypeColumns{
    LookupColumn{"Type", Kind::kText, QT_TRANSLATE_NOOP("LookupMasters", "Script Type"),
                 Field::kName, QT_TRANSLATE_NOOP("LookupMasters", "Enter Script Type.")}};
constexpr std::array kClassColumns{
    LookupColumn{"Name", Kind::kText, QT_TRANSLATE_NOOP("LookupMasters", "Script Class Name"),
                 Field::kName, QT_TRANSLATE_NOOP("LookupMasters", "Enter Script Class Name.")}};
constexpr std::array kExchangeColumns{
    LookupColumn{"ExName", Kind::kText, QT_TRANSLATE_NOOP("LookupMasters", "Exchange Name"),
                 Field::kName, QT_TRANSLATE_NOOP("LookupMasters", "Enter Exchange Name.")}};
constexpr std::array kSttColumns{
    LookupColumn{"STTPer", Kind::kNumber, QT_TRANSLATE_NOOP("LookupMasters", "S.T.T. Percent"),
                 Field::kPercent, QT_TRANSLATE_NOOP("LookupMasters", "Enter S.T.T. Percent.")}};
constexpr std::array kTaxColumns{
    LookupColumn{"FYear", Kind::kText, QT_TRANSLATE_NOOP("LookupMasters", "Financial Year"),
                 Field::kYear, QT_TRANSLATE_NOOP("LookupMasters", "Enter Financial Year.")},
    LookupColumn{"Name", Kind::kText, QT_TRANSLATE_NOOP("LookupMasters", "Delivery Type"),
                 Field::kDeliveryType,
                 QT_TRANSLATE_NOOP("LookupMasters", "Select Delivery Type .")},
    LookupColumn{"Percent", Kind::kNumber, QT_TRANSLATE_NOOP("LookupMasters", "Percentage"),
                 Field::kPercent, QT_TRANSLATE_NOOP("LookupMasters", "Enter Percentage.")},
    LookupColumn{"Ason", Kind::kText, QT_TRANSLATE_NOOP("LookupMasters", "As On"), Field::kAsOn,
                 ""}};

constexpr std::array<LookupMaster, 5> kMasters{{
    {LookupKind::kScripTypes, "FrmScriptType", "ScriptType", kTypeColumns, 1,
     QT_TRANSLATE_NOOP("LookupMasters", "Script Type Already Exists."), ""},
    {LookupKind::kScripClasses, "FrmScriptCls", "ScriptClass", kClassColumns, 1,
     QT_TRANSLATE_NOOP("LookupMasters", "Script Class Already Exists!"), "Name,Id"},
    {LookupKind::kExchanges, "FrmExchange", "Exchange", kExchangeColumns, 1,
     QT_TRANSLATE_NOOP("LookupMasters", "Exchange Name Already Exists."), ""},
    {LookupKind::kSttPercentages, "FrmSttPer", "STTPer", kSttColumns, 1,
     QT_TRANSLATE_NOOP("LookupMasters", "S.T.T. Percent Already Exists."), ""},
    {LookupKind::kTaxPercentages, "FrmTransPer", "TransTaxPer", kTaxColumns, 2,
     QT_TRANSLATE_NOOP("LookupMasters", "Percent Detail Already Exists."), ""},
}};

bool IsMissing(const LookupColumn& column, const QString& value) {
  const QString text = value.trimmed();
  if (column.kind == Kind::kText) {
    return text.isEmpty();
  }
  return text::ParseNumber(text.toStdString()).value_or(-1) < 0;
}

MaybeRefusal CheckMissing(const LookupMaster& master, const LookupRow& row) {
  for (std::size_t i = 0; i < master.columns.size(); ++i) {
    const LookupColumn& column = master.columns[i];
    const bool required = *column.if_empty != '\0';
    if (required && IsMissing(column, row.values.at(i))) {
      return Refusal{Tr("LookupMasters", column.if_empty), column.field};
    }
  }
  return std::nullopt;
}

MaybeRefusal CheckWidths(const LookupMaster& master, const LookupRow& row) {
  std::vector<database::TextCell> cells;
  for (std::size_t i = 0; i < master.columns.size(); ++i) {
    const LookupColumn& column = master.columns[i];
    if (column.kind == Kind::kText) {
      cells.push_back({column.name, column.label, row.values.at(i), column.field});
    }
  }
  return database::CheckTextWidths(master.table, cells);
}

}  // namespace

const LookupMaster& MasterOf(LookupKind kind) {
  return *std::ranges::find(kMasters, kind, &LookupMaster::kind);
}

MaybeRefusal CheckRow(const LookupMaster& master, const LookupRow& row) {
  if (MaybeRefusal refusal = CheckMissing(master, row)) {
    return refusal;
  }
  if (master.kind == LookupKind::kTaxPercentages) {
    if (MaybeRefusal refusal = CheckFinancialYear(row.values.front())) {
      return refusal;
    }
  }
  return CheckWidths(master, row);
}

MaybeRefusal CheckFinancialYear(const QString& typed) {
  if (text::FinancialYear::Parse(typed)) {
    return std::nullopt;
  }
  return Refusal{Tr("LookupMasters", "Enter Proper Financial Year"), Field::kYear};
}

QStringList PercentageKinds() {
  return {QStringLiteral("Brokerage Delivery Based"),
          QStringLiteral("Brokerage Non Delivery Based"), QStringLiteral("STT Delivery Based"),
          QStringLiteral("STT Non Delivery Based"), QStringLiteral("Service Tax")};
}

}  // namespace quorvane::lookup_masters
