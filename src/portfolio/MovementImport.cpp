#include "portfolio/MovementImport.h"

#include "core/ledger/Posting.h"
#include "core/text/Amounts.h"
#include "portfolio/BillShares.h"
#include "portfolio/RecordedDocuments.h"
#include "portfolio/TakenDocuments.h"

#include <fmt/format.h>

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
        documents_(portfolio, names) {}

  void Run() {
    // Each line is taken and then written.
    progress_.Begin(QStringLiteral("Import"),
                    2 * static_cast<std::int64_t>(portfolio_.bill_lines.size()));
    ReadRecorded();
    TakeOpenings();
    TakeByDate();
    bill_shares_.ReportAdvances();
    if (!errors_.Empty()) {
      return;
    }
    result_.Count("opening lots", portfolio_.openings.size());
    result_.Count("bills", portfolio_.bills.size());
    result_.Count("bill lines", documents_.LineCount());
    result_.Count("transfers", portfolio_.transfers.size());
    documents_.Write(transaction_, lots_, progress_);
  }

 private:
  struct TransferEnds {
    ResolvedNames::Owned from;
    ResolvedNames::Owned to;
  };

  /// What stands in the database in the years that the folder touches.
  void ReadRecorded() {
    database::Connection& connection = transaction_.GetConnection();
    const std::set<FinancialYear> years = TouchedYears(portfolio_);
    recorded_openings_.Read(connection, years);
    recorded_bills_.Read(connection, years);
    recorded_transfers_.Read(connection, years);
    for (const FinancialYear year : years) {
      for (const records::Lot& lot : ledger::ReadLots(connection, {{}, year, {}})) {
        lots_.Load(lot);
      }
      records::MovementScope scope;
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

  /// Bills, and what a carry forward leaves of them, may stand without a demat account.
  std::optional<AccountId> FindAccount(ClientId client, Symbol number) const {
    const bool none_named = portfolio_.account_numbers.Names()[number].text.empty();
    return client && none_named ? std::optional(AccountId{}) : names_.Account(client, number);
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
          row->purchase_date, opening.quantity);
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
    while ((bill < bills.size() || transfer < transfers.size()) && !errors_.Full()) {
      const bool bill_first =
          transfer == transfers.size() ||
          (bill < bills.size() &&
           portfolio_.bills[bills[bill]].date <= portfolio_.transfers[transfers[transfer]].date);
      const text::Date date = bill_first ? portfolio_.bills[bills[bill]].date
                                         : portfolio_.transfers[transfers[transfer]].date;
      BeginDate();
      for (; transfer < transfers.size() && portfolio_.transfers[transfers[transfer]].date == date;
           ++transfer) {
        open_transfers_.push_back(&portfolio_.transfers[transfers[transfer]]);
      }
      const std::size_t first_bill = bill;
      for (; bill < bills.size() && portfolio_.bills[bills[bill]].date == date; ++bill) {
        ReceiveNonDelivery(portfolio_.bills[bills[bill]]);
      }
      for (std::size_t i = first_bill; i < bill && !errors_.Full(); ++i) {
        TakeBill(portfolio_.bills[bills[i]]);
      }
      FinishTransfers();
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
        (ApplyTransfers() && bill_shares_.TrySales(bill, place, BillShares::Ahead::kNo)) ||
        bill_shares_.TrySales(bill, place, BillShares::Ahead::kAllowed)) {
      documents_.Add(bill, client, *account, bill_shares_.Lines());
    }
  }

  /// The date's transfers that are possible now; true when there was one.
  bool ApplyTransfers() {
    const std::size_t before = open_transfers_.size();
    std::erase_if(open_transfers_, [this](const TransferRow* row) { return Apply(*row, false); });
    return open_transfers_.size() < before;
  }

  /// A transfer may need what another one of its date brings.
  void FinishTransfers() {
    while (ApplyTransfers()) {
    }
    for (const TransferRow* row : open_transfers_) {
      Apply(*row, true);
    }
    open_transfers_.clear();
  }

  bool Apply(const TransferRow& row, bool report) {
    const auto ends = EndsOf(row, report);
    if (!ends) {
      return false;
    }
    records::Transfer transfer = row.record;
    transfer.client = ends->from.client;
    transfer.from = ends->from.account;
    transfer.kind = ends->from.client == ends->to.client ? records::TransTo::kSameClient
                                                         : records::TransTo::kOtherClient;
    transfer.to = ends->to.account;
    transfer.to_client = ends->to.client;
    transfer.scrip = names_.scrips[row.scrip];
    const auto taken = layers_.TakeFromLot(
        names_.LotKeyAt(ledger::SourceOf(transfer), row.scrip, transfer.rate), transfer.quantity);
    if (!taken) {
      if (report) {
        errors_.Add(FileKind::kTransfers, row.line, "quantity",
                    "You Can't Transfer Scripts More than Balance. Maximum Allowed Value is: " +
                        text::FormatAmount(taken.available.Number()).toStdString());
      }
      return false;
    }
    layers_.Receive(names_.LotKeyAt(ledger::DestinationOf(transfer), row.scrip, transfer.rate),
                    row.date, transfer.quantity);
    if (recorded_transfers_.Has(transfer)) {
      errors_.Add(FileKind::kTransfers, row.line, "", "this transfer is recorded already");
    }
    transfer.lot = taken.pieces.front().lot;
    documents_.Add(transfer);
    return true;
  }

  std::vector<ResolvedNames::Owned> AccountsOf(Symbol number, std::optional<Symbol> client) const {
    std::vector<ResolvedNames::Owned> found = names_.Accounts(number);
    if (client) {
      std::erase_if(found, [&](const ResolvedNames::Owned& owned) {
        return owned.client != names_.clients[*client];
      });
    }
    return found;
  }

  std::optional<TransferEnds> EndsOf(const TransferRow& row, bool report) {
    const auto from = AccountsOf(row.from_account, row.from_client);
    const auto to = AccountsOf(row.to_account, row.to_client);
    if (from.size() == 1 && to.size() == 1) {
      return TransferEnds{from.front(), to.front()};
    }
    const auto fail = [&](const auto& found, std::string_view column,
                          std::string_view client_column) {
      if (report && found.size() != 1) {
        errors_.Add(FileKind::kTransfers, row.line, column,
                    found.empty()
                        ? "expected a known account number"
                        : fmt::format("several clients have an account of this number: the "
                                      "column {} tells which",
                                      client_column));
      }
    };
    fail(from, "from_account", "from_client");
    fail(to, "to_account", "to_client");
    return std::nullopt;
  }

  Transaction& transaction_;
  const Portfolio& portfolio_;
  const ResolvedNames& names_;
  ErrorList& errors_;
  ImportResult& result_;
  Progress& progress_;
  RecordedDocuments<records::Opening> recorded_openings_;
  RecordedDocuments<records::Bill> recorded_bills_;
  RecordedDocuments<records::Transfer> recorded_transfers_;
  ledger::Lots lots_;
  ledger::Layers layers_{lots_};
  BillShares bill_shares_;
  TakenDocuments documents_;
  std::vector<const TransferRow*> open_transfers_;
};

}  // namespace

void ImportMovements(Transaction& transaction, const Portfolio& portfolio,
                     const ResolvedNames& names, ErrorList& errors, ImportResult& result,
                     Progress& progress) {
  MovementImport(transaction, portfolio, names, errors, result, progress).Run();
}

}  // namespace quorvane::portfolio
