#pragma once

#include "controls/Desk.h"

#include <functional>

class QWidget;

namespace quorvane::reporting {

struct ReportDocument;

/// The desk of windows that show reports: it can also show one as pages.
struct ReportDesk : controls::Desk {
  /// Shows a report as pages over the window that asks, to look at, print and save.
  std::function<void(const ReportDocument& document, QWidget* over)> show_report =
      [](const ReportDocument&, QWidget*) {};
};

}  // namespace quorvane::reporting
