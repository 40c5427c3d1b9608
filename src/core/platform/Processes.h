#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

namespace quorvane::platform {

/// True while a process of that number lives.
bool IsRunning(std::int64_t process);

/// Asks a process to end in good order (on POSIX: SIGTERM).
void AskToEnd(std::int64_t process);

/// A process that runs, was started with exactly this argument and still has the folder it works
/// in; 0 when there is none, or the system does not tell.
std::int64_t FindProcess(const QString& argument);

/// True for the superuser, whom some servers refuse to serve unless told to.
bool IsSuperuser();

/// True for a file that the superuser owns and nobody else may change. False when there is none.
bool IsOfSuperuser(const QString& file);

/// Makes a folder that nobody but this user can enter, or checks that an existing one is such a
/// folder; throws std::runtime_error when it belongs to somebody else or cannot be made.
void MakePrivateFolder(const QString& path);

/// Makes a folder, and those above it that are missing, for nobody but this user; folders that are
/// there stay as they are, links to some included. Throws std::runtime_error.
void MakeMissingFolder(const QString& path);

/// A folder for sockets with a short path, of this user alone.
QString ShortPrivateFolder(const QString& name);

/// Where an executable lies; empty when it is not installed. Looks into the system's folders for
/// servers too, which are not on every user's path.
QString FindProgram(const QString& name);

/// Shows the top-level window of another program by its title, in its normal size. False when there
/// is none, and on systems that let no program do that.
bool ShowWindowTitled(const QString& title);

}  // namespace quorvane::platform
