#include "controls/ClGrd.h"
#include "controls/Guard.h"
#include "controls/Messages.h"
#include "controls/ProgressDialog.h"
#include "controls/ZENButton.h"
#include "core/database/DatabaseError.h"
#include "support/OnScreen.h"
#include "support/RecordingMessages.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QComboBox>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>

#include <map>
#include <stdexcept>

using namespace quorvane::controls;
using quorvane::Cancellation;
using quorvane::database::DatabaseError;
using quorvane::test::RecordingMessages;

using quorvane::test::PutOnScreen;

namespace {

using Kind = RecordingMessages::Kind;
using Work = std::function<void()>;

DatabaseError Failure(const char* state) {
  return {state, 0, "server text", "Select 1"};
}

class Counter : public QObject {
 public:
  void Count() { ++count; }
  void Take(int number) { taken = number; }
  void Fail() { throw std::runtime_error("inner"); }

  int count = 0;
  int taken = 0;
};

// Answers the message box that opens next by one key; gives its looks.
struct BoxDriver {
  explicit BoxDriver(QMessageBox::StandardButton press) {
    QTimer::singleShot(50, &context, [this, press] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr) {
        return;
      }
      title = box->windowTitle();
      text = box->text();
      icon = box->icon();
      preset = box->standardButton(box->defaultButton());
      static const std::map<QMessageBox::StandardButton, Qt::Key> kKeys{
          {QMessageBox::NoButton, Qt::Key_Escape},
          {QMessageBox::Yes, Qt::Key_Y},
          {QMessageBox::No, Qt::Key_N},
          {QMessageBox::Ok, Qt::Key_Return}};
      QTest::keyClick(QApplication::focusWidget(), kKeys.at(press));
    });
  }

  QObject context;
  QString title;
  QString text;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  QMessageBox::StandardButton preset = QMessageBox::NoButton;
};

void PassTime(ProgressDialog& progress, int milliseconds) {
  QElapsedTimer clock;
  clock.start();
  while (clock.elapsed() < milliseconds) {
    progress.Step(clock.elapsed());
  }
}

}  // namespace

Q_DECLARE_METATYPE(Work)

class GuardTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void WhatEscapesIsReportedUnderTheHandlersName_data();
  void WhatEscapesIsReportedUnderTheHandlersName();
  void CancellingIsNoFailure();
  void InnerFailureLeavesTheOuterHandlerRunning();
  void SlotMayTakeFewerArguments();
  void DatabaseFailureTellsWhatToDo_data();
  void DatabaseFailureTellsWhatToDo();
  void BoxesAskWithTheirPresetAnswer_data();
  void BoxesAskWithTheirPresetAnswer();
  void NoticesAndRefusalsDifferByIcon();
  void ShortWorkShowsNoDialog();
  void LongWorkIsShownAndBlocksOtherWindows();
  void EscapeCancelsLongWork();
  void EnterAndMnemonicPressAButton();
  void MnemonicSettlesTheBoxFirst();
  void SearchKeepsRecordsThatBeginSo();
  void SearchSurvivesAFailingSource();
};

void GuardTest::WhatEscapesIsReportedUnderTheHandlersName_data() {
  QTest::addColumn<Work>("work");
  QTest::addColumn<QString>("text");
  QTest::newRow("standard") << Work([] { throw std::runtime_error("no disk"); })
                            << "cmdUpdate_Click: no disk";
  QTest::newRow("without a text") << Work([] { throw std::runtime_error(""); })
                                  << "cmdUpdate_Click: ";
  QTest::newRow("foreign") << Work([] { throw 5; }) << "cmdUpdate_Click: An unknown failure.";
}

void GuardTest::WhatEscapesIsReportedUnderTheHandlersName() {
  QFETCH(Work, work);
  RecordingMessages messages;
  QVERIFY(!Guard(messages).Run(QStringLiteral("cmdUpdate_Click"), work));
  QCOMPARE(messages.said.size(), std::size_t{1});
  QCOMPARE(messages.said[0].kind, Kind::kRefuse);
  QTEST(messages.LastText(), "text");
}

void GuardTest::CancellingIsNoFailure() {
  RecordingMessages messages;
  QVERIFY(!Guard(messages).Run(QStringLiteral("x_Click"), [] { throw Cancellation(); }));
  QCOMPARE(messages.said[0].kind, Kind::kInform);
}

void GuardTest::InnerFailureLeavesTheOuterHandlerRunning() {
  RecordingMessages messages;
  const Guard guard(messages);
  Counter counter;
  QTimer inner;
  guard.Connect(&inner, &QTimer::objectNameChanged, &counter, &Counter::Fail,
                QStringLiteral("Inner_Change"));
  QVERIFY(guard.Run(QStringLiteral("Outer_Click"), [&] {
    inner.setObjectName(QStringLiteral("x"));
    counter.Count();
  }));
  QCOMPARE(counter.count, 1);
  QCOMPARE(messages.Texts(), QStringList{QStringLiteral("Inner_Change: inner")});
}

void GuardTest::SlotMayTakeFewerArguments() {
  RecordingMessages messages;
  const Guard guard(messages);
  Counter counter;
  QComboBox box;
  box.addItems({QStringLiteral("a"), QStringLiteral("b")});
  guard.Connect(&box, &QComboBox::currentIndexChanged, &counter, &Counter::Take, {});
  guard.Connect(&box, &QComboBox::currentIndexChanged, &counter, &Counter::Count, {});
  box.setCurrentIndex(1);
  QCOMPARE(counter.taken, 1);
  QCOMPARE(counter.count, 1);
}

void GuardTest::DatabaseFailureTellsWhatToDo_data() {
  QTest::addColumn<QByteArray>("state");
  QTest::addColumn<QString>("hint");
  QTest::newRow("deadlock") << QByteArray("40001") << "Nothing was changed. Please try again.";
  QTest::newRow("lost") << QByteArray("08S01") << "Check whether the last record was saved";
  QTest::newRow("other") << QByteArray("42S02") << "still in the window";
}

void GuardTest::DatabaseFailureTellsWhatToDo() {
  QFETCH(QByteArray, state);
  QFETCH(QString, hint);
  RecordingMessages messages;
  Guard(messages).Run(QStringLiteral("cmdUpdate_Click"), [&] { throw Failure(state); });
  QVERIFY2(messages.LastText().contains(hint), qPrintable(messages.LastText()));
  QVERIFY(messages.LastText().contains(QStringLiteral("server text")));
}

void GuardTest::BoxesAskWithTheirPresetAnswer_data() {
  QTest::addColumn<bool>("preset_yes");
  QTest::addColumn<int>("press");
  QTest::addColumn<bool>("answer");
  QTest::newRow("yes pressed") << false << int{QMessageBox::Yes} << true;
  QTest::newRow("no pressed") << true << int{QMessageBox::No} << false;
  QTest::newRow("closed is no") << true << int{QMessageBox::NoButton} << false;
}

void GuardTest::BoxesAskWithTheirPresetAnswer() {
  QFETCH(bool, preset_yes);
  QFETCH(int, press);
  BoxDriver driver(static_cast<QMessageBox::StandardButton>(press));
  MessageBoxes boxes;
  QTEST(boxes.Ask(QStringLiteral("Sure <b>?"), preset_yes ? Answer::kYes : Answer::kNo,
                  Icon::kCritical),
        "answer");
  QCOMPARE(driver.preset, preset_yes ? QMessageBox::Yes : QMessageBox::No);
  QCOMPARE(driver.icon, QMessageBox::Critical);
  QCOMPARE(driver.title, QStringLiteral("Quorvane: ver 2.12.2 "));
}

void GuardTest::NoticesAndRefusalsDifferByIcon() {
  MessageBoxes boxes;
  BoxDriver notice(QMessageBox::Ok);
  boxes.Inform(QStringLiteral("Enter Name."));
  QCOMPARE(notice.icon, QMessageBox::Information);
  QCOMPARE(notice.text, QStringLiteral("Enter Name."));
  BoxDriver refusal(QMessageBox::Ok);
  boxes.Refuse(QStringLiteral("Stop."));
  QCOMPARE(refusal.icon, QMessageBox::Critical);
}

void GuardTest::ShortWorkShowsNoDialog() {
  ProgressDialog progress(nullptr);
  progress.Begin(QStringLiteral("Saving"), 100);
  PassTime(progress, 150);
  QVERIFY(QApplication::activeModalWidget() == nullptr);
  QVERIFY(!progress.Cancelled());
}

void GuardTest::LongWorkIsShownAndBlocksOtherWindows() {
  QWidget window;
  auto* button = new ZENButton(QStringLiteral("cmdUpdate"), QStringLiteral("Update"), &window);
  window.show();
  QSignalSpy clicks(button, &QAbstractButton::clicked);
  {
    ProgressDialog progress(&window);
    progress.Begin(QStringLiteral("Rebuilding"), 1000);
    PassTime(progress, 450);
    QVERIFY(QApplication::activeModalWidget() != nullptr);
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {},
                      button->mapTo(&window, button->rect().center()));
    PassTime(progress, 100);
    QCOMPARE(clicks.count(), 0);
  }
  QVERIFY(QApplication::activeModalWidget() == nullptr);
}

void GuardTest::EscapeCancelsLongWork() {
  ProgressDialog progress(nullptr);
  progress.Begin(QStringLiteral("Rebuilding"), 0);
  PassTime(progress, 400);
  QVERIFY(QApplication::activeModalWidget() != nullptr);
  QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
  QVERIFY(progress.Cancelled());
  QVERIFY_EXCEPTION_THROWN(progress.ThrowIfCancelled(), Cancellation);
}

void GuardTest::EnterAndMnemonicPressAButton() {
  QWidget window;
  auto* button = new ZENButton(QStringLiteral("cmdAdd"), QStringLiteral("&Add"), &window);
  PutOnScreen(window);
  QSignalSpy clicks(button, &QAbstractButton::clicked);
  button->setFocus();
  QTest::keyClick(button, Qt::Key_Return);
  QCOMPARE(clicks.count(), 1);
  QTest::keyClick(&window, Qt::Key_A, Qt::AltModifier);
  QTRY_COMPARE(clicks.count(), 2);
}

void GuardTest::MnemonicSettlesTheBoxFirst() {
  QWidget window;
  auto* rows = new QVBoxLayout(&window);
  auto* box = new TextBox();
  auto* button = new ZENButton(QStringLiteral("cmdUpdate"), QStringLiteral("U&pdate"));
  rows->addWidget(box);
  rows->addWidget(button);
  PutOnScreen(window);
  box->setFocus();
  QStringList order;
  connect(box, &TextBox::Left, this, [&] { order.append(QStringLiteral("left")); });
  connect(button, &QAbstractButton::clicked, this, [&] { order.append(QStringLiteral("click")); });
  QTest::keyClick(&window, Qt::Key_P, Qt::AltModifier);
  QTRY_COMPARE(order, (QStringList{QStringLiteral("left"), QStringLiteral("click")}));
}

void GuardTest::SearchKeepsRecordsThatBeginSo() {
  RecordingMessages messages;
  const Guard guard(messages);
  ClGrd search(QStringLiteral("ClGrd1"), QStringLiteral("Clients"), guard);
  search.SetSource(SourceOf({{1, QStringLiteral("A1"), QStringLiteral("Shah")},
                             {2, QStringLiteral("A2"), QStringLiteral("Mehta")},
                             {3, QStringLiteral("B1"), QStringLiteral("SHETH")}}));
  PutOnScreen(search);
  QCOMPARE(search.List()->Model().RowCount(), 3);
  QTest::keyClicks(search.NameBox(), QStringLiteral("sh"));
  QTest::keyClicks(search.CodeBox(), QStringLiteral("b"));
  QCOMPARE(search.List()->Model().RowCount(), 1);
  QSignalSpy chosen(&search, &ClGrd::Chosen);
  QTest::keyClick(search.CodeBox(), Qt::Key_Down);
  QCOMPARE(search.CurrentId(), 3);
  QCOMPARE(search.CurrentName(), QStringLiteral("SHETH"));
  QTest::keyClick(search.List(), Qt::Key_Return);
  QCOMPARE(chosen.count(), 1);
}

void GuardTest::SearchSurvivesAFailingSource() {
  RecordingMessages messages;
  const Guard guard(messages);
  ClGrd search(QStringLiteral("ClGrd1"), QStringLiteral("Clients"), guard);
  search.SetSource(SourceOf({{1, QStringLiteral("A1"), QStringLiteral("Shah")}}));
  search.SetSource(
      [](const QString&, const QString&) -> std::vector<ClGrd::Record> { throw Failure("HY000"); });
  QCOMPARE(messages.said.size(), std::size_t{1});
  QVERIFY(messages.LastText().startsWith(QStringLiteral("ClGrd1_Change: ")));
  QCOMPARE(search.List()->Model().RowCount(), 1);
}

static const quorvane::test::RegisterTest<GuardTest> kRegistered;

#include "GuardTest.moc"
