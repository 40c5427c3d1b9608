#pragma once

#include "controls/ComboBox.h"
#include "controls/DateBox.h"
#include "controls/Messages.h"
#include "controls/PickList.h"
#include "controls/TextBox.h"
#include "core/ClientYear.h"
#include "core/database/Connection.h"
#include "core/records/BillAmounts.h"

#include <QWidget>

namespace quorvane::bills {

using records::Bill;

/// The head of a bill: number, date and settlement, broker, exchange and demat account.
class BillHeaderPane : public QWidget {
  Q_OBJECT

 public:
  /// The broker's pick list opens over `window`.
  BillHeaderPane(const controls::Guard& guard, QWidget* window);

  /// Reads again what there is to choose from; the choices stay.
  void ReadChoices(database::Connection& connection, ClientId client);

  void Show(const Bill& bill);

  /// The bill's head as it is entered; the account is the window's to choose.
  Bill Entered() const;

  controls::DateBox* DateBox() const { return date_; }
  QString ExchangeName() const { return Combo1->currentText(); }
  QString AccountNumber() const;
  void ShowAccount(AccountId account);

  /// The account for a new bill: `wanted` when the client has it, else the client's only one.
  AccountId AccountToBeginWith(AccountId wanted) const;

 Q_SIGNALS:
  /// The user chose another one than was shown.
  void AccountChosen(int account);

 private:
  void Arrange();
  void Combo2_Click();

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
