#pragma once

#include "controls/DateBox.h"
#include "controls/Messages.h"
#include "core/Result.h"
#include "reporting/period/Period.h"

#include <QWidget>

#include <array>
#include <optional>

namespace quorvane::reporting {

class MonthsPane;

/// The period of a report: "From" and "To" with the boxes Text1_0 and Text1_1, filled with the
/// whole of a financial year, and the choice of months, each of which sets its date. A date that is
/// typed in takes the month back.
class PeriodPane : public QWidget {
  Q_OBJECT

 public:
  /// The boxes side by side; with the months beside them; or one above the other in a frame.
  enum class Form { kRow, kRowWithMonths, kFrame };

  /// Without a year the boxes are empty. Throws std::logic_error for months without a year.
  PeriodPane(const controls::Guard& guard, std::optional<text::FinancialYear> year, Form form);

  /// From and to.
  const std::array<controls::DateBox*, 2>& Boxes() const { return boxes_; }

  /// Another year: the period becomes the whole of it, and its months are to choose from.
  void SetYear(text::FinancialYear year);
  void Set(const Period& period);

  /// What the boxes hold, or the first rule that it breaks.
  Result<Period> Read() const;

  /// Takes the access keys out of the labels, for a window that needs the letters.
  void FreeKeys();

 Q_SIGNALS:
  /// A month was chosen that has no days in the year; `field` is its box.
  void MonthRefused(const QString& text, QWidget* month);

 private:
  void MakeBoxes();
  void ArrangeInRow();
  void ArrangeInFrame();
  void AddMonths(std::optional<text::FinancialYear> year);
  void TakeMonth(std::size_t end);
  void Text1_Validate();
  void CmbFromMth_Click();
  void CmbToMth_Click();

  const controls::Guard& guard_;
  std::array<controls::DateBox*, 2> boxes_{};
  MonthsPane* months_ = nullptr;
};

}  // namespace quorvane::reporting
