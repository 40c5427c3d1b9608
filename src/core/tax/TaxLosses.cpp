#include "core/tax/TaxLosses.h"

#include "core/database/BulkWriter.h"
#include "core/text/Tr.h"

#include <algorithm>
#include <set>
#include <tuple>
#include <utility>

namespace quorvane::tax {
namespace {

using database::Connection;
using database::Recordset;
using database::Transaction;
using text::FinancialYear;

std::ptrdiff_t PlaceOf(LossKind kind) {
  return std::ranges::find(kLossKinds, kind, &LossKindName::kind) - kLossKinds.begin();
}

FinancialYear YearIn(const Recordset& row, std::size_t column) {
  return FinancialYear::Parse(row.Utf8(column)).value_or(FinancialYear());
}

TaxLoss LossOf(const Recordset& row) {
  return {ClientId{row.Int(0)}, YearIn(row, 1), YearIn(row, 2), static_cast<LossKind>(row.Int(3)),
          text::Paise::OfRupees(row.Double(4))};
}

void Sort(std::vector<TaxLoss>& losses) {
  std::ranges::sort(losses, {}, [](const TaxLoss& loss) {
    return std::tuple(loss.client, loss.year, loss.loss_year, PlaceOf(loss.kind));
  });
}

constexpr std::string_view kColumns = "Select CId,Fyear,LossYear,Kind,Amount From TaxLoss";

}  // namespace

const LossKindName& NameOf(LossKind kind) {
  const auto place = static_cast<std::size_t>(PlaceOf(kind));
  return kLossKinds[std::min(place, kLossKinds.size() - 1)];
}

std::optional<LossKind> LossKindOf(std::string_view file_name) {
  const auto* found = std::ranges::find(kLossKinds, file_name, &LossKindName::file_name);
  return found == kLossKinds.end() ? std::nullopt : std::optional(found->kind);
}

std::vector<TaxLoss> ReadTaxLosses(Connection& connection, ClientId client, FinancialYear year) {
  std::vector<TaxLoss> losses;
  for (const auto& row :
       connection.Open(std::string(kColumns) + " Where CId=? and Fyear=?", client, year.Utf8())) {
    losses.push_back(LossOf(row));
  }
  Sort(losses);
  return losses;
}

std::vector<TaxLoss> ReadAllTaxLosses(Connection& connection) {
  std::vector<TaxLoss> losses;
  for (const auto& row : connection.Open(kColumns)) {
    losses.push_back(LossOf(row));
  }
  Sort(losses);
  return losses;
}

MaybeRefusal CheckTaxLoss(const TaxLoss& loss) {
  if (loss.loss_year >= loss.year) {
    return Refusal{Tr("Tax", "Enter a Year before %1.").arg(loss.year.Text()), Field::kYear};
  }
  const LossKindName& name = NameOf(loss.kind);
  const int age = loss.year.FirstCalendarYear() - loss.loss_year.FirstCalendarYear();
  if (age > name.years) {
    return Refusal{Tr("Tax", "%1: a loss of %2 may be set off up to %3.")
                       .arg(Tr("Tax", name.title), loss.loss_year.Text(),
                            FinancialYear(loss.loss_year.FirstCalendarYear() + name.years).Text()),
                   Field::kYear};
  }
  if (loss.amount <= text::Paise()) {
    return Refusal{Tr("Tax", "Enter an Amount Above Zero."), Field::kAmount};
  }
  return std::nullopt;
}

MaybeRefusal CheckTaxLosses(std::span<const TaxLoss> losses) {
  std::set<std::pair<FinancialYear, LossKind>> seen;
  for (const TaxLoss& loss : losses) {
    if (MaybeRefusal refusal = CheckTaxLoss(loss)) {
      return refusal;
    }
    if (!seen.emplace(loss.loss_year, loss.kind).second) {
      return Refusal{Tr("Tax", "%1 of %2 is Entered Twice.")
                         .arg(Tr("Tax", NameOf(loss.kind).title), loss.loss_year.Text()),
                     Field::kKind};
    }
  }
  return std::nullopt;
}

void ReplaceTaxLosses(Transaction& transaction, ClientId client, FinancialYear year,
                      std::span<const TaxLoss> losses) {
  transaction.Execute("Delete From TaxLoss Where CId=? and Fyear=?", client, year.Utf8());
  std::vector<TaxLoss> owned(losses.begin(), losses.end());
  for (TaxLoss& loss : owned) {
    loss.client = client;
    loss.year = year;
  }
  InsertTaxLosses(transaction, owned);
}

void InsertTaxLosses(Transaction& transaction, std::span<const TaxLoss> losses) {
  database::BulkWriter insert(
      transaction, "Insert Into TaxLoss(CId,Fyear,LossYear,Kind,Amount) Values(?,?,?,?,?)",
      "ittid");
  for (const TaxLoss& loss : losses) {
    insert.Int(loss.client.value)
        .Text(loss.year.Utf8())
        .Text(loss.loss_year.Utf8())
        .Int(static_cast<int>(loss.kind))
        .Double(loss.amount.Rupees())
        .EndRow();
  }
  insert.Finish();
}

}  // namespace quorvane::tax
