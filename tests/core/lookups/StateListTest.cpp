#include "core/lookups/Choices.h"
#include "support/TestMain.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using quorvane::lookups::FillStateList;

/// The states that an address may name.
class StateListTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void EachLineOfTheFileIsAState_data() {
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QStringList>("states");
    const QStringList two{QStringLiteral("GUJARAT"), QStringLiteral("GOA")};
    QTest::newRow("lines") << QByteArray("GUJARAT\nGOA\n") << two;
    QTest::newRow("no break at the end") << QByteArray("GUJARAT\nGOA") << two;
    QTest::newRow("written on Windows") << QByteArray("GUJARAT\r\nGOA\r\n") << two;
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBFGUJARAT\nGOA") << two;
    QTest::newRow("other letters")
        << QByteArray("गोवा\n") << QStringList{QString::fromUtf8("गोवा")};
    QTest::newRow("empty file") << QByteArray() << QStringList();
  }

  void EachLineOfTheFileIsAState() {
    QFETCH(QByteArray, file);
    QFETCH(QStringList, states);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("statelist.txt"));
    QFile written(path);
    QVERIFY(written.open(QIODevice::WriteOnly) && written.write(file) == file.size());
    written.close();
    QCOMPARE(FillStateList(path), states);
  }

  void MissingFileIsAnEmptyListAndStaysMissing() {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("statelist.txt"));
    QCOMPARE(FillStateList(path), QStringList());
    QVERIFY(!QFile::exists(path));
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
