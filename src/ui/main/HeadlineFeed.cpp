#include "ui/main/HeadlineFeed.h"

#include "core/rates/IndexHeadline.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSaveFile>

namespace quorvane::ui {
namespace {

constexpr int kLongestAnswerMs = 10000;
constexpr qint64 kLargestAnswer = 1 << 20;

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
  if (awaited_ != nullptr || !address_.isValid() || address_.isEmpty()) {
    return;
  }
  QNetworkRequest request(address_);
  request.setTransferTimeout(kLongestAnswerMs);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                       QNetworkRequest::NoLessSafeRedirectPolicy);
  QNetworkReply* reply = network_.get(request);
  awaited_ = reply;
  connect(reply, &QNetworkReply::downloadProgress, reply, [reply](qint64 received) {
    if (received > kLargestAnswer) {
      reply->abort();
    }
  });
  connect(reply, &QNetworkReply::finished, this, [this, reply] { Finish(reply); });
}

void HeadlineFeed::Finish(QNetworkReply* reply) {
  reply->deleteLater();
  awaited_ = nullptr;
  if (reply->error() != QNetworkReply::NoError) {
    return;
  }
  const QByteArray feed = reply->readAll();
  Keep(file_, feed);
  if (const auto headline = rates::HeadlineOf(feed)) {
    Q_EMIT HeadlineRead(*headline);
  }
}

}  // namespace quorvane::ui
