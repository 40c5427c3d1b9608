#pragma once

#include "portfolio/RowFields.h"

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace quorvane::portfolio {

/// Takes the rows of the master files into the portfolio. A breach of the rules goes to the errors
/// of the file; a record whose key its file has already is one.
class MasterRows {
 public:
  MasterRows(Portfolio& portfolio, RowFields& fields) : portfolio_(portfolio), fields_(fields) {}

  // The current row, which is of that file.
  void ReadParticipant();
  void ReadClient();
  void ReadAccount();
  void ReadBroker();
  void ReadScrip();
  void ReadPercentage();

 private:
  template <class Row>
  void AddUnique(std::vector<Row>& rows, Row row, int column);

  Portfolio& portfolio_;
  RowFields& fields_;
  std::set<std::pair<int, std::string>> keys_;
};

}  // namespace quorvane::portfolio
