#pragma once

#include "core/Ids.h"
#include "core/Result.h"
#include "core/database/Connection.h"

#include <QDateTime>
#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace quorvane::documents {

/// The scanned documents of the clients, one file a client: <folder>/<client's key>/<file name>.
/// Nothing outside the store is ever written or removed, with any name and with any links in it.
/// Failures of the disk are thrown as std::runtime_error with path and reason.
class DocumentStore {
 public:
  static constexpr std::int64_t kMostBytes = std::int64_t{200} * 1024 * 1024;

  explicit DocumentStore(QString folder, std::int64_t most_bytes = kMostBytes);

  /// A copy of a file, safely on the disk but not yet a client's. It is deleted with the object.
  class Incoming {
   public:
    Incoming() = default;
    Incoming(QString copy, QString name);
    ~Incoming();
    Incoming(Incoming&& other) noexcept;
    Incoming& operator=(Incoming&& other) noexcept;

    const QString& Name() const { return name_; }

   private:
    friend class DocumentStore;
    QString copy_;
    QString name_;
  };

  /// Copies a file into the store. Refused when there is no such file, when it is no plain file,
  /// when its name could lead out of a folder, when it is of a kind that the program cannot show
  /// and when it is too large.
  Result<Incoming> Receive(const QString& source) const;

  /// Makes the received file the client's document; the earlier one is deleted after that.
  void Place(ClientId client, Incoming incoming) const;

  /// The document's path; nullopt when the client has no such file.
  std::optional<QString> Path(ClientId client, const QString& name) const;

  /// Removes the client's folder; nothing happens when there is none.
  void Remove(ClientId client) const;

 private:
  QString FolderOf(ClientId client) const;
  void ThrowAwayOthers(ClientId client, const QString& name) const;

  QString folder_;
  std::int64_t most_bytes_;
};

/// The refusal for a document that is not there.
Refusal FileDoesNotExist();

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
