#include "masters/client_list/ClientList.h"

#include "core/ledger/Rebuild.h"
#include "core/text/Tr.h"

#include <algorithm>

namespace quorvane::client_list {
namespace {

constexpr int kFirstCalendarYear = 2005;

}  // namespace

text::FinancialYear DefaultYear(text::Date today) {
  return std::max(text::FinancialYear(kFirstCalendarYear), text::FinancialYear::Of(today));
}

std::vector<text::FinancialYear> YearsUpTo(text::Date today) {
  std::vector<text::FinancialYear> years{text::FinancialYear(kFirstCalendarYear)};
  while (years.back() < DefaultYear(today)) {
    years.push_back(years.back().Next());
  }
  return years;
}

bool HasClients(database::Connection& connection) {
  auto rows = connection.Open("Select Id From ClientInfo Limit 1");
  return rows.Next();
}

std::vector<ListedClient> ListClients(database::Connection& connection) {
  std::vector<ListedClient> clients;
  for (const auto& row : connection.Open("Select Id,Code,Name From ClientInfo Order By Name,Id")) {
    clients.push_back({ClientId{row.Int(0)}, row.Text(1), row.Text(2)});
  }
  return clients;
}

QString UpdateStock(database::Connection& connection, const ClientYear& of, Progress& progress) {
  ledger::RebuildStock(connection, of, progress);
  return Tr("ClientList", "Stock is Updated Successfully !!!");
}

}  // namespace quorvane::client_list
