#include "core/text/Amounts.h"
#include "reports/Sample.h"
#include "reports/profit/ProfitDocument.h"
#include "support/DatabaseTest.h"

#include <array>
#include <map>

using namespace quorvane;
using namespace quorvane::profit;

namespace {

constexpr std::array<std::size_t, 6> kMoneyOfDetail{3, 7, 8, 9, 10, 11};
constexpr std::array<std::size_t, 6> kMoneyOfSummary{4, 7, 8, 9, 10, 11};

std::int64_t PaiseOf(const reporting::Cell& cell) {
  const auto* number = std::get_if<double>(&cell);
  return number == nullptr ? 0 : text::ToPaise(*number);
}

/// Sums of the columns of money by kind of row.
std::map<reporting::RowKind, std::vector<std::int64_t>> SumsOf(
    const reporting::Table& table, std::span<const std::size_t> columns) {
  std::map<reporting::RowKind, std::vector<std::int64_t>> sums;
  for (const reporting::Row& row : table.rows) {
    auto& sum = sums[row.kind];
    sum.resize(columns.size());
    for (std::size_t i = 0; i < columns.size() && columns[i] < row.cells.size(); ++i) {
      sum[i] += PaiseOf(row.cells[columns[i]]);
    }
  }
  return sums;
}

}  // namespace

/// The statements of the sample portfolio: what is shown must add up to what is shown below it.
class ProfitDocumentTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    database_.emplace();
    test::TakeInSample(*database_);
    directory_ = std::make_unique<lookups::Directory>(**database_);
  }

  void TotalsAreTheSumOfTheLinesShown() {
    for (const int year : {2011, 2012, 2013}) {
      ProfitQuery query = Whole(year);
      query.charges = {true, true};
      query.average = year == 2013;
      const auto clients = Build(query);
      QCOMPARE(clients.size(), std::size_t{4});
      for (const auto& [client, rows] : clients) {
        for (const Layout layout : {Layout::kDetail, Layout::kSummary}) {
          const auto document = MakeProfitDocument(StatementMode::kCapitalGain, layout, query,
                                                   client, rows, *directory_);
          auto sums = SumsOf(document.tables.front(),
                             layout == Layout::kDetail ? kMoneyOfDetail : kMoneyOfSummary);
          QCOMPARE(sums[reporting::RowKind::kTotal], sums[reporting::RowKind::kData]);
          QCOMPARE(sums[reporting::RowKind::kNetTotal], sums[reporting::RowKind::kData]);
        }
      }
    }
  }

  // Of most scrips nothing was bought and sold on one day: their total of 0 has their name, too.
  void EveryTotalStandsBelowItsScrip() {
    for (const Layout layout : {Layout::kDetail, Layout::kSummary}) {
      ProfitQuery query = Whole(2011);
      query.gains = GainFilter::kSpeculation;
      const auto clients = Build(query);
      const auto& [client, rows] = clients.front();
      const auto document =
          MakeProfitDocument(StatementMode::kCapitalGain, layout, query, client, rows, *directory_);
      QStringList named;
      QString name;
      for (const reporting::Row& row : document.tables.front().rows) {
        if (row.kind == reporting::RowKind::kTotal) {
          named << name;
          name.clear();
        } else if (name.isEmpty() && row.kind == reporting::RowKind::kGroup) {
          name = reporting::GroupText(row);
        } else if (name.isEmpty() && row.kind == reporting::RowKind::kData) {
          name = reporting::CellText(row.cells[1], reporting::Mask::kText);
        }
      }
      QStringList wanted;
      for (const StatementRow& row : rows) {
        if (row.kind == LineKind::kTotal) {
          wanted << QString::fromStdString(directory_->Scrip(row.scrip).name);
        }
      }
      QVERIFY(wanted.size() > 20);
      QCOMPARE(named, wanted);
    }
  }

 private:
  std::unique_ptr<lookups::Directory> directory_;

  std::vector<std::pair<ClientId, std::vector<StatementRow>>> Build(const ProfitQuery& query) {
    std::vector<std::pair<ClientId, std::vector<StatementRow>>> clients;
    Progress progress;
    const auto faults = BuildStatement(
        **database_, query, progress, [&](ClientId client, std::span<const StatementRow> rows) {
          clients.emplace_back(client, std::vector(rows.begin(), rows.end()));
        });
    return faults.empty() ? clients : decltype(clients)();
  }

  ProfitQuery Whole(int year) const {
    return ProfitQuery::OfYear(std::nullopt, text::FinancialYear(year));
  }
};

static const quorvane::test::RegisterTest<ProfitDocumentTest> kRegistered;
#include "ProfitDocumentTest.moc"
