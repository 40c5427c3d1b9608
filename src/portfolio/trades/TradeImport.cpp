#include "portfolio/trades/TradeImport.h"

#include "core/rates/IsinBook.h"
#include "core/text/Amounts.h"
#include "core/text/Isin.h"
#include "core/text/Tr.h"
#include "portfolio/trades/TradePosting.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>

namespace quorvane::portfolio {
namespace {

using database::Transaction;
using text::FinancialYear;

/// How many open or impossible lines a refusal names.
constexpr int kMostNamed = 20;

/// "RELIANCE, 27/06/2022: 10.00 shares are missing".
QString Told(const TradePlan& plan, const TradeLine& line) {
  const QString where = plan.NameOf(line) + QStringLiteral(", ") + text::FormatDmy(line.day);
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

/// What was bought and sold without delivery comes in together, or not at all.
MaybeRefusal RefuseUnpaired(const TradePlan& plan) {
  std::map<std::pair<text::Date, std::uint32_t>, text::Shares> open;
  for (const TradeLine& line : plan.Lines()) {
    if (line.IsToBeSaved() && line.non_delivery) {
      const bool bought = line.side == records::Side::kPurchase;
      open[{line.day, line.scrip}] += bought ? line.quantity : -line.quantity;
    }
  }
  QStringList named;
  for (const auto& [of, shares] : open) {
    if (shares && named.size() < kMostNamed) {
      named << QString::fromStdString(plan.Scrips()[of.second].naming.Shown()) +
                   QStringLiteral(", ") + text::FormatDmy(of.first);
    }
  }
  return named.isEmpty()
             ? MaybeRefusal()
             : Refusal{Tr("Trades",
                          "Nothing was saved. What was bought and what was sold without delivery "
                          "must be of one quantity, and ticked together:\n%1")
                           .arg(named.join(QLatin1Char('\n'))),
                       Field::kLines};
}

/// Whether no ticked line waits for its scrip.
bool IsSettled(const TradePlan& plan) {
  return std::ranges::none_of(plan.Lines(), [](const TradeLine& line) {
    return line.IsOpen() && line.state != LineState::kImpossible;
  });
}

/// What later imports know the trades of this one by. To be kept after all its years were posted.
class TradeTraces {
 public:
  TradeTraces(Transaction& transaction, const TradeTarget& target, const TradePlan& plan,
              const std::vector<PlannedBill>& bills)
      : transaction_(transaction), target_(target), plan_(plan), bills_(bills) {}

  void Keep(const std::vector<MappedHeader>& headers) {
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

 private:
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
  const TradePlan& plan_;
  const std::vector<PlannedBill>& bills_;
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
  if (const MaybeRefusal unpaired = RefuseUnpaired(plan)) {
    return *unpaired;
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
    TradeTraces(transaction, target, plan, posting.Bills()).Keep(headers);
    return posting.Outcome();
  };
  return database::InTransaction(connection, save, database::Turn::kAlone);
}

}  // namespace quorvane::portfolio
