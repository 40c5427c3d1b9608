#pragma once

#include <stdexcept>
#include <string>

namespace quorvane::database {

/// A failure of the database or of the connection to it. what() is fit to be shown: the server's
/// text, the SQLSTATE and the statement, never the values that were bound to it.
class DatabaseError : public std::runtime_error {
 public:
  DatabaseError(std::string state, int native, const std::string& server_text,
                const std::string& statement);

  const std::string& State() const { return state_; }
  int Native() const { return native_; }

  /// The server gave the transaction up in favour of another one (deadlock, lock wait, cluster
  /// certification); the same work may succeed when it is done again.
  bool IsTransient() const;

  /// The connection is gone; nothing more can be done on it until it is opened again.
  bool IsConnectionLost() const;

 private:
  std::string state_;
  int native_;
};

}  // namespace quorvane::database
