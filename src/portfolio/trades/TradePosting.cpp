#include "portfolio/trades/TradePosting.h"

#include "core/records/Query.h"
#include "core/text/Tr.h"
#include "portfolio/Import.h"
#include "portfolio/SameDay.h"

#include <algorithm>

namespace quorvane::portfolio {

using database::Transaction;
using text::FinancialYear;
using text::Shares;

namespace {

/// How many faults a refusal names.
constexpr int kMostNamed = 20;

}  // namespace

MaybeRefusal TradePosting::Run() {
  ReadNumbers();
  GroupByYear();
  if (by_year_.empty()) {
    return std::nullopt;
  }
  TellOpposite();
  const FinancialYear last = by_year_.rbegin()->first;
  for (FinancialYear year = by_year_.begin()->first; year <= last; year = year.Next()) {
    if (MaybeRefusal refusal = PostYear(year, year == last)) {
      return refusal;
    }
  }
  NoteLaterYears(last);
  return std::nullopt;
}

void TradePosting::ReadNumbers() {
  for (const auto& row :
       transaction_.Open("Select BDate,BillNo From SPMaster Where Cid=? and AcId=? and BrokId=?",
                         target_.client, target_.account, target_.broker)) {
    if (const auto day = text::ParseDmy(row.Utf8(0))) {
      numbers_.emplace(*day, lookups::Folded(row.Utf8(1)));
    }
  }
}

void TradePosting::GroupByYear() {
  const std::vector<TradeLine>& lines = plan_.Lines();
  for (std::uint32_t place = 0; place < lines.size(); ++place) {
    if (lines[place].IsToBeSaved()) {
      by_year_[FinancialYear::Of(lines[place].day)].push_back(place);
    }
  }
}

/// Lots of the year before, of scrips that the year has no opening stock of. All of them where
/// the account has none at all; else those that the trades move.
std::vector<gains::RemainingLot> TradePosting::LotsInto(FinancialYear year) {
  std::set<ScripId> opened;
  records::Select<records::Opening>(transaction_.GetConnection())
      .Where(&records::Opening::client, target_.client)
      .Where(&records::Opening::year, year)
      .Where(&records::Opening::account, target_.account)
      .Only<&records::Opening::scrip>(
          [&](const records::Opening& opening) { opened.insert(opening.scrip); });
  WithinStep step(progress_, 0);
  std::vector<gains::RemainingLot> lots =
      gains::RemainingLots(transaction_.GetConnection(), target_.client, year.Previous(), step);
  const std::set<ScripId> moved = MovedFrom(year);
  std::erase_if(lots, [&](const gains::RemainingLot& lot) {
    return lot.account != target_.account || opened.contains(lot.scrip) ||
           (!opened.empty() && !moved.contains(lot.scrip));
  });
  return lots;
}

/// The scrips that the trades of the year and of later ones move.
std::set<ScripId> TradePosting::MovedFrom(FinancialYear year) const {
  std::set<ScripId> moved;
  for (auto own = by_year_.lower_bound(year); own != by_year_.end(); ++own) {
    for (const std::uint32_t place : own->second) {
      moved.insert(plan_.Scrips()[plan_.Lines()[place].scrip].scrip);
    }
  }
  return moved;
}

MaybeRefusal TradePosting::PostYear(FinancialYear year, bool is_last) {
  const std::vector<gains::RemainingLot> carried = LotsInto(year);
  const Movements movements = is_last ? movements_ : Movements::kWritten;
  const BillNumbers before = numbers_;
  for (bool done = false; !done;) {
    numbers_ = before;
    const lookups::Directory directory(transaction_.GetConnection());
    if (MaybeRefusal refusal = RefuseSharedCodes(directory)) {
      return refusal;
    }
    BillPortfolio portfolio(target_, plan_, directory);
    portfolio.AddCarried(carried, year);
    const std::vector<PlannedBill> bills = BillsOf(plan_, PossibleLines(year), numbers_);
    for (const PlannedBill& bill : bills) {
      portfolio.Add(bill);
    }
    ErrorList errors(plan_.Lines().size() + ErrorList::kMost, plan_.Lines().size());
    ImportResult result;
    if (!portfolio.IsEmpty()) {
      TakeIn(transaction_, portfolio.Get(), movements, errors, result, progress_);
    }
    done = errors.Empty();
    if (done) {
      Count(result, portfolio.Get());
      bills_.insert(bills_.end(), bills.begin(), bills.end());
    } else if (MaybeRefusal refusal = MarkShortages(errors)) {
      return refusal;
    }
  }
  return std::nullopt;
}

/// Where recorded bills of the same days have the other side of what is delivered.
void TradePosting::TellOpposite() {
  DayTotals fresh;
  for (const TradeLine& line : plan_.Lines()) {
    const ScripId scrip = plan_.Scrips()[line.scrip].scrip;
    if (line.IsToBeSaved() && !line.non_delivery && scrip) {
      fresh[{line.day, scrip}].Of(line.side) += line.quantity;
    }
  }
  database::Connection& connection = transaction_.GetConnection();
  const DayTotals recorded =
      DeliveredInBills(connection, {target_.client, target_.account, target_.broker}, {});
  outcome_.notes << OppositeInBills(fresh, recorded, lookups::Directory(connection));
}

std::vector<std::uint32_t> TradePosting::PossibleLines(FinancialYear year) const {
  const auto own = by_year_.find(year);
  std::vector<std::uint32_t> lines;
  if (own != by_year_.end()) {
    std::ranges::copy_if(own->second, std::back_inserter(lines),
                         [&](std::uint32_t place) { return plan_.Lines()[place].IsToBeSaved(); });
  }
  return lines;
}

/// Folders name scrips by their codes, so a code must name one scrip alone.
MaybeRefusal TradePosting::RefuseSharedCodes(const lookups::Directory& directory) const {
  for (const TradedScrip& scrip : plan_.Scrips()) {
    if (scrip.match != ScripMatch::kKnown) {
      continue;
    }
    const std::string& code = directory.Scrip(scrip.scrip).code;
    const lookups::ScripEntry* found = directory.FindScrip(code);
    if (found == nullptr || found->id != scrip.scrip) {
      return Refusal{Tr("Trades", "The script code %1 belongs to several scripts, or to none.")
                         .arg(QString::fromStdString(code)),
                     Field::kScrips};
    }
  }
  return std::nullopt;
}

void TradePosting::Count(const ImportResult& result, const Portfolio& portfolio) {
  outcome_.bills += portfolio.bills.size();
  outcome_.carried += portfolio.openings.size();
  std::set<std::uint32_t> trades;
  for (const BillLineRow& row : portfolio.bill_lines) {
    const TradeLine& line = plan_.Lines()[row.line - 1];
    trades.insert(line.trades.begin(), line.trades.end());
  }
  outcome_.trades += trades.size();
  outcome_.lines += portfolio.bill_lines.size();
  for (const ImportCount& count : result.counts) {
    outcome_.scrips += count.what == "scrips" ? count.added : 0;
  }
}

MaybeRefusal TradePosting::MarkShortages(ErrorList& errors) {
  QStringList others;
  for (const ImportError& error : errors.Errors()) {
    if (!error.available) {
      const bool has_line = error.line > 0 && error.line <= plan_.Lines().size();
      const QString name =
          has_line ? plan_.NameOf(plan_.Lines()[error.line - 1]) + QStringLiteral(": ") : QString();
      others << name + QString::fromStdString(error.message);
      continue;
    }
    const std::size_t place = error.line - 1;
    const Shares available = std::max(*error.available, Shares());
    plan_.MarkImpossible(place, plan_.Lines()[place].quantity - available);
  }
  return others.isEmpty()
             ? MaybeRefusal()
             : Refusal{others.mid(0, kMostNamed).join(QLatin1Char('\n')), Field::kLines};
}

void TradePosting::NoteLaterYears(FinancialYear last) {
  std::set<FinancialYear> later;
  records::Select<records::Opening>(transaction_.GetConnection())
      .Where(&records::Opening::client, target_.client)
      .Where(&records::Opening::account, target_.account)
      .Only<&records::Opening::year>([&](const records::Opening& opening) {
        if (opening.year > last) {
          later.insert(opening.year);
        }
      });
  for (const FinancialYear year : later) {
    outcome_.notes << Tr("Trades",
                         "The opening stock of %1 is older than these trades: compare it.")
                          .arg(year.Text());
  }
}

}  // namespace quorvane::portfolio
