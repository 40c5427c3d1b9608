#pragma once

#include "controls/Desk.h"
#include "controls/Messages.h"
#include "core/ClientYear.h"
#include "core/Result.h"
#include "transactions/bills/BillBoxes.h"
#include "transactions/bills/BillEntry.h"
#include "transactions/bills/EntryLookups.h"

#include <functional>

namespace quorvane::bills {

/// The name of a box on the window, as "Text1_3".
inline QString ControlName(BillBox box) {
  return QStringLiteral("Text1_%1").arg(static_cast<int>(box));
}

/// What the panes of the bill window work with. It outlives them.
struct BillContext {
  controls::Desk& desk;
  const controls::Guard& guard;
  ClientYear of;
  BillEntry& entry;

  /// Shows a refusal and focuses its control.
  std::function<void(const Refusal&)> refuse;

  /// True while the focus goes to a button that cancels or the window closes.
  std::function<bool()> is_cancelling;

  ScripList scrips = {};  ///< read again with the choices of the line

  database::Connection& Connection() const { return *desk.session.connection; }

  /// True when nothing was refused; a refusal is shown.
  bool Accepts(const MaybeRefusal& refusal) const {
    if (refusal) {
      refuse(*refusal);
    }
    return !refusal;
  }
};

}  // namespace quorvane::bills
