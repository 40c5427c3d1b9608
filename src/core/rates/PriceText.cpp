#include "core/rates/PriceText.h"

#include "core/files/HtmlDocument.h"
#include "core/lookups/Directory.h"
#include "core/text/Amounts.h"
#include "core/text/Csv.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <initializer_list>
#include <unordered_set>

namespace quorvane::rates {
namespace {

constexpr std::array<std::string_view, 12> kMonths{"jan", "feb", "mar", "apr", "may", "jun",
                                                   "jul", "aug", "sep", "oct", "nov", "dec"};

std::string_view Trimmed(std::string_view text) {
  const auto first = text.find_first_not_of(" \t\r\n");
  if (first == std::string_view::npos) {
    return {};
  }
  return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

std::string Lower(std::string_view text) {
  std::string lower(text);
  std::ranges::transform(lower, lower.begin(),
                         [](unsigned char one) { return static_cast<char>(std::tolower(one)); });
  return lower;
}

int WholeNumber(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  return error == std::errc() && end == text.data() + text.size() ? number : 0;
}

int MonthOf(std::string_view text) {
  if (const int number = WholeNumber(text)) {
    return number;
  }
  const auto found = std::ranges::find(kMonths, Lower(text.substr(0, 3)));
  return found == kMonths.end() ? 0 : static_cast<int>(found - kMonths.begin()) + 1;
}

/// Where a heading stands; nullopt when there is none.
std::optional<std::size_t> ColumnNamed(const std::vector<std::string_view>& headings,
                                       std::string_view name) {
  const auto found = std::ranges::find_if(
      headings, [&](std::string_view heading) { return Lower(Trimmed(heading)) == name; });
  return found == headings.end()
             ? std::nullopt
             : std::optional(static_cast<std::size_t>(found - headings.begin()));
}

/// The records of a price history below its headings.
class PriceHistory {
 public:
  explicit PriceHistory(std::string_view csv) : reader_(csv) {}

  double PriceOn(text::Date day) {
    if (!ReadHeadings()) {
      return 0;
    }
    while (reader_.Next()) {
      const auto& fields = reader_.Fields();
      if (*price_ < fields.size() && IsOf(day, fields)) {
        return PriceOf(fields[*price_]);
      }
    }
    return 0;
  }

 private:
  bool ReadHeadings() {
    while (reader_.Next()) {
      price_ = ColumnNamed(reader_.Fields(), "close price");
      if (price_) {
        date_ = ColumnNamed(reader_.Fields(), "date");
        return true;
      }
    }
    return false;
  }

  bool IsOf(text::Date day, const std::vector<std::string_view>& fields) const {
    if (!date_ || *date_ >= fields.size()) {
      return true;
    }
    const auto row_day = DayOf(fields[*date_]);
    return !row_day || *row_day == day;
  }

  text::CsvReader reader_;
  std::optional<std::size_t> price_;
  std::optional<std::size_t> date_;
};

/// The text of a page's title element, from "<title" on.
QString TitleOf(const QByteArray& page) {
  const QString text = QString::fromUtf8(page);
  const qsizetype start = text.indexOf(QLatin1String("<TITLE"), 0, Qt::CaseInsensitive);
  const qsizetype end =
      start < 0 ? -1 : text.indexOf(QLatin1String("</TITLE>"), start, Qt::CaseInsensitive);
  return end < 0 ? QString() : text.mid(start, end - start);
}

/// What follows the marker in the title, up to `stop` when there is one.
double NumberAfter(const QString& title, QLatin1String marker, QChar stop) {
  const qsizetype at = title.indexOf(marker, 0, Qt::CaseInsensitive);
  if (at < 0) {
    return 0;
  }
  QString rest = title.mid(at + marker.size());
  if (!stop.isNull()) {
    rest = rest.section(stop, 0, 0);
  }
  return std::max(0.0, text::RoundAmount(text::Val(rest.remove(QLatin1Char(',')))));
}

using Names = std::initializer_list<std::string_view>;

constexpr std::array kMoverTables{"grd1", "grd2"};

struct MoverColumns {
  int code = -1;
  int name = -1;
  int price = -1;

  bool AreThere() const { return code >= 0 && price >= 0; }
};

int ColumnOf(const files::TextRow& headings, Names names) {
  for (const std::string_view name : names) {
    const auto found = std::ranges::find_if(headings.cells, [&](const std::string& heading) {
      return lookups::Folded(heading) == lookups::Folded(name);
    });
    if (found != headings.cells.end()) {
      return static_cast<int>(found - headings.cells.begin());
    }
  }
  return -1;
}

MoverColumns ColumnsOf(const files::TextRow& headings) {
  return {.code = ColumnOf(headings, {"SC_Code", "Scrip Code", "Security Code", "Code"}),
          .name = ColumnOf(headings, {"SC_Name", "Scrip Name", "Security Name", "Company Name",
                                      "Company", "Name"}),
          .price = ColumnOf(headings,
                            {"SC_Rate", "Close Price", "Close", "LTP", "LTP (Rs.)", "Last Price",
                             "Last", "Current Price", "Current", "Price", "Rate"})};
}

void AddRows(const files::TextTable& table, std::size_t headings, const MoverColumns& columns,
             PriceFile& file) {
  std::unordered_set<std::string> known;
  for (const PriceRow& row : file.rows) {
    known.insert(lookups::Folded(row.code));
  }
  for (std::size_t place = headings + 1; place < table.rows.size(); ++place) {
    const files::TextRow& row = table.rows[place];
    PriceRow mover{.line = row.line,
                   .code = files::CellAt(row, columns.code),
                   .name = files::CellAt(row, columns.name),
                   .rate = PriceOf(files::CellAt(row, columns.price))};
    if (!mover.code.empty() && mover.rate > 0 && known.insert(lookups::Folded(mover.code)).second) {
      file.rows.push_back(std::move(mover));
    }
  }
}

bool AddTable(const files::TextTable& table, PriceFile& file) {
  for (std::size_t row = 0; row < table.rows.size(); ++row) {
    const MoverColumns columns = ColumnsOf(table.rows[row]);
    if (columns.AreThere()) {
      AddRows(table, row, columns, file);
      return true;
    }
  }
  return false;
}

}  // namespace

double PriceOf(std::string_view text) {
  std::string digits(Trimmed(text));
  std::erase(digits, ',');
  const double price = text::ParseNumber(digits).value_or(0);
  return price > 0 ? text::RoundAmount(price) : 0;
}

std::optional<text::Date> DayOf(std::string_view text) {
  const std::string_view day = Trimmed(text);
  const auto first = day.find_first_of("-/ ");
  const auto second = first == std::string_view::npos ? first : day.find_first_of("-/ ", first + 1);
  if (second == std::string_view::npos) {
    return std::nullopt;
  }
  const std::string_view parts[] = {day.substr(0, first), day.substr(first + 1, second - first - 1),
                                    day.substr(second + 1)};
  const bool year_first = parts[0].size() == 4;
  const int year = WholeNumber(parts[year_first ? 0 : 2]);
  return text::MakeDate(WholeNumber(parts[year_first ? 2 : 0]), MonthOf(parts[1]),
                        year > 0 && year < 100 ? 2000 + year : year);
}

double ClosingPriceIn(const QByteArray& csv, text::Date day) {
  try {
    return PriceHistory({csv.constData(), static_cast<std::size_t>(csv.size())}).PriceOn(day);
  } catch (const text::CsvError&) {
    // A broken file has no price.
    return 0;
  }
}

double BseQuoteIn(const QByteArray& page) {
  return NumberAfter(TitleOf(page), QLatin1String("Rs."), QChar());
}

double NseQuoteIn(const QByteArray& page) {
  return NumberAfter(TitleOf(page), QLatin1String("INR"), QLatin1Char('-'));
}

bool AddMovers(std::string_view html, PriceFile& file) {
  file.exchange = Exchange::kBse;
  file.has_names = true;
  file.has_rates = true;
  bool any = false;
  try {
    const files::HtmlDocument page(html);
    for (const char* id : kMoverTables) {
      const auto table = page.TableAt(id);
      any = (table && AddTable(*table, file)) || any;
    }
  } catch (const files::TableError&) {
    return false;
  }
  return any;
}

}  // namespace quorvane::rates
