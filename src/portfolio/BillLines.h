#pragma once

#include "core/Ids.h"
#include "portfolio/HoldingsBook.h"
#include "portfolio/Portfolio.h"

#include <vector>

namespace quorvane::portfolio {

/// A bill line as it is recorded. A row of the file that sells from several lots gives several.
struct RecordedLine {
  LotId lot;
  const BillLineRow* row = nullptr;
  double quantity = 0;
  double net = 0;          ///< rupees a share
  double amount = 0;       ///< rupees
  double service_tax = 0;  ///< rupees
  double stt = 0;          ///< rupees
};

/// The line of a row that stays whole.
RecordedLine WholeLine(const BillLineRow& row, LotId lot);

/// Appends a line for each lot that a sale draws on. The row's charges are spread over them by
/// quantity, to the paisa: up to any line the charges are the rounded part of the shares so far, so
/// that none is negative and the sum stays.
void AppendSplitLines(const BillLineRow& row, const std::vector<HoldingsBook::Piece>& pieces,
                      std::vector<RecordedLine>& lines);

}  // namespace quorvane::portfolio
