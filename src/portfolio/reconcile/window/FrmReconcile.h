#pragma once

#include "controls/ChildWindow.h"
#include "controls/ComboBox.h"
#include "controls/DateBox.h"
#include "controls/Grid.h"
#include "portfolio/reconcile/OpeningMarks.h"
#include "portfolio/reconcile/Reconciliation.h"
#include "portfolio/window/PaperFields.h"
#include "reporting/window/ReportDesk.h"
#include "reporting/window/ReportOutputs.h"

#include <optional>
#include <vector>

class QCheckBox;
class QLabel;
class QTabWidget;

namespace quorvane::reconcile {

/// "Compare with Statement": what the books say that a client holds beside what the depository's
/// statement says, with the likely cause of each difference and the way to it. For a new client the
/// statement becomes the opening stock; what still lacks its cost is on a page of its own.
class FrmReconcile : public controls::ChildWindow, private reporting::ReportOutputs::Source {
  Q_OBJECT

 public:
  explicit FrmReconcile(reporting::ReportDesk& desk);

  /// Chooses a demat account and its client.
  bool GoTo(int record) override;

 private:
  void Build();
  QLayout* BuildChoice();
  QLayout* BuildButtons();
  QWidget* BuildComparison();
  void FillRows();
  void FillMarks();
  void FillScrips();
  void Enable();
  ReconcileQuery Query() const;
  const ReconciledRow* Current() const;
  void Read();
  bool Compare();
  void Open(const Cause& cause);
  void OpenFor(const QString& window, text::FinancialYear year);

  void Combo1_Click();
  void CmdFile_Click();
  void CmdAgain_Click();
  void ChkDiffer_Click();
  void VSF_RowColChange(int row);
  void VSF_DblClick(int row);
  void CmdOpen_Click();
  void CmdAssign_Click();
  void CmdOpening_Click();
  void CmdFill_Click();
  void CmdOutput_Click();

  std::optional<reporting::ReportDocument> MakeOutput(
      std::optional<reporting::OutputFormat> format) override;
  QString FileName(const reporting::ReportDocument& document) const override;
  void WriteWorkbook(const reporting::ReportDocument& document, const QString& path,
                     Progress& progress) override;
  void WriteWord(const reporting::ReportDocument& document) override;

  reporting::ReportDesk& desk_;
  reporting::ReportOutputs* outputs_;
  QString path_;
  std::optional<Statement> statement_;
  std::optional<Reconciliation> result_;
  std::vector<OpeningMark> marks_;
  paper::PaperFields* fields_ = nullptr;
  controls::DateBox* TxtDate = nullptr;
  QLabel* LblFile = nullptr;
  QCheckBox* ChkDiffer = nullptr;
  QTabWidget* pages_ = nullptr;
  controls::Grid* VSF = nullptr;         ///< the comparison
  controls::Grid* VSM = nullptr;         ///< opening stock without cost
  controls::ComboBox* Combo3 = nullptr;  ///< the scrip for an unknown ISIN
  controls::ZENButton* CmdFile = nullptr;
  controls::ZENButton* CmdAgain = nullptr;
  controls::ZENButton* CmdOpen = nullptr;
  controls::ZENButton* CmdAssign = nullptr;
  controls::ZENButton* CmdOpening = nullptr;
  controls::ZENButton* CmdFill = nullptr;
  controls::ZENButton* CmdOutput = nullptr;
};

}  // namespace quorvane::reconcile
