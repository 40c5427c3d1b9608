#include "ui/main/HeadlineFeed.h"

#include "core/rates/QuoteDesk.h"

#include <QSaveFile>

namespace quorvane::ui {
namespace {

constexpr rates::DownloadLimits kLimits{.milliseconds = 10000, .bytes = 1 << 20};

/// The feed is kept for a look at it; when that fails nothing else does.
void Keep(const QString& path, const QByteArray& feed) {
  QSaveFile file(path);
  if (file.open(QIODevice::WriteOnly) && file.write(feed) == feed.size()) {
    file.commit();
  }
}

}  // namespace

HeadlineFeed::HeadlineFeed(const QUrl& address, const QString& file, QObject* parent)
    : QObject(parent), address_(address), file_(file) {}

void HeadlineFeed::Fetch() {
  if (download_.IsRunning() || !address_.isValid() || address_.isEmpty()) {
    return;
  }
  download_.Get(address_, kLimits, [this](const rates::Downloaded& feed) {
    if (!feed.IsWhole()) {
      return;
    }
    Keep(file_, feed.body);
    if (const auto headline = rates::HeadlineOf(feed.body)) {
      Q_EMIT HeadlineRead(*headline);
    }
  });
}

}  // namespace quorvane::ui
