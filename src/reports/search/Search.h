#pragma once

#include "core/ClientYear.h"
#include "core/database/Connection.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace quorvane::search {

/// What was found, in the order in which the groups are shown.
enum class Kind : std::uint8_t { kClient, kAccount, kScrip, kBill, kPayment, kReceipt };

/// What a group of results is called ("Bills").
QString HeadingOf(Kind kind);

/// A record that fits the searched text.
struct Found {
  Kind kind = Kind::kClient;
  int record = 0;                               ///< its key; of an account the key of its client
  QString name;                                 ///< what it is called: a code, a number
  QString about;                                ///< whose, which day, how much
  std::optional<ClientYear> of = std::nullopt;  ///< of a bill, payment or receipt
  QString client_name = {};
};

/// At most that many of each kind are found.
inline constexpr int kMostOfAKind = 20;

/// Searches all records of all years, grouped by kind. Clients, accounts and scrips fit when each
/// word of the text is in one of their names, codes or numbers; scrips also by the beginning of an
/// ISIN. Bills fit by the beginning of their number, payments and receipts by that of the cheque's.
/// Those that begin with the text come first. A text without a letter or digit finds nothing.
/// Throws DatabaseError.
std::vector<Found> Search(database::Connection& connection, const QString& text);

}  // namespace quorvane::search
