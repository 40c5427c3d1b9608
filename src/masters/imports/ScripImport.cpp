#include "masters/imports/ScripImport.h"

#include "core/database/BulkWriter.h"
#include "core/database/Keys.h"
#include "core/lookups/Directory.h"
#include "core/rates/IsinBook.h"
#include "core/text/Tr.h"

#include <fmt/format.h>

#include <set>

namespace quorvane::imports {
namespace {

using database::BulkWriter;
using database::Transaction;
using lookups::Folded;
using rates::PriceFile;
using rates::PriceRow;

constexpr std::string_view kDefaultType = "EQUITY";

/// The scrips that are there, found by either code or by an ISIN.
class StoredScrips {
 public:
  explicit StoredScrips(database::Connection& connection) : isins_(connection) {
    for (const auto& row : connection.Open(
             "Select S.Id,S.Code,S.NCode,S.Name,C.Name,T.Type From Script S "
             "Left Join ScriptClass C On C.Id=S.ScrCls Left Join ScriptType T On T.Id=S.Type "
             "Order By S.Id")) {
      scrips_.push_back({ScripId{row.Int(0)}, ScripState::kUnchanged, std::string(row.Utf8(1)),
                         std::string(files::Trimmed(row.Utf8(2))), std::string(row.Utf8(3)),
                         std::string(row.Utf8(4)), std::string(row.Utf8(5))});
    }
    for (std::size_t place = 0; place < scrips_.size(); ++place) {
      by_id_.try_emplace(scrips_[place].id, place);
      by_code_.try_emplace(Folded(scrips_[place].code), place);
      if (!scrips_[place].symbol.empty()) {
        by_symbol_.try_emplace(Folded(scrips_[place].symbol), place);
      }
    }
  }

  /// Each scrip is given to one row that has only its ISIN.
  const ImportedScrip* Of(const PriceRow& row) {
    if (!row.code.empty()) {
      const ImportedScrip* found = Find(by_code_, row.code);
      return found != nullptr ? found : WithoutBombayCode(row.isin);
    }
    const ImportedScrip* by_isin = AnyOf(row.isin);
    const ImportedScrip* found = Find(by_symbol_, row.symbol);
    found = found != nullptr ? found : Find(by_code_, row.symbol);
    const bool is_other = found != nullptr && by_isin != nullptr && isins_.HasAny(found->id) &&
                          !isins_.Has(found->id, row.isin);
    return found == nullptr || is_other ? by_isin : found;
  }

  bool IsNewIsin(ScripId scrip, const std::string& isin) const {
    return !isin.empty() && !isins_.Has(scrip, isin);
  }

 private:
  using Index = std::unordered_map<std::string, std::size_t>;

  const ImportedScrip* Find(const Index& index, const std::string& key) const {
    const auto found = index.find(Folded(key));
    return found == index.end() ? nullptr : &scrips_[found->second];
  }

  const ImportedScrip* AnyOf(const std::string& isin) const {
    const std::vector<ScripId> scrips = isins_.ScripsOf(isin);
    const auto found = scrips.empty() ? by_id_.end() : by_id_.find(scrips.front());
    return found == by_id_.end() ? nullptr : &scrips_[found->second];
  }

  const ImportedScrip* WithoutBombayCode(const std::string& isin) {
    for (const ScripId scrip : isins_.ScripsOf(isin)) {
      const auto found = by_id_.find(scrip);
      const bool is_free = found != by_id_.end() && HasOnlySymbol(scrips_[found->second]);
      if (is_free && given_.insert(scrip).second) {
        return &scrips_[found->second];
      }
    }
    return nullptr;
  }

  static bool HasOnlySymbol(const ImportedScrip& scrip) {
    return !scrip.symbol.empty() && Folded(scrip.code) == Folded(scrip.symbol);
  }

  std::vector<ImportedScrip> scrips_;
  std::unordered_map<ScripId, std::size_t> by_id_;
  Index by_code_;
  Index by_symbol_;
  rates::Isins isins_;
  std::set<ScripId> given_;
};

ImportedScrip NewScrip(const PriceRow& row) {
  return {.code = row.code.empty() ? row.symbol : row.code,
          .symbol = row.symbol,
          .name = !row.name.empty()   ? row.name
                  : !row.code.empty() ? row.code
                                      : row.symbol,
          .scrip_class = row.scrip_class,
          .type = !row.type.empty()          ? row.type
                  : !row.series_type.empty() ? row.series_type
                                             : std::string(kDefaultType),
          .isin = row.isin};
}

/// The type that the file tells, or its series where the scrip is nothing but a share so far.
std::string TypeFor(const ImportedScrip& stored, const PriceRow& row) {
  const bool is_share = Folded(stored.type) == Folded(kDefaultType);
  return row.type.empty() && is_share ? row.series_type : row.type;
}

// The National exchange's series is no class of a scrip that has one, and its name none of a scrip
// that the Bombay exchange names.
ImportedScrip Changed(const ImportedScrip& stored, const PriceRow& row, const PriceFile& file,
                      bool is_new_isin) {
  ImportedScrip scrip = stored;
  if (is_new_isin) {
    scrip.isin = row.isin;
    scrip.state = ScripState::kChanged;
  }
  const auto take = [&](std::string ImportedScrip::*member, const std::string& value) {
    if (scrip.*member != value) {
      scrip.*member = value;
      scrip.state = ScripState::kChanged;
    }
  };
  const auto take_name = [&](std::string ImportedScrip::*member, const std::string& value) {
    if (!value.empty() && Folded(scrip.*member) != Folded(value)) {
      take(member, value);
    }
  };
  if (!row.code.empty()) {
    take(&ImportedScrip::code, Folded(stored.code) == Folded(row.code) ? stored.code : row.code);
  }
  const bool is_national = file.exchange == rates::Exchange::kNse;
  if (file.has_names && !(is_national && Folded(stored.code) != Folded(row.symbol))) {
    take(&ImportedScrip::name, row.name);
  }
  if (file.has_symbols || !row.symbol.empty()) {
    take(&ImportedScrip::symbol, row.symbol);
  }
  if (!is_national || stored.scrip_class.empty()) {
    take_name(&ImportedScrip::scrip_class, row.scrip_class);
  }
  take_name(&ImportedScrip::type, TypeFor(stored, row));
  return scrip;
}

/// The keys of a small table of names; what is missing is added.
class NameKeys {
 public:
  NameKeys(Transaction& transaction, std::string_view table, std::string_view column)
      : transaction_(transaction), table_(table) {
    for (const auto& row : transaction.Open(
             fmt::format("Select Id,{} From {} Order By Id For Update", column, table))) {
      keys_.try_emplace(Folded(row.Utf8(1)), row.Int(0));
    }
  }

  int KeyOf(const std::string& name) {
    if (name.empty()) {
      return 0;
    }
    const auto [place, is_new] = keys_.try_emplace(Folded(name), 0);
    if (is_new) {
      place->second = database::NextKey(transaction_, table_);
      transaction_.Execute(fmt::format("Insert Into {} Values(?,?)", table_), place->second, name);
    }
    return place->second;
  }

 private:
  Transaction& transaction_;
  std::string table_;
  std::unordered_map<std::string, int> keys_;
};

class ScripWriter {
 public:
  explicit ScripWriter(Transaction& transaction)
      : transaction_(transaction),
        next_(database::FirstFreeKey(transaction, "Script")),
        classes_(transaction, "ScriptClass", "Name"),
        types_(transaction, "ScriptType", "Type"),
        update_(transaction, "Update Script Set Code=?,Name=?,Type=?,ScrCls=?,NCode=? Where Id=?",
                "ttiiti"),
        insert_(transaction,
                "Insert Into Script(Id,Code,Name,Type,ScrCls,NCode) Values(?,?,?,?,?,?)",
                "ittiit") {}

  void Write(const ImportedScrip& scrip) {
    const int type = types_.KeyOf(scrip.type);
    const int scrip_class = classes_.KeyOf(scrip.scrip_class);
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

  void Finish(std::optional<text::Date> day) {
    update_.Finish();
    insert_.Finish();
    rates::KeepIsins(transaction_, seen_, day);
    database::KeepKeys(transaction_, "Script", next_);
  }

 private:
  Transaction& transaction_;
  int next_;
  NameKeys classes_;
  NameKeys types_;
  BulkWriter update_;
  BulkWriter insert_;
  std::vector<rates::SeenIsin> seen_;
};

void Write(Transaction& transaction, const std::vector<ImportedScrip>& scrips,
           std::optional<text::Date> day, Progress& progress) {
  ScripWriter writer(transaction);
  progress.Begin(Tr("Imports", "Saving scrips"), static_cast<std::int64_t>(scrips.size()));
  for (std::size_t done = 0; done < scrips.size(); ++done) {
    if (scrips[done].state != ScripState::kUnchanged) {
      writer.Write(scrips[done]);
    }
    progress.Step(static_cast<std::int64_t>(done + 1));
    progress.ThrowIfCancelled();
  }
  writer.Finish(day);
}

}  // namespace

std::vector<ImportedScrip> PlanImport(database::Connection& connection, const PriceFile& file) {
  StoredScrips stored(connection);
  std::vector<ImportedScrip> plan;
  plan.reserve(file.rows.size());
  for (const PriceRow& row : file.rows) {
    const ImportedScrip* scrip = stored.Of(row);
    plan.push_back(scrip == nullptr
                       ? NewScrip(row)
                       : Changed(*scrip, row, file, stored.IsNewIsin(scrip->id, row.isin)));
  }
  return plan;
}

ImportCounts CountStates(const std::vector<ImportedScrip>& scrips) {
  ImportCounts counts;
  for (const ImportedScrip& scrip : scrips) {
    switch (scrip.state) {
      case ScripState::kNew:
        ++counts.added;
        break;
      case ScripState::kChanged:
        ++counts.changed;
        break;
      case ScripState::kUnchanged:
        ++counts.unchanged;
        break;
    }
  }
  return counts;
}

ImportCounts ImportScrips(database::Connection& connection, const PriceFile& file,
                          Progress& progress) {
  ImportCounts counts;
  database::InTransaction(connection, [&](Transaction& transaction) {
    // The key is asked for first: a second writer then waits until this one has ended.
    database::FirstFreeKey(transaction, "Script");
    const std::vector<ImportedScrip> plan = PlanImport(transaction.GetConnection(), file);
    counts = CountStates(plan);
    Write(transaction, plan, file.date, progress);
  });
  return counts;
}

}  // namespace quorvane::imports
