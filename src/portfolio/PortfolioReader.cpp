#include "portfolio/Portfolio.h"
#include "portfolio/PortfolioRows.h"

#include <QDir>
#include <QFile>

#include <fmt/format.h>

#include <algorithm>
#include <stdexcept>

namespace quorvane::portfolio {
namespace {

/// Reads the files; the rows of the documents that are no bills itself.
class Reader {
 public:
  Reader(Portfolio& portfolio, ErrorList& errors) : portfolio_(portfolio), errors_(errors) {}

  void ReadFolder(const QDir& folder) {
    if (!folder.exists()) {
      throw std::runtime_error("there is no folder " + folder.path().toStdString());
    }
    for (const FileLayout& layout : Layouts()) {
      ReadFile(folder, layout);
    }
    if (portfolio_.tables.empty()) {
      errors_.Add(folder.path().toStdString(), 0, "",
                  "expected at least one file of a portfolio, such as bills.csv");
    }
    bills_.Group();
  }

  void ReadFiles(const std::map<FileKind, std::string>& contents) {
    for (const auto& [kind, content] : contents) {
      ReadContent(LayoutOf(kind), content);
    }
    bills_.Group();
  }

 private:
  void ReadFile(const QDir& folder, const FileLayout& layout) {
    QFile file(folder.filePath(
        QString::fromUtf8(layout.name.data(), static_cast<qsizetype>(layout.name.size()))));
    if (!file.exists()) {
      return;
    }
    if (!file.open(QIODevice::ReadOnly)) {
      throw std::runtime_error(fmt::format("cannot read {}: {}", file.fileName().toStdString(),
                                           file.errorString().toStdString()));
    }
    std::string content(static_cast<std::size_t>(file.size()), '\0');
    const qint64 got = file.read(content.data(), file.size());
    content.resize(static_cast<std::size_t>(std::max<qint64>(got, 0)));
    ReadContent(layout, std::move(content));
  }

  void ReadContent(const FileLayout& layout, std::string content) {
    CsvTable& table = *portfolio_.tables.emplace_back(
        std::make_unique<CsvTable>(layout, std::move(content), errors_));
    fields_.Begin(table, layout.kind);
    portfolio_.has_action_lots |= layout.kind == FileKind::kActionLots;
    while (table.Next()) {
      ReadRow();
    }
  }

  void ReadRow() {
    switch (fields_.File()) {
      case FileKind::kParticipants:
        return masters_.ReadParticipant();
      case FileKind::kClients:
        return masters_.ReadClient();
      case FileKind::kAccounts:
        return masters_.ReadAccount();
      case FileKind::kBrokers:
        return masters_.ReadBroker();
      case FileKind::kScrips:
        return masters_.ReadScrip();
      case FileKind::kPercentages:
        return masters_.ReadPercentage();
      case FileKind::kOpening:
        return ReadOpening();
      case FileKind::kBills:
        return bills_.Read();
      case FileKind::kTransfers:
        return ReadTransfer();
      case FileKind::kBrokerOpening:
        return ReadBrokerOpening();
      case FileKind::kPayments:
        return ReadMoney(portfolio_.payments, kPaymentModes);
      case FileKind::kReceipts:
        return ReadMoney(portfolio_.receipts, kReceiptModes);
      case FileKind::kRates:
        return ReadRate();
      case FileKind::kIsins:
        return actions_.ReadIsin();
      case FileKind::kActions:
        return actions_.ReadAction();
      case FileKind::kActionLots:
        return actions_.ReadActionLot();
      case FileKind::kDividends:
        return actions_.ReadDividend();
      case FileKind::kFairValues:
        return tax_.ReadFairValue();
      case FileKind::kTaxLosses:
        return tax_.ReadTaxLoss();
      case FileKind::kOpeningMarks:
        return marks_.ReadOpeningMark();
      case FileKind::kTradeKeys:
        return marks_.ReadTradeKey();
      case FileKind::kStatementChecks:
        return marks_.ReadStatementCheck();
    }
  }

  void ReadOpening() {
    using namespace opening;
    OpeningRow row;
    row.client = fields_.Client(kClientCode);
    row.account = fields_.Account(kAccountNo);
    const auto year = fields_.Table().YearOf(kFyear);
    const auto date = fields_.Table().DateOf(kPurchaseDate);
    row.scrip = fields_.Scrip(kScripCode);
    records::Opening& record = row.record;
    record.quantity = fields_.Table().Shares(kQuantity);
    record.rate = fields_.Table().Number(kRate);
    record.service_tax = fields_.Table().Number(kServiceTax);
    record.brokerage = fields_.Table().Number(kBrokerage);
    record.stt = fields_.Table().Number(kStt);
    record.fo = fields_.Table().Flag(kFo);
    record.total = records::OpeningTotal(record.quantity, record.rate, record.brokerage);
    row.line = fields_.Table().Line();
    if (!year || !date) {
      return;
    }
    if (*date > year->LastDay()) {
      fields_.Table().Fail(
          kPurchaseDate,
          fmt::format("expected a date up to {}", text::FormatDmy(year->LastDay()).toStdString()));
    }
    record.year = *year;
    record.purchase_date = text::FormatDmy(*date);
    row.purchase_date = *date;
    portfolio_.openings.push_back(std::move(row));
  }

  void ReadTransfer() {
    using namespace transfers;
    TransferRow row;
    const auto date = fields_.Table().DateOf(kDate);
    row.from_account = fields_.Account(kFromAccount);
    row.to_account = fields_.Account(kToAccount);
    row.from_client = fields_.OptionalClient(kFromClient);
    row.to_client = fields_.OptionalClient(kToClient);
    row.scrip = fields_.Scrip(kScripCode);
    row.record.rate = fields_.Table().Number(kRate);
    row.record.quantity = fields_.Table().Shares(kQuantity);
    row.line = fields_.Table().Line();
    if (row.from_account == row.to_account && row.from_client == row.to_client) {
      fields_.Table().Fail(kToAccount, "expected another account than the one the shares leave");
    }
    if (date) {
      row.date = *date;
      row.record.date = text::FormatDmy(*date);
      row.record.year = text::FinancialYear::Of(*date);
      portfolio_.transfers.push_back(std::move(row));
    }
  }

  void ReadBrokerOpening() {
    using namespace broker_opening;
    BrokerOpeningRow row;
    row.client = fields_.Client(kClientCode);
    const auto year = fields_.Table().YearOf(kFyear);
    row.broker = fields_.Broker(kBroker);
    row.record.amount = fields_.Table().PositiveNumber(kAmount);
    row.record.side = fields_.Table().Choice(kSide, kDebitCredit) == 0
                          ? records::DebitCredit::kDebit
                          : records::DebitCredit::kCredit;
    row.line = fields_.Table().Line();
    if (year) {
      row.record.year = *year;
      portfolio_.broker_openings.push_back(row);
    }
  }

  void ReadMoney(std::vector<MoneyRow>& rows, std::span<const std::string_view> modes) {
    using namespace money;
    MoneyRow row;
    row.client = fields_.Client(kClientCode);
    row.broker = fields_.Broker(kBroker);
    records::Payment& record = row.record;
    record.mode = fields_.Table().Choice(kMode, modes);
    record.amount = fields_.Table().PositiveNumber(kAmount);
    const auto date = fields_.Table().DateOf(kDate);
    record.payment_mode = fields_.Table().Choice(kPaymentMode, kPaymentKinds);
    record.cheque_number = fields_.Text(kChequeNo);
    record.cheque_date = fields_.DayText(kChequeDate);
    record.drawn_on = fields_.Text(kDrawnOn);
    record.remark = fields_.Text(kRemark);
    row.line = fields_.Table().Line();
    if (date) {
      record.date = text::FormatDmy(*date);
      record.year = text::FinancialYear::Of(*date);
      rows.push_back(std::move(row));
    }
  }

  void ReadRate() {
    using namespace rates;
    RateRow row;
    const auto date = fields_.Table().DateOf(kDate);
    row.scrip = fields_.Scrip(kScripCode);
    row.record.rate = fields_.Table().Number(kRate);
    row.line = fields_.Table().Line();
    if (date) {
      row.record.date = text::FormatDmy(*date);
      row.record.year = text::FinancialYear::Of(*date);
      portfolio_.rates.push_back(std::move(row));
    }
  }

  Portfolio& portfolio_;
  ErrorList& errors_;
  RowFields fields_{portfolio_};
  MasterRows masters_{portfolio_, fields_};
  BillRows bills_{portfolio_, fields_};
  ActionRows actions_{portfolio_, fields_};
  TaxRows tax_{portfolio_, fields_};
  MarkRows marks_{portfolio_, fields_};
};

}  // namespace

Portfolio ReadPortfolio(const QString& folder, ErrorList& errors) {
  Portfolio portfolio;
  Reader(portfolio, errors).ReadFolder(QDir(folder));
  return portfolio;
}

Portfolio ReadPortfolioFiles(const std::map<FileKind, std::string>& contents, ErrorList& errors) {
  Portfolio portfolio;
  Reader(portfolio, errors).ReadFiles(contents);
  return portfolio;
}

}  // namespace quorvane::portfolio
