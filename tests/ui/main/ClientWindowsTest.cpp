#include "core/lookups/Directory.h"
#include "portfolio/Import.h"
#include "reporting/screen/window/ReportGridView.h"
#include "support/Test.h"
#include "ui/Features.h"
#include "ui/main/ShownMain.h"

using namespace quorvane;

class ClientWindowsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void EachClientAndYearHasAWindowOfItsOwn() {
    test::ShownMain shown;
    const ClientId client = shown.database.AddClient(QStringLiteral("C1"));
    const ClientId other = shown.database.AddClient(QStringLiteral("C2"));
    const auto open = [&](ClientId of, int year) {
      shown.session.current = ClientYear{of, text::FinancialYear(year)};
      shown.session.current_client_name = QString::number(of.value);
      shown.desk.open(QStringLiteral("FrmSalePurchase"));
      const auto* area = shown.main->findChild<QMdiArea*>();
      return area->activeSubWindow()->windowTitle() +
             QStringLiteral(" of %1").arg(area->subWindowList().size());
    };
    const QString first = open(client, 2011);
    QVERIFY(first.endsWith(QStringLiteral("- 2011-12 of 1")));
    QVERIFY(open(client, 2012).endsWith(QStringLiteral("- 2012-13 of 2")));
    QVERIFY(open(other, 2011).endsWith(QStringLiteral("- 2 - 2011-12 of 3")));
    QVERIFY(open(client, 2011).endsWith(QStringLiteral("- 1 - 2011-12 of 3")));
    QCOMPARE(shown.messages.Texts(), QStringList());
  }

  // Windows of two clients stand beside each other: titles and reports are the window's own
  // client's, whoever is current by then.
  void EveryWindowKeepsItsClient() {
    test::ShownMain shown;
    Progress progress;
    const auto taken = portfolio::ImportPortfolio(
        *shown.session.connection, QStringLiteral(QUORVANE_SOURCE_DIR "/data/sample"), false,
        progress);
    QVERIFY(taken.errors.empty());
    const lookups::Directory directory(*shown.session.connection);
    const auto make_current = [&](const char* code, int year) {
      const lookups::ClientEntry* client = directory.FindClient(code);
      shown.session.current = ClientYear{client->id, text::FinancialYear(year)};
      shown.session.current_client_name = QString::fromStdString(client->name);
      return shown.session.current_client_name;
    };
    QStringList printed;
    shown.desk.show_report = [&](const reporting::ReportDocument& document, QWidget*) {
      printed << TitlesOf(document);
    };
    const QString own = make_current("ATH001", 2012);
    for (const ui::Feature& feature : ui::Features()) {
      if (feature.action == ui::MenuAction::kClientSelection && feature.make != nullptr) {
        shown.session.target = QLatin1String(feature.name);
        shown.desk.open(shown.session.target);
      }
    }
    const QString other = make_current("ATH002", 2011);
    const auto windows = shown.main->findChildren<controls::ChildWindow*>();
    QCOMPARE(windows.size(), 19);
    for (const controls::ChildWindow* window : windows) {
      QVERIFY2(window->windowTitle().contains(own), qPrintable(window->windowTitle()));
      if (auto* button = window->findChild<controls::ZENButton*>(QStringLiteral("CmdReport"))) {
        button->click();
      }
      if (const auto* screen = window->findChild<reporting::ReportGridView*>()) {
        printed << TitlesOf(screen->Model().Document());
      }
    }
    QCOMPARE(printed.size(), 11);
    for (const QString& titles : printed) {
      QVERIFY2(titles.contains(own) && !titles.contains(other), qPrintable(titles));
    }
  }

 private:
  static QString TitlesOf(const reporting::ReportDocument& document) {
    QStringList titles = document.titles;
    for (const reporting::Table& table : document.tables) {
      titles << table.titles;
    }
    return titles.join(QLatin1Char('|'));
  }
};

static const test::RegisterTest<ClientWindowsTest> kRegistered;
#include "ClientWindowsTest.moc"
