#include "portfolio/notes/NoteBook.h"

#include "core/ledger/Posting.h"
#include "core/lookups/Directory.h"
#include "core/records/Query.h"
#include "core/records/TradeKey.h"
#include "core/records/Writing.h"
#include "core/text/Amounts.h"
#include "core/text/Csv.h"
#include "core/text/Tr.h"
#include "portfolio/Import.h"

#include <algorithm>
#include <map>
#include <set>

namespace quorvane::notes {
namespace {

using database::Transaction;
using records::Bill;
using records::BillLine;
using records::TradeKey;

QString FileName(const PlannedNote& note) {
  return note.path.section(QLatin1Char('/'), -1);
}

/// Writes the notes as a bills.csv and knows of which security each row is.
class BillsFile {
 public:
  BillsFile(database::Connection& connection, const NoteQuery& query) : directory_(connection) {
    client_ = directory_.Client(query.client).code;
    account_ = directory_.Account(query.account).number;
  }

  void Add(const PlannedNote& note) {
    bool first = true;
    for (const BillEntry& entry : note.bill.entries) {
      AddRow(note, entry, first);
      first = false;
    }
  }

  const std::string& Content() const { return out_; }

  /// "file, security: what is wrong".
  QString TextOf(const portfolio::ImportError& error) const {
    const QString message = QString::fromStdString(error.message);
    const std::size_t row = error.line - 2;  // below the header
    return error.line < 2 || row >= names_.size() ? message : names_[row] + ": " + message;
  }

 private:
  void AddRow(const PlannedNote& note, const BillEntry& entry, bool first) {
    const ScripId scrip = note.scrips[entry.note_line];
    Text(client_);
    Text(account_);
    Text(note.note.number);
    Text(text::FormatDmy(*note.note.day).toStdString());
    Text(note.note.settlement);
    Text(note.broker_name.toStdString());
    Text(note.exchange.toStdString());
    Text(entry.side == Side::kPurchase ? "P" : "S");
    Text(directory_.Scrip(scrip).code);
    Number(entry.quantity.Number());
    Number(entry.rate);
    Number(entry.brokerage);
    Number(entry.service_tax);
    Number(entry.stt);
    Text(entry.non_delivery ? "Non Delivery Based" : "Delivery Based");
    Number(first ? note.bill.other_charges : 0);
    Number(first ? note.bill.transaction_charges : 0);
    out_.back() = '\n';
    names_.push_back(FileName(note) + ", " + QString::fromStdString(directory_.Scrip(scrip).name));
  }

  void Text(std::string_view text) {
    text::AppendCsvField(out_, text);
    out_ += ',';
  }
  void Number(double number) {
    text::AppendExact(out_, number);
    out_ += ',';
  }

  lookups::Directory directory_;
  std::string client_;
  std::string account_;
  std::vector<QString> names_;
  std::string out_ =
      "client_code,account_no,bill_no,bill_date,settlement_no,broker,exchange,side,scrip_code,"
      "quantity,rate,brokerage,service_tax,stt,delivery_type,other_charges,transaction_charges\n";
};

/// Takes bills away that revised notes replace, and sees afterwards that no lot lacks shares.
class Replacement {
 public:
  explicit Replacement(std::span<const PlannedNote> notes) {
    for (const PlannedNote& note : notes) {
      if (note.state == NoteState::kRevises) {
        bills_.push_back(note.recorded);
      }
    }
  }

  MaybeRefusal Remove(Transaction& transaction) {
    lots_before_.clear();
    places_.clear();
    replaced_.clear();
    for (const BillId id : bills_) {
      database::Connection& connection = transaction.GetConnection();
      std::optional<Bill> bill =
          records::Select<Bill>(connection).Where(&Bill::id, id).ForUpdate().First();
      if (!bill) {
        return Refusal{Tr("Notes", "The Bill that is to be Replaced was Deleted Meanwhile.")};
      }
      bill->lines = records::Select<BillLine>(connection)
                        .Where(&BillLine::bill, id)
                        .Where(&BillLine::client, bill->client)
                        .OrderBy(&BillLine::number)
                        .ForUpdate()
                        .All();
      TakeBack(transaction, *bill);
    }
    return std::nullopt;
  }

  /// The trades of a trade book that a replaced bill had are in its successor: they do not come in
  /// again.
  void PassTradesOn(Transaction& transaction) const {
    records::Writer<TradeKey> writer(transaction);
    for (const Replaced& one : replaced_) {
      const std::optional<Bill> bill = one.trades.empty()
                                           ? std::nullopt
                                           : records::Select<Bill>(transaction.GetConnection())
                                                 .Where(&Bill::client, one.bill.client)
                                                 .Where(&Bill::account, one.bill.account)
                                                 .Where(&Bill::broker, one.bill.broker)
                                                 .Where(&Bill::number, one.bill.number)
                                                 .Where(&Bill::date, one.bill.date)
                                                 .First();
      if (bill) {
        for (TradeKey trade : one.trades) {
          trade.bill = bill->id;
          writer.Write(trade);
        }
      }
    }
    writer.Finish();
  }

  /// Refused when shares that a replaced bill brought were sold and its successor does not bring
  /// them at the same rate.
  MaybeRefusal Check(Transaction& transaction) const {
    for (const ledger::Place& place : places_) {
      for (const records::Lot& lot :
           ledger::ReadLots(transaction.GetConnection(), ledger::LotScope::Of(place))) {
        const auto before = lots_before_.find(lot.id);
        const Shares was = before == lots_before_.end() ? Shares() : before->second;
        if (lot.quantity < Shares() && lot.quantity < was) {
          const lookups::Directory directory(transaction.GetConnection());
          return Refusal{
              Tr("Notes",
                 "Shares of %1 that the Replaced Bill Brought were Sold or Transferred. Delete the "
                 "Later Records First, or Change the Bill by Hand.")
                  .arg(QString::fromStdString(directory.Scrip(lot.scrip).name)),
              Field::kLines};
        }
      }
    }
    return std::nullopt;
  }

 private:
  struct Replaced {
    Bill bill;
    std::vector<TradeKey> trades;
  };

  void TakeBack(Transaction& transaction, const Bill& bill) {
    const ledger::Place place{bill.Of(), bill.account};
    ledger::Lots lots;
    ledger::LockAndLoad(transaction, lots, std::span(&place, 1));
    for (const ledger::Lots::Entry& entry : lots.Entries()) {
      lots_before_.emplace(entry.lot.id, entry.lot.quantity);
    }
    ledger::TakeBackLines(lots, place, bill.lines);
    lots.Write(transaction);
    places_.push_back(place);
    replaced_.push_back({bill, records::Select<TradeKey>(transaction.GetConnection())
                                   .Where(&TradeKey::bill, bill.id)
                                   .ForUpdate()
                                   .All()});
    records::Delete<TradeKey>(transaction).Where(&TradeKey::bill, bill.id).Run();
    records::Delete<Bill>(transaction).Where(&Bill::id, bill.id).Run();
    records::Delete<BillLine>(transaction)
        .Where(&BillLine::bill, bill.id)
        .Where(&BillLine::client, bill.client)
        .Run();
  }

  std::vector<BillId> bills_;
  std::vector<Replaced> replaced_;
  std::vector<ledger::Place> places_;
  std::map<LotId, Shares> lots_before_;
};

}  // namespace

Result<std::size_t> TakeIn(database::Connection& connection, const NoteQuery& query,
                           std::span<const PlannedNote> notes, bool dry_run, Progress& progress) {
  BillsFile file(connection, query);
  for (const PlannedNote& note : notes) {
    if (!note.CanBeTaken()) {
      return Refusal{FileName(note) + ": " + note.remark, Field::kRecord};
    }
    file.Add(note);
  }
  Replacement replacement(notes);
  const portfolio::ImportWork work{
      .before = [&](Transaction& transaction) { return replacement.Remove(transaction); },
      .after = [&](Transaction& transaction) -> MaybeRefusal {
        replacement.PassTradesOn(transaction);
        return replacement.Check(transaction);
      }};
  const auto result = portfolio::ImportFiles(
      connection, {{portfolio::FileKind::kBills, file.Content()}}, dry_run, work, progress);
  if (!result) {
    return result.Why();
  }
  if (!result->errors.empty()) {
    QStringList texts;
    for (const portfolio::ImportError& error : result->errors) {
      texts << file.TextOf(error);
    }
    constexpr qsizetype kMostListed = 10;
    return Refusal{texts.mid(0, kMostListed).join(QLatin1Char('\n')), Field::kLines};
  }
  return notes.size();
}

}  // namespace quorvane::notes
