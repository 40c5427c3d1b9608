#include "reports/tax/TaxYear.h"

#include <algorithm>
#include <map>
#include <tuple>
#include <utility>

namespace quorvane::tax_year {
namespace {

using tax::GainKind;

auto OrderOf(GainKind kind, const tax::Section& section) {
  return std::tuple(kind, section.percent, section.name);
}

std::vector<GainGroup> GroupsOf(std::span<const TaxPiece> pieces) {
  std::vector<GainGroup> groups;
  for (const TaxPiece& piece : pieces) {
    if (piece.kind == GainKind::kUnknown) {
      continue;
    }
    auto group = std::ranges::find_if(groups, [&](const GainGroup& one) {
      return one.kind == piece.kind && one.section == piece.section;
    });
    if (group == groups.end()) {
      group = groups.insert(groups.end(), {.kind = piece.kind, .section = piece.section});
    }
    group->sale += piece.sale;
    group->expenses += piece.expenses;
    group->cost += piece.cost;
    group->cost_taken += piece.cost_taken;
    group->gain += piece.gain;
  }
  std::ranges::sort(groups, {},
                    [](const GainGroup& one) { return OrderOf(one.kind, one.section); });
  return groups;
}

std::size_t GroupOf(std::span<const GainGroup> groups, const TaxPiece& piece) {
  const auto found = std::ranges::find_if(groups, [&](const GainGroup& one) {
    return one.kind == piece.kind && one.section == piece.section;
  });
  return static_cast<std::size_t>(found - groups.begin());
}

std::vector<WindowSum> WindowsOf(std::span<const TaxPiece> pieces,
                                 std::span<const GainGroup> groups) {
  std::map<std::pair<std::size_t, int>, Paise> sums;
  for (const TaxPiece& piece : pieces) {
    if (piece.kind != GainKind::kUnknown && piece.window > 0) {
      sums[{GroupOf(groups, piece), piece.window}] += piece.gain;
    }
  }
  std::vector<WindowSum> windows;
  windows.reserve(sums.size());
  for (const auto& [place, gain] : sums) {
    windows.push_back({place.first, place.second, gain});
  }
  return windows;
}

}  // namespace

std::optional<Paise> TaxYear::TaxOf(std::size_t group) const {
  const auto& percent = groups[group].section.percent;
  return percent ? std::optional(percent->Of(set_off.taxable[group])) : std::nullopt;
}

Paise TaxYear::Tax() const {
  Paise sum;
  for (std::size_t i = 0; i < groups.size(); ++i) {
    sum += TaxOf(i).value_or(Paise());
  }
  return sum;
}

Paise TaxYear::GainOf(GainKind kind) const {
  Paise sum;
  for (const GainGroup& group : groups) {
    sum += group.kind == kind ? group.gain : Paise();
  }
  return sum;
}

TaxYear Compute(const tax::Rules& rules, ClientId client, std::span<const positions::Piece> pieces,
                std::vector<tax::TaxLoss> brought_forward) {
  TaxYear year{.of = {client, rules.Year()}};
  year.pieces = Classify(rules, pieces);
  year.groups = GroupsOf(year.pieces);
  year.windows = WindowsOf(year.pieces, year.groups);
  year.set_off = SetOffLosses(rules, year.groups, brought_forward);
  year.brought_forward = std::move(brought_forward);
  return year;
}

}  // namespace quorvane::tax_year
