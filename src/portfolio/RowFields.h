#pragma once

#include "portfolio/Portfolio.h"

#include <QString>

#include <optional>
#include <string>

namespace quorvane::portfolio {

/// The fields of the row that is being read, in the forms that the rows of a portfolio have them.
/// Columns are those of the file's layout.
class RowFields {
 public:
  /// The portfolio numbers the names and outlives the fields.
  explicit RowFields(Portfolio& portfolio) : portfolio_(portfolio) {}

  /// From now on the fields are those of this file.
  void Begin(CsvTable& table, FileKind file);

  CsvTable& Table() const { return *table_; }
  FileKind File() const { return file_; }

  Symbol Client(int column) { return SymbolOf(portfolio_.client_codes, column); }
  std::optional<Symbol> OptionalClient(int column);  ///< nullopt for an empty field
  Symbol Account(int column) { return SymbolOf(portfolio_.account_numbers, column); }
  Symbol Scrip(int column) { return SymbolOf(portfolio_.scrip_codes, column); }
  Symbol Broker(int column) { return SymbolOf(portfolio_.broker_names, column); }
  Symbol Exchange(int column) { return SymbolOf(portfolio_.exchange_names, column); }

  QString Text(int column) const;
  std::string FoldedText(int column) const;

  /// "dd/mm/yyyy"; empty for an empty field.
  QString DayText(int column) const;

  /// The columns of a contact stand together in every file, in one order, from the address on.
  void ReadContact(records::Contact& contact, int address) const;

 private:
  Symbol SymbolOf(Interner& names, int column);

  Portfolio& portfolio_;
  CsvTable* table_ = nullptr;
  FileKind file_ = FileKind::kParticipants;
};

}  // namespace quorvane::portfolio
