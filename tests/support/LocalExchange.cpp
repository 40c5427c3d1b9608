#include "support/LocalExchange.h"

#include <QTcpSocket>

#include <stdexcept>

namespace quorvane::test {

LocalExchange::LocalExchange() {
  if (!listen(QHostAddress::LocalHost)) {
    throw std::runtime_error("no port for the local exchange");
  }
  connect(this, &QTcpServer::newConnection, this, &LocalExchange::Serve);
}

QUrl LocalExchange::Address() const {
  return QUrl(QStringLiteral("http://127.0.0.1:%1").arg(serverPort()));
}

void LocalExchange::Serve() {
  QTcpSocket* socket = nextPendingConnection();
  connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
  connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
    if (!socket->property("question").toByteArray().isEmpty()) {
      return;
    }
    const QByteArray question = socket->readAll();
    socket->setProperty("question", question);
    const QString path = QString::fromLatin1(question.split(' ').value(1));
    asked << path;
    Send(*socket, replies_.value(path, {.body = "not here", .status = 404}));
  });
}

void LocalExchange::Send(QTcpSocket& socket, const Reply& reply) {
  if (reply.manner == Manner::kSilent) {
    return;
  }
  QByteArray head = "HTTP/1.1 " + QByteArray::number(reply.status) + " Said\r\n";
  if (!reply.location.isEmpty()) {
    head += "Location: " + reply.location + "\r\n";
  }
  if (reply.manner == Manner::kEndless) {
    socket.write(head + "Connection: close\r\n\r\n");
    connect(&socket, &QTcpSocket::bytesWritten, &socket,
            [&socket] { socket.write(QByteArray(1 << 16, 'x')); });
    socket.write(QByteArray(1 << 16, 'x'));
    return;
  }
  const qsizetype promised = reply.body.size() + (reply.manner == Manner::kTruncated ? 1000 : 0);
  socket.write(head + "Content-Length: " + QByteArray::number(promised) +
               "\r\nConnection: close\r\n\r\n" + reply.body);
  socket.disconnectFromHost();
}

}  // namespace quorvane::test
