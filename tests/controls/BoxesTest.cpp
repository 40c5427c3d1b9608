#include "controls/ComboBox.h"
#include "controls/DateBox.h"
#include "controls/TextBox.h"
#include "support/OnScreen.h"
#include "support/Test.h"

#include <QSignalSpy>
#include <QVBoxLayout>

using namespace quorvane::controls;
using quorvane::text::Date;
using quorvane::text::MakeDate;

using quorvane::test::PutOnScreen;
namespace test = quorvane::test;

namespace {

// A box with another one behind it to go to.
template <class Box>
struct Desk {
  explicit Desk(Box* made) : box(made) {
    auto* rows = new QVBoxLayout(&window);
    rows->addWidget(box);
    rows->addWidget(next);
    PutOnScreen(window);
    box->setFocus();
  }

  void Leave() { next->setFocus(); }

  QWidget window;
  Box* box;
  TextBox* next = new TextBox();
};

const QStringList kCities{QStringLiteral("MUMBAI"), QStringLiteral("Mysore"),
                          QStringLiteral("PUNE")};

DateBox* DateBoxOf2011() {
  auto* box = new DateBox();
  box->SetToday([] { return *MakeDate(15, 11, 2011); });
  return box;
}

ComboBox* States(ComboBox::Entry entry) {
  auto* box = new ComboBox(nullptr, entry);
  box->SetItems({{.id = 7, .text = QStringLiteral("GOA")},
                 {.id = 9, .text = QStringLiteral("Gujarat")},
                 {.id = 4, .text = QStringLiteral("KERALA")}});
  return box;
}

}  // namespace

class BoxesTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void PastedLettersTurnToUpperCase() {
    Desk<TextBox> desk(new TextBox());
    QTest::keyClicks(desk.box, QStringLiteral("AC"));
    desk.box->setCursorPosition(1);
    desk.box->insert(QStringLiteral("bb"));
    QCOMPARE(desk.box->text(), QStringLiteral("ABBC"));
    QCOMPARE(desk.box->cursorPosition(), 3);
  }

  void PrefixIsCompleted_data() {
    const test::Table<QString, QString, QString> row;
    row("first that fits", "m", "MUMBAI", "UMBAI");
    row("typing on overwrites", "my", "MYSORE", "SORE");
    row("none fits", "mx", "MX", "");
  }
  void PrefixIsCompleted() {
    const auto [typed, text, selected] = test::Table<QString, QString, QString>::Row();
    Desk<TextBox> desk(new TextBox());
    desk.box->SetCompletions(kCities);
    QTest::keyClicks(desk.box, typed);
    QCOMPARE(desk.box->text(), text);
    QCOMPARE(desk.box->selectedText(), selected);
  }

  void BackspaceTakesTheCompletionAway() {
    Desk<TextBox> desk(new TextBox());
    desk.box->SetCompletions(kCities);
    QTest::keyClicks(desk.box, QStringLiteral("mu"));
    QTest::keyClick(desk.box, Qt::Key_Backspace);
    QCOMPARE(desk.box->text(), QStringLiteral("MU"));
  }

  void CompletionNeverTouchesWhatWasTyped() {
    Desk<TextBox> desk(new TextBox());
    desk.box->setMaxLength(4);
    desk.box->SetCompletions(kCities);
    QTest::keyClicks(desk.box, QStringLiteral("mum"));
    QCOMPARE(desk.box->text(), QStringLiteral("MUMB"));
    QCOMPARE(desk.box->selectedText(), QStringLiteral("B"));
  }

  void PopupsDoNotCountAsLeaving() {
    Desk<TextBox> desk(new TextBox());
    QSignalSpy left(desk.box, &TextBox::Left);
    QFocusEvent menu(QEvent::FocusOut, Qt::PopupFocusReason);
    QCoreApplication::sendEvent(desk.box, &menu);
    QCOMPARE(left.count(), 0);
    desk.Leave();
    QCOMPARE(left.count(), 1);
  }

  void AmountTakesItsFormOnLeaving_data() {
    const test::Table<int, QString, QString, double> row;
    const int amount = static_cast<int>(AmountBox::Form::kAmount);
    const int percent = static_cast<int>(AmountBox::Form::kPercent);
    row("half up", amount, "2.675", "2.68", 2.68);
    row("grouped", amount, "1,23,456.7", "123456.70", 123456.7);
    row("only a point", amount, ".", "0.00", 0.0);
    row("empty stays empty", amount, "", "", 0.0);
    row("percentage", percent, ".1255", "0.126", 0.126);
  }
  void AmountTakesItsFormOnLeaving() {
    const auto [form, typed, text, amount] = test::Table<int, QString, QString, double>::Row();
    Desk<AmountBox> desk(new AmountBox(nullptr, static_cast<AmountBox::Form>(form)));
    QTest::keyClicks(desk.box, typed);
    desk.Leave();
    QCOMPARE(desk.box->text(), text);
    QCOMPARE(desk.box->Amount(), amount);
  }

  void TypedDateIsCompleted_data() {
    const test::Table<QString, QString> row;
    row("digits alone", "01042011", "01/04/2011");
    row("short year", "010411", "01/04/2011");
    row("one digit each", "1/4/11", "01/04/2011");
    row("empty", "", "");
  }
  void TypedDateIsCompleted() {
    const auto [typed, text] = test::Table<QString, QString>::Row();
    Desk<DateBox> desk(DateBoxOf2011());
    QSignalSpy refused(desk.box, &DateBox::Refused);
    QTest::keyClicks(desk.box, typed);
    desk.Leave();
    QCOMPARE(desk.box->text(), text);
    QCOMPARE(desk.box->DateText(), text);
    QCOMPARE(refused.count(), 0);
  }

  void ImproperDateIsRefusedAndStays() {
    Desk<DateBox> desk(DateBoxOf2011());
    QSignalSpy refused(desk.box, &DateBox::Refused);
    QTest::keyClicks(desk.box, QStringLiteral("29022011"));
    desk.Leave();
    QCOMPARE(refused.count(), 1);
    QCOMPARE(refused.front().front().toString(), QStringLiteral("Enter Proper Date."));
    QCOMPARE(desk.box->text(), QStringLiteral("29/02/2011"));
    QCOMPARE(desk.box->DateText(), QString());
    QVERIFY(!desk.box->IsProper());
  }

  void ChoiceFollowsTypedText_data() {
    const test::Table<bool, QString, int, QString> row;
    row("prefix", false, "gu", 9, "Gujarat");
    row("whole text", false, "goa", 7, "GOA");
    row("no item goes back to the choice", false, "xyz", 4, "KERALA");
    row("free text stays", true, "xyz", 0, "XYZ");
    row("free text that is an item", true, "ke", 4, "KERALA");
  }
  void ChoiceFollowsTypedText() {
    const auto [free, typed, id, text] = test::Table<bool, QString, int, QString>::Row();
    Desk<ComboBox> desk(States(free ? ComboBox::Entry::kFreeText : ComboBox::Entry::kItemsOnly));
    desk.box->ById(4);
    desk.box->lineEdit()->selectAll();
    QTest::keyClicks(desk.box, typed);
    QCOMPARE(desk.box->CurrentId(), id);
    desk.Leave();
    QCOMPARE(desk.box->CurrentId(), id);
    QCOMPARE(desk.box->currentText(), text);
  }

  void EqualTextsKeepTheChosenRecord() {
    Desk<ComboBox> desk(new ComboBox());
    desk.box->SetItems(
        {{.id = 1, .text = QStringLiteral("100")}, {.id = 2, .text = QStringLiteral("100")}});
    desk.box->ById(2);
    desk.Leave();
    QCOMPARE(desk.box->CurrentId(), 2);
  }

  void FillingSendsNoChoice() {
    Desk<ComboBox> desk(States(ComboBox::Entry::kItemsOnly));
    desk.box->ById(7);
    QSignalSpy chosen(desk.box, &QComboBox::currentIndexChanged);
    desk.box->SetTexts({QStringLiteral("S"), QStringLiteral("P")});
    QCOMPARE(chosen.count(), 0);
    QVERIFY(!desk.box->HasChoice());
    QVERIFY(desk.box->ByText(QStringLiteral("p")));
    QCOMPARE(desk.box->CurrentId(), 1);
  }

  void WheelOverAListThatIsNotEnteredChangesNothing() {
    Desk<ComboBox> desk(States(ComboBox::Entry::kItemsOnly));
    desk.box->ById(7);
    desk.Leave();
    QWheelEvent wheel({5, 5}, desk.box->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(desk.box, &wheel);
    QCOMPARE(desk.box->CurrentId(), 7);
  }
};

static const quorvane::test::RegisterTest<BoxesTest> kRegistered;
#include "BoxesTest.moc"
