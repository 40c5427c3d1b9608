#pragma once

#include <QCoreApplication>

namespace quorvane {

/// A text of the program in the user's language; the English itself where it has no translation.
/// tools/translations finds texts by this name. A text that is not written out in the call is
/// marked where it is written: QT_TRANSLATE_NOOP(context, text).
inline QString Tr(const char* context, const char* text) {
  return QCoreApplication::translate(context, text);
}

}  // namespace quorvane
