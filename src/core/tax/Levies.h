#pragma once

#include "core/text/Dates.h"

#include <QString>

#include <optional>
#include <string_view>
#include <vector>

namespace quorvane::tax {

/// A rate that the law or an exchange set from a day on until the next one of its kind.
struct Levy {
  QString kind;  ///< such as "STT Delivery Based"
  text::Date from;
  double percent = 0;
};

/// The dated rates in a comma separated file whose first columns are kind, from and percent; a
/// fourth one names the source. In the order of the file. Throws files::TableError for a file that
/// is missing or has other contents.
std::vector<Levy> ReadLevies(const QString& path);

/// The rate of a kind on a day; nullopt before its first one and for an unknown kind.
std::optional<double> PercentOn(const std::vector<Levy>& levies, QLatin1String kind,
                                text::Date day);

}  // namespace quorvane::tax
