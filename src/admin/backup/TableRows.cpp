#include "admin/backup/TableRows.h"

#include "core/database/BulkWriter.h"
#include "core/database/Schema.h"
#include "core/text/Tr.h"

#include <QFile>

#include <fmt/format.h>

#include <charconv>
#include <map>
#include <optional>
#include <stdexcept>
#include <system_error>

namespace quorvane::backup {
namespace {

using database::Connection;
using database::Recordset;

constexpr std::size_t kSendAt = 1 << 18;
constexpr std::int64_t kTellAt = 500;
constexpr std::string_view kNull = "\\N";
constexpr std::string_view kEscaped{"\\\t\n\r\0", 5};
constexpr std::string_view kLetters = "\\tnr0";

char TypeOf(const QString& sql_type) {
  if (sql_type.contains(QLatin1String("int"), Qt::CaseInsensitive)) {
    return 'i';
  }
  const bool is_real = sql_type.compare(QLatin1String("double"), Qt::CaseInsensitive) == 0 ||
                       sql_type.compare(QLatin1String("float"), Qt::CaseInsensitive) == 0;
  return is_real ? 'd' : 't';
}

void AppendText(std::string& out, std::string_view text) {
  for (const char c : text) {
    const std::size_t at = kEscaped.find(c);
    if (at == std::string_view::npos) {
      out += c;
    } else {
      out += '\\';
      out += kLetters[at];
    }
  }
}

template <class Number>
void AppendNumber(std::string& out, Number value) {
  char text[40];
  const auto [end, error] = std::to_chars(text, text + sizeof(text), value);
  out.append(text, end);
}

void AppendField(std::string& out, const Recordset& row, std::size_t column, char type) {
  if (row.IsNull(column)) {
    out += kNull;
  } else if (type == 'i') {
    AppendNumber(out, row.Int64(column));
  } else if (type == 'd') {
    AppendNumber(out, row.Double(column));
  } else {
    AppendText(out, row.Utf8(column));
  }
}

std::string ColumnList(const TableEntry& table) {
  std::string list;
  for (const TableColumn& column : table.columns) {
    list += fmt::format("{}`{}`", list.empty() ? "" : ",", column.name);
  }
  return list;
}

bool HasRowKey(Connection& connection, const TableEntry& table) {
  return connection
      .Open(
          "Select 1 From information_schema.COLUMNS Where TABLE_SCHEMA=Database() And "
          "Lower(TABLE_NAME)=Lower(?) And COLUMN_NAME='RowKey'",
          table.name)
      .Next();
}

/// Any order will do for a table without a key, as long as the same rows always come in the same.
std::string OrderOf(Connection& connection, const TableEntry& table) {
  return HasRowKey(connection, table) ? "RowKey" : ColumnList(table);
}

template <class Number>
bool ParseNumber(std::string_view text, Number& value) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc() && end == text.data() + text.size();
}

bool Unescape(std::string_view text, std::string& plain) {
  plain.clear();
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '\\') {
      plain += text[i];
      continue;
    }
    const std::size_t at = ++i < text.size() ? kLetters.find(text[i]) : std::string_view::npos;
    if (at == std::string_view::npos) {
      return false;
    }
    plain += kEscaped[at];
  }
  return true;
}

/// Gives one field to the writer; false when it is none of its type.
bool Take(database::BulkWriter& writer, char type, std::string_view field, std::string& plain) {
  if (field == kNull) {
    writer.Null();
    return true;
  }
  if (type == 'i') {
    std::int64_t value = 0;
    const bool good = ParseNumber(field, value);
    writer.Int(value);
    return good;
  }
  if (type == 'd') {
    double value = 0;
    const bool good = ParseNumber(field, value);
    writer.Double(value);
    return good;
  }
  const bool good = Unescape(field, plain);
  writer.Text(plain);
  return good;
}

bool TakeLine(database::BulkWriter& writer, const TableEntry& table, std::string_view line,
              std::string& plain) {
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const std::size_t end = line.find('\t');
    const bool is_last = i + 1 == table.columns.size();
    if ((end == std::string_view::npos) != is_last ||
        !Take(writer, table.columns[i].type, line.substr(0, end), plain)) {
      return false;
    }
    line.remove_prefix(is_last ? line.size() : end + 1);
  }
  writer.EndRow();
  return true;
}

std::string InsertOf(const TableEntry& table) {
  std::string marks;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    marks += i > 0 ? ",?" : "?";
  }
  return fmt::format("Insert Into {}({}) Values({})", table.name, ColumnList(table), marks);
}

std::string TypesOf(const TableEntry& table) {
  std::string types;
  for (const TableColumn& column : table.columns) {
    types += column.type;
  }
  return types;
}

Refusal NoTable(const TableEntry& table) {
  return {Tr("Backup", "The rows of the table %1 cannot be read.")
              .arg(QString::fromStdString(table.name)),
          {}};
}

}  // namespace

std::vector<TableEntry> TablesOf(Connection& connection) {
  std::map<QString, std::vector<TableColumn>> columns;
  for (const auto& row : connection.Open(
           "Select TABLE_NAME,COLUMN_NAME,DATA_TYPE From information_schema.COLUMNS Where "
           "TABLE_SCHEMA=Database() And EXTRA Not Like '%INVISIBLE%' Order By TABLE_NAME,"
           "ORDINAL_POSITION")) {
    columns[row.Text(0).toLower()].push_back({std::string(row.Utf8(1)), TypeOf(row.Text(2))});
  }
  std::vector<TableEntry> tables;
  for (const std::string& name : database::TableNames()) {
    const auto found = columns.find(QString::fromStdString(name).toLower());
    if (found == columns.end()) {
      throw std::runtime_error("the database has no table " + name);
    }
    tables.push_back({name, found->second, 0});
  }
  return tables;
}

std::int64_t SendRows(Connection& connection, const TableEntry& table,
                      const std::function<void(std::string_view)>& send,
                      const std::function<void(std::int64_t)>& took_rows) {
  std::string out;
  std::int64_t rows = 0;
  for (const auto& row :
       connection.Open(fmt::format("Select {} From {} Order By {}", ColumnList(table), table.name,
                                   OrderOf(connection, table)))) {
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      out += i > 0 ? "\t" : "";
      AppendField(out, row, i, table.columns[i].type);
    }
    out += '\n';
    if (out.size() > kSendAt) {
      send(out);
      out.clear();
    }
    if (++rows % kTellAt == 0) {
      took_rows(kTellAt);
    }
  }
  send(out);
  took_rows(rows % kTellAt);
  return rows;
}

MaybeRefusal InsertRows(database::Transaction& transaction, const TableEntry& table,
                        const QString& file, const std::function<void(std::int64_t)>& took_rows) {
  QFile source(file);
  if (!source.open(QIODevice::ReadOnly)) {
    throw std::runtime_error("cannot read " + file.toStdString() + ": " +
                             source.errorString().toStdString());
  }
  database::BulkWriter writer(transaction, InsertOf(table), TypesOf(table));
  std::string plain;
  std::int64_t rows = 0;
  while (!source.atEnd()) {
    const QByteArray line = source.readLine();
    if (!line.endsWith('\n') ||
        !TakeLine(writer, table, {line.constData(), static_cast<std::size_t>(line.size() - 1)},
                  plain)) {
      return NoTable(table);
    }
    if (++rows % kTellAt == 0) {
      took_rows(kTellAt);
    }
  }
  if (rows != table.rows) {
    return NoTable(table);
  }
  writer.Finish();
  took_rows(rows % kTellAt);
  return std::nullopt;
}

}  // namespace quorvane::backup
