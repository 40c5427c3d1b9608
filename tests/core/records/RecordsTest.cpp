#include "core/records/Bill.h"
#include "core/records/Lot.h"
#include "core/records/Masters.h"
#include "core/records/Money.h"
#include "core/records/Opening.h"
#include "core/records/Rates.h"
#include "core/records/Transfer.h"
#include "core/records/Writing.h"
#include "support/DatabaseTest.h"

using namespace quorvane;
using records::BillLine;

/// The lists of columns against the tables as they are made.
class RecordsTest : public test::DatabaseTest {
  Q_OBJECT

  template <class Record>
  static QStringList Listed() {
    QStringList names;
    records::ForEachColumn<Record>([&](const auto& column) {
      names << QString::fromUtf8(column.name.data(), static_cast<qsizetype>(column.name.size()));
    });
    names.sort();
    return names;
  }

  QStringList Made(std::string_view table) {
    QStringList names;
    for (const auto& row :
         database_->Get().Open("Select COLUMN_NAME From information_schema.COLUMNS Where "
                               "TABLE_SCHEMA=Database() and TABLE_NAME=? and COLUMN_NAME<>'RowKey'",
                               table)) {
      names << row.Text(0);
    }
    names.sort();
    return names;
  }

  template <class Record>
  void Compare(std::string_view table = records::Table<Record>::kName) {
    QCOMPARE(Listed<Record>(), Made(table));
  }

 private Q_SLOTS:
  void EveryColumnOfATableIsListed() {
    Compare<records::Bill>();
    Compare<BillLine>();
    Compare<records::Opening>();
    Compare<records::Transfer>();
    Compare<records::Lot>();
    Compare<records::Lot>(records::kScratchLots);
    Compare<records::Client>();
    Compare<records::Account>();
    Compare<records::Participant>();
    Compare<records::DpId>();
    Compare<records::Broker>();
    Compare<records::Scrip>();
    Compare<records::ScripType>();
    Compare<records::ScripClass>();
    Compare<records::Exchange>();
    Compare<records::SttPercent>();
    Compare<records::Percentage>();
    Compare<records::Payment>();
    Compare<records::Payment>(records::kReceipts);
    Compare<records::BrokerOpening>();
    Compare<records::MarketRate>();
    Compare<records::AverageRate>();
  }

  void NothingIsDeletedWithoutACondition() {
    database::InTransaction(**database_, [&](database::Transaction& transaction) {
      BillLine line;
      line.bill = BillId{9};
      static_cast<void>(records::Insert(transaction, line));
      records::Delete<BillLine>(transaction).Run();
      records::Delete<BillLine>(transaction).In(&BillLine::bill, std::vector<BillId>()).Run();
    });
    QVERIFY(records::Select<BillLine>(**database_).Where(&BillLine::bill, BillId{9}).First());
  }
};

static const quorvane::test::RegisterTest<RecordsTest> kRegistered;
#include "RecordsTest.moc"
