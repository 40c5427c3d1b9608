#include "core/lookups/Directory.h"
#include "portfolio/PortfolioRows.h"

namespace quorvane::portfolio {

void RowFields::Begin(CsvTable& table, FileKind file) {
  table_ = &table;
  file_ = file;
}

Symbol RowFields::SymbolOf(Interner& names, int column) {
  return names.Intern(table_->Text(static_cast<std::size_t>(column)), *table_, file_);
}

std::optional<Symbol> RowFields::OptionalClient(int column) {
  const bool named = !table_->Text(static_cast<std::size_t>(column)).empty();
  return named ? std::optional(Client(column)) : std::nullopt;
}

std::optional<Symbol> RowFields::OptionalScrip(int column) {
  const bool named = !table_->Text(static_cast<std::size_t>(column)).empty();
  return named ? std::optional(Scrip(column)) : std::nullopt;
}

QString RowFields::Text(int column) const {
  return QString::fromUtf8(table_->Text(static_cast<std::size_t>(column)));
}

std::string RowFields::FoldedText(int column) const {
  return lookups::Folded(table_->Text(static_cast<std::size_t>(column)));
}

QString RowFields::DayText(int column) const {
  const auto date = table_->DateOf(static_cast<std::size_t>(column));
  return date ? text::FormatDmy(*date) : QString();
}

void RowFields::ReadContact(records::Contact& contact, int address) const {
  for (QString records::Contact::*member :
       {&records::Contact::address, &records::Contact::city, &records::Contact::state,
        &records::Contact::pin, &records::Contact::std_code, &records::Contact::phone,
        &records::Contact::mobile, &records::Contact::fax, &records::Contact::email}) {
    contact.*member = Text(address++);
  }
}

}  // namespace quorvane::portfolio
