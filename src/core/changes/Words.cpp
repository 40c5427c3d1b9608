#include "core/changes/Words.h"

#include "core/changes/RecordWords.h"
#include "core/text/Tr.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>
#include <QTimeZone>

#include <algorithm>
#include <array>
#include <map>
#include <utility>

namespace quorvane::changes {
namespace {

struct KindWords {
  Kind kind;
  std::string_view word;
  const char* name;
};

constexpr auto kKindNames = std::to_array<KindWords>({
    {Kind::kAdded, "added", QT_TRANSLATE_NOOP("Changes", "Added")},
    {Kind::kChanged, "changed", QT_TRANSLATE_NOOP("Changes", "Changed")},
    {Kind::kDeleted, "deleted", QT_TRANSLATE_NOOP("Changes", "Deleted")},
    {Kind::kApplied, "applied", QT_TRANSLATE_NOOP("Changes", "Applied")},
    {Kind::kTakenBack, "taken-back", QT_TRANSLATE_NOOP("Changes", "Taken back")},
    {Kind::kImported, "imported", QT_TRANSLATE_NOOP("Changes", "Imported")},
    {Kind::kCarriedForward, "carried-forward", QT_TRANSLATE_NOOP("Changes", "Carried forward")},
    {Kind::kRebuilt, "rebuilt", QT_TRANSLATE_NOOP("Changes", "Rebuilt")},
    {Kind::kRates, "rates", QT_TRANSLATE_NOOP("Changes", "Rates saved")},
    {Kind::kPassword, "password", QT_TRANSLATE_NOOP("Changes", "Password changed")},
    {Kind::kRestored, "restored", QT_TRANSLATE_NOOP("Changes", "BackUp restored")},
    {Kind::kRepaired, "repaired", QT_TRANSLATE_NOOP("Changes", "Repaired")},
    {Kind::kCleared, "cleared", QT_TRANSLATE_NOOP("Changes", "Log cleared")},
    {Kind::kRights, "rights", QT_TRANSLATE_NOOP("Changes", "Rights changed")},
});

/// Columns that only say where a row belongs.
constexpr auto kPlaces =
    std::to_array<std::string_view>({"Id", "Cid", "Fyear", "SID", "DepId", "ActionId", "LoginId"});

bool IsPlace(const QString& column) {
  return std::ranges::any_of(kPlaces, [&](std::string_view place) {
    return column.compare(QLatin1String(place.data(), std::ssize(place)), Qt::CaseInsensitive) == 0;
  });
}

QJsonObject Parsed(const std::string& json) {
  return QJsonDocument::fromJson(QByteArray::fromStdString(json)).object();
}

/// The values of a row by column.
using Row = std::map<QString, QJsonValue>;

/// The rows of a table by what tells one from another: the line number, the key, the ISIN.
using Rows = std::map<QString, Row>;

/// What tells rows of one table apart.
QString IdentityOf(const QString& table, const Row& row) {
  if (table == QLatin1String("ScripIsin")) {
    return row.contains(QStringLiteral("Isin")) ? row.at(QStringLiteral("Isin")).toString()
                                                : QString();
  }
  if (row.contains(QStringLiteral("LossYear"))) {
    return QStringLiteral("%1/%2")
        .arg(row.at(QStringLiteral("LossYear")).toString())
        .arg(row.contains(QStringLiteral("Kind")) ? row.at(QStringLiteral("Kind")).toInt() : 0);
  }
  if (row.contains(QStringLiteral("StatementDay"))) {
    return QStringLiteral("%1/%2")
        .arg(row.at(QStringLiteral("AcId")).toInt())
        .arg(row.at(QStringLiteral("StatementDay")).toString());
  }
  for (const auto& [column, value] : row) {
    if (column.compare(QLatin1String("Id"), Qt::CaseInsensitive) == 0) {
      const auto bill = row.find(QStringLiteral("SID"));
      const int of = bill == row.end() ? 0 : bill->second.toInt();
      return QStringLiteral("%1/%2").arg(of).arg(value.toInt(), 10);
    }
  }
  return {};
}

Rows RowsOf(const QString& table, const QJsonObject& rows) {
  const QJsonArray columns = rows[QLatin1String("columns")].toArray();
  Rows by_identity;
  for (const auto& values : rows[QLatin1String("rows")].toArray()) {
    const QJsonArray cells = values.toArray();
    Row row;
    for (qsizetype i = 0; i < columns.size(); ++i) {
      row.emplace(columns[i].toString(), cells[i]);
    }
    by_identity.emplace(IdentityOf(table, row), std::move(row));
  }
  return by_identity;
}

QString ValueText(const QString& column, const QJsonValue& value, const KeyNames& names) {
  if (!value.isDouble()) {
    return value.toString();
  }
  if (names && value.toInt() != 0) {
    if (QString name = names(column.toStdString(), value.toInt()); !name.isEmpty()) {
      return name;
    }
  }
  return QString::number(value.toDouble(), 'g', 15);
}

/// Compares the rows of one table.
class Comparison {
 public:
  Comparison(QString table, const KeyNames& names, std::vector<Difference>& into)
      : table_(std::move(table)), names_(names), into_(into) {}

  void Add(const Row& before, const Row& after) {
    const Row& any = after.empty() ? before : after;
    for (const auto& [column, value] : any) {
      const QString was = TextIn(before, column);
      const QString is = TextIn(after, column);
      // Of a row that came or went only what it holds; and NULL shows as nothing, as 0 does.
      const bool is_whole = before.empty() || after.empty();
      const bool is_nothing = (is_whole || IsNull(before, column) || IsNull(after, column)) &&
                              was + is == QLatin1String("0");
      if (!IsPlace(column) && was != is && !is_nothing) {
        into_.push_back({PlaceOf(any), ColumnText(column.toStdString()), was, is});
      }
    }
  }

 private:
  static bool IsNull(const Row& row, const QString& column) {
    const auto found = row.find(column);
    return found != row.end() && found->second.isNull();
  }

  QString TextIn(const Row& row, const QString& column) const {
    const auto found = row.find(column);
    return found == row.end() ? QString() : ValueText(column, found->second, names_);
  }

  QString PlaceOf(const Row& row) const {
    const QString name = RecordName(table_.toStdString());
    const auto line = row.find(QStringLiteral("Id"));
    const bool is_line = table_ == QLatin1String("SPTrans") && line != row.end();
    return is_line ? name + QLatin1Char(' ') + QString::number(line->second.toInt()) : name;
  }

  QString table_;
  const KeyNames& names_;
  std::vector<Difference>& into_;
};

void CompareTable(const QString& table, const QJsonObject& old_rows, const QJsonObject& new_rows,
                  const KeyNames& names, std::vector<Difference>& into) {
  const Rows before = RowsOf(table, old_rows);
  const Rows after = RowsOf(table, new_rows);
  Comparison comparison(table, names, into);
  for (const auto& [identity, row] : before) {
    const auto same = after.find(identity);
    comparison.Add(row, same == after.end() ? Row() : same->second);
  }
  for (const auto& [identity, row] : after) {
    if (!before.contains(identity)) {
      comparison.Add({}, row);
    }
  }
}

std::vector<Difference> Counts(const QJsonObject& counts) {
  std::vector<Difference> lines;
  for (auto table = counts.begin(); table != counts.end(); ++table) {
    const QJsonArray both = table.value().toArray();
    lines.push_back({RecordName(table.key().toStdString()), Tr("Changes", "Rows"),
                     QString::number(both[0].toInteger()), QString::number(both[1].toInteger())});
  }
  return lines;
}

}  // namespace

QString NameOf(Kind kind) {
  const auto found = std::ranges::find(kKindNames, kind, &KindWords::kind);
  return found == kKindNames.end() ? QString::number(static_cast<int>(kind))
                                   : Tr("Changes", found->name);
}

std::string_view WordOf(Kind kind) {
  const auto found = std::ranges::find(kKindNames, kind, &KindWords::kind);
  return found == kKindNames.end() ? std::string_view("other") : found->word;
}

std::optional<Kind> KindOf(std::string_view word) {
  const auto found = std::ranges::find(kKindNames, word, &KindWords::word);
  return found == kKindNames.end() ? std::nullopt : std::optional(found->kind);
}

std::span<const Kind> Kinds() {
  static constexpr auto kKinds = [] {
    std::array<Kind, kKindNames.size()> kinds{};
    std::ranges::transform(kKindNames, kinds.begin(), &KindWords::kind);
    return kinds;
  }();
  return kKinds;
}

QString SubjectOf(const Entry& entry) {
  if (entry.table.empty() || entry.table == kEverything) {
    return entry.title;
  }
  return entry.title.isEmpty() ? QStringLiteral("%1 %2").arg(RecordName(entry.table)).arg(entry.key)
                               : QStringLiteral("%1 %2").arg(RecordName(entry.table), entry.title);
}

QString TimeOf(const Entry& entry) {
  QDateTime time = QDateTime::fromString(QString::fromStdString(entry.made_at),
                                         QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
  time.setTimeZone(QTimeZone::utc());
  return time.toLocalTime().toString(QStringLiteral("dd/MM/yyyy hh:mm:ss"));
}

KeyNames NamesIn(const lookups::Directory& directory) {
  return [&directory](std::string_view column, int key) {
    if (column.ends_with("ScrId") || column == "ScriptId") {
      return QString::fromStdString(directory.Scrip(ScripId{key}).name);
    }
    if (column.ends_with("AcId")) {
      return QString::fromStdString(directory.Account(AccountId{key}).number);
    }
    if (column == "ToClientID") {
      return QString::fromStdString(directory.Client(ClientId{key}).code);
    }
    return QString();
  };
}

std::vector<Difference> Differences(const std::string& old_rows, const std::string& new_rows,
                                    const KeyNames& names) {
  const QJsonObject before = Parsed(old_rows);
  const QJsonObject after = Parsed(new_rows);
  if (after.contains(QLatin1String("counts"))) {
    return Counts(after[QLatin1String("counts")].toObject());
  }
  QStringList tables = before.keys() + after.keys();
  tables.removeDuplicates();
  std::vector<Difference> differences;
  for (const QString& table : tables) {
    CompareTable(table, before[table].toObject(), after[table].toObject(), names, differences);
  }
  return differences;
}

Refusal NoRight(Right right) {
  switch (right) {
    case kDelete:
      return {Tr("Changes", "You have no Right to Delete Records."), {}};
    case kAdminister:
      return {Tr("Changes", "Only a User who may Administer can do this."), {}};
    default:
      return {Tr("Changes", "You may Look at Records, not Enter or Change them."), {}};
  }
}

Refusal ChangedMeanwhile(const Entry& theirs, bool names_it, const NewEntry& ours) {
  constexpr std::size_t kMost = 12;
  const QString who =
      names_it ? Tr("Changes", "%1 Changed this Record on %2 at %3 while You had it Open.")
               : Tr("Changes",
                    "%1 Changed many Records on %2 at %3 while You had this one Open. It may be "
                    "among them.");
  QStringList lines{who.arg(theirs.user, theirs.host, TimeOf(theirs)),
                    Tr("Changes", "What differs: as it is Stored, and as You Entered it.")};
  const std::vector<Difference> differences = Differences(ours.old_rows, ours.new_rows);
  for (const Difference& one : std::span(differences).first(std::min(kMost, differences.size()))) {
    lines << Tr("Changes", "%1, %2: %3 | %4").arg(one.place, one.column, one.before, one.after);
  }
  if (differences.size() > kMost) {
    lines << Tr("Changes", "and %1 more").arg(differences.size() - kMost);
  }
  lines << Tr("Changes", "Save again to put Yours in its place, or cancel to keep what is Stored.");
  return {lines.join(QLatin1Char('\n')), Field::kNone};
}

Refusal DeletedMeanwhile(const Entry& theirs, bool names_it) {
  const QString who =
      names_it
          ? Tr("Changes",
               "%1 Deleted this Record on %2 at %3 while You had it Open.\nSave again to Enter "
               "it as a new one, or cancel.")
          : Tr("Changes",
               "This Record was Deleted while You had it Open. %1 Changed many Records on %2 "
               "at %3.\nSave again to Enter it as a new one, or cancel.");
  return {who.arg(theirs.user, theirs.host, TimeOf(theirs)), Field::kNone};
}

}  // namespace quorvane::changes
