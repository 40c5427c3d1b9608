#include "core/actions/Terms.h"

#include "core/text/Amounts.h"
#include "core/text/Dates.h"

#include <QCoreApplication>

#include <algorithm>

namespace quorvane::actions {
namespace {

Refusal Refuse(const char* text) {
  return {QCoreApplication::translate("Actions", text), {}};
}

MaybeRefusal CheckDays(const Action& action) {
  if (!text::ParseDmy(action.ex_day)) {
    return Refuse(QT_TRANSLATE_NOOP("Actions", "Enter Ex-Date."));
  }
  for (const QString& day : {action.record_day, action.allotment_day}) {
    if (!day.isEmpty() && !text::ParseDmy(day)) {
      return Refuse(QT_TRANSLATE_NOOP("Actions", "Enter Proper Date."));
    }
  }
  return std::nullopt;
}

MaybeRefusal CheckRatio(const Action& action) {
  const Terms terms = TermsOf(action.kind);
  const bool given = action.new_shares || action.old_shares;
  if (!terms.ratio && !(terms.any_ratio && given)) {
    return std::nullopt;
  }
  if (action.new_shares <= text::Shares() || action.old_shares <= text::Shares()) {
    return Refuse(QT_TRANSLATE_NOOP("Actions", "Enter a Ratio Above Zero."));
  }
  if (action.kind == ActionKind::kSplit && action.new_shares <= action.old_shares) {
    return Refuse(QT_TRANSLATE_NOOP("Actions",
                                    "A Split Gives More Shares than were Held, such as 10 for 1."));
  }
  if (action.kind == ActionKind::kConsolidation && action.new_shares >= action.old_shares) {
    return Refuse(QT_TRANSLATE_NOOP(
        "Actions", "A Consolidation Gives Fewer Shares than were Held, such as 1 for 10."));
  }
  return std::nullopt;
}

MaybeRefusal CheckOther(const Action& action) {
  if (TermsOf(action.kind).other && !action.other) {
    return Refuse(QT_TRANSLATE_NOOP("Actions", "Select the Script that the Shares Go to."));
  }
  if (action.other && action.other == action.scrip) {
    return Refuse(QT_TRANSLATE_NOOP("Actions", "The Two Scripts must Differ."));
  }
  return std::nullopt;
}

MaybeRefusal CheckMoney(const Action& action) {
  const Terms terms = TermsOf(action.kind);
  if (action.price < 0 || (terms.price && !(action.price > 0))) {
    return Refuse(QT_TRANSLATE_NOOP("Actions", "Enter a Price Above Zero."));
  }
  if (terms.percent && !(action.cost_percent > 0 && action.cost_percent < 100)) {
    return Refuse(QT_TRANSLATE_NOOP("Actions", "Enter a Percent of Cost between 0 and 100."));
  }
  return std::nullopt;
}

QString RatioText(const Action& action) {
  return text::NumberText(action.new_shares.Number()) + QLatin1Char(':') +
         text::NumberText(action.old_shares.Number());
}

}  // namespace

const KindName& NameOf(ActionKind kind) {
  const auto found = std::ranges::find(kKinds, kind, &KindName::kind);
  return found == kKinds.end() ? kKinds.front() : *found;
}

std::optional<ActionKind> KindOf(std::string_view file_name) {
  const auto found = std::ranges::find(kKinds, file_name, &KindName::file_name);
  return found == kKinds.end() ? std::nullopt : std::optional(found->kind);
}

Terms TermsOf(ActionKind kind) {
  switch (kind) {
    case ActionKind::kSplit:
    case ActionKind::kConsolidation:
      return {.ratio = true, .fraction = true};
    case ActionKind::kBonus:
      return {.ratio = true, .fraction = true, .allotment = true};
    case ActionKind::kRights:
      return {.ratio = true, .price = true, .allotment = true};
    case ActionKind::kMerger:
      return {.ratio = true, .other = true, .fraction = true};
    case ActionKind::kDemerger:
      return {.ratio = true, .other = true, .fraction = true, .percent = true};
    case ActionKind::kBuyBack:
      return {.any_ratio = true, .price = true};
    case ActionKind::kNameChange:
      return {.any_other = true};
    case ActionKind::kDividend:
      return {.price = true};
  }
  return {};
}

MaybeRefusal Check(const Action& action) {
  if (!action.scrip) {
    return Refuse(QT_TRANSLATE_NOOP("Actions", "Select Script."));
  }
  for (const auto check : {CheckDays, CheckRatio, CheckOther, CheckMoney}) {
    if (MaybeRefusal refusal = check(action)) {
      return refusal;
    }
  }
  return std::nullopt;
}

QString Describe(const Action& action) {
  QString described = QString::fromLatin1(NameOf(action.kind).title);
  const Terms terms = TermsOf(action.kind);
  if (terms.ratio || (terms.any_ratio && action.new_shares)) {
    described += QLatin1Char(' ') + RatioText(action);
  }
  if (terms.price) {
    described += QStringLiteral(" Rs ") + text::FormatAmount(action.price);
  }
  return described;
}

}  // namespace quorvane::actions
