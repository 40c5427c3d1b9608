#include "core/rates/PriceFetch.h"

#include "core/files/HtmlDocument.h"
#include "core/files/TableFile.h"
#include "core/files/TableReaders.h"
#include "core/rates/PriceText.h"
#include "core/rates/QuoteDesk.h"
#include "core/text/Tr.h"

#include <QDir>
#include <QSaveFile>

#include <utility>

namespace quorvane::rates {
namespace {

constexpr int kNotFound = 404;

QString ServerProblem() {
  return Tr("Rates", "Server Problem. Please Try Again.");
}

QString InvalidSite() {
  return Tr("Rates", "Invalid Site.");
}

std::string_view View(const QByteArray& bytes) {
  return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

bool IsPage(const QByteArray& bytes) {
  return bytes.trimmed().startsWith('<');
}

QUrl PageAt(QUrl host, const QString& path) {
  if (!host.isEmpty()) {
    host.setPath(host.path() + path);
  }
  return host;
}

/// The first link on the page to a packed price file.
QUrl PriceFileLink(const Downloaded& page) {
  for (const std::string& link : files::HtmlDocument(View(page.body)).Links()) {
    QUrl address = page.address.resolved(QUrl(QString::fromStdString(link)));
    if (address.path().endsWith(QLatin1String("csv.zip"), Qt::CaseInsensitive)) {
      return address;
    }
  }
  return {};
}

}  // namespace

PriceFetch::PriceFetch(ExchangeHosts hosts, QString work_folder, QObject* parent)
    : QObject(parent), hosts_(std::move(hosts)), work_folder_(std::move(work_folder)) {
  connect(&download_, &Download::Progressed, this, &PriceFetch::Progressed);
}

QString PriceFetch::PathOf(const QString& name) const {
  return QDir(work_folder_).filePath(name);
}

QString PriceFetch::Save(const QString& name, const QByteArray& bytes) const {
  QDir().mkpath(work_folder_);
  QSaveFile file(PathOf(name));
  const bool saved =
      file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
  return saved ? QString() : QStringLiteral("%1: %2").arg(PathOf(name), file.errorString());
}

Fetched PriceFetch::Saved(const QString& name, const QByteArray& bytes) const {
  return {.failure = Save(name, bytes), .path = PathOf(name)};
}

void PriceFetch::NewestFile(Answer answer) {
  download_.Get(
      PageAt(hosts_.bse, QStringLiteral("/mktlive/bhavcopy.asp")), limits_,
      [this, answer = std::move(answer)](const Downloaded& page) { FollowLink(page, answer); });
}

void PriceFetch::FollowLink(const Downloaded& page, const Answer& answer) {
  const QUrl link = page.IsWhole() ? PriceFileLink(page) : QUrl();
  if (link.isEmpty()) {
    answer({.failure = ServerProblem()});
    return;
  }
  TryNext({link}, {.missing = ServerProblem(), .unusable = ServerProblem()}, answer);
}

void PriceFetch::FileOf(Exchange exchange, text::Date date, const Answer& answer) {
  const QVector<QUrl> addresses = ArchiveAddresses(hosts_, exchange, date);
  TryNext(addresses.isEmpty() ? QVector<QUrl>{QUrl()} : addresses,
          {.missing = Tr("Rates", "File Not Found.This Date Bhav Copy Not available on site."),
           .unusable = InvalidSite()},
          answer);
}

void PriceFetch::TryNext(const QVector<QUrl>& addresses, const Failures& failures,
                         const Answer& answer) {
  download_.Get(addresses.front(), limits_, [=, this](const Downloaded& file) {
    const Fetched fetched =
        file.IsWhole()
            ? Kept(file, QStringLiteral("EQ"), failures.unusable)
            : Fetched{.failure = file.status == kNotFound ? failures.missing : failures.unusable};
    // With a path there was a price file, even if it could not be kept on the disk.
    if (fetched.path.isEmpty() && addresses.size() > 1) {
      TryNext(addresses.mid(1), failures, answer);
    } else {
      answer(fetched);
    }
  });
}

Fetched PriceFetch::Kept(const Downloaded& file, const QString& name,
                         const QString& unusable) const {
  if (IsPage(file.body)) {
    return {.failure = unusable};
  }
  if (!files::IsArchive(View(file.body))) {
    return Saved(name + QStringLiteral(".CSV"), file.body);
  }
  try {
    const files::UnpackedFile unpacked = files::UnpackTable(file.body);
    const Fetched archive = Saved(name + QStringLiteral(".zip"), file.body);
    return archive.failure.isEmpty() ? Saved(unpacked.name, unpacked.content) : archive;
  } catch (const files::TableError&) {
    return {.failure = unusable};
  }
}

void PriceFetch::Movers(const Answer& answer) {
  NextMovers({}, answer);
}

void PriceFetch::NextMovers(MoverPages pages, const Answer& answer) {
  QUrl address = PageAt(hosts_.bse, QStringLiteral("/sensex/mktwatchR.aspx"));
  const QString filter = pages.losers ? QStringLiteral("filter=loser*all$all$")
                                      : QStringLiteral("filter=gainer*all$all$");
  address.setQuery(pages.page == 1 ? filter : filter + QStringLiteral("&Page=%1").arg(pages.page));
  download_.Get(address, limits_, [=, this](const Downloaded& page) mutable {
    const QString failure = page.IsWhole() ? TakeMovers(pages, page.body) : InvalidSite();
    if (!failure.isEmpty()) {
      answer({.failure = failure});
      return;
    }
    const bool more = files::HtmlDocument(View(page.body)).LinkAt("tdNext0").has_value();
    if (more && pages.page < kMostPages) {
      ++pages.page;
    } else if (!pages.losers) {
      pages = {.losers = true, .page = 1, .saved = {}, .rows = std::move(pages.rows)};
    } else {
      answer({.movers = std::move(pages.rows)});
      return;
    }
    NextMovers(std::move(pages), answer);
  });
}

QString PriceFetch::TakeMovers(MoverPages& pages, const QByteArray& html) const {
  pages.saved += html;
  const QString name = pages.losers ? QStringLiteral("b.htm") : QStringLiteral("a.htm");
  const QString failure = Save(name, pages.saved);
  return !failure.isEmpty() || AddMovers(View(html), pages.rows) ? failure : InvalidSite();
}

}  // namespace quorvane::rates
