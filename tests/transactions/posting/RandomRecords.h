#pragma once

#include "support/Desk.h"
#include "transactions/bills/BillEntry.h"
#include "transactions/opening_stock/OpeningStockBook.h"
#include "transactions/transfers/TransferBook.h"

#include <algorithm>
#include <array>
#include <random>
#include <vector>

namespace quorvane::test {

/// Saves, changes and deletes records at random over several clients and accounts, as an office
/// would that makes many mistakes: about half of what it tries has to be refused.
class RandomRecords {
 public:
  /// A client beside those of the desk.
  struct Third {
    explicit Third(Desk& desk) : client(desk.database.AddClient(QStringLiteral("C3"))) {
      for (const char* number : {"3001", "3002"}) {
        accounts.push_back(desk.database.AddAccount(client, QLatin1String(number)));
      }
    }
    ClientId client;
    std::vector<AccountId> accounts;
  };

  /// Works over `connection`, which is the desk's or one of several programs'.
  RandomRecords(Desk& desk, const Third& third, database::Connection& connection, unsigned seed)
      : desk_(desk), connection_(connection), random_(seed) {
    AddOwner(desk.client, {desk.account, desk.second_account});
    AddOwner(desk.other_client, {desk.other_account});
    AddOwner(third.client, third.accounts);
  }

  /// Tries one more thing.
  MaybeRefusal Step() {
    const Owner& owner = Pick(owners_);
    switch (Below(10)) {
      case 0:
        return SaveOpening(owner, {});
      case 1:
        return WithOld(openings_, &RandomRecords::ChangeOpening);
      case 2:
        return SaveTransfer(owner, {});
      case 3:
        return WithOld(transfers_, &RandomRecords::ChangeTransfer);
      case 4:
      case 5:
        return WithOld(bills_, &RandomRecords::ChangeBill);
      case 6:
        return Below(2) == 0 || bills_.empty() ? EnteredBill(owner, EmptyBill(owner))
                                               : EnteredOldBill();
      default:
        return NewBill(owner);
    }
  }

 private:
  struct Owner {
    ClientYear of;
    std::vector<AccountId> accounts;
  };

  template <class RecordId>
  struct Saved {
    const Owner* owner;
    RecordId id;
  };

  void AddOwner(ClientId client, std::vector<AccountId> accounts) {
    owners_.push_back({{client, desk_.year}, std::move(accounts)});
  }

  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

  template <class List>
  const typename List::value_type& Pick(const List& list) {
    return list[static_cast<std::size_t>(Below(static_cast<int>(list.size())))];
  }

  ScripId Scrip() { return Below(3) == 0 ? desk_.second_scrip : desk_.scrip; }
  double Rate() { return Pick(std::array{0.05, 33.33, 33.333333, 100.1, 250.0}); }
  double Quantity() { return Below(4) == 0 ? (1 + Below(5000)) / 1000.0 : 1.0 + Below(100); }
  QString Date() { return QStringLiteral("%1/0%2/2011").arg(10 + Below(20)).arg(4 + Below(6)); }

  /// Any account of anybody.
  AccountId SomeAccount() { return Pick(Pick(owners_).accounts); }

  /// More often than not a possible one.
  double QuantityFrom(const records::Lot& lot) {
    const double held = lot.quantity.Number();
    return std::max(0.001, Below(3) == 0 ? held : held * (1 + Below(12)) / 10);
  }

  records::BillLine Purchase() {
    records::BillLine line = desk_.Purchase(Quantity(), Rate());
    line.scrip = Scrip();
    return line;
  }

  records::BillLine Sale(const std::vector<records::Lot>& lots) {
    if (lots.empty() || Below(30) == 0) {
      return desk_.Sale(Quantity(), 120, LotId{Below(2) * 3});
    }
    const records::Lot& lot = Pick(lots);
    records::BillLine line = desk_.Sale(QuantityFrom(lot), 120, lot.id);
    line.scrip = lot.scrip;
    line.lot_rate = lot.rate;
    return line;
  }

  records::BillLine Line(const std::vector<records::Lot>& lots) {
    return Below(2) == 0 ? Purchase() : Sale(lots);
  }

  records::Bill EmptyBill(const Owner& owner) {
    records::Bill bill = desk_.NewBill(Date(), {});
    bill.account = Below(40) == 0 ? AccountId{} : Pick(owner.accounts);
    return bill;
  }

  std::vector<records::Lot> Lots(const Owner& owner, AccountId account) {
    return ledger::ReadLots(connection_, ledger::LotScope::Of({owner.of, account}));
  }

  static std::vector<records::Lot> LotsOf(const bills::BillEntry& entry) {
    std::vector<records::Lot> lots;
    for (const bills::HeldLot& held : entry.Balance()) {
      lots.push_back(held.lot);
    }
    return lots;
  }

  MaybeRefusal SaveBill(const Owner& owner, records::Bill& bill) {
    const bool is_new = !bill.id;
    MaybeRefusal refusal = test::Save(bills::BillBook(connection_, owner.of), bill);
    if (!refusal && is_new) {
      bills_.push_back({&owner, bill.id});
    }
    return refusal;
  }

  MaybeRefusal NewBill(const Owner& owner) {
    records::Bill bill = EmptyBill(owner);
    const auto lots = Lots(owner, bill.account);
    for (int i = Below(4); i >= 0; --i) {
      bill.lines.push_back(Line(lots));
    }
    return SaveBill(owner, bill);
  }

  /// Entered line by line, with sales of what the bill itself has bought; now and then it is given
  /// up. Commands that are refused on the way leave the entry as it was.
  MaybeRefusal EnteredBill(const Owner& owner, const records::Bill& bill) {
    bills::BillEntry entry(connection_, owner.of);
    entry.Begin(bill);
    for (int i = Below(6); i >= 0; --i) {
      Edit(entry, owner);
    }
    if (Below(8) == 0) {
      entry.Cancel();
      return std::nullopt;
    }
    MaybeRefusal refusal = entry.Save();
    if (!refusal && !bill.id) {
      bills_.push_back({&owner, entry.Current().id});
    }
    return refusal;
  }

  MaybeRefusal EnteredOldBill() {
    const Saved<BillId> saved = Pick(bills_);
    return EnteredBill(*saved.owner,
                       bills::BillBook(connection_, saved.owner->of).Load(saved.id).value());
  }

  void Edit(bills::BillEntry& entry, const Owner& owner) {
    const int lines = static_cast<int>(entry.Current().lines.size());
    const auto place = [&] { return static_cast<std::size_t>(Below(lines)); };
    switch (lines == 0 ? 0 : Below(9)) {
      case 0:
      case 1:
      case 2:
      case 3:
        static_cast<void>(entry.Put(Line(LotsOf(entry)), std::nullopt));
        break;
      case 4:
      case 5:
        static_cast<void>(entry.Put(Line(LotsOf(entry)), place()));
        break;
      case 6:
        static_cast<void>(entry.Remove(place()));
        break;
      case 7:
        Spread(entry);
        break;
      default:
        Below(2) == 0 ? entry.Refresh() : entry.ChooseAccount(Pick(owner.accounts));
    }
  }

  /// A sale from the oldest lots, whichever they are.
  void Spread(bills::BillEntry& entry) {
    records::BillLine sale = desk_.Sale(Quantity(), 120, {});
    sale.scrip = Scrip();
    if (const auto pieces = entry.Spread(sale, std::nullopt); !pieces.empty()) {
      static_cast<void>(entry.Put(bills::SpreadOver(sale, pieces), std::nullopt));
    }
  }

  void EditLine(records::BillLine& line) {
    switch (Below(3)) {
      case 0:
        line.quantity = text::Shares(Quantity());
        break;
      case 1:
        line.rate = Rate();
        line.lot = line.side == records::Side::kPurchase ? LotId{} : line.lot;
        break;
      default:
        line = Purchase();
    }
  }

  MaybeRefusal ChangeBill(Saved<BillId>& saved, bool remove) {
    bills::BillBook book(connection_, saved.owner->of);
    if (remove) {
      return book.Delete(saved.id);
    }
    records::Bill bill = book.Load(saved.id).value();
    if (!bill.lines.empty()) {
      const auto place = bill.lines.begin() + Below(static_cast<int>(bill.lines.size()));
      if (Below(4) == 0) {
        bill.lines.erase(place);
      } else {
        EditLine(*place);
      }
    }
    if (Below(10) == 0) {
      bill.account = Pick(saved.owner->accounts);
    }
    return SaveBill(*saved.owner, bill);
  }

  MaybeRefusal SaveOpening(const Owner& owner, OpeningId id) {
    opening_stock::OpeningLot lot;
    lot.id = id;
    lot.scrip = Scrip();
    lot.account = Pick(owner.accounts);
    lot.quantity = text::Shares(Quantity());
    lot.rate = Rate();
    lot.purchase_date = QStringLiteral("01/02/2010");
    MaybeRefusal refusal = test::Save(opening_stock::OpeningStockBook(connection_, owner.of), lot);
    if (!refusal && !id) {
      openings_.push_back({&owner, lot.id});
    }
    return refusal;
  }

  MaybeRefusal ChangeOpening(Saved<OpeningId>& saved, bool remove) {
    return remove ? opening_stock::OpeningStockBook(connection_, saved.owner->of).Delete(saved.id)
                  : SaveOpening(*saved.owner, saved.id);
  }

  MaybeRefusal SaveTransfer(const Owner& owner, TransferId id) {
    transfers::Transfer transfer;
    transfer.id = id;
    transfer.date = Date();
    transfer.from = Pick(owner.accounts);
    transfer.to = SomeAccount();
    const auto lots = Lots(owner, transfer.from);
    if (!lots.empty()) {
      const records::Lot& lot = Pick(lots);
      transfer.lot = lot.id;
      transfer.quantity = text::Shares(QuantityFrom(lot));
    }
    MaybeRefusal refusal = test::Save(transfers::TransferBook(connection_, owner.of), transfer);
    if (!refusal && !id) {
      transfers_.push_back({&owner, transfer.id});
    }
    return refusal;
  }

  MaybeRefusal ChangeTransfer(Saved<TransferId>& saved, bool remove) {
    return remove ? transfers::TransferBook(connection_, saved.owner->of).Delete(saved.id)
                  : SaveTransfer(*saved.owner, saved.id);
  }

  /// Changes or deletes a record that was saved before.
  template <class RecordId>
  MaybeRefusal WithOld(std::vector<Saved<RecordId>>& list,
                       MaybeRefusal (RandomRecords::*change)(Saved<RecordId>&, bool)) {
    if (list.empty()) {
      return std::nullopt;
    }
    const auto index = static_cast<std::size_t>(Below(static_cast<int>(list.size())));
    const bool remove = Below(2) == 0;
    Saved<RecordId> saved = list[index];
    MaybeRefusal refusal = (this->*change)(saved, remove);
    if (!refusal && remove) {
      list.erase(list.begin() + static_cast<std::ptrdiff_t>(index));
    }
    return refusal;
  }

  Desk& desk_;
  database::Connection& connection_;
  std::mt19937 random_;
  std::vector<Owner> owners_;
  std::vector<Saved<BillId>> bills_;
  std::vector<Saved<OpeningId>> openings_;
  std::vector<Saved<TransferId>> transfers_;
};

}  // namespace quorvane::test
