#include "portfolio/trades/TradeLayouts.h"

#include "core/files/TableFile.h"
#include "core/text/Tr.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>
#include <charconv>
#include <map>

namespace quorvane::portfolio {
namespace {

enum Cell { kLayout, kMeaning, kHeading, kWords };

[[noreturn]] void FailAt(const QString& file, std::size_t line) {
  throw files::TableError(Tr("Trades", "Line %1 of %2 is no rule of a layout.")
                              .arg(static_cast<qulonglong>(line))
                              .arg(file)
                              .toStdString());
}

std::vector<std::string> Alternatives(std::string_view text) {
  std::vector<std::string> all;
  while (!text.empty()) {
    const auto bar = std::min(text.find('|'), text.size());
    all.push_back(HeadingWords(text.substr(0, bar)));
    text.remove_prefix(std::min(bar + 1, text.size()));
  }
  return all;
}

/// Adds a row of the file to its layout; false when it is no rule.
bool AddRule(TradeLayout& layout, const files::TextRow& row) {
  const std::string& word = files::CellAt(row, kMeaning);
  std::string_view heading = files::CellAt(row, kHeading);
  if (heading.empty()) {
    return false;
  }
  if (word == "broker") {
    layout.broker = QString::fromStdString(std::string(heading));
  } else if (word == "days") {
    layout.days = heading == "month first" ? DayOrder::kMonthFirst : DayOrder::kDayFirst;
  } else if (word == "also") {
    layout.others.push_back(HeadingWords(heading));
  } else if (word == "keep" || word == "skip") {
    layout.rows.push_back(
        {HeadingWords(heading), Alternatives(files::CellAt(row, kWords)), word == "keep"});
  } else if (word == "scrip") {
    layout.scrips.emplace_back(heading, files::CellAt(row, kWords));
  } else if (const auto meaning = MeaningOf(word)) {
    const bool optional = heading.front() == '?';
    layout.columns.push_back({*meaning, Alternatives(heading.substr(optional ? 1 : 0)), optional});
  } else {
    return false;
  }
  return true;
}

using Headings = std::vector<std::string>;

Headings WordsOf(const files::TextRow& row) {
  Headings words;
  std::ranges::transform(row.cells, std::back_inserter(words), HeadingWords);
  return words;
}

int ColumnOf(const Headings& headings, const std::string& heading) {
  const auto found = std::ranges::find(headings, heading);
  return found == headings.end() ? -1 : static_cast<int>(std::distance(headings.begin(), found));
}

int ColumnOf(const Headings& headings, const ColumnRule& rule) {
  for (const std::string& heading : rule.headings) {
    if (const int column = ColumnOf(headings, heading); column >= 0) {
      return column;
    }
  }
  return -1;
}

/// nullopt when a heading of the layout is missing.
std::optional<ColumnMap> MapOf(const TradeLayout& layout, const Headings& headings) {
  ColumnMap map;
  map.days = layout.days;
  for (const ColumnRule& rule : layout.columns) {
    const int column = ColumnOf(headings, rule);
    if (column >= 0) {
      map.Add(rule.meaning, column);
    } else if (!rule.optional) {
      return std::nullopt;
    }
  }
  for (const std::string& other : layout.others) {
    if (ColumnOf(headings, other) < 0) {
      return std::nullopt;
    }
  }
  for (const RowRule& rule : layout.rows) {
    if (const int column = ColumnOf(headings, rule.heading); column >= 0) {
      map.filters.push_back({column, rule.words, rule.keep});
    }
  }
  return map;
}

std::size_t CountOf(const ColumnMap& map) {
  std::size_t count = map.filters.size();
  for (const auto& columns : map.columns) {
    count += columns.size();
  }
  return count;
}

using HeadingMeanings = std::map<std::string, Meaning>;

/// What each heading means in most layouts.
HeadingMeanings MeaningsIn(std::span<const TradeLayout> layouts) {
  std::map<std::string, std::array<int, kMeanings>> votes;
  for (const TradeLayout& layout : layouts) {
    for (const ColumnRule& rule : layout.columns) {
      for (const std::string& heading : rule.headings) {
        ++votes[heading][PlaceOf(rule.meaning)];
      }
    }
  }
  HeadingMeanings meanings;
  for (const auto& [heading, counts] : votes) {
    const auto* most = std::ranges::max_element(counts);
    meanings.emplace(heading, static_cast<Meaning>(std::distance(counts.begin(), most)));
  }
  return meanings;
}

ColumnMap GuessOf(const Headings& headings, const HeadingMeanings& meanings) {
  ColumnMap map;
  for (std::size_t column = 0; column < headings.size(); ++column) {
    const auto found = meanings.find(headings[column]);
    if (found != meanings.end() && (IsCharge(found->second) || !map.Has(found->second))) {
      map.Add(found->second, static_cast<int>(column));
    }
  }
  return map;
}

std::span<const files::TextRow> HeadOf(const files::TextTable& table) {
  return std::span(table.rows).first(std::min(table.rows.size(), kHeaderRows));
}

}  // namespace

QString TradeLayout::Headings() const {
  QStringList headings;
  for (const ColumnRule& rule : columns) {
    if (!rule.optional) {
      headings << QString::fromStdString(rule.headings.front());
    }
  }
  return headings.join(QStringLiteral(", "));
}

std::vector<TradeLayout> ReadTradeLayouts(const QString& folder) {
  std::vector<TradeLayout> layouts;
  const QDir files(folder);
  for (const QString& file : files.entryList({QStringLiteral("*.csv")}, QDir::Files, QDir::Name)) {
    std::ranges::move(ReadTradeLayoutFile(files.filePath(file)), std::back_inserter(layouts));
  }
  return layouts;
}

std::vector<TradeLayout> ReadTradeLayoutFile(const QString& path) {
  const files::TextTable table = files::ReadTableFile(path);
  std::vector<TradeLayout> layouts;
  for (std::size_t i = 1; i < table.rows.size(); ++i) {
    const files::TextRow& row = table.rows[i];
    const QString name = QString::fromStdString(files::CellAt(row, kLayout));
    if (layouts.empty() || layouts.back().name != name) {
      layouts.emplace_back().name = name;
    }
    if (!AddRule(layouts.back(), row)) {
      FailAt(QFileInfo(path).fileName(), row.line);
    }
  }
  return layouts;
}

bool ColumnMap::HasCharges() const {
  return std::any_of(columns.begin() + PlaceOf(Meaning::kBrokerage), columns.end(),
                     [](const auto& of_meaning) { return !of_meaning.empty(); });
}

std::string ColumnMap::Text() const {
  std::string text = days == DayOrder::kMonthFirst ? "month first" : "";
  for (std::size_t i = 0; i < kMeanings; ++i) {
    for (const int column : columns[i]) {
      text += text.empty() ? "" : ";";
      text.append(WordOf(static_cast<Meaning>(i))).append("=").append(std::to_string(column));
    }
  }
  return text;
}

std::optional<ColumnMap> ColumnMap::Parse(std::string_view text) {
  ColumnMap map;
  while (!text.empty()) {
    const auto end = std::min(text.find(';'), text.size());
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (part == "month first") {
      map.days = DayOrder::kMonthFirst;
      continue;
    }
    const auto equals = std::min(part.find('='), part.size());
    const auto meaning = MeaningOf(part.substr(0, equals));
    int column = -1;
    const std::string_view digits = part.substr(std::min(equals + 1, part.size()));
    std::from_chars(digits.data(), digits.data() + digits.size(), column);
    if (!meaning || column < 0 || column >= static_cast<int>(files::kMostColumns)) {
      return std::nullopt;
    }
    map.Add(*meaning, column);
  }
  return map;
}

std::optional<QString> WhatIsMissing(const ColumnMap& map) {
  const auto any = [&](std::initializer_list<Meaning> meanings) {
    return std::ranges::any_of(meanings, [&](Meaning meaning) { return map.Has(meaning); });
  };
  const auto all = [&](std::initializer_list<Meaning> meanings) {
    return std::ranges::all_of(meanings, [&](Meaning meaning) { return map.Has(meaning); });
  };
  if (!map.Has(Meaning::kDate)) {
    return TextOf(Meaning::kDate);
  }
  if (!any({Meaning::kSymbol, Meaning::kIsin, Meaning::kName, Meaning::kCode, Meaning::kOwnCode})) {
    return TextOf(Meaning::kName);
  }
  if (all({Meaning::kBuyQuantity, Meaning::kBuyValue, Meaning::kSellQuantity,
           Meaning::kSellValue})) {
    return std::nullopt;
  }
  if (!map.Has(Meaning::kQuantity)) {
    return TextOf(Meaning::kQuantity);
  }
  if (!map.Has(Meaning::kSide)) {
    return TextOf(Meaning::kSide);
  }
  if (!any({Meaning::kPrice, Meaning::kValue}) && !all({Meaning::kBuyPrice, Meaning::kSellPrice})) {
    return TextOf(Meaning::kPrice);
  }
  return std::nullopt;
}

std::string HeaderText(const files::TextRow& row) {
  std::string text;
  for (const std::string& heading : WordsOf(row)) {
    text += heading + '|';
  }
  text.resize(text.find_last_not_of('|') + 1);
  return text;
}

std::optional<FoundHeader> FindHeader(const files::TextTable& table,
                                      std::span<const TradeLayout> layouts) {
  std::optional<FoundHeader> best;
  std::size_t most = 0;
  const std::span<const files::TextRow> head = HeadOf(table);
  for (std::size_t row = 0; row < head.size() && !best; ++row) {
    const Headings headings = WordsOf(head[row]);
    for (const TradeLayout& layout : layouts) {
      const auto map = MapOf(layout, headings);
      if (map && CountOf(*map) > most) {
        most = CountOf(*map);
        best = {row, *map, layout.name, layout.broker};
      }
    }
  }
  return best;
}

std::optional<FoundHeader> GuessHeader(const files::TextTable& table,
                                       std::span<const TradeLayout> layouts) {
  const HeadingMeanings meanings = MeaningsIn(layouts);
  std::optional<FoundHeader> best;
  std::size_t most = 1;
  const std::span<const files::TextRow> head = HeadOf(table);
  for (std::size_t row = 0; row < head.size(); ++row) {
    const ColumnMap map = GuessOf(WordsOf(head[row]), meanings);
    if (CountOf(map) > most) {
      most = CountOf(map);
      best = {row, map, {}, {}};
    }
  }
  return best;
}

}  // namespace quorvane::portfolio
