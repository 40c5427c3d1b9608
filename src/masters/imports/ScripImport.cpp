#include "masters/imports/ScripImport.h"

#include "core/database/Keys.h"
#include "core/lookups/Directory.h"
#include "core/text/Tr.h"
#include "masters/imports/ScripWriter.h"
#include "masters/imports/StoredScrips.h"

namespace quorvane::imports {
namespace {

using database::Transaction;
using lookups::Folded;
using rates::PriceFile;
using rates::PriceRow;

constexpr std::string_view kDefaultType = "EQUITY";

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
    transaction.Changes().Summarise(changes::Kind::kImported, Tr("Imports", "Scrips"));
    // The key is asked for first: a second writer then waits until this one has ended.
    database::FirstFreeKey(transaction, "Script");
    const std::vector<ImportedScrip> plan = PlanImport(transaction.GetConnection(), file);
    counts = CountStates(plan);
    Write(transaction, plan, file.date, progress);
  });
  return counts;
}

}  // namespace quorvane::imports
