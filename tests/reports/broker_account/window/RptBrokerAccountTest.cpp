#include "reports/Sample.h"
#include "reports/ShownReport.h"
#include "reports/broker_account/window/RptBrokerAccount.h"

using namespace quorvane;
using namespace quorvane::broker_account;

namespace {

constexpr std::size_t kBalance = 4;

struct Shown : test::ShownReport<RptBrokerAccount> {
  explicit Shown(test::TestDatabase& database)
      : ShownReport(database, "RptBrokerAccount", "ATH001", 2012) {}

  controls::GridModel& Brokers() const { return Named<controls::Grid>("VSB")->Model(); }
};

}  // namespace

class RptBrokerAccountTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    database_.emplace();
    test::TakeInSample(*database_);
  }

  void PeriodAndBrokersAreChecked_data() {
    const test::Table<QString, bool, QString> row;
    row("outside the year", "31/03/2012", true,
        "The date lies outside the financial year 2012-13.");
    row("no broker", "01/04/2012", false, "Enter Broker Name.");
  }
  void PeriodAndBrokersAreChecked() {
    const auto [from, brokers, text] = test::Table<QString, bool, QString>::Row();
    const Shown window(*database_);
    window.Enter("Text1_0", from);
    window.Brokers().TickAll(brokers);
    window.Click("CmdReport");
    QCOMPARE(window.messages.LastText(), text);
    QCOMPARE(window.Screen().rowCount(), 0);
  }

  // As worked out from the files of the sample: 18322.01 owed, 6253.91 due.
  void TickedBrokersAreShown() {
    const Shown window(*database_);
    window.Click("CmdReport");
    const auto closings = [&] {
      QStringList texts;
      const reporting::Table& table = window.Screen().Document().tables.front();
      for (const reporting::Row& row : table.rows) {
        if (row.kind == reporting::RowKind::kTotal) {
          texts << std::get<QString>(row.cells[kBalance]);
        }
      }
      return texts;
    };
    QCOMPARE(closings(), QStringList({"18322.01Dr", "6253.91Cr"}));
    window.Brokers().SetTicked(0, false);
    window.Click("CmdReport");
    QCOMPARE(closings(), QStringList({"6253.91Cr"}));
  }
};

static const test::RegisterTest<RptBrokerAccountTest> kRegistered;
#include "RptBrokerAccountTest.moc"
