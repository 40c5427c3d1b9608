#pragma once

#include "core/text/Amounts.h"
#include "core/text/Csv.h"
#include "core/text/FinancialYear.h"
#include "core/text/Shares.h"

#include <QString>

#include <algorithm>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quorvane::portfolio {

// The fields of a file, each written so that it reads as the same value again.

inline void AppendField(std::string& out, std::string_view text) {
  text::AppendCsvField(out, text);
}
inline void AppendField(std::string& out, const QString& text) {
  text::AppendCsvField(out, text.toStdString());
}
inline void AppendField(std::string& out, double number) {
  text::AppendExact(out, number);
}
inline void AppendField(std::string& out, text::Shares shares) {
  text::AppendExact(out, shares.Number());
}
inline void AppendField(std::string& out, bool flag) {
  out += flag ? '1' : '0';
}
/// A year that could not be read is empty.
inline void AppendField(std::string& out, text::FinancialYear year) {
  out += year == text::FinancialYear() ? std::string() : year.Utf8();
}

/// The word in the place of a coded number; empty for a code that has none.
template <class Code>
std::string_view WordOf(std::span<const std::string_view> words, Code code) {
  const auto place = static_cast<int>(code);
  return place >= 0 && place < static_cast<int>(words.size())
             ? words[static_cast<std::size_t>(place)]
             : std::string_view();
}

/// Appends fields with commas between them.
template <class First, class... Rest>
void AppendFields(std::string& out, const First& first, const Rest&... rest) {
  AppendField(out, first);
  ((out += ',', AppendField(out, rest)), ...);
}

/// Calls `write` with the records in the order of their keys, equal ones as they come.
template <class Record, class Key, class Write>
void InOrder(const std::vector<Record>& records, const Key& key_of, const Write& write) {
  std::vector<std::pair<decltype(key_of(records.front())), std::size_t>> order;
  order.reserve(records.size());
  for (const Record& record : records) {
    order.emplace_back(key_of(record), order.size());
  }
  std::ranges::sort(order);
  for (const auto& [key, place] : order) {
    write(records[place]);
  }
}

}  // namespace quorvane::portfolio
