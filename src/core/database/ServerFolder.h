#pragma once

#include <QString>

#include <cstdint>

namespace quorvane::database {

/// The folder of the program's own server: what is in it, and where the rest is when the folder
/// itself cannot hold it.
class ServerFolder {
 public:
  /// Makes the folder, for this user alone. Throws std::runtime_error.
  explicit ServerFolder(const QString& path);

  /// Without links, so that every name of the folder leads to one server.
  const QString& Path() const { return path_; }
  QString File(const char* name) const;

  /// Where the server listens. A path of the folder that is too long for a socket is replaced by a
  /// place elsewhere, which the file "socket-folder" names for every program and session. To be
  /// called under the lock of starting and stopping.
  QString Socket() const;

  /// For the server's scratch tables: a server that starts deletes all such tables in its folder,
  /// those of other programs too.
  QString Scratch(const QString& socket) const;

  /// Room for small files on another disk, while the folder's own is full; empty when there is
  /// none.
  QString SpareFolder() const;
  void RemoveSpareFolders() const;

  /// Bytes left to this user on the folder's disk.
  std::int64_t Room() const;

  /// A server of this user that works in the folder; 0 when there is none.
  std::int64_t Process() const;

 private:
  QString ShortName() const;

  QString path_;
};

/// The lines of a server's log that tell what went wrong, at most three; empty when there are
/// none.
QString ErrorsIn(const QByteArray& log);

}  // namespace quorvane::database
