#include "portfolio/notes/NoteDays.h"

#include "core/lookups/Directory.h"
#include "portfolio/SameDay.h"

#include <algorithm>
#include <map>
#include <set>

namespace quorvane::notes {
namespace {

using portfolio::DayTotals;

/// The notes that can be taken in, by their brokers.
std::map<BrokerId, std::vector<PlannedNote*>> ByBroker(std::vector<PlannedNote>& notes) {
  std::map<BrokerId, std::vector<PlannedNote*>> brokers;
  for (PlannedNote& note : notes) {
    if (note.CanBeTaken()) {
      brokers[note.broker].push_back(&note);
    }
  }
  return brokers;
}

/// What the notes both buy and sell.
DayTotals Matched(const std::vector<PlannedNote*>& notes) {
  DayTotals totals;
  for (const PlannedNote* note : notes) {
    for (std::size_t i = 0; i < note->scrips.size(); ++i) {
      const NoteLine& line = note->note.lines[i];
      totals[{*note->note.day, note->scrips[i]}].Of(line.side) += line.quantity;
    }
  }
  for (auto& [of, total] : totals) {
    total.bought = total.sold = std::min(total.bought, total.sold);
  }
  return totals;
}

/// The note's bill, with what is still left of the day's shares without delivery.
void MakeBillOf(PlannedNote& note, DayTotals& left) {
  std::vector<Shares> undelivered;
  for (std::size_t i = 0; i < note.scrips.size(); ++i) {
    const NoteLine& line = note.note.lines[i];
    Shares& open = left[{*note.note.day, note.scrips[i]}].Of(line.side);
    undelivered.push_back(std::min(open, line.quantity));
    open -= undelivered.back();
  }
  note.bill = MakeBill(note.note, CheckNote(note.note), undelivered);
}

DayTotals DeliveredIn(const PlannedNote& note) {
  DayTotals delivered;
  for (const BillEntry& entry : note.bill.entries) {
    if (!entry.non_delivery) {
      delivered[{*note.note.day, note.scrips[entry.note_line]}].Of(entry.side) += entry.quantity;
    }
  }
  return delivered;
}

std::set<BillId> ReplacedBy(const std::vector<PlannedNote*>& notes) {
  std::set<BillId> replaced;
  for (const PlannedNote* note : notes) {
    replaced.insert(note->recorded);
  }
  return replaced;
}

}  // namespace

void MatchDays(database::Connection& connection, const NoteQuery& query,
               std::vector<PlannedNote>& notes) {
  const lookups::Directory directory(connection);
  for (const auto& [broker, own] : ByBroker(notes)) {
    const DayTotals recorded = portfolio::DeliveredInBills(
        connection, {query.client, query.account, broker}, ReplacedBy(own));
    DayTotals left = Matched(own);
    for (PlannedNote* note : own) {
      MakeBillOf(*note, left);
      QStringList remarks = portfolio::OppositeInBills(DeliveredIn(*note), recorded, directory);
      if (!note->remark.isEmpty()) {
        remarks.prepend(note->remark);
      }
      note->remark = remarks.join(QLatin1Char(' '));
    }
  }
}

}  // namespace quorvane::notes
