#include "portfolio/RecordedDocuments.h"

#include "core/lookups/Directory.h"

#include <fmt/format.h>

namespace quorvane::portfolio {
namespace {

// Doubles are written shortest, so that equal keys mean equal numbers.

std::string BillKey(int client, int account, int broker, std::string_view number,
                    std::string_view day) {
  return fmt::format("{}|{}|{}|{}|{}", client, account, broker, day, lookups::Folded(number));
}

std::string OpeningKey(int client, int year, int account, int scrip, double quantity, double rate,
                       std::string_view day) {
  return fmt::format("{}|{}|{}|{}|{}|{}|{}", client, year, account, scrip, quantity, rate, day);
}

std::string TransferKey(int year, int from, int to, int scrip, double rate, double quantity,
                        std::string_view day) {
  return fmt::format("{}|{}|{}|{}|{}|{}|{}", year, from, to, scrip, rate, quantity, day);
}

}  // namespace

RecordedDocuments::RecordedDocuments(database::Transaction& transaction,
                                     std::set<text::FinancialYear> years)
    : years_(std::move(years)) {
  for (const text::FinancialYear year : years_) {
    Read(transaction, year);
  }
}

void RecordedDocuments::Read(database::Transaction& transaction, text::FinancialYear year) {
  const std::size_t before = bills_.size() + openings_.size() + transfers_.size();
  for (const auto& row : transaction.Open(
           "Select Cid,AcId,BrokId,BillNo,BDate From SPMaster Where Fyear=?", year.Text())) {
    bills_.insert(
        BillKey(row.Int(std::size_t{0}), row.Int(1), row.Int(2), row.Utf8(3), row.Utf8(4)));
  }
  for (const auto& row : transaction.Open(
           "Select CId,AcId,ScriptId,Qty,Rate,PDate From StkOpBal Where Fyear=?", year.Text())) {
    openings_.insert(OpeningKey(row.Int(std::size_t{0}), year.FirstCalendarYear(), row.Int(1),
                                row.Int(2), row.Double(3), row.Double(4), row.Utf8(5)));
  }
  for (const auto& row : transaction.Open(
           "Select FrmAcId,ToAcId,ScrId,PRate,Qty,TDate From ScrTransfer Where Fyear=?",
           year.Text())) {
    transfers_.insert(TransferKey(year.FirstCalendarYear(), row.Int(std::size_t{0}), row.Int(1),
                                  row.Int(2), row.Double(3), row.Double(4), row.Utf8(5)));
  }
  if (bills_.size() + openings_.size() + transfers_.size() > before) {
    used_years_.insert(year);
  }
}

bool RecordedDocuments::HasBill(const ClientYear& of, AccountId account, BrokerId broker,
                                const BillRow& bill, const std::string& day) const {
  return !bills_.empty() &&
         bills_.contains(BillKey(of.client.value, account.value, broker.value, bill.number, day));
}

bool RecordedDocuments::HasOpening(const ClientYear& of, AccountId account, ScripId scrip,
                                   const OpeningRow& row) const {
  return !openings_.empty() &&
         openings_.contains(OpeningKey(of.client.value, of.year.FirstCalendarYear(), account.value,
                                       scrip.value, row.quantity, row.rate,
                                       text::FormatDmy(row.purchase_date).toStdString()));
}

bool RecordedDocuments::HasTransfer(text::FinancialYear year, AccountId from, AccountId to,
                                    ScripId scrip, const TransferRow& row,
                                    const std::string& day) const {
  return !transfers_.empty() &&
         transfers_.contains(TransferKey(year.FirstCalendarYear(), from.value, to.value,
                                         scrip.value, row.rate, row.quantity, day));
}

}  // namespace quorvane::portfolio
