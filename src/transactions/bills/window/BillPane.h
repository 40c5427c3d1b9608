#pragma once

#include "core/records/Bill.h"
#include "transactions/bills/window/BillHeaderPane.h"
#include "transactions/bills/window/BillLinePane.h"
#include "transactions/bills/window/BillTotalsPane.h"
#include "transactions/bills/window/HoldingsPane.h"

#include <array>
#include <cstdint>

class QHBoxLayout;

namespace quorvane::bills {

using records::Bill;
using records::BillLine;

/// What the user does with the lines of a bill.
enum class LineCommand : std::uint8_t { kAdd, kModify, kUpdate, kDelete, kCancel };

/// A bill on the screen: its head, the line that is being entered with the buttons for it, the list
/// of lines beside the holdings of the account, and its foot.
class BillPane : public QWidget {
  Q_OBJECT

 public:
  /// Pick lists open over `window`.
  BillPane(const controls::Guard& guard, database::Connection& connection, text::FinancialYear year,
           QWidget* window);

  BillHeaderPane& Head() const { return *head_; }
  BillLinePane& Line() const { return *line_; }
  HoldingsPane& Holdings() const { return *holdings_; }
  BillTotalsPane& Foot() const { return *foot_; }
  controls::Grid& Lines() const { return *Vs1; }
  controls::ZENButton& Button(LineCommand command) const {
    return *buttons_[static_cast<std::size_t>(command)];
  }

  /// Reads again what there is to choose from; the choices stay.
  void ReadChoices(database::Connection& connection, ClientId client);

  void Show(const Bill& bill, records::TotalCaption caption);

  /// Lines and totals alone, after a change of a line.
  void ShowLines(const Bill& bill, records::TotalCaption caption);

  /// Head and foot are live while the bill is edited, the boxes of the line while one is entered.
  void SetEditing(bool bill, bool line);

 private:
  QWidget* BuildLists();
  void BuildButtons(QHBoxLayout& row);
  void BuildKeys(QWidget* window);

  BillHeaderPane* head_;
  BillLinePane* line_;
  HoldingsPane* holdings_;
  BillTotalsPane* foot_;
  controls::Grid* Vs1;
  std::array<controls::ZENButton*, 5> buttons_{};
};

}  // namespace quorvane::bills
