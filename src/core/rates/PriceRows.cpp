#include "core/rates/PriceRows.h"

#include "core/lookups/Directory.h"
#include "core/rates/PriceText.h"
#include "core/text/Amounts.h"
#include "core/text/Isin.h"
#include "core/text/Tr.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <initializer_list>
#include <utility>

namespace quorvane::rates {
namespace {

constexpr std::size_t kWidest = 255;  ///< characters of a code, a name, a class or a type
constexpr std::size_t kBseCodeDigits = 6;

bool IsAbsent(std::string_view text) {
  return text.empty() || text == "-" || text == "NA" || text == "N.A.";
}

bool IsDigits(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// A price with or without grouping commas; nullopt for what is no such number or below 0.
std::optional<double> StrictPrice(std::string_view text) {
  std::string digits(text);
  std::erase(digits, ',');
  const std::optional<double> price = text::ParseNumber(digits);
  return text.starts_with(',') || price < 0 ? std::nullopt : price;
}

/// The series of a share come first, in the order in which they are preferred; then funds, trusts
/// and government papers, whose symbols are their own. Bonds and block deals stand under the symbol
/// of the share and are none of it.
int RankOf(const std::string& series) {
  constexpr std::array<std::string_view, 11> kSeries{"EQ", "BE", "BZ", "SM", "ST", "SZ",
                                                     "RR", "IV", "GB", "GS", "TB"};
  const auto found = std::ranges::find(kSeries, series);
  return found == kSeries.end() ? -1 : static_cast<int>(found - kSeries.begin());
}

/// What a series of the National exchange or a group of the Bombay exchange says of the type; empty
/// for one that is not known.
std::string TypeOfSeries(Exchange exchange, const std::string& series) {
  using Types = std::initializer_list<std::pair<std::string_view, const char*>>;
  static const Types kNational{{"EQ", "EQUITY"}, {"BE", "EQUITY"}, {"BZ", "EQUITY"},
                               {"SM", "EQUITY"}, {"ST", "EQUITY"}, {"SZ", "EQUITY"},
                               {"RR", "UNIT"},   {"IV", "UNIT"},   {"GB", "BOND"},
                               {"GS", "BOND"},   {"TB", "BOND"}};
  static const Types kBombay{{"E", "UNIT"}, {"IF", "UNIT"}, {"F", "DEBENTURE"}, {"G", "BOND"}};
  const Types& types = exchange == Exchange::kNse ? kNational : kBombay;
  const auto* found = std::ranges::find(types, std::string_view(series),
                                        [](const auto& type) { return type.first; });
  if (found != types.end()) {
    return found->second;
  }
  return exchange == Exchange::kNse && series.starts_with('W') ? "WARRANTS" : "";
}

/// Empty for what is no ISIN.
std::string IsinOf(std::string text) {
  std::ranges::transform(text, text.begin(),
                         [](unsigned char one) { return static_cast<char>(std::toupper(one)); });
  return text::IsValidIsin(text) ? text : std::string();
}

/// A day as written, or as a workbook counts it: days since 30 December 1899.
std::optional<text::Date> DayIn(const std::string& text) {
  int serial = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), serial);
  if (error == std::errc() && end == text.data() + text.size() && serial > 20'000 &&
      serial < 100'000) {
    return *text::MakeDate(30, 12, 1899) + std::chrono::days(serial);
  }
  return DayOf(text);
}

files::TextRow Part(const files::TextRow& row, std::size_t from, std::size_t to) {
  files::TextRow part{.line = row.line};
  part.cells.assign(
      row.cells.begin() + static_cast<std::ptrdiff_t>(from),
      row.cells.begin() + static_cast<std::ptrdiff_t>(std::min(to, row.cells.size())));
  return part;
}

}  // namespace

std::string TypeNamed(const std::string& text) {
  if (text == "B") {
    return "WARRANTS";
  }
  if (text == "D") {
    return "DEBENTURE";
  }
  if (text == "P") {
    return "PREFERENCE SHARE";
  }
  return text == "Q" ? "EQUITY" : text;
}

PriceRows::PriceRows(const FoundLayout& layout) : layout_(layout) {
  file_.exchange = layout.layout->exchange;
  file_.has_names = layout.Has(kNameField);
  file_.has_rates = layout.Has(kRateField);
  file_.has_highs = layout.Has(kHighField);
  file_.has_symbols = file_.exchange == Exchange::kOwn && layout.Has(kSymbolField);
}

void PriceRows::Add(const files::TextRow& row) {
  if (row.cells.size() <= layout_.width) {
    AddRecord(row);
  } else if (!AddRunTogether(row)) {
    Fail(row.line, Tr("Rates", "there are more values than headings"));
  }
}

// The line end between two records is missing, with or without the comma of an empty last value.
bool PriceRows::AddRunTogether(const files::TextRow& row) {
  const std::size_t width = layout_.width;
  const files::TextRow rest = Part(row, width, row.cells.size());
  if (rest.cells.size() <= width && LooksRight(rest)) {
    AddRecord(Part(row, 0, width));
    AddRecord(rest);
    return true;
  }
  files::TextRow first = Part(row, 0, width);
  files::TextRow second = Part(row, width - 1, row.cells.size());
  std::string& joined = second.cells.front();
  const std::size_t code = joined.size() > kBseCodeDigits ? joined.size() - kBseCodeDigits : 0;
  const bool ends_in_code = IsDigits(std::string_view(joined).substr(code));
  first.cells.back() = ends_in_code ? joined.substr(0, code) : std::string();
  joined = ends_in_code ? joined.substr(code) : joined;
  if (second.cells.size() > width || !LooksRight(first) || !LooksRight(second)) {
    return false;
  }
  AddRecord(first);
  AddRecord(second);
  return true;
}

bool PriceRows::LooksRight(const files::TextRow& row) const {
  const std::string& code = layout_.Cell(row, kCodeField);
  const std::string& rate = layout_.Cell(row, kRateField);
  const bool named =
      layout_.Has(kCodeField) ? IsDigits(code) : !layout_.Cell(row, kSymbolField).empty();
  return named && (!layout_.Has(kRateField) || IsAbsent(rate) || StrictPrice(rate)) &&
         (!layout_.Has(kDateField) || DayIn(layout_.Cell(row, kDateField)));
}

bool PriceRows::IsOfOtherMarket(const files::TextRow& row) const {
  const std::string& segment = layout_.Cell(row, kSegmentField);
  return !segment.empty() && segment != "CM";
}

Exchange PriceRows::ExchangeOf(const files::TextRow& row) const {
  return layout_.Cell(row, kSourceField) == "NSE" ? Exchange::kNse : layout_.layout->exchange;
}

void PriceRows::AddRecord(const files::TextRow& row) {
  if (IsOfOtherMarket(row)) {
    ++file_.left_out;
    return;
  }
  const Exchange exchange = ExchangeOf(row);
  if (!file_.rows.empty() && exchange != file_.exchange) {
    Fail(row.line, Tr("Rates", "the file holds two exchanges"));
    return;
  }
  file_.exchange = exchange;
  PriceRow record{.line = row.line};
  if (exchange != Exchange::kNse) {
    record.code = layout_.Cell(row, kCodeField);
  }
  if (exchange != Exchange::kBse) {
    record.symbol = layout_.Cell(row, kSymbolField);
  }
  record.name = layout_.Cell(row, kNameField);
  record.scrip_class = layout_.Cell(row, kClassField);
  if (record.scrip_class.empty()) {
    record.scrip_class = layout_.Cell(row, kGroupField);
  }
  if (const std::string& type = layout_.Cell(row, kTypeField); !IsAbsent(type)) {
    record.type = TypeNamed(type);
  }
  record.series_type =
      exchange == Exchange::kOwn ? std::string() : TypeOfSeries(exchange, record.scrip_class);
  record.isin = IsinOf(layout_.Cell(row, kIsinField));
  const int rank = exchange == Exchange::kNse ? RankOf(layout_.Cell(row, kSeriesField)) : 0;
  if (ReadDate(row) && ReadPrice(row, kRateField, record.rate) &&
      ReadPrice(row, kHighField, record.high) && CheckTexts(record)) {
    Keep(std::move(record), rank);
  }
}

bool PriceRows::ReadDate(const files::TextRow& row) {
  const std::string& text = layout_.Cell(row, kDateField);
  if (text.empty()) {
    return true;
  }
  const auto date = DayIn(text);
  if (!date) {
    Fail(row.line, Tr("Rates", "%1 is no date").arg(QString::fromStdString(text)));
    return false;
  }
  if (file_.date && *file_.date != *date) {
    Fail(row.line, Tr("Rates", "the date is another than above"));
    return false;
  }
  file_.date = date;
  return true;
}

/// What is absent leaves the price as it is.
bool PriceRows::ReadPrice(const files::TextRow& row, Field field, double& price) {
  const std::string& text = layout_.Cell(row, field);
  if (IsAbsent(text)) {
    return true;
  }
  const auto read = StrictPrice(text);
  if (!read) {
    Fail(row.line, Tr("Rates", "%1 is no rate").arg(QString::fromStdString(text)));
    return false;
  }
  price = text::RoundAmount(*read);
  return true;
}

bool PriceRows::CheckTexts(const PriceRow& record) {
  if (record.code.empty() && record.symbol.empty()) {
    Fail(record.line, Tr("Rates", "there is no code"));
    return false;
  }
  if (file_.has_names && record.name.empty()) {
    Fail(record.line, Tr("Rates", "there is no name"));
    return false;
  }
  for (const std::string* text :
       {&record.code, &record.symbol, &record.name, &record.scrip_class, &record.type}) {
    if (QString::fromStdString(*text).size() > static_cast<qsizetype>(kWidest)) {
      Fail(record.line, Tr("Rates", "a text is longer than %1 characters").arg(kWidest));
      return false;
    }
  }
  return true;
}

void PriceRows::Keep(PriceRow record, int rank) {
  if (rank < 0) {
    ++file_.left_out;
    return;
  }
  const std::string key = lookups::Folded(record.code.empty() ? record.symbol : record.code);
  const auto [place, is_new] = places_.try_emplace(key, file_.rows.size());
  if (is_new) {
    file_.rows.push_back(std::move(record));
    ranks_.push_back(rank);
    return;
  }
  PriceRow& earlier = file_.rows[place->second];
  int& earlier_rank = ranks_[place->second];
  if (rank == earlier_rank && record.rate != earlier.rate) {
    Fail(record.line, Tr("Rates", "%1 stands in line %2 already, with another rate")
                          .arg(QString::fromStdString(record.code + record.symbol))
                          .arg(static_cast<qulonglong>(earlier.line)));
    return;
  }
  ++file_.left_out;
  if (rank == earlier_rank) {
    earlier.high = std::max(earlier.high, record.high);
  } else if (rank < earlier_rank) {
    earlier = std::move(record);
    earlier_rank = rank;
  }
}

void PriceRows::Fail(std::size_t line, const QString& what) {
  errors_.push_back(
      Tr("Rates", "Line %1: %2.").arg(static_cast<qulonglong>(line)).arg(what).toStdString());
}

PriceFile PriceRows::Take(std::vector<std::string>& errors) {
  errors = std::move(errors_);
  return std::move(file_);
}

}  // namespace quorvane::rates
