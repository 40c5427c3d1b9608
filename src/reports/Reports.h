#pragma once

#include "core/lookups/Directory.h"
#include "core/records/Faults.h"
#include "reporting/document/ReportDocument.h"

#include <QtGlobal>

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>

/// The register of the reports. Menu, help and windows (ui/Features), the commands of quorvanectl
/// and its demonstration take the names of reports from here.
namespace quorvane::reports {

/// A window that makes reports, and its place in the menu and in the user guide. A window of two
/// duties has an entry for each.
struct WindowEntry {
  const char* item;     ///< object name of the menu item
  const char* caption;  ///< of the menu item, with "&" before the access key
  bool of_client;       ///< the client and year are asked for first
  const char* name;     ///< by which the window is asked for
  const char* chapter;  ///< the file of the user guide
  const char* menu = "mnuReport";
};

inline constexpr WindowEntry kTransactionWindow{
    "mnuTransRpt", QT_TRANSLATE_NOOP("MainMenu", "&Transaction Report"), true, "RptTransaction",
    "demat-statement.md"};
inline constexpr WindowEntry kMisWindow{"mnuVarReports",
                                        QT_TRANSLATE_NOOP("MainMenu", "&Various MIS Reports"),
                                        false, "RptVariousReport", "mis-reports.md"};
inline constexpr WindowEntry kLedgerWindow{"mnuBrokerLedger",
                                           QT_TRANSLATE_NOOP("MainMenu", "&Broker Ledger"), true,
                                           "RptBrokerLedger", "broker-ledger.md"};
inline constexpr WindowEntry kDematWindow{"mnuDmatStatement",
                                          QT_TRANSLATE_NOOP("MainMenu", "&Demat A/c Statement"),
                                          true, "RptDMatStatement", "demat-statement.md"};
inline constexpr WindowEntry kProfitWindow{"mnuProfitStatement",
                                           QT_TRANSLATE_NOOP("MainMenu", "&Profit Statement"), true,
                                           "RptProfitStatement", "profit-statement.md"};
inline constexpr WindowEntry kCapitalGainWindow{
    "mnuCapitalGain", QT_TRANSLATE_NOOP("MainMenu", "&Capital Gain Statement"), true,
    "RptCapitalGain", "profit-statement.md"};

inline constexpr WindowEntry kDividendWindow{"mnuDividendRpt",
                                             QT_TRANSLATE_NOOP("MainMenu", "Dividend &Report"),
                                             true,
                                             "RptDividends",
                                             "dividends.md",
                                             "mnuPortfolio"};
inline constexpr WindowEntry kScripPageWindow{"mnuScripPage",
                                              QT_TRANSLATE_NOOP("MainMenu", "Script &Page"),
                                              true,
                                              "RptScripPage",
                                              "scrip-page.md",
                                              "mnuPortfolio"};

inline constexpr WindowEntry kTaxYearWindow{
    "mnuTaxYear",  QT_TRANSLATE_NOOP("MainMenu", "Tax &Year"), true, "RptTaxYear", "tax-year.md",
    "mnuPortfolio"};
inline constexpr WindowEntry kBrokerAccountWindow{"mnuBrokerAccount",
                                                  QT_TRANSLATE_NOOP("MainMenu", "Broker &Account"),
                                                  true,
                                                  "RptBrokerAccount",
                                                  "broker-account.md",
                                                  "mnuPortfolio"};
inline constexpr WindowEntry kReturnsWindow{"mnuReturns", QT_TRANSLATE_NOOP("MainMenu", "Ret&urns"),
                                            true,         "RptReturns",
                                            "returns.md", "mnuPortfolio"};

inline constexpr WindowEntry kBookletWindow{
    "mnuBooklet", QT_TRANSLATE_NOOP("MainMenu", "Family Bookle&t"),
    true,         "RptBooklet",
    "booklet.md", "mnuPortfolio"};

/// What a sample is made of: the whole of a year of every client.
struct SampleQuery {
  database::Connection& connection;
  const lookups::Directory& directory;
  text::FinancialYear year;
  QString data_folder;  ///< of shipped files
};

struct SampleReport {
  ClientId client;  ///< none for a report over all clients
  reporting::ReportDocument document;
  std::optional<std::string> csv = {};  ///< in place of the document's own CSV
};

/// A form of a report that the demonstration writes: its name, which is part of file names, and
/// the function that gives each client's report and returns the records that could not count.
struct Sample {
  using Give = std::function<void(const SampleReport&)>;

  const char* name;
  records::Faults (*make)(const SampleQuery& query, const Give& give);
};

enum class ReportId : std::uint8_t {
  kProfit,
  kCapitalGain,
  kBrokerLedger,
  kDemat,
  kTransactions,
  kDividends,
  kScripPage,
  kTaxYear,
  kBrokerAccount,
  kReturns,
  kBooklet,
  kPosition,
  kValuation,
  kMarket,
  kProfitLoss,
  kStock
};

struct Report {
  ReportId id;
  const WindowEntry& window;
  const char* group;    ///< of commands: "statement", "mis", or empty for a command by itself
  const char* command;  ///< its word behind the group's
  const char* about;    ///< what the help of the command line says of it
  std::span<const Sample> samples;
};

/// Every report, in the order of the command line's help.
std::span<const Report> Reports();

}  // namespace quorvane::reports
