#pragma once

#include "controls/ComboBox.h"
#include "controls/DateBox.h"
#include "controls/Desk.h"
#include "controls/Grid.h"
#include "controls/Messages.h"
#include "controls/ZENButton.h"
#include "core/Result.h"
#include "core/rates/RateImport.h"
#include "reports/mis/ExchangeRates.h"
#include "reports/mis/window/RateList.h"

#include <QGroupBox>
#include <QWidget>

#include <optional>
#include <vector>

namespace quorvane::mis {

/// The market rates of a date, kept by hand: to the left the dates that have rates (`FrmDtList`),
/// to the right the rates of one of them (`FrmRates`). While rates are entered every scrip is
/// listed, Enter goes from rate to rate, and the rates of chosen scrips are fetched from an
/// exchange.
class RatesPane : public QWidget {
  Q_OBJECT

 public:
  RatesPane(const controls::Guard& guard, controls::Desk& desk);

  /// Reads the dates again; called when the pane is first shown, too.
  void Refresh();

  bool IsEditing() const { return editing_; }

  /// Discards what was entered.
  void Cancel() { cmdCancel_Click(); }

  /// The date whose rates are shown.
  std::optional<text::Date> CurrentDate() const;

 Q_SIGNALS:
  /// Recorded rates have changed.
  void RatesChanged();

  /// Enter or a double click on a date.
  void DateChosen(const QString& date);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void Arrange();
  QLayout* ButtonRow();
  void Connect(const controls::Guard& guard);
  void Edit(bool editing, bool new_date = false);
  void SelectDate(std::optional<text::Date> date);
  std::optional<text::Date> CheckedDate();
  void Refuse(const Refusal& refusal);

  void VSf1_RowColChange();
  void VSf1_DblClick();
  void Text2_Validate();
  void cmdAdd_Click();
  void cmdModify_Click();
  void cmdUpdate_Click();
  void cmdCancel_Click();
  void CmdDelete_Click();
  void CmdImportRate_Click();
  void CmdFetch_Click();

  void TakeFetched(ScripId scrip, double rate);
  void FetchEnded();
  void StopFetch();

  const controls::Guard& guard_;
  controls::Desk& desk_;
  rates::RateBook book_;
  ExchangeRates exchange_;
  QGroupBox* FrmDtList;
  QGroupBox* FrmRates;
  controls::Grid* VSf1;
  RateList* VSF;
  controls::DateBox* Text2;
  controls::ZENButton* cmdAdd;
  controls::ZENButton* cmdModify;
  controls::ZENButton* CmdDelete;
  controls::ComboBox* CboExchange;
  controls::ZENButton* CmdFetch;
  controls::ZENButton* CmdImportRate;
  controls::ZENButton* cmdUpdate;
  controls::ZENButton* cmdCancel;
  std::vector<rates::SeenIsin> isins_;  ///< of the file that was read in
  std::size_t fetched_ = 0;             ///< rates found by the running fetch
  std::size_t asked_ = 0;               ///< scrips of that fetch that were answered
  bool editing_ = false;
  bool filling_ = false;
};

}  // namespace quorvane::mis
