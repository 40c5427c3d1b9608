#pragma once

#include "core/changes/EditedRecord.h"
#include "core/changes/Log.h"

#include <QElapsedTimer>
#include <QLabel>

#include <memory>
#include <string_view>

namespace quorvane::controls {

/// A line that tells who else has the record under edit open, and who changed it meanwhile. Hidden
/// while there is nothing to tell.
class EditWatch : public QLabel {
  Q_OBJECT

 public:
  explicit EditWatch(QWidget* parent = nullptr);

  /// A stored record is about to be read and edited. `table` outlives the edit.
  void Begin(database::Connection& connection, std::string_view table, int key);
  void End();

  /// Another program changed the record, or many of which it may be one.
  void ChangedBy(const changes::Entry& entry, bool names_it);

  /// Tells others that the record is still open and looks who has it, every few seconds at most
  /// unless `now`.
  void LookForOthers(bool now);

 private:
  void Tell();

  std::unique_ptr<changes::EditedRecord> record_;
  QElapsedTimer since_look_;
  QString others_;
  QString changed_;
  bool is_certain_ = false;  ///< that the record was changed
};

}  // namespace quorvane::controls
