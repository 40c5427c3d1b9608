#include "core/ledger/Rebuild.h"
#include "core/records/Movements.h"

#include <set>
#include <string>
#include <utility>

namespace quorvane::ledger {
namespace {

using records::Movement;
using records::MovementKind;

/// The lots of a scope and what the documents add up to for each.
class Recount {
 public:
  Recount(Connection& connection, const std::optional<ClientYear>& of, Progress& progress)
      : connection_(connection), of_(of), progress_(progress) {}

  StockCheck Run() {
    const LotScope scope = of_ ? LotScope::Of(*of_) : LotScope{};
    for (const records::Lot& lot : ReadLots(connection_, scope)) {
      lots_.Load(lot);
    }
    lots_.Empty();
    records::MovementScope movements;
    movements.charges = false;
    movements.every_transfer = true;
    if (of_) {
      movements.client = of_->client;
      movements.year = of_->year;
    }
    records::ReadMovements(connection_, movements, check_.faults, progress_,
                           [this](const Movement& movement) { Count(movement); });
    AddChanges();
    AddSalesWithoutLot();
    return std::move(check_);
  }

 private:
  using PlaceOfScrip = std::pair<Place, ScripId>;

  struct SaleWithoutLot {
    PlaceOfScrip place;
    int bill = 0;
    std::string date;  ///< dd/mm/yyyy
  };

  static LotKey KeyOf(const Movement& m) {
    return {{m.client, m.year}, m.account, m.scrip, m.rate};
  }

  void Count(const Movement& m) {
    switch (m.kind) {
      case MovementKind::kOpening:
      case MovementKind::kActionIn:
      case MovementKind::kPurchase:
        return AddIn(m);
      case MovementKind::kActionOut:
        return TakeByAction(m);
      case MovementKind::kSale:
        return TakeSale(m);
      case MovementKind::kTransferIn:
      case MovementKind::kTransferOut:
        return Move(m);
    }
  }

  /// A purchase usually names the lot that it belongs to, which saves the search for it.
  void AddIn(const Movement& m) {
    const LotKey key = KeyOf(m);
    const records::Lot* lot = m.lot ? lots_.Find(m.lot) : nullptr;
    if (lot == nullptr || ledger::KeyOf(*lot) != key || lots_.IsDuplicate(m.lot)) {
      lot = lots_.Find(key);
    }
    if (lot != nullptr) {
      lots_.AdjustLotQty(Posting::kAdd, lot->id, m.quantity);
    }
  }

  void TakeSale(const Movement& m) {
    const Place place{{m.client, m.year}, m.account};
    if (lots_.Find(place, m.lot, m.scrip) != nullptr) {
      lots_.AdjustLotQty(Posting::kSubtract, m.lot, m.quantity);
    } else {
      without_lot_.push_back(
          {{place, m.scrip}, m.document, m.dated ? text::FormatDmy(m.date).toStdString() : ""});
    }
  }

  void TakeByAction(const Movement& m) {
    if (const records::Lot* lot = lots_.Find(KeyOf(m))) {
      lots_.AdjustLotQty(Posting::kSubtract, lot->id, m.quantity);
    }
  }

  void AddSalesWithoutLot() {
    std::set<PlaceOfScrip> held;
    for (const Lots::Entry& entry : lots_.Entries()) {
      if (without_lot_.empty()) {
        break;
      }
      held.insert({{entry.lot.Of(), entry.lot.account}, entry.lot.scrip});
    }
    for (const auto& [place, bill, date] : without_lot_) {
      if (held.contains(place)) {
        check_.faults.push_back(
            {records::FaultKind::kSaleWithoutLot, place.first.of.client, bill, {}, date});
      }
    }
  }

  /// A transfer counts for its accounts, whoever is recorded as their client.
  void Move(const Movement& m) {
    const Shares change = m.kind == MovementKind::kTransferIn ? m.quantity : -m.quantity;
    lots_.ForEachClientAt(KeyOf(m), [&](records::Lot& lot) { lot.quantity += change; });
  }

  void AddChanges() {
    for (const Lots::Entry& entry : lots_.Entries()) {
      const records::Lot* kept = entry.duplicate ? lots_.Find(ledger::KeyOf(entry.lot)) : nullptr;
      if (kept != nullptr && kept->id == entry.lot.id) {
        // Which of two rows of one number is deleted is open; the one that stays gets its quantity.
        check_.changes.push_back({*kept, kept->quantity, false});
      }
      if (entry.duplicate || entry.lot.quantity != entry.stored) {
        records::Lot stored = entry.lot;
        stored.quantity = entry.stored;
        check_.changes.push_back({stored, entry.lot.quantity, entry.duplicate});
      }
    }
  }

  Connection& connection_;
  std::optional<ClientYear> of_;
  Progress& progress_;
  Lots lots_;
  std::vector<SaleWithoutLot> without_lot_;
  StockCheck check_;
};

}  // namespace

StockCheck CheckStock(Connection& connection, const std::optional<ClientYear>& of,
                      Progress& progress) {
  return Recount(connection, of, progress).Run();
}

}  // namespace quorvane::ledger
