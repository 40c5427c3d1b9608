#pragma once

#include "controls/Grid.h"
#include "core/ClientYear.h"
#include "reporting/window/ReportWindow.h"
#include "reports/tax/TaxDocument.h"

#include <vector>

namespace quorvane::tax_year {

/// "Tax Year": the gains of the current client and year, or of the client's family, as the tax law
/// counts them, with a list of what stands before filing. A point of the list opens the window that
/// mends it.
class RptTaxYear : public reporting::ReportWindow {
  Q_OBJECT

 public:
  explicit RptTaxYear(reporting::ReportDesk& desk);

 protected:
  MaybeRefusal CheckSelection() override;
  QStringList Choices() const override;
  std::optional<reporting::ReportDocument> BuildDocument(Progress& progress) override;
  void ReportShown(const reporting::ReportDocument& document) override;

 private:
  QWidget* MakeCheckList();
  void ShowPoints();
  bool IsFamily() const;
  void CarryLosses();

  void cmdUpload_Click();
  void cmdOpen_Click();
  void VSF_RowActivated(int row);

  ClientYear of_;
  std::vector<Member> members_;  ///< of the report that is shown
  std::vector<Point> points_;    ///< of all members, in the order of the list
  bool asked_ = false;           ///< about losses of the year before
  Choice whose_;
  QTabWidget* pages_ = nullptr;
  controls::Grid* VSF = nullptr;
  controls::ZENButton* cmdUpload = nullptr;
  controls::ZENButton* cmdOpen = nullptr;
};

}  // namespace quorvane::tax_year
