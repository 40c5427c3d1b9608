#pragma once

#include "controls/ComboBox.h"
#include "controls/DateBox.h"
#include "controls/Messages.h"
#include "controls/PickList.h"
#include "controls/TextBox.h"
#include "transactions/bills/window/BillContext.h"

#include <QWidget>

namespace quorvane::bills {

/// The head of a bill: number, date and settlement, broker, exchange and demat account.
class BillHeaderPane : public QWidget {
  Q_OBJECT

 public:
  /// The broker's pick list opens over `window`.
  BillHeaderPane(const BillContext& context, QWidget* window);

  /// Reads the lists of the choices again; what is chosen stays.
  void ReadChoices();

  void Show();

  /// Gives the head to the entry, without the account, which is given as soon as it is chosen.
  void Take() const;

  controls::DateBox* DateBox() const { return date_; }

  /// The date box refused its text when it was left, and has the focus again.
  bool IsDateRefused() const { return date_->hasFocus() && !date_->IsProper(); }

  QString ExchangeName() const { return Combo1->currentText(); }
  QString AccountNumber() const;

  /// The account for a new bill: `wanted` when the client has it, else the client's only one.
  AccountId AccountToBeginWith(AccountId wanted) const;

 Q_SIGNALS:
  /// The entry has another account, perhaps with other lines.
  void AccountChanged();

 private:
  void Arrange();
  void ShowAccount();
  void Combo2_Click();
  void OfferOldestLots();

  const BillContext& context_;
  controls::TextBox* number_;
  controls::DateBox* date_;
  controls::TextBox* settlement_;
  controls::TextBox* broker_;
  controls::PickList* Lst1 = nullptr;
  controls::ComboBox* Combo1;
  controls::ComboBox* Combo2;
  std::vector<lookups::Item> accounts_;
  int shown_account_ = 0;  ///< 0 also for one that was deleted
};

}  // namespace quorvane::bills
