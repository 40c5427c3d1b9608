#include "core/files/JsonTable.h"

#include "core/text/Amounts.h"
#include "core/text/Tr.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <unordered_map>

namespace quorvane::files {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view WithoutMark(std::string_view bytes) {
  bytes.remove_prefix(bytes.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0);
  return bytes;
}

[[noreturn]] void RefuseNoList() {
  throw TableError(Tr("Files", "The file holds no list of records.").toStdString());
}

QJsonArray RecordsOf(const QJsonDocument& document) {
  if (document.isArray()) {
    return document.array();
  }
  const QJsonObject object = document.object();
  const auto found =
      std::ranges::find_if(object, [](const QJsonValue& value) { return value.isArray(); });
  if (found == object.end()) {
    RefuseNoList();
  }
  return QJsonValue(*found).toArray();
}

std::string TextOf(const QJsonValue& value) {
  if (value.isDouble()) {
    return text::NumberText(value.toDouble()).toStdString();
  }
  if (value.isBool()) {
    return value.toBool() ? "true" : "false";
  }
  return value.toString().toStdString();
}

}  // namespace

bool IsJson(std::string_view bytes) {
  const auto start = WithoutMark(bytes).find_first_not_of(" \t\r\n");
  return start != std::string_view::npos &&
         (WithoutMark(bytes)[start] == '[' || WithoutMark(bytes)[start] == '{');
}

TextTable ReadJsonTable(std::string_view bytes) {
  const std::string_view json = WithoutMark(bytes);
  QJsonParseError error;
  const QJsonDocument document = QJsonDocument::fromJson(
      QByteArray::fromRawData(json.data(), static_cast<qsizetype>(json.size())), &error);
  if (document.isNull()) {
    throw TableError(Tr("Files", "The file is no JSON: %1 at character %2.")
                         .arg(error.errorString())
                         .arg(error.offset)
                         .toStdString());
  }
  TableBuilder builder;
  std::unordered_map<std::string, std::size_t> columns;
  std::size_t row = 0;
  for (const QJsonValue& record : RecordsOf(document)) {
    if (!record.isObject()) {
      RefuseNoList();
    }
    ++row;
    const QJsonObject object = record.toObject();
    for (auto member = object.begin(); member != object.end(); ++member) {
      const std::string name = member.key().toStdString();
      const auto [column, is_new] = columns.try_emplace(name, columns.size());
      if (is_new) {
        builder.Put(0, column->second, name);
      }
      builder.Put(row, column->second, TextOf(member.value()));
    }
  }
  TextTable table = builder.Take();
  for (TextRow& one : table.rows) {
    --one.line;
  }
  return table;
}

}  // namespace quorvane::files
