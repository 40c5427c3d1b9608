#include "portfolio/trades/TradeBook.h"

#include "core/files/TableFile.h"
#include "core/rates/RateImport.h"
#include "core/records/Masters.h"
#include "core/records/Query.h"
#include "core/text/Tr.h"

#include <QFileInfo>

#include <algorithm>

namespace quorvane::portfolio {
namespace {

using lookups::Directory;

QString FileName(const OpenedTrades& opened) {
  return QFileInfo(opened.path).fileName();
}

Refusal TextsOf(ErrorList& errors) {
  QStringList texts;
  for (const ImportError& error : errors.Take()) {
    texts << QString::fromStdString(error.Text());
  }
  return {Tr("Trades", "Nothing was taken in:") + QLatin1Char('\n') + texts.join(QLatin1Char('\n')),
          Field::kRecord};
}

/// The rows above the header, in which brokers name the client.
std::span<const files::TextRow> BannerOf(const OpenedTrades& opened) {
  return std::span(opened.table.rows).first(opened.header->row);
}

/// The runs of letters and digits of a text.
std::vector<std::string> WordsIn(const std::string& text) {
  std::vector<std::string> words;
  std::string all = HeadingWords(text);
  for (std::size_t at = 0; at < all.size();) {
    const auto end = std::min(all.find(' ', at), all.size());
    words.push_back(all.substr(at, end - at));
    at = end + 1;
  }
  return words;
}

/// A line number in the middle of the text is that of the last row.
QString CutText(const OpenedTrades& opened) {
  return Tr("Trades",
            "%1 ends in the middle of line %2. Fetch the file again: trades may be missing.")
      .arg(FileName(opened))
      .arg(static_cast<qulonglong>(opened.table.rows.back().line));
}

Refusal BrokerMissing(const QString& name) {
  return {Tr("Trades", "There is no broker %1.").arg(name), Field::kBroker};
}

}  // namespace

TradeBook::TradeBook(database::Connection& connection, const QString& data_folder)
    : connection_(connection),
      data_folder_(data_folder),
      layouts_(ReadTradeLayouts(data_folder + QStringLiteral("/trades"))) {}

void TradeBook::AddLayouts(std::vector<TradeLayout> layouts) {
  layouts_.insert(layouts_.begin(), std::make_move_iterator(layouts.begin()),
                  std::make_move_iterator(layouts.end()));
}

std::vector<TradeAccount> TradeBook::Accounts() const {
  const Directory directory(connection_);
  std::vector<TradeAccount> accounts;
  for (const lookups::AccountEntry& account : directory.Accounts()) {
    const std::string& owner = directory.Client(account.client).name;
    accounts.push_back({account.id, QString::fromStdString(account.number + " - " + owner)});
  }
  return accounts;
}

Result<TradeTarget> TradeBook::TargetOf(const QString& account, const QString& client_code,
                                        const QString& broker) const {
  const Directory directory(connection_);
  std::vector<const lookups::AccountEntry*> found = directory.FindAccounts(account.toStdString());
  if (!client_code.isEmpty()) {
    const lookups::ClientEntry* client = directory.FindClient(client_code.toStdString());
    if (client == nullptr) {
      return Refusal{Tr("Trades", "There is no client %1.").arg(client_code), Field::kClients};
    }
    std::erase_if(found, [&](const auto* entry) { return entry->client != client->id; });
  }
  if (found.empty()) {
    return Refusal{Tr("Trades", "There is no demat account %1.").arg(account), Field::kAccount};
  }
  if (found.size() > 1) {
    return Refusal{
        Tr("Trades", "Several clients have an account %1: name the client.").arg(account),
        Field::kAccount};
  }
  for (const records::Broker& known :
       records::Select<records::Broker>(connection_).OrderBy(&records::Broker::id).All()) {
    if (lookups::Folded(known.name.toStdString()) == lookups::Folded(broker.toStdString())) {
      return TargetOf(found.front()->id, known.id);
    }
  }
  return BrokerMissing(broker);
}

Result<TradeTarget> TradeBook::TargetOf(AccountId account, BrokerId broker) const {
  const Directory directory(connection_);
  const lookups::AccountEntry& entry = directory.Account(account);
  if (!account || !entry.client) {
    return Refusal{Tr("Trades", "Choose the demat account."), Field::kAccount};
  }
  const auto known =
      records::Select<records::Broker>(connection_).Where(&records::Broker::id, broker).First();
  if (!known) {
    return Refusal{Tr("Trades", "Choose the broker."), Field::kBroker};
  }
  return TradeTarget{entry.client, account,
                     broker,       directory.Client(entry.client).code,
                     entry.number, known->name.toStdString()};
}

OpenedTrades TradeBook::Open(const QString& path) const {
  OpenedTrades opened{path, files::ReadTableFile(path), {}, false};
  const std::size_t head = std::min(opened.table.rows.size(), kHeaderRows);
  opened.header = FindHeader(opened.table, layouts_);
  for (std::size_t row = 0; row < head && !opened.header; ++row) {
    if (const auto map = RememberedColumns(connection_, HeaderText(opened.table.rows[row]))) {
      opened.header = FoundHeader{row, *map, {}, {}};
    }
  }
  return opened;
}

QString TradeBook::UnknownHeader(const OpenedTrades& opened) const {
  QStringList expected;
  for (const TradeLayout& layout : layouts_) {
    expected << layout.name + QStringLiteral(": ") + layout.Headings();
  }
  return Tr("Trades",
            "%1 has no row with the headings of a trade book that is known. Expected are those of "
            "one of these:\n%2")
      .arg(FileName(opened), expected.join(QLatin1Char('\n')));
}

MaybeRefusal TradeBook::CheckOwner(const OpenedTrades& opened, const TradeTarget& target,
                                   const Directory& directory) const {
  // Shorter numbers are also parts of dates and telephone numbers.
  constexpr std::size_t kShortest = 6;
  for (const files::TextRow& row : BannerOf(opened)) {
    for (const std::string& cell : row.cells) {
      for (const std::string& word : WordsIn(cell)) {
        if (word.size() < kShortest || IsSameAccount(word, target.account_number)) {
          continue;
        }
        const auto owners = directory.FindAccounts(word);
        if (!owners.empty()) {
          return Refusal{Tr("Trades", "%1 is of the account %2, not of %3. Nothing was taken in.")
                             .arg(FileName(opened), QString::fromStdString(owners.front()->number),
                                  QString::fromStdString(target.account_number)),
                         Field::kAccount};
        }
      }
    }
  }
  return std::nullopt;
}

Result<TradeFile> TradeBook::Read(std::span<const OpenedTrades> opened, const TradeTarget& target,
                                  const TradeOptions& options, Progress& progress) const {
  const Directory directory(connection_);
  ErrorList errors;
  TradeFile all;
  for (const OpenedTrades& one : opened) {
    if (!one.header) {
      return Refusal{UnknownHeader(one), Field::kRecord};
    }
    if (EndsWithinRow(one.path, one.table, *one.header)) {
      return Refusal{CutText(one), Field::kRecord};
    }
    if (MaybeRefusal other = CheckOwner(one, target, directory)) {
      return *other;
    }
    progress.Begin(Tr("Trades", "Reading %1").arg(FileName(one)),
                   static_cast<std::int64_t>(one.table.rows.size()));
    const TradeReading reading{one.path, options.exchange, target.account_number, options.today};
    all.Append(TradesIn(one.table, *one.header, reading, errors, progress));
  }
  if (!errors.Empty()) {
    return TextsOf(errors);
  }
  if (all.trades.empty()) {
    return Refusal{Tr("Trades", "There are no trades in the file."), Field::kRecord};
  }
  all.Sort();
  return all;
}

TradePlan TradeBook::Plan(TradeFile file, const TradeTarget& target, const TradeOptions& options,
                          Progress& progress) const {
  std::vector<TradedScrip> scrips =
      MatchScrips(file.scrips, quorvane::rates::ListScrips(connection_),
                  ConfirmedScripsOf(connection_, target.broker));
  RecordedTrades recorded{TakenTrades(connection_, target.account),
                          EnteredTotals(connection_, target.client, target.account)};
  TradePlan plan(std::move(file), std::move(scrips), std::move(recorded),
                 ChargeRates(connection_, data_folder_));
  plan.Build(options.fills, progress);
  return plan;
}

std::vector<MappedHeader> TradeBook::MappedHeaders(std::span<const OpenedTrades> opened) {
  std::vector<MappedHeader> headers;
  for (const OpenedTrades& one : opened) {
    if (one.mapped && one.header && one.header->map.filters.empty()) {
      headers.push_back({HeaderText(one.table.rows[one.header->row]), one.header->map});
    }
  }
  return headers;
}

}  // namespace quorvane::portfolio
