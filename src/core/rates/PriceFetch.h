#pragma once

#include "core/rates/PriceFile.h"
#include "core/rates/QuoteDesk.h"

#include <QStringList>
#include <QVector>

namespace quorvane::rates {

/// The result of a fetch: a file on the disk, or the rows of pages; or why there is nothing.
struct Fetched {
  QString failure = {};  ///< the text to show; empty when all went well
  QString path = {};     ///< the unpacked price file
  PriceFile movers = {};
};

/// Fetches price files from the exchanges in the background. One fetch at a time; a new one takes
/// the place of the one under way. Work files are kept in the folder "MRate".
class PriceFetch : public QObject {
  Q_OBJECT

 public:
  using Answer = std::function<void(const Fetched&)>;

  PriceFetch(ExchangeHosts hosts, QString work_folder, QObject* parent = nullptr);

  /// The Bombay exchange's newest daily price file, by the link on its page.
  void NewestFile(Answer answer);

  /// The daily price file of a day from an exchange's archive, in the form of that day.
  void FileOf(Exchange exchange, text::Date date, const Answer& answer);

  /// The gainers and losers of the day with their prices, from the Bombay exchange's pages; of
  /// each at most kMostPages.
  void Movers(const Answer& answer);

  void Cancel() { download_.Cancel(); }
  bool IsRunning() const { return download_.IsRunning(); }
  void SetLimits(const DownloadLimits& limits) { limits_ = limits; }

  static constexpr int kMostPages = 50;

 Q_SIGNALS:
  /// Bytes of the file under way; `total` is -1 while it is not known.
  void Progressed(qint64 received, qint64 total);

 private:
  struct Failures {
    QString missing;   ///< the exchange has no such file
    QString unusable;  ///< it cannot be reached, or answers with something else
  };
  struct MoverPages {
    bool losers = false;
    int page = 1;
    QByteArray saved;
    PriceFile rows;
  };

  void FollowLink(const Downloaded& page, const Answer& answer);
  /// Asks one address after the other until one gives a price file; tells the last one's failure.
  void TryNext(const QVector<QUrl>& addresses, const Failures& failures, const Answer& answer);
  Fetched Kept(const Downloaded& file, const QString& name, const QString& unusable) const;
  void NextMovers(MoverPages pages, const Answer& answer);
  QString TakeMovers(MoverPages& pages, const QByteArray& html) const;
  QString PathOf(const QString& name) const;

  /// What went wrong; empty when nothing did.
  QString Save(const QString& name, const QByteArray& bytes) const;
  Fetched Saved(const QString& name, const QByteArray& bytes) const;

  ExchangeHosts hosts_;
  QString work_folder_;
  DownloadLimits limits_{.milliseconds = 60'000, .bytes = qint64{32} << 20};
  Download download_;
};

}  // namespace quorvane::rates
