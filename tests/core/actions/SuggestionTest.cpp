#include "core/actions/Suggestion.h"
#include "core/actions/Terms.h"
#include "support/Test.h"

using namespace quorvane;

class SuggestionTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void UsualRatiosAreRecognised_data() {
    const test::Table<double, double, QString> row;
    row("doubled", 100, 200, "Bonus 1:1|Split 2:1");
    row("tenfold", 7, 70, "Split 10:1|Bonus 9:1");
    row("one for two", 100, 150, "Bonus 1:2");
    row("the fraction is paid in money", 25, 37, "Bonus 1:2");
    row("too few for a fraction", 15, 22, "");
    row("tenth", 100, 10, "Consolidation 1:10");
    row("one share bought", 100, 101, "");
    row("sold out", 100, 0, "");
    row("agrees", 100, 100, "");
    row("nothing recorded", 0, 100, "");
  }
  void UsualRatiosAreRecognised() {
    const auto [recorded, stated, expected] = test::Table<double, double, QString>::Row();
    QStringList told;
    for (const auto& one : actions::SuggestActions(text::Shares(recorded), text::Shares(stated))) {
      told << actions::Describe(one.Action());
    }
    QCOMPARE(told.join(QLatin1Char('|')), expected);
  }
};

static const test::RegisterTest<SuggestionTest> kRegistered;
#include "SuggestionTest.moc"
