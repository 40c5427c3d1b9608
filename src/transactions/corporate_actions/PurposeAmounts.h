#pragma once

#include "core/text/Ratio.h"

#include <QString>

#include <optional>
#include <utility>
#include <vector>

namespace quorvane::corporate_actions {

/// A ratio of a purpose text ("1:10", "1 for 10") and where it begins.
struct FoundRatio {
  text::ShareRatio ratio;
  qsizetype at = 0;
};
std::vector<FoundRatio> RatiosIn(const QString& text);

/// The shares for each held after a change of the face value "From Rs 10/- To Rs 2/-", in lowest
/// terms; nullopt unless the text has exactly these two amounts.
std::optional<text::ShareRatio> FaceValueChange(const QString& text);

/// What a text says of money a share, in rupees.
struct PurposeMoney {
  std::optional<double> face_value;
  std::optional<double> premium;
  std::vector<double> others;  ///< in the order of the text
  bool doubtful = false;       ///< an amount may be read in two ways
};
PurposeMoney MoneyIn(const QString& text);

/// The rupees a share that one dividend of a text pays; nullopt when it says none or says it in
/// another way, such as per cent of the face value.
std::optional<double> DividendIn(const QString& text);

}  // namespace quorvane::corporate_actions
