#include "reports/demat/TransactionReport.h"

#include "core/text/Amounts.h"
#include "reports/demat/Ranking.h"

#include <QCoreApplication>

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>
#include <tuple>

namespace quorvane::demat {
namespace {

constexpr int kSteps = 3;

struct Bill {
  std::uint32_t client_rank = 0;
  std::uint32_t account_rank = 0;
  std::uint32_t broker_rank = 0;
  BillId id;
  text::Date date;
  QString number;
  QString settlement;
  AccountId account;
  BrokerId broker;
  std::int64_t other_charges = 0;
  std::int64_t transaction_charges = 0;
  std::vector<std::pair<int, TransactionLine>> lines;  ///< with their places in the bill
};

template <class IdType>
bool IsWanted(const std::vector<IdType>& wanted, IdType id) {
  return wanted.empty() || std::ranges::find(wanted, id) != wanted.end();
}

/// Reads the bills of the period with their lines, in the order of the report.
class BillReader {
 public:
  BillReader(database::Connection& connection, const TransactionQuery& query, Progress& progress)
      : connection_(connection), query_(query), progress_(progress) {}

  std::vector<Bill> Read() {
    progress_.Begin(QCoreApplication::translate("TransactionReport", "Reading bills"), kSteps);
    ReadMasters();
    Step();
    ReadBills();
    Step();
    ReadLines();
    Step();
    for (Bill& bill : bills_) {
      std::ranges::stable_sort(bill.lines, {}, [](const auto& line) { return line.first; });
    }
    std::ranges::sort(bills_, {}, [this](const Bill& bill) {
      return std::tuple(bill.client_rank, query_.account_wise ? bill.account_rank : 0,
                        bill.broker_rank, bill.date, bill.id);
    });
    return std::move(bills_);
  }

  ClientId ClientOf(const Bill& bill) const { return {clients_.IdOf(bill.client_rank)}; }
  QString NameOf(BrokerId broker) const {
    const auto found = names_.find(broker);
    return found == names_.end() ? QString() : found->second;
  }

 private:
  void Step() {
    progress_.Step(++steps_);
    progress_.ThrowIfCancelled();
  }

  void ReadMasters() {
    for (const auto& row : connection_.Open("Select Id From ClientInfo Order By Code,Id")) {
      clients_.Add(row.Int(std::size_t{0}));
    }
    for (const auto& row : connection_.Open("Select Id From ClientActDet Order By ACNo,Id")) {
      accounts_.Add(row.Int(std::size_t{0}));
    }
    for (const auto& row : connection_.Open("Select Id,Name From Broker Order By Name,Id")) {
      brokers_.Add(row.Int(std::size_t{0}));
      names_.emplace(BrokerId{row.Int(std::size_t{0})}, row.Text(1));
    }
  }

  database::Recordset OpenOfYear(std::string_view sql) const {
    std::vector<database::Value> values{query_.year.Text()};
    std::string text = fmt::format("{} Where Fyear=?", sql);
    if (query_.client) {
      text += " and Cid=?";
      values.emplace_back(*query_.client);
    }
    return connection_.OpenValues(text, values);
  }

  void ReadBills() {
    for (const auto& row : OpenOfYear("Select Cid,ID,BillNo,BDate,SettlNo,BrokId,AcId,OthCharge,"
                                      "TranChg From SPMaster")) {
      const BillId id{row.Int(1)};
      const auto date = text::ParseDmy(row.Utf8(3));
      if (!date) {
        throw std::runtime_error(
            fmt::format("Bill {} has no valid date (\"{}\"); correct it before a report is made",
                        id.value, row.Utf8(3)));
      }
      const AccountId account{row.Int(6)};
      if (*date < query_.period.from || *date > query_.period.to ||
          !IsWanted(query_.accounts, account)) {
        continue;
      }
      const BrokerId broker{row.Int(5)};
      places_.emplace(id, bills_.size());
      bills_.push_back({clients_.Of(row.Int(std::size_t{0})),
                        accounts_.Of(account.value),
                        brokers_.Of(broker.value),
                        id,
                        *date,
                        row.Text(2),
                        row.Text(4).trimmed(),
                        account,
                        broker,
                        text::ToPaise(row.Double(7)),
                        text::ToPaise(row.Double(8)),
                        {}});
    }
  }

  void ReadLines() {
    constexpr int kPurchase = 1;
    for (const auto& row :
         OpenOfYear("Select SID,Id,SP,ScriptId,Qty,Rate,Brk,STax,STT From SPTrans")) {
      const auto place = places_.find(BillId{row.Int(std::size_t{0})});
      const ScripId scrip{row.Int(3)};
      if (place == places_.end() || !IsWanted(query_.scrips, scrip)) {
        continue;
      }
      Bill& bill = bills_[place->second];
      TransactionLine line{bill.date,
                           bill.id,
                           bill.number,
                           bill.settlement,
                           bill.account,
                           scrip,
                           row.Int(2) == kPurchase,
                           row.Double(4),
                           row.Double(5),
                           {}};
      line.money.trade_value = text::ToPaise(line.quantity * line.rate);
      line.money.brokerage = text::ToPaise(row.Double(6) * line.quantity);
      line.money.service_tax = text::ToPaise(row.Double(7));
      line.money.stt = text::ToPaise(row.Double(8));
      line.money.total = line.money.trade_value + line.money.brokerage + line.money.stt;
      bill.lines.emplace_back(row.Int(1), std::move(line));
    }
  }

  database::Connection& connection_;
  const TransactionQuery& query_;
  Progress& progress_;
  int steps_ = 0;
  Ranking clients_;
  Ranking accounts_;
  Ranking brokers_;
  std::unordered_map<BrokerId, QString> names_;
  std::unordered_map<BillId, std::size_t> places_;
  std::vector<Bill> bills_;
};

/// Adds a bill to the transactions of its broker.
class BillAdder {
 public:
  explicit BillAdder(const TransactionQuery& query) : query_(query) {}

  void Add(BrokerTransactions& of, const Bill& bill) const {
    const std::size_t first = of.lines.size();
    for (const auto& [place, line] : bill.lines) {
      of.sums.Add(line.money);
      of.closing.Add(ClosingOf(line));
      AddLine(of.lines, first, line);
    }
    if (query_.scrips.empty()) {
      of.closing.other_charges += bill.other_charges;
      of.closing.transaction_charges += bill.transaction_charges;
    }
  }

 private:
  static TransactionClosing ClosingOf(const TransactionLine& line) {
    const std::int64_t charges = line.money.brokerage + line.money.service_tax;
    TransactionClosing closing;
    closing.net = (line.purchase ? line.money.trade_value : -line.money.trade_value) + charges;
    closing.stt = line.money.stt;
    return closing;
  }

  void AddLine(std::vector<TransactionLine>& lines, std::size_t first,
               const TransactionLine& line) const {
    const auto same =
        std::find_if(lines.begin() + static_cast<std::ptrdiff_t>(first), lines.end(),
                     [&](const TransactionLine& one) {
                       return one.scrip == line.scrip && one.purchase == line.purchase;
                     });
    if (query_.layout == TransactionLayout::kDetailed || same == lines.end()) {
      lines.push_back(line);
      return;
    }
    same->money.Add(line.money);
    same->quantity = text::Tidy(same->quantity + line.quantity);
    if (same->rate != line.rate && same->quantity != 0) {
      same->rate = text::Tidy(text::FromPaise(same->money.trade_value) / same->quantity);
    }
  }

  const TransactionQuery& query_;
};

/// Gathers bills, which come in the order of the report, into one client's sections.
class SectionMaker {
 public:
  SectionMaker(const TransactionQuery& query, const BillReader& reader)
      : query_(query), reader_(reader), adder_(query) {}

  void Add(const Bill& bill) {
    const auto account = query_.account_wise ? std::optional(bill.account) : std::nullopt;
    if (sections_.empty() || sections_.back().account != account) {
      sections_.push_back({account, {}, {}, {}});
    }
    auto& brokers = sections_.back().brokers;
    if (brokers.empty() || brokers.back().broker != bill.broker) {
      brokers.push_back({bill.broker, reader_.NameOf(bill.broker), {}, {}, {}});
    }
    adder_.Add(brokers.back(), bill);
  }

  /// Without brokers of whom nothing is told.
  std::vector<TransactionSection> Take() {
    for (TransactionSection& section : sections_) {
      std::erase_if(section.brokers, [](const BrokerTransactions& one) {
        return one.lines.empty() && one.closing.Amount() == 0;
      });
      for (const BrokerTransactions& broker : section.brokers) {
        section.sums.Add(broker.sums);
        section.closing.Add(broker.closing);
      }
    }
    std::erase_if(sections_, [](const TransactionSection& one) { return one.brokers.empty(); });
    return std::exchange(sections_, {});
  }

 private:
  const TransactionQuery& query_;
  const BillReader& reader_;
  BillAdder adder_;
  std::vector<TransactionSection> sections_;
};

}  // namespace

void TransactionSums::Add(const TransactionSums& more) {
  trade_value += more.trade_value;
  brokerage += more.brokerage;
  service_tax += more.service_tax;
  stt += more.stt;
  total += more.total;
}

void TransactionClosing::Add(const TransactionClosing& more) {
  net += more.net;
  other_charges += more.other_charges;
  stt += more.stt;
  transaction_charges += more.transaction_charges;
}

QString ClosingCaption(const TransactionClosing& closing) {
  return closing.Amount() > 0
             ? QCoreApplication::translate("TransactionReport", "Total Payable")
             : QCoreApplication::translate("TransactionReport", "Total Receivable");
}

void BuildTransactions(
    database::Connection& connection, const TransactionQuery& query, Progress& progress,
    const std::function<void(ClientId, std::span<const TransactionSection>)>& give) {
  BillReader reader(connection, query, progress);
  const std::vector<Bill> bills = reader.Read();
  SectionMaker maker(query, reader);
  for (std::size_t i = 0; i < bills.size(); ++i) {
    maker.Add(bills[i]);
    if (i + 1 == bills.size() || bills[i + 1].client_rank != bills[i].client_rank) {
      if (const std::vector<TransactionSection> sections = maker.Take(); !sections.empty()) {
        give(reader.ClientOf(bills[i]), sections);
      }
    }
  }
}

}  // namespace quorvane::demat
