#include "portfolio/Portfolio.h"

#include "core/lookups/Directory.h"

namespace quorvane::portfolio {

Symbol Interner::Intern(std::string_view text, FileKind file, std::size_t line) {
  // Rows of one document stand together, so the last name is asked for most often.
  if (!names_.empty() && text == last_text_) {
    return last_;
  }
  const auto [entry, fresh] =
      symbols_.try_emplace(lookups::Folded(text), static_cast<Symbol>(names_.size()));
  if (fresh) {
    names_.push_back({std::string(text), file, line});
  }
  last_text_ = text;
  last_ = entry->second;
  return last_;
}

std::string KeyOf(const records::Participant& participant) {
  return lookups::Folded(participant.name.toStdString());
}

std::string KeyOf(const records::Client& client) {
  return lookups::Folded(client.code.toStdString());
}

std::string KeyOf(const records::Broker& broker) {
  return lookups::Folded(broker.name.toStdString());
}

std::string KeyOf(const records::Scrip& scrip) {
  return lookups::Folded(scrip.code.toStdString());
}

std::string KeyOf(const records::Percentage& percentage) {
  return percentage.year.Utf8() + "\n" + lookups::Folded(percentage.name.toStdString());
}

}  // namespace quorvane::portfolio
