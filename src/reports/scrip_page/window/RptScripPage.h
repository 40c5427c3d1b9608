#pragma once

#include "controls/ComboBox.h"
#include "core/ClientYear.h"
#include "reporting/charts/window/ChartPane.h"
#include "reporting/window/ReportWindow.h"
#include "reports/scrip_page/ScripPage.h"

#include <optional>

namespace quorvane::scrip_page {

/// "Script Page": everything about one scrip of the current client, or of the client's family, over
/// all years, up to today.
class RptScripPage : public reporting::ReportWindow {
  Q_OBJECT

 public:
  explicit RptScripPage(reporting::ReportDesk& desk);

  /// Shows the page of a scrip.
  bool GoTo(int record) override;

 protected:
  MaybeRefusal CheckSelection() override;
  QStringList Choices() const override;
  std::optional<reporting::ReportDocument> BuildDocument(Progress& progress) override;

 private:
  void FillScrips();
  ScripPageQuery Query() const;
  void ShowChart();

  void Pages_Click(int page);
  void Chart_Click(int chart);

  ClientYear of_;
  controls::ComboBox* Combo1 = nullptr;  ///< scrips that the client or the family ever had
  Choice whose_;
  charts::ChartPane* chart_ = nullptr;
};

}  // namespace quorvane::scrip_page
