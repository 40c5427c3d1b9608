#include "masters/lookup_masters/window/FrmLookup.h"
#include "support/ShownWindow.h"

using namespace quorvane;
using namespace quorvane::lookup_masters;

Q_DECLARE_METATYPE(quorvane::lookup_masters::LookupKind)

class FrmLookupTest : public test::DatabaseTest {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    test::Empty(**database_, {"ScriptType", "ScriptClass", "Exchange", "STTPer", "TransTaxPer"});
  }

  void EachWindowKeepsItsTable_data() {
    const test::Table<LookupKind, QString, QString, QString, QString> row;
    row("type", LookupKind::kScripTypes, "FrmScriptType", "ScriptType", "o'bond", "O'BOND");
    row("class", LookupKind::kScripClasses, "FrmScriptCls", "ScriptClass", "a", "A");
    row("exchange", LookupKind::kExchanges, "FrmExchange", "Exchange", "mcx", "MCX");
    row("STT", LookupKind::kSttPercentages, "FrmSttPer", "STTPer", ".1", "0.1");
  }
  void EachWindowKeepsItsTable() {
    const auto [kind, window, table, typed, stored] =
        test::Table<LookupKind, QString, QString, QString, QString>::Row();
    const std::string all = "Select * From " + table.toStdString();
    test::ShownWindow<FrmLookup> shown(*database_, kind);
    QCOMPARE(shown->objectName(), window);
    shown.AddByKeyboard({typed});
    QCOMPARE(test::Rows(**database_, all), QStringList("1|" + stored));
    QVERIFY(!shown->IsEditing());

    shown->List().SelectId(1);
    shown.Click("cmdModify");
    shown.Click("cmdUpdate");
    QCOMPARE(shown.messages.Texts(), QStringList());
    QCOMPARE(test::Rows(**database_, all), QStringList("1|" + stored));

    shown.Click("CmdDelete");
    QCOMPARE(shown.messages.LastText(), "Are You Sure, You want to Delete this Record?");
    QCOMPARE(shown.messages.said.back().preset, controls::Answer::kNo);
    QCOMPARE(shown.messages.said.back().icon, controls::Icon::kCritical);
    QCOMPARE(shown->List().Model().RowCount(), 1);
    shown.messages.WillAnswer(true);
    shown.Click("CmdDelete");
    QCOMPARE(test::Rows(**database_, all), QStringList());
    QCOMPARE(shown->List().Model().RowCount(), 0);
  }

  void ListShowsThreeDecimalsAndTheBoxAllThatThereAre_data() {
    const test::Table<QString, QString, QString, QString> row;
    row("masked", "0.1", "0.100", "0.100", "0.1");
    row("four decimals", "0.0125", "0.0125", "0.013", "0.0125");
    row("zero", "0", "0.000", "0.000", "0");
  }
  void ListShowsThreeDecimalsAndTheBoxAllThatThereAre() {
    const auto [typed, boxed, listed, stored] =
        test::Table<QString, QString, QString, QString>::Row();
    const test::ShownWindow<FrmLookup> shown(*database_, LookupKind::kSttPercentages);
    shown.AddByKeyboard({typed});
    QCOMPARE(shown.TextIn("Text1_0"), boxed);
    QCOMPARE(shown.ListRow(0).front(), listed);
    shown.Click("cmdModify");
    shown.Click("cmdUpdate");
    QCOMPARE(shown.messages.Texts(), QStringList());
    QCOMPARE(test::Rows(**database_, "Select STTPer From STTPer").front(), stored);
  }

  void KeyboardAloneAddsAYearlyPercentage() {
    const test::ShownWindow<FrmLookup> shown(*database_, LookupKind::kTaxPercentages);
    QCOMPARE(shown->objectName(), "FrmTransPer");
    shown.AddByKeyboard({"2011-12", "brokerage n", "0.05", "1.4.11"});
    QCOMPARE(shown.messages.Texts(), QStringList());
    QCOMPARE(Percentages(), QStringList("1|2011-12|Brokerage Non Delivery Based|0.05|01/04/2011"));
    QCOMPARE(shown.ListRow(0),
             QStringList({"2011-12", "Brokerage Non Delivery Based", "0.050", "01/04/2011"}));
  }

  void ImproperYearIsToldOnLeavingItsBox_data() {
    const test::Table<QString, QStringList> row;
    const QStringList refused("Enter Proper Financial Year");
    row("one year", "2011", refused);
    row("still empty", "", QStringList());
  }
  void ImproperYearIsToldOnLeavingItsBox() {
    const auto [typed, said] = test::Table<QString, QStringList>::Row();
    const test::ShownWindow<FrmLookup> shown(*database_, LookupKind::kTaxPercentages);
    shown.Click("cmdAdd");
    shown.Fill({typed});
    QCOMPARE(shown.messages.Texts(), said);
    QCOMPARE(shown.Named("Text1_0")->hasFocus(), !said.isEmpty());
  }

  void CancelIsNotHeldUpByAnImproperYear() {
    const test::ShownWindow<FrmLookup> shown(*database_, LookupKind::kTaxPercentages);
    shown.Click("cmdAdd");
    shown.Type("2011");
    shown.Click("cmdCancel");
    QVERIFY2(shown.messages.said.empty(), qPrintable(shown.messages.LastText()));
    QVERIFY(!shown->IsEditing());
  }

  void RowWithAnImproperDateIsNotSaved() {
    const test::ShownWindow<FrmLookup> shown(*database_, LookupKind::kTaxPercentages);
    shown.Click("cmdAdd");
    shown.Fill({"2011-12", "Service Tax", "10.3"});
    shown.Named("Text1_2")->setText("31/02/2011");
    shown.Click("cmdUpdate");
    QCOMPARE(shown.messages.LastText(), "Enter Proper Date.");
    QVERIFY(shown.Named("Text1_2")->hasFocus());
    QCOMPARE(Percentages(), QStringList());
  }

  // It is the year 2011-12. The year in which a rate changed gets the one of most days.
  void RatesOfTheLawAreAddedWhereTheyAreMissing() {
    (*database_)
        ->Execute("Insert Into TransTaxPer Values(4,'2006-07','STT Delivery Based',0.1,'')");
    test::ShownWindow<FrmLookup> shown(*database_, LookupKind::kTaxPercentages);
    shown.messages.WillAnswer(false);
    shown.Click("CmdLevies");
    QCOMPARE(shown.messages.said.size(), std::size_t{1});
    QCOMPARE(Percentages().size(), 1);
    shown.messages.WillAnswer(true);
    shown.Click("CmdLevies");
    QVERIFY(shown.messages.LastText().startsWith("23 rates were added."));
    QVERIFY(shown.messages.LastText().contains(
        "2005-06 STT Delivery Based: 0.100 from 01/06/2005, the rate of most days of the year."));
    const QStringList delivery = test::Rows(**database_,
                                            "Select FYear,Percent,Ason From TransTaxPer Where "
                                            "Name='STT Delivery Based' Order By FYear");
    QCOMPARE(delivery.mid(0, 4), QStringList({"2004-05|0.075|01/10/2004", "2005-06|0.1|01/06/2005",
                                              "2006-07|0.1|", "2007-08|0.125|01/04/2007"}));
    QCOMPARE(test::Rows(**database_,
                        "Select Percent From TransTaxPer Where Name='Service Tax' Order By FYear"),
             QStringList({"10.2", "10.2", "12.24", "12.36", "12.36", "10.3", "10.3", "10.3"}));
    shown.messages.WillAnswer(true);
    shown.Click("CmdLevies");
    QCOMPARE(shown.messages.LastText(), "No rate is missing.");
  }

  void SttPercentagesOfTheLawAreAdded() {
    (*database_)->Execute("Insert Into STTPer Values(1,0),(2,0.025),(3,0.125),(4,0.017)");
    test::ShownWindow<FrmLookup> shown(*database_, LookupKind::kSttPercentages);
    shown.messages.WillAnswer(true);
    shown.Click("CmdLevies");
    QCOMPARE(shown.messages.LastText(), "4 rates were added.\n0.075, 0.100, 0.015, 0.020");
    QCOMPARE(shown->List().Model().RowCount(), 8);
  }

 private:
  QStringList Percentages() {
    return test::Rows(**database_, "Select * From TransTaxPer Order By Id");
  }
};

static const test::RegisterTest<FrmLookupTest> kRegistered;
#include "FrmLookupTest.moc"
