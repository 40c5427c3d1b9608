#include "masters/imports/ScripImport.h"
#include "support/DatabaseTest.h"
#include "support/StopAfter.h"

using namespace quorvane;
using namespace quorvane::imports;
using rates::Exchange;
using rates::PriceFile;
using rates::PriceRow;

namespace {

PriceFile FileOf(Exchange exchange, std::vector<PriceRow> rows) {
  return {.exchange = exchange,
          .has_names = exchange != Exchange::kNse,
          .has_symbols = exchange == Exchange::kOwn,
          .rows = std::move(rows)};
}

}  // namespace

Q_DECLARE_METATYPE(quorvane::rates::PriceFile)

class ScripImportTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    test::Empty(**database_, {"Script", "ScriptType", "ScriptClass", "ScripIsin"});
    test::TestDatabase& database = *database_;
    database->Execute("Insert Into ScriptType Values(4,'Equity')");
    database->Execute("Insert Into ScriptClass Values(2,'A')");
    database->Execute(
        "Insert Into Script(Id,Code,Name,Type,ScrCls,NCode) "
        "Values(7,'500325','RELIANCE',4,2,'RELIANCE'),(9,'500209','INFOSYS',4,2,'INFY')");
  }

  void FileChangesAndAddsScrips_data() {
    const test::Table<PriceFile, QStringList, QList<int>> row;
    row("own list: name, class, type and second code are the file's",
        FileOf(Exchange::kOwn, {{.code = "500325",
                                 .symbol = "",
                                 .name = "O'REL",
                                 .scrip_class = "b",
                                 .type = "EQUITY"},
                                {.code = "500209",
                                 .symbol = "INFY",
                                 .name = "INFOSYS",
                                 .scrip_class = "a",
                                 .type = "equity"},
                                {.code = "512345",
                                 .symbol = "NEW",
                                 .name = "New",
                                 .scrip_class = "B",
                                 .type = "DEBENTURE"}}),
        QStringList({"7|500325|O'REL|Equity|b|", "9|500209|INFOSYS|Equity|A|INFY",
                     "10|512345|New|DEBENTURE|b|NEW"}),
        QList<int>{1, 1, 1});
    row("Bombay file: the second code stays",
        FileOf(Exchange::kBse,
               {{.code = "500325", .name = "RELIANCE INDS", .scrip_class = "T", .type = ""}}),
        QStringList({"7|500325|RELIANCE INDS|Equity|T|RELIANCE", "9|500209|INFOSYS|Equity|A|INFY"}),
        QList<int>{0, 1, 0});
    row("National file: found by the second code, the class stays",
        FileOf(Exchange::kNse, {{.symbol = "infy", .scrip_class = "EQ"},
                                {.symbol = "RELIANCE", .scrip_class = "EQ"},
                                {.symbol = "ZEEL", .scrip_class = "EQ"}}),
        QStringList({"7|500325|RELIANCE|Equity|A|RELIANCE", "9|500209|INFOSYS|Equity|A|infy",
                     "10|ZEEL|ZEEL|Equity|EQ|ZEEL"}),
        QList<int>{1, 1, 1});
  }
  void FileChangesAndAddsScrips() {
    const auto [file, scrips, counts] = test::Table<PriceFile, QStringList, QList<int>>::Row();
    Progress progress;
    const ImportCounts got = ImportScrips(**database_, file, progress);
    QCOMPARE(QList<int>({int(got.added), int(got.changed), int(got.unchanged)}), counts);
    QCOMPARE(Scrips(), scrips);
    const ImportCounts again = ImportScrips(**database_, file, progress);
    QCOMPARE(again.added + again.changed, std::size_t{0});
    QCOMPARE(test::Rows(**database_, "Select Count(*) From ScriptType Where Type='EQUITY'"),
             QStringList("1"));
  }

  // The lists of both exchanges meet by ISIN, in either order, also when the codes share none.
  void ListsOfBothExchangesMeetInOneScrip_data() {
    const test::Table<PriceFile, PriceFile, QStringList> row;
    PriceFile bombay =
        FileOf(Exchange::kBse,
               {{.code = "532540",
                 .name = "TCS LTD",
                 .scrip_class = "A",
                 .type = "Equity",
                 .isin = "INE467B01029"},
                {.code = "890144", .name = "TCS PP", .scrip_class = "A", .isin = "INE467B01029"}});
    PriceFile national = FileOf(Exchange::kNse, {{.symbol = "TCS",
                                                  .name = "Tata Consultancy",
                                                  .scrip_class = "EQ",
                                                  .series_type = "EQUITY",
                                                  .isin = "INE467B01029"},
                                                 {.symbol = "SGBAUG28",
                                                  .name = "Gold Bond",
                                                  .scrip_class = "GB",
                                                  .series_type = "BOND",
                                                  .isin = "IN0020200120"}});
    national.has_names = true;
    row("Bombay first", bombay, national,
        QStringList({"532540|TCS LTD|TCS|Equity", "890144|TCS PP||Equity",
                     "SGBAUG28|Gold Bond|SGBAUG28|BOND"}));
    row("National first", national, bombay,
        QStringList({"532540|TCS LTD|TCS|Equity", "890144|TCS PP||Equity",
                     "SGBAUG28|Gold Bond|SGBAUG28|BOND"}));
  }
  void ListsOfBothExchangesMeetInOneScrip() {
    const auto [first, second, scrips] = test::Table<PriceFile, PriceFile, QStringList>::Row();
    test::Empty(**database_, {"Script", "ScripIsin"});
    Progress progress;
    ImportScrips(**database_, first, progress);
    ImportScrips(**database_, second, progress);
    QCOMPARE(ImportScrips(**database_, first, progress).unchanged, std::size_t{2});
    QCOMPARE(test::Rows(**database_,
                        "Select S.Code,S.Name,S.NCode,T.Type From Script S Join ScriptType T On "
                        "T.Id=S.Type Order By S.Code"),
             scrips);
  }

  void CancelledImportChangesNothing() {
    const QStringList before = test::Contents(**database_, {"Script", "ScriptType", "ScriptClass"});
    test::StopAfter progress(2);
    QVERIFY_THROWS_EXCEPTION(
        Cancellation,
        ImportScrips(**database_,
                     FileOf(Exchange::kBse, {{.code = "1", .name = "A", .scrip_class = "NEW"},
                                             {.code = "2", .name = "B"},
                                             {.code = "3", .name = "C"}}),
                     progress));
    QCOMPARE(test::Contents(**database_, {"Script", "ScriptType", "ScriptClass"}), before);
  }

 private:
  QStringList Scrips() {
    return test::Rows(**database_,
                      "Select S.Id,S.Code,S.Name,T.Type,C.Name,S.NCode From Script S Join "
                      "ScriptType T On T.Id=S.Type Join ScriptClass C On C.Id=S.ScrCls Order By "
                      "S.Id");
  }
};

static const test::RegisterTest<ScripImportTest> kRegistered;
#include "ScripImportTest.moc"
