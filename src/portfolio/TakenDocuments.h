#pragma once

#include "core/Progress.h"
#include "core/ledger/Lots.h"
#include "portfolio/ImportSteps.h"
#include "portfolio/Portfolio.h"

#include <span>
#include <vector>

namespace quorvane::portfolio {

/// A bill line as it is recorded. A row of the file that sells from several lots gives several.
struct TakenLine {
  const BillLineRow* row = nullptr;
  LotId lot;  ///< below 0 while the lot is new
  text::Shares quantity;
  double service_tax = 0;  ///< rupees
  double stt = 0;          ///< rupees
};

/// Documents of a folder in the order in which they are recorded, with the lots that they move.
/// They are not checked here.
class TakenDocuments {
 public:
  TakenDocuments(const Portfolio& portfolio, const ResolvedNames& names)
      : portfolio_(portfolio), names_(names) {}

  /// The header of a bill, without its totals.
  records::Bill HeaderOf(const BillRow& bill, ClientId client, AccountId account) const;

  void Add(records::Opening opening) { openings_.push_back(std::move(opening)); }
  void Add(records::Transfer transfer) { transfers_.push_back(std::move(transfer)); }

  /// With its lines, in their order.
  void Add(const BillRow& bill, ClientId client, AccountId account,
           std::span<const TakenLine> lines);

  std::size_t LineCount() const { return lines_.size(); }

  /// Writes the lots and then the documents, each with the next free key of its table. A step of
  /// `progress` is a bill line.
  void Write(database::Transaction& transaction, ledger::Lots& lots, Progress& progress);

 private:
  struct TakenBill {
    const BillRow* row;
    ClientId client;
    AccountId account;
    std::uint32_t line_count;
  };

  void WriteBills(database::Transaction& transaction, const ledger::Lots& lots, Progress& progress);
  records::BillLine LineOf(const TakenLine& line, const records::Bill& bill) const;

  const Portfolio& portfolio_;
  const ResolvedNames& names_;
  std::vector<records::Opening> openings_;
  std::vector<records::Transfer> transfers_;
  std::vector<TakenBill> bills_;
  std::vector<TakenLine> lines_;  ///< bill by bill
};

}  // namespace quorvane::portfolio
