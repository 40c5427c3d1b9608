#include "controls/DateBox.h"
#include "core/app/Ini.h"
#include "support/ShownWindow.h"
#include "transactions/bills/BillBook.h"
#include "transactions/bills/window/FrmSalePurchase.h"

#include <QLabel>

using namespace quorvane;
using namespace quorvane::bills;
using controls::Grid;
using Shown = test::ShownWindow<FrmSalePurchase>;

class FrmSalePurchaseTest : public test::DeskTest {
  Q_OBJECT

  void Open(const QString& config_file = {}) {
    asked_.clear();
    answers_.clear();
    shown_ = std::make_unique<Shown>(
        desk_->database, test::ForClient{desk_->of, {}, config_file},
        [this](const RateQuestion& question, std::function<void(double)> answer) {
          asked_.append(question.exchange + ' ' + question.scrip.code + ' ' +
                        text::FormatDmy(question.date));
          answers_.push_back(std::move(answer));
        });
  }

  /// A new bill up to its first line; the cursor stands in the side of the line.
  void BeginBill(const QString& date = "10062011", const QString& account = "1001") {
    QTest::keyClick(shown_->window, Qt::Key_N, Qt::ControlModifier);
    Shown::Fill({"b/2", date, "", "o'b", "bse", account});
    QCOMPARE(Shown::Focused(), "CmdAdd1");
    Shown::Press(Qt::Key_Return);
  }

  /// Of ten shares at 100, up to the line's update.
  void BeginPurchase() {
    BeginBill();
    Shown::Fill({"p", "", "500325", "", "10", "100"});
  }

  /// A bill of ten shares in the ledger, which is chosen and modified when the window is open.
  void SavePurchase(double rate = 100) {
    Bill bill = desk_->NewBill({desk_->Purchase(10, rate)});
    bill.grand_total = 1000;
    QVERIFY(!test::Save(BillBook(desk_->Connection(), desk_->of), bill));
  }
  void ModifyTheBill() {
    shown_->Named<Grid>("VSF")->SelectRow(0);
    shown_->Click("cmdModify");
  }

  QStringList Rows(const char* sql) { return test::Rows(desk_->Connection(), sql); }

  std::unique_ptr<Shown> shown_;
  QStringList asked_;
  std::vector<std::function<void(double)>> answers_;

 private Q_SLOTS:
  void initTestCase() {
    desk_.emplace();
    database::Connection& db = desk_->Connection();
    db.Execute("Update Script Set NCode='RELI' Where Id=?", desk_->scrip);
    for (const auto& [name, percent] : {std::pair{"Brokerage Delivery Based", 0.5},
                                        {"STT Delivery Based", 0.125},
                                        {"Service Tax", 10.3},
                                        {"Brokerage Non Delivery Based", 0.05},
                                        {"STT Non Delivery Based", 0.017}}) {
      db.Execute("Insert Into TransTaxPer Values(1,'2011-12',?,?,'')", name, percent);
    }
  }
  void cleanup() { shown_.reset(); }

  void FromAnEmptyLedgerToTheNextBill() {
    Open();
    QVERIFY((*shown_)->windowTitle().endsWith(" - 2011-12"));

    BeginBill();
    Shown::Fill({"p", "", "reli", "", "10", "100", "", "", "", "", ""});
    QCOMPARE(Shown::Focused(), "CmdUpdate1");
    Shown::Press(Qt::Key_Return);
    QCOMPARE(Shown::Focused(), "TxtScr");
    QCOMPARE(shown_->TextIn("Combo3"), "Purchase");
    Shown::Fill({"500325", "", "5", "110"});
    Shown::Press(Qt::Key_F8);
    QCOMPARE(shown_->RowsOf("VS3"),
             QStringList({"RELIANCE|5.00|110.00|10/06/2011", "RELIANCE|10.00|100.00|10/06/2011"}));
    QCOMPARE(shown_->RowsOf("VS2"), QStringList({"RELIANCE|+10.00", "RELIANCE|+5.00"}));
    QCOMPARE(Rows("Select * From SPMaster"), QStringList());
    Shown::Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(shown_->messages.Texts(), QStringList());
    QVERIFY(!(*shown_)->IsEditing());
    QCOMPARE(Rows("Select SP,Qty,Rate,Brk,Net,Amt,STax,STT,STTPer,FO,DelvType From SPTrans"),
             QStringList({"1|10|100|0.5|100.5|1005|0.52|1.26|0.125|0|Delivery Based",
                          "1|5|110|0.55|110.55|552.75|0|0|0.125|0|Delivery Based"}));
    QCOMPARE(Rows("Select BillNo,BDate,BrokId,ExId,AcId,Tot,STT,Total From SPMaster"),
             QStringList("B/2|10/06/2011|1|2|1|1558.27|1.26|1559.53"));
    QCOMPARE(shown_->TextIn("TxtNoteNet"), "1559.53 to pay");
    QCOMPARE(shown_->RowsOf("VSF"), QStringList("B/2|10/06/2011|O'BRIEN & SONS|BSE|1001|1559.53"));
    QCOMPARE(Rows("Select Qty From Stock_Temp"), QStringList());

    QTest::keyClick(shown_->window, Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(shown_->TextIn("Text1_2"), "O'BRIEN & SONS");
    QCOMPARE(shown_->TextIn("Combo1"), "BSE");
    QCOMPARE(shown_->TextIn("Combo2"), "1001");
    Shown::Fill({"b/3", "11.6.11"});
    Shown::Press(Qt::Key_F6);
    Shown::Fill({"s"});
    Shown::Press(Qt::Key_F9);
    QCOMPARE(Shown::Focused(), "VS3");
    Shown::Press(Qt::Key_Down);
    Shown::Press(Qt::Key_Return);
    QCOMPARE(Shown::Focused(), "Text1_3");
    QCOMPARE(shown_->TextIn("TxtScr"), "500325");
    QCOMPARE(shown_->TextIn("TxtStkId"), QString::number(desk_->IdOfLot(100).value));
    Shown::Fill({"4", "120"});
    Shown::Press(Qt::Key_F8);
    Shown::Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(shown_->messages.Texts(), QStringList());
    QCOMPARE(desk_->LotAt(100), "6@100");
    QCOMPARE(desk_->LotAt(110), "5@110");
    QCOMPARE(shown_->RowsOf("VSAvg"), QStringList("RELIANCE|103.88"));

    shown_->Named<Grid>("VSF")->SelectRow(1);
    shown_->Click("cmdModify");
    shown_->Named<Grid>("Vs1")->SelectRow(0);
    Shown::Press(Qt::Key_F7);
    Shown::Fill({"5"});
    Shown::Press(Qt::Key_F8);
    QCOMPARE(shown_->RowsOf("VS2"), QStringList("RELIANCE|-5.00"));
    Shown::Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(desk_->LotAt(100), "5@100");

    const QStringList before = desk_->Everything();
    shown_->messages.WillAnswer(true);
    shown_->Named<Grid>("VSF")->SelectRow(0);
    shown_->Click("CmdDelete");
    QCOMPARE(shown_->messages.LastText(), test::kNegativeReliance);
    QCOMPARE(desk_->Everything(), before);
    for (const int row : {1, 0}) {
      shown_->messages.WillAnswer(true);
      shown_->Named<Grid>("VSF")->SelectRow(row);
      shown_->Click("CmdDelete");
      QCOMPARE(shown_->messages.LastText(), "Are You Sure, You want to Delete this Record?");
    }
    QCOMPARE(shown_->RowsOf("VSF"), QStringList());
    QCOMPARE(desk_->LotAt(100), "0@100");
  }

  void LineIsCheckedInOrder() {
    Open();
    shown_->Click("cmdAdd");
    shown_->Click("CmdAdd1");
    QCOMPARE(shown_->messages.LastText(), "Enter Date.");
    QCOMPARE(Shown::Focused(), "Text1_1");
    Shown::Fill({"10062011"});
    shown_->Click("CmdAdd1");
    QCOMPARE(shown_->messages.LastText(), "Select Stock Exchange.");
    QCOMPARE(Shown::Focused(), "Combo1");
    Shown::Fill({"bse"});
    shown_->Click("CmdAdd1");
    QCOMPARE(Shown::Focused(), "Combo3");
    Shown::Press(Qt::Key_F8);
    QCOMPARE(shown_->messages.LastText(), "Enter Sale/Purchase.");
    QCOMPARE(Shown::Focused(), "Combo3");
    Shown::Fill({"p"});
    Shown::Press(Qt::Key_F8);
    QCOMPARE(shown_->messages.LastText(), "Enter Script Name.");
    QCOMPARE(Shown::Focused(), "Combo4");
    Shown::Fill({"inf"});
    Shown::Press(Qt::Key_F8);
    QCOMPARE(shown_->messages.LastText(), "Enter Quantity Greater than Zero.");
    QCOMPARE(Shown::Focused(), "Text1_3");
    QCOMPARE(shown_->TextIn("TxtScr"), "500209");
    QCOMPARE(shown_->messages.said.size(), std::size_t{5});
  }

  void SaleBeyondTheBalanceLeadsBackToTheQuantity() {
    SavePurchase();
    Open();
    BeginBill();
    Shown::Fill({"s", "", "500325", "", "-10.5"});
    QCOMPARE(shown_->messages.Texts(), QStringList("You Can't Sale Scripts More than Balance.\n\n"
                                                   "Maximum Allowed Value is: 10.00"));
    QCOMPARE(Shown::Focused(), "Text1_3");
    QCOMPARE(shown_->TextIn("Text1_3"), "10.5");
    Shown::Press(Qt::Key_F8);
    QCOMPARE(shown_->messages.said.size(), std::size_t{2});
    QCOMPARE(shown_->RowsOf("Vs1"), QStringList());
    Shown::Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(shown_->messages.said.size(), std::size_t{3});
    Shown::Press(Qt::Key_E, Qt::AltModifier);
    QCOMPARE(shown_->messages.said.size(), std::size_t{4});
    QCOMPARE(Shown::Focused(), "Text1_3");
    Shown::Press(Qt::Key_Escape);
    QCOMPARE(shown_->messages.said.size(), std::size_t{4});
    QCOMPARE(Shown::Focused(), "CmdAdd1");
  }

  void ScripIsFoundByTheCodeOfEitherExchangeAndByName() {
    Open();
    BeginBill();
    Shown::Fill({"p", "", "rel"});
    QCOMPARE(shown_->TextIn("Combo4"), "RELIANCE");
    QCOMPARE(shown_->TextIn("TxtScr"), "500325");
    shown_->Overtype("Combo4", "in");
    QCOMPARE(shown_->TextIn("TxtScr"), "500209");
    shown_->Overtype("TxtScr", "nosuch");
    QCOMPARE(shown_->messages.Texts(), QStringList("There is no Scrip of the Code NOSUCH."));
    QCOMPARE(Shown::Focused(), "TxtScr");
    const ScripId added = desk_->database.AddScrip(QStringLiteral("777"), "NEW CO");
    Shown::Fill({"777"});
    QCOMPARE(shown_->TextIn("Combo4"), "NEW CO");
    desk_->Connection().Execute("Delete From Script Where Id=?", added);
  }

  void RateThatArrivesLaterFillsTheBoxUnlessOneWasTyped() {
    Open();
    BeginBill();
    Shown::Fill({"p", "", "500325"});
    QCOMPARE(asked_, QStringList("BSE 500325 10/06/2011"));
    answers_.back()(0);
    QCOMPARE(shown_->TextIn("Text1_4"), QString());
    answers_.back()(101.5);
    QCOMPARE(shown_->TextIn("Text1_4"), "101.50");
    shown_->Overtype("Combo4", "in");
    QCOMPARE(shown_->TextIn("Text1_4"), QString());
    answers_.front()(7);
    QCOMPARE(shown_->TextIn("Text1_4"), QString());
    shown_->Overtype("Text1_4", "55");
    answers_.back()(60);
    QCOMPARE(shown_->TextIn("Text1_4"), "55.00");
    Shown::Press(Qt::Key_Escape);
    answers_.back()(60);
    QCOMPARE(shown_->TextIn("Text1_4"), QString());
  }

  void SttIsProposedInWholeRupeesWhenTheSettingsSaySo() {
    const QTemporaryDir folder;
    app::IniFile(folder.filePath("Confg.ini")).Write("Bills", "WholeRupeeStt", "yes");
    Open(folder.filePath("Confg.ini"));
    BeginBill();
    Shown::Fill({"p", "", "500325", "", "10", "120", "", "", ""});
    QCOMPARE(shown_->TextIn("Text1_13"), "2");
  }

  void LineThatIsNotTakenYetHoldsTheBillBack() {
    Open();
    BeginBill();
    Shown::Fill({"p", "", "500325"});
    Shown::Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(shown_->messages.LastText(),
             "The Line is not in the Bill yet. Update or Cancel it First.");
    QCOMPARE(Shown::Focused(), "CmdUpdate1");
    QCOMPARE(Rows("Select * From SPMaster"), QStringList());
  }

  void EscapeAsksBeforeItGivesUpWhatWasChanged() {
    SavePurchase();
    Open();
    ModifyTheBill();
    Shown::Press(Qt::Key_Escape);
    QVERIFY(!(*shown_)->IsEditing());
    QCOMPARE(shown_->messages.Texts(), QStringList());
    shown_->Click("cmdModify");
    shown_->Overtype("Text1_1", "b/9");
    Shown::Press(Qt::Key_Escape);
    QCOMPARE(shown_->messages.LastText(), "The bill is not saved. Give it up?");
    QVERIFY((*shown_)->IsEditing());
    shown_->messages.WillAnswer(true);
    Shown::Press(Qt::Key_Escape);
    QVERIFY(!(*shown_)->IsEditing());
  }

  void LinesStayWithAnAccountThatWasDeleted() {
    SavePurchase();
    desk_->Connection().Execute("Update ClientActDet Set CId=0 Where id=?", desk_->account);
    Open();
    ModifyTheBill();
    shown_->Overtype("Combo2", QString());
    shown_->Overtype("Text1_0", "b/7");
    Shown::Press(Qt::Key_S, Qt::ControlModifier);
    desk_->Connection().Execute("Update ClientActDet Set CId=? Where id=?", desk_->client,
                                desk_->account);
    QCOMPARE(Rows("Select BillNo,AcId From SPMaster"),
             QStringList(QStringLiteral("B/7|%1").arg(desk_->account.value)));
    QCOMPARE(desk_->LotAt(100), "10@100");
  }

  void SaleOfSeveralLotsIsOfferedAsALineForEach() {
    SavePurchase();
    SavePurchase(110);
    Open();
    BeginBill();
    Shown::Fill({"s", "", "500325", "", "12", "120"});
    shown_->messages.WillAnswer(false);
    Shown::Press(Qt::Key_F8);
    QCOMPARE(shown_->messages.Texts(),
             QStringList({"Take the Sale from these Lots, with a Line for each?\n\n"
                          "10 at 100.00, held since 10/06/2011\n2 at 110.00, held since 10/06/2011",
                          "Select the Lot to be Sold from the Balance."}));
    QCOMPARE(shown_->RowsOf("Vs1"), QStringList());
    shown_->messages.WillAnswer(true);
    Shown::Press(Qt::Key_F8);
    QCOMPARE(shown_->RowsOf("VS2"), QStringList({"RELIANCE|-10.00", "RELIANCE|-2.00"}));
    QCOMPARE(shown_->RowsOf("VS3"),
             QStringList({"RELIANCE|8.00|110.00|10/06/2011", "RELIANCE|0.00|100.00|"}));
    Shown::Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(desk_->LotAt(110), "8@110");
  }

  void SaleBeforeTheAccountIsOfferedItsOldestLots() {
    Open();
    BeginBill("10062011", "");
    Shown::Fill({"s", "", "500325", "", "4", "120"});
    Shown::Press(Qt::Key_F8);
    SavePurchase();
    shown_->messages.WillAnswer(false);
    shown_->Overtype("Combo2", "1001");
    QCOMPARE(shown_->messages.LastText(),
             "1 of the Bill's Sales name no Lot. Take the oldest Lots of the Demat A/c?");
    Shown::Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(shown_->messages.LastText(), "Line 1: Select the Lot to be Sold from the Balance.");
    shown_->Overtype("Combo2", "1002");
    shown_->messages.WillAnswer(true);
    shown_->Overtype("Combo2", "1001");
    Shown::Press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!(*shown_)->IsEditing());
    QCOMPARE(desk_->LotAt(100), "6@100");
  }

  void SecondBillOfOneNumberIsAskedFor() {
    SavePurchase();
    Open();
    QTest::keyClick(shown_->window, Qt::Key_N, Qt::ControlModifier);
    Shown::Fill({"b/1", "10062011"});
    Shown::Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(shown_->messages.Texts(),
             QStringList("There is a Bill No. B/1 of this Broker on 10/06/2011 already.\n\n"
                         "Save this one, too?"));
    QCOMPARE(Shown::Focused(), "Text1_0");
    QCOMPARE(Rows("Select * From SPMaster").size(), 1);
    shown_->messages.WillAnswer(true);
    Shown::Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(Rows("Select * From SPMaster").size(), 2);
    QCOMPARE(shown_->Named<Grid>("VSF")->selectionModel()->selectedRows().size(), 1);
    QCOMPARE(QStringList(QString::number(shown_->Named<Grid>("VSF")->CurrentId())),
             Rows("Select Max(Id) From SPMaster"));
    shown_->Click("cmdModify");
    Shown::Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(shown_->messages.said.size(), std::size_t{2});
    QVERIFY(!(*shown_)->IsEditing());
  }

  /// The list is as if all bills were read again, whatever the search shows.
  void SingleBillsOfOthersComeToTheirPlaces() {
    for (int day = 1; day <= 6; ++day) {
      Bill bill = desk_->NewBill(QStringLiteral("%1/06/2011").arg(3 * day, 2, 10, QChar('0')), {});
      QVERIFY(!test::Save(BillBook(desk_->Connection(), desk_->of), bill));
    }
    Open();
    database::Connection other(desk_->database.Settings());
    // A second program of the same user on the same computer.
    other.SetAuthor(desk_->Connection().Author());
    changes::News news(desk_->Connection());
    news.Read();
    BillBook book(other, desk_->of);
    const std::vector<Bill> stored = book.List();
    Bill moved = stored[1];
    moved.date = QStringLiteral("30/06/2011");
    QVERIFY(book.Save(moved));
    QVERIFY(!book.Delete(stored[3].id));
    QVERIFY(book.Save(desk_->NewBill(QStringLiteral("07/06/2011"), {})));
    const std::vector<changes::Entry> read = news.Read();
    QCOMPARE(read.size(), std::size_t{3});
    // A bill that the window was not told of shows that it does not read the others.
    other.Execute("Update SPMaster Set BillNo='UNREAD' Where ID=?", stored[0].id);
    shown_->window->LookAround(changes::Novelties(desk_->Connection(), read));
    const QStringList rows = shown_->RowsOf("VSF");
    QCOMPARE(rows.filter(QStringLiteral("UNREAD")).size(), qsizetype{0});
    other.Execute("Update SPMaster Set BillNo='B/1' Where ID=?", stored[0].id);
    Open();
    QCOMPARE(rows, shown_->RowsOf("VSF"));
  }

  void BillsAreSearched() {
    SavePurchase();
    Open();
    for (const auto& [wanted, rows] :
         {std::pair{"brien", 1}, {"B/1", 1}, {"10/06", 1}, {"B/2", 0}, {"", 1}}) {
      shown_->Named("TxtSearch")->setText(QLatin1String(wanted));
      QCOMPARE(shown_->RowsOf("VSF").size(), rows);
    }
  }
};

static const quorvane::test::RegisterTest<FrmSalePurchaseTest> kRegistered;
#include "FrmSalePurchaseTest.moc"
