#include "masters/Completions.h"
#include "support/DatabaseTest.h"

#include <fmt/format.h>

#include <algorithm>

using namespace quorvane;
using namespace quorvane::masters;

namespace {

struct BookTable {
  AddressBook book;
  const char* table;
};

constexpr BookTable kBooks[] = {{AddressBook::kClients, "ClientInfo"},
                                {AddressBook::kParticipants, "DepPart"},
                                {AddressBook::kBrokers, "Broker"}};

}  // namespace

class CompletionsTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void cleanup() { test::Empty(**database_, {"ClientInfo", "DepPart", "Broker"}); }

  void EachBookCompletesFromItsOwnRecords() {
    for (const auto& [book, table] : kBooks) {
      const QString own = QString::fromLatin1(table).toUpper();
      const std::string sql = fmt::format("Insert Into {}(Id,City,PIN,STD) Values(?,?,?,?)", table);
      (*database_)->Execute(sql, 1, QStringLiteral("COX'S BAZAR ") + own, "4700", "0341");
      (*database_)->Execute(sql, 2, own, "400002", "022");
      (*database_)->Execute(sql, 3, own, "400001", "022");
      (*database_)->Execute(sql, 4, own, "400001", " ");
      (*database_)->Execute(sql, 5, std::nullopt, "", std::nullopt);
    }
    for (const auto& [book, table] : kBooks) {
      const QString own = QString::fromLatin1(table).toUpper();
      const QStringList cities{own, QStringLiteral("COX'S BAZAR ") + own};
      QStringList found = Cities(**database_, book);
      std::sort(found.begin(), found.end(),
                [](const QString& a, const QString& b) { return a.size() < b.size(); });
      QCOMPARE(found, cities);
      QCOMPARE(PinsOf(**database_, book, own), QStringList({"400001", "400002"}));
      QCOMPARE(StdCodesOf(**database_, book, own), QStringList("022"));
      QCOMPARE(PinsOf(**database_, book, cities.last()), QStringList("4700"));
      QCOMPARE(PinsOf(**database_, book, QStringLiteral("ELSEWHERE")), QStringList());
    }
  }

  void GroupCodesAreInOrderAndOnce() {
    for (const char* code : {"SHAH", "MEHTA", "SHAH", ""}) {
      (*database_)->Execute("Insert Into ClientInfo(Id,GCode) Values(1,?)", code);
    }
    (*database_)->Execute("Insert Into ClientInfo(Id) Values(1)");
    QCOMPARE(GroupCodes(**database_), QStringList({"MEHTA", "SHAH"}));
  }
};

static const test::RegisterTest<CompletionsTest> kRegistered;
#include "CompletionsTest.moc"
