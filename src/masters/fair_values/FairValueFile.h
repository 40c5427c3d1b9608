#pragma once

#include "core/rates/RateImport.h"
#include "core/tax/FairValues.h"

#include <cstddef>
#include <vector>

namespace quorvane::fair_values {

/// Reads an exchange's price file of tax::kFairValueDay. Refuses what rates::ReadPriceFile refuses,
/// a file without highest prices, and one of another day. A file that tells no day, neither inside
/// nor by its name, has no `date`: somebody has to know the day.
Result<rates::PriceFile> ReadDayFile(const QString& path);

/// What of a price file belongs to the program's scrips.
struct FileValues {
  tax::FairValues highest;    ///< of several rows of one scrip the highest
  std::size_t unmatched = 0;  ///< rows that belong to no scrip
};

/// Rows belong to scrips as rates::MatchRates says.
FileValues MatchHighest(rates::PriceFile file, const std::vector<rates::ListedScrip>& scrips);

/// What a file made of the values that were there.
struct Taken {
  std::size_t added = 0;
  std::size_t raised = 0;
  std::size_t kept = 0;  ///< as high already
};

/// Takes the higher of the value that is there and the other one: the law asks for the highest
/// price on any exchange.
Taken TakeHigher(tax::FairValues& values, const tax::FairValues& others);

}  // namespace quorvane::fair_values
