#pragma once

#include "core/Result.h"
#include "core/changes/Author.h"
#include "core/changes/Log.h"
#include "core/lookups/Directory.h"

#include <QString>

#include <functional>
#include <span>
#include <vector>

namespace quorvane::changes {

// How the log of changes is told to people.

/// "Changed", "Imported".
QString NameOf(Kind kind);

/// The word by which commands and files know a kind: "carried-forward".
std::string_view WordOf(Kind kind);
std::optional<Kind> KindOf(std::string_view word);

/// Every kind, in the order in which a list offers them.
std::span<const Kind> Kinds();

/// "Bill 17, 03/05/2011", or the text of a summary, such as the folder of an import.
QString SubjectOf(const Entry& entry);

/// The time by the local clock: "15/06/2011 15:00:12".
QString TimeOf(const Entry& entry);

/// A value before and after a change; either may be empty.
struct Difference {
  QString place;   ///< "Bill", "Bill Line 3"
  QString column;  ///< "Quantity"
  QString before;
  QString after;
};

/// What a key in a column stands for: ("ScrId", 17) is the scrip of that number. An empty text
/// leaves the number.
using KeyNames = std::function<QString(std::string_view column, int key)>;

/// The names of clients, accounts and scrips; `directory` outlives what is returned.
KeyNames NamesIn(const lookups::Directory& directory);

/// The values that rows before and after differ in. Of a summary, a line a table with how many rows
/// went and came.
std::vector<Difference> Differences(const std::string& old_rows, const std::string& new_rows,
                                    const KeyNames& names = {});

/// The refusals of the log. An entry that does not name the record is told as one of many records.
Refusal NoRight(Right right);
Refusal ChangedMeanwhile(const Entry& theirs, bool names_it, const NewEntry& ours);
Refusal DeletedMeanwhile(const Entry& theirs, bool names_it);

}  // namespace quorvane::changes
