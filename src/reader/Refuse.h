#pragma once

#include "core/text/Tr.h"

#include <stdexcept>

namespace quorvane::reader {

/// Throws std::runtime_error with a text for the user.
[[noreturn]] inline void Refuse(const char* text) {
  throw std::runtime_error(Tr("Clients", text).toStdString());
}

[[noreturn]] inline void RefuseTooLarge() {
  Refuse(QT_TRANSLATE_NOOP("Clients", "The Document is too Large to be Shown."));
}

}  // namespace quorvane::reader
