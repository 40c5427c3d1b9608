#pragma once

#include "core/records/Action.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace quorvane::corporate_actions {

using records::Action;
using records::ActionKind;
using text::Shares;

/// What the purpose text of an exchange's list means for a holding.
struct Purpose {
  /// In the order of the text, all dividends as one, each with kind, ratio (new for held; of splits
  /// the lowest terms of old by new face value) and price (of dividends the sum, of rights what is
  /// paid in all) as far as the text is certain. What is uncertain is zero, and the note then has
  /// the words of the text. Scrips and days are not filled.
  std::vector<Action> actions;
  /// Parts that may change a holding in a way that the text does not tell: capital reductions,
  /// schemes of arrangement, unknown words. Empty when there are none.
  QString left_over;
};

/// Reads a purpose as the exchanges write it: "Bonus 1:1/Dividend- Rs 13.5 Per Share". Meetings,
/// interest, and bonus or rights of debentures and preference shares do not change the shares
/// held: no action. Never throws.
Purpose ReadPurpose(const QString& text);

/// What an action needs and does not have yet.
enum class OpenPoint : std::uint8_t {
  kExDay,
  kRatio,
  kOtherScrip,
  kPrice,
  kAmount,  ///< of a dividend
  kCostPercent,
};

/// By TermsOf(kind), in the order of the enum.
std::vector<OpenPoint> OpenPointsOf(const Action& action);

/// Its name for the user.
QString TextOf(OpenPoint point);

}  // namespace quorvane::corporate_actions
