#pragma once

#include "controls/RecordWindow.h"
#include "core/records/Bill.h"
#include "transactions/bills/BillBook.h"
#include "transactions/bills/BillEntry.h"
#include "transactions/bills/EntryLookups.h"
#include "transactions/bills/window/BillContext.h"
#include "transactions/bills/window/BillPane.h"

#include <vector>

namespace quorvane::bills {

using records::Bill;

/// "Sale / Purchase": the bills of the client and year that are current when the window opens. The
/// list is on one tab, the bill with its lines and the holdings of its account on the
/// other. While a bill is edited, its lines are added, changed and deleted one by one.
class FrmSalePurchase : public controls::RecordWindow {
  Q_OBJECT

 public:
  /// Without `rates` the exchanges are asked. Throws std::runtime_error when no client is current.
  explicit FrmSalePurchase(controls::Desk& desk, RateSource rates = {});

  bool GoTo(int record) override;

 protected:
  std::string_view RecordTable() const override { return records::Table<Bill>::kName; }
  std::optional<ClientId> RecordClient() const override { return of_.client; }
  void FillList() override;
  bool ReadRecords(std::span<const int> keys) override;
  void Clear() override;
  void Load(int id) override;
  void BeginEditing() override;
  MaybeRefusal Save() override;
  void Remove(int id) override;
  void StateChanged() override;
  void EscapePressed() override;
  QString GiveUpQuestion() const override;

 private:
  void HoldFields();
  void BuildSearch();
  Bill NewBill() const;
  void ShowListed();
  void ShowFound();
  bool AsksForTwin();

  void TxtSearch_Change();
  void Form_Unload();

  ClientYear of_;
  BillBook book_;
  BillEntry entry_;
  BillContext context_;
  std::vector<ListedBill> listed_;
  Bill last_;  ///< whose broker, exchange and account the next bill begins with
  BillPane* page_ = nullptr;
  controls::TextBox* TxtSearch = nullptr;
};

}  // namespace quorvane::bills
