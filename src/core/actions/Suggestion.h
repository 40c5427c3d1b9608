#pragma once

#include "core/records/Action.h"

#include <vector>

namespace quorvane::actions {

/// An action of a usual ratio.
struct Suggestion {
  records::ActionKind kind = records::ActionKind::kBonus;
  int new_shares = 0;
  int old_shares = 0;

  bool operator==(const Suggestion&) const = default;

  /// An action with this kind and ratio and nothing else.
  records::Action Action() const;
};

/// The splits, bonus issues and consolidations that make `recorded` shares into `stated` ones, the
/// likelier first; none when no usual ratio fits. A fraction of a share is left out, as it is paid
/// in money; that only counts for holdings so large that chance is unlikely.
std::vector<Suggestion> SuggestActions(text::Shares recorded, text::Shares stated);

}  // namespace quorvane::actions
