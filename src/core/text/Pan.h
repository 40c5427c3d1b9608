#pragma once

#include <QString>

namespace quorvane::text {

/// What a check of a permanent account number found. `warning` is for the user and does not make
/// the number invalid.
struct PanCheck {
  bool valid = false;
  QString warning;
};

/// Accepts an empty text, ten characters of the form AAAAA9999A in capitals, and in any case
/// "PANNOTAVBL", "PANINVALID" and "PANAPPLIED". A fourth letter outside P,H,C,J,F,A,T,B,L,G only
/// warns.
PanCheck IsValidPan(const QString& pan);

}  // namespace quorvane::text
