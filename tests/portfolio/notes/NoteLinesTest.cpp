#include "core/records/BillAmounts.h"
#include "core/text/Amounts.h"
#include "portfolio/notes/NoteBill.h"
#include "portfolio/notes/NoteLines.h"
#include "support/Test.h"

#include <fmt/format.h>

using namespace quorvane;
using namespace quorvane::notes;

namespace {

constexpr const char* kHead = R"(
LOTUS SECURITIES LIMITED
CONTRACT NOTE CUM TAX INVOICE
Contract Note No. : LT/2526/000123     Trade Date : 03-Nov-2025
Settlement No : 2025199   PAN of Client : ABCPK1234L
                                     BUY                                      SELL                                 Net Obligation
ISIN           Security Name         Qty  WAP       Brok    After    Total    Qty  WAP     Brok  After  Total      Qty   Amount
)";

constexpr const char* kAverage =
    "INE999A01015   ZINC 10               10   462.0000  0.0500  462.0500 4620.50                 "
    "                       10    4620.50\n"
    "INE999B01021   ALUM CASTINGS                                                  5    100.0000 "
    "0.0100 99.9900 499.95 -5    499.95\n";

/// The sum of charges that follows; `net` as printed.
std::string Sum(const std::string& obligation, const std::string& taxable, const std::string& net) {
  return "Pay in/Pay out obligation  " + obligation + "\nTaxable value of Supply (Brokerage)  " +
         taxable +
         "\nExchange transaction charges  (0.16)\nCGST (@9%)  (0.06)\nSGST (@9%)  (0.06)\n"
         "Securities transaction tax  (5.00)\nSEBI turnover fees  (0.01)\nStamp duty  (1.00)\n"
         "Net amount receivable/(payable\nby client)  " +
         net + "\n";
}

Note Read(const std::string& text) {
  return ReadNoteLines(paper::LinesOf(text));
}

QString Told(const Note& note) {
  QStringList told{QString::fromStdString(note.number),
                   note.day ? text::FormatDmy(*note.day) : QStringLiteral("no day")};
  for (const NoteLine& line : note.lines) {
    told << QString::fromStdString(
        fmt::format("{} {} {} at {} {} = {}", line.isin, line.side == Side::kSale ? "S" : "P",
                    line.quantity.Number(), line.rate, line.brokerage, line.total.Rupees()));
  }
  const NoteBalance balance = CheckNote(note);
  told << (balance.adds_up ? QStringLiteral("adds up") : QString::fromStdString(balance.why));
  if (balance.extra_brokerage > Paise()) {
    told << QStringLiteral("extra ") + text::NumberText(balance.extra_brokerage.Rupees());
  }
  return told.join(QLatin1Char('|'));
}

/// What the bill brings, to be the note's net amount: sales less purchases, tax, STT and charges.
Paise NetOf(const NoteBill& bill) {
  Paise net = -Paise::OfRupees(bill.transaction_charges) - Paise::OfRupees(bill.other_charges);
  for (const BillEntry& entry : bill.entries) {
    records::BillLine line;
    line.side = entry.side;
    line.quantity = entry.quantity;
    line.rate = entry.rate;
    line.brokerage = entry.brokerage;
    records::ComputeAmount(line);
    const Paise amount = Paise::OfRupees(line.amount);
    net += line.IsPurchase() ? -amount : amount;
    net -= Paise::OfRupees(entry.service_tax) + Paise::OfRupees(entry.stt);
  }
  return net;
}

/// Of each line what lines of the other side have of its security.
std::vector<Shares> SoldOnTheDay(const Note& note) {
  std::vector<Shares> shares;
  for (const NoteLine& line : note.lines) {
    Shares opposite;
    for (const NoteLine& other : note.lines) {
      opposite += other.isin == line.isin && other.side != line.side ? other.quantity : Shares();
    }
    shares.push_back(std::min(line.quantity, opposite));
  }
  return shares;
}

}  // namespace

class NoteLinesTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void EachFormIsReadAndChecked_data() {
    const test::Table<std::string, QString> row;
    const std::string head(kHead);
    const QString lines =
        "LT/2526/000123|03/11/2025|INE999A01015 P 10 at 462 0.05 = 4620.5|INE999B01021 S 5 at 100 "
        "0.01 = 499.95|";
    row("brackets are payable", head + kAverage + Sum("(4120.55)", "(0.55)", "(4126.84)"),
        lines + "adds up");
    row("plus is payable", head + kAverage + Sum("4120.55", "0.55", "4126.84"), lines + "adds up");
    row("Dr. and Cr.", head + kAverage + Sum("4120.55 DR", "0.55 DR", "4126.84 DR"),
        lines + "adds up");
    row("brokerage is in the sum",
        head + "INE999A01015   ZINC   10   462.0000  0.0000  462.0000 4620.00   10   4620.00\n" +
            Sum("(4620.00)", "(2.50)", "(4628.79)"),
        "LT/2526/000123|03/11/2025|INE999A01015 P 10 at 462 0 = 4620|adds up|extra 2.5");
    row("both sides in one line",
        head +
            "INE999A01015   ZINC   10  100.00 0.00 100.00 1000.00  4 110.00 0.00 110.00 440.00  "
            "6 560.00\n" +
            Sum("(560.00)", "0.00", "(566.29)"),
        "LT/2526/000123|03/11/2025|INE999A01015 P 10 at 100 0 = 1000|INE999A01015 S 4 at 110 0 = "
        "440|adds up");
    row("older form; fills are added up",
        "CONTRACT NOTE\nCONTRACT NOTE NO. 77\nTRADE DATE 02/05/2011\n"
        "100001 09:20:01 200001 09:20:02 ZINC-EQ/INE999A01015 B NSE 6 50.00 0.10 50.10 300.60\n"
        "100001 09:20:01 200002 09:20:02 ZINC-EQ/INE999A01015 B NSE 4 50.00 0.10 50.10 200.40\n"
        "100002 09:21:01 200003 09:21:02 ALUM-EQ S NSE 5 10.00 0.10 9.90 49.50\n"
        "INE999B01021\nTotal 451.50\n" +
            Sum("451.50", "1.50", "457.79"),
        "77|02/05/2011|INE999A01015 P 10 at 50 0.1 = 501|INE999B01021 S 5 at 10 0.1 = 49.5|adds "
        "up");
    row("annexure of trades is left out",
        head + kAverage + Sum("(4120.55)", "(0.55)", "(4126.84)") +
            "100001 09:20:01 200001 09:20:02 ZINC-EQ/INE999A01015 B NSE 10 462.00 0.05 462.05 "
            "4620.50\n",
        lines + "adds up");
    row("a charge is missing", head + kAverage + Sum("(4120.55)", "(0.55)", "(4226.84)"),
        lines + "obligation and charges come to 4126.84, its net amount is 4226.84");
    row("a trade is missing",
        head + "INE999A01015   ZINC   10   462.0000  0.0500  462.0500 4620.50   10   4620.50\n" +
            Sum("(4120.55)", "(0.55)", "(4126.84)"),
        "LT/2526/000123|03/11/2025|INE999A01015 P 10 at 462 0.05 = 4620.5|its lines come to "
        "4620.50, its obligation is 4120.55");
    row("futures beside shares",
        head + kAverage + "Pay in/Pay out obligation  (4120.55)  (100.00)  (4220.55)\n",
        lines + "it has trades of other segments than shares, such as futures");
    row("no sum", head + kAverage, lines + "its obligation or its net amount cannot be read");
    row("numbers whose sum is none",
        head + "INE999A01015 ZINC 9000000000000 1.00 0.00 1.00 9000000000000.00 0 0.00\n",
        "LT/2526/000123|03/11/2025|it has no trades in shares that can be read");
    row("no note", "Dear investor,\nnothing to see\n",
        "|no day|it has no trades in shares that can be read");
  }
  void EachFormIsReadAndChecked() {
    const auto [text, told] = test::Table<std::string, QString>::Row();
    QCOMPARE(Told(Read(text)), told);
  }

  void BillComesToTheNet_data() {
    const test::Table<std::string, double> row;
    const std::string head(kHead);
    row("brokerage in the lines", head + kAverage + Sum("(4120.55)", "(0.55)", "(4126.84)"),
        -4126.84);
    row("brokerage in the sum",
        head + "INE999A01015   ZINC   7   33.3333  0.0000  33.3333 233.33   7   233.33\n" +
            Sum("(233.33)", "(2.51)", "(242.13)"),
        -242.13);
    row("rates with rounded decimals",
        head + "INE999A01015   ZINC   333   33.33  0.00  33.33 11099.87   333   11099.87\n" +
            Sum("(11099.87)", "0.00", "(11106.16)"),
        -11106.16);
    row("partly sold on the same day",
        head +
            "INE999A01015   ZINC   10  100.00 0.00 100.00 1000.00  4 110.00 0.00 110.00 440.00  "
            "6 560.00\n" +
            Sum("(560.00)", "0.00", "(566.29)"),
        -566.29);
  }
  void BillComesToTheNet() {
    const auto [text, net] = test::Table<std::string, double>::Row();
    const Note note = Read(text);
    const NoteBalance balance = CheckNote(note);
    QCOMPARE(balance.why, std::string());
    QCOMPARE(NetOf(MakeBill(note, balance, SoldOnTheDay(note))).Count(),
             Paise::OfRupees(net).Count());
  }

  void WhatIsSoldOnTheSameDayIsWithoutDelivery() {
    const Note note =
        Read(std::string(kHead) +
             "INE999A01015   ZINC   10  100.00 0.00 100.00 1000.00  4 110.00 0.00 110.00 440.00  6 "
             "560.00\n" +
             Sum("(560.00)", "0.00", "(566.29)"));
    QStringList told;
    for (const BillEntry& entry : MakeBill(note, CheckNote(note), SoldOnTheDay(note)).entries) {
      told << QStringLiteral("%1 %2 %3 stt %4")
                  .arg(entry.side == Side::kSale ? "S" : "P")
                  .arg(entry.quantity.Number())
                  .arg(entry.non_delivery ? "same day" : "delivered")
                  .arg(entry.stt);
    }
    // 0.025 % of 440 against 0.1 % of 600: 11 parts of 71 of five rupees.
    QCOMPARE(told.join(QLatin1Char('|')),
             QString("P 4 same day stt 0|P 6 delivered stt 4.23|S 4 same day stt 0.77"));
  }
};

static const test::RegisterTest<NoteLinesTest> kRegistered;
#include "NoteLinesTest.moc"
