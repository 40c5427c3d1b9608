#include "portfolio/trades/TradeFile.h"

#include "core/text/Csv.h"
#include "portfolio/trades/TradeRows.h"

#include <QFile>

#include <algorithm>
#include <tuple>

namespace quorvane::portfolio {
namespace {

constexpr std::int64_t kRowsAStep = 1000;

/// Letters and digits alone.
std::string Plain(std::string_view number) {
  std::string plain;
  for (const char c : HeadingWords(number)) {
    if (c != ' ') {
      plain += c;
    }
  }
  return plain;
}

/// The text behind the last line end of a file; empty for one that cannot be read, for workbooks,
/// archives, and text in two bytes a letter.
std::string UnendedLine(const QString& path) {
  constexpr qint64 kLongest = 64 << 10;
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    return {};
  }
  const QByteArray first = file.peek(2);
  if (first == "PK" || first == "\xD0\xCF") {
    return {};
  }
  file.seek(std::max<qint64>(0, file.size() - kLongest));
  const std::string end = file.readAll().toStdString();
  const bool two_bytes = end.find('\0') != std::string::npos;
  return two_bytes ? std::string() : end.substr(end.find_last_of("\r\n") + 1);
}

/// The places of `added` among `names`, those that are new put at the end.
template <class Name>
std::vector<std::uint32_t> Joined(std::vector<Name>& names, const std::vector<Name>& added) {
  std::map<Name, std::uint32_t> places;
  for (const Name& name : names) {
    places.emplace(name, static_cast<std::uint32_t>(places.size()));
  }
  std::vector<std::uint32_t> joined;
  for (const Name& name : added) {
    const auto [entry, fresh] = places.try_emplace(name, static_cast<std::uint32_t>(names.size()));
    if (fresh) {
      names.push_back(name);
    }
    joined.push_back(entry->second);
  }
  return joined;
}

}  // namespace

const std::string& ScripNaming::Shown() const {
  for (const std::string* text : {&name, &symbol, &own_code, &isin}) {
    if (!text->empty()) {
      return *text;
    }
  }
  return code;
}

void TradeFile::Append(TradeFile other) {
  const std::vector<std::uint32_t> scrip_places = Joined(scrips, other.scrips);
  const std::vector<std::uint32_t> exchange_places = Joined(exchanges, other.exchanges);
  for (Trade& trade : other.trades) {
    trade.scrip = scrip_places[trade.scrip];
    trade.exchange = exchange_places[trade.exchange];
    trade.file += static_cast<std::uint32_t>(names.size());
    trades.push_back(std::move(trade));
  }
  names.insert(names.end(), other.names.begin(), other.names.end());
  derivatives += other.derivatives;
  other_rows += other.other_rows;
  layout = other.layout;
  broker = other.broker;
}

void TradeFile::Sort() {
  const auto order = [](const Trade& trade) {
    return std::tuple(trade.day, trade.seconds, trade.file, trade.line);
  };
  std::ranges::stable_sort(trades, {}, order);
}

TradeFile TradesIn(const files::TextTable& table, const FoundHeader& header,
                   const TradeReading& reading, ErrorList& errors, Progress& progress) {
  TradeRows rows(header, reading, errors);
  for (std::size_t i = header.row + 1; i < table.rows.size() && !errors.Full(); ++i) {
    rows.Read(table.rows[i]);
    if (static_cast<std::int64_t>(i) % kRowsAStep == 0) {
      progress.Step(static_cast<std::int64_t>(i));
      progress.ThrowIfCancelled();
    }
  }
  return rows.Take();
}

bool EndsWithinRow(const QString& path, const files::TextTable& table, const FoundHeader& header) {
  const std::string line = UnendedLine(path);
  if (line.empty() || table.rows.size() <= header.row + 1) {
    return false;
  }
  try {
    text::CsvReader reader(line);
    if (!reader.Next()) {
      return false;
    }
    const auto& fields = reader.Fields();
    const bool sentence = fields.size() == 1 && fields.front().find(' ') != std::string::npos;
    return !sentence && fields.size() < table.rows[header.row].cells.size();
  } catch (const text::CsvError&) {
    return true;
  }
}

bool IsSameAccount(std::string_view a, std::string_view b) {
  constexpr std::size_t kFewest = 4;
  const std::string first = Plain(a);
  const std::string second = Plain(b);
  const bool long_enough = std::min(first.size(), second.size()) >= kFewest;
  return first == second || (long_enough && (first.ends_with(second) || second.ends_with(first)));
}

}  // namespace quorvane::portfolio
