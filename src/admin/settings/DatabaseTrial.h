#pragma once

#include "core/database/Connection.h"

#include <QFutureWatcher>
#include <QObject>

namespace quorvane::settings {

/// Tries to reach a database in the background. One trial at a time; its result comes by Finished,
/// within seconds when no server answers. A trial ends by itself after the object is deleted.
class DatabaseTrial : public QObject {
  Q_OBJECT

 public:
  explicit DatabaseTrial(QObject* parent = nullptr);

  /// Does nothing while a trial is under way.
  void Start(const database::ConnectionSettings& settings);
  bool IsUnderWay() const { return watcher_.isRunning(); }

 Q_SIGNALS:
  /// `failure` is empty when the database was reached and the program can work with its server;
  /// `about` then says what answered.
  void Finished(const QString& failure, const QString& about);

 private:
  struct Outcome {
    QString failure;
    QString about;
  };
  static Outcome Try(const database::ConnectionSettings& settings);

  QFutureWatcher<Outcome> watcher_;
};

}  // namespace quorvane::settings
