#include "reports/tax/Members.h"

#include "core/database/Transaction.h"

#include <algorithm>
#include <utility>

namespace quorvane::tax_year {
namespace {

bool Lacks(const Member& member) {
  return !IsCarried(member.tax.year, member.tax.left_before);
}

}  // namespace

Result<Law> Law::Load(const QString& data_folder, text::FinancialYear year) {
  Result<tax::Rules> rules = tax::Rules::Load(data_folder, year);
  if (!rules) {
    return rules.Why();
  }
  Law law{std::move(*rules), std::nullopt};
  if (Result<tax::Rules> before = tax::Rules::Load(data_folder, year.Previous())) {
    law.before = std::move(*before);
  }
  return law;
}

std::vector<Member> ReadMembers(database::Connection& connection,
                                const lookups::Directory& directory, const Law& law,
                                std::span<const ClientId> clients, Progress& progress) {
  const TaxBook book(connection, directory, law.rules, law.before ? &*law.before : nullptr);
  CheckList list(connection, directory);
  std::vector<Member> members;
  members.reserve(clients.size());
  for (ClientTax& client : book.Of(clients, progress)) {
    auto points = list.PointsOf(client, progress);
    members.push_back({std::move(client), std::move(points)});
  }
  return members;
}

bool LacksLosses(std::span<const Member> members) {
  return std::ranges::any_of(members, Lacks);
}

void CarryLosses(database::Connection& connection, std::span<const Member> members) {
  const auto carry = [&](database::Transaction& transaction) {
    for (const Member& member : members) {
      if (Lacks(member)) {
        const ClientYear& of = member.tax.year.of;
        const auto entered = tax::ReadTaxLosses(transaction.GetConnection(), of.client, of.year);
        tax::ReplaceTaxLosses(transaction, of.client, of.year,
                              Carried(of, entered, member.tax.left_before));
      }
    }
  };
  // Alone, and what was entered is read again: another program may have added to it since.
  database::InTransaction(connection, carry, database::Turn::kAlone);
}

}  // namespace quorvane::tax_year
