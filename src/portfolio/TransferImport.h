#pragma once

#include "core/ledger/Layers.h"
#include "portfolio/ImportSteps.h"
#include "portfolio/RecordedDocuments.h"
#include "portfolio/TakenDocuments.h"

#include <optional>
#include <set>
#include <vector>

namespace quorvane::portfolio {

/// Takes the transfers of a date in: from the layers of one account into those of another, and to
/// the documents that will be written. What is refused goes to the errors.
class TransferImport {
 public:
  TransferImport(const ResolvedNames& names, ledger::Layers& layers, TakenDocuments& documents,
                 ErrorList& errors)
      : names_(names), layers_(layers), documents_(documents), errors_(errors) {}

  /// The transfers that are recorded in these years: one that is there already is an error.
  void ReadRecorded(database::Connection& connection, const std::set<text::FinancialYear>& years) {
    recorded_.Read(connection, years);
  }

  /// A transfer of the date; the row outlives the import.
  void Add(const TransferRow& row) { open_.push_back(&row); }

  /// Takes those for which there are shares now; true when there was one.
  bool ApplyPossible();

  /// Takes all that are left: a transfer may need what another one of its date brings. The others
  /// are errors.
  void ApplyRest();

 private:
  struct Ends {
    ResolvedNames::Owned from;
    ResolvedNames::Owned to;
  };

  bool Apply(const TransferRow& row, bool report);
  std::optional<Ends> EndsOf(const TransferRow& row, bool report);
  std::vector<ResolvedNames::Owned> AccountsOf(Symbol number, std::optional<Symbol> client) const;

  const ResolvedNames& names_;
  ledger::Layers& layers_;
  TakenDocuments& documents_;
  ErrorList& errors_;
  RecordedDocuments<records::Transfer> recorded_;
  std::vector<const TransferRow*> open_;
};

}  // namespace quorvane::portfolio
