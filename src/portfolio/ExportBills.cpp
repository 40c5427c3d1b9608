#include "core/records/Lot.h"
#include "core/records/TradeKey.h"
#include "core/text/Dates.h"
#include "portfolio/ExportedNames.h"
#include "portfolio/OutputFile.h"
#include "portfolio/Portfolio.h"
#include "portfolio/RecordedDocuments.h"
#include "portfolio/trades/TradeIdentity.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <set>
#include <span>
#include <tuple>
#include <unordered_map>

namespace quorvane::portfolio {
namespace {

using records::Bill;
using records::BillLine;
using records::TradeKey;

/// A bill line in little room: there may be millions.
struct Line {
  BillId bill;
  int number;
  records::Side side;
  bool fo;
  std::uint16_t delivery;
  LotId lot;
  ScripId scrip;
  text::Shares quantity;
  double rate;
  double brokerage;
  double service_tax;
  double stt;
  double stt_percent;
};

class BillExport {
 public:
  BillExport(database::Connection& connection, const ExportedNames& names, Progress& progress)
      : connection_(connection), names_(names), progress_(progress) {
    ReadLots();
    ReadLines();
    ReadBills();
  }

  void Write(OutputFolder& folder) {
    FileLayout layout = LayoutOf(FileKind::kBills);
    if (parts_.empty()) {
      layout.columns = layout.columns.first(bills::kBillPart);
    }
    file_ = &folder.Add(layout);
    progress_.Begin(QStringLiteral("bills.csv"), static_cast<std::int64_t>(lines_.size()));
    InOrder(
        bills_, [this](const Bill& bill) { return PlaceOf(bill); },
        [this](const Bill& bill) { WriteBill(bill); });
    file_->Finish();
  }

  /// After Write: the trades of brokers' files that are in its bills.
  void WriteTradeKeys(OutputFolder& folder) {
    ReadTradeKeys();
    if (keys_.empty()) {
      return folder.Remove(LayoutOf(FileKind::kTradeKeys));
    }
    FileLayout layout = LayoutOf(FileKind::kTradeKeys);
    if (parts_.empty()) {
      layout.columns = layout.columns.first(trade_keys::kBillPart);
    }
    file_ = &folder.Add(layout);
    InOrder(
        bills_, [this](const Bill& bill) { return PlaceOf(bill); },
        [this](const Bill& bill) { WriteTradeKeysOf(bill); });
    file_->Finish();
  }

 private:
  /// What puts the bills of all files in order.
  std::tuple<std::string_view, std::string_view, std::optional<text::Date>> PlaceOf(
      const Bill& bill) const {
    return {names_.clients.Use(bill.client), names_.accounts.Use(bill.account),
            text::ParseDmy(bill.date)};
  }

  /// Of bills that are written. A trade of a scrip that is gone or was never told could not come in
  /// again.
  void ReadTradeKeys() {
    std::set<BillId> written;
    for (const Bill& bill : bills_) {
      if (bill.account) {
        written.insert(bill.id);
      }
    }
    records::Select<TradeKey>(connection_).Each([&](const TradeKey& trade) {
      const std::string identity = trade.trade_key.toStdString();
      const auto scrip = ScripInIdentity(identity);
      const bool known = scrip ? names_.scrips.Has(*scrip) : !NamesScrip(identity);
      if (written.contains(trade.bill) && known) {
        const std::string_view code = scrip ? names_.scrips.Use(*scrip) : std::string_view();
        keys_[trade.bill].emplace(WithScrip(identity, {}), code);
      }
    });
  }

  void WriteTradeKeysOf(const Bill& bill) {
    const auto own = keys_.find(bill.id);
    if (own == keys_.end()) {
      return;
    }
    const std::string part = PartOf(bill.id);
    std::string& out = file_->Buffer();
    for (const auto& [key, code] : own->second) {
      AppendFields(out, names_.clients.Use(bill.client), names_.accounts.Use(bill.account),
                   bill.number, bill.date, names_.brokers.Use(bill.broker), key, code);
      out.append(part) += '\n';
    }
    file_->WriteWhenLarge();
  }

  void ReadLots() {
    using records::Lot;
    names_.Select(connection_, &Lot::client).Only<&Lot::id, &Lot::rate>([this](const Lot& lot) {
      lot_rates_.Put(lot.id.value, lot.rate);
    });
    lot_rates_.Seal();
  }

  void ReadLines() {
    names_.Select(connection_, &BillLine::client)
        .Only<&BillLine::bill, &BillLine::number, &BillLine::side, &BillLine::lot, &BillLine::scrip,
              &BillLine::quantity, &BillLine::rate, &BillLine::brokerage, &BillLine::service_tax,
              &BillLine::stt, &BillLine::stt_percent, &BillLine::fo, &BillLine::delivery_type>(
            [this](const BillLine& line) {
              lines_.push_back({line.bill, line.number, line.side, line.fo,
                                DeliveryPlace(line.delivery_type), line.lot, line.scrip,
                                line.quantity, line.rate, line.brokerage, line.service_tax,
                                line.stt, line.stt_percent});
            });
    std::ranges::sort(lines_, {},
                      [](const Line& line) { return std::pair(line.bill, line.number); });
  }

  /// "N.A." is the column's default and is written as nothing.
  std::uint16_t DeliveryPlace(const QString& type) {
    const std::string text = type.toStdString();
    const auto found = std::ranges::find(deliveries_, text == kDeliveryTypes[0] ? "" : text);
    const auto place = static_cast<std::uint16_t>(found - deliveries_.begin());
    if (found == deliveries_.end()) {
      deliveries_.push_back(text);
    }
    return place;
  }

  /// Bills of one client, account, broker, number and date are told apart by a part, from 2 on for
  /// the second: without it they would come in again as one. A bill without lines or without a
  /// client cannot come in again.
  void ReadBills() {
    std::unordered_map<std::string, int> count;
    bills_ = names_.Select(connection_, &Bill::client).OrderBy(&Bill::id).All();
    std::erase_if(bills_, [this](const Bill& bill) {
      return LinesOf(bill.id).empty() || !names_.clients.Has(bill.client);
    });
    for (Bill& bill : bills_) {
      // A deleted account is written as none.
      bill.account = names_.accounts.Has(bill.account) ? bill.account : AccountId{};
      const int part = ++count[SharedByParts(bill)];
      if (part > 1) {
        parts_.emplace(bill.id, part);
      }
    }
  }

  std::span<const Line> LinesOf(BillId bill) const {
    const auto first = std::ranges::lower_bound(lines_, bill, {}, &Line::bill);
    const auto end = std::ranges::upper_bound(first, lines_.end(), bill, {}, &Line::bill);
    return {first, end};
  }

  void WriteBill(const Bill& bill) {
    std::string header;
    // A settlement number that was never given is a single blank in old databases.
    AppendFields(header, names_.clients.Use(bill.client), names_.accounts.Use(bill.account),
                 bill.number, bill.date,
                 bill.settlement_number == QLatin1String(" ") ? QString() : bill.settlement_number,
                 names_.brokers.Use(bill.broker), names_.exchanges.Use(bill.exchange));
    const std::string part = PartOf(bill.id);
    std::string& out = file_->Buffer();
    const std::span<const Line> lines = LinesOf(bill.id);
    for (const Line& line : lines) {
      out.append(header) += ',';
      WriteLine(line);
      if (&line == &lines.front()) {
        AppendFields(out, bill.other_charges, bill.transaction_charges);
      } else {
        out += ',';
      }
      out.append(part) += '\n';
    }
    file_->WriteWhenLarge();
    written_ += static_cast<std::int64_t>(lines.size());
    progress_.Step(written_);
    progress_.ThrowIfCancelled();
  }

  /// The last field with the comma before it; nothing when no bill of the file has a part.
  std::string PartOf(BillId bill) const {
    if (parts_.empty()) {
      return {};
    }
    const auto part = parts_.find(bill);
    return part == parts_.end() ? "," : fmt::format(",{}", part->second);
  }

  void WriteLine(const Line& line) {
    const bool sale = line.side == records::Side::kSale;
    std::string& out = file_->Buffer();
    AppendFields(out, WordOf(kPurchaseSale, sale), names_.scrips.Use(line.scrip), line.quantity,
                 line.rate, line.brokerage, line.service_tax, line.stt, line.stt_percent,
                 std::string_view(deliveries_[line.delivery]), line.fo);
    out += ',';
    if (sale) {
      AppendLotRate(line.lot);
    }
    out += ',';
  }

  /// Nothing at all would mean a sale that is still to be taken from the oldest lots.
  void AppendLotRate(LotId lot) {
    if (const double* rate = lot_rates_.Find(lot.value)) {
      text::AppendExact(file_->Buffer(), *rate);
    } else {
      file_->Buffer() += kNoLotWord;
    }
  }

  database::Connection& connection_;
  const ExportedNames& names_;
  Progress& progress_;
  OutputFile* file_ = nullptr;
  IdMap<double> lot_rates_;
  std::vector<Bill> bills_;  ///< by key
  std::vector<Line> lines_;  ///< by bill
  std::vector<std::string> deliveries_{""};
  std::unordered_map<BillId, int> parts_;
  std::unordered_map<BillId, std::set<std::pair<std::string, std::string>>> keys_;
  std::int64_t written_ = 0;
};

}  // namespace

void ExportBills(database::Connection& connection, OutputFolder& folder, const ExportedNames& names,
                 Progress& progress) {
  BillExport bills(connection, names, progress);
  bills.Write(folder);
  bills.WriteTradeKeys(folder);
}

}  // namespace quorvane::portfolio
