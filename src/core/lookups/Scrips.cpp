#include "core/lookups/Scrips.h"

#include <algorithm>

namespace quorvane::lookups {

bool ScripFound::HasCode(const QString& wanted) const {
  return wanted.compare(code, Qt::CaseInsensitive) == 0 ||
         wanted.compare(ncode, Qt::CaseInsensitive) == 0;
}

ScripList::ScripList(database::Connection& connection) {
  for (const auto& row :
       connection.Open("Select Id,Code,Name,NCode From Script Order By Name,Id")) {
    places_.try_emplace(ScripId{row.Int(0)}, scrips_.size());
    scrips_.push_back({ScripId{row.Int(0)}, row.Text(1), row.Text(2), row.Text(3).trimmed()});
  }
}

std::vector<lookups::Item> ScripList::Names() const {
  std::vector<lookups::Item> items;
  items.reserve(scrips_.size());
  for (const ScripFound& scrip : scrips_) {
    items.push_back({scrip.id.value, scrip.name});
  }
  return items;
}

QStringList ScripList::Codes() const {
  QStringList codes;
  codes.reserve(2 * static_cast<qsizetype>(scrips_.size()));
  for (const ScripFound& scrip : scrips_) {
    codes << scrip.code << scrip.ncode;
  }
  codes.sort();
  codes.removeAll(QString());
  codes.erase(std::unique(codes.begin(), codes.end()), codes.end());
  return codes;
}

const ScripFound* ScripList::Find(ScripId id) const {
  const auto found = places_.find(id);
  return found == places_.end() ? nullptr : &scrips_[found->second];
}

QString ScripList::NameOf(ScripId id) const {
  const ScripFound* scrip = Find(id);
  return scrip == nullptr ? QString() : scrip->name;
}

std::optional<ScripFound> FindScripByCode(database::Connection& connection, const QString& code) {
  const QString wanted = code.trimmed().toUpper();
  if (wanted.isEmpty()) {
    return std::nullopt;
  }
  auto rows = connection.Open(
      "Select Id,Code,Name,NCode From Script Where Ucase(Code)=? or Ucase(NCode)=? "
      "Order By Ucase(Code)=? Desc,Id Limit 1",
      wanted, wanted, wanted);
  if (!rows.Next()) {
    return std::nullopt;
  }
  return ScripFound{ScripId{rows.Int(0)}, rows.Text(1), rows.Text(2), rows.Text(3).trimmed()};
}

}  // namespace quorvane::lookups
