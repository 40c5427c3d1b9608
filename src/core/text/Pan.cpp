#include "core/text/Pan.h"

#include "core/text/Tr.h"

#include <algorithm>
#include <array>

namespace quorvane::text {
namespace {

constexpr qsizetype kLength = 10;
constexpr qsizetype kHolderKind = 3;

bool StandsForMissing(const QString& pan) {
  constexpr std::array kWords = {"PANNOTAVBL", "PANINVALID", "PANAPPLIED"};
  return std::ranges::any_of(kWords, [&](const char* word) {
    return pan.compare(QLatin1String(word), Qt::CaseInsensitive) == 0;
  });
}

bool FitsPosition(QChar c, qsizetype position) {
  const bool digit_wanted = position >= 5 && position <= 8;
  return digit_wanted ? c >= QChar('0') && c <= QChar('9') : c >= QChar('A') && c <= QChar('Z');
}

bool HasForm(const QString& pan) {
  for (qsizetype position = 0; position < kLength; ++position) {
    if (!FitsPosition(pan[position], position)) {
      return false;
    }
  }
  return true;
}

QString HolderKindWarning(QChar kind) {
  if (QStringLiteral("PHCJFATBLG").contains(kind)) {
    return {};
  }
  return Tr("Pan", "Fourth character of PAN should be [P,H,C,J,F,A,T,B,L,G].");
}

}  // namespace

PanCheck IsValidPan(const QString& pan) {
  if (pan.isEmpty()) {
    return {.valid = true, .warning = {}};
  }
  if (pan.size() != kLength) {
    return {};
  }
  if (StandsForMissing(pan)) {
    return {.valid = true, .warning = {}};
  }
  return HasForm(pan) ? PanCheck{.valid = true, .warning = HolderKindWarning(pan[kHolderKind])}
                      : PanCheck{};
}

}  // namespace quorvane::text
