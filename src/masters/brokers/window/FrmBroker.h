#pragma once

#include "masters/brokers/BrokerBook.h"
#include "masters/window/FrmContact.h"

#include <memory>

namespace quorvane::brokers {

/// "Broker Details": the brokers through whom bills are made. Deleting one recomputes the holdings
/// of every client. The user can stop that; nothing is changed then.
class FrmBroker : public masters::FrmContact {
  Q_OBJECT

 public:
  explicit FrmBroker(controls::Desk& desk);

 protected:
  std::string_view RecordTable() const override { return "Broker"; }
  void FillList() override;
  void Clear() override;
  void Load(int id) override;
  MaybeRefusal Save() override;
  void Remove(int id) override;
  QString DeleteQuestion() const override;

  /// Shows how far a delete is and lets the user stop it.
  virtual std::unique_ptr<Progress> NewProgress();

 private:
  BrokerBook book_;
};

}  // namespace quorvane::brokers
