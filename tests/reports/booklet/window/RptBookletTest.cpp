#include "reporting/window/TickGrid.h"
#include "reports/Sample.h"
#include "reports/ShownReport.h"
#include "reports/booklet/window/RptBooklet.h"

using namespace quorvane;
using namespace quorvane::booklet;

namespace {

struct Shown : test::ShownReport<RptBooklet> {
  explicit Shown(test::TestDatabase& database)
      : ShownReport(database, "RptBooklet", "ATH001", 2011) {
    desk_.show_pages = [this](const QStringList& titles, const QByteArray& pages, QWidget*) {
      shown << titles.join(' ');
      is_pdf = pages.startsWith("%PDF");
    };
  }

  QStringList shown;
  bool is_pdf = false;
};

}  // namespace

class RptBookletTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    database_.emplace();
    test::TakeInSample(*database_);
  }

  void PagesAreShownAndWrittenOfTheChoice() {
    Shown window(*database_);
    window.Click("CmdPreview");
    window.Click("optW_1");
    window.Click("CmdPreview");
    QCOMPARE(window.messages.Texts(), QStringList());
    QCOMPARE(window.shown, QStringList({"Booklet RAGHAV MOHAN ATHALEKAR 2011-12",
                                        "Booklet RAGHAV MOHAN ATHALEKAR 2011-12 Family"}));
    QVERIFY(window.is_pdf);
    window.Click("CmdPdf");
    QCOMPARE(window.opened.size(), 1);
    QVERIFY(test::ReadFile(window.opened.front()).startsWith("%PDF"));
    window.opens = false;
    window.Click("CmdPdf");
    QVERIFY(window.messages.LastText().contains(window.opened.front()));
  }

  void NothingIsMadeWithoutAPart() {
    Shown window(*database_);
    window.Named<reporting::TickGrid>("VSF")->Fill({{1, "Value"}}, false);
    for (const char* button : {"CmdPreview", "CmdPdf"}) {
      window.Click(button);
      QCOMPARE(window.messages.LastText(), "Select a part of the booklet!");
    }
    QCOMPARE(window.shown, QStringList());
    QCOMPARE(window.opened, QStringList());
  }
};

static const test::RegisterTest<RptBookletTest> kRegistered;
#include "RptBookletTest.moc"
