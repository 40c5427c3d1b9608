#pragma once

#include "reporting/document/ReportDocument.h"
#include "reports/mis/Holdings.h"
#include "reports/mis/Names.h"
#include "reports/mis/ReportForm.h"

#include <QString>

#include <array>
#include <cstdint>
#include <vector>

namespace quorvane::mis {

/// What a report can be grouped by.
enum class Level : std::uint8_t { kGroup, kClient, kAccount, kScrip };

/// The groups of a report from the outside in. Its lines are scrips when it is not detailed, and
/// are then no level of their own.
std::vector<Level> LevelsOf(Grouping grouping, bool detail);

/// A holding's place in a grouping: one number a level; equal numbers are one group.
struct Place {
  std::array<std::uint32_t, 4> path{};
  std::size_t holding = 0;
};

/// The holdings in the order of the levels, within them by scrip name, client code and account
/// number.
std::vector<Place> OrderBy(const std::vector<Level>& levels, const std::vector<Holding>& holdings,
                           const Names& names);

/// What the groups of a management report are called.
class GroupHeadings {
 public:
  /// `levels` are the report's; all arguments must outlive this object.
  GroupHeadings(const ReportForm& form, const std::vector<Holding>& holdings, const Names& names,
                const std::vector<Level>& levels);

  /// The name of the group of a level that a holding belongs to, as its closing line calls it, and
  /// the heading above the group.
  QString NameAt(Level level, const Holding& holding) const;
  QString At(Level level, const Holding& holding) const;

 private:
  /// Whose account it is, unless a heading above or the report's title says so.
  QString OwnerOf(const Holding& holding) const;

  const ReportForm& form_;
  const Names& names_;
  const std::vector<Level>& levels_;
  bool several_clients_;
};

/// Arranges holdings in the groups of a report.
///
/// Each group begins with its heading ("GROUP NAME- ATHALEKAR", "Demat A/c No - 10014501", a client
/// or a scrip) and closes with "SubTotal"; a group that holds a single other group is closed by
/// that group's. The table ends with "Total". Every total is the sum of the lines above it that
/// count: money always, shares where all of them are of one scrip. A balance of shares in a total
/// is that at the end of the period.
reporting::Table MakeTable(const MisQuery& query, const ReportForm& form,
                           const std::vector<Holding>& holdings, const Names& names);

}  // namespace quorvane::mis
