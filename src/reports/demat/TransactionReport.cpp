#include "reports/demat/TransactionReport.h"

#include "core/text/Amounts.h"
#include "core/text/Tr.h"
#include "reports/demat/BillReader.h"

#include <algorithm>
#include <tuple>

namespace quorvane::demat {
namespace {

TransactionLine LineOf(const PlacedBill& placed, const records::BillLine& line) {
  TransactionLine made{placed.date,         placed.bill.id,
                       placed.bill.number,  placed.bill.settlement_number.trimmed(),
                       placed.bill.account, line.scrip,
                       line.IsPurchase(),   line.quantity,
                       line.rate,           {}};
  const double quantity = line.quantity.Number();
  made.money.trade_value = text::ToPaise(quantity * line.rate);
  made.money.brokerage = text::ToPaise(line.brokerage * quantity);
  made.money.service_tax = text::ToPaise(line.service_tax);
  made.money.stt = text::ToPaise(line.stt);
  made.money.total = made.money.trade_value + made.money.brokerage + made.money.stt;
  return made;
}

/// Adds a bill to the transactions of its broker.
class BillAdder {
 public:
  explicit BillAdder(const TransactionQuery& query) : query_(query) {}

  void Add(BrokerTransactions& of, const PlacedBill& placed) const {
    const std::size_t first = of.lines.size();
    for (const records::BillLine& recorded : placed.bill.lines) {
      const TransactionLine line = LineOf(placed, recorded);
      of.sums.Add(line.money);
      of.closing.Add(ClosingOf(line));
      AddLine(of.lines, first, line);
    }
    if (query_.scrips.empty()) {
      of.closing.other_charges += text::ToPaise(placed.bill.other_charges);
      of.closing.transaction_charges += text::ToPaise(placed.bill.transaction_charges);
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
    same->quantity += line.quantity;
    if (same->rate != line.rate && same->quantity) {
      same->rate = text::Tidy(text::FromPaise(same->money.trade_value) / same->quantity.Number());
    }
  }

  const TransactionQuery& query_;
};

/// Gathers bills, which come in the order of the report, into one client's sections.
class SectionMaker {
 public:
  SectionMaker(const TransactionQuery& query, const BillReader& reader)
      : query_(query), reader_(reader), adder_(query) {}

  void Add(const PlacedBill& placed) {
    const records::Bill& bill = placed.bill;
    const auto account = query_.account_wise ? std::optional(bill.account) : std::nullopt;
    if (sections_.empty() || sections_.back().account != account) {
      sections_.push_back({account, {}, {}, {}});
    }
    auto& brokers = sections_.back().brokers;
    if (brokers.empty() || brokers.back().broker != bill.broker) {
      brokers.push_back({bill.broker, reader_.NameOf(bill.broker), {}, {}, {}});
    }
    adder_.Add(brokers.back(), placed);
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
  return closing.Amount() > 0 ? Tr("TransactionReport", "Total Payable")
                              : Tr("TransactionReport", "Total Receivable");
}

records::Faults BuildTransactions(
    database::Connection& connection, const TransactionQuery& query, Progress& progress,
    const std::function<void(ClientId, std::span<const TransactionSection>)>& give) {
  BillReader reader(connection, query, progress);
  const std::vector<PlacedBill> bills = reader.Read();
  SectionMaker maker(query, reader);
  for (std::size_t i = 0; i < bills.size(); ++i) {
    maker.Add(bills[i]);
    if (i + 1 == bills.size() || bills[i + 1].client_rank != bills[i].client_rank) {
      if (const std::vector<TransactionSection> sections = maker.Take(); !sections.empty()) {
        give(bills[i].bill.client, sections);
      }
    }
  }
  return reader.Faults();
}

}  // namespace quorvane::demat
