#pragma once

#include "core/Ids.h"
#include "core/database/Connection.h"
#include "documents/DocumentStore.h"

#include <QDateTime>
#include <QString>

#include <vector>

namespace quorvane::documents {

/// A document that a client's record names.
struct ListedDocument {
  ClientId client;
  QString code;
  QString name;    ///< of the client
  QString file;    ///< the file's name
  QString path;    ///< empty when the file is not in the store
  QDateTime kept;  ///< when it was put there
  qint64 bytes = 0;
};

/// The documents of all clients, by the clients' code and id. Throws DatabaseError.
std::vector<ListedDocument> ListDocuments(database::Connection& connection,
                                          const documents::DocumentStore& store);

}  // namespace quorvane::documents
