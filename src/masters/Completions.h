#pragma once

#include "core/database/Connection.h"

#include <QString>
#include <QStringList>

namespace quorvane::masters {

/// The masters whose records have an address. Each completes from its own records.
enum class AddressBook { kClients, kParticipants, kBrokers };

/// The values in use from which a box completes what is typed: each once, in order, none empty.
QStringList GroupCodes(database::Connection& connection);
QStringList Cities(database::Connection& connection, AddressBook book);
QStringList PinsOf(database::Connection& connection, AddressBook book, const QString& city);
QStringList StdCodesOf(database::Connection& connection, AddressBook book, const QString& city);

}  // namespace quorvane::masters
