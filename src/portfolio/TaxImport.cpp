#include "core/tax/FairValues.h"
#include "core/tax/TaxLosses.h"
#include "portfolio/ImportSteps.h"

#include <fmt/format.h>

#include <map>
#include <tuple>

namespace quorvane::portfolio {
namespace {

using database::Transaction;

void ImportFairValues(Transaction& transaction, const Portfolio& portfolio,
                      const ResolvedNames& names, ErrorList& errors, ImportResult& result) {
  if (portfolio.fair_values.empty()) {
    return;
  }
  tax::FairValues known = tax::ReadFairValues(transaction.GetConnection());
  tax::FairValues added;
  for (const FairValueRow& row : portfolio.fair_values) {
    const ScripId scrip = names.scrips[row.scrip];
    const auto [entry, fresh] = known.try_emplace(scrip, row.rate);
    if (fresh) {
      added.emplace(scrip, row.rate);
    } else if (entry->second != row.rate && scrip) {
      errors.Add(FileKind::kFairValues, row.line, "rate",
                 fmt::format("the scrip has the fair value {} already", entry->second));
    }
  }
  tax::SaveFairValues(transaction, added);
  result.Count(QT_TRANSLATE_NOOP("Portfolio", "fair values"), added.size());
}

void ImportTaxLosses(Transaction& transaction, const Portfolio& portfolio,
                     const ResolvedNames& names, ErrorList& errors, ImportResult& result) {
  if (portfolio.tax_losses.empty()) {
    return;
  }
  const auto key_of = [](const tax::TaxLoss& loss) {
    return std::tuple(loss.client, loss.year, loss.loss_year, loss.kind);
  };
  std::map<decltype(key_of({})), text::Paise> known;
  for (const tax::TaxLoss& loss : tax::ReadAllTaxLosses(transaction.GetConnection())) {
    known.emplace(key_of(loss), loss.amount);
  }
  std::vector<tax::TaxLoss> added;
  for (const TaxLossRow& row : portfolio.tax_losses) {
    tax::TaxLoss loss = row.record;
    loss.client = names.clients[row.client];
    const auto [entry, fresh] = known.try_emplace(key_of(loss), loss.amount);
    if (fresh) {
      added.push_back(loss);
    } else if (entry->second != loss.amount && loss.client) {
      errors.Add(FileKind::kTaxLosses, row.line, "amount",
                 fmt::format("this loss is recorded already, with {}", entry->second.Rupees()));
    }
  }
  tax::InsertTaxLosses(transaction, added);
  result.Count(QT_TRANSLATE_NOOP("Portfolio", "losses brought forward"), added.size());
}

}  // namespace

void ImportTaxRecords(Transaction& transaction, const Portfolio& portfolio,
                      const ResolvedNames& names, ErrorList& errors, ImportResult& result) {
  ImportFairValues(transaction, portfolio, names, errors, result);
  ImportTaxLosses(transaction, portfolio, names, errors, result);
}

}  // namespace quorvane::portfolio
