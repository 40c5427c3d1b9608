#pragma once

#include "controls/ChildWindow.h"
#include "controls/Grid.h"
#include "transactions/tax_losses/TaxLossBook.h"

#include <QLabel>

#include <vector>

namespace quorvane::tax_losses {

/// "Losses Brought Forward": what is left of the current client's losses of earlier years when the
/// year begins. All rows are saved together or not at all.
class FrmTaxLoss final : public controls::ChildWindow {
  Q_OBJECT

 public:
  /// Throws std::runtime_error when no client is current.
  explicit FrmTaxLoss(controls::Desk& desk);

 protected:
  bool MayClose() override;

 private:
  void Build();
  void BuildGrid();
  void CmdAddRow_Click();
  void CmdDelRow_Click();
  void CmdUpdate_Click();
  void CmdExit_Click();
  void VSF_AfterEdit();
  void VSF_LastCellLeft();

  void Fill();
  void Changed();
  void ShowBadRow(const Refusal& refusal, const std::vector<TaxLoss>& losses);
  std::vector<TaxLoss> Entered() const;

  ClientYear of_;
  TaxLossBook book_;
  std::vector<TaxLoss> stored_;
  QLabel* LblTotal;
  controls::Grid* VSF;
  controls::ZENButton* CmdAddRow;
  controls::ZENButton* CmdDelRow;
  controls::ZENButton* CmdUpdate;
  controls::ZENButton* CmdExit;
};

}  // namespace quorvane::tax_losses
