#include "core/rates/QuoteDesk.h"

#include "core/rates/PriceText.h"

#include <QDir>
#include <QSaveFile>
#include <QUrlQuery>
#include <QXmlStreamReader>

#include <array>
#include <utility>

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

bool Is(const QString& exchange, const char* name) {
  return exchange.trimmed().compare(QLatin1String(name), Qt::CaseInsensitive) == 0;
}

/// dd, mm and yyyy put together as an exchange wants them.
QString Day(text::Date date, const QString& pattern) {
  const QString dmy = text::FormatDmy(date);
  return pattern.arg(dmy.left(2), dmy.mid(3, 2), dmy.right(4));
}

QUrl WithPath(QUrl host, const QString& path) {
  if (host.isEmpty()) {
    return {};
  }
  host.setPath(host.path() + path);
  return host;
}

/// Removes the work folder with all that is in it and makes it again; a file that cannot be removed
/// is written over.
void MakeEmpty(const QString& folder) {
  QDir dir(folder);
  dir.removeRecursively();
  dir.mkpath(QStringLiteral("."));
}

/// The file is kept for a look at it; when that fails the price is told all the same.
void Keep(const QString& folder, const QByteArray& csv) {
  QSaveFile file(QDir(folder).filePath(QStringLiteral("DateMRate.csv")));
  if (file.open(QIODevice::WriteOnly) && file.write(csv) == csv.size()) {
    file.commit();
  }
}

}  // namespace

ExchangeHosts ExchangeHosts::From(const app::IniFile& settings) {
  const auto read = [&](const char* key, const char* preset) {
    return QUrl(
        settings.Read(QStringLiteral("Internet"), QLatin1String(key), QLatin1String(preset)));
  };
  return {.bse = read("BseHost", "https://www.bseindia.com"),
          .nse = read("NseHost", "https://www.nseindia.com"),
          .bse_quotes = read("BseQuoteHost", ""),
          .nse_quotes = read("NseQuoteHost", ""),
          .archive = read("ArchiveHost", "https://www.bseindia.com"),
          .nse_archive = read("NseArchiveHost", "https://nsearchives.nseindia.com")};
}

QuoteDesk::QuoteDesk(ExchangeHosts hosts, QString work_folder, QObject* parent)
    : QObject(parent), hosts_(std::move(hosts)), work_folder_(std::move(work_folder)) {}

void QuoteDesk::ClosingPrice(const PriceQuestion& question, Answer answer) {
  MakeEmpty(work_folder_);
  download_.Get(PriceFileOf(question), limits_,
                [this, date = question.date, answer = std::move(answer)](const Downloaded& file) {
                  if (file.IsWhole()) {
                    Keep(work_folder_, file.body);
                  }
                  answer(file.IsWhole() ? ClosingPriceIn(file.body, date) : 0);
                });
}

void QuoteDesk::PriceOn(const PriceQuestion& question, text::Date today, Answer answer) {
  const bool of_today = question.date == today;
  ClosingPrice(question, [this, question, of_today, answer = std::move(answer)](double rupees) {
    if (rupees == 0 && of_today) {
      CurrentQuote(question.exchange, question.code, answer);
    } else {
      answer(rupees);
    }
  });
}

void QuoteDesk::CurrentQuote(const QString& exchange, const QString& code, Answer answer) {
  const bool bombay = Is(exchange, "BSE");
  download_.Get(
      QuotePageOf(exchange, code), limits_,
      [bombay, answer = std::move(answer)](const Downloaded& page) {
        answer(!page.IsWhole() ? 0 : bombay ? BseQuoteIn(page.body) : NseQuoteIn(page.body));
      });
}

QUrl QuoteDesk::PriceFileOf(const PriceQuestion& question) const {
  if (question.code.trimmed().isEmpty()) {
    return {};
  }
  if (Is(question.exchange, "BSE")) {
    const QString day = Day(question.date, QStringLiteral("%2/%1/%3"));
    QUrlQuery query;
    query.addQueryItem(QStringLiteral("scripcd"), question.code);
    query.addQueryItem(QStringLiteral("FromDate"), day);
    query.addQueryItem(QStringLiteral("ToDate"), day);
    query.addQueryItem(QStringLiteral("OldDMY"), QStringLiteral("D"));
    query.addQueryItem(QStringLiteral("ScripName"),
                       QString::fromLatin1(QUrl::toPercentEncoding(question.name)));
    QUrl url = WithPath(hosts_.bse, QStringLiteral("/stockinfo/stockprc2_excel.aspx"));
    url.setQuery(query);
    return url;
  }
  if (Is(question.exchange, "NSE")) {
    const QString day = Day(question.date, QStringLiteral("%1-%2-%3"));
    return WithPath(hosts_.nse,
                    QStringLiteral("/content/equities/scripvol/datafiles/%1-TO-%1%2ALLN.csv")
                        .arg(day, question.code));
  }
  return {};
}

QUrl QuoteDesk::QuotePageOf(const QString& exchange, const QString& code) const {
  if (code.trimmed().isEmpty()) {
    return {};
  }
  if (Is(exchange, "BSE")) {
    return WithPath(hosts_.bse_quotes, QStringLiteral("/Markets/Company/%1 /").arg(code));
  }
  return Is(exchange, "NSE")
             ? WithPath(hosts_.nse_quotes, QStringLiteral("/companies/%1/").arg(code))
             : QUrl();
}

namespace {

// A feed has a handful of items; anything much larger is something else.
constexpr qsizetype kLargestFeed = 1 << 20;
constexpr qsizetype kLongestTitle = 400;

QString TitleOfItem(QXmlStreamReader& reader) {
  QString title;
  while (reader.readNextStartElement()) {
    if (reader.name() == QLatin1String("title")) {
      title = reader.readElementText(QXmlStreamReader::IncludeChildElements);
    } else {
      reader.skipCurrentElement();
    }
  }
  return title;
}

}  // namespace

std::optional<QString> HeadlineOf(const QByteArray& feed) {
  if (feed.size() > kLargestFeed) {
    return std::nullopt;
  }
  QXmlStreamReader reader(feed);
  QString last;
  while (!reader.atEnd()) {
    if (reader.readNext() == QXmlStreamReader::StartElement &&
        reader.name() == QLatin1String("item")) {
      const QString title = TitleOfItem(reader).simplified();
      last = title.isEmpty() ? last : title;
    }
  }
  if (reader.hasError() || !last.contains(QLatin1Char('*')) || last.size() > kLongestTitle) {
    return std::nullopt;
  }
  return QStringLiteral("BSE ") + last.replace(QLatin1Char('*'), QLatin1String("  +"));
}

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
