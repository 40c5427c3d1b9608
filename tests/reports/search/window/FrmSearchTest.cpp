#include "reports/search/window/FrmSearch.h"
#include "support/DatabaseTest.h"
#include "support/ShownWindow.h"

#include <QLabel>

using namespace quorvane;

namespace {

/// The search over the records of a desk; which record it opens is written down.
struct ShownSearch : test::ShownWindow<search::FrmSearch> {
  explicit ShownSearch(test::TestDatabase& database) {
    desk_.open_record = [this](const controls::RecordPlace& place) { places.push_back(place); };
    session_.folders.application = folder.path();
    Open(database);
  }

  const controls::Grid& Results() const { return *Named<controls::Grid>("VSF"); }

  std::vector<controls::RecordPlace> places;
};

}  // namespace

class FrmSearchTest : public test::DeskTest {
  Q_OBJECT

 private Q_SLOTS:
  void EnterOpensWhatItIs_data() {
    const test::Table<QString, QString, int> row;
    // What is typed, the window that opens, and whether it is for a client and year.
    row("client", "c2", "FrmClientMaster", 0);
    row("account leads to its client", "2001", "FrmClientMaster", 0);
    row("scrip", "infosys", "FrmScript", 0);
    row("bill", "b/9", "FrmSalePurchase", 1);
    row("payment", "445566", "FrmBrPayment", 1);
    row("receipt", "445577", "FrmBrRec", 1);
  }
  void EnterOpensWhatItIs() {
    const auto [text, name, of_client] = test::Table<QString, QString, int>::Row();
    Fill();
    ShownSearch shown(desk_->database);
    QCOMPARE(shown.Focused(), "TxtSearch");
    shown.Type(text + QLatin1Char('\n'));  // before the pause in which the results follow
    QCOMPARE(shown.places.size(), std::size_t{1});
    QCOMPARE(shown.places[0].window, name);
    QVERIFY(shown.places[0].record != 0);
    QCOMPARE(shown.places[0].of.has_value(), of_client == 1);
    QTRY_VERIFY(shown.window.isNull());
  }

  void UpAndDownPassTheHeadingsOver() {
    ShownSearch shown(desk_->database);
    shown.Type(QStringLiteral("100"));
    QTRY_COMPARE(shown.Results().Model().RowCount(), 3);  // accounts 1001 and 1002 under a heading
    QCOMPARE(shown.Results().CurrentRow(), 1);
    shown.Press(Qt::Key_Up);
    QCOMPARE(shown.Results().CurrentRow(), 1);
    shown.Press(Qt::Key_Down);
    QCOMPARE(shown.Results().CurrentRow(), 2);
    shown.Press(Qt::Key_Down);
    QCOMPARE(shown.Results().CurrentRow(), 2);
    QCOMPARE(shown.Focused(), "TxtSearch");
  }

  void NothingFoundOpensNothingAndEscapeCloses() {
    ShownSearch shown(desk_->database);
    shown.Type(QStringLiteral("zzz\n"));
    QCOMPARE(shown.places.size(), std::size_t{0});
    QCOMPARE(shown.Named<QLabel>("LblHint")->text(), "Nothing was found.");
    shown.Press(Qt::Key_Escape);
    QTRY_VERIFY(shown.window.isNull());
  }

 private:
  void Fill() {
    database::Connection& connection = desk_->Connection();
    connection.Execute(
        "Insert Into SPMaster(Cid,Fyear,ID,BillNo,BDate,BrokId) Values(?,'2011-12',1,'B/9',"
        "'01/06/2011',?)",
        desk_->client, desk_->broker);
    for (const auto& [table, cheque] : {std::pair{"BrPayment", "445566"}, {"BrRec", "445577"}}) {
      connection.Execute(
          fmt::format(
              "Insert Into {}(Cid,Fyear,Id,BrId,Amt,PDate,ChqNo) Values(?,'2011-12',1,?,500,"
              "'12/06/2011',?)",
              table),
          desk_->client, desk_->broker, cheque);
    }
  }
};

static const test::RegisterTest<FrmSearchTest> kRegistered;
#include "FrmSearchTest.moc"
