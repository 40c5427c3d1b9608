#include "ui/help/HelpChapters.h"

#include <algorithm>

namespace quorvane::ui {
namespace {

struct Entry {
  const char* window;  ///< in small letters
  const char* chapter;
};

constexpr Entry kEntries[] = {
    {"mdiform1", "main-window.md"},
    {"frmclientlist", "main-window.md"},
    {"miscinfo", "main-window.md"},
    {"frmclientmaster", "masters.md"},
    {"frmdeppart", "masters.md"},
    {"frmbroker", "masters.md"},
    {"frmexchange", "masters.md"},
    {"frmscript", "masters.md"},
    {"frmscripttype", "masters.md"},
    {"frmscriptcls", "masters.md"},
    {"frmsttper", "masters.md"},
    {"frmtransper", "masters.md"},
    {"frmlogin", "users-and-settings.md"},
    {"frmloginsetup", "users-and-settings.md"},
    {"frmsettings", "users-and-settings.md"},
    {"frmcalc", "users-and-settings.md"},
    {"frmdocuments", "users-and-settings.md"},
    {"frmsalepurchase", "bills.md"},
    {"frmstkopbalance", "opening-stock.md"},
    {"frmscripttransfer", "transfers.md"},
    {"frmbropbal", "broker-money.md"},
    {"frmbrpayment", "broker-money.md"},
    {"frmbrrec", "broker-money.md"},
    {"rptbrokerledger", "broker-ledger.md"},
    {"impscrmaster", "rates-and-imports.md"},
    {"impscrrate", "rates-and-imports.md"},
    {"rptprofitstatement", "profit-statement.md"},
    {"rptcapitalgain", "profit-statement.md"},
    {"rptdmatstatement", "demat-statement.md"},
    {"rpttransaction", "demat-statement.md"},
    {"rptvariousreport", "mis-reports.md"},
    {"repview", "reports.md"},
    {"previewwindow", "reports.md"},
    {"frmbackuprestore", "backup-and-repair.md"},
    {"frmrestoration", "backup-and-repair.md"},
    {"repairtable", "backup-and-repair.md"},
};

}  // namespace

QString ChapterOf(const QString& window_name) {
  const QString name = window_name.toLower();
  const auto* found = std::find_if(std::begin(kEntries), std::end(kEntries), [&](const Entry& one) {
    return name == QLatin1String(one.window);
  });
  return found == std::end(kEntries) ? QStringLiteral("README.md")
                                     : QString::fromLatin1(found->chapter);
}

QStringList HelpChapters() {
  QStringList chapters;
  for (const Entry& entry : kEntries) {
    chapters.append(QLatin1String(entry.chapter));
  }
  chapters.removeDuplicates();
  return chapters;
}

}  // namespace quorvane::ui
