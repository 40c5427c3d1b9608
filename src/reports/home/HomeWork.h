#pragma once

#include "core/database/Connection.h"
#include "reports/home/Figures.h"

#include <QObject>
#include <QString>
#include <QThread>

#include <atomic>
#include <optional>

namespace quorvane::home {

/// Figures and how far they can be relied on.
struct Shown {
  Scope scope;
  Figures figures;
  std::optional<QDateTime> checked;  ///< when all were last compared with the records
  bool checking = false;             ///< that is under way now
};

/// Works in the background with a connection of its own: shows what is kept at once, compares it
/// with the records, recomputes what changed, and shows that. Nothing waits for it.
class HomeWork : public QObject {
  Q_OBJECT

 public:
  /// With `read_only` nothing is compared or computed.
  HomeWork(database::ConnectionSettings settings, bool read_only, QObject* parent = nullptr);

  /// Ends what is under way, as the end of the program does; waits for the step that it is in.
  ~HomeWork() override;

  /// Another scope takes the place of one that is under way.
  void Ask(const Scope& scope);

 Q_SIGNALS:
  void Ready(const quorvane::home::Shown& shown);
  void Failed(const QString& why);

 private:
  class Worker;

  void End();

  QThread thread_;
  Worker* worker_;
  std::atomic<int> newest_ = 0;  ///< number of the last question; below 0 when all ends
};

}  // namespace quorvane::home
