#include "reports/tax/SetOff.h"

#include <algorithm>
#include <tuple>

namespace quorvane::tax_year {
namespace {

using tax::GainKind;
using tax::LossKind;

using Places = std::vector<std::size_t>;  ///< of groups

/// Takes the losses one after the other.
class Sheet {
 public:
  Sheet(const tax::Rules& rules, std::span<const GainGroup> groups)
      : rules_(rules), groups_(groups), short_(ShortTerm()), long_(LongTerm()) {
    for (const GainGroup& group : groups) {
      result_.taxable.push_back(std::max(group.gain, Paise()));
    }
    for (std::size_t i = 0; i < groups.size(); ++i) {
      if (groups[i].kind == GainKind::kSpeculation) {
        speculation_.push_back(i);
      }
      if (groups[i].kind == GainKind::kDividend || groups[i].kind == GainKind::kExempt ||
          groups[i].kind == GainKind::kFo) {
        result_.taxable[i] = {};
      }
    }
  }

  /// What the year itself lost of a kind.
  Paise LossOfYear(LossKind kind) const {
    Paise loss;
    for (const GainGroup& group : groups_) {
      if (group.gain < Paise() && Counts(kind, group.kind)) {
        loss -= group.gain;
      }
    }
    return loss;
  }

  void TakeOfYear() {
    OpenLoss long_term{rules_.Year(), LossKind::kLongTerm, LossOfYear(LossKind::kLongTerm)};
    OpenLoss short_term{rules_.Year(), LossKind::kShortTerm, LossOfYear(LossKind::kShortTerm)};
    Take(long_term);
    Take(short_term);
    Keep(long_term);
    Keep(short_term);
    Keep({rules_.Year(), LossKind::kSpeculation, LossOfYear(LossKind::kSpeculation)});
  }

  void TakeBroughtForward(const tax::TaxLoss& loss) {
    OpenLoss open{loss.loss_year, loss.kind, loss.amount};
    const int age = rules_.Year().FirstCalendarYear() - loss.loss_year.FirstCalendarYear();
    if (age > rules_.CarryYears(loss.kind)) {
      result_.ignored.push_back(open);
      return;
    }
    Take(open);
    if (age == rules_.CarryYears(loss.kind)) {
      KeepIn(result_.lapsed, open);
    } else {
      Keep(open);
    }
  }

  void Exempt() {
    Paise left = rules_.Exemption();
    for (const std::size_t place : long_) {
      const Paise part = std::min(left, result_.taxable[place]);
      if (groups_[place].kind == GainKind::kLongTermStt && part > Paise()) {
        result_.exemptions.push_back({place, part});
        result_.taxable[place] -= part;
        left -= part;
      }
    }
  }

  SetOff Result() && {
    const auto order = [](const OpenLoss& loss) {
      const auto* name = std::ranges::find(tax::kLossKinds, loss.kind, &tax::LossKindName::kind);
      return std::tuple(loss.loss_year, name);
    };
    std::ranges::stable_sort(result_.carried, {}, order);
    std::ranges::stable_sort(result_.lapsed, {}, order);
    return std::move(result_);
  }

 private:
  static bool Counts(LossKind loss, GainKind kind) {
    switch (loss) {
      case LossKind::kShortTerm:
        return tax::IsShortTerm(kind);
      case LossKind::kLongTerm:
        return tax::IsLongTerm(kind);
      case LossKind::kSpeculation:
        return kind == GainKind::kSpeculation;
    }
    return false;
  }

  template <class Counts>
  Places Sorted(Counts counts) const {
    Places places;
    for (std::size_t i = 0; i < groups_.size(); ++i) {
      if (counts(groups_[i].kind)) {
        places.push_back(i);
      }
    }
    return places;
  }

  /// Gains at normal rates first, then those with the highest per cent.
  Places ShortTerm() const {
    Places places = Sorted(tax::IsShortTerm);
    std::ranges::stable_sort(places, [&](std::size_t a, std::size_t b) {
      const auto& x = groups_[a].section.percent;
      const auto& y = groups_[b].section.percent;
      return x && y ? *x > *y : !x && y;
    });
    return places;
  }

  /// Those with the highest per cent first; of equal ones those to which no exemption applies.
  Places LongTerm() const {
    Places places = Sorted(tax::IsLongTerm);
    const auto key = [&](std::size_t place) {
      const GainGroup& group = groups_[place];
      return std::tuple(group.section.percent, group.kind == GainKind::kLongTerm);
    };
    std::ranges::stable_sort(places, [&](std::size_t a, std::size_t b) { return key(a) > key(b); });
    return places;
  }

  void Take(OpenLoss& loss) {
    switch (loss.kind) {
      case LossKind::kShortTerm:
        TakeFrom(short_, loss);
        return TakeFrom(long_, loss);
      case LossKind::kLongTerm:
        return TakeFrom(long_, loss);
      case LossKind::kSpeculation:
        return TakeFrom(speculation_, loss);
    }
  }

  void TakeFrom(const Places& places, OpenLoss& loss) {
    for (const std::size_t place : places) {
      const Paise part = std::min(loss.amount, result_.taxable[place]);
      if (part > Paise()) {
        result_.lines.push_back({place, loss.loss_year, loss.kind, part});
        result_.taxable[place] -= part;
        loss.amount -= part;
      }
    }
  }

  static void KeepIn(std::vector<OpenLoss>& list, const OpenLoss& loss) {
    if (loss.amount > Paise()) {
      list.push_back(loss);
    }
  }
  void Keep(const OpenLoss& loss) { KeepIn(result_.carried, loss); }

  const tax::Rules& rules_;
  std::span<const GainGroup> groups_;
  Places short_;
  Places long_;
  Places speculation_;
  SetOff result_;
};

}  // namespace

SetOff SetOffLosses(const tax::Rules& rules, std::span<const GainGroup> groups,
                    std::span<const tax::TaxLoss> brought_forward) {
  Sheet sheet(rules, groups);
  sheet.TakeOfYear();
  for (const tax::TaxLoss& loss : brought_forward) {
    sheet.TakeBroughtForward(loss);
  }
  sheet.Exempt();
  return std::move(sheet).Result();
}

}  // namespace quorvane::tax_year
