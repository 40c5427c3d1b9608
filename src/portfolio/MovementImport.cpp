#include "portfolio/MovementImport.h"

#include "core/database/BulkWriter.h"
#include "core/database/Keys.h"
#include "core/gains/RemainingLots.h"
#include "core/text/Amounts.h"
#include "portfolio/BillLines.h"
#include "portfolio/ImportLock.h"
#include "portfolio/RecordedDocuments.h"
#include "transactions/bills/Bill.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>

namespace quorvane::portfolio {
namespace {

using database::BulkWriter;
using database::Transaction;
using text::FinancialYear;

constexpr std::string_view kInsertOpening =
    "Insert Into StkOpBal Values(?,?,?,?,?,?,?,?,?,?,?,?,?)";
constexpr std::string_view kInsertBill = "Insert Into SPMaster Values(?,?,?,?,?,?,?,?,?,?,?,?,?,?)";
constexpr std::string_view kInsertLine =
    "Insert Into SPTrans Values(?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)";
constexpr std::string_view kInsertTransfer =
    "Insert Into ScrTransfer Values(?,?,?,?,?,?,?,?,?,?,?,?)";
constexpr std::string_view kInsertLot = "Insert Into Stock Values(?,?,?,?,?,?,?)";
constexpr std::string_view kUpdateLot = "Update Stock Set Qty=? Where Id=?";

/// The accounts that a transfer joins, and their owners.
struct TransferEnds {
  ResolvedNames::Owned from;
  ResolvedNames::Owned to;
};

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
        book_(database::NextSharedKey(transaction, {"Stock", "Stock_Temp"})),
        openings_(transaction, kInsertOpening, "itiiddditdddi"),
        bills_(transaction, kInsertBill, "itittiiidddddt"),
        lines_(transaction, kInsertLine, "itiiiiiddddddiddt"),
        transfers_(transaction, kInsertTransfer, "ititiiiiiidd") {
    next_opening_ = database::NextKey(transaction, "StkOpBal");
    next_bill_ = database::NextKey(transaction, "SPMaster", "ID");
    next_transfer_ = database::NextKey(transaction, "ScrTransfer", "ID");
  }

  void Run() {
    progress_.Begin(QStringLiteral("Import"),
                    static_cast<std::int64_t>(portfolio_.bill_lines.size()));
    LoadHoldings();
    TakeOpenings();
    TakeByDate();
    if (!errors_.Empty()) {
      return;
    }
    openings_.Finish();
    bills_.Finish();
    lines_.Finish();
    transfers_.Finish();
    WriteLots();
    Count("opening lots", portfolio_.openings.size());
    Count("bills", portfolio_.bills.size());
    Count("bill lines", line_count_);
    Count("transfers", portfolio_.transfers.size());
  }

 private:
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

  std::optional<AccountId> AccountOf(ClientId client, Symbol number, FileKind file,
                                     std::size_t line) {
    if (const auto account = names_.Account(client, number)) {
      return account;
    }
    // A bill may stand without a demat account; then it has none to name.
    const bool none_named = portfolio_.account_numbers.Names()[number].text.empty();
    if (client && none_named && file == FileKind::kBills) {
      return AccountId{};
    }
    if (client) {
      Fail(file, line, "account_no",
           fmt::format("expected an account of the client, found \"{}\"",
                       portfolio_.account_numbers.Names()[number].text));
    }
    return std::nullopt;
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
      if (const auto account = names_.Account(client, row->account)) {
        book_.Receive({{client, row->year}, *account, names_.scrips[row->scrip]},
                      row->purchase_date, row->rate, row->quantity);
      }
    }
    for (const OpeningRow& row : portfolio_.openings) {
      const ClientId client = names_.clients[row.client];
      if (const auto account = AccountOf(client, row.account, FileKind::kOpening, row.line)) {
        WriteOpening(row, client, *account);
      }
    }
  }

  void WriteOpening(const OpeningRow& row, ClientId client, AccountId account) {
    const ScripId scrip = names_.scrips[row.scrip];
    if (recorded_.HasOpening({client, row.year}, account, scrip, row)) {
      Fail(FileKind::kOpening, row.line, "", "this opening lot is recorded already");
    }
    day_.clear();
    text::AppendDmy(day_, row.purchase_date);
    openings_.Int(client.value)
        .Text(row.year.Utf8())
        .Int(next_opening_++)
        .Int(scrip.value)
        .Double(row.quantity)
        .Double(row.rate)
        .Double(text::RoundAmount(row.quantity * text::Tidy(row.rate + row.brokerage)))
        .Int(account.value)
        .Text(day_)
        .Double(row.service_tax)
        .Double(row.brokerage)
        .Double(row.stt)
        .Int(row.fo ? 1 : 0)
        .EndRow();
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
    year_ = FinancialYear::Of(date);
    year_text_ = year_.Utf8();
    day_.clear();
    text::AppendDmy(day_, date);
    progress_.Step(static_cast<std::int64_t>(line_count_));
    progress_.ThrowIfCancelled();
  }

  void TakeBill(const BillRow& bill) {
    const ClientId client = names_.clients[bill.client];
    const auto account = AccountOf(client, bill.account, FileKind::kBills, bill.line);
    if (!account) {
      return;
    }
    if (recorded_.HasBill({client, year_}, *account, names_.brokers[bill.broker], bill, day_)) {
      Fail(FileKind::kBills, bill.line, "bill_no", "this bill is recorded already");
      return;
    }
    const HoldingsBook::Place place{{client, year_}, *account, {}};
    ReceivePurchases(bill, place);
    if (TrySales(bill, place, false) || (ApplyTransfers() && TrySales(bill, place, false))) {
      WriteBill(bill, client, *account);
    } else {
      TrySales(bill, place, true);
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

  /// Fills recorded_lines_ in file order; false, and nothing taken, when shares are missing.
  bool TrySales(const BillRow& bill, HoldingsBook::Place place, bool report) {
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
      if (!TakeSale(row, bill.date, place, available)) {
        if (report) {
          ReportShortage(row, available);
        }
        book_.GoBack();
        return false;
      }
    }
    return true;
  }

  bool TakeSale(const BillLineRow& row, text::Date date, const HoldingsBook::Place& place,
                double& available) {
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

  void WriteBill(const BillRow& bill, ClientId client, AccountId account) {
    const int id = next_bill_++;
    totals_lines_.clear();
    int number = 0;
    for (const RecordedLine& line : recorded_lines_) {
      WriteLine(line, client, id, ++number);
      quorvane::bills::BillLine total;
      total.side =
          line.row->purchase ? quorvane::bills::Side::kPurchase : quorvane::bills::Side::kSale;
      total.amount = line.amount;
      total.service_tax = line.service_tax;
      total.stt = line.stt;
      totals_lines_.push_back(total);
    }
    line_count_ += recorded_lines_.size();
    const auto totals =
        quorvane::bills::ComputeTotals(totals_lines_, bill.other_charges, bill.transaction_charges);
    bills_.Int(client.value)
        .Text(year_text_)
        .Int(id)
        .Text(bill.number)
        .Text(day_)
        .Int(names_.brokers[bill.broker].value)
        .Int(names_.exchanges[bill.exchange].value)
        .Int(account.value)
        .Double(totals.total)
        .Double(bill.other_charges)
        .Double(totals.stt)
        .Double(bill.transaction_charges)
        .Double(totals.grand_total)
        .Text(bill.settlement)
        .EndRow();
  }

  void WriteLine(const RecordedLine& line, ClientId client, int bill, int number) {
    const BillLineRow& row = *line.row;
    lines_.Int(client.value)
        .Text(year_text_)
        .Int(bill)
        .Int(number)
        .Int(row.purchase ? 1 : 0)
        .Int(line.lot.value)
        .Int(names_.scrips[row.scrip].value)
        .Double(line.quantity)
        .Double(row.rate)
        .Double(row.brokerage)
        .Double(line.net)
        .Double(line.amount)
        .Double(line.service_tax)
        .Int(row.fo ? 1 : 0)
        .Double(line.stt)
        .Double(row.stt_percent)
        .Text(kDeliveryTypes[row.delivery])
        .EndRow();
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
    const auto piece = book_.TakeFromLot({{ends->from.client, year_}, ends->from.account, scrip},
                                         row.rate, row.quantity, available);
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
    book_.Receive({{ends->to.client, year_}, ends->to.account, scrip}, row.date, row.rate,
                  row.quantity);
    WriteTransfer(row, *ends, scrip, piece->lot);
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

  void WriteTransfer(const TransferRow& row, const TransferEnds& ends, ScripId scrip, LotId lot) {
    if (recorded_.HasTransfer(year_, ends.from.account, ends.to.account, scrip, row, day_)) {
      Fail(FileKind::kTransfers, row.line, "", "this transfer is recorded already");
    }
    constexpr int kSameClient = 0;
    constexpr int kOtherClient = 1;
    transfers_.Int(ends.from.client.value)
        .Text(year_text_)
        .Int(next_transfer_++)
        .Text(day_)
        .Int(ends.from.account.value)
        .Int(ends.from.client == ends.to.client ? kSameClient : kOtherClient)
        .Int(ends.to.account.value)
        .Int(ends.to.client.value)
        .Int(lot.value)
        .Int(scrip.value)
        .Double(row.rate)
        .Double(row.quantity)
        .EndRow();
  }

  void WriteLots() {
    BulkWriter insert(transaction_, kInsertLot, "itiiidd");
    BulkWriter update(transaction_, kUpdateLot, "di");
    for (const HoldingsBook::LotState& state : book_.Lots()) {
      if (!state.is_new) {
        if (state.lot.quantity != state.stored) {
          update.Double(state.lot.quantity).Int(state.lot.id.value).EndRow();
        }
        continue;
      }
      insert.Int(state.place.of.client.value)
          .Text(state.place.of.year.Utf8())
          .Int(state.lot.id.value)
          .Int(state.lot.account.value)
          .Int(state.lot.scrip.value)
          .Double(state.lot.quantity)
          .Double(state.lot.rate)
          .EndRow();
    }
    insert.Finish();
    update.Finish();
  }

  Transaction& transaction_;
  const Portfolio& portfolio_;
  const ResolvedNames& names_;
  ErrorList& errors_;
  ImportResult& result_;
  Progress& progress_;
  RecordedDocuments recorded_;
  HoldingsBook book_;
  BulkWriter openings_;
  BulkWriter bills_;
  BulkWriter lines_;
  BulkWriter transfers_;
  int next_opening_ = 1;
  int next_bill_ = 1;
  int next_transfer_ = 1;
  std::size_t line_count_ = 0;
  FinancialYear year_{0};
  std::string year_text_;
  std::string day_;
  std::vector<LotId> purchase_lots_;
  std::vector<RecordedLine> recorded_lines_;
  std::vector<quorvane::bills::BillLine> totals_lines_;
  std::vector<const TransferRow*> open_transfers_;
};

}  // namespace

void ImportMovements(Transaction& transaction, const Portfolio& portfolio,
                     const ResolvedNames& names, ErrorList& errors, ImportResult& result,
                     Progress& progress) {
  MovementImport(transaction, portfolio, names, errors, result, progress).Run();
}

}  // namespace quorvane::portfolio
