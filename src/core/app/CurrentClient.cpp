#include "core/app/CurrentClient.h"

#include <QCoreApplication>

#include <stdexcept>

namespace quorvane::app {

ClientYear CurrentOf(const app::Session& session) {
  if (!session.current) {
    throw std::runtime_error(
        QCoreApplication::translate("Transactions", "Select Client!").toStdString());
  }
  return *session.current;
}

QString ClientTitle(const QString& title, const app::Session& session) {
  return QStringLiteral("%1 - %2 - %3")
      .arg(title, session.current_client_name, CurrentOf(session).year.Text());
}

}  // namespace quorvane::app
