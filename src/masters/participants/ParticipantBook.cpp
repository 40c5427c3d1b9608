#include "masters/participants/ParticipantBook.h"

#include "core/database/Keys.h"
#include "core/records/Masters.h"
#include "core/records/Writing.h"
#include "core/text/Tr.h"

#include <fmt/format.h>

#include <set>

namespace quorvane::participants {
namespace {

using database::Connection;
using database::Recordset;
using database::TextCell;
using database::Transaction;

constexpr std::size_t kFirstContactColumn = 2;
constexpr std::size_t kAfterContact = kFirstContactColumn + masters::kContactColumnCount;

std::string Columns() {
  return fmt::format("Id,Name,{},Person,Designation,Depository", masters::kContactColumns);
}

Participant ParticipantOf(const Recordset& row) {
  Participant participant;
  participant.id = ParticipantId{row.Int(0)};
  participant.name = row.Text(1);
  participant.contact = masters::ContactOf(row, kFirstContactColumn);
  participant.person = row.Text(kAfterContact);
  participant.designation = row.Text(kAfterContact + 1);
  participant.depository = row.Int(kAfterContact + 2);
  return participant;
}

std::vector<TextCell> Cells(const Participant& participant) {
  std::vector<TextCell> cells{
      {"Name", QT_TRANSLATE_NOOP("Masters", "Name"), participant.name, Field::kName}};
  masters::AppendCells(cells, participant.contact);
  cells.push_back(
      {"Person", QT_TRANSLATE_NOOP("Masters", "Person"), participant.person, Field::kPerson});
  cells.push_back({"Designation", QT_TRANSLATE_NOOP("Masters", "Designation"),
                   participant.designation, Field::kDesignation});
  return cells;
}

MaybeRefusal CheckDpIds(const Participant& participant) {
  std::vector<TextCell> cells;
  for (const DpId& dp_id : participant.dp_ids) {
    cells.push_back({"DPID", QT_TRANSLATE_NOOP("Masters", "DP Id"), dp_id.text, Field::kDpIds});
  }
  return database::CheckTextWidths("DpIDs", cells);
}

records::Participant RecordOf(const Participant& participant) {
  records::Participant record;
  static_cast<records::Contact&>(record) = participant.contact;
  record.id = participant.id;
  record.name = participant.name;
  record.person = participant.person;
  record.designation = participant.designation;
  record.depository = static_cast<records::Depository>(participant.depository);
  return record;
}

/// DP ids that stand in the database keep their numbers; the others get new ones.
void NumberDpIds(Transaction& transaction, Participant& participant) {
  std::set<DpIdId> stored;
  for (const auto& row :
       transaction.Open("Select id From DpIDs Where DepId=? For Update", participant.id)) {
    stored.insert(DpIdId{row.Int(0)});
  }
  int next = database::FirstFreeKey(transaction, "DpIDs");
  for (DpId& dp_id : participant.dp_ids) {
    if (stored.erase(dp_id.id) == 0) {
      dp_id.id = DpIdId{next++};
    }
  }
  database::KeepKeys(transaction, "DpIDs", next);
}

void DeleteDpIds(Transaction& transaction, ParticipantId id) {
  records::Delete<records::DpId>(transaction).Where(&records::DpId::participant, id).Run();
}

void ReplaceDpIds(Transaction& transaction, Participant& participant) {
  std::erase_if(participant.dp_ids,
                [](const DpId& dp_id) { return !dp_id.id && dp_id.text.trimmed().isEmpty(); });
  NumberDpIds(transaction, participant);
  DeleteDpIds(transaction, participant.id);
  std::vector<records::DpId> rows;
  for (const DpId& dp_id : participant.dp_ids) {
    rows.push_back({participant.id, dp_id.id, dp_id.text});
  }
  records::Insert(transaction, std::span<const records::DpId>(rows));
}

}  // namespace

QStringList DepositoryItems() {
  return {QStringLiteral("NSDL"), QStringLiteral("CDSL")};
}

MaybeRefusal CheckParticipant(const Participant& participant) {
  if (participant.name.trimmed().isEmpty()) {
    return Refusal{Tr("Masters", "Enter Name."), Field::kName};
  }
  MaybeRefusal refusal = database::CheckTextWidths("DepPart", Cells(participant));
  return refusal ? refusal : CheckDpIds(participant);
}

ParticipantBook::ParticipantBook(Connection& connection) : connection_(connection) {}

std::vector<Participant> ParticipantBook::List() const {
  std::vector<Participant> participants;
  for (const auto& row :
       connection_.Open(fmt::format("Select {} From DepPart Order By Name,Id", Columns()))) {
    participants.push_back(ParticipantOf(row));
  }
  return participants;
}

std::optional<Participant> ParticipantBook::Load(ParticipantId id) const {
  std::optional<Participant> participant;
  {
    Recordset rows =
        connection_.Open(fmt::format("Select {} From DepPart Where Id=?", Columns()), id);
    if (rows.Next()) {
      participant = ParticipantOf(rows);
    }
  }
  if (participant) {
    participant->dp_ids = DpIds(id);
  }
  return participant;
}

std::vector<DpId> ParticipantBook::DpIds(ParticipantId id) const {
  std::vector<DpId> dp_ids;
  for (const auto& row :
       connection_.Open("Select id,DPID From DpIDs Where DepId=? Order By id", id)) {
    dp_ids.push_back({DpIdId{row.Int(0)}, row.Text(1)});
  }
  return dp_ids;
}

Result<Participant> ParticipantBook::Save(const Participant& participant) {
  if (const MaybeRefusal refusal = CheckParticipant(participant)) {
    return *refusal;
  }
  return database::InTransaction(connection_, [&](Transaction& transaction) -> Result<Participant> {
    Participant saved = participant;
    saved.id = records::ClaimKey(transaction, &records::Participant::id, saved.id);
    records::Insert(transaction, RecordOf(saved));
    ReplaceDpIds(transaction, saved);
    return saved;
  });
}

void ParticipantBook::Delete(ParticipantId id) {
  database::InTransaction(connection_, [&](Transaction& transaction) {
    records::Delete<records::Participant>(transaction).Where(&records::Participant::id, id).Run();
    DeleteDpIds(transaction, id);
  });
}

}  // namespace quorvane::participants
