#include "admin/documents/window/frmdocuments.h"
#include "masters/clients/Documents.h"
#include "support/OnScreen.h"
#include "support/RecordingMessages.h"
#include "support/Test.h"
#include "support/TestDatabase.h"

#include <QDir>
#include <QSignalSpy>

using namespace quorvane;
using namespace quorvane::documents;

class frmdocumentsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void DocumentsOfAllClientsAreListedAndShown() {
    const QTemporaryDir folder;
    test::TestDatabase database;
    app::Session session;
    session.connection = std::make_unique<database::Connection>(database.Settings());
    session.folders = app::Folders::At(folder.path());
    const ClientId first = database.AddClient("B1");
    const ClientId second = database.AddClient("A1");
    const ClientId climbing = database.AddClient("C1");
    database.AddClient("D1");
    database->Execute("Update ClientInfo Set SignDoc='sign.txt' Where Id=?", first.value);
    database->Execute("Update ClientInfo Set SignDoc='gone.gif' Where Id=?", second.value);
    database->Execute("Update ClientInfo Set SignDoc='../../secret.txt' Where Id=?",
                      climbing.value);
    const QString kept = folder.filePath(QStringLiteral("SignDocs/%1").arg(first.value));
    QVERIFY(QDir().mkpath(kept));
    test::WriteFile(kept + "/sign.txt", "Signed");
    test::WriteFile(folder.filePath("secret.txt"), "Secret");

    test::RecordingMessages messages;
    QStringList opened;
    controls::Desk desk{session, messages};
    desk.open_file = [&](const QString& path) {
      opened.append(path);
      return true;
    };
    frmdocuments window(desk);
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    test::PutOnScreen(window);
    auto& list = *window.findChild<controls::Grid*>();
    QCOMPARE(list.Model().RowCount(), 3);
    QCOMPARE(list.Model().Text(0, 0), QString("A1"));
    QCOMPARE(list.Model().Text(0, 4), QString("missing"));
    QCOMPARE(list.Model().Text(1, 4), QString("6 bytes"));
    QCOMPARE(list.Model().Text(2, 4), QString("missing"));

    auto& viewer = *window.findChild<documents::DocumentViewer*>();
    list.SelectId(first.value);
    QTRY_VERIFY(!viewer.IsEmpty());
    QVERIFY(viewer.Page().text.contains("Signed"));
    window.findChild<controls::ZENButton*>("cmdOpen")->click();
    QCOMPARE(opened, QStringList(kept + "/sign.txt"));
    list.SelectId(climbing.value);
    QVERIFY(viewer.IsEmpty());
    QVERIFY(!window.findChild<controls::ZENButton*>("cmdOpen")->isEnabled());
    QCOMPARE(messages.Texts(), QStringList());
  }
};

static const test::RegisterTest<frmdocumentsTest> kRegistered;
#include "frmdocumentsTest.moc"
