#include "core/actions/Terms.h"
#include "core/text/Amounts.h"
#include "support/Test.h"
#include "transactions/corporate_actions/PurposeText.h"

using namespace quorvane;
using namespace quorvane::corporate_actions;

namespace {

/// "bonus 1:1; rights 1:15 ?price (its note); | what is left over".
QString Told(const Purpose& purpose) {
  QStringList parts;
  for (Action action : purpose.actions) {
    action.ex_day = QStringLiteral("01/04/2020");
    QString part = QString::fromUtf8(actions::NameOf(action.kind).file_name.data());
    if (action.new_shares) {
      part += QStringLiteral(" %1:%2").arg(text::NumberText(action.new_shares.Number()),
                                           text::NumberText(action.old_shares.Number()));
    }
    if (action.price > 0) {
      part += QLatin1String(" Rs ") + text::NumberText(action.price);
    }
    for (const OpenPoint point : OpenPointsOf(action)) {
      part += QLatin1String(" ?") + TextOf(point);
    }
    parts << (action.note.isEmpty() ? part : part + QStringLiteral(" (%1)").arg(action.note));
  }
  const QString told = parts.join(QLatin1String("; "));
  return purpose.left_over.isEmpty() ? told : told + QLatin1String(" | ") + purpose.left_over;
}

}  // namespace

class PurposeTextTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void PurposeIsReadAsTheExchangesMeanIt_data() {
    const test::Table<QString, QString> table;
    const auto row = [&](const char* purpose, const char* told) {
      table(purpose, QString::fromUtf8(purpose), QString::fromUtf8(told));
    };
    const char* const no_action = "";
    row("Bonus 1:2", "bonus 1:2");
    row("Bonus 25:202", "bonus 25:202");
    row("Bonus- 1:2", "bonus 1:2");
    row("Bonus 1: 1", "bonus 1:1");
    row("Bonus issue 29:50", "bonus 29:50");
    row("Bonus 2 Shares For Every 3", "bonus 2:3");
    row("Bonus 1:1 (Revised From 1:2)", "bonus ?ratio (Bonus 1:1 (Revised From 1:2))");
    row("Bonus 1:1/Dividend- Rs 13.5 Per Share", "bonus 1:1; dividend Rs 13.5");
    row(" Annual General Meeting/Dividend - Rs 2.50 Per Share/Bonus 1:10 (Revised)",
        "dividend Rs 2.5; bonus 1:10");
    row("Bonus 1:1/Face Value Split (Sub-Division) - From Rs 10/- Per Share To Rs 2/- Per Share",
        "bonus 1:1; split 5:1");
    row("Bonus Ncrps 1:116", no_action);
    row("Scheme Of Arrangement - Bonus Ncrps 4:1", no_action);
    row("Scheme Of Arangement- Bonus - 1 Debenture For 1 Equity Share Held", no_action);

    row("Face Value Split (Sub-Division) - From Rs10/- Per Share To Re 1/- Per Share",
        "split 10:1");
    row("Fv Splt Frm Rs 10 To Re 1", "split 10:1");
    row("Face Value Split From Rs 10 To Re 2", "split 5:1");
    row("Face Value Split (Sub-Division) - From Rs 5/- Per Share To Rs 2/- Per Share", "split 5:2");
    row("Face Value Split From Rs 2 Per Share To Rs 1 Per Share", "split 2:1");
    row("Face Valus Split From Rs 10 To Rs 5", "split 2:1");
    row("Stock  Split From Rs.5/- to Rs.1/-", "split 5:1");
    row("Sub-Division/Split From Rs 10 To Rs 2", "split 5:1");
    row("FV SPLIT FROM RS10 TO RS", "split ?ratio (FV SPLIT FROM RS10 TO RS)");
    row("Face Value Split From Rs 2 To Rs 10",
        "split ?ratio (Face Value Split From Rs 2 To Rs 10)");
    row("Interim Div - Rs 6/- Per Share + Face Value Split (Sub-Division) - From Rs 10/- Per Share "
        "To Re 1/- Per Share",
        "dividend Rs 6; split 10:1");
    row("Consolidation Of Equity Shares From Re 1 Per Share To Rs 10 Per Share",
        "consolidation 1:10");
    row("Consolidation of Shares", "consolidation ?ratio");
    row("Capital Reduction Rs 10 To Rs 3.30 / Consolidation Rs 3.30 To Rs.10",
        "consolidation 33:100 | Capital Reduction Rs 10 To Rs 3.30");
    row("Capital Reduction -  From Rs 10/- To Rs 4/- Per Share",
        " | Capital Reduction - From Rs 10/- To Rs 4/- Per Share");
    row("Reduction of Capital", " | Reduction of Capital");

    row("Rights 1:15 @ Premium Rs 1247", "rights 1:15 ?price (Rights 1:15 @ Premium Rs 1247)");
    row("Rights - 4:25 Fully Paid Up Shares @ Premium Rs 500/- Per Share / 2:25 Partly Paid Up "
        "Shares @ Premium Rs 605/- Per Share",
        "rights 4:25 ?price (4:25 Fully Paid Up Shares @ Premium Rs 500/- Per Share); "
        "rights 2:25 ?price (2:25 Partly Paid Up Shares @ Premium Rs 605/- Per Share)");
    row("Rights 1:9 @ Premium 91", "rights 1:9 ?price (Rights 1:9 @ Premium 91)");
    row("Rights 1:1 @ Premium Rs 0/-", "rights 1:1 ?price (Rights 1:1 @ Premium Rs 0/-)");
    row("Rights 2:7", "rights 2:7 ?price (Rights 2:7)");
    row("Rights 1:11.10 @ Premium Re. 0.63/-",
        "rights 1:11.1 ?price (Rights 1:11.10 @ Premium Re. 0.63/-)");
    row("Rights Of Equity Shares Of Rs 10 Each 1:5 @ Premium Of Rs 90/-", "rights 1:5 Rs 100");
    row("Rights Of Shares Of Rs 10 Each 9:77 Partly Paid @ Premium Rs 100/-",
        "rights 9:77 ?price (Rights Of Shares Of Rs 10 Each 9:77 Partly Paid @ Premium Rs 100/-)");
    row("Rights 1:5 @ Rs 100/- (Including Premium Of Rs 90/-)", "rights 1:5 Rs 100");
    row("Rights 1:50 @ Premium Rs 175  With 6 Warrants For 50 Equity Shares",
        "rights 1:50 ?price (Rights 1:50 @ Premium Rs 175 With 6 Warrants For 50 Equity Shares)");
    row("Rights:14 Compulosry Convertible Debentures For Every 15 Equity Shares", no_action);
    row("Right Issue of Equity Shares", "rights ?ratio ?price");
    row("Dividend - Re 0.70/- Per Share/ Right 26:151",
        "dividend Rs 0.7; rights 26:151 ?price (Right 26:151)");

    row("Interim Dividend - Re 4/- Per Share", "dividend Rs 4");
    row("Interim Dividend Rs.1.20 Per Share (Purpose Revised)", "dividend Rs 1.2");
    row("Special Dividend - Rs. - 46.0000", "dividend Rs 46");
    row("Int Div- 2 Per Share", "dividend Rs 2");
    row("Iinterim Divdend - Rs 1,250 Per Sh", "dividend Rs 1250");
    row("Interm Dividned - Rs .50 Pe R Share", "dividend Rs 0.5");
    row("Dividend - 50 Paise Per Share", "dividend Rs 0.5");
    row("Dividend Re.50", "dividend ?amount a share (Dividend Re.50)");
    row("Final Dividend Rs 6/- Plus Special Dividend Rs 4/- Per Share", "dividend Rs 10");
    row("Dividend-Rs.8.50 Per Share (Including Special Dividend Of Rs.2/- Per Share).",
        "dividend Rs 8.5");
    row("Dividend - Rs 160 Per Share & Special Dividend - Rs 375", "dividend Rs 535");
    row("Agm/Spl Div- Rs.5/- Div-7.5/-", "dividend Rs 12.5");
    row("Dividend Rs 10 (Interim Dividend Rs 4 + Final Dividend Rs 6)",
        "dividend ?amount a share "
        "(Dividend Rs 10 (Interim / Dividend Rs 4 / Final Dividend Rs 6))");
    row("Dividend Revised From Rs 2 To Rs 3",
        "dividend ?amount a share (Dividend Revised From Rs 2 To Rs 3)");
    row("Dividend Rs 5 On Rs 10 Paid Up",
        "dividend ?amount a share (Dividend Rs 5 On Rs 10 Paid Up)");
    row("AGM/DIV-RS 5 PER SHR+ SPL", "dividend Rs 5 | SPL");
    row("Interim Dividend 2023-24", "dividend ?amount a share (Interim Dividend 2023-24)");
    row("Annual General Meeting/Dividend - Rs  Per Share", "dividend ?amount a share");
    row("AGM/DIVIDEND-100%", "dividend ?amount a share (DIVIDEND-100%)");
    row("INTERIM DIVIDEND @ 10%", "dividend ?amount a share (INTERIM DIVIDEND @ 10%)");
    row("Dividend 50% (Rs 5 Per Share)", "dividend Rs 5");
    row("Special Dividend Rs 5 / Dividend 100%",
        "dividend ?amount a share (Special Dividend Rs 5 / Dividend 100%)");
    row("Dividend On Preference Shares Rs 5", no_action);

    row("Buy Back/Interim Dividend - Re 0.25 Per Share", "buy-back ?price; dividend Rs 0.25");
    row("Buyback", "buy-back ?price");
    row("De-Merger", "demerger ?ratio ?other script ?percent of cost");
    row("Spin Off", "demerger ?ratio ?other script ?percent of cost");
    row("Merger/Demerger",
        "merger ?ratio ?other script; demerger ?ratio ?other script ?percent of cost");
    row("Scheme Of Amalgamation", "merger ?ratio ?other script");
    row("Composite Scheme Of Arrangement", " | Composite Scheme Of Arrangement");
    row("Sheme Of Arrangement", " | Sheme Of Arrangement");

    row("Annual General Meeting", no_action);
    row("Bonus 1:1/Something Else", "bonus 1:1 | Something Else");
    row("Something Else 5", " | Something Else 5");
  }
  void PurposeIsReadAsTheExchangesMeanIt() {
    const auto [purpose, told] = test::Table<QString, QString>::Row();
    QCOMPARE(Told(ReadPurpose(purpose)), told);
  }
};

static const quorvane::test::RegisterTest<PurposeTextTest> kRegistered;
#include "PurposeTextTest.moc"
