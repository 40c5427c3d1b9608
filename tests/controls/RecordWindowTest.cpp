#include "controls/ComboBox.h"
#include "controls/FieldLayout.h"
#include "controls/RecordWindow.h"
#include "support/OnScreen.h"
#include "support/RecordingMessages.h"
#include "support/Test.h"

#include <QApplication>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QSignalSpy>

#include <map>
#include <stdexcept>

using namespace quorvane::controls;
using quorvane::Field;
using quorvane::MaybeRefusal;
using quorvane::Refusal;
using quorvane::test::RecordingMessages;
using quorvane::text::MakeDate;

using quorvane::test::PutOnScreen;

namespace {

using Kind = RecordingMessages::Kind;

// Brokers in memory, in a window as the program's own are.
class FrmSample : public RecordWindow {
 public:
  explicit FrmSample(Desk& desk)
      : RecordWindow(desk, QStringLiteral("FrmSample"), QStringLiteral("Sample"), {400, 300},
                     QStringLiteral("VSF")) {
    auto* fields = new FieldLayout(2, Details());
    name = fields->Add(QStringLiteral("&Name"), QStringLiteral("Text1_0"), new TextBox());
    date = fields->Add(QStringLiteral("Date"), QStringLiteral("Text1_1"), new DateBox());
    Hold({{Field::kName, "Text1_0"}});
    Watch(date);
    CompleteFrom(name, [this]() -> QStringList {
      if (broken) {
        throw std::runtime_error("no names");
      }
      return {QStringLiteral("SHAH")};
    });
    List().SetColumns({{.heading = QStringLiteral("Name")}});
    Start();
  }

  std::string_view RecordTable() const override { return {}; }

  void FillList() override {
    std::vector<Row> rows;
    for (const auto& [id, text] : records) {
      rows.push_back({.id = id, .cells = {text}});
    }
    List().SetRows(std::move(rows));
  }

  void Clear() override {
    name->clear();
    date->clear();
  }

  void Load(int id) override { name->setText(records.at(id)); }

  MaybeRefusal Save() override {
    if (broken) {
      throw std::runtime_error("disk full");
    }
    if (name->text().isEmpty()) {
      return Refusal{QStringLiteral("Enter Name."), Field::kName};
    }
    if (CurrentId() == 0) {
      SetCurrentId(records.empty() ? 1 : records.rbegin()->first + 1);
    }
    records[CurrentId()] = name->text();
    return std::nullopt;
  }

  void Remove(int id) override { records.erase(id); }

  std::map<int, QString> records{{1, QStringLiteral("ALPHA")}, {4, QStringLiteral("BETA")}};
  TextBox* name;
  DateBox* date;
  bool broken = false;
};

struct Shown {
  Shown() { PutOnScreen(*window); }
  ~Shown() { delete window; }

  ZENButton& Button(const char* name) const {
    return *window->findChild<ZENButton*>(QLatin1String(name));
  }

  void Click(const char* name) const { QTest::mouseClick(&Button(name), Qt::LeftButton); }

  QStringList Enabled() const {
    QStringList names;
    for (const char* name : {"cmdAdd", "cmdModify", "cmdUpdate", "cmdCancel", "CmdDelete"}) {
      if (Button(name).isEnabled()) {
        names.append(QLatin1String(name));
      }
    }
    return names;
  }

  quorvane::app::Session session;
  RecordingMessages messages;
  Desk desk{session, messages, [] { return *MakeDate(15, 11, 2011); }};
  QPointer<FrmSample> window = new FrmSample(desk);
};

const QStringList kEditing{QStringLiteral("cmdUpdate"), QStringLiteral("cmdCancel")};

}  // namespace

class RecordWindowTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void OpensBrowsingWithARowChosen() {
    const Shown shown;
    QVERIFY(shown.window->List().isVisible());
    QTRY_VERIFY(shown.window->List().hasFocus());
    QCOMPARE(shown.window->CurrentId(), 1);
    QCOMPARE(shown.window->name->text(), QStringLiteral("ALPHA"));
    shown.window->List().SelectId(4);
    QCOMPARE(shown.window->CurrentId(), 4);
    QCOMPARE(shown.window->name->text(), QStringLiteral("BETA"));
    QCOMPARE(shown.Enabled(), (QStringList{QStringLiteral("cmdAdd"), QStringLiteral("cmdModify"),
                                           QStringLiteral("CmdDelete")}));
  }

  void KeyboardAloneAddsARecord() {
    const Shown shown;
    QTest::keyClick(shown.window, Qt::Key_A, Qt::AltModifier);
    QTRY_VERIFY(shown.window->IsEditing());
    QTRY_COMPARE(QApplication::focusWidget(), shown.window->name);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("delta"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), shown.window->date);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("010411"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(!shown.window->IsEditing());
    QCOMPARE(shown.window->records.at(5), QStringLiteral("DELTA"));
    // Exactly the saved row is chosen, and the next key does not open it again.
    QCOMPARE(shown.window->List().SelectedText(), QStringLiteral("DELTA"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(shown.window->IsEditing());
    QCOMPARE(shown.window->CurrentId(), 0);
  }

  void RefusalFocusesItsField() {
    const Shown shown;
    shown.Click("cmdAdd");
    shown.Click("ImgBack_1");
    shown.Click("cmdUpdate");
    QCOMPARE(shown.messages.LastText(), QStringLiteral("Enter Name."));
    QCOMPARE(shown.messages.said.back().kind, Kind::kRefuse);
    QVERIFY(shown.window->name->isVisible());
    QVERIFY(shown.window->name->hasFocus());
    QVERIFY(shown.window->IsEditing());
  }

  void FailedSaveKeepsFormAndState() {
    const Shown shown;
    shown.Click("cmdAdd");
    QTest::keyClicks(shown.window->name, QStringLiteral("x"));
    shown.window->broken = true;
    shown.Click("cmdUpdate");
    QCOMPARE(shown.messages.LastText(), QStringLiteral("cmdUpdate_Click: disk full"));
    QCOMPARE(shown.window->name->text(), QStringLiteral("X"));
    QCOMPARE(shown.Enabled(), kEditing);
  }

  void CancelShowsTheRecordAgain() {
    const Shown shown;
    shown.window->List().SelectId(4);
    shown.Click("cmdModify");
    QTest::keyClicks(shown.window->name, QStringLiteral("spoilt"));
    shown.Click("cmdCancel");
    QCOMPARE(shown.window->name->text(), QStringLiteral("BETA"));
    QCOMPARE(shown.window->CurrentId(), 4);
    QVERIFY(!shown.window->IsEditing());
  }

  void DeletingAsksWithNoAsPreset() {
    const Shown shown;
    shown.window->List().SelectId(4);
    shown.Click("CmdDelete");
    const RecordingMessages::Message& question = shown.messages.said.back();
    QCOMPARE(question.text, QStringLiteral("Are You Sure, You want to Delete this Record?"));
    QVERIFY(question.preset == Answer::kNo && question.icon == Icon::kCritical);
    QCOMPARE(shown.window->records.size(), std::size_t{2});
  }

  void DeletedRecordGoesAndTheNextIsShown() {
    Shown shown;
    shown.window->List().SelectId(1);
    shown.messages.WillAnswer(true);
    shown.Click("CmdDelete");
    QCOMPARE(shown.window->List().Model().RowCount(), 1);
    QCOMPARE(shown.window->CurrentId(), 4);
    const auto* how_to_begin = shown.window->List().viewport()->findChild<QLabel*>();
    QVERIFY(!how_to_begin->isVisible());
    shown.messages.WillAnswer(true);
    shown.Click("CmdDelete");
    QCOMPARE(shown.window->CurrentId(), 0);
    QVERIFY(how_to_begin->isVisible());
    QCOMPARE(shown.Enabled(), QStringList{QStringLiteral("cmdAdd")});
    QCOMPARE(shown.window->name->text(), QString());
  }

  void ImproperDateLeadsBack() {
    const Shown shown;
    shown.Click("cmdAdd");
    shown.window->date->setFocus();
    QTest::keyClicks(shown.window->date, QStringLiteral("30022011"));
    QTest::keyClick(shown.window->date, Qt::Key_Backtab);
    QCOMPARE(shown.messages.LastText(), QStringLiteral("Enter Proper Date."));
    QVERIFY(shown.window->date->hasFocus());
  }

  void CancelIsNotHeldUpByAnImproperDate() {
    const Shown shown;
    shown.Click("cmdAdd");
    shown.window->date->setFocus();
    QTest::keyClicks(shown.window->date, QStringLiteral("99"));
    shown.Click("cmdCancel");
    QVERIFY2(shown.messages.said.empty(), qPrintable(shown.messages.LastText()));
    QVERIFY(!shown.window->IsEditing());
  }

  void EscapeCancelsThenCloses() {
    Shown shown;
    QSignalSpy closed(shown.window, &ChildWindow::Closed);
    shown.Click("cmdAdd");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(!shown.window->IsEditing());
    QCOMPARE(closed.count(), 0);
    // Nothing that was entered goes unasked; No is the default.
    shown.Click("cmdModify");
    QTest::keyClicks(shown.window->name, QStringLiteral("x"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(shown.window->IsEditing());
    shown.messages.WillAnswer(true);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(!shown.window->IsEditing());
    QCOMPARE(shown.messages.said.size(), std::size_t{2});
    QTest::keyClick(shown.window, Qt::Key_Escape);
    QCOMPARE(closed.count(), 1);
  }

  void UnsavedRecordIsNotClosedUnasked() {
    Shown shown;
    shown.Click("cmdAdd");
    QVERIFY(!shown.window->close());
    QVERIFY(shown.window->isVisible());
    shown.messages.WillAnswer(true);
    QVERIFY(shown.window->close());
  }

  void ClosedWindowTakesItsFrameAlong() {
    Shown shown;
    for (const bool by_frame : {false, true}) {
      QMdiArea area;
      area.resize(800, 600);
      area.show();
      QPointer<FrmSample> window = new FrmSample(shown.desk);
      QSignalSpy closed(window, &ChildWindow::Closed);
      window->OpenIn(area);
      by_frame ? area.subWindowList().front()->close() : window->close();
      QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      QCOMPARE(closed.count(), 1);
      QVERIFY(window.isNull());
      QVERIFY(area.subWindowList().isEmpty());
    }
  }

  void FormIsScaledFromItsDesign() {
    Shown shown;
    shown.session.screen_factors = {.horizontal = 1.5F, .vertical = 1.25F};
    QMdiArea area;
    area.resize(2000, 1600);
    area.show();
    auto* window = new FrmSample(shown.desk);
    window->date->setFixedWidth(100);
    window->OpenIn(area);
    QCOMPARE(window->sizeHint(), QSize(600, 375));
    QCOMPARE(window->date->width(), 150);
  }

  void HelpKeyNamesTheWindow() {
    const Shown shown;
    QSignalSpy help(shown.window, &ChildWindow::HelpRequested);
    QTest::keyClick(shown.window, Qt::Key_F1);
    QCOMPARE(help.count(), 1);
    QCOMPARE(help.front().front().toString(), QStringLiteral("FrmSample"));
  }
};

static const quorvane::test::RegisterTest<RecordWindowTest> kRegistered;
#include "RecordWindowTest.moc"
