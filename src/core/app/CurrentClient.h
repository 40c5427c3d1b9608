#pragma once

#include "core/app/Session.h"

#include <QString>

namespace quorvane::app {

/// The client and year that a window opens for; throws std::runtime_error while none is chosen.
ClientYear CurrentOf(const app::Session& session);

/// "Payment To Broker - SUNANDA RAGHAV - 2011-12": what the window does, and for whom.
QString ClientTitle(const QString& title, const app::Session& session);

}  // namespace quorvane::app
