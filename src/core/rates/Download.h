#pragma once

#include <QByteArray>
#include <QNetworkAccessManager>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QUrl>

#include <functional>

class QNetworkReply;
class QTimer;

namespace quorvane::rates {

/// The result of a download. `body` is whole when there is no `error`.
struct Downloaded {
  QByteArray body;
  QString error = {};  ///< what went wrong, for a person; empty when nothing did
  QUrl address = {};   ///< where the answer came from, redirects followed
  int status = 0;      ///< of the answer by HTTP; 0 when there was none

  bool IsWhole() const { return error.isEmpty(); }
};

struct DownloadLimits {
  int milliseconds = 15000;                ///< for the whole answer
  qint64 bytes = qint64{4} * 1024 * 1024;  ///< of the whole answer
};

/// One plain HTTP GET at a time, in the background of the calling thread's event loop. Only status
/// 200 with a whole body within the limits counts; anything else is an error.
class Download : public QObject {
  Q_OBJECT

 public:
  using Answer = std::function<void(const Downloaded&)>;

  explicit Download(QObject* parent = nullptr);
  ~Download() override;

  /// Cancels what is under way (its answer is never given) and begins anew. `answer` is called
  /// once, later; not at all when this object is gone or the download is cancelled by then.
  void Get(const QUrl& address, const DownloadLimits& limits, Answer answer);
  void Cancel();
  bool IsRunning() const { return reply_ != nullptr; }

 Q_SIGNALS:
  /// Bytes so far; `total` is -1 while it is not known.
  void Progressed(qint64 received, qint64 total);

 private:
  void Received(qint64 received, qint64 total);
  void Finish();
  void Fail(const QString& error, int status = 0);

  QNetworkAccessManager network_;
  QTimer* patience_;
  QNetworkReply* reply_ = nullptr;
  DownloadLimits limits_;
  Answer answer_;
};

}  // namespace quorvane::rates
