#include "bench/PortfolioFolder.h"

#include "core/platform/Processes.h"
#include "core/text/Amounts.h"
#include "portfolio/OutputFile.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace quorvane::bench {
namespace {

using portfolio::FileKind;
using portfolio::OutputFile;

constexpr std::string_view kDepository = "DEPOSITORY";

class FolderWriter {
 public:
  FolderWriter(const QString& folder, const Portfolio& portfolio)
      : folder_(folder), portfolio_(portfolio) {}

  void Run() {
    platform::MakePrivateFolder(folder_);
    WriteMasters();
    WriteOpenings();
    WriteBills();
    WriteTransfers();
  }

 private:
  /// The rest of a row's columns stays empty.
  static void Row(OutputFile& file, FileKind kind, std::string_view start) {
    const auto given = static_cast<std::size_t>(std::count(start.begin(), start.end(), ','));
    file.Buffer() += start;
    file.Buffer().append(portfolio::LayoutOf(kind).columns.size() - 1 - given, ',');
    file.Buffer() += '\n';
    file.WriteWhenLarge();
  }

  template <class Write>
  void File(FileKind kind, const Write& write) {
    OutputFile file(folder_, portfolio::LayoutOf(kind));
    write([&](std::string_view start) { Row(file, kind, start); });
    file.Finish();
    file.Publish();
  }

  void WriteMasters() {
    File(FileKind::kParticipants,
         [](const auto& row) { row(fmt::format("{},NSDL,IN300001", kDepository)); });
    File(FileKind::kClients, [&](const auto& row) {
      for (int id = 1; id <= portfolio_.clients; ++id) {
        row(fmt::format("{0},GROUP,CLIENT {0}", ClientCode(id)));
      }
    });
    File(FileKind::kAccounts, [&](const auto& row) {
      for (const Account& account : portfolio_.accounts) {
        row(fmt::format("{},{},IN300001,{}", ClientCode(account.client), kDepository,
                        account.number));
      }
    });
    File(FileKind::kBrokers, [&](const auto& row) {
      for (int id = 1; id <= portfolio_.brokers; ++id) {
        row(BrokerName(id));
      }
    });
    File(FileKind::kScrips, [&](const auto& row) {
      for (int id = 1; id <= portfolio_.scrips; ++id) {
        row(fmt::format("{},,{},EQUITY,A", ScripCode(id), ScripName(id)));
      }
    });
  }

  static std::string Day(text::Date date) {
    std::string day;
    text::AppendDmy(day, date);
    return day;
  }

  std::string Owner(int account) const {
    const Account& of = portfolio_.AccountOf(account);
    return fmt::format("{},{}", ClientCode(of.client), of.number);
  }

  void WriteOpenings() {
    File(FileKind::kOpening, [&](const auto& row) {
      for (const Opening& opening : portfolio_.openings) {
        row(fmt::format("{},{},{},{},{},{},{},{},{},0", Owner(opening.account),
                        portfolio_.year.Utf8(), ScripCode(opening.scrip), opening.quantity,
                        opening.rate, Day(opening.date), opening.service_tax, opening.brokerage,
                        opening.stt));
      }
    });
  }

  void WriteBills() {
    File(FileKind::kBills, [&](const auto& row) {
      std::size_t number = 0;
      for (const Bill& bill : portfolio_.bills) {
        const std::string start =
            fmt::format("{},{},{},,{},NSE", Owner(bill.account), BillNumber(++number),
                        Day(bill.date), BrokerName(bill.broker));
        for (std::size_t i = 0; i < bill.line_count; ++i) {
          row(start + LineText(bill, portfolio_.lines[bill.first_line + i]));
        }
      }
    });
  }

  std::string LineText(const Bill& bill, const Line& line) const {
    std::string text = fmt::format(",{},{},{},{},{},{},{},0.125,Delivery Based,0",
                                   line.purchase ? 'P' : 'S', ScripCode(line.scrip), line.quantity,
                                   line.rate, line.brokerage, line.service_tax, line.stt);
    if (!line.purchase && MayTransfer(bill.account)) {
      fmt::format_to(std::back_inserter(text), ",{}", portfolio_.LotOf(line.lot).rate);
    }
    return text;
  }

  void WriteTransfers() {
    File(FileKind::kTransfers, [&](const auto& row) {
      for (const Transfer& transfer : portfolio_.transfers) {
        const Lot& lot = portfolio_.LotOf(transfer.lot);
        row(fmt::format("{},{},{},{},{},{}", Day(transfer.date),
                        portfolio_.AccountOf(transfer.from).number,
                        portfolio_.AccountOf(transfer.to).number, ScripCode(lot.scrip), lot.rate,
                        transfer.quantity));
      }
    });
  }

  QString folder_;
  const Portfolio& portfolio_;
};

}  // namespace

void WriteFolder(const QString& folder, const Portfolio& portfolio) {
  FolderWriter(folder, portfolio).Run();
}

}  // namespace quorvane::bench
