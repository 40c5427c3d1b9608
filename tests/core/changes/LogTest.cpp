#include "core/changes/Chain.h"
#include "core/changes/EditedRecord.h"
#include "core/changes/Words.h"
#include "core/records/Lot.h"
#include "core/records/Masters.h"
#include "core/records/Rates.h"
#include "core/records/Writing.h"
#include "support/DatabaseTest.h"
#include "support/Records.h"

#include <thread>

using namespace quorvane;
using namespace quorvane::changes;
using database::Connection;
using database::InTransaction;
using database::Transaction;
using records::Broker;

namespace {

Broker Named(int id, const QString& name) {
  Broker broker;
  broker.id = BrokerId{id};
  broker.name = name;
  return broker;
}

void Put(Connection& connection, const Broker& broker) {
  InTransaction(connection,
                [&](Transaction& transaction) { records::Replace(transaction, broker); });
}

MaybeRefusal TryToPut(Connection& connection, const Broker& broker) {
  return InTransaction(connection, [&](Transaction& transaction) -> MaybeRefusal {
    records::Replace(transaction, broker);
    return std::nullopt;
  });
}

void Remove(Connection& connection, int id) {
  InTransaction(connection, [&](Transaction& transaction) {
    records::Delete<Broker>(transaction).Where(&Broker::id, BrokerId{id}).Run();
  });
}

std::vector<Entry> All(Connection& connection, const Filter& filter = {}) {
  std::vector<Entry> entries;
  ReadEntries(connection, filter, true, [&](const Entry& entry) { entries.push_back(entry); });
  return entries;
}

QString Told(const Entry& entry) {
  QStringList lines{NameOf(entry.kind) + QLatin1Char(' ') + SubjectOf(entry)};
  for (const Difference& one : Differences(entry.old_rows, entry.new_rows)) {
    lines << QStringLiteral("%1 %2: %3|%4").arg(one.place, one.column, one.before, one.after);
  }
  return lines.join(QLatin1String("; "));
}

}  // namespace

class LogTest : public test::DatabaseTest {
  Q_OBJECT

  Connection& Db() { return database_->Get(); }

  QStringList Faults() {
    Progress quiet;
    return CheckChain(Db(), quiet);
  }

 private Q_SLOTS:
  void init() {
    Db().SetAuthor({QStringLiteral("ANITA"), QStringLiteral("desk-1")});
    for (const char* table : {"Broker", "ChangeLog", "OpenRecord"}) {
      Db().Execute(std::string("Delete From ") + table);
    }
    Db().Execute("Update ChangeHead Set LastId=0,LastHash='',BaseId=0,BaseHash=''");
  }

  void EntryTellsWhatChangedByWhom() {
    Put(Db(), Named(7, QStringLiteral("O'BRIEN \"& SONS\"")));
    Put(Db(), Named(7, QStringLiteral("LOTUS")));
    Put(Db(), Named(7, QStringLiteral("LOTUS")));  // nothing changed
    Remove(Db(), 7);
    Remove(Db(), 7);  // nothing there
    const std::vector<Entry> entries = All(Db());
    QCOMPARE(entries.size(), std::size_t{3});
    QCOMPARE(Told(entries[0]), "Added Broker O'BRIEN \"& SONS\"; Broker Name: |O'BRIEN \"& SONS\"");
    QCOMPARE(Told(entries[1]), "Changed Broker LOTUS; Broker Name: O'BRIEN \"& SONS\"|LOTUS");
    QCOMPARE(Told(entries[2]), "Deleted Broker LOTUS; Broker Name: LOTUS|");
    QCOMPARE(entries[2].user + QLatin1Char('@') + entries[2].host, "ANITA@desk-1");
    QCOMPARE(entries[2].key, 7);
    QCOMPARE(Faults(), QStringList());
  }

  void WhatIsRefusedOrComputedLeavesNoEntry() {
    const MaybeRefusal refused = InTransaction(Db(), [&](Transaction& transaction) -> MaybeRefusal {
      records::Insert(transaction, Named(1, QStringLiteral("A")));
      return Refusal{QStringLiteral("no"), {}};
    });
    QVERIFY(refused);
    InTransaction(Db(), [&](Transaction& transaction) {
      records::Insert(transaction, records::AverageRate{});
      records::Insert(transaction, records::Lot{});
    });
    QCOMPARE(All(Db()).size(), std::size_t{0});
  }

  void WorkOfManyRowsIsOneEntryOfCounts() {
    InTransaction(Db(), [&](Transaction& transaction) {
      records::Writer<Broker> writer(transaction);
      for (int id = 1; id <= static_cast<int>(Changes::kMostRows) + 1; ++id) {
        writer.Write(Named(id, QStringLiteral("B")));
      }
      writer.Finish();
    });
    const std::vector<Entry> entries = All(Db());
    QCOMPARE(entries.size(), std::size_t{1});
    QCOMPARE(Told(entries[0]).section(QLatin1String("; "), 1), "Broker Rows: 0|20001");
    QVERIFY(entries[0].new_rows.size() < 200);
  }

  void ChainTellsWhatWasDoneToTheLog_data() {
    const test::Table<std::string, QString> row;
    row("value edited", "Update ChangeLog Set NewRows=Replace(NewRows,'B2','C2') Where Id=2",
        "Entry 2 of the log was edited");
    row("user edited", "Update ChangeLog Set UserName='X' Where Id=1",
        "Entry 1 of the log was edited");
    row("time edited", "Update ChangeLog Set MadeAt='2011-01-01 00:00:00.000' Where Id=4",
        "Entry 4 of the log was edited");
    row("hash edited, too", "Update ChangeLog Set UserName='X',Hash='00' Where Id=3",
        "Entry 3 of the log was edited");
    row("first removed", "Delete From ChangeLog Where Id=1", "Entry 1 of the log was removed.");
    row("two removed", "Delete From ChangeLog Where Id In(2,3)",
        "Entries 2 to 3 of the log were removed.");
    row("last removed", "Delete From ChangeLog Where Id=4", "Entry 4 of the log was removed.");
    row("all removed", "Delete From ChangeLog", "Entries 1 to 4 of the log were removed.");
    row("one put in",
        "Insert Into ChangeLog Select 5,MadeAt,UserName,Host,Kind,TableName,RecordId,ClientId,"
        "FYear,Title,Undoes,OldRows,NewRows,Hash From ChangeLog Where Id=4",
        "Entry 5 of the log was edited");
    row("end moved",
        "Update ChangeHead Set LastId=3,LastHash=(Select Hash From ChangeLog Where "
        "Id=3)",
        "The log does not end where it was ended, at entry 3.");
    row("end removed", "Delete From ChangeHead", "The end of the log (table ChangeHead)");
  }
  void ChainTellsWhatWasDoneToTheLog() {
    const auto [harm, text] = test::Table<std::string, QString>::Row();
    for (int id = 1; id <= 4; ++id) {
      Put(Db(), Named(id, QStringLiteral("B%1").arg(id)));
    }
    QCOMPARE(Faults(), QStringList());
    QVERIFY(Db().Execute(harm) > 0);
    const QStringList faults = Faults();
    Db().Execute("Insert Ignore Into ChangeHead Values(1,0,'',0,'')");
    QVERIFY2(!faults.isEmpty() && faults.first().startsWith(text),
             qPrintable(faults.join(QLatin1Char('\n'))));
  }

  void OldEntriesGoAndTheChainGoesOn() {
    for (int id = 1; id <= 3; ++id) {
      Put(Db(), Named(id, QStringLiteral("B%1").arg(id)));
    }
    const std::string tomorrow =
        QDate::currentDate().addDays(1).toString(Qt::ISODate).toStdString();
    int kept = 0;
    const auto keep = [&](const Entry&) { ++kept; };
    Db().SetAuthor({QStringLiteral("RAVI"), {}, kEnter | kDelete});
    QCOMPARE(test::TextOf(Export(Db(), tomorrow, keep).Refused()), NoRight(kAdminister).text);
    QCOMPARE(test::TextOf(RemoveUpTo(Db(), 2).Refused()), NoRight(kAdminister).text);
    QCOMPARE(All(Db()).size(), std::size_t{3});

    Db().SetAuthor({QStringLiteral("ANITA"), {}});
    QVERIFY(Export(Db(), "2011-04-01", keep).Refused());
    QCOMPARE(*Export(Db(), tomorrow, keep), std::int64_t{3});
    QCOMPARE(kept, 3);
    QCOMPARE(*RemoveUpTo(Db(), 2), std::int64_t{2});
    Put(Db(), Named(9, QStringLiteral("B9")));
    const std::vector<Entry> left = All(Db());
    QCOMPARE(left.front().id, std::int64_t{3});
    QCOMPARE(NameOf(left[1].kind), "Log cleared");
    QCOMPARE(Faults(), QStringList());
    Db().Execute("Delete From ChangeLog Where Id=3");
    QCOMPARE(Faults().value(0), "Entry 3 of the log was removed.");
  }

  void UserWithoutTheRightIsRefused_data() {
    const test::Table<int, bool, bool> row;  // rights; may change, may delete
    row("look", 0, false, false);
    row("enter", kEnter, true, false);
    row("delete", kDelete, false, true);
    row("all", kAllRights, true, true);
  }
  void UserWithoutTheRightIsRefused() {
    const auto [rights, may_enter, may_delete] = test::Table<int, bool, bool>::Row();
    Put(Db(), Named(1, QStringLiteral("OLD")));
    Db().SetAuthor({QStringLiteral("RAVI"), {}, rights});
    QCOMPARE(!TryToPut(Db(), Named(1, QStringLiteral("NEW"))), may_enter);
    QCOMPARE(!TryToPut(Db(), Named(2, QStringLiteral("NEXT"))), may_enter);
    bool deleted = true;
    try {
      Remove(Db(), 1);
    } catch (const database::NotAllowed& error) {
      deleted = false;
      QCOMPARE(QString::fromUtf8(error.what()), NoRight(kDelete).text);
    }
    QCOMPARE(deleted, may_delete);
    const std::size_t written = 1U + (may_enter ? 2U : 0U) + (may_delete ? 1U : 0U);
    QCOMPARE(All(Db()).size(), written);
  }

  /// Two programs have one record open: the later save is refused once, with both versions.
  void SaveOverAnotherProgramsChangeIsRefused() {
    Put(Db(), Named(1, QStringLiteral("OLD")));
    Connection other(database_->Settings());
    other.SetAuthor({QStringLiteral("RAVI"), QStringLiteral("desk-2")});
    const EditedRecord mine(Db(), "Broker", 1);
    Put(other, Named(1, QStringLiteral("THEIRS")));

    const QString text = test::TextOf(TryToPut(Db(), Named(1, QStringLiteral("MINE"))));
    QVERIFY2(text.startsWith(QLatin1String("RAVI Changed this Record on desk-2")),
             qPrintable(text));
    QVERIFY2(text.contains(QLatin1String("Broker, Name: THEIRS | MINE")), qPrintable(text));
    QCOMPARE(test::Rows(Db(), "Select Name From Broker"), QStringList("THEIRS"));
    QCOMPARE(test::TextOf(TryToPut(Db(), Named(1, QStringLiteral("MINE")))), test::kAccepted);
    QCOMPARE(test::Rows(Db(), "Select Name From Broker"), QStringList("MINE"));
    // Another record is none of its business.
    Put(other, Named(2, QStringLiteral("X")));
    QCOMPARE(test::TextOf(TryToPut(Db(), Named(2, QStringLiteral("Y")))), test::kAccepted);
  }

  void RecordIsSeenAsOpenElsewhere() {
    Connection other(database_->Settings());
    other.SetAuthor({QStringLiteral("RAVI"), QStringLiteral("desk-2")});
    const EditedRecord mine(Db(), "Broker", 1);
    QVERIFY(mine.Others().empty());
    {
      EditedRecord theirs(other, "Broker", 1);
      const EditedRecord another(other, "Broker", 2);
      QCOMPARE(mine.Others().size(), std::size_t{1});
      QVERIFY(TextOf(mine.Others()).startsWith(QLatin1String("Open at RAVI on desk-2 since ")));
      Db().Execute("Update OpenRecord Set SeenAt=SeenAt-Interval 31 Second Where UserName='RAVI'");
      QVERIFY(mine.Others().empty());
      theirs.Beat();
      QCOMPARE(mine.Others().size(), std::size_t{1});
    }
    QVERIFY(mine.Others().empty());
  }

  void NewsAreTheEntriesSinceTheLastLook() {
    Connection other(database_->Settings());
    Put(Db(), Named(1, QStringLiteral("A")));
    News news(Db());
    QVERIFY(news.Read().empty());
    Put(other, Named(2, QStringLiteral("B")));
    Put(Db(), Named(3, QStringLiteral("C")));
    const std::vector<Entry> read = news.Read();
    QCOMPARE(read.size(), std::size_t{2});
    QCOMPARE(read[0].key, 2);
    QVERIFY(news.Read().empty());
  }

  /// Programs that write at once: no entry is lost or there twice, and each stands for a record.
  void WritersAtOnceMakeOneChain() {
    constexpr int kEach = 25;
    constexpr int kWriters = 4;
    std::vector<std::thread> writers;
    for (int writer = 0; writer < kWriters; ++writer) {
      writers.emplace_back([this, writer] {
        Connection own(database_->Settings());
        for (int i = 0; i < kEach; ++i) {
          Put(own, Named(1 + writer * kEach + i, QStringLiteral("W%1").arg(writer)));
        }
      });
    }
    for (std::thread& writer : writers) {
      writer.join();
    }
    QCOMPARE(Faults(), QStringList());
    QCOMPARE(test::Rows(Db(), "Select Count(*),Count(Distinct RecordId),Max(Id) From ChangeLog"),
             QStringList("100|100|100"));
    QCOMPARE(test::Rows(Db(), "Select Count(*) From Broker B Join ChangeLog L On L.RecordId=B.Id"),
             QStringList("100"));
  }

  void EntriesAreFiltered_data() {
    const test::Table<std::function<void(Filter&)>, QString> row;
    row(
        "all", [](Filter&) {}, "1,2,3");
    row(
        "user", [](Filter& filter) { filter.user = QStringLiteral("RAVI"); }, "2");
    row(
        "kind", [](Filter& filter) { filter.kind = Kind::kDeleted; }, "3");
    row(
        "after", [](Filter& filter) { filter.after = 1; }, "2,3");
    row(
        "newest", [](Filter& filter) { filter.newest = 2; }, "3,2");
    row(
        "from tomorrow", [](Filter& filter) { filter.from = "2999-01-01"; }, "");
    row(
        "to a day of old", [](Filter& filter) { filter.to = "2011-06-15"; }, "");
    row(
        "of a client", [](Filter& filter) { filter.client = ClientId{5}; }, "");
  }
  void EntriesAreFiltered() {
    const auto [narrow, ids] = test::Table<std::function<void(Filter&)>, QString>::Row();
    Put(Db(), Named(1, QStringLiteral("A")));
    Db().SetAuthor({QStringLiteral("RAVI"), {}});
    Put(Db(), Named(1, QStringLiteral("B")));
    Db().SetAuthor({QStringLiteral("ANITA"), {}});
    Remove(Db(), 1);
    Filter filter;
    narrow(filter);
    QStringList found;
    for (const Entry& entry : All(Db(), filter)) {
      found << QString::number(entry.id);
    }
    QCOMPARE(found.join(QLatin1Char(',')), ids);
  }
};

static const test::RegisterTest<LogTest> kRegistered;

#include "LogTest.moc"
