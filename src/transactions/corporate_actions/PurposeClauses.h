#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace quorvane::corporate_actions {

/// What a part of a purpose text is about.
enum class Topic : std::uint8_t {
  kSplit,
  kConsolidation,
  kBonus,
  kRights,
  kBuyBack,
  kDemerger,
  kMerger,
  kArrangement,  ///< a scheme whose terms the text does not tell
  kReduction,    ///< of capital
  kNothing,      ///< meetings, interest and the like, which leave shares as they are
  kDividend,
};

/// A part of a purpose text, as written, that has one topic.
struct Clause {
  Topic topic = Topic::kNothing;
  QString text;
};

struct PurposeClauses {
  std::vector<Clause> clauses;  ///< in the order of the text
  QStringList unknown;          ///< parts without a known topic
};

/// Cuts a purpose text where it joins purposes ("/", "+", "&", ";") and before each word that names
/// a topic. A "/" that ends an amount ("Rs.5/-") joins nothing. What is said to be included in an
/// amount is dropped.
PurposeClauses ClausesOf(const QString& purpose);

}  // namespace quorvane::corporate_actions
