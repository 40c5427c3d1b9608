#include "admin/calculator/Calculator.h"

#include "core/text/Tr.h"

namespace quorvane::calculator {
namespace {

constexpr qsizetype kMostTyped = 15;
constexpr qsizetype kMostRemembered = 200;
const QString kZero = QStringLiteral("0");

qsizetype CountTyped(const QString& entry) {
  return entry.size() - entry.count(QLatin1Char('.')) - entry.count(QLatin1Char('-'));
}

QString SignOf(Calculator::Operation operation) {
  switch (operation) {
    case Calculator::Operation::kAdd:
      return QStringLiteral("+");
    case Calculator::Operation::kSubtract:
      return QStringLiteral("−");
    case Calculator::Operation::kMultiply:
      return QStringLiteral("×");
    case Calculator::Operation::kDivide:
      return QStringLiteral("÷");
    case Calculator::Operation::kNone:
      break;
  }
  return {};
}

}  // namespace

void Calculator::Digit(int digit) {
  if (HasError() || CountTyped(entry_) >= kMostTyped) {
    return;
  }
  const bool only_zero = entry_ == kZero || entry_ == QStringLiteral("-0");
  if (only_zero) {
    entry_.chop(1);
  }
  entry_ += QString::number(digit);
  right_given_ = true;
}

void Calculator::Point() {
  if (HasError() || entry_.contains(QLatin1Char('.'))) {
    return;
  }
  entry_ += entry_.isEmpty() ? QStringLiteral("0.") : QStringLiteral(".");
  right_given_ = true;
}

void Calculator::Negate() {
  if (HasError()) {
    return;
  }
  if (entry_.isEmpty()) {
    Enter(shown_.Negated());
  } else if (entry_.startsWith(QLatin1Char('-'))) {
    entry_.remove(0, 1);
  } else {
    entry_.prepend(QLatin1Char('-'));
  }
}

void Calculator::Backspace() {
  if (HasError() || entry_.isEmpty()) {
    return;
  }
  entry_.chop(1);
  if (entry_.isEmpty() || entry_ == QStringLiteral("-")) {
    entry_ = kZero;
  }
}

void Calculator::ClearEntry() {
  if (HasError()) {
    Clear();
    return;
  }
  entry_.clear();
  shown_ = Number();
  right_given_ = waiting_ != Operation::kNone;
}

void Calculator::Clear() {
  entry_.clear();
  shown_ = left_ = Number();
  waiting_ = repeated_ = Operation::kNone;
  right_given_ = false;
  error_.clear();
}

bool Calculator::IsClear() const {
  return !HasError() && entry_.isEmpty() && shown_.IsZero() && waiting_ == Operation::kNone;
}

bool Calculator::Paste(const QString& text) {
  const std::optional<Number> number = Number::Parse(text);
  if (!number || HasError()) {
    return false;
  }
  Enter(*number);
  return true;
}

Number Calculator::Current() const {
  return entry_.isEmpty() ? shown_ : Number::Parse(entry_).value_or(Number());
}

void Calculator::Enter(const Number& number) {
  entry_.clear();
  shown_ = number;
  right_given_ = true;
}

std::optional<Number> Calculator::Apply(Operation operation, Number left, Number right) const {
  switch (operation) {
    case Operation::kAdd:
      return Number::Sum(left, right);
    case Operation::kSubtract:
      return Number::Sum(left, right.Negated());
    case Operation::kMultiply:
      return Number::Product(left, right);
    case Operation::kDivide:
      return Number::Quotient(left, right);
    case Operation::kNone:
      break;
  }
  return right;
}

bool Calculator::Take(std::optional<Number> result) {
  if (!result) {
    const bool by_zero = waiting_ == Operation::kDivide && Current().IsZero();
    error_ = by_zero ? Tr("Calculator", "Division by Zero")
                     : Tr("Calculator", "The Number is too Large");
    return false;
  }
  Enter(*result);
  return true;
}

void Calculator::Operate(Operation operation) {
  if (HasError()) {
    return;
  }
  if (waiting_ != Operation::kNone && right_given_ && !Take(Apply(waiting_, left_, Current()))) {
    return;
  }
  left_ = Current();
  Enter(left_);
  waiting_ = operation;
  repeated_ = Operation::kNone;
  right_given_ = false;
}

void Calculator::Equals() {
  if (HasError()) {
    return;
  }
  const bool repeats = waiting_ == Operation::kNone;
  const Operation operation = repeats ? repeated_ : waiting_;
  if (operation == Operation::kNone) {
    Enter(Current());
    return;
  }
  const Number left = repeats ? Current() : left_;
  const Number right = repeats ? repeated_right_ : Current();
  if (!Take(Apply(operation, left, right))) {
    return;
  }
  Remember(operation, left, right);
  repeated_ = operation;
  repeated_right_ = right;
  waiting_ = Operation::kNone;
}

void Calculator::Remember(Operation operation, Number left, Number right) {
  history_.append(QStringLiteral("%1 %2 %3 = %4")
                      .arg(left.Text(), SignOf(operation), right.Text(), shown_.Text()));
  if (history_.size() > kMostRemembered) {
    history_.removeFirst();
  }
}

void Calculator::Percent() {
  if (HasError()) {
    return;
  }
  const Number hundredth = *Number::Product(Current(), *Number::Parse(u"0.01"));
  const bool of_left = waiting_ == Operation::kAdd || waiting_ == Operation::kSubtract;
  Take(of_left ? Number::Product(left_, hundredth) : hundredth);
}

void Calculator::MemoryRecall() {
  if (!HasError()) {
    Enter(memory_);
  }
}

void Calculator::MemoryAdd() {
  if (const auto sum = Number::Sum(memory_, Current()); sum && !HasError()) {
    memory_ = *sum;
    Enter(Current());
  }
}

void Calculator::MemorySubtract() {
  if (const auto sum = Number::Sum(memory_, Current().Negated()); sum && !HasError()) {
    memory_ = *sum;
    Enter(Current());
  }
}

QString Calculator::Display() const {
  if (HasError()) {
    return error_;
  }
  return entry_.isEmpty() ? shown_.Text() : entry_;
}

QString Calculator::Waiting() const {
  return waiting_ == Operation::kNone ? QString()
                                      : left_.Text() + QLatin1Char(' ') + SignOf(waiting_);
}

}  // namespace quorvane::calculator
