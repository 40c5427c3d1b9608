
#include "core/text/Amounts.h"
#include "reporting/output/XlsxTemplate.h"
#include "reports/demat/TransactionDocument.h"

#include <cstdlib>

namespace quorvane::demat {
namespace {

using reporting::Cell;
using reporting::TemplateLine;

constexpr std::size_t kFields = 13;
constexpr std::size_t kCompany = 4;
constexpr std::size_t kFirstMoney = 8;

QString Utf8(const std::string& text) {
  return QString::fromStdString(text);
}

std::vector<Cell> MoneyCells(const TransactionSums& sums) {
  std::vector<Cell> cells(kFields);
  std::size_t at = kFirstMoney;
  for (const std::int64_t paise :
       {sums.trade_value, sums.brokerage, sums.service_tax, sums.stt, sums.total}) {
    cells[at++] = text::FromPaise(paise);
  }
  return cells;
}

/// The lines of the template, broker by broker.
class LineList {
 public:
  LineList(TransactionLayout layout, const lookups::Directory& directory,
           std::span<const TransactionSection> sections)
      : layout_(layout), directory_(directory) {
    std::size_t brokers = 0;
    TransactionSums sums;
    TransactionClosing closing;
    for (const TransactionSection& section : sections) {
      brokers += section.brokers.size();
      sums.Add(section.sums);
      closing.Add(section.closing);
    }
    only_broker_ = brokers == 1;
    for (const TransactionSection& section : sections) {
      AddSection(section);
    }
    if (!only_broker_) {
      AddTotals(QStringLiteral("TOTAL"), sums, closing);
    }
  }

  const std::vector<TemplateLine>& Lines() const { return lines_; }

 private:
  void AddSection(const TransactionSection& section) {
    if (section.account) {
      lines_.push_back({QStringLiteral("Grp"), {AccountLine(*section.account, directory_)}});
    }
    for (const BrokerTransactions& broker : section.brokers) {
      lines_.push_back({QStringLiteral("Grp"), {broker.name}});
      int number = 0;
      for (const TransactionLine& line : broker.lines) {
        AddLine(++number, line);
      }
      AddTotals(only_broker_ ? QStringLiteral("TOTAL") : QStringLiteral("Total"), broker.sums,
                broker.closing);
      lines_.push_back({QStringLiteral("Gap"), {}});
    }
  }

  void AddTotals(const QString& label, const TransactionSums& sums,
                 const TransactionClosing& closing) {
    TemplateLine total{QStringLiteral("Tot"), MoneyCells(sums)};
    total.cells[kCompany] = label;
    lines_.push_back(std::move(total));
    if (layout_ == TransactionLayout::kSummarized) {
      for (const ClosingLine& line : ClosingLines(closing)) {
        AddAmount("Sum", line.label, line.amount);
      }
    }
    AddAmount("Net", ClosingCaption(closing), text::FromPaise(std::abs(closing.Amount())));
  }

  void AddLine(int number, const TransactionLine& line) {
    TemplateLine out{QStringLiteral("Fld"), MoneyCells(line.money)};
    const std::vector<Cell> texts{static_cast<double>(number),
                                  line.date,
                                  line.bill_number,
                                  line.settlement_number,
                                  Utf8(directory_.Scrip(line.scrip).name),
                                  line.purchase ? QStringLiteral("Buy") : QStringLiteral("Sell"),
                                  line.quantity.Number(),
                                  table::ShownNumber(line.rate, reporting::Mask::kAmount)};
    std::ranges::copy(texts, out.cells.begin());
    lines_.push_back(std::move(out));
  }

  void AddAmount(const char* pattern, const QString& label, double amount) {
    TemplateLine line{QLatin1String(pattern), std::vector<Cell>(kFields)};
    line.cells[kCompany] = label;
    line.cells.back() = amount;
    lines_.push_back(std::move(line));
  }

  TransactionLayout layout_;
  const lookups::Directory& directory_;
  bool only_broker_ = false;
  std::vector<TemplateLine> lines_;
};

}  // namespace

QString TransactionTemplate(TransactionLayout layout) {
  return layout == TransactionLayout::kSummarized ? QStringLiteral("TransRpt.xlsx")
                                                  : QStringLiteral("TransRptNew.xlsx");
}

void WriteTransactionWorkbook(const TransactionQuery& query, ClientId client,
                              std::span<const TransactionSection> sections,
                              const lookups::Directory& directory, const QString& templates,
                              const QString& path, Progress& progress) {
  reporting::XlsxTemplate book(templates + QLatin1Char('/') + TransactionTemplate(query.layout));
  const lookups::ClientEntry& entry = directory.Client(client);
  book.Set(QStringLiteral("CompId"),
           Utf8(entry.name) + QStringLiteral(" (") + Utf8(entry.code) + QLatin1Char(')'));
  book.Set(QStringLiteral("DMat"), AccountsLine(query, directory));
  book.Set(QStringLiteral("FrmAndToDt"), reporting::PeriodLine(query.period));
  const LineList list(query.layout, directory, sections);
  const QStringList patterns{QStringLiteral("Fld"), QStringLiteral("Grp"), QStringLiteral("Tot"),
                             QStringLiteral("Sum"), QStringLiteral("Net"), QStringLiteral("Gap")};
  book.Repeat(patterns, list.Lines(), progress);
  book.Save(path);
}

}  // namespace quorvane::demat
