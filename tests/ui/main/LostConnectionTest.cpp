#include "controls/ZENButton.h"
#include "core/platform/Processes.h"
#include "masters/brokers/window/FrmBroker.h"
#include "reporting/window/ReportDesk.h"
#include "support/OnScreen.h"
#include "support/RecordingMessages.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"

#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>

#include <csignal>

using namespace quorvane;

class LostConnectionWindowTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void WhatWasEnteredIsSavedOnceTheServerIsBack() {
    const QTemporaryDir folder(test::TestFolderTemplate());
    app::StartUpOptions options;
    options.application_folder = folder.filePath(QStringLiteral("app"));
    const auto session = app::StartUp(options);
    test::RecordingMessages messages;
    reporting::ReportDesk desk{{*session, messages}};
    brokers::FrmBroker window(desk);
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    test::PutOnScreen(window);
    QTest::keyClick(&window, Qt::Key_N, Qt::ControlModifier);
    window.findChild<QLineEdit*>(QStringLiteral("Text1_0"))->setText(QStringLiteral("NEW"));
    // The server dies and cannot be started again.
    session->connection->SetServerReviver(nullptr);
    const std::int64_t process = session->server->Process();
    kill(static_cast<pid_t>(process), SIGKILL);
    while (platform::IsRunning(process)) {
      QTest::qSleep(5);
    }
    const auto save = [&] {
      QTest::mouseClick(window.findChild<controls::ZENButton*>(QStringLiteral("cmdUpdate")),
                        Qt::LeftButton);
    };
    save();
    QVERIFY2(
        messages.LastText().contains(QStringLiteral("The connection to the database was lost.")),
        qPrintable(messages.LastText()));
    QVERIFY(window.IsEditing());
    session->server->Revive();
    messages.said.clear();
    save();
    QCOMPARE(messages.Texts(), QStringList());
    auto rows = session->connection->Open("Select Count(*) From Broker Where Name='NEW'");
    QVERIFY(rows.Next());
    QCOMPARE(rows.Int(0), 1);
    QVERIFY(!window.IsEditing());
  }
};

static const test::RegisterTest<LostConnectionWindowTest> kRegistered;

#include "LostConnectionTest.moc"
