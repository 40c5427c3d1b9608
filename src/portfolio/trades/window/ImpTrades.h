#pragma once

#include "controls/ChildWindow.h"
#include "controls/ComboBox.h"
#include "portfolio/trades/TradeBook.h"
#include "portfolio/trades/window/ColumnPane.h"
#include "portfolio/trades/window/LinesPane.h"
#include "portfolio/trades/window/TargetPane.h"

#include <vector>

class QLabel;
class QVBoxLayout;

namespace quorvane::portfolio {

/// "Trade Books of Brokers": takes the trades of brokers' files in as bills. Shows all that would
/// be saved before anything is, and asks for the columns of a file only where its headings are not
/// known.
class ImpTrades : public controls::ChildWindow {
  Q_OBJECT

 public:
  explicit ImpTrades(controls::Desk& desk);

 private:
  void Build();
  void BuildHead(QVBoxLayout& rows);
  void BuildFoot();
  void Connect();
  void LookThrough();
  bool MakePlan();
  void Look();
  void Fill();
  QString NextStep() const;
  void SetEnabled();
  void AskColumns(const OpenedTrades& opened);
  void Settled();
  const OpenedTrades* FirstUnknown() const;
  TradeOptions Options() const;
  TradeReading Reading(const QString& path) const;
  std::optional<std::uint32_t> CurrentScrip();

  void CmdFile_Click();
  void CmdUse_Click();
  void CmdAssign_Click();
  void CmdConfirm_Click();
  void CmdNew_Click();
  void CmdLook_Click();
  void CmdSave_Click();
  void CmdExit_Click();
  void Choice_Changed();
  void CboShow_Changed();
  void VSF_RowChanged(int row);
  void VSF_CellEdited(int row, int column);
  void Columns_Edited();

  TradeBook book_;
  std::vector<OpenedTrades> opened_;
  std::optional<TradeTarget> target_;
  std::optional<TradePlan> plan_;
  QString outcome_;  ///< what saving would write besides the lines

  controls::ZENButton* CmdFile = nullptr;
  QLabel* LblFile = nullptr;
  TargetPane* Target = nullptr;
  ColumnPane* Columns = nullptr;
  LinesPane* Lines = nullptr;  ///< while the columns are asked for, these are in its place
  QWidget* Foot = nullptr;     ///< what can be done with the lines
  controls::ComboBox* CboScrip = nullptr;
  controls::ZENButton* CmdAssign = nullptr;
  controls::ZENButton* CmdConfirm = nullptr;
  controls::ZENButton* CmdNew = nullptr;
  controls::ZENButton* CmdLook = nullptr;
  controls::ZENButton* CmdSave = nullptr;
  controls::ZENButton* CmdExit = nullptr;
};

}  // namespace quorvane::portfolio
