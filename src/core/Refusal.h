#pragma once

#include <QString>

#include <optional>

namespace quorvane {

/// A rule that the user's input broke: the text to show and the name of the field to focus.
/// Nothing was changed.
struct Refusal {
  QString text;
  QString field;
};

using MaybeRefusal = std::optional<Refusal>;

}  // namespace quorvane
