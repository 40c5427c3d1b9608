#include "core/records/OpeningMark.h"
#include "core/records/StatementCheck.h"
#include "core/records/Writing.h"
#include "portfolio/ImportSteps.h"
#include "portfolio/RecordedDocuments.h"
#include "portfolio/trades/TradeIdentity.h"
#include "portfolio/trades/TradeMemory.h"

#include <map>
#include <set>
#include <tuple>

namespace quorvane::portfolio {
namespace {

using database::Transaction;
using records::OpeningMark;
using text::FinancialYear;

auto KeyOf(const OpeningMark& mark) {
  return std::tuple(mark.client, mark.year, mark.account, mark.scrip);
}

/// What the database has of the clients and years of marks.
class MarkedStock {
 public:
  explicit MarkedStock(database::Connection& connection) : connection_(connection) {}

  bool HasOpening(const OpeningMark& mark) {
    Read({mark.client, mark.year});
    return openings_.contains(KeyOf(mark));
  }
  bool IsNew(const OpeningMark& mark) { return marks_.insert(KeyOf(mark)).second; }

 private:
  using Keys = std::set<std::tuple<ClientId, FinancialYear, AccountId, ScripId>>;

  void Read(const ClientYear& of) {
    if (!read_.insert({of.client, of.year}).second) {
      return;
    }
    for (const auto& opening : records::Select<records::Opening>(connection_)
                                   .Where(&records::Opening::client, of.client)
                                   .Where(&records::Opening::year, of.year)
                                   .All()) {
      openings_.emplace(opening.client, opening.year, opening.account, opening.scrip);
    }
    for (const OpeningMark& mark : records::Select<OpeningMark>(connection_)
                                       .Where(&OpeningMark::client, of.client)
                                       .Where(&OpeningMark::year, of.year)
                                       .All()) {
      marks_.insert(KeyOf(mark));
    }
  }

  database::Connection& connection_;
  std::set<std::pair<ClientId, FinancialYear>> read_;
  Keys openings_;
  Keys marks_;
};

void ImportOpeningMarks(Transaction& transaction, const Portfolio& portfolio,
                        const ResolvedNames& names, ErrorList& errors, ImportResult& result) {
  MarkedStock stock(transaction.GetConnection());
  records::Writer<OpeningMark> writer(transaction);
  std::size_t added = 0;
  for (const OpeningMarkRow& row : portfolio.opening_marks) {
    OpeningMark mark;
    mark.client = names.clients[row.client];
    mark.year = row.year;
    mark.scrip = names.scrips[row.scrip];
    const auto account = names.AccountOrNone(portfolio, mark.client, row.account);
    mark.account = account.value_or(AccountId{});
    if (!account || !stock.HasOpening(mark)) {
      errors.Add(FileKind::kOpeningMarks, row.line, "scrip_code",
                 "expected opening stock of the scrip in the account and year");
    } else if (stock.IsNew(mark)) {
      writer.Write(mark);
      ++added;
    }
  }
  writer.Finish();
  result.Count(QT_TRANSLATE_NOOP("Portfolio", "opening stock without cost"), added);
}

class TradeKeyImport {
 public:
  TradeKeyImport(Transaction& transaction, const Portfolio& portfolio, const ResolvedNames& names,
                 ErrorList& errors)
      : transaction_(transaction), portfolio_(portfolio), names_(names), errors_(errors) {}

  std::size_t Run() {
    for (const TradeKeyRow& row : portfolio_.trade_keys) {
      if (const auto account = names_.Account(names_.clients[row.client], row.account)) {
        Take(row, *account);
      } else {
        errors_.Add(FileKind::kTradeKeys, row.line, "account_no",
                    "expected an account of the client");
      }
    }
    std::size_t added = 0;
    for (const auto& [account, trades] : taken_) {
      RememberTrades(transaction_, account, trades);
      added += trades.size();
    }
    return added;
  }

 private:
  using Known = std::map<std::string, BillId>;

  void Take(const TradeKeyRow& row, AccountId account) {
    const BillId bill = BillOf(row, account);
    if (!bill) {
      errors_.Add(FileKind::kTradeKeys, row.line, "bill_no",
                  "expected a bill of bills.csv, or one that is recorded");
      return;
    }
    const std::string scrip =
        row.scrip ? std::to_string(names_.scrips[*row.scrip].value) : std::string();
    const std::string key = row.scrip ? WithScrip(row.key, scrip) : row.key;
    const auto [known, fresh] = KnownOf(account).try_emplace(key, bill);
    if (fresh) {
      taken_[account].push_back({key, bill});
    } else if (known->second != bill) {
      errors_.Add(FileKind::kTradeKeys, row.line, "trade_key",
                  "this trade is in another bill already");
    }
  }

  /// The bill of those parts in the order of their keys, which is that of bills.csv.
  BillId BillOf(const TradeKeyRow& row, AccountId account) {
    records::Bill wanted;
    wanted.client = names_.clients[row.client];
    wanted.account = account;
    wanted.broker = names_.brokers[row.broker];
    wanted.date = text::FormatDmy(row.bill_date);
    wanted.number = QString::fromUtf8(row.bill_number);
    ReadBills({wanted.client, FinancialYear::Of(row.bill_date)});
    const auto found = bills_.find(SharedByParts(wanted));
    return found == bills_.end() || row.bill_part > found->second.size()
               ? BillId{}
               : found->second[row.bill_part - 1];
  }

  void ReadBills(const ClientYear& of) {
    if (!read_.insert({of.client, of.year}).second) {
      return;
    }
    for (const records::Bill& bill : records::Select<records::Bill>(transaction_.GetConnection())
                                         .Where(&records::Bill::client, of.client)
                                         .Where(&records::Bill::year, of.year)
                                         .OrderBy(&records::Bill::id)
                                         .All()) {
      bills_[SharedByParts(bill)].push_back(bill.id);
    }
  }

  /// The trades of an account that are in bills, with those of the file so far.
  Known& KnownOf(AccountId account) {
    const auto [entry, fresh] = known_.try_emplace(account);
    if (fresh) {
      entry->second = TakenTradeBills(transaction_.GetConnection(), account);
    }
    return entry->second;
  }

  Transaction& transaction_;
  const Portfolio& portfolio_;
  const ResolvedNames& names_;
  ErrorList& errors_;
  std::set<std::pair<ClientId, FinancialYear>> read_;
  std::map<std::string, std::vector<BillId>> bills_;  ///< those told apart by parts, by key
  std::map<AccountId, Known> known_;
  std::map<AccountId, std::vector<TakenTrade>> taken_;
};

/// Of two comparisons with a statement of one account and day the recorded one stays.
void ImportStatementChecks(Transaction& transaction, const Portfolio& portfolio,
                           const ResolvedNames& names, ErrorList& errors, ImportResult& result) {
  using records::StatementCheck;
  std::set<std::pair<AccountId, QString>> known;
  if (!portfolio.statement_checks.empty()) {
    records::Select<StatementCheck>(transaction.GetConnection())
        .Each([&](const StatementCheck& check) {
          known.emplace(check.account, check.statement_day);
        });
  }
  records::Writer<StatementCheck> writer(transaction);
  std::size_t added = 0;
  for (const StatementCheckRow& row : portfolio.statement_checks) {
    StatementCheck check = row.record;
    check.client = names.clients[row.client];
    const auto account = names.Account(check.client, row.account);
    if (!account) {
      errors.Add(FileKind::kStatementChecks, row.line, "account_no",
                 "expected an account of the client");
    } else if (known.emplace(*account, check.statement_day).second) {
      check.account = *account;
      writer.Write(check);
      ++added;
    }
  }
  writer.Finish();
  result.Count(QT_TRANSLATE_NOOP("Portfolio", "comparisons with statements"), added);
}

}  // namespace

void ImportMarks(Transaction& transaction, const Portfolio& portfolio, const ResolvedNames& names,
                 ErrorList& errors, ImportResult& result) {
  ImportOpeningMarks(transaction, portfolio, names, errors, result);
  result.Count(QT_TRANSLATE_NOOP("Portfolio", "trades of brokers' files"),
               TradeKeyImport(transaction, portfolio, names, errors).Run());
  ImportStatementChecks(transaction, portfolio, names, errors, result);
}

}  // namespace quorvane::portfolio
