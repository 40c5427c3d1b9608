#pragma once

#include "core/records/Bill.h"
#include "core/records/Dividend.h"
#include "core/records/Money.h"
#include "core/records/Opening.h"
#include "core/records/Query.h"
#include "core/records/Transfer.h"
#include "core/text/FinancialYear.h"
#include "portfolio/Portfolio.h"

#include <optional>
#include <set>
#include <string>
#include <unordered_set>

namespace quorvane::portfolio {

// What makes two records of a kind the same document. Numbers have their shortest form, so that
// equal texts mean equal numbers.
std::string IdentityOf(const records::Bill& bill);
std::string IdentityOf(const records::Opening& opening);
std::string IdentityOf(const records::Transfer& transfer);
std::string IdentityOf(const records::Payment& payment);
std::string IdentityOf(const records::BrokerOpening& opening);
std::string IdentityOf(const records::Dividend& dividend);

/// What bills share that are told apart by their parts: as IdentityOf, but letters of the number
/// count as they are written.
std::string SharedByParts(const records::Bill& bill);

/// The documents of a kind that are in the database before an import, so that a folder taken in
/// twice is noticed.
template <class Record>
class RecordedDocuments {
 public:
  void Read(records::Select<Record> select) {
    select.Each([this](const Record& record) { Add(record); });
  }

  /// The documents of these years.
  void Read(database::Connection& connection, const std::set<text::FinancialYear>& years) {
    for (const text::FinancialYear year : years) {
      Read(records::Select<Record>(connection).Where(&Record::year, year));
    }
  }

  /// The same of one client, when there is one.
  void Read(database::Connection& connection, const std::set<text::FinancialYear>& years,
            std::optional<ClientId> client) {
    for (const text::FinancialYear year : years) {
      Read(records::Select<Record>(connection)
               .Where(&Record::year, year)
               .Where(&Record::client, client));
    }
  }

  /// False when it is there already.
  bool Add(const Record& record) { return identities_.insert(IdentityOf(record)).second; }

  bool Has(const Record& record) const {
    return !identities_.empty() && identities_.contains(IdentityOf(record));
  }

 private:
  std::unordered_set<std::string> identities_;
};

/// The years of the folder's opening stock, bills, transfers and corporate actions.
std::set<text::FinancialYear> TouchedYears(const Portfolio& portfolio);

}  // namespace quorvane::portfolio
