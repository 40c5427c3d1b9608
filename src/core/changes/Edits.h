#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace quorvane::changes {

/// The records that a program has open for editing, each with the number of the last entry of the
/// log that there was when the program read it. A save is refused when the log has a later one.
class Edits {
 public:
  void Begin(std::string_view table, int key, std::int64_t seen) {
    seen_[{std::string(table), key}] = seen;
  }
  void End(std::string_view table, int key) { seen_.erase({std::string(table), key}); }

  /// Nothing for a record that is not being edited.
  std::optional<std::int64_t> Seen(std::string_view table, int key) const {
    const auto found = seen_.find({std::string(table), key});
    return found == seen_.end() ? std::nullopt : std::optional(found->second);
  }

 private:
  std::map<std::pair<std::string, int>, std::int64_t> seen_;
};

}  // namespace quorvane::changes
