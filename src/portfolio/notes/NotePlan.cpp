#include "core/lookups/Directory.h"
#include "core/rates/IsinBook.h"
#include "core/records/BillAmounts.h"
#include "core/records/Masters.h"
#include "core/records/Query.h"
#include "core/text/Tr.h"
#include "portfolio/notes/NoteBook.h"
#include "portfolio/notes/NoteDays.h"
#include "portfolio/notes/NoteLines.h"
#include "portfolio/notes/NoteTable.h"
#include "portfolio/paper/PaperFile.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <set>
#include <tuple>

namespace quorvane::notes {
namespace {

QString Utf8(const std::string& text) {
  return QString::fromStdString(text);
}

/// What was bought or sold of a scrip.
struct SideSum {
  Shares shares;
  Paise amount;
  std::int64_t lines = 0;
};

/// What makes a bill's lines the same, however they are divided.
using Contents = std::map<std::tuple<int, int>, SideSum>;

void Add(Contents& contents, Side side, ScripId scrip, Shares quantity, Paise amount) {
  SideSum& sum = contents[{static_cast<int>(side), scrip.value}];
  sum.shares += quantity;
  sum.amount += amount;
  ++sum.lines;
}

/// A line that was divided has its amount rounded in each part.
bool AreSame(const Contents& recorded, const Contents& planned) {
  return std::ranges::equal(recorded, planned, [](const auto& a, const auto& b) {
    const std::int64_t difference = (a.second.amount - b.second.amount).Count();
    return a.first == b.first && a.second.shares == b.second.shares &&
           std::abs(difference) < std::max(a.second.lines, b.second.lines);
  });
}

/// Puts everything that notes are held against together once.
class Planner {
 public:
  Planner(database::Connection& connection, const NoteQuery& query)
      : connection_(connection),
        query_(query),
        isins_(connection),
        brokers_(records::Select<records::Broker>(connection).All()) {
    const auto client = records::Select<records::Client>(connection)
                            .Where(&records::Client::id, query.client)
                            .First();
    pan_ = client ? client->pan.toUpper().toStdString() : std::string();
  }

  void ReadRecorded(std::span<const PlannedNote> notes) {
    std::set<text::FinancialYear> years;
    for (const PlannedNote& note : notes) {
      if (note.note.day) {
        years.insert(text::FinancialYear::Of(*note.note.day));
      }
    }
    for (const text::FinancialYear year : years) {
      ReadBills(year);
    }
  }

  void Plan(PlannedNote& planned) {
    const Note& note = planned.note;
    FindScrips(planned);
    FindBroker(planned);
    planned.exchange = !note.exchange.empty()      ? Utf8(note.exchange)
                       : query_.exchange.isEmpty() ? QStringLiteral("NSE")
                                                   : query_.exchange;
    const QString fault = FaultOf(planned);
    const NoteBalance balance = CheckNote(note);
    if (!fault.isEmpty() || !balance.adds_up) {
      planned.state = NoteState::kRefused;
      planned.remark = fault.isEmpty()
                           ? Tr("Notes", "The Note does not Add Up: %1").arg(Utf8(balance.why))
                           : fault;
      return;
    }
    planned.bill = MakeBill(note, balance, std::vector<Shares>(note.lines.size()));
    if (const QStringList unknown = Unknown(planned); !unknown.isEmpty()) {
      planned.state = NoteState::kUnknown;
      planned.remark = Tr("Notes", "There is no Script for %1.").arg(unknown.join(", "));
      return;
    }
    FindRecorded(planned);
  }

 private:
  void ReadBills(text::FinancialYear year) {
    for (records::Bill& bill : records::Select<records::Bill>(connection_)
                                   .Where(&records::Bill::client, query_.client)
                                   .Where(&records::Bill::year, year)
                                   .Where(&records::Bill::account, query_.account)
                                   .All()) {
      bills_.push_back(std::move(bill));
    }
    records::Select<records::BillLine>(connection_)
        .Where(&records::BillLine::client, query_.client)
        .Where(&records::BillLine::year, year)
        .Each([this](const records::BillLine& line) {
          Add(recorded_[line.bill], line.side, line.scrip, line.quantity,
              Paise::OfRupees(line.amount));
        });
  }

  void FindScrips(PlannedNote& planned) const {
    for (const NoteLine& line : planned.note.lines) {
      const auto scrips = line.isin.empty() ? std::vector<ScripId>() : isins_.ScripsOf(line.isin);
      planned.scrips.push_back(scrips.empty() ? ScripId{} : scrips.front());
    }
  }

  /// The chosen broker, or the one with the longest name that the note's head has.
  void FindBroker(PlannedNote& planned) const {
    const QString head = Utf8(planned.note.head);
    for (const records::Broker& broker : brokers_) {
      const bool named =
          query_.broker ? broker.id == query_.broker
                        : !broker.name.isEmpty() && head.contains(broker.name.trimmed().toUpper());
      if (named && broker.name.size() > planned.broker_name.size()) {
        planned.broker = broker.id;
        planned.broker_name = broker.name;
      }
    }
  }

  /// A note has the broker's PAN, too, and the client's may be hidden in part. The fourth letter
  /// says whether a person, a company or another holder has it.
  bool IsOfAnother(const Note& note) const {
    constexpr std::size_t kKind = 3;
    return pan_.size() > kKind && std::ranges::find(note.pans, pan_) == note.pans.end() &&
           std::ranges::any_of(
               note.pans, [this](const std::string& pan) { return pan[kKind] == pan_[kKind]; });
  }

  QString FaultOf(const PlannedNote& planned) const {
    const Note& note = planned.note;
    if (note.number.empty()) {
      return Tr("Notes", "The Note's Number cannot be Read.");
    }
    if (!note.day) {
      return Tr("Notes", "The Note's Day cannot be Read.");
    }
    if (*note.day > query_.today) {
      return Tr("Notes", "The Note is of %1, a Day in the Future.").arg(text::FormatDmy(*note.day));
    }
    if (IsOfAnother(note)) {
      return Tr("Notes", "The Note has Another PAN than the Client.");
    }
    return planned.broker ? QString() : Tr("Notes", "Select the Broker of the Note.");
  }

  static QStringList Unknown(const PlannedNote& planned) {
    QStringList unknown;
    for (std::size_t i = 0; i < planned.scrips.size(); ++i) {
      const NoteLine& line = planned.note.lines[i];
      const QString text = Utf8(line.isin.empty() ? line.name : line.isin);
      if (!planned.scrips[i] && !unknown.contains(text)) {
        unknown << text;
      }
    }
    return unknown;
  }

  static Contents ContentsOf(const PlannedNote& planned) {
    Contents contents;
    for (const BillEntry& entry : planned.bill.entries) {
      records::BillLine line;
      line.side = entry.side;
      line.quantity = entry.quantity;
      line.rate = entry.rate;
      line.brokerage = entry.brokerage;
      records::ComputeAmount(line);
      Add(contents, entry.side, planned.scrips[entry.note_line], entry.quantity,
          Paise::OfRupees(line.amount));
    }
    return contents;
  }

  void FindRecorded(PlannedNote& planned) const {
    const QString number = Utf8(planned.note.number);
    const QString day = text::FormatDmy(*planned.note.day);
    const Contents contents = ContentsOf(planned);
    Contents of_the_day;
    for (const records::Bill& bill : bills_) {
      if (bill.broker != planned.broker || bill.date != day) {
        continue;
      }
      const auto found = recorded_.find(bill.id);
      const Contents recorded = found == recorded_.end() ? Contents() : found->second;
      if (bill.number.compare(number, Qt::CaseInsensitive) == 0) {
        const bool same = AreSame(recorded, contents);
        planned.state = same ? NoteState::kDoubled : NoteState::kRevises;
        planned.recorded = bill.id;
        planned.remark = same
                             ? Tr("Notes", "The Note is Entered Already.")
                             : Tr("Notes", "A Bill of this Number is Entered with Other Contents.");
        return;
      }
      for (const auto& [of, sum] : recorded) {
        of_the_day[of].shares += sum.shares;
      }
    }
    const bool entered = std::ranges::all_of(contents, [&](const auto& one) {
      const auto found = of_the_day.find(one.first);
      return found != of_the_day.end() && found->second.shares == one.second.shares;
    });
    if (entered && !contents.empty()) {
      planned.state = NoteState::kEntered;
      planned.remark = Tr("Notes", "Bills of the Day have as many Shares under other Numbers.");
    }
  }

  database::Connection& connection_;
  const NoteQuery& query_;
  rates::Isins isins_;
  std::vector<records::Broker> brokers_;
  std::string pan_;
  std::vector<records::Bill> bills_;
  std::map<BillId, Contents> recorded_;
};

/// A note twice among the chosen files: the later one is left out.
void RefuseTwins(std::vector<PlannedNote>& notes) {
  std::set<std::tuple<int, std::string, std::optional<text::Date>>> seen;
  for (PlannedNote& planned : notes) {
    if (planned.CanBeTaken() &&
        !seen.insert({planned.broker.value, lookups::Folded(planned.note.number), planned.note.day})
             .second) {
      planned.state = NoteState::kDoubled;
      planned.remark = Tr("Notes", "Another of the Files is the Same Note.");
    }
  }
}

constexpr std::array kStates{QT_TRANSLATE_NOOP("Notes", "Ready"),
                             QT_TRANSLATE_NOOP("Notes", "Replaces a Bill"),
                             QT_TRANSLATE_NOOP("Notes", "Probably Entered"),
                             QT_TRANSLATE_NOOP("Notes", "Entered"),
                             QT_TRANSLATE_NOOP("Notes", "Script Missing"),
                             QT_TRANSLATE_NOOP("Notes", "Not Taken")};

}  // namespace

Result<Note> ReadNote(database::Connection& connection, ClientId client, const QString& path,
                      const QStringList& entered, Progress& progress) {
  const auto record =
      records::Select<records::Client>(connection).Where(&records::Client::id, client).First();
  const records::Client owner = record.value_or(records::Client());
  const Result<paper::PaperContent> content = paper::ReadPaper(
      path, paper::PasswordsFor(owner.pan, owner.date_of_birth, entered), progress);
  if (!content) {
    return content.Why();
  }
  const auto* table = std::get_if<files::TextTable>(&*content);
  return ReadNoteLines(table != nullptr ? LinesOfTable(*table)
                                        : std::get<std::vector<paper::Line>>(*content));
}

std::vector<PlannedNote> PlanNotes(database::Connection& connection, const NoteQuery& query,
                                   std::vector<ReadFile> notes) {
  std::vector<PlannedNote> planned;
  for (ReadFile& read : notes) {
    PlannedNote& one = planned.emplace_back();
    one.path = std::move(read.path);
    one.note = std::move(read.note);
  }
  Planner planner(connection, query);
  planner.ReadRecorded(planned);
  for (PlannedNote& one : planned) {
    planner.Plan(one);
  }
  RefuseTwins(planned);
  MatchDays(connection, query, planned);
  return planned;
}

QString TextOf(NoteState state) {
  return Tr("Notes", kStates.at(static_cast<std::size_t>(state)));
}

}  // namespace quorvane::notes
