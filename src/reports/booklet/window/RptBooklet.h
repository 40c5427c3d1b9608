#pragma once

#include "controls/ChildWindow.h"
#include "core/ClientYear.h"
#include "reporting/output/Booklet.h"
#include "reporting/window/ReportDesk.h"
#include "reporting/window/TickGrid.h"

#include <QRadioButton>

#include <optional>

namespace quorvane::booklet {

/// "Family Booklet": a year of the current client, or of the client's family, as one PDF of the
/// reports that are ticked, to look at or to write into the folder of reports.
class RptBooklet : public controls::ChildWindow {
  Q_OBJECT

 public:
  explicit RptBooklet(reporting::ReportDesk& desk);

 private:
  void Build();
  std::optional<reporting::Booklet> Make(Progress& progress);
  QStringList FileWords() const;

  void CmdPreview_Click();
  void CmdPdf_Click();
  void CmdExit_Click();

  reporting::ReportDesk& desk_;
  ClientYear of_;
  QString client_name_;
  QRadioButton* optW_0 = nullptr;
  QRadioButton* optW_1 = nullptr;
  reporting::TickGrid* VSF = nullptr;
  controls::ZENButton* CmdPreview = nullptr;
  controls::ZENButton* CmdPdf = nullptr;
  controls::ZENButton* CmdExit = nullptr;
};

}  // namespace quorvane::booklet
