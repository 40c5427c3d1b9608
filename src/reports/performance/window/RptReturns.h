#pragma once

#include "controls/ComboBox.h"
#include "core/ClientYear.h"
#include "reporting/charts/window/ChartPane.h"
#include "reporting/window/ReportWindow.h"
#include "reports/performance/Returns.h"

namespace quorvane::performance {

/// "Returns": what the current client's or family's shares, or one account or script of them,
/// brought over any period, with a chart of their value by month.
class RptReturns : public reporting::ReportWindow {
  Q_OBJECT

 public:
  explicit RptReturns(reporting::ReportDesk& desk);

 protected:
  QStringList Choices() const override;
  std::optional<reporting::ReportDocument> BuildDocument(Progress& progress) override;

 private:
  void FillLists();
  std::set<ClientId> Clients() const;

  void optW_Click(int whose);

  ClientYear of_;
  Choice whose_;
  controls::ComboBox* CmbScript = nullptr;
  controls::ComboBox* CmbAccount = nullptr;
  charts::ChartPane* chart_ = nullptr;
};

}  // namespace quorvane::performance
