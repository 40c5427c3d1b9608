#include "masters/client_list/ClientList.h"

#include "core/ledger/Rebuild.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>

namespace quorvane::client_list {
namespace {

constexpr int kFirstCalendarYear = 2005;

constexpr std::array kTargets{
    Target{"FrmSalePurchase", "FrmSalePurchase"},
    Target{"FrmStkOpBalance", "FrmStkOpBalance"},
    Target{"FrmBrOpBal", "FrmBrOpBal"},
    Target{"FrmBrPayment", "FrmBrPayment"},
    Target{"FrmBrRec", "FrmBrPayment"},
    Target{"FrmScriptTransfer", "FrmScriptTransfer"},
    Target{"RptBrokerLedger", "RptBrokerLedger"},
    Target{"RptDMatStatement", "RptDMatStatement"},
    Target{"RptTransaction", "RptDMatStatement"},
    Target{"RptProfitStatement", "RptProfitStatement"},
    Target{"RptCapitalGain", "RptProfitStatement"},
    Target{kUpdateStock, nullptr},
};

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

std::optional<Target> FindTarget(const QString& name) {
  const auto found = std::ranges::find_if(kTargets, [&](const Target& target) {
    return name.compare(QLatin1String(target.name), Qt::CaseInsensitive) == 0;
  });
  return found == kTargets.end() ? std::nullopt : std::optional(*found);
}

QString UpdateStock(database::Connection& connection, const ClientYear& of, Progress& progress) {
  ledger::RebuildStock(connection, of, progress);
  return QCoreApplication::translate("ClientList", "Stock is Updated Successfully !!!");
}

}  // namespace quorvane::client_list
