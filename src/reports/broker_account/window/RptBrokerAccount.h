#pragma once

#include "core/ClientYear.h"
#include "reporting/window/ReportWindow.h"

namespace quorvane::broker_account {

/// "Broker Account": what the current client owes the brokers and has with them, over a period of
/// the year.
class RptBrokerAccount : public reporting::ReportWindow {
  Q_OBJECT

 public:
  explicit RptBrokerAccount(reporting::ReportDesk& desk);

 protected:
  MaybeRefusal CheckSelection() override;
  QStringList Choices() const override;
  std::optional<reporting::ReportDocument> BuildDocument(Progress& progress) override;

 private:
  ClientYear of_;
  reporting::TickGrid* VSB;  ///< brokers
};

}  // namespace quorvane::broker_account
