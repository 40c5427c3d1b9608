#include "portfolio/reconcile/OpeningMarks.h"

#include "core/lookups/Directory.h"
#include "core/records/OpeningMark.h"
#include "core/records/Writing.h"

#include <map>
#include <set>
#include <tuple>
#include <utility>

namespace quorvane::reconcile {
namespace {

constexpr std::string_view kOpen =
    "Select M.CId,M.Fyear,M.AcId,M.ScrId,Sum(S.Qty) From OpeningMark M Join StkOpBal S On "
    "S.CId=M.CId and S.Fyear=M.Fyear and S.AcId=M.AcId and S.ScriptId=M.ScrId Where S.Rate=0";
constexpr std::string_view kGroup =
    " Group By M.CId,M.Fyear,M.AcId,M.ScrId Order By M.CId,M.Fyear,M.ScrId,M.AcId";

}  // namespace

std::vector<OpeningMark> OpenMarks(database::Connection& connection,
                                   const std::optional<ClientId>& client) {
  std::vector<OpeningMark> marks;
  const auto take = [&](database::Recordset rows) {
    while (rows.Next()) {
      if (const auto year = text::FinancialYear::Parse(rows.Utf8(1))) {
        marks.push_back({ClientId{rows.Int(0)}, *year, AccountId{rows.Int(2)}, ScripId{rows.Int(3)},
                         text::Shares(rows.Double(4))});
      }
    }
  };
  if (client) {
    take(connection.Open(std::string(kOpen).append(" and M.CId=?").append(kGroup), *client));
  } else {
    take(connection.Open(std::string(kOpen).append(kGroup)));
  }
  return marks;
}

void WriteMarks(database::Transaction& transaction, std::span<const OpeningMark> marks) {
  std::set<ClientYear> books;
  std::map<std::tuple<ClientId, text::FinancialYear, AccountId, ScripId>, records::OpeningMark>
      rows;
  for (const OpeningMark& mark : marks) {
    books.insert({mark.client, mark.year});
    rows[{mark.client, mark.year, mark.account, mark.scrip}] = {mark.client, mark.year,
                                                                mark.account, mark.scrip};
  }
  for (const ClientYear& of : books) {
    records::Delete<records::OpeningMark>(transaction)
        .Where(&records::OpeningMark::client, of.client)
        .Where(&records::OpeningMark::year, of.year)
        .Run();
  }
  records::Writer<records::OpeningMark> writer(transaction);
  for (const auto& [key, row] : rows) {
    writer.Write(row);
  }
  writer.Finish();
}

QStringList OpenMarkTexts(database::Connection& connection) {
  std::map<std::pair<ClientId, text::FinancialYear>, std::size_t> counts;
  for (const OpeningMark& mark : OpenMarks(connection, std::nullopt)) {
    ++counts[{mark.client, mark.year}];
  }
  QStringList texts;
  if (counts.empty()) {
    return texts;
  }
  const lookups::Directory directory(connection);
  for (const auto& [of, count] : counts) {
    texts << QStringLiteral(
                 "The opening stock %1 of client %2 was taken from a statement; %3 scrips "
                 "have no cost and day of purchase yet.")
                 .arg(of.second.Text(), QString::fromStdString(directory.Client(of.first).code))
                 .arg(qulonglong{count});
  }
  return texts;
}

}  // namespace quorvane::reconcile
