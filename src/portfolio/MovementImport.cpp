#include "portfolio/MovementImport.h"

#include "core/ledger/Layers.h"
#include "core/ledger/Posting.h"
#include "core/text/Amounts.h"
#include "core/text/Paise.h"
#include "portfolio/RecordedDocuments.h"
#include "portfolio/TakenDocuments.h"
#include "portfolio/TouchedYears.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>

namespace quorvane::portfolio {
namespace {

using database::Transaction;
using ledger::Layers;
using ledger::LotKey;
using ledger::Place;
using text::FinancialYear;
using text::Shares;

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
        documents_(portfolio, names) {}

  void Run() {
    // Each line is taken and then written.
    progress_.Begin(QStringLiteral("Import"),
                    2 * static_cast<std::int64_t>(portfolio_.bill_lines.size()));
    ReadRecorded();
    TakeOpenings();
    TakeByDate();
    ReportAdvances();
    if (!errors_.Empty()) {
      return;
    }
    Count("opening lots", portfolio_.openings.size());
    Count("bills", portfolio_.bills.size());
    Count("bill lines", documents_.LineCount());
    Count("transfers", portfolio_.transfers.size());
    documents_.Write(transaction_, lots_, progress_);
  }

 private:
  struct SaleAhead {
    const BillLineRow* row;
    Shares available;  ///< when it was taken
    Layers::Advance advance;
  };

  struct TransferEnds {
    ResolvedNames::Owned from;
    ResolvedNames::Owned to;
  };

  void Count(std::string_view what, std::size_t added) {
    if (added > 0) {
      result_.counts.push_back({std::string(what), added});
    }
  }

  void Fail(FileKind file, std::size_t line, std::string_view column, std::string message) {
    errors_.Add(LayoutOf(file).name, line, column, std::move(message));
  }

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
      Fail(file, line, "account_no",
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
      Fail(FileKind::kOpening, row.line, "", "this opening lot is recorded already");
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
      for (; bill < bills.size() && portfolio_.bills[bills[bill]].date == date; ++bill) {
        TakeBill(portfolio_.bills[bills[bill]]);
      }
      FinishTransfers();
    }
  }

  void BeginDate() {
    progress_.Step(static_cast<std::int64_t>(documents_.LineCount()));
    progress_.ThrowIfCancelled();
  }

  LotKey KeyAt(const Place& place, Symbol scrip, double rate) const {
    return {place.of, place.account, names_.scrips[scrip], rate};
  }

  void TakeBill(const BillRow& bill) {
    const ClientId client = names_.clients[bill.client];
    const auto account = AccountOf(client, bill.account, FileKind::kBills, bill.line);
    if (!account) {
      return;
    }
    if (recorded_bills_.Has(documents_.HeaderOf(bill, client, *account))) {
      Fail(FileKind::kBills, bill.line, "bill_no", "this bill is recorded already");
      return;
    }
    const Place place{{client, FinancialYear::Of(bill.date)}, *account};
    ReceivePurchases(bill, place);
    if (TrySales(bill, place, Ahead::kNo) ||
        (ApplyTransfers() && TrySales(bill, place, Ahead::kNo)) ||
        TrySales(bill, place, Ahead::kAllowed)) {
      documents_.Add(bill, client, *account, taken_lines_);
    }
  }

  std::span<const BillLineRow> LinesOf(const BillRow& bill) const {
    return std::span(portfolio_.bill_lines).subspan(bill.first_line, bill.line_count);
  }

  void ReceivePurchases(const BillRow& bill, const Place& place) {
    purchase_lots_.clear();
    for (const BillLineRow& row : LinesOf(bill)) {
      if (row.IsPurchase()) {
        purchase_lots_.push_back(
            layers_.Receive(KeyAt(place, row.scrip, row.rate), bill.date, row.quantity));
      }
    }
  }

  /// Whether sales may name a lot whose shares come in later, as the bill window lets them: it
  /// looks at the lot's balance and at no date. The last try, which tells what is missing.
  enum class Ahead { kNo, kAllowed };

  /// Fills taken_lines_ in file order; false, and nothing taken, when shares are missing.
  bool TrySales(const BillRow& bill, const Place& place, Ahead ahead) {
    layers_.Mark();
    taken_lines_.clear();
    std::size_t purchase = 0;
    for (const BillLineRow& row : LinesOf(bill)) {
      if (row.IsPurchase()) {
        AddWhole(row, purchase_lots_[purchase++]);
      } else if (!TakeSale(row, bill.date, place, ahead)) {
        layers_.GoBack();
        return false;
      }
    }
    return true;
  }

  bool TakeSale(const BillLineRow& row, text::Date date, const Place& place, Ahead ahead) {
    if (row.lot_rate == BillLineRow::kNoLot) {
      AddWhole(row, LotId{});
      return true;
    }
    const bool oldest = row.lot_rate == BillLineRow::kNoLotRate;
    const LotKey lot = KeyAt(place, row.scrip, row.lot_rate);
    const Layers::Taken taken = oldest ? layers_.TakeOldest(place, lot.scrip, date, row.quantity)
                                       : layers_.TakeFromLot(lot, row.quantity);
    if (taken) {
      AddPieces(row, taken.pieces);
    } else if (ahead == Ahead::kNo) {
      return false;
    } else if (oldest) {
      ReportShortage(row, taken.available);
      return false;
    } else {
      const auto advance = layers_.TakeAhead(lot, row.quantity);
      AddWhole(row, advance.lot);
      advances_.push_back({&row, std::max(taken.available, Shares()), advance});
    }
    return true;
  }

  void AddWhole(const BillLineRow& row, LotId lot) {
    taken_lines_.push_back({&row, lot, row.quantity, row.service_tax, row.stt});
  }

  /// A line for each lot that a sale draws on, with its part of the row's charges.
  void AddPieces(const BillLineRow& row, std::span<const Layers::Piece> pieces) {
    text::ShareOut service_tax(row.service_tax, row.quantity);
    text::ShareOut stt(row.stt, row.quantity);
    for (const Layers::Piece& piece : pieces) {
      taken_lines_.push_back({&row, piece.lot, piece.quantity, service_tax.Next(piece.quantity),
                              stt.Next(piece.quantity)});
    }
  }

  void ReportAdvances() {
    for (const SaleAhead& sale : advances_) {
      if (layers_.IsOpen(sale.advance)) {
        ReportShortage(*sale.row, sale.available);
      }
    }
  }

  void ReportShortage(const BillLineRow& row, Shares available) {
    const bool named = row.lot_rate != BillLineRow::kNoLotRate;
    Fail(FileKind::kBills, row.line, named && available <= Shares() ? "lot_rate" : "quantity",
         "You Can't Sale Scripts More than Balance. Maximum Allowed Value is: " +
             BalanceText(available));
  }

  static std::string BalanceText(Shares available) {
    std::string text;
    text::AppendAmount(text, available.Number());
    return text;
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
        KeyAt(ledger::SourceOf(transfer), row.scrip, transfer.rate), transfer.quantity);
    if (!taken) {
      if (report) {
        Fail(FileKind::kTransfers, row.line, "quantity",
             "You Can't Transfer Scripts More than Balance. Maximum Allowed Value is: " +
                 BalanceText(taken.available));
      }
      return false;
    }
    layers_.Receive(KeyAt(ledger::DestinationOf(transfer), row.scrip, transfer.rate), row.date,
                    transfer.quantity);
    if (recorded_transfers_.Has(transfer)) {
      Fail(FileKind::kTransfers, row.line, "", "this transfer is recorded already");
    }
    transfer.lot = taken.pieces.front().lot;
    documents_.Add(transfer);
    return true;
  }

  std::optional<TransferEnds> EndsOf(const TransferRow& row, bool report) {
    const auto& from = names_.Accounts(row.from_account);
    const auto& to = names_.Accounts(row.to_account);
    if (from.size() == 1 && to.size() == 1) {
      return TransferEnds{from.front(), to.front()};
    }
    const auto fail = [&](const auto& found, std::string_view column) {
      if (report && found.size() != 1) {
        Fail(FileKind::kTransfers, row.line, column,
             found.empty() ? "expected a known account number"
                           : "several clients have an account of this number");
      }
    };
    fail(from, "from_account");
    fail(to, "to_account");
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
  Layers layers_{lots_};
  TakenDocuments documents_;
  std::vector<LotId> purchase_lots_;
  std::vector<TakenLine> taken_lines_;
  std::vector<const TransferRow*> open_transfers_;
  std::vector<SaleAhead> advances_;
};

}  // namespace

void ImportMovements(Transaction& transaction, const Portfolio& portfolio,
                     const ResolvedNames& names, ErrorList& errors, ImportResult& result,
                     Progress& progress) {
  MovementImport(transaction, portfolio, names, errors, result, progress).Run();
}

}  // namespace quorvane::portfolio
