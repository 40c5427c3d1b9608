#include "portfolio/ActionImport.h"
#include "portfolio/BillShares.h"
#include "portfolio/ImportSteps.h"
#include "portfolio/RecordedDocuments.h"
#include "portfolio/TakenDocuments.h"
#include "portfolio/TransferImport.h"

#include <algorithm>
#include <numeric>

namespace quorvane::portfolio {
namespace {

using database::Transaction;
using ledger::Place;
using text::FinancialYear;

class MovementImport {
 public:
  MovementImport(Transaction& transaction, const Portfolio& portfolio, const ResolvedNames& names,
                 ErrorList& errors, ImportResult& result, Progress& progress)
      : transaction_(transaction),
        portfolio_(portfolio),
        names_(names),
        errors_(errors),
        result_(result),
        progress_(progress),
        bill_shares_(portfolio, names, layers_, errors),
        documents_(portfolio, names),
        transfers_(names, layers_, documents_, errors),
        actions_(portfolio, names, lots_, layers_, errors) {}

  void Run(Movements movements) {
    // Each line is taken and then written.
    progress_.Begin(QStringLiteral("Import"),
                    2 * static_cast<std::int64_t>(portfolio_.bill_lines.size()));
    ReadRecorded();
    actions_.Check(transaction_.GetConnection());
    TakeOpenings();
    TakeByDate();
    bill_shares_.ReportAdvances();
    if (!errors_.Empty()) {
      return;
    }
    result_.Count(QT_TRANSLATE_NOOP("Portfolio", "opening lots"), portfolio_.openings.size());
    result_.Count(QT_TRANSLATE_NOOP("Portfolio", "bills"), portfolio_.bills.size());
    result_.Count(QT_TRANSLATE_NOOP("Portfolio", "bill lines"), documents_.LineCount());
    result_.Count(QT_TRANSLATE_NOOP("Portfolio", "transfers"), portfolio_.transfers.size());
    if (movements == Movements::kWritten) {
      documents_.Write(transaction_, lots_, progress_);
      actions_.Write(transaction_, result_);
    }
  }

 private:
  /// What stands in the database in the years that the folder touches.
  void ReadRecorded() {
    database::Connection& connection = transaction_.GetConnection();
    const std::set<FinancialYear> years = TouchedYears(portfolio_);
    const std::optional<ClientId> only = OnlyClient();
    recorded_openings_.Read(connection, years, only);
    recorded_bills_.Read(connection, years, only);
    transfers_.ReadRecorded(connection, years);
    for (const FinancialYear year : years) {
      for (const records::Lot& lot : ledger::ReadLots(connection, {only, year, {}})) {
        lots_.Load(lot);
      }
      records::MovementScope scope;
      scope.client = only;
      scope.year = year;
      scope.charges = false;
      scope.delivery = true;
      records::Faults faults;
      Progress silent;
      records::ReadMovements(connection, scope, faults, silent,
                             [this](const records::Movement& m) { layers_.Add(m); });
    }
    layers_.Arrange();
  }

  /// The client whose shares alone move, so that nothing of others need be read.
  std::optional<ClientId> OnlyClient() const {
    const bool alone =
        names_.clients.size() == 1 && portfolio_.transfers.empty() && portfolio_.actions.empty();
    return alone ? std::optional(names_.clients.front()) : std::nullopt;
  }

  std::optional<AccountId> FindAccount(ClientId client, Symbol number) const {
    return names_.AccountOrNone(portfolio_, client, number);
  }

  std::optional<AccountId> AccountOf(ClientId client, Symbol number, FileKind file,
                                     std::size_t line) {
    const auto account = FindAccount(client, number);
    if (!account && client) {
      errors_.Add(file, line, "account_no",
                  "expected an account of the client, found " +
                      Quoted(portfolio_.account_numbers.Names()[number].text));
    }
    return account;
  }

  /// Lots are received by date; records are written in file order.
  void TakeOpenings() {
    std::vector<std::pair<const OpeningRow*, records::Opening>> taken;
    for (const OpeningRow& row : portfolio_.openings) {
      const ClientId client = names_.clients[row.client];
      if (const auto account = AccountOf(client, row.account, FileKind::kOpening, row.line)) {
        taken.emplace_back(&row, row.record);
        records::Opening& opening = taken.back().second;
        opening.client = client;
        opening.account = *account;
        opening.scrip = names_.scrips[row.scrip];
        TakeOpening(row, opening);
      }
    }
    std::ranges::stable_sort(taken, {}, [](const auto& each) { return each.first->purchase_date; });
    for (const auto& [row, opening] : taken) {
      layers_.Receive(
          {{opening.client, opening.year}, opening.account, opening.scrip, opening.rate},
          {.date = row->purchase_date,
           .quantity = opening.quantity,
           .fo = opening.fo,
           .kind = records::MovementKind::kOpening});
    }
  }

  void TakeOpening(const OpeningRow& row, const records::Opening& opening) {
    if (recorded_openings_.Has(opening)) {
      errors_.Add(FileKind::kOpening, row.line, "", "this opening lot is recorded already");
    }
    documents_.Add(opening);
  }

  template <class Rows>
  static std::vector<std::uint32_t> ByDate(const Rows& rows) {
    std::vector<std::uint32_t> order(rows.size());
    std::iota(order.begin(), order.end(), 0U);
    std::stable_sort(order.begin(), order.end(),
                     [&](std::uint32_t a, std::uint32_t b) { return rows[a].date < rows[b].date; });
    return order;
  }

  void TakeByDate() {
    const std::vector<std::uint32_t> bills = ByDate(portfolio_.bills);
    const std::vector<std::uint32_t> transfers = ByDate(portfolio_.transfers);
    std::size_t bill = 0;
    std::size_t transfer = 0;
    const auto next_date = [&] {
      std::optional<text::Date> next = actions_.NextDay();
      if (bill < bills.size()) {
        next = std::min(next.value_or(text::Date::max()), portfolio_.bills[bills[bill]].date);
      }
      if (transfer < transfers.size()) {
        next = std::min(next.value_or(text::Date::max()),
                        portfolio_.transfers[transfers[transfer]].date);
      }
      return next;
    };
    for (auto next = next_date(); next && !errors_.Full(); next = next_date()) {
      const text::Date date = *next;
      actions_.Apply(date);
      BeginDate();
      for (; transfer < transfers.size() && portfolio_.transfers[transfers[transfer]].date == date;
           ++transfer) {
        transfers_.Add(portfolio_.transfers[transfers[transfer]]);
      }
      const std::size_t first_bill = bill;
      for (; bill < bills.size() && portfolio_.bills[bills[bill]].date == date; ++bill) {
        ReceiveNonDelivery(portfolio_.bills[bills[bill]]);
      }
      for (std::size_t i = first_bill; i < bill && !errors_.Full(); ++i) {
        TakeBill(portfolio_.bills[bills[i]]);
      }
      transfers_.ApplyRest();
    }
  }

  void BeginDate() {
    progress_.Step(static_cast<std::int64_t>(documents_.LineCount()));
    progress_.ThrowIfCancelled();
  }

  static Place PlaceOf(const BillRow& bill, ClientId client, AccountId account) {
    return {{client, FinancialYear::Of(bill.date)}, account};
  }

  void ReceiveNonDelivery(const BillRow& bill) {
    const ClientId client = names_.clients[bill.client];
    if (const auto account = FindAccount(client, bill.account)) {
      bill_shares_.ReceiveNonDelivery(bill, PlaceOf(bill, client, *account));
    }
  }

  void TakeBill(const BillRow& bill) {
    const ClientId client = names_.clients[bill.client];
    const auto account = AccountOf(client, bill.account, FileKind::kBills, bill.line);
    if (!account) {
      return;
    }
    if (recorded_bills_.Has(documents_.HeaderOf(bill, client, *account))) {
      errors_.Add(FileKind::kBills, bill.line, "bill_no", "this bill is recorded already");
      return;
    }
    const Place place = PlaceOf(bill, client, *account);
    bill_shares_.ReceiveDelivered(bill, place);
    if (bill_shares_.TrySales(bill, place, BillShares::Ahead::kNo) ||
        (transfers_.ApplyPossible() &&
         bill_shares_.TrySales(bill, place, BillShares::Ahead::kNo)) ||
        bill_shares_.TrySales(bill, place, BillShares::Ahead::kAllowed)) {
      documents_.Add(bill, client, *account, bill_shares_.Lines());
    }
  }

  Transaction& transaction_;
  const Portfolio& portfolio_;
  const ResolvedNames& names_;
  ErrorList& errors_;
  ImportResult& result_;
  Progress& progress_;
  RecordedDocuments<records::Opening> recorded_openings_;
  RecordedDocuments<records::Bill> recorded_bills_;
  ledger::Lots lots_;
  ledger::Layers layers_{lots_};
  BillShares bill_shares_;
  TakenDocuments documents_;
  TransferImport transfers_;
  ActionImport actions_;
};

}  // namespace

void ImportMovements(Transaction& transaction, const Portfolio& portfolio,
                     const ResolvedNames& names, Movements movements, ErrorList& errors,
                     ImportResult& result, Progress& progress) {
  MovementImport(transaction, portfolio, names, errors, result, progress).Run(movements);
}

}  // namespace quorvane::portfolio
