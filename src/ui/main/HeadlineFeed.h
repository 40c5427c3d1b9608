#pragma once

#include <QNetworkAccessManager>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QUrl>

class QNetworkReply;

namespace quorvane::ui {

/// Fetches the exchange's index feed in the background, keeps it in a file and tells its headline.
/// Whatever goes wrong, there is just no headline.
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
  void Finish(QNetworkReply* reply);

  QUrl address_;
  QString file_;
  QNetworkAccessManager network_;
  QPointer<QNetworkReply> awaited_;
};

}  // namespace quorvane::ui
