#pragma once

#include "core/database/BulkWriter.h"
#include "core/database/Transaction.h"
#include "portfolio/BillLines.h"
#include "portfolio/HoldingsBook.h"
#include "portfolio/MasterImport.h"
#include "portfolio/Portfolio.h"
#include "transactions/bills/Bill.h"

#include <span>
#include <string>
#include <vector>

namespace quorvane::portfolio {

/// The accounts that a transfer joins, and their owners.
struct TransferEnds {
  ResolvedNames::Owned from;
  ResolvedNames::Owned to;
};

/// A day as records have it.
struct RecordDay {
  text::FinancialYear year{0};
  std::string year_text;
  std::string text;  ///< "dd/mm/yyyy"

  static RecordDay Of(text::Date date);
};

/// Writes the records of an import, each with the next free key of its table, and the lots that
/// they leave. What a record may hold was decided before.
class MovementRecords {
 public:
  MovementRecords(database::Transaction& transaction, const ResolvedNames& names);

  void WriteOpening(const OpeningRow& row, ClientId client, AccountId account);

  /// With its lines, in their order.
  void WriteBill(const BillRow& bill, ClientId client, AccountId account, const RecordDay& day,
                 std::span<const RecordedLine> lines);
  void WriteTransfer(const TransferRow& row, const TransferEnds& ends, LotId lot,
                     const RecordDay& day);

  /// To be called once, at the end.
  void Finish(const HoldingsBook& book);

  std::size_t LineCount() const { return line_count_; }

 private:
  void WriteLine(const RecordedLine& line, ClientId client, int bill, int number,
                 const RecordDay& day);
  void WriteLots(const HoldingsBook& book);

  database::Transaction& transaction_;
  const ResolvedNames& names_;
  database::BulkWriter openings_;
  database::BulkWriter bills_;
  database::BulkWriter lines_;
  database::BulkWriter transfers_;
  int next_opening_;
  int next_bill_;
  int next_transfer_;
  std::size_t line_count_ = 0;
  std::vector<quorvane::bills::BillLine> totals_lines_;
};

}  // namespace quorvane::portfolio
