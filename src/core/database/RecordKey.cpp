#include "core/database/RecordKey.h"

#include "core/database/Keys.h"

#include <fmt/format.h>

namespace quorvane::database {

int ClaimKey(Transaction& transaction, std::string_view table, int id) {
  const bool stored =
      id != 0 && transaction.Execute(fmt::format("Delete From {} Where Id=?", table), id) > 0;
  return stored ? id : NextKey(transaction, table);
}

}  // namespace quorvane::database
