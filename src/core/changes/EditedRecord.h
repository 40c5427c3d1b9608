#pragma once

#include "core/database/Connection.h"

#include <QDateTime>
#include <QString>

#include <string>
#include <string_view>
#include <vector>

namespace quorvane::changes {

/// Another program that has a record open for editing.
struct OpenElsewhere {
  QString user;
  QString host;
  QDateTime since;  ///< local time
};

/// A record while it is being edited. From its beginning a save of the record is refused when
/// another program changed it meanwhile, and other programs can see that it is open. To be made
/// before the record is read. Ends with the object.
class EditedRecord {
 public:
  /// `table` outlives the object.
  EditedRecord(database::Connection& connection, std::string_view table, int key);
  ~EditedRecord();
  EditedRecord(const EditedRecord&) = delete;

  /// Tells others that it is still open; to be called every few seconds. A record that was not
  /// told of for kForgottenAfter counts as closed: its program ended without a word. Does nothing
  /// within a transaction.
  void Beat();

  /// The other programs that have it open now, the longest first.
  std::vector<OpenElsewhere> Others() const;

  static constexpr int kForgottenAfter = 30;  ///< seconds

 private:
  database::Connection& connection_;
  std::string_view table_;
  int key_;
};

/// "Open at ANITA on OFFICE-2 since 10:20", for each; empty when there is none.
QString TextOf(const std::vector<OpenElsewhere>& others);

}  // namespace quorvane::changes
