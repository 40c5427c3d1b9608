#include "core/files/CsvText.h"

#include "core/text/Csv.h"

#include <QByteArrayView>
#include <QCoreApplication>
#include <QStringConverter>

#include <array>

namespace quorvane::files {
namespace {

QString Tr(const char* text) {
  return QCoreApplication::translate("Files", text);
}

std::string DecodedWith(QStringDecoder decoder, std::string_view bytes) {
  const QString text =
      decoder.decode(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
  return decoder.hasError() ? std::string() : text.toStdString();
}

std::string ToUtf8(std::string_view bytes) {
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
    return DecodedWith(QStringDecoder(QStringConverter::Utf16), bytes);
  }
  std::string text = DecodedWith(QStringDecoder(QStringConverter::Utf8), bytes);
  return text.empty() ? DecodedWith(QStringDecoder(QStringConverter::Latin1), bytes) : text;
}

void Replace(std::string& text, std::string_view from, std::string_view to) {
  for (std::size_t at = text.find(from); at != std::string::npos;
       at = text.find(from, at + to.size())) {
    text.replace(at, from.size(), to);
  }
}

std::string WithoutEntities(std::string_view field) {
  std::string text(field);
  if (text.find('&') == std::string::npos) {
    return text;
  }
  using Pair = std::pair<std::string_view, std::string_view>;
  constexpr std::array kEntities{Pair{"&quot;", "\""}, Pair{"&#39;", "'"}, Pair{"&apos;", "'"},
                                 Pair{"&nbsp;", " "},  Pair{"&lt;", "<"},  Pair{"&gt;", ">"},
                                 Pair{"&amp;", "&"}};
  for (const auto& [entity, character] : kEntities) {
    Replace(text, entity, character);
  }
  return text;
}

void RefuseNoTable(std::string_view text) {
  const std::string_view start = Trimmed(text.starts_with("\xEF\xBB\xBF") ? text.substr(3) : text);
  if (start.empty()) {
    throw TableError(Tr("The file is empty.").toStdString());
  }
  if (start.front() == '<') {
    throw TableError(Tr("The file is a web page, not a table.").toStdString());
  }
}

}  // namespace

TextTable ReadCsvText(std::string_view bytes) {
  const std::string text = ToUtf8(bytes);
  RefuseNoTable(text);
  TableBuilder builder;
  std::vector<std::size_t> lines;
  try {
    text::CsvReader reader(text);
    while (reader.Next()) {
      const auto& fields = reader.Fields();
      for (std::size_t column = 0; column < fields.size(); ++column) {
        builder.Put(lines.size(), column, WithoutEntities(fields[column]));
      }
      lines.push_back(reader.Line());
    }
  } catch (const text::CsvError& error) {
    throw TableError(Tr("Line %1: %2.")
                         .arg(static_cast<qulonglong>(error.Line()))
                         .arg(QString::fromUtf8(error.what()))
                         .toStdString());
  }
  TextTable table = builder.Take();
  for (TextRow& row : table.rows) {
    row.line = lines[row.line - 1];
  }
  return table;
}

}  // namespace quorvane::files
