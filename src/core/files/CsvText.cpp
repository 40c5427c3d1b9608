#include "core/files/TableReaders.h"
#include "core/text/Csv.h"
#include "core/text/Tr.h"

#include <QByteArrayView>
#include <QStringConverter>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <utility>

namespace quorvane::files {
namespace {

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

/// The letter that an entity's number names ("#38", "#x26"); nullopt when it names none.
std::optional<std::string> NumberedLetter(std::string_view entity) {
  const bool is_hex = entity.starts_with("#x") || entity.starts_with("#X");
  const std::string_view digits = entity.substr(is_hex ? 2 : 1);
  std::uint32_t code = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), code, is_hex ? 16 : 10);
  const bool is_letter = code >= 0x20 && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
  if (error != std::errc() || end != digits.data() + digits.size() || !is_letter) {
    return std::nullopt;
  }
  const char32_t letter = code;
  return QString::fromUcs4(&letter, 1).toStdString();
}

std::optional<std::string> LetterOf(std::string_view entity) {
  using Pair = std::pair<std::string_view, std::string_view>;
  constexpr std::array kNamed{Pair{"quot", "\""}, Pair{"apos", "'"}, Pair{"nbsp", " "},
                              Pair{"lt", "<"},    Pair{"gt", ">"},   Pair{"amp", "&"}};
  if (entity.starts_with('#')) {
    return NumberedLetter(entity);
  }
  const auto* found = std::ranges::find(kNamed, entity, &Pair::first);
  return found == kNamed.end() ? std::nullopt : std::optional<std::string>(found->second);
}

std::string WithoutEntities(std::string_view field) {
  constexpr std::size_t kLongestEntity = 12;
  std::string text;
  while (true) {
    const std::size_t start = std::min(field.find('&'), field.size());
    text += field.substr(0, start);
    field.remove_prefix(start);
    if (field.empty()) {
      return text;
    }
    const std::size_t end = field.substr(0, kLongestEntity).find(';');
    const auto letter =
        end == std::string_view::npos ? std::nullopt : LetterOf(field.substr(1, end - 1));
    text += letter.value_or("&");
    field.remove_prefix(letter ? end + 1 : 1);
  }
}

void RefuseNoTable(std::string_view text) {
  const std::string_view start = Trimmed(text.starts_with("\xEF\xBB\xBF") ? text.substr(3) : text);
  if (start.empty()) {
    Fail(Tr("Files", "The file is empty."));
  }
  if (start.front() == '<') {
    Fail(Tr("Files", "The file is a web page, not a table."));
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
    throw TableError(Tr("Files", "Line %1: %2.")
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
