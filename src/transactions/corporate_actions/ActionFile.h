#pragma once

#include "core/Result.h"
#include "core/files/TextTable.h"
#include "core/text/Dates.h"
#include "transactions/corporate_actions/PurposeText.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace quorvane::corporate_actions {

/// The kind of a file: the program's own, or the list of an exchange.
enum class ActionSource : std::uint8_t { kOwn, kNse, kBse };

/// What a file says of one scrip on one day. What it does not say is empty.
struct ActionRow {
  ActionSource source = ActionSource::kOwn;
  std::size_t line = 0;
  std::string code = {};    ///< at the Bombay exchange, or the program's own
  std::string symbol = {};  ///< at the National exchange
  std::string isin = {};
  QString name = {};
  QString purpose = {};
  QString ex_day = {};      ///< dd/mm/yyyy
  QString record_day = {};  ///< dd/mm/yyyy
  /// What was understood, with days, without scrips; one action in a row of the program's own file.
  Purpose meaning = {};
  std::string other_code = {};  ///< in a row of the program's own file
};

/// A file of corporate actions. Rows that do not change shares are left out: meetings and the
/// like, and series that are no shares.
struct ActionFile {
  ActionSource source = ActionSource::kOwn;
  std::vector<ActionRow> rows = {};  ///< in the order of the file
  std::size_t left_out = 0;          ///< rows
};

/// Reads a table by its headings: the program's corporate_actions.csv (scrip_code, kind, ex_date,
/// record_date, new, old, other_scrip_code, price, cost_percent, note, allotment_date; all after
/// ex_date may be missing), the lists of the National exchange (from its page, as JSON, and the
/// daily file, which cuts purposes) and of the Bombay exchange (from its page, and as JSON). Days
/// may be 16-Jun-2025, 15 Jul 2025, 07/12/2019, 2026-01-02 or 20231025. Refuses other headings with
/// "Invalid File." and what was expected, and rows that cannot be right with their lines.
Result<ActionFile> ReadActionTable(const files::TextTable& table);

/// The same from a file on the disk, whatever its name: comma separated text, JSON, a workbook, or
/// one comma separated file in a zip archive.
Result<ActionFile> ReadActionFile(const QString& path);

}  // namespace quorvane::corporate_actions
