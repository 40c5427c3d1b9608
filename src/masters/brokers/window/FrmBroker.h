#pragma once

#include "masters/brokers/BrokerBook.h"
#include "masters/window/FrmContact.h"

#include <memory>

namespace quorvane::brokers {

/// "Broker Details": the brokers through whom bills are made. Deleting one recomputes the holdings
/// of every client, which can be stopped; everything is as it was then.
class FrmBroker : public masters::FrmContact {
  Q_OBJECT

 public:
  explicit FrmBroker(controls::Desk& desk);

 protected:
  void FillList() override;
  void Clear() override;
  void Load(int id) override;
  MaybeRefusal Save() override;
  void Remove(int id) override;
  QString DeleteQuestion() const override;

  /// What shows how far a delete is and offers to stop it.
  virtual std::unique_ptr<Progress> NewProgress();

 private:
  BrokerBook book_;
};

}  // namespace quorvane::brokers
