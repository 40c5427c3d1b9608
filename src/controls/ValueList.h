#pragma once

#include "core/lookups/Choices.h"

#include <QHash>
#include <QString>

#include <vector>

namespace quorvane::controls {

/// A list of numbers with the texts that stand for them, read from "#0;S|#1;P". A piece without the
/// "#number;" form is passed over. lookups::kBarInText in a text is a "|".
class ValueList {
 public:
  ValueList() = default;
  explicit ValueList(const QString& list);

  const std::vector<lookups::Item>& Items() const { return items_; }
  bool IsEmpty() const { return items_.empty(); }
  bool Contains(int value) const { return texts_.contains(value); }

  /// Empty for a number that is not in the list.
  QString TextOf(int value) const { return texts_.value(value); }

 private:
  std::vector<lookups::Item> items_;
  QHash<int, QString> texts_;
};

}  // namespace quorvane::controls
