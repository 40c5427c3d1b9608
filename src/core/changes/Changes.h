#pragma once

#include <QString>

#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane::changes {

/// What was done, as stored in the log.
enum class Kind : std::uint8_t {
  kAdded = 1,
  kChanged,
  kDeleted,
  kApplied,    ///< a corporate action was carried out in the holdings
  kTakenBack,  ///< and taken out of them again
  kImported,
  kCarriedForward,
  kRebuilt,
  kRates,
  kPassword,
  kRestored,
  kRepaired,
  kCleared,  ///< old entries of the log were removed
  kRights,
};

/// The record that a row belongs to, a bill for one of its lines.
struct Owner {
  std::string_view table = {};  ///< "SPMaster"
  int key = 0;
  int client = 0;         ///< 0 when the record is of no client
  std::string year = {};  ///< "2011-12", or empty
  QString title = {};  ///< by which people know the record; empty for a row that does not tell it
};

/// Rows of one table that a transaction removed and added, as JSON arrays of their columns.
struct TableChanges {
  std::string table;
  std::string columns;  ///< a JSON array of names
  std::vector<std::string> removed;
  std::vector<std::string> added;
  std::int64_t removed_count = 0;
  std::int64_t added_count = 0;
};

/// A row of the log as it is about to be written.
struct NewEntry {
  Kind kind = Kind::kChanged;
  Owner owner;
  std::int64_t undoes = 0;
  std::string old_rows;  ///< JSON: {"SPMaster":{"columns":[...],"rows":[[...],...]},...}
  std::string new_rows;  ///< the same; of a summary {"text":"...","counts":{"SPTrans":[0,50]}}
};

/// What one transaction did to records. records::Writer and records::Delete, through which every
/// record is written, fill it in; it is written to the log when the transaction commits.
class Changes {
 public:
  /// False when rows are only counted: in an import, and after kMostRows of them.
  bool KeepsRows() const { return keeps_rows_; }

  /// Where rows of a table are noted. The place stays valid as long as the object.
  TableChanges& Of(std::string_view table);

  void Removed(TableChanges& table, Owner owner, std::string_view columns, std::string row);
  void Added(TableChanges& table, Owner owner, std::string_view columns, std::string row);

  /// From now on rows are only counted: the whole transaction is one work of that kind, such as an
  /// import. `owner` names the client and year when it is of one.
  void Summarise(Kind kind, const QString& text, Owner owner = {});

  /// Names what was done when the rows do not tell it.
  void Is(Kind kind);
  void Is(Kind kind, Owner owner);

  /// The transaction takes that entry of the log back.
  void Undoes(std::int64_t entry) { undoes_ = entry; }

  /// A record that was to be replaced is stored no longer, and is written as a new one.
  void Missed(std::string_view table, int key) { missed_ = {.table = table, .key = key}; }
  const std::optional<Owner>& MissedRecord() const { return missed_; }

  /// Nothing when no record changed.
  std::optional<NewEntry> Entry() const;

  static constexpr std::size_t kMostRows = 20'000;

 private:
  void Note(TableChanges& table, Owner owner, std::string_view columns, bool is_header, bool added);
  void StopKeeping();
  std::string Summary() const;

  std::deque<TableChanges> tables_;
  std::optional<Owner> owner_;
  bool had_header_ = false;  ///< the owner's own row was removed
  bool has_header_ = false;  ///< the owner's own row was added
  std::optional<Kind> kind_;
  QString text_;
  std::int64_t undoes_ = 0;
  std::optional<Owner> missed_;
  std::size_t rows_ = 0;
  bool keeps_rows_ = true;
  bool is_summary_ = false;
};

/// Appends a text as JSON, with its quotes.
void AppendJson(std::string& json, std::string_view text);

}  // namespace quorvane::changes
