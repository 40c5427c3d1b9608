#include "reports/tax/TaxPiece.h"

#include "core/tax/FairValues.h"

#include <algorithm>

namespace quorvane::tax_year {
namespace {

using positions::Piece;
using positions::PieceKind;
using tax::BuyBackTreatment;
using tax::GainKind;

GainKind KindOf(const Piece& piece) {
  if (!piece.has_cost) {
    return GainKind::kUnknown;
  }
  if (piece.kind == PieceKind::kFo) {
    return GainKind::kFo;
  }
  if (piece.kind == PieceKind::kSpeculation) {
    return GainKind::kSpeculation;
  }
  if (IsHeldLong(piece.acquired, piece.sold)) {
    return piece.stt_paid ? GainKind::kLongTermStt : GainKind::kLongTerm;
  }
  return piece.stt_paid ? GainKind::kShortTermStt : GainKind::kShortTerm;
}

/// Shares acquired up to 31-Jan-2018 cost at least what they were worth then, but no more than they
/// were sold for.
void Grandfather(TaxPiece& piece) {
  if (piece.kind != GainKind::kLongTermStt || !piece.AcquiredBefore2018()) {
    return;
  }
  piece.fair = piece.of.fair;
  piece.needs_fair = !piece.fair;
  if (piece.fair) {
    piece.cost_taken = std::max(piece.cost, std::min(*piece.fair, piece.sale));
  }
}

TaxPiece PieceOf(const tax::Rules& rules, const Piece& of) {
  TaxPiece piece{.of = of};
  piece.kind = KindOf(of);
  piece.section = rules.SectionOf(piece.kind, of.sold);
  if (piece.section.exempt) {
    piece.kind = GainKind::kExempt;
  }
  piece.sale = of.sale;
  piece.expenses = of.expenses;
  piece.cost = of.cost;
  piece.cost_taken = of.cost;
  piece.window = rules.WindowOf(of.sold);
  return piece;
}

void SetGain(TaxPiece& piece) {
  piece.gain =
      piece.kind == GainKind::kUnknown ? Paise() : piece.sale - piece.expenses - piece.cost_taken;
}

TaxPiece DividendOf(const TaxPiece& sold, const QString& section) {
  TaxPiece dividend = sold;
  dividend.kind = GainKind::kDividend;
  dividend.section = {section};
  dividend.cost = {};
  dividend.cost_taken = {};
  dividend.expenses = {};
  return dividend;
}

/// Adds the piece, and the dividend that a buy-back may be.
void Add(std::vector<TaxPiece>& list, TaxPiece piece, const tax::Rules& rules) {
  const bool bought_back = piece.of.kind == PieceKind::kBuyBack && piece.kind != GainKind::kUnknown;
  const tax::BuyBackRule& rule = rules.BuyBackOn(piece.of.sold);
  std::optional<TaxPiece> dividend;
  if (bought_back && rule.treatment == BuyBackTreatment::kExempt) {
    piece.kind = GainKind::kExempt;
    piece.section = {.name = rule.section, .exempt = true};
  } else if (bought_back && rule.treatment == BuyBackTreatment::kDividend) {
    dividend = DividendOf(piece, rule.section);
    SetGain(*dividend);
    piece.sale = {};
    piece.expenses = {};
  } else {
    Grandfather(piece);
  }
  SetGain(piece);
  list.push_back(std::move(piece));
  if (dividend) {
    list.push_back(std::move(*dividend));
  }
}

}  // namespace

bool TaxPiece::AcquiredBefore2018() const {
  return of.acquired <= tax::kFairValueDay;
}

bool IsHeldLong(Date acquired, Date sold) {
  return sold > text::AddYear(acquired);
}

std::vector<TaxPiece> Classify(const tax::Rules& rules, std::span<const Piece> pieces) {
  std::vector<TaxPiece> list;
  for (const Piece& piece : pieces) {
    if (rules.Year().Contains(piece.sold)) {
      Add(list, PieceOf(rules, piece), rules);
    }
  }
  return list;
}

}  // namespace quorvane::tax_year
