#pragma once

#include "core/rates/RateImport.h"
#include "masters/imports/window/ImpScrWindow.h"

#include <QStackedWidget>

namespace quorvane::imports {

/// Keeps the market rates of one day: every scrip with its rate, filled from a file, from an
/// exchange's archive, from the gainers and losers of the day, or by hand. Saved as a whole or not
/// at all.
class ImpScrRate final : public ImpScrWindow {
  Q_OBJECT

 public:
  explicit ImpScrRate(controls::Desk& desk);

 protected:
  void Fill() override;
  void Update() override;
  bool MayClose() override;
  void FirstShown() override;

 private:
  using Rates = std::unordered_map<ScripId, double>;

  void BuildSources();
  void BuildGrids();
  void TxtDate_Validate();
  void CmdImport_Click();
  void CmdSite_Click();
  void CmdGainLose_Click();
  void VSF_AfterEdit(int row, int column);

  /// Shows the rates of the date in the box; false, with a message, when it cannot be used.
  bool TakeDate();
  void LoadDate(text::Date date);
  void LoadFile(const QString& path);
  void Enter(rates::PriceFile file);
  void Count();
  void FillScrips();
  void FillStrangers();
  bool IsDirty() const { return entered_ != stored_; }
  double EnteredRate(ScripId scrip) const;

  std::optional<text::Date> date_;  ///< the day whose rates are shown
  std::vector<rates::ListedScrip> scrips_;
  Rates stored_;
  Rates entered_;
  rates::PriceFile file_;
  rates::MatchedRates matched_;
  controls::DateBox* TxtDate;
  controls::ComboBox* CboExchange;
  QStackedWidget* grids_;
  controls::Grid* VSF;  ///< scrips
  controls::Grid* VSU;  ///< rows of the file that belong to no scrip
};

}  // namespace quorvane::imports
