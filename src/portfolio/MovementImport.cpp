#include "portfolio/MovementImport.h"

#include "core/database/Keys.h"
#include "core/gains/RemainingLots.h"
#include "core/text/Amounts.h"
#include "portfolio/BillLines.h"
#include "portfolio/MovementRecords.h"
#include "portfolio/RecordedDocuments.h"
#include "portfolio/TouchedYears.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>

namespace quorvane::portfolio {
namespace {

using database::Transaction;
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
        recorded_(transaction, TouchedYears(portfolio)),
        book_(database::FirstFreeKey(transaction, "Stock")),
        records_(transaction, names) {}

  void Run() {
    progress_.Begin(QStringLiteral("Import"),
                    static_cast<std::int64_t>(portfolio_.bill_lines.size()));
    LoadHoldings();
    TakeOpenings();
    TakeByDate();
    ReportAdvances();
    if (!errors_.Empty()) {
      return;
    }
    records_.Finish(book_);
    Count("opening lots", portfolio_.openings.size());
    Count("bills", portfolio_.bills.size());
    Count("bill lines", records_.LineCount());
    Count("transfers", portfolio_.transfers.size());
  }

 private:
  struct SaleAhead {
    const BillLineRow* row;
    double available;  ///< when it was taken
    HoldingsBook::Advance advance;
  };

  void Count(std::string_view what, std::size_t added) {
    if (added > 0) {
      result_.counts.push_back({std::string(what), added});
    }
  }

  void Fail(FileKind file, std::size_t line, std::string_view column, std::string message) {
    errors_.Add(LayoutOf(file).name, line, column, std::move(message));
  }

  /// What the ledger holds in the years that the folder touches.
  void LoadHoldings() {
    for (const FinancialYear year : recorded_.Years()) {
      for (const auto& row : transaction_.Open(
               "Select Cid,Id,AcId,ScriptId,Qty,Rate From Stock Where Fyear=? Order By Id",
               year.Text())) {
        const ledger::Lot lot{LotId{row.Int(1)}, AccountId{row.Int(2)}, ScripId{row.Int(3)},
                              row.Double(4), row.Double(5)};
        book_.LoadLot({{ClientId{row.Int(std::size_t{0})}, year}, lot.account, lot.scrip}, lot);
      }
      if (!recorded_.IsEmpty(year)) {
        LoadLayers(year);
      }
    }
  }

  void LoadLayers(FinancialYear year) {
    Progress silent;
    for (const gains::RemainingLot& lot :
         gains::RemainingLots(transaction_.GetConnection(), std::nullopt, year, silent)) {
      book_.LoadLayer({{lot.client, year}, lot.account, lot.scrip}, lot.date, lot.rate,
                      lot.quantity);
    }
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

  void TakeOpenings() {
    std::vector<const OpeningRow*> rows;
    for (const OpeningRow& row : portfolio_.openings) {
      rows.push_back(&row);
    }
    std::stable_sort(rows.begin(), rows.end(), [](const OpeningRow* a, const OpeningRow* b) {
      return a->purchase_date < b->purchase_date;
    });
    // Lots are received by date; records are written in file order.
    for (const OpeningRow* row : rows) {
      const ClientId client = names_.clients[row->client];
      if (const auto account = FindAccount(client, row->account)) {
        book_.Receive({{client, row->year}, *account, names_.scrips[row->scrip]},
                      row->purchase_date, row->rate, row->quantity);
      }
    }
    for (const OpeningRow& row : portfolio_.openings) {
      const ClientId client = names_.clients[row.client];
      if (const auto account = AccountOf(client, row.account, FileKind::kOpening, row.line)) {
        TakeOpening(row, client, *account);
      }
    }
  }

  void TakeOpening(const OpeningRow& row, ClientId client, AccountId account) {
    if (recorded_.HasOpening({client, row.year}, account, names_.scrips[row.scrip], row)) {
      Fail(FileKind::kOpening, row.line, "", "this opening lot is recorded already");
    }
    records_.WriteOpening(row, client, account);
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
      BeginDate(date);
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

  void BeginDate(text::Date date) {
    day_ = RecordDay::Of(date);
    progress_.Step(static_cast<std::int64_t>(records_.LineCount()));
    progress_.ThrowIfCancelled();
  }

  void TakeBill(const BillRow& bill) {
    const ClientId client = names_.clients[bill.client];
    const auto account = AccountOf(client, bill.account, FileKind::kBills, bill.line);
    if (!account) {
      return;
    }
    if (recorded_.HasBill({client, day_.year}, *account, names_.brokers[bill.broker], bill,
                          day_.text)) {
      Fail(FileKind::kBills, bill.line, "bill_no", "this bill is recorded already");
      return;
    }
    const HoldingsBook::Place place{{client, day_.year}, *account, {}};
    ReceivePurchases(bill, place);
    if (TrySales(bill, place, Ahead::kNo) ||
        (ApplyTransfers() && TrySales(bill, place, Ahead::kNo)) ||
        TrySales(bill, place, Ahead::kAllowed)) {
      records_.WriteBill(bill, client, *account, day_, recorded_lines_);
    }
  }

  std::span<const BillLineRow> LinesOf(const BillRow& bill) const {
    return std::span(portfolio_.bill_lines).subspan(bill.first_line, bill.line_count);
  }

  void ReceivePurchases(const BillRow& bill, HoldingsBook::Place place) {
    purchase_lots_.clear();
    for (const BillLineRow& row : LinesOf(bill)) {
      if (row.purchase) {
        place.scrip = names_.scrips[row.scrip];
        purchase_lots_.push_back(book_.Receive(place, bill.date, row.rate, row.quantity));
      }
    }
  }

  /// Whether sales may name a lot whose shares come in later, as the bill window lets them: it
  /// looks at the lot's balance and at no date. The last try, which tells what is missing.
  enum class Ahead { kNo, kAllowed };

  /// Fills recorded_lines_ in file order; false, and nothing taken, when shares are missing.
  bool TrySales(const BillRow& bill, HoldingsBook::Place place, Ahead ahead) {
    book_.Mark();
    recorded_lines_.clear();
    std::size_t purchase = 0;
    for (const BillLineRow& row : LinesOf(bill)) {
      if (row.purchase) {
        recorded_lines_.push_back(WholeLine(row, purchase_lots_[purchase++]));
        continue;
      }
      place.scrip = names_.scrips[row.scrip];
      double available = 0;
      if (TakeSale(row, bill.date, place, available)) {
        continue;
      }
      if (ahead == Ahead::kAllowed && row.lot_rate != BillLineRow::kNoLotRate) {
        TakeAhead(row, place, available);
        continue;
      }
      if (ahead == Ahead::kAllowed) {
        ReportShortage(row, available);
      }
      book_.GoBack();
      return false;
    }
    return true;
  }

  void TakeAhead(const BillLineRow& row, const HoldingsBook::Place& place, double available) {
    const auto advance = book_.TakeAhead(place, row.lot_rate, row.quantity);
    recorded_lines_.push_back(WholeLine(row, advance.lot));
    advances_.push_back({&row, std::max(available, 0.0), advance});
  }

  void ReportAdvances() {
    for (const SaleAhead& sale : advances_) {
      if (book_.IsOpen(sale.advance)) {
        ReportShortage(*sale.row, sale.available);
      }
    }
  }

  bool TakeSale(const BillLineRow& row, text::Date date, const HoldingsBook::Place& place,
                double& available) {
    if (row.lot_rate == BillLineRow::kNoLot) {
      recorded_lines_.push_back(WholeLine(row, LotId{}));
      return true;
    }
    if (row.lot_rate != BillLineRow::kNoLotRate) {
      const auto piece = book_.TakeFromLot(place, row.lot_rate, row.quantity, available);
      if (piece) {
        recorded_lines_.push_back(WholeLine(row, piece->lot));
      }
      return piece.has_value();
    }
    const auto pieces = book_.TakeOldest(place, date, row.quantity, available);
    if (pieces) {
      AppendSplitLines(row, *pieces, recorded_lines_);
    }
    return pieces.has_value();
  }

  void ReportShortage(const BillLineRow& row, double available) {
    std::string balance;
    text::AppendAmount(balance, available);
    Fail(FileKind::kBills, row.line,
         row.lot_rate == BillLineRow::kNoLotRate || available > 0 ? "quantity" : "lot_rate",
         fmt::format("You Can't Sale Scripts More than Balance. Maximum Allowed Value is: {}",
                     balance));
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
    const ScripId scrip = names_.scrips[row.scrip];
    double available = 0;
    const auto piece =
        book_.TakeFromLot({{ends->from.client, day_.year}, ends->from.account, scrip}, row.rate,
                          row.quantity, available);
    if (!piece) {
      if (report) {
        std::string balance;
        text::AppendAmount(balance, available);
        Fail(FileKind::kTransfers, row.line, "quantity",
             fmt::format("You Can't Transfer Scripts More than Balance. Maximum Allowed Value is: "
                         "{}",
                         balance));
      }
      return false;
    }
    book_.Receive({{ends->to.client, day_.year}, ends->to.account, scrip}, row.date, row.rate,
                  row.quantity);
    if (recorded_.HasTransfer(day_.year, ends->from.account, ends->to.account, scrip, row,
                              day_.text)) {
      Fail(FileKind::kTransfers, row.line, "", "this transfer is recorded already");
    }
    records_.WriteTransfer(row, *ends, piece->lot, day_);
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
  RecordedDocuments recorded_;
  HoldingsBook book_;
  MovementRecords records_;
  RecordDay day_;
  std::vector<LotId> purchase_lots_;
  std::vector<RecordedLine> recorded_lines_;
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
