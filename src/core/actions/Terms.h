#pragma once

#include "core/Result.h"
#include "core/records/Action.h"

#include <QString>

#include <array>
#include <optional>
#include <string_view>

namespace quorvane::actions {

using records::Action;
using records::ActionKind;

/// A kind of corporate action, its name in files and what a user calls it.
struct KindName {
  ActionKind kind;
  std::string_view file_name;  ///< in corporate_actions.csv
  const char* title;           ///< English; the key of its translation in the context "Actions"
};

inline constexpr std::array<KindName, 9> kKinds{{
    {ActionKind::kSplit, "split", QT_TRANSLATE_NOOP("Actions", "Split")},
    {ActionKind::kConsolidation, "consolidation", QT_TRANSLATE_NOOP("Actions", "Consolidation")},
    {ActionKind::kBonus, "bonus", QT_TRANSLATE_NOOP("Actions", "Bonus")},
    {ActionKind::kRights, "rights", QT_TRANSLATE_NOOP("Actions", "Rights")},
    {ActionKind::kMerger, "merger", QT_TRANSLATE_NOOP("Actions", "Merger")},
    {ActionKind::kDemerger, "demerger", QT_TRANSLATE_NOOP("Actions", "Demerger")},
    {ActionKind::kBuyBack, "buy-back", QT_TRANSLATE_NOOP("Actions", "Buy-Back")},
    {ActionKind::kNameChange, "name-change", QT_TRANSLATE_NOOP("Actions", "Change of Name")},
    {ActionKind::kDividend, "dividend", QT_TRANSLATE_NOOP("Actions", "Dividend")},
}};

const KindName& NameOf(ActionKind kind);
std::optional<ActionKind> KindOf(std::string_view file_name);

/// Which terms a kind of action has; the others are not asked for.
struct Terms {
  bool ratio = false;      ///< must be given
  bool any_ratio = false;  ///< may be given
  bool other = false;      ///< must be given
  bool any_other = false;  ///< may be given
  bool price = false;      ///< must be above zero
  bool fraction = false;   ///< the price is what a fraction of a share brings, and may be zero
  bool percent = false;    ///< must be given
  bool allotment = false;
};
Terms TermsOf(ActionKind kind);

/// The first rule that the terms break: days, ratio, the other scrip, price, per cent.
MaybeRefusal Check(const Action& action);

/// "Bonus 1:1", "Split 10:1", "Dividend Rs 12.50". Terms that are not filled are left out. In
/// English, for reports and files.
QString Describe(const Action& action);

/// The same in the user's language, for windows and refusals.
QString DescribeForUser(const Action& action);

}  // namespace quorvane::actions
