#include "portfolio/ExportBills.h"

#include "core/IdMap.h"
#include "core/lookups/Directory.h"
#include "core/text/Amounts.h"
#include "core/text/Csv.h"
#include "portfolio/Portfolio.h"

#include <fmt/format.h>

#include <algorithm>
#include <span>
#include <unordered_map>

namespace quorvane::portfolio {
namespace {

using database::Recordset;

struct Line {
  int bill;
  int number;
  bool purchase;
  int lot;
  ScripId scrip;
  double quantity;
  double rate;
  double brokerage;
  double service_tax;
  double stt;
  double stt_percent;
  bool fo;
  std::uint16_t delivery;
};

class BillExport {
 public:
  BillExport(database::Connection& connection, const ExportScope& scope, Progress& progress)
      : connection_(connection), scope_(scope), progress_(progress), directory_(connection) {
    ReadLots();
    ReadLines();
    ReadParts();
  }

  void Write(OutputFolder& folder) {
    FileLayout layout = LayoutOf(FileKind::kBills);
    if (parts_.empty()) {
      layout.columns = layout.columns.first(bills::kBillPart);
    }
    file_ = &folder.Add(layout);
    WriteBills();
    file_->Finish();
  }

 private:
  void ReadLots() {
    const ScopedText where = scope_.Clients("Cid");
    for (const auto& row :
         connection_.OpenValues("Select Id,Rate From Stock" + where.text, where.values)) {
      lot_rates_.Put(row.Int(std::size_t{0}), row.Double(1));
    }
    lot_rates_.Seal();
  }

  void ReadLines() {
    const ScopedText where = scope_.Clients("Cid");
    for (const auto& row : connection_.OpenValues(
             "Select SID,Id,SP,StkId,ScriptId,Qty,Rate,Brk,STax,STT,STTPer,FO,DelvType From "
             "SPTrans" +
                 where.text,
             where.values)) {
      constexpr int kPurchase = 1;
      lines_.push_back({row.Int(std::size_t{0}), row.Int(1), row.Int(2) == kPurchase, row.Int(3),
                        ScripId{row.Int(4)}, row.Double(5), row.Double(6), row.Double(7),
                        row.Double(8), row.Double(9), row.Double(10), row.Int(11) != 0,
                        DeliveryPlace(row.Utf8(12))});
    }
    std::sort(lines_.begin(), lines_.end(), [](const Line& a, const Line& b) {
      return a.bill != b.bill ? a.bill < b.bill : a.number < b.number;
    });
  }

  /// "N.A." is the column's default and is written as nothing.
  std::uint16_t DeliveryPlace(std::string_view text) {
    if (text == kDeliveryTypes[0]) {
      text = {};
    }
    const auto found = std::find(deliveries_.begin(), deliveries_.end(), text);
    const auto place = static_cast<std::uint16_t>(found - deliveries_.begin());
    if (found == deliveries_.end()) {
      deliveries_.emplace_back(text);
    }
    return place;
  }

  /// Bills of one client, account, broker, number and date are told apart by a part, from 2 on for
  /// the second: without it they would come in again as one.
  void ReadParts() {
    std::unordered_map<std::string, int> count;
    const ScopedText where = scope_.Clients("Cid");
    for (const auto& row : connection_.OpenValues(
             "Select ID,Cid,AcId,BrokId,BDate,BillNo From SPMaster" + where.text + " Order By ID",
             where.values)) {
      const int bill = row.Int(std::size_t{0});
      if (LinesOf(bill).empty()) {
        continue;
      }
      // A deleted account is written as none.
      const AccountId account = directory_.Account(AccountId{row.Int(2)}).id;
      const int part = ++count[fmt::format("{} {} {} {} {}", row.Int(1), account.value, row.Int(3),
                                           row.Utf8(4), row.Utf8(5))];
      if (part > 1) {
        parts_.emplace(bill, part);
      }
    }
  }

  std::span<const Line> LinesOf(int bill) const {
    const auto [first, last] = std::equal_range(
        lines_.begin(), lines_.end(), Line{bill, 0, false, 0, {}, 0, 0, 0, 0, 0, 0, false, 0},
        [](const Line& a, const Line& b) { return a.bill < b.bill; });
    return {first, last};
  }

  void WriteBills() {
    progress_.Begin(QStringLiteral("bills.csv"), static_cast<std::int64_t>(lines_.size()));
    const ScopedText where = scope_.Clients("M.Cid");
    for (const auto& row : connection_.OpenValues(
             "Select M.ID,C.Code,A.ACNo,M.BillNo,M.BDate,M.SettlNo,B.Name,E.ExName,M.OthCharge,"
             "M.TranChg From SPMaster M Join ClientInfo C On C.Id=M.Cid Left Join ClientActDet A "
             "On A.id=M.AcId Left Join Broker B On B.Id=M.BrokId Left Join Exchange E On "
             "E.Id=M.ExId" +
                 where.text +
                 " Order By Binary C.Code,Binary "
                 "A.ACNo,concat_ws('-',right(M.BDate,4),mid(M.BDate,4,2),"
                 "left(M.BDate,2)),M.ID",
             where.values)) {
      WriteBill(row);
      file_->WriteWhenLarge();
    }
  }

  void WriteBill(const Recordset& bill) {
    const std::span<const Line> lines = LinesOf(bill.Int(std::size_t{0}));
    const std::string part = PartOf(bill.Int(std::size_t{0}));
    std::string& out = file_->Buffer();
    std::string header;
    for (std::size_t column = 1; column <= 7; ++column) {
      // A settlement number that was never given is a single blank in old databases.
      const std::string_view text = bill.Utf8(column);
      text::AppendCsvField(header, text == " " ? std::string_view() : text);
      header += ',';
    }
    bool first_row = true;
    for (const Line& line : lines) {
      out += header;
      WriteLine(line);
      if (first_row) {
        text::AppendExact(out, bill.Double(8));
        out += ',';
        text::AppendExact(out, bill.Double(9));
      } else {
        out += ',';
      }
      out += part;
      out += '\n';
      first_row = false;
    }
    written_ += static_cast<std::int64_t>(lines.size());
    progress_.Step(written_);
    progress_.ThrowIfCancelled();
  }

  /// The last field with the comma before it; nothing when no bill of the file has a part.
  std::string PartOf(int bill) const {
    if (parts_.empty()) {
      return {};
    }
    const auto part = parts_.find(bill);
    return part == parts_.end() ? "," : fmt::format(",{}", part->second);
  }

  /// Nothing at all would mean a sale that is still to be taken from the oldest lots.
  void AppendLotRate(int lot) {
    if (const double* rate = lot_rates_.Find(lot)) {
      text::AppendExact(file_->Buffer(), *rate);
    } else {
      file_->Buffer() += kNoLotWord;
    }
  }

  void WriteLine(const Line& line) {
    std::string& out = file_->Buffer();
    out += line.purchase ? "P," : "S,";
    text::AppendCsvField(out, directory_.Scrip(line.scrip).code);
    for (const double number :
         {line.quantity, line.rate, line.brokerage, line.service_tax, line.stt, line.stt_percent}) {
      out += ',';
      text::AppendExact(out, number);
    }
    out += ',';
    text::AppendCsvField(out, deliveries_[line.delivery]);
    out += line.fo ? ",1," : ",0,";
    if (!line.purchase) {
      AppendLotRate(line.lot);
    }
    out += ',';
  }

  database::Connection& connection_;
  const ExportScope& scope_;
  Progress& progress_;
  lookups::Directory directory_;
  OutputFile* file_ = nullptr;
  IdMap<double> lot_rates_;
  std::vector<Line> lines_;
  std::vector<std::string> deliveries_;
  std::unordered_map<int, int> parts_;  ///< by bill
  std::int64_t written_ = 0;
};

}  // namespace

void ExportBills(database::Connection& connection, OutputFolder& folder, const ExportScope& scope,
                 Progress& progress) {
  BillExport(connection, scope, progress).Write(folder);
}

}  // namespace quorvane::portfolio
