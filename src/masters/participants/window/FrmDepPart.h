#pragma once

#include "masters/participants/ParticipantBook.h"
#include "masters/window/FrmContact.h"

namespace quorvane::participants {

/// "Depository Participant": the institutions that keep demat accounts, each with its DP ids.
class FrmDepPart : public masters::FrmContact {
  Q_OBJECT

 public:
  explicit FrmDepPart(controls::Desk& desk);

 protected:
  std::string_view RecordTable() const override { return "DepPart"; }
  void FillList() override;
  void Clear() override;
  void Load(int id) override;
  MaybeRefusal Save() override;
  void Remove(int id) override;
  QString DeleteQuestion() const override;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* DpIdPanel();
  void ShowDpIds(const std::vector<DpId>& dp_ids);
  std::vector<DpId> EnteredDpIds() const;

  void VS_GotFocus();
  void CmdAddRow_Click();
  void CmdDelRow_Click();
  void VS_LastCellLeft();

  ParticipantBook book_;
  controls::TextBox* person_ = nullptr;
  controls::TextBox* designation_ = nullptr;
  controls::ComboBox* Combo2 = nullptr;
  controls::Grid* VS = nullptr;
  controls::ZENButton* CmdAddRow = nullptr;
  controls::ZENButton* CmdDelRow = nullptr;
};

}  // namespace quorvane::participants
