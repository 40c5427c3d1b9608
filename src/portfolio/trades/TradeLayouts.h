#pragma once

#include "core/files/TextTable.h"
#include "portfolio/trades/TradeMeaning.h"
#include "portfolio/trades/TradeText.h"

#include <QString>

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quorvane::portfolio {

/// The column of a layout that has a meaning.
struct ColumnRule {
  Meaning meaning;
  std::vector<std::string> headings;  ///< any of them, as HeadingWords writes them
  bool optional = false;              ///< a file of the layout may lack it
};

/// Which rows of a file are trades, by words in a column.
struct RowRule {
  std::string heading;
  std::vector<std::string> words;  ///< as HeadingWords writes them
  bool keep = true;                ///< rows with one of the words; otherwise rows with none
};

/// A kind of file of a broker, known by its headings.
struct TradeLayout {
  QString name;
  QString broker;  ///< as the broker is commonly called
  DayOrder days = DayOrder::kDayFirst;
  std::vector<ColumnRule> columns;
  std::vector<std::string> others;  ///< headings that a file must have and that are not read
  std::vector<RowRule> rows;

  /// Names of scrips in the file, and the program's code or "new" for each.
  std::vector<std::pair<std::string, std::string>> scrips;

  /// The headings that every file of the layout has.
  QString Headings() const;
};

/// The layouts in the comma separated files of a folder, in the order of the files' names. A file
/// has the columns layout, meaning, heading and words. Meanings are those of Meaning, and "broker",
/// "days", "also", "keep" and "skip". "?" before a heading: it may be missing; "|" is between
/// headings of one meaning, and between words. Empty when there is no such folder. Throws
/// files::TableError for a broken file.
std::vector<TradeLayout> ReadTradeLayouts(const QString& folder);

/// Those of one file, with the names of scrips too: meaning "scrip", the name in place of the
/// heading and the code in place of the words. Throws files::TableError.
std::vector<TradeLayout> ReadTradeLayoutFile(const QString& path);

/// Where the meanings are in a file: the columns of each, counted from 0.
struct ColumnMap {
  struct Filter {
    int column = -1;
    std::vector<std::string> words;
    bool keep = true;
  };

  std::array<std::vector<int>, kMeanings> columns;
  std::vector<Filter> filters;
  DayOrder days = DayOrder::kDayFirst;

  const std::vector<int>& Of(Meaning meaning) const { return columns[PlaceOf(meaning)]; }
  bool Has(Meaning meaning) const { return !Of(meaning).empty(); }

  /// The first column of the meaning; -1 when there is none.
  int First(Meaning meaning) const { return Has(meaning) ? Of(meaning).front() : -1; }
  void Add(Meaning meaning, int column) { columns[PlaceOf(meaning)].push_back(column); }

  /// Whether the file tells this charge, or a sum that it is in.
  bool HasCharges() const;

  /// "date=2;side=6": for the profiles of headers.
  std::string Text() const;
  static std::optional<ColumnMap> Parse(std::string_view text);
};

/// The first thing that is missing so that trades can be read; nullopt when nothing is.
std::optional<QString> WhatIsMissing(const ColumnMap& map);

/// A header that was found.
struct FoundHeader {
  std::size_t row = 0;  ///< its place in the table's rows
  ColumnMap map;
  QString layout;  ///< empty for one that the user mapped
  QString broker;
};

/// The headings of a row in their order, as profiles keep them: "date|symbol|qty".
std::string HeaderText(const files::TextRow& row);

/// The header of a known layout in the first rows of a table; of several layouts that fit the one
/// with the most columns.
std::optional<FoundHeader> FindHeader(const files::TextTable& table,
                                      std::span<const TradeLayout> layouts);

/// The row that is most probably a header of no known layout, and the columns whose headings mean
/// something in any layout; nullopt when no row has two of these.
std::optional<FoundHeader> GuessHeader(const files::TextTable& table,
                                       std::span<const TradeLayout> layouts);

/// Brokers put up to 34 rows above their headings.
inline constexpr std::size_t kHeaderRows = 60;

}  // namespace quorvane::portfolio
