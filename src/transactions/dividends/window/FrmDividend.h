#pragma once

#include "controls/ComboBox.h"
#include "controls/DateBox.h"
#include "controls/RecordWindow.h"
#include "controls/TextBox.h"
#include "transactions/dividends/DividendBook.h"

#include <vector>

namespace quorvane::dividends {

/// "Dividends": what the current client received in the year. Those of a corporate action are
/// listed too, so that the tax deducted from each can be entered.
class FrmDividend : public controls::RecordWindow {
  Q_OBJECT

 public:
  /// Throws std::runtime_error when no client is current.
  explicit FrmDividend(controls::Desk& desk);

 protected:
  std::string_view RecordTable() const override { return "Dividend"; }
  std::optional<ClientId> RecordClient() const override { return of_.client; }
  void FillList() override;
  void Clear() override;
  void Load(int id) override;
  void BeginEditing() override;
  MaybeRefusal Save() override;
  void Remove(int id) override;

 private:
  void BuildFields();
  void SetListColumns();
  Dividend Entered() const;
  void ShowAmounts();

  void Text1_Validate();

  ClientYear of_;
  DividendBook book_;
  std::vector<Dividend> listed_;
  controls::ComboBox* Combo1 = nullptr;  ///< scrip
  controls::ComboBox* Combo2 = nullptr;  ///< account
  controls::DateBox* date_ = nullptr;
  controls::TextBox* TxtQuantity = nullptr;
  controls::TextBox* TxtRate = nullptr;  ///< rupees a share, with all its decimals
  controls::AmountBox* TxtTax = nullptr;
  controls::TextBox* TxtAmount = nullptr;
};

}  // namespace quorvane::dividends
