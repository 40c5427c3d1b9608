#include "support/Desk.h"
#include "support/ShownWindow.h"
#include "transactions/corporate_actions/window/FrmCorpAction.h"

using namespace quorvane;
using corporate_actions::FrmCorpAction;

namespace {

/// Opened with an action that another window proposes.
class Proposed : public test::ShownWindow<FrmCorpAction> {
 public:
  Proposed(test::TestDatabase& database, const records::Action& action) {
    desk_.proposed_action = action;
    Open(database);
  }
};

}  // namespace

class FrmCorpActionTest : public test::DeskTest {
  Q_OBJECT

 private Q_SLOTS:
  void ProposedActionIsBegun() {
    records::Action action;
    action.kind = records::ActionKind::kBonus;
    action.scrip = desk_->scrip;
    action.new_shares = text::Shares(1);
    action.old_shares = text::Shares(2);
    Proposed shown(desk_->database, action);
    QVERIFY(shown->IsEditing());
    QCOMPARE(shown.TextIn("Combo1"), QString("Bonus"));
    QCOMPARE(shown.TextIn("Combo2"), QString("RELIANCE"));
    QCOMPARE(shown.TextIn("Text1_0") + ":" + shown.TextIn("Text1_1"), QString("1:2"));
    QCOMPARE(shown.Focused(), QString("Combo1"));
  }
};

static const test::RegisterTest<FrmCorpActionTest> kRegistered;
#include "FrmCorpActionTest.moc"
