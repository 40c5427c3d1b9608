#include "core/platform/EndRequests.h"

#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>

namespace quorvane::platform {
namespace {

// A signal's handler reaches nothing but what belongs to the whole process.
volatile std::sig_atomic_t g_requested = 0;
std::array<int, 2> g_pipe{-1, -1};

void Note(int) {
  g_requested = 1;
  const int error = errno;
  const char byte = 0;
  // A full pipe has told it already.
  static_cast<void>(write(g_pipe[1], &byte, 1) < 0);
  errno = error;
}

}  // namespace

void NoteEndRequests() {
  if (pipe2(g_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
    return;
  }
  struct sigaction action = {};
  action.sa_handler = Note;
  action.sa_flags = static_cast<int>(SA_RESETHAND);
  for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
    sigaction(signal, &action, nullptr);
  }
}

bool EndRequested() {
  return g_requested != 0;
}

void OnEndRequest(QObject* owner, const std::function<void()>& act) {
  auto* notifier = new QSocketNotifier(g_pipe[0], QSocketNotifier::Read, owner);
  QObject::connect(notifier, &QSocketNotifier::activated, owner, [notifier, act] {
    notifier->setEnabled(false);
    act();
  });
}

}  // namespace quorvane::platform
