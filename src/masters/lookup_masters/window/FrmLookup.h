#pragma once

#include "controls/FieldLayout.h"
#include "controls/RecordWindow.h"
#include "masters/lookup_masters/LookupBook.h"

#include <functional>
#include <vector>

namespace quorvane::lookup_masters {

/// The window of a small lookup table: "FrmScriptType", "FrmScriptCls", "FrmExchange", "FrmSttPer"
/// or "FrmTransPer". The list shows percentages with three decimals, the box shows all of them.
class FrmLookup : public controls::RecordWindow {
  Q_OBJECT

 public:
  FrmLookup(controls::Desk& desk, LookupKind kind);

 protected:
  std::string_view RecordTable() const override { return book_.Master().table; }
  void FillList() override;
  void Clear() override;
  void Load(int id) override;
  MaybeRefusal Save() override;
  void Remove(int id) override;
  QString DeleteQuestion() const override;
  void StateChanged() override;

 private:
  /// The control of a column of either kind.
  struct Box {
    std::function<QString()> entered;
    std::function<void(const QString& value)> show;
    std::function<MaybeRefusal()> check = [] { return std::nullopt; };
  };

  static Box BoxOf(controls::TextBox* box);
  QString NameBox(const LookupColumn& column);
  void AddFields();
  Box AddText(controls::FieldLayout& fields, const LookupColumn& column, const char* label);
  Box AddYear(controls::FieldLayout& fields, const LookupColumn& column, const char* label);
  Box AddPercent(controls::FieldLayout& fields, const LookupColumn& column, const char* label);
  Box AddKinds(controls::FieldLayout& fields, const LookupColumn& column, const char* label);
  Box AddDate(controls::FieldLayout& fields, const LookupColumn& column, const char* label);
  void AddButtons();
  std::vector<controls::Column> ListColumns() const;

  void Text1_Validate();
  void CmdTransPer_Click();
  void CmdLevies_Click();

  LookupBook book_;
  int numbered_ = 0;                         ///< boxes so far
  controls::ZENButton* CmdLevies = nullptr;  ///< in the windows of percentages
  std::vector<Box> boxes_;                   ///< in the order of the table's columns
};

}  // namespace quorvane::lookup_masters
