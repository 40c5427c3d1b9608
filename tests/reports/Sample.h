#pragma once

#include "portfolio/Import.h"
#include "support/TestDatabase.h"

#include <stdexcept>

namespace quorvane::test {

inline void TakeInSample(TestDatabase& database) {
  Progress progress;
  const auto result = portfolio::ImportPortfolio(
      *database, QStringLiteral(QUORVANE_SOURCE_DIR "/data/sample"), false, progress);
  if (!result.errors.empty()) {
    throw std::runtime_error(result.errors.front().Text());
  }
}

}  // namespace quorvane::test
