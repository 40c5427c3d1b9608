#include "portfolio/SameDay.h"

#include "core/text/Amounts.h"
#include "core/text/Tr.h"

#include <algorithm>

namespace quorvane::portfolio {

using records::Side;
using text::Shares;

DayTotals DeliveredInBills(database::Connection& connection, const DayOwner& owner,
                           const std::set<BillId>& replaced) {
  DayTotals totals;
  for (const auto& row : connection.Open(
           "Select M.BDate,M.ID,L.ScriptId,L.SP,Sum(L.Qty) From SPMaster M Join SPTrans L On "
           "L.SID=M.ID and L.Cid=M.Cid Where M.Cid=? and M.AcId=? and M.BrokId=? and "
           "Coalesce(L.FO,0)=0 and Coalesce(L.DelvType,'')<>? Group By "
           "M.BDate,M.ID,L.ScriptId,L.SP",
           owner.client, owner.account, owner.broker, records::kNonDeliveryBased)) {
    const auto day = text::ParseDmy(row.Utf8(0));
    if (day && !replaced.contains(BillId{row.Int(1)})) {
      const Side side = row.Int(3) == 1 ? Side::kPurchase : Side::kSale;
      totals[{*day, ScripId{row.Int(2)}}].Of(side) += Shares(row.Double(4));
    }
  }
  return totals;
}

QStringList OppositeInBills(const DayTotals& fresh, const DayTotals& recorded,
                            const lookups::Directory& directory) {
  constexpr qsizetype kMostTold = 10;
  QStringList told;
  for (const auto& [of, shares] : fresh) {
    const auto found = recorded.find(of);
    if (found == recorded.end()) {
      continue;
    }
    const Shares sold = std::min(shares.bought, found->second.sold);
    const Shares bought = std::min(shares.sold, found->second.bought);
    const QString text =
        bought > sold
            ? Tr("SameDay",
                 "Recorded bills of %1 bought %2 of %3: what was settled without delivery is to be "
                 "marked Non Delivery Based in both bills.")
            : Tr("SameDay",
                 "Recorded bills of %1 sold %2 of %3: what was settled without delivery is to be "
                 "marked Non Delivery Based in both bills.");
    if (const Shares both = std::max(bought, sold)) {
      told << text.arg(text::FormatDmy(of.day), text::FormatAmount(both.Number()),
                       QString::fromStdString(directory.Scrip(of.scrip).name));
    }
  }
  if (const qsizetype more = told.size() - kMostTold; more > 0) {
    told = told.mid(0, kMostTold) << Tr("SameDay", "and %1 more").arg(more);
  }
  return told;
}

}  // namespace quorvane::portfolio
