#pragma once

#include "core/rates/Download.h"

#include <QObject>
#include <QString>
#include <QUrl>

namespace quorvane::ui {

/// Fetches the exchange's index feed in the background, keeps it in a file and tells its headline.
/// After a failure there is no headline.
class HeadlineFeed : public QObject {
  Q_OBJECT

 public:
  /// `file` is where the feed is kept; an empty or invalid address is never asked.
  HeadlineFeed(const QUrl& address, const QString& file, QObject* parent = nullptr);

  /// Asks for the feed; does nothing while an answer is awaited.
  void Fetch();

 Q_SIGNALS:
  void HeadlineRead(const QString& headline);

 private:
  QUrl address_;
  QString file_;
  rates::Download download_;
};

}  // namespace quorvane::ui
