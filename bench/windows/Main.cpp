#include "bench/Measure.h"
#include "bench/Office.h"
#include "bench/Table.h"
#include "controls/ChildWindow.h"
#include "controls/Style.h"
#include "core/app/Ini.h"
#include "core/database/BulkWriter.h"
#include "core/database/Schema.h"
#include "ui/Features.h"
#include "ui/main/MDIForm1.h"

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>

#include <fmt/format.h>

namespace {

using namespace quorvane;

constexpr int kScrips = 10'000;
constexpr int kClients = 1'000;
constexpr int kLots = 10'000;
constexpr int kBrokers = 50;
constexpr double kMostMs = 150;
constexpr double kMostStart = 1;
constexpr int kRuns = 3;
const text::FinancialYear kYear{2011};

/// Nobody answers: every question gets its preset answer.
class NobodyThere final : public controls::Messages {
 public:
  void Inform(const QString&) override {}
  void Refuse(const QString& text) override { throw std::runtime_error(text.toStdString()); }
  bool Ask(const QString&, controls::Answer, controls::Icon) override { return false; }
};

/// `row` writes the values of the record with the number that it is given, counted from 1.
template <class WriteRow>
void Fill(database::Transaction& transaction, std::string_view sql, std::string_view types,
          int count, const WriteRow& row) {
  database::BulkWriter writer(transaction, sql, types);
  for (int id = 1; id <= count; ++id) {
    row(writer, id);
    writer.EndRow();
  }
  writer.Finish();
}

void FillMasters(database::Transaction& transaction) {
  Fill(transaction, "Insert Into Script(Id,Code,Name,Type,ScrCls,NCode) Values(?,?,?,1,1,?)",
       "ittt", kScrips, [](database::BulkWriter& writer, int id) {
         writer.Int(id)
             .Text(fmt::format("{}", 500000 + id))
             .Text(fmt::format("SCRIP {:05} INDUSTRIES LTD", id * 7919 % kScrips))
             .Text(fmt::format("SYM{}", id));
       });
  Fill(transaction, "Insert Into ClientInfo(Id,Code,GCode,Name) Values(?,?,?,?)", "ittt", kClients,
       [](database::BulkWriter& writer, int id) {
         writer.Int(id)
             .Text(fmt::format("C{:04}", id))
             .Text(fmt::format("G{}", id / 10))
             .Text(fmt::format("CLIENT NUMBER {}", id));
       });
  Fill(transaction, "Insert Into ClientActDet(CId,id,DMATAC,DPID,ACNo) Values(?,?,1,1,?)", "iit",
       kClients, [](database::BulkWriter& writer, int id) {
         writer.Int(id).Int(id).Text(fmt::format("{}", 10'000'000 + id));
       });
  Fill(transaction, "Insert Into Broker(Id,Name) Values(?,?)", "it", kBrokers,
       [](database::BulkWriter& writer, int id) {
         writer.Int(id).Text(fmt::format("BROKER {}", id));
       });
}

void FillMovements(database::Transaction& transaction) {
  const std::string year = kYear.Utf8();
  Fill(transaction, "Insert Into Stock(Cid,Fyear,Id,AcId,ScriptId,Qty,Rate) Values(1,?,?,1,?,10,?)",
       "tiid", kLots, [&](database::BulkWriter& writer, int id) {
         writer.Text(year).Int(id).Int(id).Double(100 + id * 0.05);
       });
  Fill(transaction,
       "Insert Into StkOpBal(CId,Fyear,Id,ScriptId,Qty,Rate,Total,AcId,PDate,STax,Brk,STT,FO) "
       "Values(1,?,?,?,10,?,1000,1,'01/05/2010',0,0,0,0)",
       "tiid", kLots, [&](database::BulkWriter& writer, int id) {
         writer.Text(year).Int(id).Int(id).Double(100 + id * 0.05);
       });
}

/// Milliseconds until the window stands painted on the screen; it is closed again.
double OpenOnce(ui::MDIForm1& main, reporting::ReportDesk& desk, const QString& name) {
  desk.session.target = name;
  const double seconds = bench::Seconds([&] {
    main.Open(name);
    QApplication::processEvents();
  });
  for (const QMdiSubWindow* frame : main.findChild<QMdiArea*>()->subWindowList()) {
    frame->widget()->close();
  }
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QApplication::processEvents();
  return seconds * 1000;
}

bool MeasureWindows(app::Session& session) {
  NobodyThere messages;
  reporting::ReportDesk desk{{session, messages}};
  bench::Table table;
  table.Head();
  std::unique_ptr<ui::MDIForm1> main;
  const double start = bench::Seconds([&] {
    main = std::make_unique<ui::MDIForm1>(desk);
    main->show();
    QApplication::processEvents();
  });
  table.Add("main window, after the database is open", fmt::format("{:.0f} ms", start * 1000),
            "under 1 s with the start", start < kMostStart);
  for (const ui::Feature& feature : ui::Features()) {
    if (feature.make == nullptr) {
      continue;
    }
    std::vector<double> times;
    for (int run = 0; run < kRuns; ++run) {
      times.push_back(OpenOnce(*main, desk, QLatin1String(feature.name)));
    }
    const double median = bench::Median(times);
    table.Add(fmt::format("opening {}", feature.name),
              fmt::format("{:.0f} ms, first {:.0f} ms", median, times.front()), "under 150 ms",
              median < kMostMs);
  }
  return table.EverythingHolds();
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  controls::ApplyTheme(application, controls::Theme::kLight);
  const bench::Office office;
  app::Session session;
  session.folders = app::Folders::At(office.folder.path());
  session.connection =
      std::make_unique<database::Connection>(bench::NewDatabase(office, QStringLiteral("windows")));
  database::InTransaction(*session.connection, [](database::Transaction& transaction) {
    FillMasters(transaction);
    FillMovements(transaction);
  });
  session.current = ClientYear{ClientId{1}, kYear};
  session.current_client_name = QStringLiteral("CLIENT NUMBER 1");
  return MeasureWindows(session) ? 0 : 1;
}
