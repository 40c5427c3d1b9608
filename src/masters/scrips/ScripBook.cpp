#include "masters/scrips/ScripBook.h"

#include "core/database/TextWidths.h"
#include "core/ledger/Lots.h"
#include "core/ledger/Rebuild.h"
#include "core/lookups/Patch.h"
#include "core/records/Bill.h"
#include "core/records/Dividend.h"
#include "core/records/Masters.h"
#include "core/records/Opening.h"
#include "core/records/OpeningMark.h"
#include "core/records/Rates.h"
#include "core/records/Tax.h"
#include "core/records/TradeKey.h"
#include "core/records/Transfer.h"
#include "core/records/Writing.h"
#include "core/text/Tr.h"

#include <array>

namespace quorvane::scrips {
namespace {

using database::Connection;
using database::Recordset;
using database::TextCell;
using database::Transaction;

Scrip ScripOf(const Recordset& row) {
  return {ScripId{row.Int(0)}, row.Text(1), row.Text(2), row.Text(3).trimmed(),
          row.Int(4),          row.Int(5),  {}};
}

MaybeRefusal CheckWidths(const Scrip& scrip) {
  const std::array cells{
      TextCell{"Code", QT_TRANSLATE_NOOP("Masters", "Script Code"), scrip.code, Field::kCode},
      TextCell{"Name", QT_TRANSLATE_NOOP("Masters", "Script Name"), scrip.name, Field::kName},
      TextCell{"NCode", QT_TRANSLATE_NOOP("Masters", "Second Script Code"), scrip.second_code,
               Field::kSecondCode}};
  return database::CheckTextWidths("Script", cells);
}

bool CodeIsTaken(Transaction& transaction, const Scrip& scrip) {
  return transaction
      .Open("Select Code From Script Where Code=? and Id<>? For Update", scrip.code, scrip.id)
      .Next();
}

Result<ScripId> SaveIn(Transaction& transaction, Scrip scrip) {
  if (CodeIsTaken(transaction, scrip)) {
    return Refusal{Tr("Scrips", "Script Code Already Exists."), Field::kCode};
  }
  scrip.id = records::ClaimKey(transaction, &records::Scrip::id, scrip.id);
  records::Insert(transaction, records::Scrip{scrip.id, scrip.code, scrip.name, scrip.type,
                                              scrip.scrip_class, scrip.second_code});
  if (scrip.isins) {
    rates::SetIsins(transaction, scrip.id, *scrip.isins);
  }
  return scrip.id;
}

/// The clients and years that have a bill with the scrip on it, or had a corporate action of it.
/// The records stay locked, so that none is saved between the look and the delete.
std::vector<ClientYear> HoldersOf(Transaction& transaction, ScripId id) {
  std::vector<ClientYear> holders;
  for (const auto& row : transaction.Open(
           "Select Distinct M.Cid,M.Fyear From SPTrans T Join SPMaster M On M.ID=T.SID "
           "Where T.ScriptId=? Union Select Distinct L.CId,L.Fyear From CorpActionLot L Join "
           "CorpAction A On A.Id=L.ActionId Where A.ScrId=? Or A.OtherScrId=? "
           "Order By Cid,Fyear For Update",
           id, id, id)) {
    if (const auto year = text::FinancialYear::Parse(row.Text(1))) {
      holders.push_back({ClientId{row.Int(0)}, *year});
    }
  }
  return holders;
}

template <class Record>
void DeleteOf(Transaction& transaction, ScripId id) {
  records::Delete<Record>(transaction).Where(&Record::scrip, id).Run();
}

template <class Key>
std::vector<Key> KeysOf(Transaction& transaction, std::string_view sql, ScripId id) {
  std::vector<Key> keys;
  for (const auto& row : transaction.Open(sql, id)) {
    keys.push_back(Key{row.Int(0)});
  }
  return keys;
}

void DeleteRows(Transaction& transaction, ScripId id) {
  records::Delete<records::Scrip>(transaction).Where(&records::Scrip::id, id).Run();
  DeleteOf<records::Transfer>(transaction, id);
  const auto bills = KeysOf<BillId>(
      transaction, "Select Distinct SID From SPTrans Where ScriptId=? For Update", id);
  records::DeleteNaming(transaction, &records::TradeKey::bill, std::span(bills));
  records::DeleteNaming(transaction, &records::Bill::id, std::span(bills));
  DeleteOf<records::BillLine>(transaction, id);
  DeleteOf<records::Opening>(transaction, id);
  DeleteOf<records::OpeningMark>(transaction, id);
  DeleteOf<records::Lot>(transaction, id);
  DeleteOf<records::MarketRate>(transaction, id);
  DeleteOf<records::ScripIsin>(transaction, id);
  DeleteOf<records::Dividend>(transaction, id);
  DeleteOf<records::FairValue>(transaction, id);
  const auto actions = KeysOf<ActionId>(
      transaction, "Select Id From CorpAction Where ? In(ScrId,OtherScrId) For Update", id);
  records::DeleteNaming(transaction, &records::ActionLot::action, std::span(actions));
  records::DeleteNaming(transaction, &records::Action::id, std::span(actions));
}

/// All lots are locked before the first is read: a plain read fixes the instant that the later ones
/// see.
void RebuildEach(Transaction& transaction, const std::vector<ClientYear>& holders,
                 Progress& progress) {
  transaction.Execute("Delete From Stock_Temp");
  for (const ClientYear& holder : holders) {
    ledger::LockLots(transaction, holder);
  }
  progress.Begin(QStringLiteral("Holdings"), static_cast<std::int64_t>(holders.size()));
  for (std::size_t done = 0; done < holders.size(); ++done) {
    WithinStep step(progress, static_cast<std::int64_t>(done));
    ledger::RebuildStock(transaction, holders[done], step);
    progress.Step(static_cast<std::int64_t>(done + 1));
  }
}

}  // namespace

MaybeRefusal CheckScrip(const Scrip& scrip) {
  if (scrip.code.trimmed().isEmpty()) {
    return Refusal{Tr("Scrips", "Enter Script Code."), Field::kCode};
  }
  if (scrip.name.trimmed().isEmpty()) {
    return Refusal{Tr("Scrips", "Enter Script Name."), Field::kName};
  }
  if (scrip.type == 0) {
    return Refusal{Tr("Scrips", "Select Script Type."), Field::kType};
  }
  if (scrip.scrip_class == 0) {
    return Refusal{Tr("Scrips", "Select Script Class."), Field::kClass};
  }
  if (MaybeRefusal refusal = CheckWidths(scrip)) {
    return refusal;
  }
  return scrip.isins ? rates::CheckIsins(*scrip.isins) : std::nullopt;
}

ScripBook::ScripBook(Connection& connection) : connection_(connection) {}

std::vector<Scrip> ScripBook::List() const {
  std::vector<Scrip> scrips;
  for (const auto& row :
       connection_.Open("Select Id,Code,Name,NCode,Type,ScrCls From Script Order By Name,Id")) {
    scrips.push_back(ScripOf(row));
  }
  return scrips;
}

std::vector<Scrip> ScripBook::List(std::span<const int> keys) const {
  std::vector<Scrip> scrips;
  const std::vector<database::Value> values(keys.begin(), keys.end());
  for (const auto& row :
       connection_.OpenValues("Select Id,Code,Name,NCode,Type,ScrCls From Script Where Id In (" +
                                  lookups::Places(keys.size()) + ")",
                              values)) {
    scrips.push_back(ScripOf(row));
  }
  return scrips;
}

std::optional<Scrip> ScripBook::Load(ScripId id) const {
  Recordset rows =
      connection_.Open("Select Id,Code,Name,NCode,Type,ScrCls From Script Where Id=?", id);
  if (!rows.Next()) {
    return std::nullopt;
  }
  Scrip scrip = ScripOf(rows);
  scrip.isins = rates::IsinsOf(connection_, id);
  return scrip;
}

Result<ScripId> ScripBook::Save(const Scrip& scrip) {
  if (const MaybeRefusal refusal = CheckScrip(scrip)) {
    return *refusal;
  }
  return database::InTransaction(
      connection_, [&](Transaction& transaction) { return SaveIn(transaction, scrip); });
}

void ScripBook::Delete(ScripId id, Progress& progress) {
  database::InTransaction(connection_, [&](Transaction& transaction) {
    const std::vector<ClientYear> holders = HoldersOf(transaction, id);
    DeleteRows(transaction, id);
    RebuildEach(transaction, holders, progress);
  });
}

}  // namespace quorvane::scrips
