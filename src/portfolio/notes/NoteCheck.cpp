#include "core/text/Amounts.h"
#include "portfolio/notes/Note.h"

#include <fmt/format.h>

#include <cmath>
#include <cstdlib>

namespace quorvane::notes {
namespace {

Paise Signed(const NoteLine& line, Paise amount) {
  return line.side == Side::kSale ? amount : -amount;
}

Paise Without(Paise amount) {
  return Paise(std::abs(amount.Count()));
}

/// What rounding of so many printed amounts may come to.
bool AreNear(Paise a, Paise b, std::size_t roundings) {
  return std::abs(Without(a).Count() - Without(b).Count()) <=
         static_cast<std::int64_t>(roundings) + 1;
}

std::string Text(Paise amount) {
  std::string text;
  text::AppendPaise(text, amount.Count());
  return text;
}

/// Rates are printed with two to four decimals.
std::string FaultOf(const NoteLine& line) {
  constexpr double kRounded = 0.0051;
  const double quantity = line.quantity.Number();
  if (std::abs(line.net * quantity - line.total.Rupees()) > quantity * kRounded + 0.011) {
    return fmt::format("line {}: {} at {} is not {}", line.line, quantity, line.net,
                       Text(line.total));
  }
  const double net = records::Side::kPurchase == line.side ? line.rate + line.brokerage
                                                           : line.rate - line.brokerage;
  if (std::abs(net - line.net) > 2 * kRounded) {
    return fmt::format("line {}: {} with brokerage {} is not {}", line.line, line.rate,
                       line.brokerage, line.net);
  }
  return {};
}

struct Sums {
  Paise totals;     ///< of the lines, with brokerage
  Paise gross;      ///< before brokerage
  Paise brokerage;  ///< of all lines
};

Sums SumsOf(const Note& note) {
  Sums sums;
  for (const NoteLine& line : note.lines) {
    const Paise brokerage = Paise::OfRupees(line.brokerage * line.quantity.Number());
    sums.totals += Signed(line, line.total);
    sums.brokerage += brokerage;
    sums.gross += Signed(line, line.total) + brokerage;
  }
  return sums;
}

Paise ChargesOf(const Note& note) {
  Paise charges;
  for (const auto& [charge, amount] : note.charges) {
    charges += charge == Charge::kTaxableValue ? Paise() : amount;
  }
  return charges;
}

NoteBalance Fault(std::string why) {
  return {.adds_up = false, .extra_brokerage = {}, .why = std::move(why)};
}

}  // namespace

NoteBalance CheckNote(const Note& note) {
  if (note.lines.empty()) {
    return Fault("it has no trades in shares that can be read");
  }
  if (!note.doubts.empty()) {
    return Fault(note.doubts.front());
  }
  for (const NoteLine& line : note.lines) {
    if (std::string fault = FaultOf(line); !fault.empty()) {
      return Fault(std::move(fault));
    }
  }
  if (!note.obligation || !note.net) {
    return Fault("its obligation or its net amount cannot be read");
  }
  const Sums sums = SumsOf(note);
  const std::size_t roundings = note.lines.size();
  const bool of_totals = AreNear(sums.totals, *note.obligation, roundings);
  const bool of_gross = AreNear(sums.gross, *note.obligation, 2 * roundings);
  if (!of_totals && !of_gross) {
    return Fault(fmt::format("its lines come to {}, its obligation is {}",
                             Text(Without(sums.totals)), Text(*note.obligation)));
  }
  const Paise charges = ChargesOf(note);
  // Brokerage is within the lines' totals, or added to them in the sum of charges.
  if (AreNear(sums.totals - charges, *note.net, roundings)) {
    return {.adds_up = true, .extra_brokerage = {}, .why = {}};
  }
  const Paise taxable = note.Of(Charge::kTaxableValue);
  if (of_totals && AreNear(sums.totals - charges - taxable, *note.net, roundings)) {
    return {.adds_up = true, .extra_brokerage = taxable, .why = {}};
  }
  return Fault(fmt::format("obligation and charges come to {}, its net amount is {}",
                           Text(Without(sums.totals - charges)), Text(*note.net)));
}

}  // namespace quorvane::notes
