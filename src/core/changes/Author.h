#pragma once

#include <QString>

namespace quorvane::changes {

/// What a user may do beyond looking; one bit each.
enum Right : int {
  kEnter = 1,       ///< add and change records, import, rebuild, carry forward
  kDelete = 2,      ///< delete records
  kAdminister = 4,  ///< set up users, restore backups, repair tables, clear the log of changes
};
inline constexpr int kAllRights = kEnter | kDelete | kAdminister;

/// Who works with a connection. The log of changes names them.
struct Author {
  QString user;
  QString host;
  int rights = kAllRights;  ///< bits of Right

  bool May(Right right) const { return (rights & right) != 0; }
};

/// The user of the operating system, for a program that nobody has logged in to.
Author SystemAuthor();

}  // namespace quorvane::changes
