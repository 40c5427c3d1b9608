#pragma once

#include <QObject>

#include <functional>

namespace quorvane::platform {

/// From now on the wish that this program end (SIGTERM, SIGHUP, Ctrl-C) is noted, so that the
/// program can end in good order with what it has started. The same wish a second time ends it at
/// once.
void NoteEndRequests();

/// Whether such a wish came. Long work asks and then gives up.
bool EndRequested();

/// Calls `act` from the event loop when the wish comes, as long as `owner` lives. Once a program.
void OnEndRequest(QObject* owner, const std::function<void()>& act);

}  // namespace quorvane::platform
