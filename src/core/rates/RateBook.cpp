#include "core/rates/RateBook.h"

#include "core/database/BulkWriter.h"
#include "core/database/DateSql.h"
#include "core/database/Keys.h"
#include "core/database/Transaction.h"
#include "core/records/Rates.h"
#include "core/records/Writing.h"
#include "core/text/FinancialYear.h"
#include "core/text/Tr.h"

#include <map>

namespace quorvane::rates {
namespace {

using database::BulkWriter;
using database::Connection;
using database::Transaction;
using records::MarketRate;

/// As SQL compares dates: "2011-06-15".
QString SqlDay(text::Date date) {
  const QString dmy = text::FormatDmy(date);
  return QStringLiteral("%1-%2-%3").arg(dmy.right(4), dmy.mid(3, 2), dmy.left(2));
}

/// What a save does to the rows of one day.
struct Changes {
  std::vector<std::pair<MarketRate, double>> updates;  ///< as it is stored, and the new rate
  std::vector<MarketRate> deletes;
  std::vector<ScripRate> inserts;

  std::size_t Count() const { return updates.size() + deletes.size() + inserts.size(); }
};

Changes CompareWithStored(Transaction& transaction, const QString& day,
                          const std::map<ScripId, double>& rates) {
  std::map<ScripId, MarketRate> stored;
  records::Select<MarketRate>(transaction.GetConnection())
      .Where(&MarketRate::date, day)
      .ForUpdate()
      .Each([&](const MarketRate& rate) { stored.try_emplace(rate.scrip, rate); });
  Changes changes;
  for (const auto& [scrip, rate] : rates) {
    const auto found = stored.find(scrip);
    if (found == stored.end()) {
      if (rate > 0) {
        changes.inserts.push_back({scrip, rate});
      }
    } else if (!(rate > 0)) {
      changes.deletes.push_back(found->second);
    } else if (found->second.rate != rate) {
      changes.updates.emplace_back(found->second, rate);
    }
  }
  return changes;
}

/// One entry of the log for all rates of the day: of a few that were typed with their values, of a
/// file with their number. The new rows are noted as they are written.
void NoteChanges(Transaction& transaction, const Changes& changes, const QString& day) {
  constexpr std::size_t kByHand = 200;
  if (changes.Count() == 0) {
    return;
  }
  if (changes.Count() > kByHand) {
    transaction.Changes().Summarise(changes::Kind::kRates, day);
  }
  records::Notes<MarketRate> notes(transaction.Changes(), "MarketRate",
                                   records::Notes<MarketRate>::Of::kWriting);
  for (const MarketRate& stored : changes.deletes) {
    notes.Removed(stored);
  }
  for (const auto& [stored, rate] : changes.updates) {
    notes.Removed(stored);
    MarketRate changed = stored;
    changed.rate = rate;
    notes.Added(changed);
  }
  transaction.Changes().Is(changes::Kind::kRates);
}

void Update(Transaction& transaction, const Changes& changes) {
  if (!changes.updates.empty()) {
    BulkWriter writer(transaction, "Update MarketRate Set Rate=? Where Id=?", "di");
    for (const auto& [stored, rate] : changes.updates) {
      writer.Double(rate).Int(stored.id).EndRow();
    }
    writer.Finish();
  }
  if (!changes.deletes.empty()) {
    BulkWriter writer(transaction, "Delete From MarketRate Where Id=?", "i");
    for (const MarketRate& stored : changes.deletes) {
      writer.Int(stored.id).EndRow();
    }
    writer.Finish();
  }
}

void Insert(Transaction& transaction, text::Date date, const QString& day, const Changes& changes) {
  if (changes.inserts.empty()) {
    return;
  }
  const text::FinancialYear year = text::FinancialYear::Of(date);
  records::Writer<MarketRate> writer(transaction);
  int next =
      database::NextKeys(transaction, "MarketRate", static_cast<int>(changes.inserts.size()));
  for (const ScripRate& rate : changes.inserts) {
    writer.Write({year, next++, day, rate.scrip, rate.rate});
  }
  writer.Finish();
}

}  // namespace

MaybeRefusal CheckRateDate(const QString& date, text::Date today) {
  const auto day = text::ParseDmy(date);
  if (!day) {
    return Refusal{Tr("Rates", "Enter Date."), Field::kDate};
  }
  if (*day > today) {
    return Refusal{Tr("Rates", "You can't insert future Date"), Field::kDate};
  }
  return std::nullopt;
}

RateBook::RateBook(Connection& connection) : connection_(connection) {}

std::unordered_map<ScripId, double> RateBook::RatesOf(text::Date date) const {
  std::unordered_map<ScripId, double> rates;
  for (const auto& row :
       connection_.Open("Select ScrId,Rate From MarketRate Where MDate=? and Rate>0 Order By Id",
                        text::FormatDmy(date))) {
    rates.try_emplace(ScripId{row.Int(0)}, row.Double(1));
  }
  return rates;
}

std::unordered_map<ScripId, DatedRate> RateBook::NewestUpTo(text::Date date) const {
  const std::string day = database::DateOf("MDate");
  std::unordered_map<ScripId, DatedRate> newest;
  for (const auto& row : connection_.Open(
           fmt::format("Select m.ScrId,m.MDate,m.Rate From MarketRate m Join (Select ScrId Scrip,"
                       "Max({0}) Day From MarketRate Where Rate>0 and {0}<=? Group By ScrId) n "
                       "On m.ScrId=n.Scrip and {1}=n.Day Where m.Rate>0 Order By m.Id",
                       day, database::DateOf("m.MDate")),
           SqlDay(date))) {
    if (const auto rate_day = text::ParseDmy(row.Utf8(1))) {
      newest.try_emplace(ScripId{row.Int(0)}, DatedRate{*rate_day, row.Double(2)});
    }
  }
  return newest;
}

std::vector<text::Date> RateBook::Dates() const {
  std::vector<text::Date> dates;
  for (const auto& row :
       connection_.Open(fmt::format("Select MDate From MarketRate Group By MDate Order By {} Desc",
                                    database::DateOf("MDate")))) {
    if (const auto date = text::ParseDmy(row.Utf8(0))) {
      dates.push_back(*date);
    }
  }
  return dates;
}

void RateBook::Save(text::Date date, std::span<const ScripRate> rates,
                    std::span<const SeenIsin> isins) {
  std::map<ScripId, double> by_scrip;
  for (const ScripRate& rate : rates) {
    by_scrip.insert_or_assign(rate.scrip, rate.rate);
  }
  const QString day = text::FormatDmy(date);
  database::InTransaction(connection_, [&](Transaction& transaction) {
    const Changes changes = CompareWithStored(transaction, day, by_scrip);
    NoteChanges(transaction, changes, day);
    Update(transaction, changes);
    Insert(transaction, date, day, changes);
    if (!isins.empty()) {
      KeepIsins(transaction, isins, date);
    }
  });
}

std::int64_t RateBook::DeleteDate(text::Date date) {
  std::int64_t deleted = 0;
  database::InTransaction(connection_, [&](Transaction& transaction) {
    deleted = transaction.Execute("Delete From MarketRate Where MDate=?", text::FormatDmy(date));
    if (deleted > 0) {
      transaction.Changes().Summarise(changes::Kind::kRates, text::FormatDmy(date));
      transaction.Changes().Of("MarketRate").removed_count += deleted;
    }
  });
  return deleted;
}

}  // namespace quorvane::rates
