#include "transactions/dividends/DividendBook.h"

#include "core/database/Keys.h"
#include "core/records/Writing.h"
#include "core/text/Dates.h"
#include "core/text/Tr.h"
#include "transactions/posting/Owner.h"

#include <algorithm>

namespace quorvane::dividends {
namespace {

using database::Transaction;

MaybeRefusal CheckOwners(Transaction& transaction, const Dividend& dividend,
                         const std::optional<Dividend>& old) {
  if (MaybeRefusal refusal = posting::CheckClient(transaction, dividend.client, Field::kNone)) {
    return refusal;
  }
  const AccountId account = old ? old->account : AccountId{};
  if (MaybeRefusal refusal = posting::CheckAccount(transaction, dividend.client, dividend.account,
                                                   account, Field::kAccount)) {
    return refusal;
  }
  return posting::CheckScrip(transaction, dividend.scrip, old ? old->scrip : ScripId{},
                             Field::kScrip);
}

std::optional<Dividend> ReadForUpdate(Transaction& transaction, DividendId id) {
  return records::Select<Dividend>(transaction.GetConnection())
      .Where(&Dividend::id, id)
      .ForUpdate()
      .First();
}

}  // namespace

MaybeRefusal CheckDividend(const Dividend& dividend, text::FinancialYear year) {
  if (!dividend.account) {
    return Refusal{Tr("Dividends", "Select Demat Account."), Field::kAccount};
  }
  if (!dividend.scrip) {
    return Refusal{Tr("Dividends", "Select Script."), Field::kScrip};
  }
  const auto date = text::ParseDmy(dividend.date);
  if (!date) {
    return Refusal{Tr("Dividends", "Enter Proper Date."), Field::kDate};
  }
  if (!year.Contains(*date)) {
    return Refusal{Tr("Dividends", "Enter a Date within the Financial Year."), Field::kDate};
  }
  if (dividend.quantity <= text::Shares()) {
    return Refusal{Tr("Dividends", "Enter Quantity."), Field::kQuantity};
  }
  if (!(dividend.per_share > 0)) {
    return Refusal{Tr("Dividends", "Enter the Dividend per Share."), Field::kRate};
  }
  if (dividend.tax_deducted < 0 || dividend.tax_deducted > dividend.Gross()) {
    return Refusal{Tr("Dividends", "Enter Tax Deducted between 0 and the Dividend."), Field::kTax};
  }
  return std::nullopt;
}

std::vector<Dividend> DividendBook::List() const {
  std::vector<Dividend> all = records::Select<Dividend>(connection_)
                                  .Where(&Dividend::client, of_.client)
                                  .OrderByDay(&Dividend::date)
                                  .OrderBy(&Dividend::id)
                                  .All();
  std::erase_if(all, [this](const Dividend& dividend) {
    const auto date = text::ParseDmy(dividend.date);
    return !date || !of_.year.Contains(*date);
  });
  return all;
}

std::optional<Dividend> DividendBook::Load(DividendId id) const {
  return records::Select<Dividend>(connection_)
      .Where(&Dividend::client, of_.client)
      .Where(&Dividend::id, id)
      .First();
}

Result<DividendId> DividendBook::Save(const Dividend& entered) {
  Dividend dividend = entered;
  dividend.client = of_.client;
  if (MaybeRefusal refusal = CheckDividend(dividend, of_.year)) {
    return *refusal;
  }
  DividendId saved;
  const MaybeRefusal refusal =
      database::InTransaction(connection_, [&](Transaction& transaction) -> MaybeRefusal {
        Dividend written = dividend;
        const std::optional<Dividend> old =
            written.id ? ReadForUpdate(transaction, written.id) : std::nullopt;
        if (MaybeRefusal broken = CheckOwners(transaction, written, old)) {
          return broken;
        }
        written.action = old ? old->action : ActionId{};
        written.id = records::ClaimKey(transaction, &Dividend::id, written.id);
        records::Insert(transaction, written);
        saved = written.id;
        return std::nullopt;
      });
  if (refusal) {
    return *refusal;
  }
  return saved;
}

void DividendBook::Delete(DividendId id) {
  database::InTransaction(connection_, [&](Transaction& transaction) {
    records::Delete<Dividend>(transaction)
        .Where(&Dividend::client, of_.client)
        .Where(&Dividend::id, id)
        .Run();
  });
}

}  // namespace quorvane::dividends
