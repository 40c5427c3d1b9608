#pragma once

#include "core/Field.h"

#include <QString>

#include <optional>
#include <utility>
#include <variant>

namespace quorvane {

/// A rule that the user's input broke: the text to show and what was entered wrong. Nothing was
/// changed.
struct Refusal {
  QString text;
  Field field = Field::kNone;
};

/// The outcome of work that may be refused and returns nothing else.
class [[nodiscard]] MaybeRefusal : public std::optional<Refusal> {
 public:
  using std::optional<Refusal>::optional;
};

/// The outcome of work that returns a value unless it is refused.
template <class T>
class [[nodiscard]] Result {
 public:
  Result(T value) : outcome_(std::move(value)) {}            // NOLINT(google-explicit-constructor)
  Result(Refusal refusal) : outcome_(std::move(refusal)) {}  // NOLINT(google-explicit-constructor)

  /// True when there is a value, which may then be read; otherwise there is the refusal.
  explicit operator bool() const { return std::holds_alternative<T>(outcome_); }
  T& operator*() { return std::get<T>(outcome_); }
  const T& operator*() const { return std::get<T>(outcome_); }
  T* operator->() { return &std::get<T>(outcome_); }
  const T* operator->() const { return &std::get<T>(outcome_); }
  const Refusal& Why() const { return std::get<Refusal>(outcome_); }

  /// The refusal without the value; nullopt when there is a value.
  MaybeRefusal Refused() const { return *this ? MaybeRefusal() : MaybeRefusal(Why()); }

 private:
  std::variant<T, Refusal> outcome_;
};

template <class T>
inline constexpr bool kIsResult = false;
template <class T>
inline constexpr bool kIsResult<Result<T>> = true;

}  // namespace quorvane
