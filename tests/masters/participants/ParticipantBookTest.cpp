#include "masters/participants/ParticipantBook.h"
#include "support/DatabaseTest.h"

using namespace quorvane;
using namespace quorvane::participants;
using test::TextOf;

namespace {

Participant NewParticipant(const QString& name, const QStringList& dp_ids = {}) {
  Participant participant;
  participant.name = name;
  for (const QString& text : dp_ids) {
    participant.dp_ids.push_back({{}, text});
  }
  return participant;
}

}  // namespace

class ParticipantBookTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void cleanup() { test::Empty(**database_, {"DepPart", "DpIDs", "ClientActDet"}); }

  void SavedParticipantReadsBackAsItWas() {
    Participant participant =
        NewParticipant(QStringLiteral("O'BRIEN \\ मेहता"), {QStringLiteral("IN'30"), "मे1"});
    participant.contact = {"1, FORT\nROAD", "MUMBAI", "MAHARASHTRA", "40000100001",
                           "022",           "1",      "2",           "3",
                           "a@b.example"};
    participant.person = QStringLiteral("D'SOUZA");
    participant.designation = QStringLiteral("MANAGER");
    participant.depository = 1;
    QVERIFY(!test::Save(Book(), participant));
    QCOMPARE(participant.id.value, 1);

    const std::optional<Participant> read = Book().Load(participant.id);
    QVERIFY(read);
    QCOMPARE(read->name, participant.name);
    QVERIFY(read->contact == participant.contact);
    QCOMPARE(read->person, participant.person);
    QCOMPARE(read->designation, participant.designation);
    QCOMPARE(read->depository, 1);
    QCOMPARE(DpIds(), QStringList({"1|1|IN'30", "1|2|मे1"}));
  }

  void FirstBrokenRuleChangesNothing_data() {
    const test::Table<QString, QString, QString, Field> row;
    const QString long_id(101, QChar('1'));
    row("no name", "", long_id, "Enter Name.", Field::kName);
    row("long DP id", "NAME", long_id, "DP Id is too Long. At Most 100 Characters are Allowed.",
        Field::kDpIds);
  }
  void FirstBrokenRuleChangesNothing() {
    const auto [name, dp_id, text, field] = test::Table<QString, QString, QString, Field>::Row();
    Participant stored = NewParticipant("STORED", {"IN1"});
    QVERIFY(!test::Save(Book(), stored));
    const QStringList before = test::Contents(**database_, {"DepPart", "DpIDs"});
    Participant participant = NewParticipant(name, {dp_id});
    participant.id = stored.id;
    const MaybeRefusal refusal = test::Save(Book(), participant);
    QCOMPARE(TextOf(refusal), text);
    QCOMPARE(test::FieldOf(refusal), field);
    QCOMPARE(test::Contents(**database_, {"DepPart", "DpIDs"}), before);
  }

  void DpIdsKeepTheirNumbers() {
    Participant first = NewParticipant("FIRST", {"A", "B", "C"});
    Participant second = NewParticipant("SECOND", {"A"});
    QVERIFY(!test::Save(Book(), first));
    QVERIFY(!test::Save(Book(), second));
    QCOMPARE(second.dp_ids[0].id.value, 4);

    first.name = QStringLiteral("RENAMED");
    first.dp_ids.erase(first.dp_ids.begin() + 1);
    first.dp_ids[1].text = QStringLiteral("C/1");
    first.dp_ids.push_back({{}, "D"});
    first.dp_ids.push_back({{}, " "});
    QVERIFY(!test::Save(Book(), first));
    QCOMPARE(first.id.value, 1);
    QCOMPARE(DpIds(), QStringList({"1|1|A", "1|3|C/1", "1|5|D", "2|4|A"}));
  }

  void DeleteLeavesClientsAccounts() {
    Participant gone = NewParticipant("GONE", {"A"});
    Participant stays = NewParticipant("STAYS", {"B"});
    QVERIFY(!test::Save(Book(), gone));
    QVERIFY(!test::Save(Book(), stays));
    (*database_)->Execute("Insert Into ClientActDet Values(1,1,?,1,'1001')", gone.id);
    Book().Delete(gone.id);
    QCOMPARE(DpIds(), QStringList("2|2|B"));
    QCOMPARE(test::Rows(**database_, "Select Name From DepPart"), QStringList("STAYS"));
    QCOMPARE(test::Rows(**database_, "Select * From ClientActDet"), QStringList("1|1|1|1|1001"));
  }

 private:
  ParticipantBook Book() { return ParticipantBook(**database_); }

  QStringList DpIds() { return test::Rows(**database_, "Select * From DpIDs Order By DepId,id"); }
};

static const test::RegisterTest<ParticipantBookTest> kRegistered;
#include "ParticipantBookTest.moc"
