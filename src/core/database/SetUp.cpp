#include "core/database/SetUp.h"

#include <utility>

namespace quorvane::database {
namespace {

constexpr int kDuplicateColumn = 1060;
constexpr int kDuplicateIndex = 1061;

}  // namespace

bool SetUp::Run(const std::string& statement) {
  try {
    connection_.Execute(statement);
    changed_ = true;
    return true;
  } catch (const DatabaseError& error) {
    Skip(statement, error);
    return false;
  }
}

bool SetUp::Try(const std::string& statement) {
  const std::size_t before = skipped_.size();
  const bool done = Run(statement);
  skipped_.resize(before);
  return done;
}

void SetUp::Skip(const std::string& statement, const DatabaseError& error) {
  if (error.IsConnectionLost()) {
    throw error;
  }
  if (error.Native() == kDuplicateColumn || error.Native() == kDuplicateIndex) {
    return;
  }
  skipped_.push_back({statement, error.what(), makes_ == Makes::kTablesAndColumns});
}

std::vector<SkippedStatement> SetUp::Finish() {
  if (changed_) {
    connection_.ForgetStatements();
    connection_.FlushTables();
  }
  return std::move(skipped_);
}

}  // namespace quorvane::database
