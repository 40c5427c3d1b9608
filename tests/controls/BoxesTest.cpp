#include "controls/AmountBox.h"
#include "controls/ComboBox.h"
#include "controls/DateBox.h"
#include "support/OnScreen.h"
#include "support/TestMain.h"

#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

using namespace quorvane::controls;
using quorvane::text::Date;
using quorvane::text::MakeDate;

using quorvane::test::PutOnScreen;

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
  void LettersTurnToUpperCaseAsTyped();
  void CapitalsAreKeptOutOfAnEMailBox();
  void PastedLettersTurnToUpperCase();
  void TypedUpperCaseCanBeUndone();
  void EntrySelectsTheWholeText();
  void EnterMovesToTheNextControl();
  void PrefixIsCompleted_data();
  void PrefixIsCompleted();
  void BackspaceTakesTheCompletionAway();
  void CompletionNeverTouchesWhatWasTyped();
  void PopupsDoNotCountAsLeaving();
  void AmountTakesItsFormOnLeaving_data();
  void AmountTakesItsFormOnLeaving();
  void AmountTakesNoLetters();
  void TypedDateIsCompleted_data();
  void TypedDateIsCompleted();
  void ImproperDateIsRefusedAndStays();
  void ChoiceFollowsTypedText_data();
  void ChoiceFollowsTypedText();
  void EqualTextsKeepTheChosenRecord();
  void FillingSendsNoChoice();
  void WheelOverAListThatIsNotEnteredChangesNothing();
};

void BoxesTest::LettersTurnToUpperCaseAsTyped() {
  Desk<TextBox> desk(new TextBox());
  QTest::keyClicks(desk.box, QStringLiteral("o'brien & sons"));
  QCOMPARE(desk.box->text(), QStringLiteral("O'BRIEN & SONS"));
}

void BoxesTest::CapitalsAreKeptOutOfAnEMailBox() {
  Desk<TextBox> desk(new TextBox());
  desk.box->SetUpperCase(false);
  QTest::keyClicks(desk.box, QStringLiteral("me@x.in"));
  QCOMPARE(desk.box->text(), QStringLiteral("me@x.in"));
}

void BoxesTest::PastedLettersTurnToUpperCase() {
  Desk<TextBox> desk(new TextBox());
  QTest::keyClicks(desk.box, QStringLiteral("AC"));
  desk.box->setCursorPosition(1);
  desk.box->insert(QStringLiteral("bb"));
  QCOMPARE(desk.box->text(), QStringLiteral("ABBC"));
  QCOMPARE(desk.box->cursorPosition(), 3);
}

void BoxesTest::TypedUpperCaseCanBeUndone() {
  Desk<TextBox> desk(new TextBox());
  desk.box->setText(QStringLiteral("OLD"));
  desk.box->selectAll();
  QTest::keyClicks(desk.box, QStringLiteral("new"));
  desk.box->undo();
  QVERIFY2(desk.box->text() != QStringLiteral("NEW"), qPrintable(desk.box->text()));
}

void BoxesTest::EntrySelectsTheWholeText() {
  Desk<TextBox> desk(new TextBox());
  desk.next->setText(QStringLiteral("12345"));
  QTest::mouseClick(desk.next, Qt::LeftButton, {}, QPoint(8, 8));
  QCOMPARE(desk.next->selectedText(), QStringLiteral("12345"));
  QTest::mouseClick(desk.next, Qt::LeftButton, {}, QPoint(8, 8));
  QVERIFY(!desk.next->hasSelectedText());
}

void BoxesTest::EnterMovesToTheNextControl() {
  Desk<TextBox> desk(new TextBox());
  QTest::keyClick(desk.box, Qt::Key_Enter, Qt::KeypadModifier);
  QVERIFY(desk.next->hasFocus());
  Desk<ComboBox> list(States(ComboBox::Entry::kItemsOnly));
  QTest::keyClick(list.box, Qt::Key_Return);
  QVERIFY(list.next->hasFocus());
}

void BoxesTest::PrefixIsCompleted_data() {
  QTest::addColumn<QString>("typed");
  QTest::addColumn<QString>("text");
  QTest::addColumn<QString>("selected");
  QTest::newRow("first that fits") << "m"
                                   << "MUMBAI"
                                   << "UMBAI";
  QTest::newRow("typing on overwrites") << "my"
                                        << "MYSORE"
                                        << "SORE";
  QTest::newRow("none fits") << "mx"
                             << "MX"
                             << "";
  QTest::newRow("whole text") << "pune"
                              << "PUNE"
                              << "";
}

void BoxesTest::PrefixIsCompleted() {
  QFETCH(QString, typed);
  Desk<TextBox> desk(new TextBox());
  desk.box->SetCompletions(kCities);
  QTest::keyClicks(desk.box, typed);
  QTEST(desk.box->text(), "text");
  QTEST(desk.box->selectedText(), "selected");
}

void BoxesTest::BackspaceTakesTheCompletionAway() {
  Desk<TextBox> desk(new TextBox());
  desk.box->SetCompletions(kCities);
  QTest::keyClicks(desk.box, QStringLiteral("mu"));
  QTest::keyClick(desk.box, Qt::Key_Backspace);
  QCOMPARE(desk.box->text(), QStringLiteral("MU"));
}

void BoxesTest::CompletionNeverTouchesWhatWasTyped() {
  Desk<TextBox> desk(new TextBox());
  desk.box->setMaxLength(4);
  desk.box->SetCompletions(kCities);
  QTest::keyClicks(desk.box, QStringLiteral("mum"));
  QCOMPARE(desk.box->text(), QStringLiteral("MUMB"));
  QCOMPARE(desk.box->selectedText(), QStringLiteral("B"));
}

void BoxesTest::PopupsDoNotCountAsLeaving() {
  Desk<TextBox> desk(new TextBox());
  QSignalSpy left(desk.box, &TextBox::Left);
  QFocusEvent menu(QEvent::FocusOut, Qt::PopupFocusReason);
  QCoreApplication::sendEvent(desk.box, &menu);
  QCOMPARE(left.count(), 0);
  desk.Leave();
  QCOMPARE(left.count(), 1);
}

void BoxesTest::AmountTakesItsFormOnLeaving_data() {
  QTest::addColumn<int>("form");
  QTest::addColumn<QString>("typed");
  QTest::addColumn<QString>("text");
  QTest::addColumn<double>("amount");
  const int amount = static_cast<int>(AmountBox::Form::kAmount);
  const int percent = static_cast<int>(AmountBox::Form::kPercent);
  QTest::newRow("half up") << amount << "2.675"
                           << "2.68" << 2.68;
  QTest::newRow("whole") << amount << "12"
                         << "12.00" << 12.0;
  QTest::newRow("grouped") << amount << "1,23,456.7"
                           << "123456.70" << 123456.7;
  QTest::newRow("negative") << amount << "-1.5"
                            << "-1.50" << -1.5;
  QTest::newRow("only a point") << amount << "."
                                << "0.00" << 0.0;
  QTest::newRow("empty stays empty") << amount << ""
                                     << "" << 0.0;
  QTest::newRow("percentage") << percent << ".1255"
                              << "0.126" << 0.126;
}

void BoxesTest::AmountTakesItsFormOnLeaving() {
  QFETCH(int, form);
  QFETCH(QString, typed);
  Desk<AmountBox> desk(new AmountBox(nullptr, static_cast<AmountBox::Form>(form)));
  QTest::keyClicks(desk.box, typed);
  desk.Leave();
  QTEST(desk.box->text(), "text");
  QTEST(desk.box->Amount(), "amount");
}

void BoxesTest::AmountTakesNoLetters() {
  Desk<AmountBox> desk(new AmountBox());
  QTest::keyClicks(desk.box, QStringLiteral("1a2.3.4e5"));
  QCOMPARE(desk.box->text(), QStringLiteral("12.345"));
}

void BoxesTest::TypedDateIsCompleted_data() {
  QTest::addColumn<QString>("typed");
  QTest::addColumn<QString>("text");
  QTest::newRow("digits alone") << "01042011"
                                << "01/04/2011";
  QTest::newRow("short year") << "010411"
                              << "01/04/2011";
  QTest::newRow("slashes typed as well") << "01/04/2011"
                                         << "01/04/2011";
  QTest::newRow("one digit each") << "1/4/11"
                                  << "01/04/2011";
  QTest::newRow("points") << "1.12.11"
                          << "01/12/2011";
  QTest::newRow("last century") << "1/4/85"
                                << "01/04/1985";
  QTest::newRow("empty") << ""
                         << "";
}

void BoxesTest::TypedDateIsCompleted() {
  QFETCH(QString, typed);
  Desk<DateBox> desk(DateBoxOf2011());
  QSignalSpy refused(desk.box, &DateBox::Refused);
  QTest::keyClicks(desk.box, typed);
  desk.Leave();
  QTEST(desk.box->text(), "text");
  QTEST(desk.box->DateText(), "text");
  QCOMPARE(refused.count(), 0);
}

void BoxesTest::ImproperDateIsRefusedAndStays() {
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

void BoxesTest::ChoiceFollowsTypedText_data() {
  QTest::addColumn<bool>("free");
  QTest::addColumn<QString>("typed");
  QTest::addColumn<int>("id");
  QTest::addColumn<QString>("text");
  QTest::newRow("prefix") << false << "gu" << 9 << "Gujarat";
  QTest::newRow("whole text") << false << "goa" << 7 << "GOA";
  QTest::newRow("no item goes back to the choice") << false << "xyz" << 4 << "KERALA";
  QTest::newRow("free text stays") << true << "xyz" << 0 << "XYZ";
  QTest::newRow("free text that is an item") << true << "ke" << 4 << "KERALA";
}

void BoxesTest::ChoiceFollowsTypedText() {
  QFETCH(bool, free);
  QFETCH(QString, typed);
  Desk<ComboBox> desk(States(free ? ComboBox::Entry::kFreeText : ComboBox::Entry::kItemsOnly));
  desk.box->ById(4);
  desk.box->lineEdit()->selectAll();
  QTest::keyClicks(desk.box, typed);
  QTEST(desk.box->CurrentId(), "id");
  desk.Leave();
  QTEST(desk.box->CurrentId(), "id");
  QTEST(desk.box->currentText(), "text");
}

void BoxesTest::EqualTextsKeepTheChosenRecord() {
  Desk<ComboBox> desk(new ComboBox());
  desk.box->SetItems(
      {{.id = 1, .text = QStringLiteral("100")}, {.id = 2, .text = QStringLiteral("100")}});
  desk.box->ById(2);
  desk.Leave();
  QCOMPARE(desk.box->CurrentId(), 2);
}

void BoxesTest::FillingSendsNoChoice() {
  Desk<ComboBox> desk(States(ComboBox::Entry::kItemsOnly));
  desk.box->ById(7);
  QSignalSpy chosen(desk.box, &QComboBox::currentIndexChanged);
  desk.box->SetTexts({QStringLiteral("S"), QStringLiteral("P")});
  QCOMPARE(chosen.count(), 0);
  QVERIFY(!desk.box->HasChoice());
  QVERIFY(desk.box->ByText(QStringLiteral("p")));
  QCOMPARE(desk.box->CurrentId(), 1);
}

void BoxesTest::WheelOverAListThatIsNotEnteredChangesNothing() {
  Desk<ComboBox> desk(States(ComboBox::Entry::kItemsOnly));
  desk.box->ById(7);
  desk.Leave();
  QWheelEvent wheel({5, 5}, desk.box->mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                    Qt::NoModifier, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(desk.box, &wheel);
  QCOMPARE(desk.box->CurrentId(), 7);
}

static const quorvane::test::RegisterTest<BoxesTest> kRegistered;

#include "BoxesTest.moc"
