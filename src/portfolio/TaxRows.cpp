#include "core/tax/FairValues.h"
#include "portfolio/PortfolioRows.h"

#include <array>

namespace quorvane::portfolio {
namespace {

constexpr auto kKindWords = [] {
  std::array<std::string_view, tax::kLossKinds.size()> words;
  for (std::size_t i = 0; i < words.size(); ++i) {
    words[i] = tax::kLossKinds[i].file_name;
  }
  return words;
}();

std::size_t ColumnOf(Field field) {
  using namespace tax_losses;
  if (field == Field::kAmount) {
    return kAmount;
  }
  return field == Field::kYear ? kLossYear : kKind;
}

}  // namespace

void TaxRows::ReadFairValue() {
  using namespace fair_values;
  FairValueRow row;
  row.scrip = fields_.Scrip(kScripCode);
  row.rate = fields_.Table().PositiveNumber(kRate);
  row.line = fields_.Table().Line();
  if (row.rate > 0) {
    if (const MaybeRefusal refusal = tax::CheckFairValue(row.rate)) {
      fields_.Table().Fail(kRate, refusal->text.toStdString());
    }
  }
  portfolio_.fair_values.push_back(row);
}

void TaxRows::ReadTaxLoss() {
  using namespace tax_losses;
  TaxLossRow row;
  row.client = fields_.Client(kClientCode);
  const auto year = fields_.Table().YearOf(kFyear);
  const int kind = fields_.Table().Choice(kKind, kKindWords);
  const double amount = fields_.Table().PositiveNumber(kAmount);
  const bool has_loss_year = !fields_.Table().IsWord(kLossYear, "");
  const auto loss_year = has_loss_year ? fields_.Table().YearOf(kLossYear) : std::nullopt;
  row.line = fields_.Table().Line();
  if (!year || kind < 0 || !(amount > 0) || (has_loss_year && !loss_year)) {
    return;
  }
  row.record.year = *year;
  row.record.loss_year = loss_year.value_or(year->Previous());
  row.record.kind = tax::kLossKinds[static_cast<std::size_t>(kind)].kind;
  row.record.amount = text::Paise::OfRupees(amount);
  if (const MaybeRefusal refusal = tax::CheckTaxLoss(row.record)) {
    fields_.Table().Fail(ColumnOf(refusal->field), refusal->text.toStdString());
  }
  portfolio_.tax_losses.push_back(row);
}

}  // namespace quorvane::portfolio
