#include "core/lookups/Choices.h"
#include "support/Files.h"
#include "support/Test.h"

#include <algorithm>

using quorvane::lookups::FillStateList;
namespace test = quorvane::test;

/// The states that an address may name.
class StateListTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void EachLineOfTheFileIsAState_data() {
    const test::Table<QByteArray, QStringList> row;
    const QStringList two{QStringLiteral("GUJARAT"), QStringLiteral("GOA")};
    row("written on Windows", QByteArray("GUJARAT\r\nGOA\r\n"), two);
    row("byte order mark", QByteArray("\xEF\xBB\xBFGUJARAT\nGOA"), two);
    row("empty file", QByteArray(), QStringList());
  }
  void EachLineOfTheFileIsAState() {
    const auto [file, states] = test::Table<QByteArray, QStringList>::Row();
    const QTemporaryDir folder;
    QCOMPARE(FillStateList(test::WriteFile(folder.filePath("statelist.txt"), file)), states);
  }

  void ShippedListNamesEveryStateOnceInCapitals() {
    const QStringList states =
        FillStateList(QStringLiteral(QUORVANE_SOURCE_DIR "/data/shipped/statelist.txt"));
    // 28 states and 8 union territories.
    QCOMPARE(states.size(), qsizetype{36});
    QVERIFY(std::is_sorted(states.begin(), states.end()));
    QVERIFY(std::adjacent_find(states.begin(), states.end()) == states.end());
    for (const QString& state : states) {
      QCOMPARE(state, state.toUpper().simplified());
      QVERIFY(!state.isEmpty());
    }
  }
};

static const quorvane::test::RegisterTest<StateListTest> kRegistered;
#include "StateListTest.moc"
