#pragma once

#include "core/app/Folders.h"

#include <QList>
#include <QRect>
#include <QString>

#include <optional>

namespace quorvane::controls {

/// What windows remember from one opening to the next: their place, their columns' widths, the
/// folder of the last file, the last answer. It is kept in "Windows.ini" of the application folder;
/// without such a folder nothing is kept. What cannot be read or written counts as not remembered.
class WindowMemory {
 public:
  explicit WindowMemory(const app::Folders& folders);

  /// `window` is the window's name ("FrmBroker"), `key` what is remembered of it.
  QString Text(const QString& window, const QString& key) const;
  void Keep(const QString& window, const QString& key, const QString& text) const;

  /// The place of a window that is not maximized.
  std::optional<QRect> Place(const QString& window) const;
  void KeepPlace(const QString& window, const QRect& place) const;

  bool IsMaximized(const QString& window) const;
  void KeepMaximized(const QString& window, bool maximized) const;

  QList<int> Numbers(const QString& window, const QString& key) const;
  void KeepNumbers(const QString& window, const QString& key, const QList<int>& numbers) const;

 private:
  QString path_;
};

/// `place` made no larger than `within` and moved into it.
QRect Inside(const QRect& place, const QRect& within);

}  // namespace quorvane::controls
