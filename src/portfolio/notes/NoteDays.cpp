#include "portfolio/notes/NoteDays.h"

#include "core/lookups/Directory.h"

#include <algorithm>
#include <map>
#include <set>

namespace quorvane::notes {
namespace {

using portfolio::DayMark;
using portfolio::DayMatch;
using portfolio::DayScrip;

/// New shares by scrip and day.
using FreshDays = std::map<DayScrip, DayMatch>;

/// The notes of one broker that can be taken in, and what is recorded of their days.
struct BrokerNotes {
  portfolio::DayOwner owner;
  std::vector<std::size_t> places;
  portfolio::RecordedDays recorded;
};

std::vector<BrokerNotes> ByBroker(database::Connection& connection, const NoteQuery& query,
                                  std::span<const PlannedNote> notes) {
  std::map<BrokerId, BrokerNotes> brokers;
  std::set<BillId> replaced;
  for (std::size_t i = 0; i < notes.size(); ++i) {
    if (notes[i].CanBeTaken()) {
      brokers[notes[i].broker].places.push_back(i);
      replaced.insert(notes[i].recorded);
    }
  }
  std::vector<BrokerNotes> all;
  for (auto& [broker, own] : brokers) {
    own.owner = {query.client, query.account, broker};
    own.recorded = portfolio::ReadDays(connection, own.owner, replaced);
    all.push_back(std::move(own));
  }
  return all;
}

/// Everything that the notes buy and sell.
FreshDays TradedIn(std::span<const PlannedNote> notes, std::span<const std::size_t> places) {
  FreshDays traded;
  for (const std::size_t place : places) {
    const PlannedNote& note = notes[place];
    for (std::size_t i = 0; i < note.scrips.size(); ++i) {
      const NoteLine& line = note.note.lines[i];
      traded[{*note.note.day, note.scrips[i]}].Of(line.side) += line.quantity;
    }
  }
  return traded;
}

FreshDays UndeliveredIn(std::span<const PlannedNote> notes, std::span<const std::size_t> places) {
  FreshDays undelivered;
  for (const std::size_t place : places) {
    const PlannedNote& note = notes[place];
    for (const BillEntry& entry : note.bill.entries) {
      const DayScrip of{*note.note.day, note.scrips[entry.note_line]};
      undelivered[of].Of(entry.side) += entry.non_delivery ? entry.quantity : Shares();
    }
  }
  return undelivered;
}

std::vector<DayMark> MarksFor(const portfolio::RecordedDays& recorded, const FreshDays& fresh) {
  std::vector<DayMark> marks;
  for (const auto& [of, match] : fresh) {
    if (const auto mark = portfolio::MarkFor(of, portfolio::SharesOf(recorded, of), match)) {
      marks.push_back(*mark);
    }
  }
  return marks;
}

/// The note's bill, with what is still left of the day's shares without delivery.
void MakeBillOf(PlannedNote& note, FreshDays& left) {
  std::vector<Shares> undelivered;
  for (std::size_t i = 0; i < note.scrips.size(); ++i) {
    const NoteLine& line = note.note.lines[i];
    Shares& open = left[{*note.note.day, note.scrips[i]}].Of(line.side);
    undelivered.push_back(std::min(open, line.quantity));
    open -= undelivered.back();
  }
  note.bill = MakeBill(note.note, CheckNote(note.note), undelivered);
}

bool Trades(const PlannedNote& note, const DayMark& mark) {
  return note.note.day == mark.of.day &&
         std::ranges::any_of(note.bill.entries, [&](const BillEntry& entry) {
           return entry.non_delivery && entry.side != mark.side &&
                  note.scrips[entry.note_line] == mark.of.scrip;
         });
}

void Tell(PlannedNote& note, const DayMark& mark, const lookups::Directory& directory) {
  const QString told = TextOf(mark, QString::fromStdString(directory.Scrip(mark.of.scrip).name));
  note.remark += (note.remark.isEmpty() ? QString() : QStringLiteral(" ")) + told;
}

}  // namespace

void MatchDays(database::Connection& connection, const NoteQuery& query,
               std::vector<PlannedNote>& notes) {
  const lookups::Directory directory(connection);
  for (const BrokerNotes& broker : ByBroker(connection, query, notes)) {
    FreshDays left;
    for (auto [of, traded] : TradedIn(notes, broker.places)) {
      left[of] =
          portfolio::MatchDay(portfolio::SharesOf(broker.recorded, of), traded.bought, traded.sold);
    }
    for (const std::size_t place : broker.places) {
      MakeBillOf(notes[place], left);
    }
    for (const DayMark& mark : MarksFor(broker.recorded, UndeliveredIn(notes, broker.places))) {
      const auto first = std::ranges::find_if(
          broker.places, [&](std::size_t place) { return Trades(notes[place], mark); });
      if (first != broker.places.end()) {
        Tell(notes[*first], mark, directory);
      }
    }
  }
}

std::vector<portfolio::SameDayMarks> MarksOf(database::Connection& connection,
                                             const NoteQuery& query,
                                             std::span<const PlannedNote> notes) {
  std::vector<portfolio::SameDayMarks> marks;
  for (const BrokerNotes& broker : ByBroker(connection, query, notes)) {
    marks.emplace_back(broker.owner,
                       MarksFor(broker.recorded, UndeliveredIn(notes, broker.places)));
  }
  return marks;
}

}  // namespace quorvane::notes
