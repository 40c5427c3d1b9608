#pragma once

#include "core/Ids.h"
#include "core/database/BulkWriter.h"
#include "core/database/Recordset.h"
#include "core/text/FinancialYear.h"
#include "core/text/Shares.h"

#include <QString>

#include <concepts>
#include <cstddef>
#include <string>
#include <type_traits>

namespace quorvane::records {

using database::BulkWriter;
using database::Recordset;
using database::Value;

template <class T>
concept WholeNumber = std::same_as<T, int> || std::same_as<T, bool> || std::is_enum_v<T>;

// How each kind of member is read from a column. NULL reads as 0 or as an empty text.

template <WholeNumber T>
void ReadCell(const Recordset& row, std::size_t column, T& into) {
  into = static_cast<T>(row.Int(column));
}
inline void ReadCell(const Recordset& row, std::size_t column, double& into) {
  into = row.Double(column);
}
inline void ReadCell(const Recordset& row, std::size_t column, text::Shares& into) {
  into = text::Shares(row.Double(column));
}
inline void ReadCell(const Recordset& row, std::size_t column, QString& into) {
  into = row.Text(column);
}
inline void ReadCell(const Recordset& row, std::size_t column, std::string& into) {
  into = row.Utf8(column);
}
template <class Tag>
void ReadCell(const Recordset& row, std::size_t column, Id<Tag>& into) {
  into.value = row.Int(column);
}

/// A text that names no year gives the year 0, which no record of a client has.
inline void ReadCell(const Recordset& row, std::size_t column, text::FinancialYear& into) {
  into = text::FinancialYear::Parse(row.Utf8(column)).value_or(text::FinancialYear());
}

// How each kind of member is bound to a "?".

template <WholeNumber T>
Value Bound(T value) {
  return {static_cast<int>(value)};
}
inline Value Bound(double value) {
  return {value};
}
inline Value Bound(text::Shares value) {
  return {value.Number()};
}
inline Value Bound(const QString& value) {
  return {value};
}
inline Value Bound(const std::string& value) {
  return {value};
}
template <class Tag>
Value Bound(Id<Tag> value) {
  return {value};
}
inline Value Bound(text::FinancialYear value) {
  return {value.Utf8()};
}

// How each kind of member is written in bulk.

template <WholeNumber T>
void WriteCell(BulkWriter& writer, T value) {
  writer.Int(static_cast<int>(value));
}
inline void WriteCell(BulkWriter& writer, double value) {
  writer.Double(value);
}
inline void WriteCell(BulkWriter& writer, text::Shares value) {
  writer.Double(value.Number());
}
inline void WriteCell(BulkWriter& writer, const QString& value) {
  writer.Text(value.toStdString());
}
inline void WriteCell(BulkWriter& writer, const std::string& value) {
  writer.Text(value);
}
template <class Tag>
void WriteCell(BulkWriter& writer, Id<Tag> value) {
  writer.Int(value.value);
}
inline void WriteCell(BulkWriter& writer, text::FinancialYear value) {
  writer.Text(value.Utf8());
}

/// The letter by which BulkWriter knows the kind.
template <class T>
constexpr char TypeLetter() {
  if constexpr (std::same_as<T, double> || std::same_as<T, text::Shares>) {
    return 'd';
  } else if constexpr (std::same_as<T, QString> || std::same_as<T, std::string> ||
                       std::same_as<T, text::FinancialYear>) {
    return 't';
  } else {
    return 'i';
  }
}

}  // namespace quorvane::records
