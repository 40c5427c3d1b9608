#include "controls/Messages.h"
#include "controls/ProgressDialog.h"
#include "controls/TextBox.h"
#include "controls/ZENButton.h"
#include "core/database/DatabaseError.h"
#include "support/OnScreen.h"
#include "support/RecordingMessages.h"
#include "support/Test.h"

#include <QApplication>
#include <QMessageBox>
#include <QSignalSpy>
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
namespace test = quorvane::test;

DatabaseError Failure(const char* state) {
  return {state, 0, "server text", "Select 1"};
}

class Counter : public QObject {
 public:
  void Count() { ++count; }
  void Fail() { throw std::runtime_error("inner"); }

  int count = 0;
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
  void WhatEscapesIsReportedUnderTheHandlersName_data() {
    const test::Table<Work, QString> row;
    row("standard", Work([] { throw std::runtime_error("no disk"); }), "cmdUpdate_Click: no disk");
    row("foreign", Work([] { throw 5; }), "cmdUpdate_Click: An unknown failure.");
  }
  void WhatEscapesIsReportedUnderTheHandlersName() {
    const auto [work, text] = test::Table<Work, QString>::Row();
    RecordingMessages messages;
    QVERIFY(!Guard(messages).Run(QStringLiteral("cmdUpdate_Click"), work));
    QCOMPARE(messages.said.size(), std::size_t{1});
    QCOMPARE(messages.said[0].kind, Kind::kRefuse);
    QCOMPARE(messages.LastText(), text);
  }

  void CancellingIsNoFailure() {
    RecordingMessages messages;
    QVERIFY(!Guard(messages).Run(QStringLiteral("x_Click"), [] { throw Cancellation(); }));
    QCOMPARE(messages.said[0].kind, Kind::kInform);
  }

  void InnerFailureLeavesTheOuterHandlerRunning() {
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

  void DatabaseFailureTellsWhatToDo_data() {
    const test::Table<QByteArray, QString> row;
    row("deadlock", QByteArray("40001"), "Nothing was changed. Please try again.");
    row("lost", QByteArray("08S01"), "Check whether the last record was saved");
    row("other", QByteArray("42S02"), "still in the window");
  }
  void DatabaseFailureTellsWhatToDo() {
    const auto [state, hint] = test::Table<QByteArray, QString>::Row();
    RecordingMessages messages;
    Guard(messages).Run(QStringLiteral("cmdUpdate_Click"), [&] { throw Failure(state); });
    QVERIFY2(messages.LastText().contains(hint), qPrintable(messages.LastText()));
    QVERIFY(messages.LastText().contains(QStringLiteral("server text")));
  }

  void BoxesAskWithTheirPresetAnswer_data() {
    const test::Table<bool, int, bool> row;
    row("yes pressed", false, int{QMessageBox::Yes}, true);
    row("no pressed", true, int{QMessageBox::No}, false);
    row("closed is no", true, int{QMessageBox::NoButton}, false);
  }
  void BoxesAskWithTheirPresetAnswer() {
    const auto [preset_yes, press, answer] = test::Table<bool, int, bool>::Row();
    BoxDriver driver(static_cast<QMessageBox::StandardButton>(press));
    MessageBoxes boxes;
    QCOMPARE(boxes.Ask(QStringLiteral("Sure <b>?"), preset_yes ? Answer::kYes : Answer::kNo,
                       Icon::kCritical),
             answer);
    QCOMPARE(driver.preset, preset_yes ? QMessageBox::Yes : QMessageBox::No);
    QCOMPARE(driver.icon, QMessageBox::Critical);
    QCOMPARE(driver.title, QStringLiteral("Quorvane: ver 2.12.2 "));
  }

  void LongWorkIsShownAndBlocksOtherWindows() {
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

  void EscapeCancelsLongWork() {
    ProgressDialog progress(nullptr);
    progress.Begin(QStringLiteral("Rebuilding"), 0);
    PassTime(progress, 400);
    QVERIFY(QApplication::activeModalWidget() != nullptr);
    QTest::keyClick(QApplication::activeModalWidget(), Qt::Key_Escape);
    QVERIFY(progress.Cancelled());
    QVERIFY_EXCEPTION_THROWN(progress.ThrowIfCancelled(), Cancellation);
  }

  void EnterAndMnemonicPressAButton() {
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

  void MnemonicSettlesTheBoxFirst() {
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
    connect(button, &QAbstractButton::clicked, this,
            [&] { order.append(QStringLiteral("click")); });
    QTest::keyClick(&window, Qt::Key_P, Qt::AltModifier);
    QTRY_COMPARE(order, (QStringList{QStringLiteral("left"), QStringLiteral("click")}));
  }
};

static const quorvane::test::RegisterTest<GuardTest> kRegistered;
#include "GuardTest.moc"
