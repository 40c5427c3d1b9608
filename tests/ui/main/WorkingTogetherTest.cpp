#include "controls/ComboBox.h"
#include "controls/Grid.h"
#include "controls/RecordWindow.h"
#include "controls/TextBox.h"
#include "core/changes/Log.h"
#include "core/records/Masters.h"
#include "core/records/Writing.h"
#include "support/Records.h"
#include "support/Test.h"
#include "ui/main/ShownMain.h"

#include <QLabel>
#include <QLineEdit>

using namespace quorvane;

/// The main window, and another program that works on the same database.
class WorkingTogetherTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    shown_.emplace();
    other_.emplace(shown_->database.Settings());
    other_->SetAuthor({QStringLiteral("RAVI"), QStringLiteral("desk-2")});
    shown_->session.connection->SetAuthor({QStringLiteral("ANITA"), QStringLiteral("desk-1")});
    Put(QStringLiteral("LOTUS"));
  }
  void cleanup() {
    other_.reset();
    shown_.reset();
  }

  void WhatOthersSaveAppearsInOpenLists() {
    controls::RecordWindow* window = OpenBrokers();
    QCOMPARE(window->List().Model().Text(0, 0), "LOTUS");
    Put(QStringLiteral("ROSE"));
    QTRY_COMPARE_WITH_TIMEOUT(window->List().Model().Text(0, 0), QStringLiteral("ROSE"),
                              test::kPatience);
    // What the list does not show.
    Put(QStringLiteral("ROSE"), QStringLiteral("1 MILL LANE"));
    QTRY_COMPARE_WITH_TIMEOUT(shown_->Named<controls::LinesBox>("Text1_1")->text(),
                              QStringLiteral("1 MILL LANE"), test::kPatience);
    QCOMPARE(shown_->messages.Texts(), QStringList());
  }

  /// What is being entered stays; the line below tells, and the save shows what differs.
  void RecordUnderEditIsNotOverwritten() {
    controls::RecordWindow* window = OpenBrokers();
    Click("cmdModify");
    auto* name = shown_->Named<QLineEdit>("Text1_0");
    name->setText(QStringLiteral("MINE"));
    Put(QStringLiteral("THEIRS"));
    auto* notice = window->findChild<QLabel*>(QStringLiteral("lblNotice"));
    QTRY_VERIFY_WITH_TIMEOUT(notice->text().startsWith(QStringLiteral("RAVI changed this record")),
                             test::kPatience);
    QCOMPARE(name->text(), "MINE");
    Click("cmdUpdate");
    QVERIFY2(shown_->messages.LastText().contains(QLatin1String("THEIRS | MINE")),
             qPrintable(shown_->messages.LastText()));
    QVERIFY(window->IsEditing());
    Click("cmdUpdate");
    QVERIFY(!window->IsEditing());
    QCOMPARE(test::Rows(*other_, "Select Name From Broker"), QStringList("MINE"));
  }

  void UndoAsksAndTakesBack() {
    controls::RecordWindow* window = OpenBrokers();
    Click("cmdModify");
    shown_->Named<QLineEdit>("Text1_0")->setText(QStringLiteral("MINE"));
    shown_->Choose("mnuUndo");
    QCOMPARE(shown_->messages.LastText(), "Save or Cancel the Record that is being Entered First.");
    Click("cmdUpdate");
    shown_->messages.WillAnswer(false);
    shown_->Choose("mnuUndo");
    QVERIFY(shown_->messages.LastText().contains(QLatin1String("Broker, Name: LOTUS | MINE")));
    QCOMPARE(test::Rows(*other_, "Select Name From Broker"), QStringList("MINE"));
    shown_->messages.WillAnswer(true);
    window->List().setFocus();
    QTest::keyClick(&window->List(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(test::Rows(*other_, "Select Name From Broker"), QStringList("LOTUS"));
    QTRY_COMPARE_WITH_TIMEOUT(window->List().Model().Text(0, 0), QStringLiteral("LOTUS"),
                              test::kPatience);
    shown_->Choose("mnuUndo");
    QCOMPARE(shown_->messages.LastText(), "There is no Change of Yours to Take Back.");
  }

  void UserWhoMayOnlyLookFindsButtonsAtRest() {
    shown_->session.connection->SetAuthor({QStringLiteral("ANITA"), {}, 0});
    controls::RecordWindow* window = OpenBrokers();
    QCOMPARE(window->List().viewport()->findChild<QLabel*>()->text(), "No record is here yet.");
    for (const char* button : {"cmdAdd", "cmdModify", "CmdDelete"}) {
      QVERIFY2(!shown_->Named<controls::ZENButton>(button)->isEnabled(), button);
    }
  }

  void LogShowsBeforeAndAfter() {
    Put(QStringLiteral("ROSE"));
    shown_->desk.open(QStringLiteral("FrmChangeLog"));
    const auto* entries = shown_->Named<controls::Grid>("VSF");
    QCOMPARE(entries->Model().RowCount(), 2);
    QCOMPARE(entries->Model().Text(0, 5), "Broker ROSE");
    const auto* rows = shown_->Named<controls::Grid>("VSFRows");
    QCOMPARE(rows->Model().Text(0, 2) + "|" + rows->Model().Text(0, 3), "LOTUS|ROSE");
    shown_->Named<controls::ComboBox>("Combo2")->ByText(QStringLiteral("Added"));
    Click("CmdShow");
    QCOMPARE(entries->Model().RowCount(), 1);
    QCOMPARE(rows->Model().Text(0, 3), "LOTUS");
  }

 private:
  void Put(const QString& name, const QString& address = {}) {
    records::Broker broker;
    broker.address = address;
    broker.id = BrokerId{1};
    broker.name = name;
    database::InTransaction(*other_, [&](database::Transaction& transaction) {
      records::Replace(transaction, broker);
    });
  }

  controls::RecordWindow* OpenBrokers() {
    shown_->desk.open(QStringLiteral("FrmBroker"));
    return shown_->main->findChild<controls::RecordWindow*>(QStringLiteral("FrmBroker"));
  }

  void Click(const char* button) { shown_->Named<controls::ZENButton>(button)->click(); }

  std::optional<test::ShownMain> shown_;
  std::optional<database::Connection> other_;
};

static const test::RegisterTest<WorkingTogetherTest> kRegistered;

#include "WorkingTogetherTest.moc"
