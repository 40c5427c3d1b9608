#include "core/changes/Changes.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <unordered_map>
#include <utility>

namespace quorvane::changes {
namespace {

// A change of several records is named after the first kind of these: the delete of a broker takes
// its bills along.
constexpr auto kOwners = std::to_array<std::string_view>(
    {"LoginId",    "ClientInfo",  "DepPart",  "Broker",      "Script",
     "ScriptType", "ScriptClass", "Exchange", "STTPer",      "TransTaxPer",
     "CorpAction", "SPMaster",    "StkOpBal", "ScrTransfer", "BrOpBal",
     "BrPayment",  "BrRec",       "Dividend", "TaxLoss",     "StatementCheck"});

auto RankOf(std::string_view table) {
  return std::ranges::find(kOwners, table) - kOwners.begin();
}

/// The rows that are in the one list and not in the other, in their order.
std::vector<std::string_view> Only(const std::vector<std::string>& rows,
                                   const std::vector<std::string>& others) {
  std::unordered_map<std::string_view, int> same;
  for (const std::string& row : others) {
    ++same[row];
  }
  std::vector<std::string_view> only;
  for (const std::string& row : rows) {
    if (const auto found = same.find(row); found != same.end() && found->second > 0) {
      --found->second;
    } else {
      only.push_back(row);
    }
  }
  return only;
}

void AppendTable(std::string& json, const TableChanges& table,
                 const std::vector<std::string_view>& rows) {
  if (rows.empty()) {
    return;
  }
  json += json.empty() ? "{" : ",";
  AppendJson(json, table.table);
  json.append(":{\"columns\":").append(table.columns).append(",\"rows\":[");
  for (std::size_t i = 0; i < rows.size(); ++i) {
    json.append(i == 0 ? "" : ",").append(rows[i]);
  }
  json += "]}";
}

}  // namespace

void AppendJson(std::string& json, std::string_view text) {
  json += '"';
  for (const char c : text) {
    if (c == '"' || c == '\\') {
      json += '\\';
      json += c;
    } else if (static_cast<unsigned char>(c) < 0x20) {
      fmt::format_to(std::back_inserter(json), "\\u{:04x}", static_cast<int>(c));
    } else {
      json += c;
    }
  }
  json += '"';
}

TableChanges& Changes::Of(std::string_view table) {
  const auto found = std::ranges::find(tables_, table, &TableChanges::table);
  if (found != tables_.end()) {
    return *found;
  }
  tables_.emplace_back().table = table;
  return tables_.back();
}

void Changes::Removed(TableChanges& table, Owner owner, std::string_view columns, std::string row) {
  ++table.removed_count;
  if (keeps_rows_) {
    const bool is_header = owner.table == table.table;
    Note(table, std::move(owner), columns, is_header, false);
    table.removed.push_back(std::move(row));
    StopKeeping();
  }
}

void Changes::Added(TableChanges& table, Owner owner, std::string_view columns, std::string row) {
  ++table.added_count;
  if (keeps_rows_) {
    const bool is_header = owner.table == table.table;
    Note(table, std::move(owner), columns, is_header, true);
    table.added.push_back(std::move(row));
    StopKeeping();
  }
}

/// Keeps the owner of highest rank, and of equal ones the first.
void Changes::Note(TableChanges& table, Owner owner, std::string_view columns, bool is_header,
                   bool added) {
  if (table.columns.empty()) {
    table.columns = columns;
  }
  const bool is_new = !owner_ || RankOf(owner.table) < RankOf(owner_->table);
  if (is_new) {
    had_header_ = has_header_ = false;
  } else if (owner.table != owner_->table || owner.key != owner_->key) {
    return;
  }
  if (is_header) {
    (added ? has_header_ : had_header_) = true;
  }
  if (is_new || !owner.title.isEmpty()) {
    owner_ = std::move(owner);
  }
}

void Changes::StopKeeping() {
  if (++rows_ <= kMostRows) {
    return;
  }
  keeps_rows_ = false;
  for (TableChanges& table : tables_) {
    table.removed = {};
    table.added = {};
  }
}

void Changes::Summarise(Kind kind, const QString& text, Owner owner) {
  kind_ = kind;
  text_ = text;
  keeps_rows_ = false;
  is_summary_ = true;
  owner_ = std::move(owner);
  owner_->title = text;
  for (TableChanges& table : tables_) {
    table.removed = {};
    table.added = {};
  }
}

void Changes::Is(Kind kind) {
  if (!is_summary_) {
    kind_ = kind;
  }
}

void Changes::Is(Kind kind, Owner owner) {
  kind_ = kind;
  owner_ = std::move(owner);
}

std::string Changes::Summary() const {
  std::string json = "{\"text\":";
  AppendJson(json, text_.toStdString());
  json += ",\"counts\":{";
  std::string_view comma;
  for (const TableChanges& table : tables_) {
    if (table.removed_count + table.added_count > 0) {
      json += std::exchange(comma, ",");
      AppendJson(json, table.table);
      json += fmt::format(":[{},{}]", table.removed_count, table.added_count);
    }
  }
  return json + "}}";
}

std::optional<NewEntry> Changes::Entry() const {
  NewEntry entry;
  entry.undoes = undoes_;
  entry.owner = owner_.value_or(Owner());
  if (keeps_rows_) {
    for (const TableChanges& table : tables_) {
      AppendTable(entry.old_rows, table, Only(table.removed, table.added));
      AppendTable(entry.new_rows, table, Only(table.added, table.removed));
    }
    entry.old_rows += entry.old_rows.empty() ? "" : "}";
    entry.new_rows += entry.new_rows.empty() ? "" : "}";
  } else {
    entry.new_rows = Summary();
  }
  if (!kind_ && entry.old_rows.empty() && entry.new_rows.empty()) {
    return std::nullopt;
  }
  const Kind by_rows = had_header_ == has_header_ ? Kind::kChanged
                       : has_header_              ? Kind::kAdded
                                                  : Kind::kDeleted;
  entry.kind = kind_.value_or(by_rows);
  return entry;
}

}  // namespace quorvane::changes
