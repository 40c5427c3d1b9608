#pragma once

#include "core/Ids.h"

#include <QString>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>

namespace quorvane::database {

/// A value bound to a "?" of a statement: NULL, a whole number, a double or text.
class Value {
 public:
  using Variant = std::variant<std::monostate, std::int64_t, double, std::string>;

  Value(std::nullopt_t) {}                                // NOLINT(google-explicit-constructor)
  Value(int value) : value_(std::int64_t{value}) {}       // NOLINT(google-explicit-constructor)
  Value(bool value) : value_(std::int64_t{value}) {}      // NOLINT(google-explicit-constructor)
  Value(std::int64_t value) : value_(value) {}            // NOLINT(google-explicit-constructor)
  Value(double value) : value_(value) {}                  // NOLINT(google-explicit-constructor)
  Value(std::string value) : value_(std::move(value)) {}  // NOLINT(google-explicit-constructor)
  Value(std::string_view value) : value_(std::string(value)) {}  // NOLINT
  Value(const char* value) : value_(std::string(value)) {}       // NOLINT
  Value(const QString& value) : value_(value.toStdString()) {}   // NOLINT
  template <class Tag>
  Value(Id<Tag> id) : value_(std::int64_t{id.value}) {}  // NOLINT(google-explicit-constructor)
  template <class T>
  Value(const std::optional<T>& value) {  // NOLINT(google-explicit-constructor)
    if (value) {
      *this = Value(*value);
    }
  }

  const Variant& Get() const { return value_; }

 private:
  Variant value_;
};

}  // namespace quorvane::database
