#pragma once

#include "controls/ComboBox.h"
#include "controls/DateBox.h"
#include "controls/TextBox.h"
#include "core/actions/Terms.h"
#include "core/lookups/Choices.h"

#include <QObject>

#include <array>
#include <vector>

namespace quorvane::corporate_actions {

using records::Action;

/// The form of a corporate action: a box for every term, of which those that the chosen kind has
/// can be entered.
class ActionFields : public QObject {
  Q_OBJECT

 public:
  /// Lays the boxes out in an empty panel, to which this belongs.
  explicit ActionFields(QWidget* panel);

  /// The scrips to choose from; those that are chosen stay chosen.
  void SetScrips(const std::vector<lookups::Item>& scrips);

  void Clear();
  void Fill(const Action& action);

  /// Lets the terms of the chosen kind be entered, and no others.
  void EnableTerms();

  /// What was entered, as far as the chosen kind has it; without a key.
  Action Entered() const;
  bool HasKind() const { return Combo1->HasChoice(); }

  const controls::ComboBox* Kind() const { return Combo1; }
  const std::array<controls::DateBox*, 3>& Days() const { return Text2; }

 private:
  enum Box { New, Old, Price, Percent, kBoxes };

  controls::ComboBox* Combo1 = nullptr;  ///< kind
  controls::ComboBox* Combo2 = nullptr;  ///< scrip
  controls::ComboBox* Combo3 = nullptr;  ///< the other scrip
  std::array<controls::TextBox*, kBoxes> Text1{};
  std::array<controls::DateBox*, 3> Text2{};  ///< ex-date, record date, allotment
  controls::TextBox* TxtNote = nullptr;
};

}  // namespace quorvane::corporate_actions
