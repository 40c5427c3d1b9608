#include "reports/home/RecordStamps.h"

#include <QCryptographicHash>

#include <vector>

namespace quorvane::home {
namespace {

using database::Connection;
using database::Recordset;

/// Goes up when the figures are computed in another way.
constexpr std::string_view kVersion = "1";

// A row of each: the number of the part, how many records, and a sum over their checksums.
constexpr std::string_view kOwn =
    "Select 1,Count(*),Sum(Crc32(Concat_Ws('|',Fyear,SID,Id,SP,StkId,ScriptId,Qty,Rate,Brk,Net,Amt,"
    "STax,FO,STT,DelvType))) From SPTrans Where Cid=? Union All "
    "Select 2,Count(*),Sum(Crc32(Concat_Ws('|',Fyear,ID,BDate,AcId,BrokId))) From SPMaster Where "
    "Cid=? Union All "
    "Select 3,Count(*),Sum(Crc32(Concat_Ws('|',Fyear,Id,ScriptId,Qty,Rate,Total,AcId,PDate,STax,"
    "Brk,STT,FO))) From StkOpBal Where CId=? Union All "
    "Select 4,Count(*),Sum(Crc32(Concat_Ws('|',Fyear,ID,TDate,FrmAcId,TransTo,ToAcId,ToClientID,"
    "StkId,ScrId,PRate,Qty))) From ScrTransfer Where Cid=? Union All "
    "Select 5,Count(*),Sum(Crc32(Concat_Ws('|',ActionId,Id,Fyear,AcId,ScrId,Rate,OutQty,ToScrId,"
    "ToRate,InQty,Acquired,Brk,STax,STT,FO))) From CorpActionLot Where CId=? Union All "
    "Select 6,Count(*),Sum(Crc32(Concat_Ws('|',Fyear,Id,AcId,ScriptId,Rate))) From Stock Where "
    "Cid=? Union All "
    "Select 7,Count(*),Sum(Crc32(id)) From ClientActDet Where CId=? Union All "
    "Select 8,Count(*),Sum(Crc32(id)) From RemovedAccount Where CId=?";
constexpr int kOwnParts = 8;

void Add(QCryptographicHash& hash, std::string_view text) {
  hash.addData(QByteArray::fromRawData(text.data(), static_cast<qsizetype>(text.size())));
  hash.addData(QByteArrayLiteral(";"));
}

std::string TextOf(const QCryptographicHash& hash) {
  return hash.result().toHex().toStdString();
}

/// All who are reached from some over any number of steps, these included.
std::set<ClientId> Reached(const std::multimap<ClientId, ClientId>& steps,
                           std::set<ClientId> reached) {
  std::vector<ClientId> open(reached.begin(), reached.end());
  while (!open.empty()) {
    const auto [first, last] = steps.equal_range(open.back());
    open.pop_back();
    for (auto each = first; each != last; ++each) {
      if (reached.insert(each->second).second) {
        open.push_back(each->second);
      }
    }
  }
  return reached;
}

}  // namespace

std::string RecordStamps::Common(Connection& connection) {
  QCryptographicHash hash(QCryptographicHash::Sha1);
  Add(hash, kVersion);
  for (const auto& row : connection.Open(
           "Select Concat_Ws('|',Id,Kind,ScrId,ExDay,RecordDay,AllotDay,NewShares,OldShares,"
           "OtherScrId,Price,CostPercent) From CorpAction Where Applied=1 Order By Id")) {
    Add(hash, row.Utf8(0));
  }
  // Whether a year was carried forward at all decides how a client without openings is read.
  for (const auto& row : connection.Open("Select Distinct Fyear From StkOpBal Order By Fyear")) {
    Add(hash, row.Utf8(0));
  }
  return TextOf(hash);
}

RecordStamps::RecordStamps(Connection& connection, std::map<ClientId, std::string>& own)
    : connection_(connection), common_(Common(connection)), own_(own) {
  for (const auto& row :
       connection.Open("Select Distinct ToClientID,Cid From ScrTransfer Where ToClientID<>Cid")) {
    givers_.emplace(ClientId{row.Int(0)}, ClientId{row.Int(1)});
    takers_.emplace(ClientId{row.Int(1)}, ClientId{row.Int(0)});
  }
}

std::set<ClientId> RecordStamps::GiversTo(ClientId client) const {
  return Reached(givers_, {client});
}

std::set<ClientId> RecordStamps::TakersFrom(const std::set<ClientId>& clients) const {
  return Reached(takers_, clients);
}

const std::string& RecordStamps::OwnOf(ClientId client) {
  if (const auto known = own_.find(client); known != own_.end()) {
    return known->second;
  }
  std::vector<std::string> parts(kOwnParts);
  const std::vector<database::Value> values(kOwnParts, database::Value(client));
  for (const auto& row : connection_.OpenValues(kOwn, values)) {
    parts[static_cast<std::size_t>(row.Int(0)) - 1] =
        row.Text(1).toStdString() + ':' + row.Text(2).toStdString();
  }
  QCryptographicHash hash(QCryptographicHash::Sha1);
  for (const std::string& part : parts) {
    Add(hash, part);
  }
  return own_.emplace(client, TextOf(hash)).first->second;
}

std::string RecordStamps::Of(ClientId client) {
  QCryptographicHash hash(QCryptographicHash::Sha1);
  Add(hash, common_);
  for (const ClientId one : GiversTo(client)) {
    Add(hash, OwnOf(one));
  }
  return TextOf(hash);
}

}  // namespace quorvane::home
