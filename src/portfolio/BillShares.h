#pragma once

#include "core/ledger/Layers.h"
#include "portfolio/ImportSteps.h"
#include "portfolio/TakenDocuments.h"

#include <span>
#include <vector>

namespace quorvane::portfolio {

/// Moves the shares of a folder's bills and finds the lots of their lines.
class BillShares {
 public:
  BillShares(const Portfolio& portfolio, const ResolvedNames& names, ledger::Layers& layers,
             ErrorList& errors)
      : portfolio_(portfolio),
        names_(names),
        layers_(layers),
        errors_(errors),
        purchase_lots_(portfolio.bill_lines.size()) {}

  /// Takes in what the bill buys without delivery. Called for every bill of a day before any of
  /// them is taken: what is sold without delivery may be in an earlier bill of the day.
  void ReceiveNonDelivery(const BillRow& bill, const ledger::Place& place);

  /// Takes in what else the bill buys. Then its sales are tried.
  void ReceiveDelivered(const BillRow& bill, const ledger::Place& place);

  /// Whether sales may name a lot whose shares come in later, as in the bill window, which checks
  /// the lot's balance and no date. Allowed in the last try, which reports what each sale misses.
  enum class Ahead : std::uint8_t { kNo, kAllowed };

  /// Takes out what the bill sells. False, and nothing taken, when shares are missing.
  bool TrySales(const BillRow& bill, const ledger::Place& place, Ahead ahead);

  /// The bill's lines in file order, once its sales were taken.
  std::span<const TakenLine> Lines() const { return lines_; }

  /// To be called after the last document: tells the sales whose shares never came in.
  void ReportAdvances();

 private:
  struct SaleAhead {
    const BillLineRow* row;
    text::Shares available;  ///< when it was taken
    ledger::Layers::Advance advance;
  };

  std::span<const BillLineRow> LinesOf(const BillRow& bill) const;
  std::size_t PlaceOf(const BillLineRow& row) const;
  ledger::Layers::Taken Take(const BillLineRow& row, text::Date date, const ledger::LotKey& lot);
  void Receive(const BillRow& bill, const ledger::Place& place, bool non_delivery);
  bool TakeSale(const BillLineRow& row, text::Date date, const ledger::Place& place, Ahead ahead);
  void AddWhole(const BillLineRow& row, LotId lot);
  void AddPieces(const BillLineRow& row, std::span<const ledger::Layers::Piece> pieces);
  void ReportShortage(const BillLineRow& row, text::Shares available);

  const Portfolio& portfolio_;
  const ResolvedNames& names_;
  ledger::Layers& layers_;
  ErrorList& errors_;
  std::vector<LotId> purchase_lots_;  ///< by the place of the line in the folder
  std::vector<TakenLine> lines_;
  std::vector<SaleAhead> advances_;
};

}  // namespace quorvane::portfolio
