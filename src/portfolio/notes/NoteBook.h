#pragma once

#include "core/Ids.h"
#include "core/Progress.h"
#include "core/Result.h"
#include "core/database/Connection.h"
#include "portfolio/notes/Note.h"
#include "portfolio/notes/NoteBill.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <span>
#include <vector>

namespace quorvane::notes {

/// Whose notes they are and where their shares go.
struct NoteQuery {
  ClientId client;
  AccountId account;
  BrokerId broker = {};   ///< none: the one whose name is in the note's head
  QString exchange = {};  ///< for notes that name none or several; empty: NSE
  text::Date today{};
};

enum class NoteState : std::uint8_t {
  kReady,
  kRevises,  ///< a bill of that number is recorded, with other contents
  kEntered,  ///< bills of the day have as many shares: probably entered under another number
  kDoubled,  ///< the same bill is recorded
  kUnknown,  ///< of a security of which there is no scrip
  kRefused   ///< it does not add up, or is not the client's
};

/// A note that was read, and what would become of it.
struct PlannedNote {
  QString path;
  Note note;
  NoteState state = NoteState::kReady;
  QString remark;  ///< why it is not ready, and what is to be looked at
  NoteBill bill;
  BrokerId broker;
  QString broker_name;
  QString exchange;
  std::vector<ScripId> scrips;  ///< of the note's lines; none where it is not known
  BillId recorded;              ///< the bill that it revises

  bool CanBeTaken() const {
    return state == NoteState::kReady || state == NoteState::kRevises ||
           state == NoteState::kEntered;
  }
};

/// Reads a note: PDF with text, a web page or a workbook. The client's PAN is tried as a password,
/// after the entered ones. Refused with Field::kPassword when none opens it, and for what is no
/// such file. Throws Cancellation.
Result<Note> ReadNote(database::Connection& connection, ClientId client, const QString& path,
                      const QStringList& entered, Progress& progress);

/// A note with the file that it was read from.
struct ReadFile {
  QString path;
  Note note;
};

/// What would become of notes, in their order, when all that can be are taken in together: what
/// they buy and sell on one day with one broker is without delivery. Changes nothing.
std::vector<PlannedNote> PlanNotes(database::Connection& connection, const NoteQuery& query,
                                   std::vector<ReadFile> notes);

/// Records notes as bills, in one transaction: all or none. Sales use up the account's lots first
/// in, first out; what was sold without delivery draws on what the day bought so. The notes are
/// those of one PlanNotes. A note that revises puts its bill in the place of the recorded one.
/// Refused when a note cannot be taken, when shares are missing, and when shares of a replaced bill
/// were sold.
/// With `dry_run` everything is checked and nothing written. Returns the number of bills.
Result<std::size_t> TakeIn(database::Connection& connection, const NoteQuery& query,
                           std::span<const PlannedNote> notes, bool dry_run, Progress& progress);

/// In the user's language.
QString TextOf(NoteState state);

}  // namespace quorvane::notes
