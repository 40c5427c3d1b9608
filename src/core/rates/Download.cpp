#include "core/rates/Download.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>

#include <utility>

namespace quorvane::rates {
namespace {

constexpr int kDone = 200;

bool IsHttp(const QUrl& address) {
  return address.isValid() && !address.host().isEmpty() &&
         (address.scheme() == QLatin1String("http") || address.scheme() == QLatin1String("https"));
}

}  // namespace

Download::Download(QObject* parent) : QObject(parent), patience_(new QTimer(this)) {
  patience_->setSingleShot(true);
  connect(patience_, &QTimer::timeout, this, [this] { Fail(tr("no whole answer in time")); });
}

Download::~Download() {
  Cancel();
}

void Download::Get(const QUrl& address, const DownloadLimits& limits, Answer answer) {
  Cancel();
  limits_ = limits;
  answer_ = std::move(answer);
  if (!IsHttp(address)) {
    patience_->start(0);
    return;
  }
  QNetworkRequest request(address);
  request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                       QNetworkRequest::NoLessSafeRedirectPolicy);
  request.setMaximumRedirectsAllowed(5);
  request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Mozilla/5.0 Quorvane"));
  patience_->start(limits.milliseconds);
  reply_ = network_.get(request);
  connect(reply_, &QNetworkReply::downloadProgress, this, &Download::Received);
  connect(reply_, &QNetworkReply::finished, this, &Download::Finish);
}

void Download::Cancel() {
  patience_->stop();
  answer_ = nullptr;
  if (QNetworkReply* reply = std::exchange(reply_, nullptr)) {
    reply->disconnect(this);
    reply->abort();
    reply->deleteLater();
  }
}

void Download::Received(qint64 received, qint64 total) {
  if (received > limits_.bytes || total > limits_.bytes) {
    Fail(tr("the answer is larger than %1 bytes").arg(limits_.bytes));
    return;
  }
  Q_EMIT Progressed(received, total);
}

void Download::Finish() {
  const int status = reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
  if (reply_->error() != QNetworkReply::NoError) {
    Fail(reply_->errorString(), status);
    return;
  }
  if (status != kDone) {
    Fail(tr("the server answered with the status %1").arg(status), status);
    return;
  }
  const Downloaded downloaded{
      .body = reply_->readAll(), .address = reply_->url(), .status = status};
  const Answer answer = std::exchange(answer_, nullptr);
  Cancel();
  answer(downloaded);
}

void Download::Fail(const QString& error, int status) {
  const Answer answer = std::exchange(answer_, nullptr);
  Cancel();
  if (answer) {
    answer({.body = {}, .error = error, .status = status});
  }
}

}  // namespace quorvane::rates
