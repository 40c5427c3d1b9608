#include "core/rates/PriceArchive.h"

#include <array>

namespace quorvane::rates {
namespace {

/// The day of which the first common daily file is.
text::Date CommonFileSince() {
  return *text::MakeDate(8, 7, 2024);
}

struct DayParts {
  QString day;
  QString month;
  QString year;
  QString month_name;

  explicit DayParts(text::Date date) {
    constexpr std::array kMonths{"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                 "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
    const QString dmy = text::FormatDmy(date);
    day = dmy.left(2);
    month = dmy.mid(3, 2);
    year = dmy.right(4);
    month_name = QLatin1String(kMonths[static_cast<std::size_t>(month.toInt() - 1)]);
  }
};

QString BombayFile(const DayParts& on) {
  return QStringLiteral("/Hisbhav/eq%1%2%3_csv.zip").arg(on.day, on.month, on.year.right(2));
}

QString BombayCommonFile(const DayParts& on) {
  return QStringLiteral("/download/BhavCopy/Equity/BhavCopy_BSE_CM_0_0_0_%1%2%3_F_0000.CSV")
      .arg(on.year, on.month, on.day);
}

QString NationalFile(const DayParts& on) {
  return QStringLiteral("/content/historical/EQUITIES/%3/%2/cm%1%2%3bhav.csv.zip")
      .arg(on.day, on.month_name, on.year);
}

QString NationalCommonFile(const DayParts& on) {
  return QStringLiteral("/content/cm/BhavCopy_NSE_CM_0_0_0_%1%2%3_F_0000.csv.zip")
      .arg(on.year, on.month, on.day);
}

}  // namespace

QVector<QUrl> ArchiveAddresses(const ExchangeHosts& hosts, Exchange exchange, text::Date date) {
  const bool national = exchange == Exchange::kNse;
  const QUrl& host = national ? hosts.nse_archive : hosts.archive;
  const DayParts on(date);
  QStringList paths;
  const bool has_common_file = date >= CommonFileSince();
  if (has_common_file) {
    paths << (national ? NationalCommonFile(on) : BombayCommonFile(on));
  }
  if (!national) {
    paths << BombayFile(on);
  } else if (!has_common_file) {
    paths << NationalFile(on);
  }
  QVector<QUrl> addresses;
  for (const QString& path : paths) {
    if (!host.isEmpty()) {
      QUrl address = host;
      address.setPath(host.path() + path);
      addresses << address;
    }
  }
  return addresses;
}

}  // namespace quorvane::rates
