#pragma once

#include <QByteArray>
#include <QMap>
#include <QStringList>
#include <QTcpServer>
#include <QUrl>

namespace quorvane::test {

/// An exchange's web server on this machine alone: answers each path as a test wrote down, and
/// remembers what was asked for.
class LocalExchange : public QTcpServer {
  Q_OBJECT

 public:
  enum class Manner {
    kWhole,      ///< the answer and its end
    kTruncated,  ///< promises more than it sends
    kSilent,     ///< takes the question and says nothing
    kEndless,    ///< sends without an end until the asker goes
  };

  struct Reply {
    QByteArray body = {};
    int status = 200;
    Manner manner = Manner::kWhole;
    QByteArray location = {};  ///< of a redirect
  };

  LocalExchange();

  /// `path` with its query, percent-encoded as it is sent.
  void Answer(const QString& path, Reply reply) { replies_[path] = std::move(reply); }

  /// "http://127.0.0.1:port".
  QUrl Address() const;

  QStringList asked;  ///< paths in the order in which they were asked for

 private:
  void Serve();
  static void Send(QTcpSocket& socket, const Reply& reply);

  QMap<QString, Reply> replies_;
};

}  // namespace quorvane::test
