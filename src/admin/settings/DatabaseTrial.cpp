#include "admin/settings/DatabaseTrial.h"

#include "core/database/Schema.h"

#include <QPromise>
#include <QThreadPool>

#include <memory>

namespace quorvane::settings {

DatabaseTrial::DatabaseTrial(QObject* parent) : QObject(parent) {
  connect(&watcher_, &QFutureWatcherBase::finished, this, [this] {
    if (watcher_.future().resultCount() > 0) {
      const Outcome outcome = watcher_.result();
      Q_EMIT Finished(outcome.failure, outcome.about);
    }
  });
}

void DatabaseTrial::Start(const database::ConnectionSettings& settings) {
  if (IsUnderWay()) {
    return;
  }
  auto promise = std::make_shared<QPromise<Outcome>>();
  promise->start();
  watcher_.setFuture(promise->future());
  QThreadPool::globalInstance()->start([promise, settings] {
    promise->addResult(Try(settings));
    promise->finish();
  });
}

DatabaseTrial::Outcome DatabaseTrial::Try(const database::ConnectionSettings& settings) {
  try {
    database::Connection connection(settings);
    if (const QString reason = database::WhyUnsuitable(connection); !reason.isEmpty()) {
      return {.failure = reason, .about = {}};
    }
    for (const auto& row : connection.Open("Select Version()")) {
      return {.failure = {}, .about = row.Text(0)};
    }
    return {.failure = tr("The Server Gives no Answer."), .about = {}};
  } catch (const std::exception& error) {
    return {.failure = QString::fromUtf8(error.what()), .about = {}};
  }
}

}  // namespace quorvane::settings
