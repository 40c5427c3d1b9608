#include "portfolio/ImportLock.h"

#include "core/database/Keys.h"
#include "core/records/Query.h"

namespace quorvane::portfolio {

std::set<text::FinancialYear> TouchedYears(const Portfolio& portfolio) {
  std::set<text::FinancialYear> years;
  for (const OpeningRow& row : portfolio.openings) {
    years.insert(row.record.year);
  }
  const auto add_dates = [&](const auto& rows) {
    text::Date last{};
    for (const auto& row : rows) {
      if (row.date != last || years.empty()) {
        years.insert(text::FinancialYear::Of(row.date));
        last = row.date;
      }
    }
  };
  add_dates(portfolio.bills);
  add_dates(portfolio.transfers);
  return years;
}

ledger::Lots WaitForOtherWriters(database::Transaction& transaction,
                                 const std::set<text::FinancialYear>& years) {
  // Not the lookup tables that every program looks into while it starts: it would wait, too.
  for (const std::string_view table :
       {"ClientInfo", "DepPart", "DpIDs", "ClientActDet", "Broker", "Script", "TransTaxPer",
        "StkOpBal", "BrOpBal", "BrPayment", "BrRec", "MarketRate"}) {
    database::NextKey(transaction, table);
  }
  for (const std::string_view table : {"SPMaster", "ScrTransfer"}) {
    database::NextKey(transaction, table, "ID");
  }
  ledger::Lots lots;
  for (const text::FinancialYear year : years) {
    records::Select<records::Lot>(transaction.GetConnection())
        .Where(&records::Lot::year, year)
        .OrderBy(&records::Lot::id)
        .ForUpdate()
        .Each([&](const records::Lot& lot) { lots.Load(lot); });
  }
  return lots;
}

}  // namespace quorvane::portfolio
