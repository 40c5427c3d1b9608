#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <chrono>
#include <cstdint>
#include <functional>

namespace quorvane::platform {

/// True while a process of that number lives.
bool IsRunning(std::int64_t process);

/// Asks a process to end in good order (on POSIX: SIGTERM).
void AskToEnd(std::int64_t process);

/// Ends a process at once (on POSIX: SIGKILL).
void ForceToEnd(std::int64_t process);

/// A process of this user that runs this program ("mariadbd") and works in one of the folders; 0
/// when there is none, or the system does not tell.
std::int64_t FindProcess(const QString& program, const QStringList& folders);

/// Whether a socket of that path is listened at, also when its file cannot be seen from here.
bool IsListening(const QString& socket);

/// True for the superuser, whom some servers refuse to serve unless told to.
bool IsSuperuser();

/// True for a file that the superuser owns and nobody else may change. False when there is none.
bool IsOfSuperuser(const QString& file);

/// The name by which the system knows who started this program.
QString UserName();

/// Makes a folder that nobody but this user can enter, or checks that an existing one is such a
/// folder; throws std::runtime_error when it belongs to somebody else or cannot be made.
void MakePrivateFolder(const QString& path);

/// Makes a folder, and those above it that are missing, for nobody but this user; folders that are
/// there stay as they are, links to some included. Throws std::runtime_error.
void MakeMissingFolder(const QString& path);

/// Makes a folder for a socket, with a short path and of this user alone. It is where every session
/// of the user sees it. Throws std::runtime_error.
QString NewShortFolder();

/// Folders of the machine for what is needed only while a program runs, the fastest first.
QStringList ScratchDisks();

/// Where an executable is; empty when it is not installed. Looks into the system's folders for
/// servers too, which are not on every user's path.
QString FindProgram(const QString& name);

/// Shows the top-level window of another program by its title, in its normal size. False when there
/// is none, and on systems that let no program do that.
bool ShowWindowTitled(const QString& title);

/// What a process may use.
struct ProcessLimits {
  std::chrono::seconds cpu{10};
  std::int64_t bytes = std::int64_t{1536} << 20;  ///< of addresses
};

/// Bounds this process and each one that it starts, and lets none leave a copy of its memory on the
/// disk. When its time is used up this process ends with `exit_status`; memory beyond the bound is
/// not given. Limits that the system does not know are passed over.
void LimitThisProcess(const ProcessLimits& limits, int exit_status);

/// Has the system end this process when the one that started it ends, however that happens. Nothing
/// happens where the system cannot. May be called between fork and exec.
void EndWithParent();

/// From now on a request to end this program (SIGTERM, SIGHUP, Ctrl-C) is noted, so that the
/// program can end in good order with what it has started. A second request ends it at once.
void NoteEndRequests();

/// Whether such a request came. Long work asks this and then stops.
bool EndRequested();

/// Calls `act` from the event loop when the request comes, as long as `owner` lives. To be called
/// once in a program.
void OnEndRequest(QObject* owner, const std::function<void()>& act);

}  // namespace quorvane::platform
