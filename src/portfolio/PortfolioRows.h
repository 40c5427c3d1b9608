#pragma once

#include "portfolio/Portfolio.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace quorvane::portfolio {

/// The fields of the row that is being read, in the form that the rows of a portfolio have.
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
  std::optional<Symbol> OptionalScrip(int column);  ///< nullopt for an empty field
  Symbol Broker(int column) { return SymbolOf(portfolio_.broker_names, column); }
  Symbol Exchange(int column) { return SymbolOf(portfolio_.exchange_names, column); }

  QString Text(int column) const;
  std::string FoldedText(int column) const;

  /// "dd/mm/yyyy"; empty for an empty field.
  QString DayText(int column) const;

  /// The columns of a contact are together in every file, in one order, beginning with the address.
  void ReadContact(records::Contact& contact, int address) const;

 private:
  Symbol SymbolOf(Interner& names, int column);

  Portfolio& portfolio_;
  CsvTable* table_ = nullptr;
  FileKind file_ = FileKind::kParticipants;
};

/// Takes the rows of the master files into the portfolio. A breach of the rules goes to the errors
/// of the file; so does a record whose key the file has already.
class MasterRows {
 public:
  MasterRows(Portfolio& portfolio, RowFields& fields) : portfolio_(portfolio), fields_(fields) {}

  // Each reads the current row, which is of the file in its name.
  void ReadParticipant();
  void ReadClient();
  void ReadAccount();
  void ReadBroker();
  void ReadScrip();
  void ReadPercentage();

 private:
  template <class Row>
  void AddUnique(std::vector<Row>& rows, Row row, int column);

  Portfolio& portfolio_;
  RowFields& fields_;
  std::set<std::pair<int, std::string>> keys_;
};

/// Takes the rows of bills.csv into the portfolio: rows of one client, account, broker, number,
/// date and part are one bill.
class BillRows {
 public:
  BillRows(Portfolio& portfolio, RowFields& fields) : portfolio_(portfolio), fields_(fields) {}

  /// The current row: a line, and its bill when it is the bill's first.
  void Read();

  /// After the last row: puts the lines of each bill together, in file order.
  void Group();

 private:
  BillLineRow ReadLineOnly();
  double LotRate() const;
  std::uint32_t BillOf(const BillRow& row, double part);
  std::uint32_t JoinBill(std::uint32_t index, const BillRow& row);

  Portfolio& portfolio_;
  RowFields& fields_;
  std::unordered_map<std::string, std::uint32_t> bills_by_key_;
  std::string last_bill_key_;
  std::uint32_t last_bill_ = 0;
};

/// Takes the rows of the files about corporate actions, dividends and ISINs into the portfolio.
class ActionRows {
 public:
  ActionRows(Portfolio& portfolio, RowFields& fields) : portfolio_(portfolio), fields_(fields) {}

  // Each reads the current row, which is of the file in its name.
  void ReadIsin();
  void ReadAction();
  void ReadActionLot();
  void ReadDividend();

 private:
  text::Shares AnyShares(int column);
  std::optional<std::size_t> ActionAt(int column);

  Portfolio& portfolio_;
  RowFields& fields_;
};

/// Takes the rows of the files about tax into the portfolio.
class TaxRows {
 public:
  TaxRows(Portfolio& portfolio, RowFields& fields) : portfolio_(portfolio), fields_(fields) {}

  // Each reads the current row, which is of the file in its name.
  void ReadFairValue();
  void ReadTaxLoss();

 private:
  Portfolio& portfolio_;
  RowFields& fields_;
};

/// Takes the rows of the files that tell what earlier imports left to be known.
class MarkRows {
 public:
  MarkRows(Portfolio& portfolio, RowFields& fields) : portfolio_(portfolio), fields_(fields) {}

  // Each reads the current row, which is of the file in its name.
  void ReadOpeningMark();
  void ReadTradeKey();
  void ReadStatementCheck();

 private:
  Portfolio& portfolio_;
  RowFields& fields_;
};

}  // namespace quorvane::portfolio
