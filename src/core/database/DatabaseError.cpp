#include "core/database/DatabaseError.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

namespace quorvane::database {
namespace {

constexpr int kDuplicateEntry = 1062;
constexpr int kDuplicateEntryWithKeyName = 1586;

/// The errors in whose text the server quotes a value that it did not like.
constexpr std::array kQuoteAValue{
    kDuplicateEntry, kDuplicateEntryWithKeyName, 1231, 1292, 1300, 1366, 1367, 1411, 1525, 1690};

/// The server's text without the quoted value, which may be of any length and hold quotes itself.
std::string WithoutValue(const std::string& text, int native) {
  const std::size_t begin = text.find('\'');
  if (begin == std::string::npos || std::ranges::find(kQuoteAValue, native) == kQuoteAValue.end()) {
    return text;
  }
  const bool names_a_key = native == kDuplicateEntry || native == kDuplicateEntryWithKeyName;
  const std::size_t key = names_a_key ? text.rfind("' for key '") : std::string::npos;
  const std::size_t end = key != std::string::npos ? key : text.rfind('\'');
  return text.substr(0, begin) + "'...'" + text.substr(end + 1);
}

std::string Describe(const std::string& state, const std::string& server_text,
                     const std::string& statement) {
  const std::string in = statement.empty() ? "" : " in: " + statement;
  return fmt::format("{} [SQLSTATE {}]{}", server_text, state, in);
}

}  // namespace

DatabaseError::DatabaseError(std::string state, int native, const std::string& server_text,
                             const std::string& statement)
    : std::runtime_error(Describe(state, WithoutValue(server_text, native), statement)),
      state_(std::move(state)),
      native_(native) {}

bool DatabaseError::IsTransient() const {
  constexpr int kDeadlock = 1213;
  constexpr int kLockWaitTimeout = 1205;
  return state_ == "40001" || native_ == kDeadlock || native_ == kLockWaitTimeout;
}

bool DatabaseError::IsConnectionLost() const {
  // No way to the server; gone, lost while asked, shutting down, connection killed or left idle; a
  // node that left its cluster.
  constexpr std::array kLost{2002, 2003, 2006, 2013, 2055, 1053, 1927, 4031, 1047};
  return state_.starts_with("08") || std::ranges::find(kLost, native_) != kLost.end();
}

}  // namespace quorvane::database
