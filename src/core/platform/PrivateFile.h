#pragma once

#include <QByteArrayView>
#include <QSaveFile>
#include <QString>

namespace quorvane::platform {

/// Opens a file for a whole new content that only this user may read, also where the old one was
/// open to others; a disk without permissions does not keep others out. Everything that may hold
/// personal data is written through here. Throws std::runtime_error "cannot write PATH: reason".
void OpenPrivate(QSaveFile& file);

/// Puts the new content in the place of the old one. Throws as OpenPrivate does.
void Commit(QSaveFile& file);

/// Both at once: the file has the whole content or is as it was.
void WritePrivate(const QString& path, QByteArrayView content);

/// Makes a folder for such files, and those above it that are missing, closed to others; folders
/// that are there stay as they are. Throws std::runtime_error.
void MakeOutputFolder(const QString& path);

/// Returns once everything that was written below a folder is safe from a power cut. Throws
/// std::runtime_error when the system reports that it could not be written.
void SyncToDisk(const QString& folder);

}  // namespace quorvane::platform
