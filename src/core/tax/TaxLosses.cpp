#include "core/tax/TaxLosses.h"

#include "core/records/Tax.h"
#include "core/records/Writing.h"
#include "core/text/Tr.h"

#include <algorithm>
#include <set>
#include <tuple>
#include <utility>

namespace quorvane::tax {
namespace {

using database::Connection;
using database::Transaction;
using text::FinancialYear;

std::ptrdiff_t PlaceOf(LossKind kind) {
  return std::ranges::find(kLossKinds, kind, &LossKindName::kind) - kLossKinds.begin();
}

std::vector<TaxLoss> LossesOf(const std::vector<records::TaxLoss>& rows) {
  std::vector<TaxLoss> losses;
  losses.reserve(rows.size());
  for (const records::TaxLoss& row : rows) {
    losses.push_back({row.client, row.year, row.loss_year, static_cast<LossKind>(row.kind),
                      text::Paise::OfRupees(row.amount)});
  }
  std::ranges::sort(losses, {}, [](const TaxLoss& loss) {
    return std::tuple(loss.client, loss.year, loss.loss_year, PlaceOf(loss.kind));
  });
  return losses;
}

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
  return LossesOf(records::Select<records::TaxLoss>(connection)
                      .Where(&records::TaxLoss::client, client)
                      .Where(&records::TaxLoss::year, year)
                      .All());
}

LossesByClient ReadTaxLosses(Connection& connection, FinancialYear year) {
  LossesByClient by_client;
  for (const TaxLoss& loss : LossesOf(records::Select<records::TaxLoss>(connection)
                                          .Where(&records::TaxLoss::year, year)
                                          .All())) {
    by_client[loss.client].push_back(loss);
  }
  return by_client;
}

std::vector<TaxLoss> ReadAllTaxLosses(Connection& connection) {
  return LossesOf(records::Select<records::TaxLoss>(connection).All());
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
  records::Delete<records::TaxLoss>(transaction)
      .Where(&records::TaxLoss::client, client)
      .Where(&records::TaxLoss::year, year)
      .Run();
  std::vector<TaxLoss> owned(losses.begin(), losses.end());
  for (TaxLoss& loss : owned) {
    loss.client = client;
    loss.year = year;
  }
  InsertTaxLosses(transaction, owned);
}

void InsertTaxLosses(Transaction& transaction, std::span<const TaxLoss> losses) {
  std::vector<records::TaxLoss> rows;
  rows.reserve(losses.size());
  for (const TaxLoss& loss : losses) {
    rows.push_back({loss.client, loss.year, loss.loss_year, static_cast<int>(loss.kind),
                    loss.amount.Rupees()});
  }
  records::Insert(transaction, std::span<const records::TaxLoss>(rows));
}

}  // namespace quorvane::tax
