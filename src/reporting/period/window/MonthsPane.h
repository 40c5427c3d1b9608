#pragma once

#include "controls/ComboBox.h"
#include "reporting/period/Period.h"

#include <QWidget>

#include <array>
#include <optional>

namespace quorvane::reporting {

/// The choice of a from month and a to month of a financial year: `CmbFromMth` and `CmbToMth`, and
/// the boxes `CmbFromMthId` and `CmbToMthId`, never shown, that hold the months' numbers.
class MonthsPane : public QWidget {
  Q_OBJECT

 public:
  /// 0 is the from month, 1 the to month.
  using End = std::size_t;

  explicit MonthsPane(text::FinancialYear year, QWidget* parent = nullptr);

  /// No month is chosen afterwards.
  void SetYear(text::FinancialYear year);

  controls::ComboBox* Names(End end) const { return names_[end]; }

  /// The days of the chosen month; nullopt while none is chosen.
  std::optional<Result<Period>> Chosen(End end) const;

  /// Takes the choice back unless the month begins or ends with that day.
  void KeepOnly(End end, std::optional<text::Date> day);

 private:
  text::FinancialYear year_;
  std::array<controls::ComboBox*, 2> names_{};
  std::array<controls::ComboBox*, 2> numbers_{};
};

}  // namespace quorvane::reporting
