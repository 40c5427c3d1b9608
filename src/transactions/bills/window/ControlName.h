#pragma once

#include "transactions/bills/BillBoxes.h"

namespace quorvane::bills {

/// The name of a box on the window, as "Text1_3".
inline QString ControlName(BillBox box) {
  return QStringLiteral("Text1_%1").arg(static_cast<int>(box));
}

}  // namespace quorvane::bills
