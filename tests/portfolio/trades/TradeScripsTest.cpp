#include "portfolio/trades/TradeScrips.h"
#include "support/Test.h"

using namespace quorvane;
using namespace quorvane::portfolio;
using test::Table;

namespace {

using quorvane::rates::ListedScrip;

const std::vector<ListedScrip> kScrips{
    {ScripId{1}, "600001", "ZINCALLOY", "ZINC ALLOYS LIMITED", "", "", {"INE000A01012"}},
    {ScripId{2}, "600002", "ALUMCAST", "ALUM CASTINGS LTD", "", "", {}},
    {ScripId{3}, "600003", "", "ALUM CASTINGS RIGHTS", "", "", {"INE000B01028"}},
    {ScripId{4}, "600004", "TWIN", "TWIN MILLS LTD", "", "", {}},
    {ScripId{5}, "600005", "TWIN", "TWIN SPINNERS LTD", "", "", {}}};

QString Told(const TradedScrip& scrip) {
  const char* match = scrip.match == ScripMatch::kKnown    ? "known"
                      : scrip.match == ScripMatch::kLikely ? "likely"
                                                           : "unknown";
  return QStringLiteral("%1 %2").arg(QLatin1String(match)).arg(scrip.scrip.value);
}

}  // namespace

class TradeScripsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void ScripIsFoundByWhatIsSurestFirst_data() {
    const Table<ScripNaming, const char*> row;
    row("ISIN before a symbol of another scrip", {"INE000A01012", "ALUMCAST", "", "", ""},
        "known 1");
    row("symbol", {"", "alumcast", "", "", ""}, "known 2");
    row("code", {"", "", "600002", "", ""}, "known 2");
    row("symbol of a scrip with another ISIN", {"INE999A01015", "ZINCALLOY", "", "", ""},
        "likely 1");
    row("symbol of two scrips", {"", "TWIN", "", "", ""}, "unknown 0");
    row("name without its usual words", {"", "", "", "", "The Zinc Alloys Ltd."}, "likely 1");
    row("name that is cut", {"", "", "", "", "ZINC ALLO"}, "likely 1");
    row("name of two scrips", {"", "", "", "", "ALUM CASTINGS"}, "likely 2");
    row("beginning of two names", {"", "", "", "", "TWIN"}, "unknown 0");
    row("the broker's own code", {"", "", "", "ZINALL", ""}, "unknown 0");
    row("own code that the user confirmed", {"", "", "", "ALUCAS", ""}, "known 3");
    row("nothing like it", {"INE111A01011", "", "", "", "COPPER WIRES"}, "unknown 0");
  }
  void ScripIsFoundByWhatIsSurestFirst() {
    const auto [naming, expected] = Table<ScripNaming, const char*>::Row();
    const ConfirmedScrips confirmed{{"alucas", ScripId{3}}, {"zinall", ScripId{99}}};
    const std::vector<ScripNaming> namings{naming};
    QCOMPARE(Told(MatchScrips(namings, kScrips, confirmed).front()), QLatin1String(expected));
  }
};

static const test::RegisterTest<TradeScripsTest> kRegistered;
#include "TradeScripsTest.moc"
