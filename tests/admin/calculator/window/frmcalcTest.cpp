#include "admin/calculator/window/frmcalc.h"
#include "support/OnScreen.h"
#include "support/RecordingMessages.h"
#include "support/Test.h"

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
    const test::Table<QString, QString> row;
    row("no binary dust", "0.1+0.2=", "0.3");
    row("rounded, not cut", "2/3=", "0.666666666666667");
    row("repeated", "5+3===", "14");
    row("part on top", "500+18%=", "590");
    row("part of a product", "2500*0.125%=", "3.125");
    row("by zero", "5/0=", "Division by Zero");
    row("keys after an error", "5/0=7+1=", "Division by Zero");
    row("far apart", "99999999999999.5+0.5=", "10,00,00,00,00,00,000");
    row("too large", "999999999999999*999999999999999=", "The Number is too Large");
    row("typed commas", "1,000+1,23,456.50=", "1,24,456.5");
  }
  void KeysGive() {
    const auto [keys, display] = test::Table<QString, QString>::Row();
    Type(keys);
    QCOMPARE(Display(), display);
  }

  void CopiedAmountIsTaken_data() {
    const test::Table<QString, QString> row;
    row("Indian commas", "1,23,456.50", "1,23,456.5");
    row("currency", "Rs. 500", "500");
    row("no number", "12 shares", "0");
  }
  void CopiedAmountIsTaken() {
    const auto [copied, display] = test::Table<QString, QString>::Row();
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

static const test::RegisterTest<frmcalcTest> kRegistered;
#include "frmcalcTest.moc"
