#pragma once

#include "admin/calculator/Number.h"

#include <QString>
#include <QStringList>

namespace quorvane::calculator {

/// A desk calculator: it computes from left to right. After an error ("Division
/// by Zero") every key but those that clear does nothing.
class Calculator {
 public:
  enum class Operation { kNone, kAdd, kSubtract, kMultiply, kDivide };

  void Digit(int digit);
  void Point();
  void Negate();
  void Backspace();

  /// Clears the number being entered; Clear clears everything but memory and history.
  void ClearEntry();
  void Clear();

  /// Takes a copied number as the entry; false, with nothing changed, when the text is no number.
  bool Paste(const QString& text);

  void Operate(Operation operation);

  /// Ends the sum and adds it to the history. Again: repeats the last operation.
  void Equals();

  /// After "+" or "-" the entry becomes that part of the first number: 500 + 18 % is 590. Otherwise
  /// it is divided by 100.
  void Percent();

  void MemoryClear() { memory_ = Number(); }
  void MemoryRecall();
  void MemoryAdd();
  void MemorySubtract();
  bool HasMemory() const { return !memory_.IsZero(); }
  QString MemoryText() const { return memory_.Text(); }

  /// The number as it is copied, or the error.
  QString Display() const;

  /// What has been entered before it: "12 +"; empty when there is none.
  QString Waiting() const;
  bool HasError() const { return !error_.isEmpty(); }

  /// True when Clear would change nothing.
  bool IsClear() const;

  /// Finished sums, the oldest first: "12 + 3 = 15".
  const QStringList& History() const { return history_; }
  void ClearHistory() { history_.clear(); }

 private:
  Number Current() const;
  void Enter(const Number& number);
  bool Take(std::optional<Number> result);
  std::optional<Number> Apply(Operation operation, Number left, Number right) const;
  void Remember(Operation operation, Number left, Number right);

  QString entry_;  ///< as it is typed; empty when none is being typed
  Number shown_;
  Number left_;
  Number memory_;
  Operation waiting_ = Operation::kNone;
  Operation repeated_ = Operation::kNone;
  Number repeated_right_;
  bool right_given_ = false;
  QString error_;
  QStringList history_;
};

}  // namespace quorvane::calculator
