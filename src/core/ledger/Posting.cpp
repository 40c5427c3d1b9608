#include "core/ledger/Posting.h"

namespace quorvane::ledger {
namespace {

using records::ActionLot;
using records::BillLine;
using records::Opening;
using records::Transfer;

LotKey KeyOf(const Opening& opening) {
  return {{opening.client, opening.year}, opening.account, opening.scrip, opening.rate};
}

LotKey KeyAt(const Place& place, ScripId scrip, double rate) {
  return {place.of, place.account, scrip, rate};
}

/// Takes shares from a lot that should be there.
void TakeFrom(Lots& lots, const LotKey& key, Shares quantity) {
  if (lots.Find(key) != nullptr) {
    lots.PostLot(Posting::kSubtract, key, quantity);
  } else {
    lots.PostUnknown(Posting::kSubtract, {}, key.scrip, quantity);
  }
}

void Move(Lots& lots, const Transfer& transfer, const Place& from, const Place& to) {
  lots.PostLot(Posting::kAdd, KeyAt(to, transfer.scrip, transfer.rate), transfer.quantity);
  TakeFrom(lots, KeyAt(from, transfer.scrip, transfer.rate), transfer.quantity);
}

LotKey OutOf(const ActionLot& action) {
  return {action.Of(), action.account, action.scrip, action.rate};
}

LotKey InOf(const ActionLot& action) {
  return {action.Of(), action.account, action.to_scrip, action.to_rate};
}

void PostSale(Lots& lots, const Place& place, BillLine& line) {
  const auto* lot = line.lot.value < 0 ? lots.Find(KeyAt(place, line.scrip, line.lot_rate))
                                       : lots.Find(place, line.lot, line.scrip);
  if (lot != nullptr) {
    line.lot = lot->id;
    lots.AdjustLotQty(Posting::kSubtract, line.lot, line.quantity);
  } else {
    lots.PostUnknown(Posting::kSubtract, line.lot, line.scrip, line.quantity);
  }
}

}  // namespace

void Post(Lots& lots, const Opening& opening) {
  lots.PostLot(Posting::kAdd, KeyOf(opening), opening.quantity);
}

void TakeBack(Lots& lots, const Opening& opening) {
  TakeFrom(lots, KeyOf(opening), opening.quantity);
}

void Post(Lots& lots, const ActionLot& action) {
  if (action.in) {
    lots.PostLot(Posting::kAdd, InOf(action), action.in);
  }
  if (action.out) {
    TakeFrom(lots, OutOf(action), action.out);
  }
}

void TakeBack(Lots& lots, const ActionLot& action) {
  if (action.out) {
    lots.PostLot(Posting::kAdd, OutOf(action), action.out);
  }
  if (action.in) {
    TakeFrom(lots, InOf(action), action.in);
  }
}

Place SourceOf(const Transfer& transfer) {
  return {{transfer.client, transfer.year}, transfer.from};
}

Place DestinationOf(const Transfer& transfer) {
  return {{transfer.to_client, transfer.year}, transfer.to};
}

void Post(Lots& lots, const Transfer& transfer) {
  Move(lots, transfer, SourceOf(transfer), DestinationOf(transfer));
}

void TakeBack(Lots& lots, const Transfer& transfer) {
  Move(lots, transfer, DestinationOf(transfer), SourceOf(transfer));
}

void PostLines(Lots& lots, const Place& place, std::span<BillLine> lines) {
  for (BillLine& line : lines) {
    if (line.IsPurchase()) {
      line.lot = lots.PostLot(Posting::kAdd, KeyAt(place, line.scrip, line.rate), line.quantity);
    }
  }
  for (BillLine& line : lines) {
    if (!line.IsPurchase() && line.lot) {
      PostSale(lots, place, line);
    }
  }
}

void TakeBackLines(Lots& lots, const Place& place, std::span<const BillLine> lines) {
  for (const BillLine& line : lines) {
    if (line.IsPurchase()) {
      TakeFrom(lots, KeyAt(place, line.scrip, line.rate), line.quantity);
    } else if (lots.Find(place, line.lot, line.scrip) != nullptr) {
      lots.AdjustLotQty(Posting::kAdd, line.lot, line.quantity);
    } else if (line.lot) {
      lots.PostUnknown(Posting::kAdd, line.lot, line.scrip, line.quantity);
    }
  }
}

void NumberLots(const Lots& lots, std::span<BillLine> lines) {
  for (BillLine& line : lines) {
    line.lot = lots.Numbered(line.lot);
  }
}

}  // namespace quorvane::ledger
