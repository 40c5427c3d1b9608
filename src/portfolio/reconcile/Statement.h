#pragma once

#include "core/text/Dates.h"
#include "core/text/Shares.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace quorvane::reconcile {

/// A security that a statement says an account holds. UTF-8.
struct StatedHolding {
  std::string account;  ///< as Statement::accounts; empty when the statement names none
  std::string isin;
  std::string name;
  std::string symbol;  ///< at an exchange; empty when it is not told
  text::Shares quantity;
  double price = 0;      ///< rupees; 0 when it is not told
  std::size_t line = 0;  ///< of the text, from 1 on
};

/// A row that could not be understood.
struct Doubt {
  std::string account;  ///< as StatedHolding::account
  std::string text;     ///< "line 7: INE...: why", in English
};

/// What a depository or a participant says is held.
struct Statement {
  std::optional<text::Date> day;      ///< at whose end
  std::vector<std::string> accounts;  ///< in the order in which they come, each once
  std::vector<StatedHolding> holdings;

  std::vector<Doubt> doubts;   ///< in the order of the rows
  std::size_t folio_rows = 0;  ///< units of mutual funds that are in no demat account
  std::string no_holdings;     ///< "MARGIN STATEMENT" when it is something else
};

}  // namespace quorvane::reconcile
