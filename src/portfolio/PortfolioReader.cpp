#include "core/lookups/Directory.h"
#include "core/text/Amounts.h"
#include "core/text/Pan.h"
#include "portfolio/Portfolio.h"

#include <QDir>
#include <QFile>

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <stdexcept>

namespace quorvane::portfolio {

Symbol Interner::Intern(std::string_view text, const CsvTable& table, FileKind file) {
  // Rows of one document stand together, so the last name is asked for most often.
  if (!names_.empty() && text == last_text_) {
    return last_;
  }
  const auto [entry, fresh] =
      symbols_.try_emplace(lookups::Folded(text), static_cast<Symbol>(names_.size()));
  if (fresh) {
    names_.push_back({std::string(text), file, table.Line()});
  }
  last_text_ = text;
  last_ = entry->second;
  return last_;
}

std::string KeyOf(const records::Participant& participant) {
  return lookups::Folded(participant.name.toStdString());
}

std::string KeyOf(const records::Client& client) {
  return lookups::Folded(client.code.toStdString());
}

std::string KeyOf(const records::Broker& broker) {
  return lookups::Folded(broker.name.toStdString());
}

std::string KeyOf(const records::Scrip& scrip) {
  return lookups::Folded(scrip.code.toStdString());
}

std::string KeyOf(const records::Percentage& percentage) {
  return percentage.year.Utf8() + "\n" + lookups::Folded(percentage.name.toStdString());
}

namespace {

class Reader {
 public:
  Reader(const QString& folder, Portfolio& portfolio, ErrorList& errors)
      : folder_(folder), portfolio_(portfolio), errors_(errors) {}

  void Read() {
    if (!folder_.exists()) {
      throw std::runtime_error("there is no folder " + folder_.path().toStdString());
    }
    for (const FileLayout& layout : Layouts()) {
      ReadFile(layout);
    }
    if (portfolio_.tables.empty()) {
      errors_.Add(folder_.path().toStdString(), 0, "",
                  "expected at least one file of a portfolio, such as bills.csv");
    }
    GroupBillLines();
  }

 private:
  void ReadFile(const FileLayout& layout) {
    QFile file(folder_.filePath(
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
    table_ = portfolio_.tables
                 .emplace_back(std::make_unique<CsvTable>(layout, std::move(content), errors_))
                 .get();
    file_ = layout.kind;
    while (table_->Next()) {
      ReadRow();
    }
  }

  void ReadRow() {
    switch (file_) {
      case FileKind::kParticipants:
        return ReadParticipant();
      case FileKind::kClients:
        return ReadClient();
      case FileKind::kAccounts:
        return ReadAccount();
      case FileKind::kBrokers:
        return ReadBroker();
      case FileKind::kScrips:
        return ReadScrip();
      case FileKind::kPercentages:
        return ReadPercentage();
      case FileKind::kOpening:
        return ReadOpening();
      case FileKind::kBills:
        return ReadBillLine();
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
    }
  }

  Symbol Client(int column) {
    return portfolio_.client_codes.Intern(table_->Text(column), *table_, file_);
  }
  std::optional<Symbol> OptionalClient(int column) {
    const bool named = !table_->Text(column).empty();
    return named ? std::optional(Client(column)) : std::nullopt;
  }
  Symbol Account(int column) {
    return portfolio_.account_numbers.Intern(table_->Text(column), *table_, file_);
  }
  Symbol Scrip(int column) {
    return portfolio_.scrip_codes.Intern(table_->Text(column), *table_, file_);
  }
  Symbol Broker(int column) {
    return portfolio_.broker_names.Intern(table_->Text(column), *table_, file_);
  }

  QString Text(int column) {
    return QString::fromUtf8(table_->Text(static_cast<std::size_t>(column)));
  }

  std::string FoldedText(int column) {
    return lookups::Folded(table_->Text(static_cast<std::size_t>(column)));
  }

  static QString DayText(std::optional<text::Date> date) {
    return date ? text::FormatDmy(*date) : QString();
  }

  /// The columns of a contact stand together in every file, in one order.
  void ReadContact(records::Contact& contact, int address) {
    for (QString records::Contact::*member :
         {&records::Contact::address, &records::Contact::city, &records::Contact::state,
          &records::Contact::pin, &records::Contact::std_code, &records::Contact::phone,
          &records::Contact::mobile, &records::Contact::fax, &records::Contact::email}) {
      contact.*member = Text(address++);
    }
  }

  void ReadParticipant() {
    using namespace participants;
    MasterRow<records::Participant> row{{}, table_->Line()};
    records::Participant& record = row.record;
    record.name = Text(kName);
    ReadContact(record, kAddress);
    record.person = Text(kPerson);
    record.designation = Text(kDesignation);
    record.depository = table_->Choice(kDepository, kDepositories) == 1
                            ? records::Depository::kCdsl
                            : records::Depository::kNsdl;
    portfolio_.dp_ids.push_back({KeyOf(record), Text(kDpId), row.line});
    // A participant with several DP ids has a row for each.
    const auto same = std::ranges::find(
        portfolio_.participants, KeyOf(record),
        [](const MasterRow<records::Participant>& other) { return KeyOf(other.record); });
    if (same == portfolio_.participants.end()) {
      portfolio_.participants.push_back(std::move(row));
    } else if (same->record != record) {
      table_->Fail(kName, "the participant stands above with other details");
    }
  }

  void ReadClient() {
    using namespace clients;
    MasterRow<records::Client> row{{}, table_->Line()};
    records::Client& record = row.record;
    record.code = Text(kCode);
    record.group_code = Text(kGroupCode);
    record.name = Text(kName);
    ReadContact(record, kAddress);
    record.date_of_birth = DayText(table_->DateOf(kDob));
    record.pan = Text(kPan);
    if (!text::IsValidPan(record.pan).valid) {
      table_->Fail(kPan,
                   "expected a PAN such as AAAPA9999A, found " + Quoted(record.pan.toStdString()));
    }
    record.sex = table_->Choice(kSex, kSexes);
    record.marital_status = table_->Choice(kMaritalStatus, kMaritalStatuses);
    AddUnique(portfolio_.clients, std::move(row), kCode);
  }

  void ReadAccount() {
    using namespace accounts;
    portfolio_.accounts.push_back({Client(kClientCode), FoldedText(kParticipant), Text(kDpId),
                                   Text(kAccountNo), table_->Line()});
  }

  void ReadBroker() {
    using namespace brokers;
    MasterRow<records::Broker> row{{}, table_->Line()};
    row.record.name = Text(kName);
    ReadContact(row.record, kAddress);
    AddUnique(portfolio_.brokers, std::move(row), kName);
  }

  void ReadScrip() {
    using namespace scrips;
    ScripRow row{{{}, table_->Line()}, Text(kType), Text(kClass)};
    row.record.code = Text(kCode);
    row.record.name = Text(kName);
    row.record.second_code = Text(kNCode);
    AddUnique(portfolio_.scrips, std::move(row), kCode);
  }

  void ReadPercentage() {
    using namespace percentages;
    MasterRow<records::Percentage> row{{}, table_->Line()};
    const auto year = table_->YearOf(kFyear);
    const int kind = table_->Choice(kName, kPercentKinds);
    row.record.percent = table_->Number(kPercent);
    if (!year || kind < 0) {
      return;
    }
    row.record.year = *year;
    row.record.name = Text(kName);
    row.record.as_on = Text(kAsOn);
    AddUnique(portfolio_.percentages, std::move(row), kName);
  }

  template <class Row>
  void AddUnique(std::vector<Row>& rows, Row row, int column) {
    if (!keys_.emplace(static_cast<int>(file_), KeyOf(row.record)).second) {
      table_->Fail(column, "stands in this file already");
      return;
    }
    rows.push_back(std::move(row));
  }

  void ReadOpening() {
    using namespace opening;
    OpeningRow row;
    row.client = Client(kClientCode);
    row.account = Account(kAccountNo);
    const auto year = table_->YearOf(kFyear);
    const auto date = table_->DateOf(kPurchaseDate);
    row.scrip = Scrip(kScripCode);
    records::Opening& record = row.record;
    record.quantity = table_->Shares(kQuantity);
    record.rate = table_->Number(kRate);
    record.service_tax = table_->Number(kServiceTax);
    record.brokerage = table_->Number(kBrokerage);
    record.stt = table_->Number(kStt);
    record.fo = table_->Flag(kFo);
    record.total = records::OpeningTotal(record.quantity, record.rate, record.brokerage);
    row.line = table_->Line();
    if (!year || !date) {
      return;
    }
    if (*date > year->LastDay()) {
      table_->Fail(kPurchaseDate, fmt::format("expected a date up to {}",
                                              text::FormatDmy(year->LastDay()).toStdString()));
    }
    record.year = *year;
    record.purchase_date = text::FormatDmy(*date);
    row.purchase_date = *date;
    portfolio_.openings.push_back(std::move(row));
  }

  void ReadBillLine() {
    using namespace bills;
    BillRow bill;
    bill.client = Client(kClientCode);
    bill.account = Account(kAccountNo);
    bill.number = table_->Text(kBillNo);
    bill.settlement = table_->Text(kSettlementNo);
    bill.broker = Broker(kBroker);
    bill.exchange = portfolio_.exchange_names.Intern(table_->Text(kExchange), *table_, file_);
    bill.other_charges = table_->Number(kOtherCharges);
    bill.transaction_charges = table_->Number(kTransactionCharges);
    bill.line = static_cast<std::uint32_t>(table_->Line());
    const auto date = table_->DateOf(kBillDate);
    if (!date) {
      return;
    }
    bill.date = *date;
    const double part = table_->OptionalNumber(kBillPart).value_or(1);
    BillLineRow line = ReadLineOnly();
    line.bill = BillOf(bill, part);
    portfolio_.bill_lines.push_back(line);
  }

  BillLineRow ReadLineOnly() {
    using namespace bills;
    BillLineRow line;
    line.scrip = Scrip(kScripCode);
    line.side =
        table_->Choice(kSide, kPurchaseSale) == 0 ? records::Side::kPurchase : records::Side::kSale;
    line.quantity = table_->Shares(kQuantity);
    line.rate = table_->Number(kRate);
    line.brokerage = table_->Number(kBrokerage);
    line.service_tax = table_->Number(kServiceTax);
    line.stt = table_->Number(kStt);
    line.stt_percent = table_->Number(kSttPercent);
    line.delivery =
        static_cast<std::uint8_t>(std::max(table_->Choice(kDeliveryType, kDeliveryTypes), 0));
    line.fo = table_->Flag(kFo);
    line.line = static_cast<std::uint32_t>(table_->Line());
    line.lot_rate = LotRate();
    if (line.IsPurchase() && line.lot_rate != BillLineRow::kNoLotRate) {
      table_->Fail(kLotRate, "expected nothing: a purchase makes its lot at its own rate");
    }
    return line;
  }

  double LotRate() {
    if (table_->IsWord(bills::kLotRate, kNoLotWord)) {
      return BillLineRow::kNoLot;
    }
    return table_->OptionalNumber(bills::kLotRate).value_or(BillLineRow::kNoLotRate);
  }

  /// Rows of one client, account, broker, number, date and part are one bill.
  std::uint32_t BillOf(const BillRow& row, double part) {
    std::string key = fmt::format("{} {} {} {} {} ", row.client, row.account, row.broker,
                                  row.date.time_since_epoch().count(), part);
    key += row.number;
    if (!portfolio_.bills.empty() && key == last_bill_key_) {
      return JoinBill(last_bill_, row);
    }
    const auto [entry, fresh] =
        bills_by_key_.try_emplace(key, static_cast<std::uint32_t>(portfolio_.bills.size()));
    last_bill_key_ = std::move(key);
    last_bill_ = entry->second;
    if (!fresh) {
      return JoinBill(last_bill_, row);
    }
    portfolio_.bills.push_back(row);
    return last_bill_;
  }

  std::uint32_t JoinBill(std::uint32_t index, const BillRow& row) {
    using namespace bills;
    const BillRow& first = portfolio_.bills[index];
    if (row.other_charges != 0) {
      table_->Fail(kOtherCharges, FirstRowOnly(first));
    }
    if (row.transaction_charges != 0) {
      table_->Fail(kTransactionCharges, FirstRowOnly(first));
    }
    if (row.exchange != first.exchange) {
      table_->Fail(kExchange, fmt::format("expected the exchange of the bill's first row, line {}",
                                          first.line));
    }
    if (!row.settlement.empty() && row.settlement != first.settlement) {
      table_->Fail(kSettlementNo,
                   fmt::format("expected the settlement number of the bill's first row, line {}",
                               first.line));
    }
    return index;
  }

  static std::string FirstRowOnly(const BillRow& first) {
    return fmt::format("expected nothing: the charge stands on the bill's first row, line {}",
                       first.line);
  }

  /// Puts the lines of each bill together, in file order.
  void GroupBillLines() {
    auto& lines = portfolio_.bill_lines;
    const auto by_bill = [](const BillLineRow& a, const BillLineRow& b) { return a.bill < b.bill; };
    if (!std::is_sorted(lines.begin(), lines.end(), by_bill)) {
      std::stable_sort(lines.begin(), lines.end(), by_bill);
    }
    for (std::uint32_t i = 0; i < lines.size(); ++i) {
      BillRow& bill = portfolio_.bills[lines[i].bill];
      if (bill.line_count++ == 0) {
        bill.first_line = i;
      }
    }
  }

  void ReadTransfer() {
    using namespace transfers;
    TransferRow row;
    const auto date = table_->DateOf(kDate);
    row.from_account = Account(kFromAccount);
    row.to_account = Account(kToAccount);
    row.from_client = OptionalClient(kFromClient);
    row.to_client = OptionalClient(kToClient);
    row.scrip = Scrip(kScripCode);
    row.record.rate = table_->Number(kRate);
    row.record.quantity = table_->Shares(kQuantity);
    row.line = table_->Line();
    if (row.from_account == row.to_account && row.from_client == row.to_client) {
      table_->Fail(kToAccount, "expected another account than the one the shares leave");
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
    row.client = Client(kClientCode);
    const auto year = table_->YearOf(kFyear);
    row.broker = Broker(kBroker);
    row.record.amount = table_->PositiveNumber(kAmount);
    row.record.side = table_->Choice(kSide, kDebitCredit) == 0 ? records::DebitCredit::kDebit
                                                               : records::DebitCredit::kCredit;
    row.line = table_->Line();
    if (year) {
      row.record.year = *year;
      portfolio_.broker_openings.push_back(row);
    }
  }

  void ReadMoney(std::vector<MoneyRow>& rows, std::span<const std::string_view> modes) {
    using namespace money;
    MoneyRow row;
    row.client = Client(kClientCode);
    row.broker = Broker(kBroker);
    records::Payment& record = row.record;
    record.mode = table_->Choice(kMode, modes);
    record.amount = table_->PositiveNumber(kAmount);
    const auto date = table_->DateOf(kDate);
    record.payment_mode = table_->Choice(kPaymentMode, kPaymentKinds);
    record.cheque_number = Text(kChequeNo);
    record.cheque_date = DayText(table_->DateOf(kChequeDate));
    record.drawn_on = Text(kDrawnOn);
    record.remark = Text(kRemark);
    row.line = table_->Line();
    if (date) {
      record.date = text::FormatDmy(*date);
      record.year = text::FinancialYear::Of(*date);
      rows.push_back(std::move(row));
    }
  }

  void ReadRate() {
    using namespace rates;
    RateRow row;
    const auto date = table_->DateOf(kDate);
    row.scrip = Scrip(kScripCode);
    row.record.rate = table_->Number(kRate);
    row.line = table_->Line();
    if (date) {
      row.record.date = text::FormatDmy(*date);
      row.record.year = text::FinancialYear::Of(*date);
      portfolio_.rates.push_back(std::move(row));
    }
  }

  QDir folder_;
  Portfolio& portfolio_;
  ErrorList& errors_;
  CsvTable* table_ = nullptr;
  FileKind file_ = FileKind::kParticipants;
  std::set<std::pair<int, std::string>> keys_;
  std::unordered_map<std::string, std::uint32_t> bills_by_key_;
  std::string last_bill_key_;
  std::uint32_t last_bill_ = 0;
};

}  // namespace

Portfolio ReadPortfolio(const QString& folder, ErrorList& errors) {
  Portfolio portfolio;
  Reader(folder, portfolio, errors).Read();
  return portfolio;
}

}  // namespace quorvane::portfolio
