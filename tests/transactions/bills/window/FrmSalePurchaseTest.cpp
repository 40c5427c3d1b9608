#include "controls/DateBox.h"
#include "core/app/Ini.h"
#include "support/Desk.h"
#include "support/RecordingMessages.h"
#include "support/TestMain.h"
#include "transactions/bills/BillBook.h"
#include "transactions/bills/window/FrmSalePurchase.h"

#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace quorvane;
using namespace quorvane::bills;
using controls::ComboBox;
using controls::Grid;
using controls::ZENButton;
using test::RecordingMessages;

class FrmSalePurchaseTest : public QObject {
  Q_OBJECT

  void Open() {
    window_ = new FrmSalePurchase(
        *desk_, [this](const RateQuestion& question, std::function<void(double)> answer) {
          asked_.append(question.exchange + QLatin1Char(' ') + question.scrip.code +
                        QLatin1Char(' ') + text::FormatDmy(question.date));
          answers_.push_back(std::move(answer));
        });
    BringUp(window_);
  }

  static void BringUp(QWidget* window) {
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window));
  }

  template <class Control = QLineEdit>
  Control* Named(const char* name) const {
    return window_->findChild<Control*>(QLatin1String(name));
  }
  QString TextIn(const char* name) const {
    const auto* combo = Named<ComboBox>(name);
    return combo != nullptr ? combo->currentText() : Named(name)->text();
  }

  /// The control that has the focus: the name of a box inside of a list counts for the list.
  static QString Focused() {
    const QWidget* focus = QApplication::focusWidget();
    while (focus != nullptr && (focus->objectName().isEmpty() ||
                                focus->objectName().startsWith(QLatin1String("qt_")))) {
      focus = focus->parentWidget();
    }
    return focus == nullptr ? QString() : focus->objectName();
  }

  static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  }

  /// Each text into the box that has the focus, Enter after it; an empty one leaves what is there.
  static void Fill(const QStringList& texts) {
    for (const QString& text : texts) {
      for (const QChar letter : text) {
        QTest::keyClick(QApplication::focusWidget(), letter.toLatin1());
      }
      Press(Qt::Key_Return);
    }
  }
  void Retype(const char* box, const QString& text) const {
    Named<QWidget>(box)->setFocus(Qt::TabFocusReason);
    Fill({text});
  }
  void Click(const char* button) const {
    QTest::mouseClick(Named<ZENButton>(button), Qt::LeftButton);
  }
  bool Enabled(const char* name) const { return Named<QWidget>(name)->isEnabled(); }

  QStringList RowsOf(const char* grid) const {
    const controls::GridModel& model = Named<Grid>(grid)->Model();
    QStringList rows;
    for (int row = 0; row < model.RowCount(); ++row) {
      QStringList cells;
      for (int column = 0; column < model.columnCount(); ++column) {
        cells.append(model.Text(row, column));
      }
      rows.append(cells.join(QLatin1Char('|')));
    }
    return rows;
  }

  /// A new bill up to its first line; the cursor stands in the side of the line.
  void BeginBill(const QString& date = QStringLiteral("10062011")) {
    QTest::keyClick(window_, Qt::Key_N, Qt::ControlModifier);
    Fill({QStringLiteral("b/2"), date, QString(), QStringLiteral("o'b"), QStringLiteral("bse"),
          QStringLiteral("1001")});
    QCOMPARE(Focused(), QStringLiteral("CmdAdd1"));
    Press(Qt::Key_Return);
  }

  /// A bill of ten shares at 100 in the ledger.
  BillId SavedPurchase(double rate = 100) {
    Bill bill = data_->NewBill({data_->Purchase(10, rate)});
    bill.grand_total = 1000;
    if (BillBook(data_->Connection(), data_->of).Save(bill)) {
      throw std::runtime_error("refused");
    }
    return bill.id;
  }

  QStringList Rows(const char* sql) {
    QStringList rows;
    for (const auto& row : data_->Connection().Open(sql)) {
      QStringList cells;
      for (std::size_t i = 0; i < row.ColumnCount(); ++i) {
        cells.append(row.Text(i));
      }
      rows.append(cells.join(QLatin1Char('|')));
    }
    return rows;
  }

  std::unique_ptr<test::Desk> data_;
  std::unique_ptr<RecordingMessages> messages_;
  std::unique_ptr<app::Session> session_;
  std::unique_ptr<controls::Desk> desk_;
  QPointer<FrmSalePurchase> window_;
  QStringList asked_;
  std::vector<std::function<void(double)>> answers_;

 private Q_SLOTS:
  void initTestCase() {
    data_ = std::make_unique<test::Desk>();
    database::Connection& db = data_->Connection();
    db.Execute("Update Script Set NCode='RELI' Where Id=?", data_->scrip);
    for (const auto& [name, percent] : {std::pair{"Brokerage Delivery Based", 0.5},
                                        {"STT Delivery Based", 0.125},
                                        {"Service Tax", 10.3},
                                        {"Brokerage Non Delivery Based", 0.05},
                                        {"STT Non Delivery Based", 0.017}}) {
      db.Execute("Insert Into TransTaxPer Values(1,'2011-12',?,?,'')", name, percent);
    }
  }
  void cleanupTestCase() { data_.reset(); }

  void init() {
    data_->Empty();
    data_->Connection().Execute("Delete From MarketRate");
    messages_ = std::make_unique<RecordingMessages>();
    session_ = std::make_unique<app::Session>();
    session_->connection = std::make_unique<database::Connection>(data_->database.Settings());
    session_->current = data_->of;
    session_->current_client_name = QStringLiteral("RAVI");
    desk_ = std::make_unique<controls::Desk>(
        controls::Desk{*session_, *messages_, [] { return *text::MakeDate(15, 11, 2011); },
                       [](const QString&) {}});
    asked_.clear();
    answers_.clear();
  }
  void cleanup() {
    delete window_;
    desk_.reset();
    session_.reset();
  }

  void FromAnEmptyLedgerToTheNextBill() {
    Open();
    QVERIFY(window_->windowTitle().endsWith(QStringLiteral(" - 2011-12")));

    BeginBill();
    Fill({QStringLiteral("p"), QString(), QStringLiteral("reli"), QString(), QStringLiteral("10"),
          QStringLiteral("100"), QString(), QString(), QString(), QString(), QString()});
    QCOMPARE(Focused(), QStringLiteral("CmdUpdate1"));
    Press(Qt::Key_Return);
    QCOMPARE(Focused(), QStringLiteral("TxtScr"));
    QCOMPARE(TextIn("Combo3"), QStringLiteral("Purchase"));
    Fill({QStringLiteral("500325"), QString(), QStringLiteral("5"), QStringLiteral("110")});
    Press(Qt::Key_F8);
    QCOMPARE(RowsOf("VS3"),
             QStringList({"RELIANCE|5.00|110.00|10/06/2011", "RELIANCE|10.00|100.00|10/06/2011"}));
    QCOMPARE(RowsOf("VS2"), QStringList({"RELIANCE|+10.00", "RELIANCE|+5.00"}));
    QCOMPARE(Rows("Select * From SPMaster"), QStringList());
    Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(messages_->Texts(), QStringList());
    QVERIFY(!window_->IsEditing());
    QCOMPARE(Rows("Select SP,Qty,Rate,Brk,Net,Amt,STax,STT,STTPer,FO,DelvType From SPTrans"),
             QStringList({"1|10|100|0.5|100.5|1005|0.52|1.26|0.125|0|Delivery Based",
                          "1|5|110|0.55|110.55|552.75|0|0|0.125|0|Delivery Based"}));
    QCOMPARE(Rows("Select BillNo,BDate,BrokId,ExId,AcId,Tot,STT,Total From SPMaster"),
             QStringList("B/2|10/06/2011|1|2|1|1558.27|1.26|1559.53"));
    QCOMPARE(RowsOf("VSF"), QStringList("B/2|10/06/2011|O'BRIEN & SONS|BSE|1001|1559.53"));
    QCOMPARE(Rows("Select Qty From Stock_Temp"), QStringList());

    QTest::keyClick(window_, Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(TextIn("Text1_2"), QStringLiteral("O'BRIEN & SONS"));
    QCOMPARE(TextIn("Combo1"), QStringLiteral("BSE"));
    QCOMPARE(TextIn("Combo2"), QStringLiteral("1001"));
    Fill({QStringLiteral("b/3"), QStringLiteral("11.6.11")});
    Press(Qt::Key_F6);
    Fill({QStringLiteral("s")});
    Press(Qt::Key_F9);
    QCOMPARE(Focused(), QStringLiteral("VS3"));
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    QCOMPARE(Focused(), QStringLiteral("Text1_3"));
    QCOMPARE(TextIn("TxtScr"), QStringLiteral("500325"));
    QCOMPARE(TextIn("TxtStkId"), QString::number(data_->IdOfLot(100).value));
    Fill({QStringLiteral("4"), QStringLiteral("120")});
    Press(Qt::Key_F8);
    Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(messages_->Texts(), QStringList());
    QCOMPARE(data_->LotAt(100), QStringLiteral("6@100"));
    QCOMPARE(data_->LotAt(110), QStringLiteral("5@110"));
    QCOMPARE(RowsOf("VSAvg"), QStringList("RELIANCE|103.88"));

    Named<Grid>("VSF")->SelectRow(1);
    Click("cmdModify");
    Named<Grid>("Vs1")->SelectRow(0);
    Press(Qt::Key_F7);
    Fill({QStringLiteral("5")});
    Press(Qt::Key_F8);
    QCOMPARE(RowsOf("VS2"), QStringList("RELIANCE|-5.00"));
    Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(data_->LotAt(100), QStringLiteral("5@100"));

    const QStringList before = data_->Everything();
    messages_->WillAnswer(true);
    Named<Grid>("VSF")->SelectRow(0);
    Click("CmdDelete");
    QCOMPARE(messages_->LastText(), test::kNegativeReliance);
    QCOMPARE(data_->Everything(), before);
    for (const int row : {1, 0}) {
      messages_->WillAnswer(true);
      Named<Grid>("VSF")->SelectRow(row);
      Click("CmdDelete");
      QCOMPARE(messages_->LastText(),
               QStringLiteral("Are You Sure, You want to Delete this Record?"));
    }
    QCOMPARE(RowsOf("VSF"), QStringList());
    QCOMPARE(data_->LotAt(100), QStringLiteral("0@100"));
  }

  void WhatIsMissingIsToldInOrderAndFocused_data() {
    QTest::addColumn<QStringList>("head");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("field");
    QTest::newRow("number") << QStringList{QString()} << "Enter Bill No."
                            << "Text1_0";
    QTest::newRow("date") << QStringList{"1"} << "Enter Date."
                          << "Text1_1";
    QTest::newRow("broker") << QStringList{"1", "10062011"} << "Enter Broker Name."
                            << "Text1_2";
    QTest::newRow("unknown broker")
        << QStringList{"1", "10062011", "", "nobody"} << "Enter Broker Name."
        << "Text1_2";
    QTest::newRow("exchange") << QStringList{"1", "10062011", "", "o'b"} << "Select Stock Exchange."
                              << "Combo1";
  }
  void WhatIsMissingIsToldInOrderAndFocused() {
    QFETCH(const QStringList, head);
    QFETCH(const QString, field);
    Open();
    Click("cmdAdd");
    Fill(head);
    Click("cmdUpdate");
    QCOMPARE(messages_->said.size(), std::size_t{1});
    QTEST(messages_->LastText(), "text");
    QCOMPARE(Focused(), field);
    QVERIFY(window_->IsEditing());
    QCOMPARE(data_->Everything(), QStringList());
  }

  void LineIsCheckedInOrder() {
    Open();
    Click("cmdAdd");
    Click("CmdAdd1");
    QCOMPARE(messages_->LastText(), QStringLiteral("Enter Date."));
    QCOMPARE(Focused(), QStringLiteral("Text1_1"));
    Fill({QStringLiteral("10062011")});
    Click("CmdAdd1");
    QCOMPARE(messages_->LastText(), QStringLiteral("Select Stock Exchange."));
    QCOMPARE(Focused(), QStringLiteral("Combo1"));
    Fill({QStringLiteral("bse")});
    Click("CmdAdd1");
    QCOMPARE(Focused(), QStringLiteral("Combo3"));
    Press(Qt::Key_F8);
    QCOMPARE(messages_->LastText(), QStringLiteral("Enter Sale/Purchase."));
    QCOMPARE(Focused(), QStringLiteral("Combo3"));
    Fill({QStringLiteral("p")});
    Press(Qt::Key_F8);
    QCOMPARE(messages_->LastText(), QStringLiteral("Enter Script Name."));
    QCOMPARE(Focused(), QStringLiteral("Combo4"));
    Fill({QStringLiteral("inf")});
    Press(Qt::Key_F8);
    QCOMPARE(messages_->LastText(), QStringLiteral("Enter Quantity Greater than Zero."));
    QCOMPARE(Focused(), QStringLiteral("Text1_3"));
    QCOMPARE(TextIn("TxtScr"), QStringLiteral("500209"));
    QCOMPARE(messages_->said.size(), std::size_t{5});
  }

  void SaleBeyondTheBalanceLeadsBackToTheQuantity() {
    SavedPurchase();
    Open();
    BeginBill();
    Fill({QStringLiteral("s"), QString(), QStringLiteral("500325"), QString(),
          QStringLiteral("-10.5")});
    QCOMPARE(messages_->Texts(), QStringList("You Can't Sale Scripts More than Balance.\n\n"
                                             "Maximum Allowed Value is: 10.00"));
    QCOMPARE(messages_->said.front().kind, RecordingMessages::Kind::kRefuse);
    QCOMPARE(Focused(), QStringLiteral("Text1_3"));
    QCOMPARE(TextIn("Text1_3"), QStringLiteral("10.5"));
    Press(Qt::Key_F8);
    QCOMPARE(messages_->said.size(), std::size_t{2});
    QCOMPARE(RowsOf("Vs1"), QStringList());
    Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(messages_->said.size(), std::size_t{3});
    Press(Qt::Key_E, Qt::AltModifier);
    QCOMPARE(messages_->said.size(), std::size_t{4});
    QCOMPARE(Focused(), QStringLiteral("Text1_3"));
    Press(Qt::Key_Escape);
    QCOMPARE(messages_->said.size(), std::size_t{4});
    QCOMPARE(Focused(), QStringLiteral("CmdAdd1"));
  }

  void ChangeThatWouldMakeALotNegativeKeepsTheLine() {
    Open();
    BeginBill();
    Fill({QStringLiteral("p"), QString(), QStringLiteral("500325"), QString(), QStringLiteral("10"),
          QStringLiteral("100")});
    Press(Qt::Key_F8);
    Named<QWidget>("Combo3")->setFocus(Qt::TabFocusReason);
    Fill({QStringLiteral("s"), QString(), QStringLiteral("500325"), QString(), QStringLiteral("8"),
          QStringLiteral("120")});
    Press(Qt::Key_F8);
    Press(Qt::Key_Escape);
    Named<Grid>("Vs1")->SelectRow(0);
    Named<Grid>("Vs1")->setFocus();
    Press(Qt::Key_Return);
    Fill({QStringLiteral("7")});
    Press(Qt::Key_F8);
    QCOMPARE(messages_->Texts(), QStringList(test::kNegativeReliance));
    QCOMPARE(Focused(), QStringLiteral("Text1_3"));
    QCOMPARE(RowsOf("VS2"), QStringList({"RELIANCE|+10.00", "RELIANCE|-8.00"}));
    QCOMPARE(RowsOf("VS3"), QStringList("RELIANCE|2.00|100.00|10/06/2011"));
    Press(Qt::Key_Escape);
    Named<Grid>("Vs1")->setFocus();
    messages_->WillAnswer(true);
    Press(Qt::Key_Delete);
    QCOMPARE(messages_->LastText(), test::kNegativeReliance);
    QCOMPARE(RowsOf("Vs1").size(), 2);
  }

  void ScripIsFoundByTheCodeOfEitherExchangeAndByName() {
    Open();
    BeginBill();
    Fill({QStringLiteral("p"), QString(), QStringLiteral("rel")});
    QCOMPARE(TextIn("Combo4"), QStringLiteral("RELIANCE"));
    QCOMPARE(TextIn("TxtScr"), QStringLiteral("500325"));
    Retype("Combo4", QStringLiteral("in"));
    QCOMPARE(TextIn("TxtScr"), QStringLiteral("500209"));
    Retype("TxtScr", QStringLiteral("nosuch"));
    QCOMPARE(messages_->Texts(), QStringList("There is no Scrip of the Code NOSUCH."));
    QCOMPARE(Focused(), QStringLiteral("TxtScr"));
    const ScripId added = data_->database.AddScrip(QStringLiteral("777"), QStringLiteral("NEW CO"));
    Fill({QStringLiteral("777")});
    QCOMPARE(TextIn("Combo4"), QStringLiteral("NEW CO"));
    data_->Connection().Execute("Delete From Script Where Id=?", added);
  }

  void RecordedRateOfTheDayIsOffered() {
    data_->Connection().Execute("Insert Into MarketRate Values('2011-12',1,'10/06/2011',?,98.765)",
                                data_->scrip);
    Open();
    BeginBill();
    Fill({QStringLiteral("p"), QString(), QStringLiteral("500325")});
    QCOMPARE(TextIn("Text1_4"), QStringLiteral("98.77"));
    QVERIFY(answers_.empty());
  }

  void RateThatArrivesLaterFillsTheBoxUnlessOneWasTyped() {
    Open();
    BeginBill();
    Fill({QStringLiteral("p"), QString(), QStringLiteral("500325")});
    QCOMPARE(asked_, QStringList("BSE 500325 10/06/2011"));
    answers_.back()(0);
    QCOMPARE(TextIn("Text1_4"), QString());
    answers_.back()(101.5);
    QCOMPARE(TextIn("Text1_4"), QStringLiteral("101.50"));
    Retype("Combo4", QStringLiteral("in"));
    QCOMPARE(TextIn("Text1_4"), QString());
    answers_.front()(7);
    QCOMPARE(TextIn("Text1_4"), QString());
    Retype("Text1_4", QStringLiteral("55"));
    answers_.back()(60);
    QCOMPARE(TextIn("Text1_4"), QStringLiteral("55.00"));
    Press(Qt::Key_Escape);
    answers_.back()(60);
    QCOMPARE(TextIn("Text1_4"), QString());
  }

  void DateComesBeforeTheScrip() {
    Open();
    BeginBill(QStringLiteral("16112011"));
    Fill({QStringLiteral("p"), QString(), QStringLiteral("500325")});
    QCOMPARE(messages_->LastText(), QStringLiteral("You can't insert future Date"));
    QCOMPARE(Focused(), QStringLiteral("Text1_1"));
    Fill({QStringLiteral("31032011")});
    QCOMPARE(messages_->LastText(),
             QStringLiteral("The Date is not in the Financial Year 2011-12."));
    QCOMPARE(Focused(), QStringLiteral("Text1_1"));
    Fill({QStringLiteral("10062011")});
    QCOMPARE(asked_, QStringList("BSE 500325 10/06/2011"));
    QCOMPARE(messages_->said.size(), std::size_t{2});
  }

  void DeliveryTypeChoosesThePercentages() {
    Open();
    BeginBill();
    Fill({QStringLiteral("s"), QStringLiteral("non"), QStringLiteral("500325"), QString(),
          QStringLiteral("10"), QStringLiteral("100")});
    QCOMPARE(Focused(), QStringLiteral("Text1_5"));
    QCOMPARE(TextIn("Text1_5"), QStringLiteral("0.05"));
    Press(Qt::Key_Return);
    QCOMPARE(TextIn("Text1_6"), QStringLiteral("99.95"));
    QCOMPARE(TextIn("Text1_8"), QStringLiteral("0.0515"));
    Press(Qt::Key_Return);
    QCOMPARE(TextIn("Combo5"), QStringLiteral("0.017"));
    Press(Qt::Key_Return);
    QCOMPARE(TextIn("Text1_13"), QStringLiteral("0.169915"));
    Press(Qt::Key_F8);
    QCOMPARE(RowsOf("Vs1"),
             QStringList("S|RELIANCE|10.00|100.00|0.05|99.95|999.50|0.05|0.17|0.017||"
                         "Non Delivery Based"));
    QCOMPARE(TextIn("Text1_12"), QStringLiteral("999.62"));
    QCOMPARE(Named<QLabel>("LblTotal")->text(), QStringLiteral("Total Receivable"));
  }

  void SttIsProposedInWholeRupeesWhenTheSettingsSaySo() {
    const QTemporaryDir folder;
    session_->folders.config_file = folder.filePath(QStringLiteral("Confg.ini"));
    app::IniFile(session_->folders.config_file)
        .Write(QStringLiteral("Bills"), QStringLiteral("WholeRupeeStt"), QStringLiteral("yes"));
    Open();
    BeginBill();
    Fill({QStringLiteral("p"), QString(), QStringLiteral("500325"), QString(), QStringLiteral("10"),
          QStringLiteral("120"), QString(), QString(), QString()});
    QCOMPARE(TextIn("Text1_13"), QStringLiteral("2"));
  }

  void ChargesOfTheBillCountWhenTheyAreLeftOrSaved() {
    Open();
    BeginBill();
    Fill({QStringLiteral("p"), QString(), QStringLiteral("500325"), QString(), QStringLiteral("10"),
          QStringLiteral("100")});
    Press(Qt::Key_F8);
    Retype("Text1_10", QStringLiteral("2.5"));
    QCOMPARE(TextIn("Text1_10"), QStringLiteral("2.50"));
    QCOMPARE(TextIn("Text1_12"), QStringLiteral("1007.50"));
    QCOMPARE(Focused(), QStringLiteral("Text1_14"));
    QTest::keyClick(QApplication::focusWidget(), '1');
    Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(Rows("Select OthCharge,TranChg,Total From SPMaster"), QStringList("2.5|1|1008.5"));
  }

  void LineThatIsNotTakenYetHoldsTheBillBack() {
    Open();
    BeginBill();
    Fill({QStringLiteral("p"), QString(), QStringLiteral("500325")});
    Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(messages_->LastText(),
             QStringLiteral("The Line is not in the Bill yet. Update or Cancel it First."));
    QCOMPARE(Focused(), QStringLiteral("CmdUpdate1"));
    QCOMPARE(Rows("Select * From SPMaster"), QStringList());
  }

  void LotOfABrokenRateSurvivesAChangeOfTheQuantity() {
    SavedPurchase(100.0 / 3);
    Open();
    Named<Grid>("VSF")->SelectRow(0);
    Click("cmdModify");
    Named<Grid>("Vs1")->SelectRow(0);
    Press(Qt::Key_F7);
    Fill({QStringLiteral("12"), QString()});
    Press(Qt::Key_F8);
    Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(messages_->Texts(), QStringList());
    QCOMPARE(Rows("Select Qty From Stock"), QStringList("12"));
    QCOMPARE(data_->LotAt(100.0 / 3), QStringLiteral("12@33.3333333333333"));
  }

  void CancelLeavesTheLedgerAndTheScratchTableAlone() {
    SavedPurchase();
    Open();
    const QStringList before = data_->Everything();
    Named<Grid>("VSF")->SelectRow(0);
    Click("cmdModify");
    Named<Grid>("Vs1")->SelectRow(0);
    messages_->WillAnswer(true);
    Click("CmdDelete1");
    QCOMPARE(RowsOf("VS3"), QStringList("RELIANCE|0.00|100.00|"));
    Click("cmdCancel");
    QCOMPARE(RowsOf("Vs1").size(), 1);
    QCOMPARE(RowsOf("VS3"), QStringList("RELIANCE|10.00|100.00|10/06/2011"));
    QCOMPARE(data_->Everything(), before);
    QCOMPARE(Rows("Select * From Stock_Temp"), QStringList());
  }

  void EscapeAsksBeforeItGivesUpWhatWasChanged() {
    SavedPurchase();
    Open();
    Named<Grid>("VSF")->SelectRow(0);
    Click("cmdModify");
    Press(Qt::Key_Escape);
    QVERIFY(!window_->IsEditing());
    QCOMPARE(messages_->Texts(), QStringList());
    Click("cmdModify");
    Retype("Text1_1", QStringLiteral("b/9"));
    Press(Qt::Key_Escape);
    QCOMPARE(messages_->LastText(), QStringLiteral("The bill is not saved. Give it up?"));
    QVERIFY(window_->IsEditing());
    messages_->WillAnswer(true);
    Press(Qt::Key_Escape);
    QVERIFY(!window_->IsEditing());
  }

  void CommandsFollowTheState() {
    SavedPurchase();
    Open();
    const QStringList line_commands{"CmdAdd1",    "CmdModify1", "CmdUpdate1", "CmdDelete1",
                                    "cmdCancel1", "Text1_0",    "Text1_3"};
    const auto live = [&] {
      QString states;
      for (const QString& name : line_commands) {
        states += Enabled(qPrintable(name)) ? QLatin1Char('1') : QLatin1Char('0');
      }
      return states;
    };
    Named<Grid>("VSF")->SelectRow(0);
    QCOMPARE(live(), QStringLiteral("0000000"));
    QCOMPARE(RowsOf("Vs1"), QStringList("P|RELIANCE|10.00|100.00|0.00|100.00|1000.00|0.00|0.00|"
                                        "0.000||N.A."));
    Click("cmdModify");
    QCOMPARE(live(), QStringLiteral("1000010"));
    Named<Grid>("Vs1")->SelectRow(0);
    QCOMPARE(live(), QStringLiteral("1101010"));
    Click("CmdModify1");
    QCOMPARE(live(), QStringLiteral("0010111"));
    Click("cmdCancel1");
    QCOMPARE(live(), QStringLiteral("1101010"));
  }

  void RefreshReadsTheLedgerAgain() {
    Open();
    BeginBill();
    Press(Qt::Key_Escape);
    SavedPurchase();
    Press(Qt::Key_F5);
    QCOMPARE(messages_->Texts(), QStringList("Refresh Successfully!"));
    QCOMPARE(RowsOf("VS3"), QStringList("RELIANCE|10.00|100.00|10/06/2011"));
    QCOMPARE(Named<QLabel>("LblBalance")->text(),
             QStringLiteral("Balance in Demat A/c No. - 1001"));
  }

  void FailureOfTheDatabaseLeavesTheFormAsItIs() {
    Open();
    BeginBill();
    Fill({QStringLiteral("p"), QString(), QStringLiteral("500325"), QString(), QStringLiteral("10"),
          QStringLiteral("100")});
    Press(Qt::Key_F8);
    data_->Connection().Execute("Rename Table SPTrans To Elsewhere");
    Press(Qt::Key_S, Qt::ControlModifier);
    data_->Connection().Execute("Rename Table Elsewhere To SPTrans");
    QCOMPARE(messages_->said.size(), std::size_t{1});
    QVERIFY(messages_->LastText().startsWith(QStringLiteral("cmdUpdate_Click: ")));
    QVERIFY(window_->IsEditing());
    QCOMPARE(RowsOf("VS2"), QStringList("RELIANCE|+10.00"));
    QCOMPARE(data_->Everything(), QStringList());
    Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(data_->LotAt(100), QStringLiteral("10@100"));
  }

  void LinesStayWithAnAccountThatWasDeleted() {
    SavedPurchase();
    data_->Connection().Execute("Update ClientActDet Set CId=0 Where id=?", data_->account);
    Open();
    Named<Grid>("VSF")->SelectRow(0);
    Click("cmdModify");
    Retype("Combo2", QString());
    Retype("Text1_0", QStringLiteral("b/7"));
    Press(Qt::Key_S, Qt::ControlModifier);
    data_->Connection().Execute("Update ClientActDet Set CId=? Where id=?", data_->client,
                                data_->account);
    QCOMPARE(Rows("Select BillNo,AcId From SPMaster"),
             QStringList(QStringLiteral("B/7|%1").arg(data_->account.value)));
    QCOMPARE(data_->LotAt(100), QStringLiteral("10@100"));
  }

  void AnotherAccountTakesTheLinesAlong() {
    Open();
    BeginBill();
    Fill({QStringLiteral("p"), QString(), QStringLiteral("500325"), QString(), QStringLiteral("10"),
          QStringLiteral("100")});
    Press(Qt::Key_F8);
    Retype("Combo2", QStringLiteral("1002"));
    QCOMPARE(Named<QLabel>("LblBalance")->text(),
             QStringLiteral("Balance in Demat A/c No. - 1002"));
    QCOMPARE(RowsOf("VS3"), QStringList("RELIANCE|10.00|100.00|10/06/2011"));
    Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(data_->LotAt(data_->of, data_->second_account, data_->scrip, 100),
             QStringLiteral("10@100"));
  }

  void SaleOfSeveralLotsIsOfferedAsALineForEach() {
    SavedPurchase();
    SavedPurchase(110);
    Open();
    BeginBill();
    Fill({QStringLiteral("s"), QString(), QStringLiteral("500325"), QString(), QStringLiteral("12"),
          QStringLiteral("120")});
    messages_->WillAnswer(false);
    Press(Qt::Key_F8);
    QCOMPARE(messages_->Texts(),
             QStringList({"Take the Sale from these Lots, with a Line for each?\n\n"
                          "10 at 100.00, held since 10/06/2011\n2 at 110.00, held since 10/06/2011",
                          "Select the Lot to be Sold from the Balance."}));
    QCOMPARE(RowsOf("Vs1"), QStringList());
    messages_->WillAnswer(true);
    Press(Qt::Key_F8);
    QCOMPARE(RowsOf("VS2"), QStringList({"RELIANCE|-10.00", "RELIANCE|-2.00"}));
    QCOMPARE(RowsOf("VS3"),
             QStringList({"RELIANCE|8.00|110.00|10/06/2011", "RELIANCE|0.00|100.00|"}));
    Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(data_->LotAt(110), QStringLiteral("8@110"));
  }

  void SaleBeforeTheAccountIsOfferedItsOldestLots() {
    Open();
    QTest::keyClick(window_, Qt::Key_N, Qt::ControlModifier);
    Fill({QStringLiteral("b/2"), QStringLiteral("10062011"), QString(), QStringLiteral("o'b"),
          QStringLiteral("bse"), QString()});
    Press(Qt::Key_Return);
    Fill({QStringLiteral("s"), QString(), QStringLiteral("500325"), QString(), QStringLiteral("4"),
          QStringLiteral("120")});
    Press(Qt::Key_F8);
    SavedPurchase();
    messages_->WillAnswer(false);
    Retype("Combo2", QStringLiteral("1001"));
    QCOMPARE(messages_->LastText(), QStringLiteral("1 of the Bill's Sales name no Lot. Take the "
                                                   "oldest Lots of the Demat A/c?"));
    Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(messages_->LastText(),
             QStringLiteral("Line 1: Select the Lot to be Sold from the Balance."));
    Retype("Combo2", QStringLiteral("1002"));
    messages_->WillAnswer(true);
    Retype("Combo2", QStringLiteral("1001"));
    Press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!window_->IsEditing());
    QCOMPARE(data_->LotAt(100), QStringLiteral("6@100"));
  }

  void SecondBillOfOneNumberIsAskedFor() {
    SavedPurchase();
    Open();
    QTest::keyClick(window_, Qt::Key_N, Qt::ControlModifier);
    Fill({QStringLiteral("b/1"), QStringLiteral("10062011")});
    Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(messages_->Texts(),
             QStringList("There is a Bill No. B/1 of this Broker on 10/06/2011 already.\n\n"
                         "Save this one, too?"));
    QCOMPARE(Focused(), QStringLiteral("Text1_0"));
    QCOMPARE(Rows("Select * From SPMaster").size(), 1);
    messages_->WillAnswer(true);
    Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(Rows("Select * From SPMaster").size(), 2);
    QCOMPARE(Named<Grid>("VSF")->selectionModel()->selectedRows().size(), 1);
    QCOMPARE(QStringList(QString::number(Named<Grid>("VSF")->CurrentId())),
             Rows("Select Max(Id) From SPMaster"));
    Click("cmdModify");
    Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(messages_->said.size(), std::size_t{2});
    QVERIFY(!window_->IsEditing());
  }

  void WrongDateIsToldOnce() {
    Open();
    Click("cmdAdd");
    Fill({QStringLiteral("1")});
    QTest::keyClick(QApplication::focusWidget(), '3');
    Click("CmdAdd1");
    QCOMPARE(messages_->Texts(), QStringList("Enter Proper Date."));
    QCOMPARE(Focused(), QStringLiteral("Text1_1"));
    QCOMPARE(Named("Text1_1")->selectedText(), QStringLiteral("3"));
  }

  void SearchKeepsTheFocus() {
    SavedPurchase();
    Open();
    Named("TxtSearch")->setFocus();
    for (const char letter : {'b', 'r', 'i', 'x'}) {
      QTest::keyClick(QApplication::focusWidget(), letter);
      QCOMPARE(Focused(), QStringLiteral("TxtSearch"));
    }
    QCOMPARE(TextIn("TxtSearch"), QStringLiteral("BRIX"));
    QCOMPARE(RowsOf("VSF"), QStringList());
    Press(Qt::Key_Backspace);
    QCOMPARE(RowsOf("VSF").size(), 1);
  }

  void BillsAreSearched() {
    SavedPurchase();
    Open();
    for (const auto& [wanted, rows] :
         {std::pair{"brien", 1}, {"B/1", 1}, {"10/06", 1}, {"B/2", 0}, {"", 1}}) {
      Named("TxtSearch")->setText(QLatin1String(wanted));
      QCOMPARE(RowsOf("VSF").size(), rows);
    }
  }
};

static const quorvane::test::RegisterTest<FrmSalePurchaseTest> kRegistered;
#include "FrmSalePurchaseTest.moc"
