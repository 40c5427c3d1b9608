#pragma once

#include "core/app/Ini.h"
#include "core/rates/Download.h"
#include "core/rates/PriceFile.h"
#include "core/text/Dates.h"

#include <QByteArray>
#include <QString>
#include <QVector>

#include <functional>
#include <optional>

namespace quorvane::rates {

/// Where exchanges and quote sites are asked. An address that is empty or no web address is off.
struct ExchangeHosts {
  QUrl bse;
  QUrl nse;
  QUrl bse_quotes;
  QUrl nse_quotes;
  QUrl archive;           ///< of the Bombay exchange's daily price files
  QUrl nse_archive = {};  ///< of the National exchange's daily price files

  /// The section [Internet] of the settings: BseHost, NseHost, BseQuoteHost, NseQuoteHost,
  /// ArchiveHost and NseArchiveHost. The exchanges have their public sites as preset, the quote
  /// sites none.
  static ExchangeHosts From(const app::IniFile& settings);
};

/// Where an exchange's archive keeps the daily price file of a day, the likeliest address first.
/// Since 8 July 2024 both have the common daily file; before it, and after it when there is none,
/// the Bombay exchange's is "/Hisbhav/eq<ddmmyy>_csv.zip". Empty without a host.
QVector<QUrl> ArchiveAddresses(const ExchangeHosts& hosts, Exchange exchange, text::Date date);

/// A scrip's price on a day. The exchange is "BSE" or "NSE", in any capitals and with blanks.
struct PriceQuestion {
  QString exchange;
  QString code;  ///< the scrip's code at that exchange
  QString name;
  text::Date date;
};

/// Asks the exchanges for prices in the background. One question at a time: a new one takes the
/// place of the one under way, whose answer is then never given. An answer comes within the time of
/// DownloadLimits, in rupees; 0 when nothing was found, for any reason.
class QuoteDesk : public QObject {
  Q_OBJECT

 public:
  using Answer = std::function<void(double rupees)>;

  /// `work_folder` ("MRate") is removed and made again before each question of a closing price; the
  /// exchange's file is kept there as DateMRate.csv.
  QuoteDesk(ExchangeHosts hosts, QString work_folder, QObject* parent = nullptr);

  void ClosingPrice(const PriceQuestion& question, Answer answer);

  /// The closing price, and the current quote when the day is today and has none yet.
  void PriceOn(const PriceQuestion& question, text::Date today, Answer answer);
  void CurrentQuote(const QString& exchange, const QString& code, Answer answer);
  void Cancel() { download_.Cancel(); }

  void SetLimits(const DownloadLimits& limits) { limits_ = limits; }

 private:
  QUrl PriceFileOf(const PriceQuestion& question) const;
  QUrl QuotePageOf(const QString& exchange, const QString& code) const;

  ExchangeHosts hosts_;
  QString work_folder_;
  DownloadLimits limits_;
  Download download_;
};

/// Where the feed is unless the settings ([Internet] IndexFeed) name another address.
inline constexpr char kIndexFeed[] = "https://www.bseindia.com/sensex/xml-data/sensexrss.xml";

/// The headline of the exchange's index feed (RSS): the title of its last item, with each "*"
/// written as "  +", after "BSE ". nullopt when the text is no such feed, is larger than a feed can
/// be, or its last title has no "*" (there is then no headline to show).
std::optional<QString> HeadlineOf(const QByteArray& feed);

}  // namespace quorvane::rates
