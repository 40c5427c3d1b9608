#pragma once

#include "controls/Desk.h"
#include "core/changes/Log.h"

#include <QElapsedTimer>
#include <QWidget>

namespace quorvane::ui {

/// Takes what was changed, here and by other programs, to the open windows, and takes the last
/// change back.
class NewsRound {
 public:
  /// `main` is the window whose children are told.
  NewsRound(controls::Desk& desk, QWidget& main);

  /// What this and other programs changed since the last look appears in the open windows. Nothing
  /// happens while a transaction is open, while the data is read-only and for half a minute after
  /// the database failed; what a window was not told of by then is told to all of them after it.
  void LookAround();

  /// Takes the user's last change back, after a question. Refused while a record is under entry.
  void TakeBackLast();

 private:
  bool IsEditing() const;

  controls::Desk& desk_;
  QWidget& main_;
  changes::News news_;
  std::vector<changes::Entry> untold_;  ///< some windows do not know of yet
  bool looks_around_ = false;
  QElapsedTimer since_failed_;
};

}  // namespace quorvane::ui
