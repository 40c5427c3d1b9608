#pragma once

#include "core/ClientYear.h"
#include "reporting/window/ReportWindow.h"

namespace quorvane::dividends {

/// "Dividends": what the current client received over a period of the year.
class RptDividends : public reporting::ReportWindow {
  Q_OBJECT

 public:
  explicit RptDividends(reporting::ReportDesk& desk);

 protected:
  MaybeRefusal CheckSelection() override;
  std::optional<reporting::ReportDocument> BuildDocument(Progress& progress) override;

 private:
  ClientYear of_;
};

}  // namespace quorvane::dividends
