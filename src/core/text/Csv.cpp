#include "core/text/Csv.h"

namespace quorvane::text {

CsvReader::CsvReader(std::string_view text) : text_(text) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text_.starts_with(kByteOrderMark)) {
    at_ = kByteOrderMark.size();
  }
}

bool CsvReader::Next() {
  while (at_ < text_.size() && (text_[at_] == '\n' || text_[at_] == '\r')) {
    line_ += text_[at_] == '\n' ? 1 : 0;
    ++at_;
  }
  if (at_ >= text_.size()) {
    return false;
  }
  fields_.clear();
  record_line_ = line_;
  while (true) {
    if (fields_.size() >= kMostCsvFields) {
      throw CsvError(record_line_, "the line holds too many fields");
    }
    fields_.push_back(ReadField());
    if (at_ < text_.size() && text_[at_] == ',') {
      ++at_;
      continue;
    }
    break;
  }
  if (at_ < text_.size() && text_[at_] == '\r') {
    ++at_;
  }
  if (at_ < text_.size() && text_[at_] == '\n') {
    ++at_;
    ++line_;
  }
  return true;
}

std::string_view CsvReader::ReadField() {
  if (at_ < text_.size() && text_[at_] == '"') {
    return ReadQuoted();
  }
  const std::size_t end = std::min(text_.find_first_of(",\r\n", at_), text_.size());
  const std::string_view field = text_.substr(at_, end - at_);
  at_ = end;
  return field;
}

std::string_view CsvReader::ReadQuoted() {
  const std::size_t first_line = line_;
  const std::size_t start = ++at_;
  std::string* copy = nullptr;
  std::size_t piece = start;
  while (true) {
    const std::size_t end = text_.find_first_of("\"\n", at_);
    if (end == std::string_view::npos) {
      throw CsvError(first_line, "a quoted field is not closed");
    }
    at_ = end + 1;
    if (text_[end] == '\n') {
      ++line_;
      continue;
    }
    if (at_ < text_.size() && text_[at_] == '"') {
      copy = copy != nullptr ? copy : &unquoted_.emplace_back();
      copy->append(text_.substr(piece, at_ - piece));
      piece = ++at_;
      continue;
    }
    if (at_ < text_.size() && text_.find_first_of(",\r\n", at_) != at_) {
      throw CsvError(line_, "text follows the closing quote of a field");
    }
    if (copy == nullptr) {
      return text_.substr(start, end - start);
    }
    copy->append(text_.substr(piece, end - piece));
    return *copy;
  }
}

void AppendCsvField(std::string& out, std::string_view field) {
  // Blanks at the ends are quoted too: some readers trim what is not.
  const bool plain = field.find_first_of(",\"\r\n") == std::string_view::npos &&
                     !field.starts_with(' ') && !field.ends_with(' ');
  if (plain) {
    out += field;
    return;
  }
  out += '"';
  for (const char c : field) {
    out += c;
    if (c == '"') {
      out += '"';
    }
  }
  out += '"';
}

}  // namespace quorvane::text
