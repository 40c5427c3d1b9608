#include "portfolio/reconcile/OpeningFromStatement.h"

#include "core/lookups/Directory.h"
#include "core/rates/IsinBook.h"
#include "core/text/Amounts.h"
#include "core/text/Csv.h"
#include "core/text/Tr.h"
#include "portfolio/Import.h"
#include "portfolio/reconcile/OpeningMarks.h"

namespace quorvane::reconcile {
namespace {

constexpr qsizetype kMostListed = 10;

QString Listed(const QStringList& texts) {
  QString list = texts.mid(0, kMostListed).join(QLatin1Char('\n'));
  return texts.size() > kMostListed ? list + QStringLiteral("\n...") : list;
}

/// A lot of the opening stock.
struct Lot {
  OpeningMark mark;
  std::string account;
  std::string scrip;
};

MaybeRefusal CheckWhole(const Statement& statement, const StatementOwner& owner) {
  if (!statement.doubts.empty()) {
    QStringList doubts;
    for (const Doubt& doubt : statement.doubts) {
      doubts << QString::fromStdString(doubt.text);
    }
    return Refusal{
        Tr("Reconcile", "Rows of the Statement could not be Understood:\n%1").arg(Listed(doubts))};
  }
  if (!owner.unknown.isEmpty()) {
    return Refusal{Tr("Reconcile", "Enter these Demat Accounts of the Client First:\n%1")
                       .arg(Listed(owner.unknown)),
                   Field::kAccount};
  }
  return std::nullopt;
}

Result<std::vector<Lot>> LotsOf(database::Connection& connection, const Statement& statement,
                                const StatementOwner& owner, const ReconcileQuery& query) {
  const rates::Isins isins(connection);
  const lookups::Directory directory(connection);
  const auto year = text::FinancialYear::Of(owner.day + std::chrono::days(1));
  std::vector<Lot> lots;
  QStringList unknown;
  for (const StatedHolding& stated : statement.holdings) {
    if (stated.quantity <= Shares()) {
      continue;
    }
    const std::vector<ScripId> scrips = isins.ScripsOf(stated.isin);
    const std::string code = scrips.empty() ? std::string() : directory.Scrip(scrips.front()).code;
    if (code.empty()) {
      unknown << QString::fromStdString(stated.isin + " " + stated.name);
      continue;
    }
    const AccountId account = owner.accounts.at(stated.account);
    lots.push_back({{query.client, year, account, scrips.front(), stated.quantity},
                    directory.Account(account).number,
                    code});
  }
  if (!unknown.isEmpty()) {
    return Refusal{Tr("Reconcile",
                      "These Securities are of no Script with a Code. Assign their ISINs, or "
                      "Import the Scripts from an Exchange's Price File:\n%1")
                       .arg(Listed(unknown)),
                   Field::kScrip};
  }
  if (lots.empty()) {
    return Refusal{Tr("Reconcile", "The Statement has no Holdings to Take In.")};
  }
  return lots;
}

std::string OpeningFile(std::span<const Lot> lots, const std::string& client, text::Date day) {
  std::string out = "client_code,account_no,fyear,scrip_code,quantity,rate,purchase_date\n";
  for (const Lot& lot : lots) {
    text::AppendCsvField(out, client);
    out += ',';
    text::AppendCsvField(out, lot.account);
    out += ',';
    out += lot.mark.year.Utf8();
    out += ',';
    text::AppendCsvField(out, lot.scrip);
    out += ',';
    text::AppendExact(out, lot.mark.quantity.Number());
    out += ",0,";
    text::AppendDmy(out, day);
    out += '\n';
  }
  return out;
}

MaybeRefusal RefuseRecords(database::Transaction& transaction, ClientId client) {
  for (const char* query :
       {"Select 1 From StkOpBal Where CId=? Limit 1", "Select 1 From SPMaster Where Cid=? Limit 1",
        "Select 1 From ScrTransfer Where Cid=? or ToClientID=? Limit 1"}) {
    const bool both = std::string_view(query).find("ToClientID") != std::string_view::npos;
    auto rows = both ? transaction.Open(query, client, client) : transaction.Open(query, client);
    if (rows.Next()) {
      return Refusal{Tr("Reconcile",
                        "The Client has Records Already. Opening Stock is Taken from a Statement "
                        "for a New Client Only.")};
    }
  }
  return std::nullopt;
}

}  // namespace

Result<std::size_t> TakeInAsOpening(database::Connection& connection, const Statement& statement,
                                    const ReconcileQuery& query, Progress& progress) {
  const Result<StatementOwner> owner = OwnerOf(connection, statement, query);
  if (!owner) {
    return owner.Why();
  }
  if (const MaybeRefusal refusal = CheckWhole(statement, *owner)) {
    return *refusal;
  }
  const Result<std::vector<Lot>> lots = LotsOf(connection, statement, *owner, query);
  if (!lots) {
    return lots.Why();
  }
  const std::string code = lookups::Directory(connection).Client(query.client).code;
  portfolio::ImportWork work;
  work.before = [&](database::Transaction& transaction) {
    return RefuseRecords(transaction, query.client);
  };
  work.after = [&](database::Transaction& transaction) -> MaybeRefusal {
    std::vector<OpeningMark> marks;
    for (const Lot& lot : *lots) {
      marks.push_back(lot.mark);
    }
    WriteMarks(transaction, marks);
    return std::nullopt;
  };
  const auto result = portfolio::ImportFiles(
      connection, {{portfolio::FileKind::kOpening, OpeningFile(*lots, code, owner->day)}}, false,
      work, progress);
  if (!result) {
    return result.Why();
  }
  if (!result->errors.empty()) {
    return Refusal{QString::fromStdString(result->errors.front().message)};
  }
  return lots->size();
}

}  // namespace quorvane::reconcile
