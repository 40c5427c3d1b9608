#include "portfolio/notes/window/ImpNotes.h"
#include "support/Desk.h"
#include "support/Files.h"
#include "support/ShownWindow.h"

#include <QPainter>
#include <QPdfWriter>

using namespace quorvane;
using namespace quorvane::notes;

/// What the window does with what the model understands of a note.
class ImpNotesTest : public test::DeskTest {
  Q_OBJECT

  using Shown = test::ShownWindow<ImpNotes>;

  static QString Pdf(const Shown& shown, const QStringList& lines) {
    const QString path = shown.folder.filePath(QStringLiteral("note.pdf"));
    QPdfWriter writer(path);
    writer.setPageSize(QPageSize(QPageSize::A3));
    writer.setResolution(72);
    QPainter painter(&writer);
    QFont font(QStringLiteral("DejaVu Sans Mono"));
    font.setPixelSize(9);
    painter.setFont(font);
    for (int i = 0; i < lines.size(); ++i) {
      painter.drawText(QPoint(10, 20 + i * 14), lines[i]);
    }
    return path;
  }

  static QStringList Note(const QString& quantity, const QString& total, const QString& net) {
    return {"O'BRIEN & SONS",
            "CONTRACT NOTE",
            "Contract Note No. : LT/1   Trade Date : 03-11-2011",
            QString("INE999A01015 ZINC %1 50.00 0.00 50.00 %2 %1 %2").arg(quantity, total),
            "Pay in/Pay out obligation " + total,
            "Stamp duty 1.00",
            "Net amount payable by client " + net};
  }

  /// The same as a web page, with the number and the security's line as given.
  static QString Page(const Shown& shown, const QString& number, const QString& line,
                      const QString& net) {
    QStringList lines = Note("10", "500.00", net);
    lines[2].replace("LT/1", number);
    lines[3] = line;
    const QString page = "<html><body>" + lines.join("<br>") + "</body></html>";
    return test::WriteFile(shown.folder.filePath(QString(number).remove('/') + ".pdf"),
                           page.toUtf8());
  }

 private Q_SLOTS:
  void init() {
    desk_->Empty();
    test::Empty(desk_->Connection(), {"ScripIsin"});
  }

  void UnknownScripIsAssignedThenTheNoteIsTakenInOnce() {
    Shown shown(desk_->database, test::ForClient{desk_->of});
    shown.Named<controls::ComboBox>("Combo2")->ById(desk_->account.value);
    shown.chosen = Pdf(shown, Note("10", "500.00", "501.00"));
    shown.Click("CmdFile");
    QVERIFY(shown.RowsOf("VSF").value(0).contains("Script Missing"));
    shown.Named<controls::Grid>("VSL")->SelectRow(0);
    shown.Named<controls::ComboBox>("Combo5")->ById(desk_->scrip.value);
    shown.Click("CmdAssign");
    shown.Click("CmdTake");
    QCOMPARE(shown.messages.LastText(), QString("1 Bills are Recorded."));
    QCOMPARE(desk_->LotAt(50), QString("10@50"));
    QVERIFY(shown.RowsOf("VSF").value(0).contains("The Note is Entered Already."));
  }

  void OtherContentsReplaceABillAfterAQuestion() {
    desk_->Connection().Execute("Insert Into ScripIsin(ScrId,Isin,FromDay) Values(?,?,'')",
                                desk_->scrip, "INE999A01015");
    Shown shown(desk_->database, test::ForClient{desk_->of});
    shown.Named<controls::ComboBox>("Combo2")->ById(desk_->account.value);
    shown.chosen = Pdf(shown, Note("10", "500.00", "501.00"));
    shown.Click("CmdFile");
    shown.Click("CmdTake");
    shown.chosen = Pdf(shown, Note("12", "600.00", "601.00"));
    shown.Click("CmdFile");
    shown.Named<controls::Grid>("VSF")->Model().TickAll(true);
    shown.messages.WillAnswer(false);
    shown.Click("CmdTake");
    QCOMPARE(desk_->LotAt(50), QString("10@50"));
    shown.Named<controls::Grid>("VSF")->Model().TickAll(true);
    shown.messages.WillAnswer(true);
    shown.Click("CmdTake");
    QCOMPARE(desk_->LotAt(50), QString("12@50"));
    QCOMPARE(desk_->Contents("SPMaster").size(), 1);
  }

  void NoteThatIsNotTickedCountsForNoDay() {
    desk_->Connection().Execute("Insert Into ScripIsin(ScrId,Isin,FromDay) Values(?,?,'')",
                                desk_->scrip, "INE999A01015");
    Shown shown(desk_->database, test::ForClient{desk_->of});
    shown.Named<controls::ComboBox>("Combo2")->ById(desk_->account.value);
    shown.chosen =
        Page(shown, "LT/1", "INE999A01015 ZINC 10 50.00 0.00 50.00 500.00 10 500.00", "501.00");
    shown.Click("CmdFile");
    shown.chosen =
        Page(shown, "LT/2", "INE999A01015 ZINC 10 50.00 0.00 50.00 500.00 -10 500.00", "499.00");
    shown.Click("CmdFile");
    QVERIFY(shown.RowsOf("VSL").value(0).contains("Non Delivery Based"));
    shown.Named<controls::Grid>("VSF")->Model().SetTicked(1, false);
    shown.messages.WillAnswer(false);
    shown.Click("CmdTake");
    QVERIFY(desk_->Contents("SPMaster").isEmpty());
    shown.messages.WillAnswer(true);
    shown.Click("CmdTake");
    QCOMPARE(shown.messages.LastText(), QString("1 Bills are Recorded."));
    QCOMPARE(test::Rows(desk_->Connection(), "Select SP,Qty,DelvType From SPTrans"),
             QStringList({"1|10|Delivery Based"}));
  }
};

static const test::RegisterTest<ImpNotesTest> kRegistered;
#include "ImpNotesTest.moc"
