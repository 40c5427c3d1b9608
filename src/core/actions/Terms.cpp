#include "core/actions/Terms.h"

#include "core/text/Amounts.h"
#include "core/text/Dates.h"
#include "core/text/Tr.h"

#include <algorithm>

namespace quorvane::actions {
namespace {

MaybeRefusal CheckDays(const Action& action) {
  if (!text::ParseDmy(action.ex_day)) {
    return Refusal{Tr("Actions", "Enter Ex-Date."), Field::kDate};
  }
  for (const QString& day : {action.record_day, action.allotment_day}) {
    if (!day.isEmpty() && !text::ParseDmy(day)) {
      return Refusal{Tr("Actions", "Enter Proper Date."), Field::kRecordDate};
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
    return Refusal{Tr("Actions", "Enter a Ratio Above Zero."), Field::kRatio};
  }
  if (action.kind == ActionKind::kSplit && action.new_shares <= action.old_shares) {
    return Refusal{Tr("Actions", "A Split Gives More Shares than were Held, such as 10 for 1."),
                   Field::kRatio};
  }
  if (action.kind == ActionKind::kConsolidation && action.new_shares >= action.old_shares) {
    return Refusal{
        Tr("Actions", "A Consolidation Gives Fewer Shares than were Held, such as 1 for 10."),
        Field::kRatio};
  }
  return std::nullopt;
}

MaybeRefusal CheckOther(const Action& action) {
  if (TermsOf(action.kind).other && !action.other) {
    return Refusal{Tr("Actions", "Select the Script that the Shares Go to."), Field::kToScrip};
  }
  if (action.other && action.other == action.scrip) {
    return Refusal{Tr("Actions", "The Two Scripts must Differ."), Field::kToScrip};
  }
  return std::nullopt;
}

MaybeRefusal CheckMoney(const Action& action) {
  const Terms terms = TermsOf(action.kind);
  if (action.price < 0 || (terms.price && !(action.price > 0))) {
    return Refusal{Tr("Actions", "Enter a Price Above Zero."), Field::kPrice};
  }
  if (terms.percent && !(action.cost_percent > 0 && action.cost_percent < 100)) {
    return Refusal{Tr("Actions", "Enter a Percent of Cost between 0 and 100."), Field::kPercent};
  }
  return std::nullopt;
}

QString RatioText(const Action& action) {
  return text::NumberText(action.new_shares.Number()) + QLatin1Char(':') +
         text::NumberText(action.old_shares.Number());
}

QString Described(const Action& action, QString kind, const QString& rupees) {
  const Terms terms = TermsOf(action.kind);
  if ((terms.ratio || terms.any_ratio) && action.new_shares) {
    kind += QLatin1Char(' ') + RatioText(action);
  }
  if (terms.price && action.price > 0) {
    kind += QLatin1Char(' ') + rupees.arg(text::FormatAmount(action.price));
  }
  return kind;
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
    return Refusal{Tr("Actions", "Select Script."), Field::kScrip};
  }
  for (const auto check : {CheckDays, CheckRatio, CheckOther, CheckMoney}) {
    if (MaybeRefusal refusal = check(action)) {
      return refusal;
    }
  }
  return std::nullopt;
}

QString Describe(const Action& action) {
  return Described(action, QString::fromLatin1(NameOf(action.kind).title), QStringLiteral("Rs %1"));
}

QString DescribeForUser(const Action& action) {
  return Described(action, Tr("Actions", NameOf(action.kind).title), Tr("Actions", "Rs %1"));
}

}  // namespace quorvane::actions
