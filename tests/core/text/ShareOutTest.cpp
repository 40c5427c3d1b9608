#include "core/text/Paise.h"
#include "support/Test.h"

#include <cmath>

using namespace quorvane;
using text::ShareOut;
using text::Shares;

class ShareOutTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void PartsAreWhatTheyShouldBe_data() {
    const test::Table<double, QList<double>, QList<double>> row;
    row("a third each", 10.0, QList<double>{1, 1, 1}, QList<double>{3.33, 3.34, 3.33});
    row("rounded beyond the whole", 0.016, QList<double>{99, 1}, QList<double>{0.016, 0});
    row("fractions of a share", 1.0, QList<double>{0.333333, 0.666667}, QList<double>{0.33, 0.67});
    row("rest with fractions of a paisa", 1234567.891234, QList<double>{1, 2},
        QList<double>{411522.63, 823045.261234});
    row("small rest of a large whole", 593.59, QList<double>{250, 355, 1},
        QList<double>{244.88, 347.73, 0.98});
    row("one part is the whole, to the last digit", 0.30000000000000004, QList<double>{7},
        QList<double>{0.30000000000000004});
  }
  void PartsAreWhatTheyShouldBe() {
    const auto [whole, quantities, parts] =
        test::Table<double, QList<double>, QList<double>>::Row();
    Shares all;
    for (const double quantity : quantities) {
      all += Shares(quantity);
    }
    ShareOut share_out(whole, all);
    for (int i = 0; i < quantities.size(); ++i) {
      QVERIFY2(share_out.Next(Shares(quantities[i])) == parts[i], qPrintable(QString::number(i)));
    }
  }

  /// Every charge of up to three paise in steps of a tenth, over every way to cut ten shares in
  /// three.
  void PartsKeepTheSignAndAddUp() {
    for (int tenths = 0; tenths <= 30; ++tenths) {
      for (int first = 1; first <= 8; ++first) {
        for (int second = 1; first + second <= 9; ++second) {
          const double whole = tenths / 1000.0;
          ShareOut share_out(whole, Shares(10));
          double sum = 0;
          for (const int quantity : {first, second, 10 - first - second}) {
            const double part = share_out.Next(Shares(quantity));
            QVERIFY(part >= 0 && !std::signbit(part));
            sum += part;
          }
          QCOMPARE(text::Tidy(sum), whole);
        }
      }
    }
  }
};

static const test::RegisterTest<ShareOutTest> kRegistered;
#include "ShareOutTest.moc"
