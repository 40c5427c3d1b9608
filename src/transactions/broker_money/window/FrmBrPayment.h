#pragma once

#include "controls/ComboBox.h"
#include "controls/RecordWindow.h"
#include "controls/TextBox.h"
#include "transactions/broker_money/PaymentBook.h"

namespace quorvane::broker_money {

/// "Payment To Broker" or "Received From Broker": the money that went to brokers or came from them.
class FrmBrPayment : public controls::RecordWindow {
  Q_OBJECT

 public:
  FrmBrPayment(controls::Desk& desk, PaymentKind kind);

 protected:
  std::string_view RecordTable() const override { return PaymentTable(kind_); }
  void FillList() override;
  void Clear() override;
  void Load(int id) override;
  MaybeRefusal Save() override;
  void Remove(int id) override;
  void StateChanged() override;

 private:
  void BuildFields();
  void SetListColumns();
  void Combo3_Click();
  bool IsCheque() const;
  BrokerPayment Entered() const;

  PaymentKind kind_;
  PaymentBook book_;
  std::vector<BrokerPayment> payments_;
  controls::ComboBox* Combo1;    ///< broker
  controls::ComboBox* Combo2;    ///< transaction mode
  controls::AmountBox* Text1_0;  ///< amount
  controls::DateBox* Text1_1;    ///< payment date
  controls::ComboBox* Combo3;    ///< payment mode
  controls::TextBox* Text1_2;    ///< cheque number
  controls::DateBox* Text1_3;    ///< cheque date
  controls::TextBox* Text1_4;    ///< bank drawn on
  controls::TextBox* Text1_5;    ///< remark
};

}  // namespace quorvane::broker_money
