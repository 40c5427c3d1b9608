#include "reports/search/Search.h"

#include "core/text/Amounts.h"
#include "core/text/Tr.h"

#include <QCoreApplication>
#include <QStringList>

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace quorvane::search {
namespace {

using database::Connection;
using database::Recordset;
using database::Value;

constexpr std::size_t kWords = 4;  // words of a text beyond these are taken as one with the last
constexpr int kShortestIsin = 3;   // typed letters that may be the beginning of an ISIN

/// A text as Like takes it with Escape '!'.
QString Escaped(QString text) {
  text.replace(QLatin1Char('!'), QStringLiteral("!!"));
  text.replace(QLatin1Char('%'), QStringLiteral("!%"));
  text.replace(QLatin1Char('_'), QStringLiteral("!_"));
  return text;
}

class Searcher {
 public:
  Searcher(Connection& connection, const QString& text)
      : connection_(connection), start_(Escaped(text) + QLatin1Char('%')) {
    const QStringList words = text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    words_.fill(QStringLiteral("%"));
    for (std::size_t at = 0; at < kWords && at < static_cast<std::size_t>(words.size()); ++at) {
      const bool last = at + 1 == kWords;
      const QString word = last ? words.mid(static_cast<int>(at)).join(QLatin1Char(' '))
                                : words[static_cast<int>(at)];
      words_[at] = QLatin1Char('%') + Escaped(word) + QLatin1Char('%');
    }
  }

  std::vector<Found> Run() {
    AddClients();
    AddAccounts();
    AddScrips();
    AddScripsByIsin();
    AddBills();
    AddMoney("BrPayment", Kind::kPayment);
    AddMoney("BrRec", Kind::kReceipt);
    return std::move(found_);
  }

 private:
  template <class Take>
  void Each(const std::string& sql, const std::vector<Value>& values, const Take& take) {
    for (const auto& row : connection_.OpenValues(sql, values)) {
      take(row);
    }
  }

  /// The values of Where.
  std::vector<Value> WordsAndStart() const {
    std::vector<Value> values(words_.begin(), words_.end());
    values.insert(values.end(), 2, Value(start_));
    return values;
  }

  /// `text` is an expression over all columns that are searched; what begins with the searched text
  /// in `name` or `code` comes first.
  static std::string Where(const std::string& text, const std::string& name,
                           const std::string& code) {
    std::string sql = " Where ";
    for (std::size_t word = 0; word < kWords; ++word) {
      sql += (word == 0 ? "" : " and ") + text + " Like ? Escape '!'";
    }
    return fmt::format(
        "{0} Order By {1} Like ? Escape '!' or {2} Like ? Escape '!' Desc,{1} Limit {3}", sql, name,
        code, kMostOfAKind);
  }

  void AddClients() {
    Each("Select Id,Code,Name,GCode From ClientInfo" +
             Where("Concat_Ws(' ',Code,Name,GCode,PAN)", "Name", "Code"),
         WordsAndStart(), [this](const Recordset& row) {
           found_.push_back({.kind = Kind::kClient,
                             .record = row.Int(0),
                             .name = row.Text(2),
                             .about = Joined({row.Text(1), row.Text(3)})});
         });
  }

  void AddAccounts() {
    Each(
        "Select a.CId,a.ACNo,p.Name,c.Name From ClientActDet a Left Join ClientInfo c On "
        "c.Id=a.CId "
        "Left Join DepPart p On p.Id=a.DMATAC" +
            Where("Concat_Ws(' ',a.ACNo,p.Name)", "a.ACNo", "p.Name"),
        WordsAndStart(), [this](const Recordset& row) {
          found_.push_back({.kind = Kind::kAccount,
                            .record = row.Int(0),
                            .name = row.Text(1),
                            .about = Joined({row.Text(3), row.Text(2)})});
        });
  }

  void AddScrips() {
    Each("Select Id,Code,Name,NCode From Script" +
             Where("Concat_Ws(' ',Code,NCode,Name)", "Name", "Code"),
         WordsAndStart(), [this](const Recordset& row) { AddScrip(row, {}); });
  }

  void AddScripsByIsin() {
    if (start_.size() <= kShortestIsin) {
      return;
    }
    Each(
        "Select s.Id,s.Code,s.Name,s.NCode,i.Isin From ScripIsin i Join Script s On s.Id=i.ScrId "
        "Where i.Isin Like ? Escape '!' Limit " +
            std::to_string(kMostOfAKind),
        {start_}, [this](const Recordset& row) {
          const bool twice = std::ranges::any_of(found_, [&](const Found& one) {
            return one.kind == Kind::kScrip && one.record == row.Int(0);
          });
          if (!twice) {
            AddScrip(row, row.Text(4));
          }
        });
  }

  void AddScrip(const Recordset& row, const QString& isin) {
    found_.push_back({.kind = Kind::kScrip,
                      .record = row.Int(0),
                      .name = row.Text(2),
                      .about = Joined({row.Text(1), row.Text(3).trimmed(), isin})});
  }

  // The names only of the few that fit: the numbers are found by their index.
  void AddBills() {
    Each(
        "Select b.ID,b.BillNo,b.BDate,b.Total,b.Cid,b.Fyear,c.Name,k.Name From (Select "
        "ID,BillNo,BDate,Total,Cid,Fyear,BrokId From SPMaster Where BillNo Like ? Escape '!' "
        "Order By BillNo Limit " +
            std::to_string(kMostOfAKind) +
            ") b Left Join ClientInfo c On c.Id=b.Cid Left Join Broker k On k.Id=b.BrokId "
            "Order By b.BillNo,b.ID",
        {start_}, [this](const Recordset& row) {
          AddOfClient(Kind::kBill, row,
                      {row.Text(2), row.Text(6), row.Text(7), text::FormatAmount(row.Double(3))});
        });
  }

  void AddMoney(const std::string& table, Kind kind) {
    Each(
        "Select b.Id,b.ChqNo,b.PDate,b.Amt,b.Cid,b.Fyear,c.Name,k.Name From (Select "
        "Id,ChqNo,PDate,Amt,Cid,Fyear,BrId From " +
            table + " Where ChqNo Like ? Escape '!' and ChqNo<>'' Order By ChqNo Limit " +
            std::to_string(kMostOfAKind) +
            ") b Left Join ClientInfo c On c.Id=b.Cid Left Join Broker k On k.Id=b.BrId "
            "Order By b.ChqNo,b.Id",
        {start_}, [&](const Recordset& row) {
          AddOfClient(kind, row,
                      {row.Text(2), row.Text(6), row.Text(7), text::FormatAmount(row.Double(3))});
        });
  }

  /// Of a year that is none there is no window.
  void AddOfClient(Kind kind, const Recordset& row, const QStringList& about) {
    const auto year = text::FinancialYear::Parse(row.Text(5));
    if (year) {
      found_.push_back({.kind = kind,
                        .record = row.Int(0),
                        .name = row.Text(1),
                        .about = Joined(about),
                        .of = ClientYear{ClientId{row.Int(4)}, *year},
                        .client_name = row.Text(6)});
    }
  }

  static QString Joined(QStringList words) {
    words.removeAll(QString());
    return words.join(QStringLiteral(", "));
  }

  Connection& connection_;
  QString start_;
  std::array<QString, kWords> words_;
  std::vector<Found> found_;
};

}  // namespace

QString HeadingOf(Kind kind) {
  switch (kind) {
    case Kind::kClient:
      return Tr("Search", "Clients");
    case Kind::kAccount:
      return Tr("Search", "Demat Accounts");
    case Kind::kScrip:
      return Tr("Search", "Scrips");
    case Kind::kBill:
      return Tr("Search", "Bills");
    case Kind::kPayment:
      return Tr("Search", "Payments to Brokers");
    case Kind::kReceipt:
      return Tr("Search", "Receipts from Brokers");
  }
  return {};
}

std::vector<Found> Search(Connection& connection, const QString& text) {
  const QString wanted = text.simplified();
  if (std::ranges::none_of(wanted, [](QChar letter) { return letter.isLetterOrNumber(); })) {
    return {};
  }
  return Searcher(connection, wanted).Run();
}

}  // namespace quorvane::search
