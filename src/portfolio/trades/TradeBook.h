#pragma once

#include "core/lookups/Directory.h"
#include "portfolio/trades/TradeImport.h"

#include <QStringList>

#include <span>
#include <utility>
#include <vector>

namespace quorvane::portfolio {

/// A broker's file that was read, and what is known of its columns.
struct OpenedTrades {
  QString path;
  files::TextTable table;
  std::optional<FoundHeader> header;  ///< none while the columns are not known
  bool mapped = false;                ///< the user mapped the columns in this import
};

/// What an import is to do.
struct TradeOptions {
  TradePlan::Fills fills = TradePlan::Fills::kJoined;
  std::string exchange = "NSE";  ///< of trades whose file names none
  text::Date today;
};

/// An account to choose for an import: "1001 - ANAND KAMDHENU".
struct TradeAccount {
  AccountId id;
  QString text;
};

/// Imports of brokers' trade books, from the files to the bills. Each function throws
/// DatabaseError, and files::TableError for a file that cannot be read.
class TradeBook {
 public:
  /// The layouts are those in "trades" in the data folder.
  TradeBook(database::Connection& connection, const QString& data_folder);

  const std::vector<TradeLayout>& Layouts() const { return layouts_; }

  /// Layouts of the user's own, which come before all others.
  void AddLayouts(std::vector<TradeLayout> layouts);

  std::vector<TradeAccount> Accounts() const;

  /// The names behind an import: an account, of the client of that code when one is given, and a
  /// broker.
  Result<TradeTarget> TargetOf(const QString& account, const QString& client_code,
                               const QString& broker) const;
  Result<TradeTarget> TargetOf(AccountId account, BrokerId broker) const;

  /// Reads a file and looks for its header: one that the user mapped before, else one of a layout.
  OpenedTrades Open(const QString& path) const;

  /// The text for a file whose columns are not known: it names the headings that were expected.
  QString UnknownHeader(const OpenedTrades& opened) const;

  /// The trades of the files. Refused for a file without a known header, one that ends within a
  /// row, one of another account, and rows that are no proper trades; the text names file and line.
  Result<TradeFile> Read(std::span<const OpenedTrades> opened, const TradeTarget& target,
                         const TradeOptions& options, Progress& progress) const;

  /// What is to become of the trades, with what the database knows. Throws Cancellation.
  TradePlan Plan(TradeFile file, const TradeTarget& target, const TradeOptions& options,
                 Progress& progress) const;

  /// The headers that the user mapped, for SaveTrades.
  static std::vector<MappedHeader> MappedHeaders(std::span<const OpenedTrades> opened);

 private:
  MaybeRefusal CheckOwner(const OpenedTrades& opened, const TradeTarget& target,
                          const lookups::Directory& directory) const;

  database::Connection& connection_;
  QString data_folder_;
  std::vector<TradeLayout> layouts_;
};

}  // namespace quorvane::portfolio
