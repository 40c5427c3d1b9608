#pragma once

#include "controls/ComboBox.h"
#include "controls/FieldLayout.h"
#include "controls/RecordWindow.h"
#include "controls/TextBox.h"
#include "masters/scrips/ScripBook.h"

#include <array>

namespace quorvane::scrips {

/// "Script Details": the securities. It leads to the windows of their types and classes.
class FrmScript : public controls::RecordWindow {
  Q_OBJECT

 public:
  explicit FrmScript(controls::Desk& desk);

 protected:
  std::string_view RecordTable() const override { return "Script"; }
  void FillList() override;
  bool ReadRecords(std::span<const int> keys) override;
  void Clear() override;
  void Load(int id) override;
  MaybeRefusal Save() override;
  void Remove(int id) override;
  QString DeleteQuestion() const override;

 private:
  enum Box { Code, Name, SecondCode, kBoxes };

  void AddFields();
  void AddIsins(controls::FieldLayout& fields);
  void AddButtons();
  void ShowIsins(const std::vector<rates::DatedIsin>& isins);
  std::vector<rates::DatedIsin> EnteredIsins() const;
  void FillCombos();
  void ShowScrips();

  void Combo1_GotFocus();
  void Combo2_GotFocus();
  void CmdScriptType_Click();
  void CmdScriptCls_Click();
  void CmdAddIsin_Click();
  void CmdDeleteIsin_Click();
  void VS_LastCellLeft();

  ScripBook book_;
  std::vector<Scrip> listed_;
  std::array<controls::TextBox*, kBoxes> Text1{};
  controls::ComboBox* Combo1 = nullptr;
  controls::ComboBox* Combo2 = nullptr;
  controls::Grid* VS = nullptr;  ///< ISINs
};

}  // namespace quorvane::scrips
