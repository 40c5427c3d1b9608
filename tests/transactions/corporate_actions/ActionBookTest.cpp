#include "core/ledger/Rebuild.h"
#include "support/DatabaseTest.h"
#include "support/Save.h"
#include "support/Test.h"
#include "transactions/bills/BillBook.h"
#include "transactions/corporate_actions/ActionBook.h"
#include "transactions/dividends/DividendBook.h"

#include <QTest>

#include <functional>

using namespace quorvane;
using namespace quorvane::corporate_actions;
using records::ActionKind;
using text::Shares;

namespace {

using Edit = std::function<void(Action&)>;

text::Date Day(const char* dmy) {
  return *text::ParseDmy(std::string_view(dmy));
}

}  // namespace

Q_DECLARE_METATYPE(Edit)

class ActionBookTest : public test::DeskTest {
  Q_OBJECT

  ActionBook Book() { return ActionBook(desk_->Connection()); }

  Action NewAction(ActionKind kind, double of_new, double of_old) {
    Action action;
    action.kind = kind;
    action.scrip = desk_->scrip;
    action.ex_day = QStringLiteral("01/08/2011");
    action.new_shares = Shares(of_new);
    action.old_shares = Shares(of_old);
    return action;
  }

  void Buy(const char* date, double quantity, double rate) {
    records::Bill bill = desk_->NewBill({desk_->Purchase(quantity, rate)});
    bill.date = QLatin1String(date);
    QVERIFY(!test::Save(bills::BillBook(desk_->Connection(), desk_->of), bill));
  }

  MaybeRefusal Sell(const char* date, double quantity, double rate) {
    records::Bill bill = desk_->NewBill({desk_->Sale(quantity, 150, desk_->IdOfLot(rate))});
    bill.date = QLatin1String(date);
    bill.number = QStringLiteral("S-77");
    return test::Save(bills::BillBook(desk_->Connection(), desk_->of), bill);
  }

  ActionId Recorded(const Action& action) {
    const Result<ActionId> id = Book().Save(action);
    return id ? *id : ActionId{};
  }

  MaybeRefusal Apply(ActionId id, const char* today = "01/04/2020") {
    Progress silent;
    return Book().Apply(std::span(&id, 1), {}, Day(today), silent).Refused();
  }

  bool IsSound() {
    Progress silent;
    return ledger::CheckStock(desk_->Connection(), std::nullopt, silent).changes.empty();
  }

 private Q_SLOTS:
  void init() {
    desk_->Empty();
    for (const char* table : {"CorpAction", "CorpActionLot", "Dividend"}) {
      desk_->Connection().Execute(fmt::format("Delete From {}", table));
    }
    Buy("02/05/2011", 10, 100);
  }

  void IncompleteTermsAreRefused_data() {
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<Field>("field");
    const auto row = [](const char* name, Field field, Edit edit) {
      QTest::newRow(name) << std::move(edit) << field;
    };
    row("no scrip", Field::kScrip, [](Action& a) { a.scrip = {}; });
    row("no such day", Field::kDate, [](Action& a) { a.ex_day = "31/02/2011"; });
    row("record day", Field::kRecordDate, [](Action& a) { a.record_day = "99"; });
    row("ratio of nothing", Field::kRatio, [](Action& a) { a.new_shares = {}; });
    row("ratio below zero", Field::kRatio, [](Action& a) { a.old_shares = Shares(-1); });
    row("split to fewer", Field::kRatio, [](Action& a) { a.new_shares = Shares(1); });
    row("merger into nothing", Field::kToScrip, [](Action& a) { a.kind = ActionKind::kMerger; });
    row("merger into itself", Field::kToScrip, [](Action& a) {
      a.kind = ActionKind::kMerger;
      a.other = a.scrip;
    });
    row("all of the cost", Field::kPercent, [](Action& a) {
      a.kind = ActionKind::kDemerger;
      a.other = ScripId{2};
      a.cost_percent = 100;
    });
    row("rights for nothing", Field::kPrice, [](Action& a) { a.kind = ActionKind::kRights; });
  }
  void IncompleteTermsAreRefused() {
    QFETCH(Edit, edit);
    QFETCH(Field, field);
    Action action = NewAction(ActionKind::kSplit, 10, 1);
    edit(action);
    const Result<ActionId> saved = Book().Save(action);
    QVERIFY(!saved);
    QCOMPARE(saved.Why().field, field);
    QVERIFY(Book().List().empty());
  }

  void OneActionIsRecordedOnce() {
    const Action action = NewAction(ActionKind::kSplit, 10, 1);
    const ActionId id = Recorded(action);
    QVERIFY(!Book().Save(action));
    Action changed = *Book().Load(id);
    changed.note = QStringLiteral("from Rs 10 to Re 1");
    QVERIFY(Book().Save(changed));
    // All or none: the second of these is there already.
    const std::vector<Action> two{NewAction(ActionKind::kBonus, 1, 1), action};
    QVERIFY(!Book().SaveAll(two));
    QCOMPARE(Book().List().size(), 1U);
  }

  void AppliedActionMovesTheLotsAndIsTakenBackWhole() {
    const auto before = desk_->Contents("Stock");
    const ActionId id = Recorded(NewAction(ActionKind::kSplit, 10, 1));
    QVERIFY(Apply(id, "31/07/2011"));  // not before its day
    QVERIFY(!Apply(id));
    QCOMPARE(desk_->LotAt(100), "0@100");
    QCOMPARE(desk_->LotAt(10), "100@10");
    QVERIFY(IsSound());
    QVERIFY(Apply(id));  // not twice
    QVERIFY(!Book().Save(*Book().Load(id)));
    QVERIFY(Book().Delete(id));
    // A purchase that came after it stays.
    Buy("01/09/2011", 5, 12);
    QVERIFY(!Book().TakeBack(id));
    QCOMPARE(desk_->LotAt(100), "10@100");
    QCOMPARE(desk_->LotAt(10), "0@10");
    QCOMPARE(desk_->LotAt(12), "5@12");
    QVERIFY(IsSound());
    QVERIFY(!Book().Delete(id));
    QVERIFY(!before.isEmpty());
  }

  void SalesThatWouldLackSharesAreListed() {
    QVERIFY(!Sell("05/08/2011", 4, 100));
    const auto before = desk_->Contents("Stock");
    const ActionId split = Recorded(NewAction(ActionKind::kSplit, 10, 1));
    const MaybeRefusal lacking = Apply(split);
    QVERIFY(lacking && lacking->text.contains("S-77") && lacking->text.contains("05/08/2011"));
    QCOMPARE(desk_->Contents("Stock"), before);
    QVERIFY(desk_->Contents("CorpActionLot").isEmpty());
    QVERIFY(!Book().Load(split)->applied);
  }

  void SharesThatWereSoldAreNotTakenBack() {
    const ActionId bonus = Recorded(NewAction(ActionKind::kBonus, 1, 1));
    QVERIFY(!Apply(bonus));
    QVERIFY(!Sell("05/09/2011", 6, 0));
    QVERIFY(Book().TakeBack(bonus));
    QCOMPARE(desk_->LotAt(0), "4@0");
    QVERIFY(Book().Load(bonus)->applied);
  }

  void ActionsOfOneScripAreAppliedInTheirOrder() {
    const ActionId split = Recorded(NewAction(ActionKind::kSplit, 2, 1));
    Action later = NewAction(ActionKind::kBonus, 1, 1);
    later.ex_day = QStringLiteral("01/10/2011");
    const ActionId bonus = Recorded(later);
    QVERIFY(!Apply(bonus));
    QVERIFY(Apply(split));
    QVERIFY(!Book().TakeBack(bonus));
    QVERIFY(!Apply(split));
    QVERIFY(!Apply(bonus));
    QVERIFY(Book().TakeBack(split));
    QCOMPARE(desk_->LotAt(0), "20@0");
  }

  void BooksThatChangedSinceAreTold() {
    const ActionId bonus = Recorded(NewAction(ActionKind::kBonus, 1, 2));
    QVERIFY(!Apply(bonus));
    Progress silent;
    QVERIFY(actions::OutdatedActions(desk_->Connection(), silent).isEmpty());
    Buy("03/05/2011", 2, 101);
    QVERIFY(!Book().IsCurrent(*Book().Load(bonus)));
    const QStringList outdated = actions::OutdatedActions(desk_->Connection(), silent);
    QCOMPARE(outdated.size(), 1);
    QVERIFY2(outdated[0].contains("Ex-Date 01/08/2011"), qPrintable(outdated[0]));
  }

  void RightsAreAsSubscribed() {
    Action rights = NewAction(ActionKind::kRights, 1, 2);
    rights.price = 40;
    const ActionId id = Recorded(rights);
    Progress silent;
    const ChosenShares chosen{{{desk_->of.client, desk_->account}, Shares(3)}};
    QVERIFY(Book().Apply(std::span(&id, 1), chosen, Day("01/04/2020"), silent));
    QCOMPARE(desk_->LotAt(40), "3@40");
    QVERIFY(Book().IsCurrent(*Book().Load(id)));
  }

  void EveryHolderGetsTheDividend() {
    Action dividend = NewAction(ActionKind::kDividend, 0, 0);
    dividend.price = 2.5;
    const ActionId id = Recorded(dividend);
    QVERIFY(!Apply(id));
    dividends::DividendBook received(desk_->Connection(), desk_->of);
    QCOMPARE(received.List().size(), 1U);
    records::Dividend paid = received.List().front();
    QCOMPARE(paid.Gross(), 25.0);
    paid.tax_deducted = 2.5;
    QVERIFY(received.Save(paid));
    QCOMPARE(received.List().front().action, id);
    paid.tax_deducted = 25.01;
    QVERIFY(!received.Save(paid));
    QVERIFY(!Book().TakeBack(id));
    QVERIFY(received.List().empty());
  }
};

static const test::RegisterTest<ActionBookTest> kRegistered;
#include "ActionBookTest.moc"
