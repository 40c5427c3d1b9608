#include "portfolio/trades/TradeImport.h"

#include "core/rates/IsinBook.h"
#include "core/records/Query.h"
#include "core/text/Amounts.h"
#include "core/text/Isin.h"
#include "core/text/Tr.h"
#include "portfolio/Import.h"
#include "portfolio/trades/TradeBills.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

namespace quorvane::portfolio {
namespace {

using database::Transaction;
using text::FinancialYear;
using text::Shares;

/// How many open or impossible lines a refusal names.
constexpr int kMostNamed = 20;

QString NameOf(const TradePlan& plan, const TradeLine& line) {
  return QString::fromStdString(plan.Scrips()[line.scrip].naming.Shown());
}

/// "RELIANCE, 27/06/2022: 10.00 shares are missing".
QString Told(const TradePlan& plan, const TradeLine& line) {
  const QString where = NameOf(plan, line) + QStringLiteral(", ") + text::FormatDmy(line.day);
  return line.state == LineState::kImpossible
             ? Tr("Trades", "%1: %2 shares that were sold are missing")
                   .arg(where, text::FormatAmount(line.missing.Number()))
             : where + QStringLiteral(": ") + TextOf(line.state);
}

/// What keeps the ticked lines from being saved.
MaybeRefusal RefuseOpen(const TradePlan& plan) {
  QStringList named;
  std::size_t open = 0;
  std::size_t ready = 0;
  std::set<std::tuple<std::uint32_t, LineState>> told;
  for (const TradeLine& line : plan.Lines()) {
    ready += line.IsToBeSaved() ? 1 : 0;
    if (!line.IsOpen()) {
      continue;
    }
    ++open;
    const bool once = line.state != LineState::kImpossible;
    if (named.size() < kMostNamed && (!once || told.emplace(line.scrip, line.state).second)) {
      named << Told(plan, line);
    }
  }
  if (open > 0) {
    return Refusal{Tr("Trades", "Nothing was saved. %1 lines cannot be saved as they are:\n%2")
                       .arg(static_cast<qulonglong>(open))
                       .arg(named.join(QLatin1Char('\n'))),
                   Field::kLines};
  }
  if (ready == 0) {
    return Refusal{Tr("Trades", "There is nothing new to save."), Field::kLines};
  }
  return std::nullopt;
}

/// Whether no ticked line waits for its scrip.
bool IsSettled(const TradePlan& plan) {
  return std::ranges::none_of(plan.Lines(), [](const TradeLine& line) {
    return line.IsOpen() && line.state != LineState::kImpossible;
  });
}

/// One import in its transaction, year by year.
class TradePosting {
 public:
  TradePosting(Transaction& transaction, const TradeTarget& target, TradePlan& plan,
               Movements movements, Progress& progress)
      : transaction_(transaction),
        target_(target),
        plan_(plan),
        movements_(movements),
        progress_(progress) {}

  MaybeRefusal Run() {
    ReadNumbers();
    GroupByYear();
    if (by_year_.empty()) {
      return std::nullopt;
    }
    const FinancialYear last = by_year_.rbegin()->first;
    for (FinancialYear year = by_year_.begin()->first; year <= last; year = year.Next()) {
      if (MaybeRefusal refusal = PostYear(year, year == last)) {
        return refusal;
      }
    }
    NoteLaterYears(last);
    return std::nullopt;
  }

  /// After all years were written: what later imports know these trades by.
  void Remember(const std::vector<MappedHeader>& headers) {
    const std::vector<ScripId> scrips = WrittenScrips();
    RememberTrades(transaction_, target_.account, WrittenTrades(plan_.Keys(scrips)));
    ConfirmedScrips confirmed;
    std::set<std::pair<ScripId, std::string>> isins;
    for (const PlannedBill& bill : bills_) {
      for (const std::uint32_t place : bill.lines) {
        const std::uint32_t scrip = plan_.Lines()[place].scrip;
        const std::string& isin = plan_.Scrips()[scrip].naming.isin;
        if (text::IsValidIsin(isin)) {
          isins.emplace(scrips[scrip], isin);
        }
      }
    }
    for (std::size_t place = 0; place < scrips.size(); ++place) {
      const TradedScrip& scrip = plan_.Scrips()[place];
      if (scrip.confirmed && scrips[place]) {
        confirmed[ConfirmedName(scrip.naming)] = scrips[place];
      }
    }
    RememberScrips(transaction_, target_.broker, confirmed);
    std::vector<quorvane::rates::SeenIsin> seen;
    seen.reserve(isins.size());
    for (const auto& [scrip, isin] : isins) {
      seen.push_back({scrip, isin});
    }
    quorvane::rates::KeepIsins(transaction_, seen, std::nullopt);
    for (const MappedHeader& header : headers) {
      RememberColumns(transaction_, header.header_text, header.map);
    }
    NameEntry();
  }

  const TradeOutcome& Outcome() const { return outcome_; }

 private:
  void ReadNumbers() {
    for (const auto& row :
         transaction_.Open("Select BDate,BillNo From SPMaster Where Cid=? and AcId=? and BrokId=?",
                           target_.client, target_.account, target_.broker)) {
      if (const auto day = text::ParseDmy(row.Utf8(0))) {
        numbers_.emplace(*day, lookups::Folded(row.Utf8(1)));
      }
    }
  }

  void GroupByYear() {
    const std::vector<TradeLine>& lines = plan_.Lines();
    for (std::uint32_t place = 0; place < lines.size(); ++place) {
      if (lines[place].IsToBeSaved()) {
        by_year_[FinancialYear::Of(lines[place].day)].push_back(place);
      }
    }
  }

  /// Lots of the year before, of scrips that the year has no opening stock of. All of them where
  /// the account has none at all; else those that the trades move.
  std::vector<gains::RemainingLot> LotsInto(FinancialYear year) {
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
  std::set<ScripId> MovedFrom(FinancialYear year) const {
    std::set<ScripId> moved;
    for (auto own = by_year_.lower_bound(year); own != by_year_.end(); ++own) {
      for (const std::uint32_t place : own->second) {
        moved.insert(plan_.Scrips()[plan_.Lines()[place].scrip].scrip);
      }
    }
    return moved;
  }

  MaybeRefusal PostYear(FinancialYear year, bool is_last) {
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

  std::vector<std::uint32_t> PossibleLines(FinancialYear year) const {
    const auto own = by_year_.find(year);
    std::vector<std::uint32_t> lines;
    if (own != by_year_.end()) {
      std::ranges::copy_if(own->second, std::back_inserter(lines),
                           [&](std::uint32_t place) { return plan_.Lines()[place].IsToBeSaved(); });
    }
    return lines;
  }

  /// Folders name scrips by their codes, so a code must name one scrip alone.
  MaybeRefusal RefuseSharedCodes(const lookups::Directory& directory) const {
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

  void Count(const ImportResult& result, const Portfolio& portfolio) {
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

  MaybeRefusal MarkShortages(ErrorList& errors) {
    QStringList others;
    for (const ImportError& error : errors.Errors()) {
      if (!error.available) {
        const bool has_line = error.line > 0 && error.line <= plan_.Lines().size();
        const QString name =
            has_line ? NameOf(plan_, plan_.Lines()[error.line - 1]) + QStringLiteral(": ")
                     : QString();
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

  void NoteLaterYears(FinancialYear last) {
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

  /// The log is to name the whole file, not the first of its bills or a new scrip.
  void NameEntry() {
    const QString title = Tr("Trades", "Trade book, %1 bills").arg(qulonglong{bills_.size()});
    const std::string year = FinancialYear::Of(bills_.front().day).Utf8();
    transaction_.Changes().Is(changes::Kind::kImported,
                              {.client = target_.client.value, .year = year, .title = title});
  }

  /// The scrips by their places, those that were new with the keys that they got.
  std::vector<ScripId> WrittenScrips() {
    const lookups::Directory directory(transaction_.GetConnection());
    std::vector<ScripId> scrips = plan_.KnownScrips();
    for (std::size_t place = 0; place < scrips.size(); ++place) {
      const TradedScrip& scrip = plan_.Scrips()[place];
      if (scrip.match == ScripMatch::kNew) {
        const auto* found = directory.FindScrip(NewCode(scrip.naming).toStdString());
        scrips[place] = found == nullptr ? ScripId{} : found->id;
      }
    }
    return scrips;
  }

  std::vector<TakenTrade> WrittenTrades(const std::vector<std::string>& keys) {
    std::map<std::tuple<std::string, std::string, std::string>, BillId> ids;
    for (const auto& row : transaction_.Open(
             "Select M.ID,M.BDate,M.BillNo,E.ExName From SPMaster M Join Exchange E On E.Id=M.ExId "
             "Where M.Cid=? and M.AcId=? and M.BrokId=?",
             target_.client, target_.account, target_.broker)) {
      ids[{std::string(row.Utf8(1)), lookups::Folded(row.Utf8(2)), lookups::Folded(row.Utf8(3))}] =
          BillId{row.Int(0)};
    }
    std::map<std::uint32_t, BillId> of_trades;
    for (const PlannedBill& bill : bills_) {
      const BillId id = ids.at({text::FormatDmy(bill.day).toStdString(),
                                lookups::Folded(bill.number), lookups::Folded(bill.exchange)});
      for (const std::uint32_t place : bill.lines) {
        for (const std::uint32_t trade : plan_.Lines()[place].trades) {
          of_trades.emplace(trade, id);
        }
      }
    }
    std::vector<TakenTrade> taken;
    taken.reserve(of_trades.size());
    for (const auto& [trade, id] : of_trades) {
      taken.push_back({keys[trade], id});
    }
    return taken;
  }

  Transaction& transaction_;
  const TradeTarget& target_;
  TradePlan& plan_;
  Movements movements_;
  Progress& progress_;
  BillNumbers numbers_;
  std::map<FinancialYear, std::vector<std::uint32_t>> by_year_;  ///< places of lines
  std::vector<PlannedBill> bills_;
  TradeOutcome outcome_;
};

}  // namespace

Result<TradeOutcome> CheckTrades(database::Connection& connection, const TradeTarget& target,
                                 TradePlan& plan, Progress& progress) {
  TradeOutcome outcome;
  MaybeRefusal wrong;
  const auto look = [&](Transaction& transaction) -> MaybeRefusal {
    plan.ForgetImpossible();
    TradePosting posting(transaction, target, plan, Movements::kChecked, progress);
    wrong = posting.Run();
    outcome = posting.Outcome();
    // The refusal only rolls back.
    return Refusal{};
  };
  static_cast<void>(database::InTransaction(connection, look, database::Turn::kAlone));
  if (wrong) {
    return *wrong;
  }
  return outcome;
}

Result<TradeOutcome> SaveTrades(database::Connection& connection, const TradeTarget& target,
                                TradePlan& plan, const std::vector<MappedHeader>& headers,
                                Progress& progress) {
  // Shares that were missing may have come in since the last look.
  if (!IsSettled(plan)) {
    return *RefuseOpen(plan);
  }
  plan.ForgetImpossible();
  if (const MaybeRefusal nothing = RefuseOpen(plan)) {
    return *nothing;
  }
  const auto save = [&](Transaction& transaction) -> Result<TradeOutcome> {
    database::Connection& stored = transaction.GetConnection();
    if (plan.IsOutdated({TakenTrades(stored, target.account),
                         EnteredTotals(stored, target.client, target.account)})) {
      return Refusal{Tr("Trades",
                        "Nothing was saved: trades of the file, or bills of their days, were "
                        "recorded meanwhile. Open the file again."),
                     Field::kLines};
    }
    plan.ForgetImpossible();  // of an earlier try
    TradePosting posting(transaction, target, plan, Movements::kWritten, progress);
    if (const MaybeRefusal wrong = posting.Run()) {
      return *wrong;
    }
    if (plan.Count(LineState::kImpossible) > 0) {
      return *RefuseOpen(plan);
    }
    posting.Remember(headers);
    return posting.Outcome();
  };
  return database::InTransaction(connection, save, database::Turn::kAlone);
}

}  // namespace quorvane::portfolio
