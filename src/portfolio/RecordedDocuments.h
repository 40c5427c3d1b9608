#pragma once

#include "core/ClientYear.h"
#include "core/database/Transaction.h"
#include "portfolio/Portfolio.h"

#include <set>
#include <string>
#include <unordered_set>

namespace quorvane::portfolio {

/// The documents that stand in the database before an import, in the years that it touches, so that
/// a folder taken in twice is noticed.
class RecordedDocuments {
 public:
  RecordedDocuments(database::Transaction& transaction, std::set<text::FinancialYear> years);

  const std::set<text::FinancialYear>& Years() const { return years_; }
  bool IsEmpty(text::FinancialYear year) const { return !used_years_.contains(year); }

  /// `day` is the document's date as dd/mm/yyyy.
  bool HasBill(const ClientYear& of, AccountId account, BrokerId broker, const BillRow& bill,
               const std::string& day) const;
  bool HasOpening(const ClientYear& of, AccountId account, ScripId scrip,
                  const OpeningRow& row) const;
  bool HasTransfer(text::FinancialYear year, AccountId from, AccountId to, ScripId scrip,
                   const TransferRow& row, const std::string& day) const;

 private:
  void Read(database::Transaction& transaction, text::FinancialYear year);

  std::set<text::FinancialYear> years_;
  std::set<text::FinancialYear> used_years_;
  std::unordered_set<std::string> bills_;
  std::unordered_set<std::string> openings_;
  std::unordered_set<std::string> transfers_;
};

}  // namespace quorvane::portfolio
