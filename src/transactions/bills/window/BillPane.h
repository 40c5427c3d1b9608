#pragma once

#include "controls/Grid.h"
#include "controls/ZENButton.h"
#include "transactions/bills/window/BillContext.h"
#include "transactions/bills/window/BillHeaderPane.h"
#include "transactions/bills/window/BillLinePane.h"
#include "transactions/bills/window/BillTotalsPane.h"
#include "transactions/bills/window/HoldingsPane.h"

#include <array>
#include <cstdint>

class QHBoxLayout;

namespace quorvane::bills {

/// What the user does with the lines of a bill.
enum class LineCommand : std::uint8_t { kAdd, kModify, kUpdate, kDelete, kCancel };

/// A bill on the screen: its head, the line that is being entered with the buttons for it, the list
/// of lines beside the holdings of the account, and its foot. It passes what the user does with the
/// lines to the entry; BillLinePane handles the boxes of the line.
class BillPane : public QWidget {
  Q_OBJECT

 public:
  /// Pick lists open over `window`, which also gets the keys.
  BillPane(BillContext& context, RateSource rates, QWidget* window);

  const BillHeaderPane& Head() const { return *head_; }

  /// Reads the lists of the choices again; what is chosen stays.
  void ReadChoices();

  /// Empties everything; the entry has an empty bill.
  void Clear();

  /// Shows the entry's bill and the holdings of its account.
  void Show();

  /// The same when an entry begins; its first line takes nothing over from the last bill.
  void Begin();

  /// Head and foot are enabled while the bill is edited. No line is being entered then.
  void SetEditing(bool editing);

  /// Gives the head and the charges to the entry.
  void Take();

  /// True while a line is being entered, and when it has something that would be lost.
  bool IsEnteringLine() const { return line_->IsOpen(); }
  bool HasLineToLose() const { return line_->IsOpen() && !line_->Entry().IsEmpty(); }
  void CancelLine();

 private:
  QWidget* BuildLists();
  void BuildButtons(QHBoxLayout& row);
  void BuildKeys(QWidget* window);
  void Connect();

  controls::ZENButton& Button(LineCommand command) const {
    return *buttons_[static_cast<std::size_t>(command)];
  }
  controls::Messages& Say() const { return context_.desk.messages; }
  void ShowLines();
  void EndLine();
  void Enable();
  void StartNewLine();
  MaybeRefusal PutLine(const records::BillLine& line);

  void Account_Changed();
  void VS1_RowActivated();
  void VS3_RowActivated();
  void CmdAdd1_Click();
  void CmdModify1_Click();
  void CmdUpdate1_Click();
  void CmdDelete1_Click();
  void cmdCancel1_Click();
  void ImgRefresh_Click();

  BillContext& context_;
  BillHeaderPane* head_;
  HoldingsPane* holdings_;
  BillLinePane* line_;
  BillTotalsPane* foot_;
  controls::Grid* Vs1;
  std::array<controls::ZENButton*, 5> buttons_{};
  bool editing_ = false;
};

}  // namespace quorvane::bills
