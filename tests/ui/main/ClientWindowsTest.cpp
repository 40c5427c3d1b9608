#include "support/OnScreen.h"
#include "support/RecordingMessages.h"
#include "support/TestDatabase.h"
#include "support/TestMain.h"
#include "ui/main/MDIForm1.h"

#include <QFile>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTemporaryDir>
#include <QTest>

using namespace quorvane;

class ClientWindowsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void EachClientAndYearHasAWindowOfItsOwn() {
    test::TestDatabase database;
    const ClientId client = database.AddClient(QStringLiteral("C1"));
    const ClientId other = database.AddClient(QStringLiteral("C2"));
    QTemporaryDir folder;
    app::Session session;
    session.connection = std::make_unique<database::Connection>(database.Settings());
    session.folders.config_file = folder.filePath(QStringLiteral("Confg.ini"));
    QFile config(session.folders.config_file);
    QVERIFY(config.open(QIODevice::WriteOnly));
    config.write("[Internet]\nIndexFeed=http://127.0.0.1:9/\n");
    config.close();
    test::RecordingMessages messages;
    controls::Desk desk{session, messages};
    ui::MDIForm1 main(desk);
    test::PutOnScreen(main);
    const auto open = [&](ClientId of, int year) {
      session.current = ClientYear{of, text::FinancialYear(year)};
      session.current_client_name = QString::number(of.value);
      desk.open(QStringLiteral("FrmSalePurchase"));
      const auto* area = main.findChild<QMdiArea*>();
      return area->activeSubWindow()->windowTitle() +
             QStringLiteral(" of %1").arg(area->subWindowList().size());
    };
    const QString first = open(client, 2011);
    QVERIFY(first.endsWith(QStringLiteral("- 2011-12 of 1")));
    QVERIFY(open(client, 2012).endsWith(QStringLiteral("- 2012-13 of 2")));
    QVERIFY(open(other, 2011).endsWith(QStringLiteral("- 2 - 2011-12 of 3")));
    QVERIFY(open(client, 2011).endsWith(QStringLiteral("- 1 - 2011-12 of 3")));
    QCOMPARE(messages.Texts(), QStringList());
  }
};

static const test::RegisterTest<ClientWindowsTest> kRegistered;

#include "ClientWindowsTest.moc"
