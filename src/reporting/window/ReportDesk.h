#pragma once

#include "controls/Desk.h"

#include <QByteArray>
#include <QStringList>

#include <functional>

class QWidget;

namespace quorvane::reporting {

struct ReportDocument;

/// The desk of windows that show reports: it can also show one as pages.
struct ReportDesk : controls::Desk {
  /// Shows a report as pages over the window that asks, to look at, print and save.
  std::function<void(const ReportDocument& document, QWidget* over)> show_report =
      [](const ReportDocument&, QWidget*) {};

  /// The same for pages that are made already, a whole PDF; `titles` are its title and what a saved
  /// file is called after.
  std::function<void(const QStringList& titles, const QByteArray& pages, QWidget* over)>
      show_pages = [](const QStringList&, const QByteArray&, QWidget*) {};
};

}  // namespace quorvane::reporting
