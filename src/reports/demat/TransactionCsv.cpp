#include "core/text/Amounts.h"
#include "core/text/Csv.h"
#include "reports/demat/TransactionDocument.h"

#include <cstdlib>

namespace quorvane::demat {
namespace {

void AppendField(std::string& out, std::string_view field) {
  text::AppendCsvField(out, field);
  out += ',';
}

void AppendLine(std::string& out, const std::string& broker, const TransactionLine& line,
                const lookups::Directory& directory) {
  out += "line,";
  AppendField(out, directory.Account(line.account).number);
  AppendField(out, broker);
  AppendField(out, line.bill_number.toStdString());
  AppendField(out, line.settlement_number.toStdString());
  text::AppendDmy(out, line.date);
  out += ',';
  AppendField(out, directory.Scrip(line.scrip).code);
  out += line.purchase ? "buy," : "sell,";
  text::AppendNumber(out, line.quantity.Number());
  out += ',';
  text::AppendNumber(out, line.rate);
  for (const std::int64_t paise : {line.money.trade_value, line.money.brokerage,
                                   line.money.service_tax, line.money.stt, line.money.total}) {
    out += ',';
    text::AppendPaise(out, paise);
  }
  out += '\n';
}

/// A record with nothing but an amount.
void AppendAmountOf(std::string& out, std::string_view row, const std::string& account,
                    const std::string& broker, std::int64_t paise) {
  AppendField(out, row);
  AppendField(out, account);
  AppendField(out, broker);
  out += ",,,,,,,,,,,";
  text::AppendPaise(out, paise);
  out += '\n';
}

}  // namespace

void AppendTransactionCsvHeader(std::string& out) {
  out +=
      "row,account_no,broker,bill_no,settlement_no,date,scrip_code,side,quantity,rate,trade_value,"
      "brokerage,service_tax,stt,total\n";
}

void AppendTransactionCsv(std::string& out, std::span<const TransactionSection> sections,
                          const lookups::Directory& directory) {
  for (const TransactionSection& section : sections) {
    const std::string account =
        section.account ? directory.Account(*section.account).number : std::string();
    for (const BrokerTransactions& broker : section.brokers) {
      const std::string name = broker.name.toStdString();
      for (const TransactionLine& line : broker.lines) {
        AppendLine(out, name, line, directory);
      }
      const TransactionClosing& closing = broker.closing;
      AppendAmountOf(out, "other_charges", account, name, closing.other_charges);
      AppendAmountOf(out, "transaction_charges", account, name, closing.transaction_charges);
      AppendAmountOf(out, closing.Amount() > 0 ? "payable" : "receivable", account, name,
                     std::abs(closing.Amount()));
    }
  }
}

}  // namespace quorvane::demat
