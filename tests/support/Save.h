#pragma once

#include "core/Result.h"

#include <type_traits>

namespace quorvane::test {

/// Saves a record by its book and takes over the result: the key, or the whole record.
template <class Book, class Record, class... More>
MaybeRefusal Save(Book&& book, Record& record, const More&... more) {
  const auto saved = book.Save(record, more...);
  if (saved) {
    if constexpr (std::is_same_v<std::decay_t<decltype(*saved)>, Record>) {
      record = *saved;
    } else {
      record.id = *saved;
    }
  }
  return saved.Refused();
}

}  // namespace quorvane::test
