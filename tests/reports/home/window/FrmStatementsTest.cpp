#include "core/records/StatementCheck.h"
#include "core/records/Writing.h"
#include "reports/home/window/FamilyChoice.h"
#include "reports/home/window/FrmStatements.h"
#include "support/Desk.h"
#include "support/ShownWindow.h"

#include <QTemporaryDir>

using namespace quorvane;
using home::CheckState;
using home::FrmStatements;

namespace {

struct Shown : test::ShownWindow<FrmStatements> {
  explicit Shown(test::TestDatabase& database) {
    Session().folders.application = folder_.path();
    desk_.open_record = [this](const controls::RecordPlace& place) { places.push_back(place); };
    today_ = *text::MakeDate(13, 6, 2011);
    Open(database);
  }

  std::vector<controls::RecordPlace> places;

 private:
  QTemporaryDir folder_;
};

}  // namespace

class FrmStatementsTest : public test::DeskTest {
  Q_OBJECT

 private Q_SLOTS:
  void AccountsOfAStateLeadToTheirComparison() {
    desk_->Connection().Execute("Insert Into HomeHolding Values(?,?,1,1)", desk_->client,
                                desk_->scrip);
    for (const AccountId account : {desk_->account, desk_->second_account}) {
      desk_->Connection().Execute(
          "Insert Into Stock(Cid,Fyear,AcId,ScriptId,Rate,Qty) Values(?,?,?,?,100,1)",
          desk_->client, desk_->year.Utf8(), account, desk_->scrip);
    }
    database::InTransaction(desk_->Connection(), [&](database::Transaction& transaction) {
      records::Insert(transaction, records::StatementCheck{desk_->client, desk_->second_account,
                                                           QStringLiteral("31/05/2011"), 5, 2,
                                                           QStringLiteral("02/06/2011")});
    });
    Shown shown(desk_->database);
    QCOMPARE(shown.RowsOf("VSF"),
             QStringList({"C1|1001|||||never compared",
                          "C1|1002|31/05/2011|02/06/2011|5|2|does not agree"}));
    shown->GoTo(static_cast<int>(CheckState::kDiffers));
    QCOMPARE(shown.RowsOf("VSF").size(), qsizetype{1});
    shown.Press(Qt::Key_Return);
    QCOMPARE(shown.places.size(), std::size_t{1});
    QCOMPARE(shown.places[0].window, "FrmReconcile");
    QCOMPARE(shown.places[0].record, desk_->second_account.value);
    QCOMPARE(shown.places[0].of->client.value, desk_->client.value);
    // The home page shows another family now.
    home::KeepFamily(shown.Session(), QStringLiteral("C2"));
    shown->AskedAgain();
    shown->GoTo(0);
    QCOMPARE(shown.RowsOf("VSF"), QStringList());
  }
};

static const test::RegisterTest<FrmStatementsTest> kRegistered;
#include "FrmStatementsTest.moc"
