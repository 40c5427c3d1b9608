#include "portfolio/trades/TradeRows.h"

#include "core/text/Amounts.h"

#include <QFileInfo>

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace quorvane::portfolio {
namespace {

using records::Side;

std::optional<double> Plus(std::optional<double> a, std::optional<double> b) {
  return a || b ? std::optional(text::Tidy(a.value_or(0) + b.value_or(0))) : std::nullopt;
}

TradeCharges Plus(const TradeCharges& a, const TradeCharges& b) {
  return {Plus(a.brokerage, b.brokerage),
          Plus(a.tax, b.tax),
          Plus(a.stt, b.stt),
          Plus(a.exchange_fee, b.exchange_fee),
          Plus(a.others, b.others),
          Plus(a.taxed_brokerage, b.taxed_brokerage),
          Plus(a.taxes, b.taxes)};
}

/// What `part` gives for each charge, in paise.
template <class Part>
TradeCharges Each(const TradeCharges& whole, const Part& part) {
  TradeCharges parts;
  for (const auto charge : {&TradeCharges::brokerage, &TradeCharges::tax, &TradeCharges::stt,
                            &TradeCharges::exchange_fee, &TradeCharges::others,
                            &TradeCharges::taxed_brokerage, &TradeCharges::taxes}) {
    if (whole.*charge) {
      parts.*charge = text::RoundAmount(part(*(whole.*charge), charge));
    }
  }
  return parts;
}

/// The rate that the value gives, when the price is that rate rounded to the decimals that it is
/// written with; otherwise the value is something else, such as the sum with charges.
double RateOf(std::optional<double> price, const std::string& price_text,
              std::optional<double> value, double quantity) {
  if (!value || *value == 0) {
    return price.value_or(0);
  }
  const double exact = text::Tidy(std::abs(*value) / quantity);
  if (!price || *price == 0) {
    return exact;
  }
  const auto point = price_text.find('.');
  const auto decimals = point == std::string::npos ? 0 : price_text.size() - point - 1;
  const double half = 0.5000001 * std::pow(10.0, -static_cast<double>(decimals));
  return std::abs(exact - *price) <= half ? exact : *price;
}

/// How many parts in ten thousand are taken of a value, to share out a sum between a purchase and a
/// sale of one day: 10 of what is delivered, 2.5 of a sale without delivery.
constexpr double kDelivered = 10;
constexpr double kNotDelivered = 2.5;

/// Longer texts than the tables take.
bool IsTooLong(const Trade& trade, const ScripNaming& naming, const std::string& exchange) {
  constexpr std::size_t kLongest = 90;
  const auto texts = {&naming.isin, &naming.symbol,     &naming.code,      &naming.own_code,
                      &naming.name, &trade.bill_number, &trade.settlement, &exchange};
  return std::ranges::any_of(texts,
                             [](const std::string* text) { return text->size() > kLongest; });
}

bool HasWord(const std::string& words, const std::vector<std::string>& wanted) {
  return std::ranges::any_of(
      wanted, [&](const std::string& word) { return words.find(word) != std::string::npos; });
}

}  // namespace

void TradeRows::Read(const files::TextRow& row) {
  row_ = &row;
  if (IsLeftOut()) {
    return;
  }
  if (map_.Has(Meaning::kBuyQuantity)) {
    ReadTwoSided();
  } else {
    ReadOneSided();
  }
}

bool TradeRows::IsLeftOut() {
  for (const ColumnMap::Filter& filter : map_.filters) {
    const std::string words = HeadingWords(files::CellAt(*row_, filter.column));
    if (!words.empty() && HasWord(words, filter.words) != filter.keep) {
      ++file_.other_rows;
      return true;
    }
  }
  if (IsDerivative(Cell(Meaning::kSegment))) {
    ++file_.derivatives;
    return true;
  }
  return false;
}

TradeRows::Cells TradeRows::CellsOf() const {
  Cells cells;
  cells.moment = MomentIn(Cell(Meaning::kDate), map_.days);
  cells.side = SideIn(Cell(Meaning::kSide));
  cells.quantity = Number(Meaning::kQuantity);
  cells.price = Number(Meaning::kPrice);
  cells.value = Number(Meaning::kValue);
  if (!cells.price && cells.side && map_.Has(Meaning::kBuyPrice)) {
    cells.price = Number(*cells.side == Side::kPurchase ? Meaning::kBuyPrice : Meaning::kSellPrice);
  }
  return cells;
}

void TradeRows::ReadOneSided() {
  const Cells cells = CellsOf();
  const bool is_trade = cells.side && cells.quantity;
  if (!is_trade && (!cells.moment || (!cells.side && !cells.quantity))) {
    ++file_.other_rows;
    return;
  }
  if (!CheckDay(cells.moment, is_trade) || !CheckAccount()) {
    return;
  }
  if (!cells.side) {
    return Fail(Meaning::kSide, "buy or sell");
  }
  if (!cells.quantity) {
    return Fail(Meaning::kQuantity, "a number of shares");
  }
  if (*cells.quantity == 0) {
    return KeepOrderCharges();
  }
  const double quantity = std::abs(*cells.quantity);
  const std::string& price_text = Cell(map_.Has(Meaning::kPrice)        ? Meaning::kPrice
                                       : *cells.side == Side::kPurchase ? Meaning::kBuyPrice
                                                                        : Meaning::kSellPrice);
  const double rate = RateOf(cells.price, price_text, cells.value, quantity);
  if (!(rate > 0)) {
    return Fail(map_.Has(Meaning::kPrice) || map_.Has(Meaning::kBuyPrice) ? Meaning::kPrice
                                                                          : Meaning::kValue,
                "a price above 0");
  }
  AddTrade(*cells.moment, *cells.side, quantity, rate, Charges(quantity));
}

/// A purchase and a sale in one row, which share its charges.
void TradeRows::ReadTwoSided() {
  const auto moment = MomentIn(Cell(Meaning::kDate), map_.days);
  const auto bought = Number(Meaning::kBuyQuantity);
  const auto sold = Number(Meaning::kSellQuantity);
  if (!bought && !sold) {
    ++file_.other_rows;
    return;
  }
  if (!CheckDay(moment, true) || !CheckAccount()) {
    return;
  }
  const double buy = std::abs(bought.value_or(0));
  const double sale = std::abs(sold.value_or(0));
  const double paid = std::abs(Number(Meaning::kBuyValue).value_or(0));
  const double got = std::abs(Number(Meaning::kSellValue).value_or(0));
  if ((buy > 0 && paid == 0) || (sale > 0 && got == 0)) {
    return Fail(buy > 0 && paid == 0 ? Meaning::kBuyValue : Meaning::kSellValue,
                "an amount above 0");
  }
  if (buy == 0 && sale == 0) {
    ++file_.other_rows;
    return;
  }
  const TradeCharges whole = Charges(buy + sale);
  const double matched = std::min(buy, sale);
  const double buy_part = paid / (paid + got);
  const double buy_stt = buy == 0 ? 0 : paid * kDelivered * (buy - matched) / buy;
  const double sale_stt =
      sale == 0 ? 0 : got * (kDelivered * (sale - matched) + kNotDelivered * matched) / sale;
  const double buy_stt_part = buy_stt / (buy_stt + sale_stt);
  const TradeCharges of_buy = Each(whole, [&](double charge, auto which) {
    return charge * (which == &TradeCharges::stt ? buy_stt_part : buy_part);
  });
  const TradeCharges of_sale =
      Each(whole, [&](double charge, auto which) { return charge - (of_buy.*which).value_or(0); });
  if (buy > 0) {
    AddTrade(*moment, Side::kPurchase, buy, text::Tidy(paid / buy), of_buy);
  }
  if (sale > 0) {
    AddTrade(*moment, Side::kSale, sale, text::Tidy(got / sale), of_sale);
  }
}

bool TradeRows::CheckDay(const std::optional<Moment>& moment, bool is_trade) {
  if (!moment) {
    if (is_trade) {
      Fail(Meaning::kDate, "a date");
    } else {
      ++file_.other_rows;
    }
    return false;
  }
  if (moment->day > reading_.today) {
    Fail(Meaning::kDate, "a date up to today");
    return false;
  }
  return true;
}

bool TradeRows::CheckAccount() {
  const std::string& account = Cell(Meaning::kAccount);
  if (account.empty() || reading_.account.empty() || IsSameAccount(account, reading_.account)) {
    return true;
  }
  Fail(Meaning::kAccount, "the account " + reading_.account);
  return false;
}

std::optional<double> TradeRows::Sum(Meaning meaning) const {
  std::optional<double> sum;
  for (const int column : map_.Of(meaning)) {
    sum = sum.value_or(0) + std::abs(NumberIn(files::CellAt(*row_, column)).value_or(0));
  }
  return sum ? std::optional(text::Tidy(*sum)) : std::nullopt;
}

TradeCharges TradeRows::Charges(double quantity) const {
  TradeCharges charges;
  charges.tax = Sum(Meaning::kTax);
  charges.stt = Sum(Meaning::kStt);
  charges.exchange_fee = Plus(Sum(Meaning::kExchangeFee), Sum(Meaning::kSebiFee));
  charges.others = Plus(Sum(Meaning::kStampDuty), Sum(Meaning::kOtherCharges));
  charges.taxes = Sum(Meaning::kTaxes);
  charges.brokerage = Sum(Meaning::kBrokerage);
  if (const auto each = Sum(Meaning::kBrokerageEach)) {
    charges.brokerage = text::Tidy(*each * quantity);
  }
  charges.taxed_brokerage = Sum(Meaning::kBrokerageTaxed);
  if (const auto all = Sum(Meaning::kAllCharges)) {
    // What is told beside the sum is in it.
    const double told = charges.stt.value_or(0) + charges.exchange_fee.value_or(0) +
                        charges.others.value_or(0) + charges.tax.value_or(0);
    charges.taxed_brokerage = text::Tidy(std::max(*all - told, 0.0) + charges.tax.value_or(0));
    charges.tax.reset();
    charges.brokerage.reset();
  }
  return charges;
}

std::uint32_t TradeRows::Scrip() {
  ScripNaming naming;
  naming.symbol = Cell(Meaning::kSymbol);
  naming.isin = Cell(Meaning::kIsin);
  naming.name = Cell(Meaning::kName);
  naming.own_code = Cell(Meaning::kOwnCode);
  naming.code = Cell(Meaning::kCode);
  if (naming.code.empty() && ExchangeIn(Cell(Meaning::kExchange)) == "BSE") {
    naming.code = Cell(Meaning::kToken);
  }
  const auto [entry, fresh] =
      scrips_.try_emplace(naming, static_cast<std::uint32_t>(file_.scrips.size()));
  if (fresh) {
    file_.scrips.push_back(naming);
  }
  return entry->second;
}

std::uint32_t TradeRows::Exchange() {
  std::string name = ExchangeIn(Cell(Meaning::kExchange));
  if (name.empty()) {
    name = reading_.exchange;
  }
  const auto [entry, fresh] =
      exchanges_.try_emplace(name, static_cast<std::uint32_t>(file_.exchanges.size()));
  if (fresh) {
    file_.exchanges.push_back(name);
  }
  return entry->second;
}

void TradeRows::AddTrade(const Moment& moment, Side side, double quantity, double rate,
                         TradeCharges charges) {
  Trade trade;
  trade.day = moment.day;
  const auto time =
      map_.Has(Meaning::kTime) ? MomentIn(Cell(Meaning::kTime), map_.days) : std::nullopt;
  const auto clock = map_.Has(Meaning::kTime) ? TimeIn(Cell(Meaning::kTime)) : std::nullopt;
  trade.seconds = time && time->seconds >= 0 ? time->seconds : clock.value_or(moment.seconds);
  trade.side = side;
  trade.quantity = text::Shares(quantity);
  trade.rate = rate;
  trade.scrip = Scrip();
  trade.exchange = Exchange();
  trade.line = static_cast<std::uint32_t>(row_->line);
  trade.trade_number = NumberWord(Cell(Meaning::kTradeNumber));
  trade.order_number = NumberWord(Cell(Meaning::kOrderNumber));
  trade.bill_number = NumberWord(Cell(Meaning::kBillNumber));
  trade.settlement = Cell(Meaning::kSettlement);
  trade.trade_for_trade = IsTradeForTrade(Cell(Meaning::kSeries), file_.exchanges[trade.exchange]);
  trade.has_charges = map_.HasCharges();
  trade.charges = charges;
  const ScripNaming& naming = file_.scrips[trade.scrip];
  if (IsTooLong(trade, naming, file_.exchanges[trade.exchange])) {
    return Fail(map_.Has(Meaning::kName) ? Meaning::kName : Meaning::kSymbol,
                "names and numbers of at most 90 letters");
  }
  if (naming == ScripNaming{}) {
    return Fail(map_.Has(Meaning::kIsin)     ? Meaning::kIsin
                : map_.Has(Meaning::kSymbol) ? Meaning::kSymbol
                                             : Meaning::kName,
                "what names the scrip");
  }
  // Larger ones are no trades, and their sums no numbers.
  constexpr double kMost = 1e9;
  if (!trade.quantity || quantity > kMost || rate > kMost) {
    return Fail(map_.Has(Meaning::kQuantity) ? Meaning::kQuantity : Meaning::kBuyQuantity,
                "a number of shares");
  }
  file_.trades.push_back(std::move(trade));
}

/// A row of an order's charges, which names no shares.
void TradeRows::KeepOrderCharges() {
  const std::string order = NumberWord(Cell(Meaning::kOrderNumber));
  ++file_.other_rows;
  if (!order.empty() && map_.HasCharges()) {
    TradeCharges& kept = order_charges_[order];
    kept = Plus(kept, Charges(0));
  }
}

TradeFile TradeRows::Take() {
  for (Trade& trade : file_.trades) {
    // The first trade of an order has them.
    if (auto charges = order_charges_.extract(trade.order_number); !charges.empty()) {
      trade.charges = Plus(trade.charges, charges.mapped());
    }
  }
  file_.names.push_back(QFileInfo(reading_.path).fileName().toStdString());
  return std::move(file_);
}

void TradeRows::Fail(Meaning meaning, const std::string& expected) {
  errors_.Add(QFileInfo(reading_.path).fileName().toStdString(), row_->line,
              TextOf(meaning).toStdString(),
              fmt::format("expected {}, found {}", expected, Quoted(Cell(meaning))));
}

}  // namespace quorvane::portfolio
