#pragma once

#include "controls/ComboBox.h"
#include "core/ClientYear.h"
#include "reporting/window/ReportWindow.h"

namespace quorvane::broker_ledger {

/// "Broker Ledger": the brokers' accounts of the current client and year over a period.
class RptBrokerLedger : public reporting::ReportWindow {
  Q_OBJECT

 public:
  explicit RptBrokerLedger(reporting::ReportDesk& desk);

 protected:
  MaybeRefusal CheckSelection() override;
  QStringList Choices() const override;
  std::optional<reporting::ReportDocument> BuildDocument(Progress& progress) override;

 private:
  void CmbMth_Click();

  ClientYear of_;
  controls::ComboBox* CmbMth;
  reporting::TickGrid* VSB;  ///< brokers
};

}  // namespace quorvane::broker_ledger
