#include "masters/imports/ScripWriter.h"

#include "core/database/Keys.h"
#include "core/lookups/Directory.h"

#include <fmt/format.h>

namespace quorvane::imports {

using database::Transaction;
using lookups::Folded;

NameKeys::NameKeys(Transaction& transaction, std::string_view table, std::string_view column)
    : transaction_(transaction), table_(table) {
  for (const auto& row : transaction.Open(
           fmt::format("Select Id,{} From {} Order By Id For Update", column, table))) {
    keys_.try_emplace(Folded(row.Utf8(1)), row.Int(0));
  }
}

int NameKeys::KeyOf(const std::string& name) {
  if (name.empty()) {
    return 0;
  }
  const auto [place, is_new] = keys_.try_emplace(Folded(name), 0);
  if (is_new) {
    place->second = database::NextKey(transaction_, table_);
    transaction_.Execute(fmt::format("Insert Into {} Values(?,?)", table_), place->second, name);
    ++transaction_.Changes().Of(table_).added_count;
  }
  return place->second;
}

ScripWriter::ScripWriter(Transaction& transaction)
    : transaction_(transaction),
      next_(database::FirstFreeKey(transaction, "Script")),
      classes_(transaction, "ScriptClass", "Name"),
      types_(transaction, "ScriptType", "Type"),
      update_(transaction, "Update Script Set Code=?,Name=?,Type=?,ScrCls=?,NCode=? Where Id=?",
              "ttiiti"),
      insert_(transaction, "Insert Into Script(Id,Code,Name,Type,ScrCls,NCode) Values(?,?,?,?,?,?)",
              "ittiit") {}

void ScripWriter::Write(const ImportedScrip& scrip) {
  const int type = types_.KeyOf(scrip.type);
  const int scrip_class = classes_.KeyOf(scrip.scrip_class);
  changes::TableChanges& count = transaction_.Changes().Of("Script");
  ++count.added_count;
  count.removed_count += scrip.state == ScripState::kNew ? 0 : 1;
  const ScripId id = scrip.state == ScripState::kNew ? ScripId{next_++} : scrip.id;
  if (scrip.state == ScripState::kNew) {
    insert_.Int(id.value).Text(scrip.code).Text(scrip.name).Int(type).Int(scrip_class);
    insert_.Text(scrip.symbol).EndRow();
  } else {
    update_.Text(scrip.code).Text(scrip.name).Int(type).Int(scrip_class).Text(scrip.symbol);
    update_.Int(id.value).EndRow();
  }
  if (!scrip.isin.empty()) {
    seen_.push_back({id, scrip.isin});
  }
}

void ScripWriter::Finish(std::optional<text::Date> day) {
  update_.Finish();
  insert_.Finish();
  rates::KeepIsins(transaction_, seen_, day);
  database::KeepKeys(transaction_, "Script", next_);
}

}  // namespace quorvane::imports
