#include "support/Files.h"
#include "support/OnScreen.h"
#include "support/Test.h"
#include "ui/Features.h"
#include "ui/help/FrmHelp.h"

#include <QDirIterator>
#include <QRegularExpression>

using namespace quorvane;
using namespace quorvane::ui;

namespace {
const QString kGuide = QStringLiteral(QUORVANE_SOURCE_DIR "/docs/user-guide");
}

class FrmHelpTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void WindowLeadsToItsChapter_data() {
    const test::Table<QString, QString> row;
    row("main window", "MDIForm1", "main-window.md");
    row("any capitals", "FRMBROKER", "masters.md");
    row("name that climbs", "../../README", "README.md");
  }
  void WindowLeadsToItsChapter() {
    const auto [window, chapter] = test::Table<QString, QString>::Row();
    QWidget main;
    Help help(kGuide);
    FrmHelp* shown = help.Show(window, &main);
    QVERIFY(shown->isVisible());
    QCOMPARE(shown->Guide().source().fileName(), chapter);
    QVERIFY(shown->Guide().toPlainText().size() > 100);
    QCOMPARE(help.Show("frmcalc", &main), shown);
  }

  void ModalWindowHasHelpOfItsOwn() {
    QWidget main;
    Help help(kGuide);
    FrmHelp* beside = help.Show("MDIForm1", &main);
    QWidget modal(&main, Qt::Dialog);
    modal.setWindowModality(Qt::ApplicationModal);
    modal.show();
    FrmHelp* over = help.Show("FrmBroker", &modal);
    QVERIFY(over != beside);
    QCOMPARE(over->parentWidget(), &modal);
  }

  /// Every chapter is reached from the index, and no link or picture of the guide is broken.
  void GuideHasNoBrokenLink() {
    int links = 0;
    QDirIterator files(kGuide, {"*.md"});
    while (files.hasNext()) {
      const QString path = files.next();
      auto found = QRegularExpression(R"(\]\(([^)#]+)\))")
                       .globalMatch(QString::fromUtf8(test::ReadFile(path)));
      while (found.hasNext()) {
        const QString target = found.next().captured(1);
        QVERIFY2(QFile::exists(QFileInfo(path).dir().filePath(target)),
                 qPrintable(path + ": " + target));
        ++links;
      }
    }
    QVERIFY(links > 0);
    for (const Feature& feature : Features()) {
      QVERIFY2(QFile::exists(kGuide + "/" + feature.chapter), feature.chapter);
    }
    const QString index = QString::fromUtf8(test::ReadFile(kGuide + "/README.md"));
    for (const QString& chapter : QDir(kGuide).entryList({"*.md"})) {
      QVERIFY2(chapter == "README.md" || index.contains("(" + chapter + ")"), qPrintable(chapter));
    }
  }
};

static const quorvane::test::RegisterTest<FrmHelpTest> kRegistered;
#include "FrmHelpTest.moc"
