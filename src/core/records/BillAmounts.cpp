#include "core/records/BillAmounts.h"

#include "core/text/Amounts.h"
#include "core/text/Paise.h"
#include "core/text/Tr.h"

#include <cmath>

namespace quorvane::records {
namespace {

constexpr double kHundred = 100;

double PercentOf(double percents_of_whole) {
  return text::Tidy(percents_of_whole) / kHundred;
}

}  // namespace

double DefaultBrokerage(const ChargePercents& percents, double rate) {
  return PercentOf(rate * percents.brokerage);
}

double DefaultServiceTax(const ChargePercents& percents, double brokerage, double quantity) {
  return PercentOf(brokerage * percents.service_tax * quantity);
}

double DefaultStt(const ChargePercents& percents, double amount) {
  return PercentOf(amount * percents.stt);
}

double InWholeRupees(double stt) {
  constexpr double kHalf = 0.5;
  return std::floor(text::Tidy(stt) + kHalf);
}

double NetRate(Side side, double rate, double brokerage) {
  return text::Tidy(side == Side::kPurchase ? rate + brokerage : rate - brokerage);
}

void ComputeAmount(BillLine& line) {
  line.net = NetRate(line.side, line.rate, line.brokerage);
  line.amount = text::RoundAmount(line.net * line.quantity.Number());
}

QString CaptionText(TotalCaption caption) {
  return caption == TotalCaption::kPayable ? Tr("Bills", "Total Payable")
                                           : Tr("Bills", "Total Receivable");
}

GrandTotal ShowGrandTotal(double total, double sum) {
  if (total < 0 && sum > 0) {
    return {-text::RoundAmount(sum), TotalCaption::kPayable};
  }
  return {text::RoundAmount(std::abs(sum)), TotalCaption::kReceivable};
}

TotalCaption SavedCaption(double stored_grand_total) {
  return stored_grand_total < 0 ? TotalCaption::kPayable : TotalCaption::kReceivable;
}

BillTotals ComputeTotals(std::span<const BillLine> lines, double other_charges,
                         double transaction_charges) {
  text::Paise net;
  text::Paise stt;
  for (const BillLine& line : lines) {
    const auto amount = text::Paise::OfRupees(line.amount);
    const auto service_tax = text::Paise::OfRupees(line.service_tax);
    const auto line_stt = text::Paise::OfRupees(line.stt);
    net += line.IsPurchase() ? -(amount + service_tax) : amount - service_tax;
    stt += line.IsPurchase() ? -line_stt : line_stt;
  }
  BillTotals totals;
  totals.total = std::abs(net.Rupees());
  totals.stt = std::abs(stt.Rupees());
  const GrandTotal grand =
      ShowGrandTotal(totals.total, totals.total + other_charges + totals.stt + transaction_charges);
  totals.grand_total = grand.value;
  totals.caption = grand.caption;
  return totals;
}

NoteAmounts& NoteAmounts::operator+=(const NoteAmounts& other) {
  purchases += other.purchases;
  sales += other.sales;
  service_tax += other.service_tax;
  stt += other.stt;
  charges += other.charges;
  return *this;
}

QString NetText(text::Paise net) {
  return net < text::Paise() ? Tr("Bills", "%1 to pay").arg(text::FormatAmount((-net).Rupees()))
                             : Tr("Bills", "%1 to receive").arg(text::FormatAmount(net.Rupees()));
}

NoteAmounts AmountsOnNote(std::span<const BillLine> lines, double other_charges,
                          double transaction_charges) {
  NoteAmounts note;
  for (const BillLine& line : lines) {
    (line.IsPurchase() ? note.purchases : note.sales) += text::Paise::OfRupees(line.amount);
    note.service_tax += text::Paise::OfRupees(line.service_tax);
    note.stt += text::Paise::OfRupees(line.stt);
  }
  note.charges = text::Paise::OfRupees(other_charges) + text::Paise::OfRupees(transaction_charges);
  return note;
}

}  // namespace quorvane::records
