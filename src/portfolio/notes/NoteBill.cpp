#include "portfolio/notes/NoteBill.h"

#include "core/records/BillAmounts.h"
#include "core/text/Amounts.h"
#include "core/text/Ratio.h"

#include <algorithm>
#include <functional>
#include <map>

namespace quorvane::notes {
namespace {

/// An entry with what its charges are spread by.
struct Piece {
  BillEntry entry;
  Paise total;        ///< as printed
  bool fund = false;  ///< units of a fund, which are taxed less
};

/// Leaves the rate as printed where it gives the piece's total, else gives it the decimals that the
/// print leaves out.
void FitRate(Piece& piece) {
  BillEntry& entry = piece.entry;
  const double quantity = entry.quantity.Number();
  const double net = records::NetRate(entry.side, entry.rate, entry.brokerage);
  if (Paise::OfRupees(net * quantity) == piece.total) {
    return;
  }
  const double exact = piece.total.Rupees() / quantity;
  entry.rate =
      text::Tidy(entry.side == Side::kPurchase ? exact - entry.brokerage : exact + entry.brokerage);
}

/// The note's lines, each in the part that is without delivery and the part that was delivered.
std::vector<Piece> PiecesOf(const Note& note, std::span<const Shares> undelivered) {
  std::vector<Piece> pieces;
  for (std::size_t i = 0; i < note.lines.size(); ++i) {
    const NoteLine& line = note.lines[i];
    const Paise part = text::PartOf(line.total, undelivered[i], line.quantity);
    for (const bool non_delivery : {true, false}) {
      const Shares quantity = non_delivery ? undelivered[i] : line.quantity - undelivered[i];
      if (quantity <= Shares()) {
        continue;
      }
      Piece& piece = pieces.emplace_back();
      piece.entry.note_line = i;
      piece.entry.side = line.side;
      piece.entry.non_delivery = non_delivery;
      piece.entry.quantity = quantity;
      piece.total = non_delivery ? part : line.total - part;
      piece.fund = line.isin.starts_with("INF");
      piece.entry.rate = line.rate;
      piece.entry.brokerage = line.brokerage;
      FitRate(piece);
    }
  }
  return pieces;
}

/// The tax law's rates in millionths of the value: what an amount is spread by.
std::int64_t SttRate(const Piece& piece) {
  const bool sale = piece.entry.side == Side::kSale;
  if (piece.fund) {
    return sale ? 10 : 0;
  }
  if (piece.entry.non_delivery) {
    return sale ? 250 : 0;
  }
  return 1000;
}

/// Gives each piece its part of an amount, in paise that add up to it.
void SpreadOver(std::vector<Piece>& pieces, Paise amount,
                const std::function<std::int64_t(const Piece&)>& weight,
                const std::function<void(Piece&, Paise)>& give) {
  std::int64_t whole = 0;
  for (const Piece& piece : pieces) {
    whole += weight(piece);
  }
  std::int64_t upto = 0;
  Paise given;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    upto += weight(pieces[i]);
    const Paise until =
        i + 1 == pieces.size() ? amount : Paise(text::Proportion(amount.Count(), upto, whole));
    give(pieces[i], until - given);
    given = until;
  }
}

std::int64_t Value(const Piece& piece) {
  return piece.total.Count();
}

}  // namespace

NoteBill MakeBill(const Note& note, const NoteBalance& balance,
                  std::span<const Shares> undelivered) {
  std::vector<Piece> pieces = PiecesOf(note, undelivered);
  const auto stt_weight = [](const Piece& piece) { return piece.total.Count() * SttRate(piece); };
  const bool taxed =
      std::ranges::any_of(pieces, [&](const Piece& piece) { return stt_weight(piece) > 0; });
  SpreadOver(pieces, note.Of(Charge::kTax), Value,
             [](Piece& piece, Paise part) { piece.entry.service_tax = part.Rupees(); });
  SpreadOver(pieces, note.Of(Charge::kStt),
             taxed ? std::function<std::int64_t(const Piece&)>(stt_weight) : Value,
             [](Piece& piece, Paise part) { piece.entry.stt = part.Rupees(); });
  if (balance.extra_brokerage > Paise()) {
    SpreadOver(pieces, balance.extra_brokerage, Value, [](Piece& piece, Paise part) {
      const double quantity = piece.entry.quantity.Number();
      piece.entry.brokerage = text::Tidy(piece.entry.brokerage + part.Rupees() / quantity);
      piece.total += piece.entry.side == Side::kPurchase ? part : -part;
      FitRate(piece);
    });
  }
  NoteBill bill;
  for (const Piece& piece : pieces) {
    bill.entries.push_back(piece.entry);
  }
  bill.transaction_charges = note.Of(Charge::kExchange).Rupees();
  bill.other_charges =
      (note.Of(Charge::kSebi) + note.Of(Charge::kStamp) + note.Of(Charge::kOther)).Rupees();
  return bill;
}

}  // namespace quorvane::notes
