#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorvane::bench {

/// The result as a table in Markdown. A row is printed as soon as it is known.
class Table {
 public:
  void Head() const;

  /// A figure that no bound applies to.
  void Add(std::string_view work, std::string_view figure);

  /// A figure with its bound in words and whether it holds.
  void Add(std::string_view work, std::string_view figure, std::string_view bound, bool holds);

  bool EverythingHolds() const { return everything_holds_; }

 private:
  bool everything_holds_ = true;
};

}  // namespace quorvane::bench
