#pragma once

#include "core/Result.h"
#include "core/database/Transaction.h"
#include "documents/DocumentStore.h"
#include "masters/clients/Client.h"

#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace quorvane::clients {

/// A line of a list of clients.
struct ClientRow {
  ClientId id;
  QString code;
  QString name;
};

/// The client is saved, but the document that came with it could not be filed.
class DocumentNotFiled : public std::runtime_error {
 public:
  DocumentNotFiled(const std::string& what, ClientId client)
      : std::runtime_error(what), client_(client) {}

  ClientId Client() const { return client_; }

 private:
  ClientId client_;
};

/// The clients with their demat accounts in the database and their documents in the store. Every
/// save and delete is one transaction; one that is refused, or that throws DatabaseError, changes
/// nothing. Files follow the commit; when that fails, DocumentNotFiled, or std::runtime_error for a
/// delete, says that the record is saved or deleted all the same.
class ClientBook {
 public:
  ClientBook(database::Connection& connection, documents::DocumentStore documents);

  /// By code, then by id.
  std::vector<ClientRow> List() const;

  /// Those of the keys that are there, in no order.
  std::vector<ClientRow> List(std::span<const int> keys) const;

  /// A client with the accounts in the order of their ids.
  std::optional<Client> Load(ClientId id) const;

  /// Checks the rules of Client.h in their order: entries, then that the code is free, then the
  /// values; and the document last. Writes a new client, or a changed one in place of the old, and
  /// replaces its accounts. Returns what was saved: with the ids of the client and of new accounts,
  /// and without blank accounts.
  ///
  /// The document is the file `new_document`, and the client gets its name. Without a new one the
  /// client keeps the file that it has under that name; a client without a name loses its file.
  /// A name that the record had before is kept although its file is missing.
  Result<Client> Save(const Client& client, const QString& new_document = {});

  /// Removes the client, every row of every table whose first column is the client's key, and the
  /// document.
  void Delete(ClientId id);

  const documents::DocumentStore& Documents() const { return documents_; }

 private:
  /// The document that a client will have, and its file when it is a new one.
  struct Document {
    QString name;
    documents::DocumentStore::Incoming incoming;
  };

  MaybeRefusal Check(const Client& client, const Client& stored) const;
  Result<Document> ReceiveDocument(const Client& client, const Client& stored,
                                   const QString& new_document) const;
  void FileDocument(const Client& client, documents::DocumentStore::Incoming incoming) const;

  database::Connection& connection_;
  documents::DocumentStore documents_;
};

}  // namespace quorvane::clients
