#pragma once

#include "core/Ids.h"
#include "core/Result.h"
#include "core/database/Transaction.h"
#include "masters/Contact.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace quorvane::participants {

/// One of the identities under which a participant keeps accounts.
struct DpId {
  DpIdId id;  ///< none until it is saved; clients' accounts refer to it, so it never changes
  QString text;
};

/// An institution at which clients hold demat accounts.
struct Participant {
  ParticipantId id;  ///< none until it is saved
  QString name;
  masters::Contact contact;
  QString person;  ///< whom to ask for there
  QString designation;
  int depository = 0;  ///< place in DepositoryItems()
  std::vector<DpId> dp_ids;
};

/// The list whose places are stored; an item's place never changes.
QStringList DepositoryItems();

/// Checks the name, then whether a text is too long.
MaybeRefusal CheckParticipant(const Participant& participant);

/// The participants in the database. Every save and delete is one transaction; one that is refused,
/// or that throws DatabaseError, changes nothing.
class ParticipantBook {
 public:
  explicit ParticipantBook(database::Connection& connection);

  /// Without their DP ids; by name, then by id.
  std::vector<Participant> List() const;

  std::optional<Participant> Load(ParticipantId id) const;

  /// By id.
  std::vector<DpId> DpIds(ParticipantId id) const;

  /// Writes a new participant, or a changed one in place of the old, and replaces its DP
  /// ids by these. Returns what was saved: with the ids of the participant and of new DP
  /// ids, and without new DP ids that have no text.
  Result<Participant> Save(const Participant& participant);

  /// Removes the participant and its DP ids. Clients' accounts stay, without a participant.
  void Delete(ParticipantId id);

 private:
  database::Connection& connection_;
};

}  // namespace quorvane::participants
