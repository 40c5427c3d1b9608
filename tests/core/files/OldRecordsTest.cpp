#include "core/files/OldRecords.h"
#include "support/Test.h"

using namespace quorvane::files;
using Texts = std::vector<std::string>;
using Pieces = std::vector<std::string_view>;

class OldRecordsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void PackedNumberIsUnpacked() {
    QCOMPARE(PackedNumber(0x3FF00000), 1.0);
    QCOMPARE(PackedNumber(0x3FF00001), 0.01);
    QCOMPARE(PackedNumber(115010U << 2U | 3U), 1150.10);
    QCOMPARE(PackedNumber(static_cast<std::uint32_t>(-5 * 4) | 2U), -5.0);
  }

  void SharedTextMayBreakBetweenItsLetters() {
    using namespace std::string_view_literals;
    const Texts wanted{"AB", "CDé", "E"};
    const std::string_view head = "\3\0\0\0\3\0\0\0\2\0\0AB"sv;
    QCOMPARE(SharedOldTexts(Pieces{"\3\0\0\0\3\0\0\0\2\0\0AB\3\0\1C\0D\0\xE9\0\1\0\0E"sv}), wanted);
    // The rest of the text tells its width anew; here it becomes narrow, there it stays wide.
    QCOMPARE(SharedOldTexts(Pieces{head, "\3\0\1C\0"sv, "\0D\xE9\1\0\0E"sv}), wanted);
    QCOMPARE(SharedOldTexts(Pieces{head, "\3\0\1C\0"sv, "\1D\0\xE9\0\1\0\0E"sv}), wanted);
    // Looks of letters follow the text and may break, too.
    QCOMPARE(SharedOldTexts(Pieces{"\3\0\0\0\3\0\0\0\2\0\10\1\0ABxx"sv,
                                   "xx\3\0\5\2\0\0\0C\0D\0\xE9\0yy\1\0\0E"sv}),
             wanted);
    // What is missing is left out.
    QCOMPARE(SharedOldTexts(Pieces{head, "\3\0\1C\0D"sv}).size(), std::size_t{2});
    QVERIFY(SharedOldTexts(Pieces{""sv}).empty());
  }

  void RecordThatIsNotWholeEndsTheWalk() {
    using namespace std::string_view_literals;
    OldRecords records("\1\0\2\0ab\2\0\1\0c\3\0\5\0de"sv, 0);
    QVERIFY(records.Next());
    QCOMPARE(records.Current().data, "ab"sv);
    QVERIFY(records.Next());
    QCOMPARE(records.Current().kind, 2);
    QVERIFY(!records.Next());
    QVERIFY(!OldRecords("abcd"sv, 1'000).Next());
  }
};

static const quorvane::test::RegisterTest<OldRecordsTest> kRegistered;
#include "OldRecordsTest.moc"
