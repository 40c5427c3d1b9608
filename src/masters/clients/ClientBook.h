#pragma once

#include "core/Result.h"
#include "core/database/Transaction.h"
#include "documents/DocumentStore.h"
#include "masters/clients/Client.h"

#include <optional>
#include <vector>

namespace quorvane::clients {

/// A line of a list of clients.
struct ClientRow {
  ClientId id;
  QString code;
  QString name;
};

/// The clients with their demat accounts in the database and their documents in the store. Every
/// save and delete is one transaction; one that is refused, or that throws DatabaseError, changes
/// nothing. Files follow the commit; when that fails, std::runtime_error says that the record is
/// saved all the same.
class ClientBook {
 public:
  ClientBook(database::Connection& connection, documents::DocumentStore documents);

  /// By code, then by id.
  std::vector<ClientRow> List() const;

  /// A client with the accounts in the order of their ids.
  std::optional<Client> Load(ClientId id) const;

  /// Checks what the record breaks by itself (Client.h), the code being free after the accounts and
  /// before the values, and the document last. Writes a new client, or a changed one in place of
  /// the old, and the accounts in place of those there were. Sets the ids of the client and of new
  /// accounts, and leaves out blank accounts.
  ///
  /// The document is the file `new_document`, whose name the client takes over; without one it is
  /// the file of that name which the client has; a client that names none loses the one there was.
  /// A name that the record had before is kept although its file is missing.
  MaybeRefusal Save(Client& client, const QString& new_document = {});

  /// Removes the client, every row of every table whose first column is the client's key, and the
  /// document.
  void Delete(ClientId id);

  const documents::DocumentStore& Documents() const { return documents_; }

 private:
  MaybeRefusal Check(const Client& client, const Client& stored) const;
  MaybeRefusal ReceiveDocument(Client& client, const Client& stored, const QString& new_document,
                               documents::DocumentStore::Incoming& incoming) const;
  void FileDocument(const Client& client, documents::DocumentStore::Incoming incoming) const;

  database::Connection& connection_;
  documents::DocumentStore documents_;
};

}  // namespace quorvane::clients
