#include "portfolio/SameDay.h"

#include "core/text/Amounts.h"
#include "core/text/Tr.h"

#include <algorithm>

namespace quorvane::portfolio {

using records::Side;
using text::Shares;

RecordedDays ReadDays(database::Connection& connection, const DayOwner& owner,
                      const std::set<BillId>& replaced) {
  RecordedDays days;
  for (const auto& row : connection.Open(
           "Select M.BDate,M.ID,L.ScriptId,L.SP,L.DelvType,Sum(L.Qty) From SPMaster M Join SPTrans "
           "L On L.SID=M.ID and L.Cid=M.Cid Where M.Cid=? and M.AcId=? and M.BrokId=? and "
           "Coalesce(L.FO,0)=0 Group By M.BDate,M.ID,L.ScriptId,L.SP,L.DelvType",
           owner.client, owner.account, owner.broker)) {
    const auto day = text::ParseDmy(row.Utf8(0));
    if (!day || replaced.contains(BillId{row.Int(1)})) {
      continue;
    }
    DayShares& shares = days[{*day, ScripId{row.Int(2)}}];
    DaySide& side = shares.Of(row.Int(3) == 1 ? Side::kPurchase : Side::kSale);
    const bool undelivered = row.Text(4) == records::kNonDeliveryBased;
    (undelivered ? side.undelivered : side.delivered) += Shares(row.Double(5));
  }
  return days;
}

DayShares SharesOf(const RecordedDays& days, const DayScrip& of) {
  const auto found = days.find(of);
  return found == days.end() ? DayShares() : found->second;
}

DayMatch MatchDay(const DayShares& recorded, Shares bought, Shares sold) {
  const Shares both = std::min(bought, sold);
  const Shares open = recorded.bought.All() - recorded.sold.All();
  return {both + std::min(bought - both, std::max(-open, Shares())),
          both + std::min(sold - both, std::max(open, Shares()))};
}

std::optional<DayMark> MarkFor(const DayScrip& of, const DayShares& recorded,
                               const DayMatch& fresh) {
  const Shares sold = fresh.sold + recorded.sold.undelivered;
  const Shares bought = fresh.bought + recorded.bought.undelivered;
  const bool buys = sold > bought;
  const Shares missing = buys ? sold - bought : bought - sold;
  const Shares most = buys ? std::min(fresh.sold, recorded.bought.delivered)
                           : std::min(fresh.bought, recorded.sold.delivered);
  const DayMark mark{of, buys ? Side::kPurchase : Side::kSale, std::min(missing, most)};
  return mark.quantity > Shares() ? std::optional(mark) : std::nullopt;
}

QString TextOf(const DayMark& mark, const QString& scrip_name) {
  const QString told =
      mark.side == Side::kPurchase
          ? Tr("SameDay", "%1 of %2 that recorded bills of %3 bought become Non Delivery Based.")
          : Tr("SameDay", "%1 of %2 that recorded bills of %3 sold become Non Delivery Based.");
  return told.arg(text::FormatAmount(mark.quantity.Number()), scrip_name,
                  text::FormatDmy(mark.of.day));
}

}  // namespace quorvane::portfolio
