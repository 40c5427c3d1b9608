#include "admin/calculator/window/frmcalc.h"
#include "support/OnScreen.h"
#include "support/RecordingMessages.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QListWidget>

using namespace quorvane;
using namespace quorvane::calculator;

class frmcalcTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    window_ = new frmcalc(desk_);
    test::PutOnScreen(*window_);
  }
  void cleanup() { delete window_; }

  void KeysGive_data() {
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("display");
    QTest::newRow("no binary dust") << "0.1+0.2="
                                    << "0.3";
    QTest::newRow("no dust left over") << "0.1+0.2-0.3="
                                       << "0";
    QTest::newRow("third and back") << "1/3*3="
                                    << "1";
    QTest::newRow("rounded, not cut") << "2/3="
                                      << "0.666666666666667";
    QTest::newRow("left to right") << "2+3*4="
                                   << "20";
    QTest::newRow("operation changed") << "6+*7="
                                       << "42";
    QTest::newRow("repeated") << "5+3==="
                              << "14";
    QTest::newRow("part on top") << "500+18%="
                                 << "590";
    QTest::newRow("part off") << "500-10%="
                              << "450";
    QTest::newRow("part of a product") << "2500*0.125%="
                                       << "3.125";
    QTest::newRow("by zero") << "5/0="
                             << "Division by Zero";
    QTest::newRow("keys after an error") << "5/0=7+1="
                                         << "Division by Zero";
    QTest::newRow("far apart") << "99999999999999.5+0.5="
                               << "10,00,00,00,00,00,000";
    QTest::newRow("too large") << "999999999999999*999999999999999="
                               << "The Number is too Large";
    QTest::newRow("tiny") << "0.00000001*0.00000001="
                          << "0.0000000000000001";
    QTest::newRow("second point") << "1.2.5+0="
                                  << "1.25";
    QTest::newRow("typed commas") << "1,000+1,23,456.50="
                                  << "1,24,456.5";
    QTest::newRow("typed zeros") << "007.50"
                                 << "7.50";
  }

  void KeysGive() {
    QFETCH(const QString, keys);
    Type(keys);
    QTEST(Display(), "display");
  }

  void CopiedAmountIsTaken_data() {
    QTest::addColumn<QString>("copied");
    QTest::addColumn<QString>("display");
    QTest::newRow("plain") << "12.5\n"
                           << "12.5";
    QTest::newRow("Indian commas") << "1,23,456.50"
                                   << "1,23,456.5";
    QTest::newRow("currency") << "Rs. 500"
                              << "500";
    QTest::newRow("in brackets") << "(12.50)"
                                 << "-12.5";
    QTest::newRow("no number") << "12 shares"
                               << "0";
    QTest::newRow("nothing") << ""
                             << "0";
  }

  void CopiedAmountIsTaken() {
    QFETCH(const QString, copied);
    QFETCH(const QString, display);
    QApplication::clipboard()->setText(copied);
    QTest::keyClick(window_, Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Display(), display);
    QCOMPARE(messages_.said.empty(), display != "0");
    messages_.said.clear();
  }

  void SumsAreKeptAndCopied() {
    Type("12+3=");
    Type("100/8=");
    QTest::mouseClick(Button("cmdCopyAll"), Qt::LeftButton);
    QCOMPARE(QApplication::clipboard()->text(), QString("12 + 3 = 15\n100 ÷ 8 = 12.5"));
    auto* list = window_->findChild<QListWidget*>();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, Qt::NoModifier,
                      list->visualItemRect(list->item(0)).center());
    QCOMPARE(Display(), QString("15"));
    QTest::keyClick(window_, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QString("15"));
  }

  void MemoryOutlivesClear() {
    Type("12.5");
    QTest::mouseClick(Button("cmdMPlus"), Qt::LeftButton);
    Type("2.5");
    QTest::mouseClick(Button("cmdMMinus"), Qt::LeftButton);
    QTest::keyClick(window_, Qt::Key_Escape);
    QCOMPARE(Display(), QString("0"));
    QVERIFY(window_->isVisible());
    Type("3*");
    QTest::mouseClick(Button("cmdMR"), Qt::LeftButton);
    QTest::keyClick(window_, Qt::Key_Return);
    QCOMPARE(Display(), QString("30"));
  }

 private:
  void Type(const QString& keys) const {
    for (const QChar key : keys) {
      QTest::keyClick(window_, key.toLatin1());
    }
  }
  QString Display() const {
    return window_->findChild<QLabel*>(QStringLiteral("lblDisplay"))->text();
  }
  controls::ZENButton* Button(const char* name) const {
    return window_->findChild<controls::ZENButton*>(QLatin1String(name));
  }

  app::Session session_;
  test::RecordingMessages messages_;
  controls::Desk desk_{session_, messages_};
  frmcalc* window_ = nullptr;
};

namespace {
const test::RegisterTest<frmcalcTest> kRegistered;
}

#include "frmcalcTest.moc"
