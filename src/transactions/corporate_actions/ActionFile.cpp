#include "transactions/corporate_actions/ActionFile.h"

#include "core/actions/Terms.h"
#include "core/files/TableFile.h"
#include "core/rates/PriceText.h"
#include "core/text/Amounts.h"
#include "core/text/Tr.h"
#include "transactions/corporate_actions/ActionLayouts.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

namespace quorvane::corporate_actions {
namespace {

constexpr std::size_t kMostActions = 100'000;  ///< rows; ten years of an exchange have 21,000
constexpr std::size_t kWidest = 255;           ///< characters of a note

QString Text(const std::string& utf8) {
  return QString::fromStdString(utf8);
}

Refusal Invalid(const QString& why) {
  return {Tr("ActionList", "Invalid File.") + QLatin1Char('\n') + why, {}};
}

bool IsAbsent(const std::string& text) {
  return text.empty() || text == "-";
}

std::optional<int> WholeNumber(std::string_view text) {
  const bool is_whole =
      text.find_first_not_of("0123456789") == std::string_view::npos && text.size() <= 8;
  const std::optional<double> number = is_whole ? text::ParseNumber(text) : std::nullopt;
  return number ? std::optional(static_cast<int>(*number)) : std::nullopt;
}

/// A day as a list writes it, as eight digits, or as a workbook counts it: days since 30 December
/// 1899.
std::optional<text::Date> DayIn(const std::string& text) {
  const auto number = WholeNumber(text);
  if (!number) {
    return rates::DayOf(text);
  }
  constexpr int kYear = 10'000;
  constexpr int kMonth = 100;
  if (text.size() == 8) {
    return text::MakeDate(*number % kMonth, *number % kYear / kMonth, *number / kYear);
  }
  const bool is_counted = *number > 20'000 && *number < 100'000;
  return is_counted ? std::optional(*text::MakeDate(30, 12, 1899) + std::chrono::days(*number))
                    : std::nullopt;
}

/// The National exchange's series of shares; the others are bonds, units, warrants, preference or
/// partly paid shares, also when they stand under the symbol of the share.
bool IsOfShares(const std::string& series) {
  constexpr std::array<std::string_view, 7> kShares{"", "EQ", "BE", "BZ", "SM", "ST", "SZ"};
  return std::ranges::find(kShares, series) != kShares.end();
}

/// A purpose that was cut may have lost digits of its last number, which then counts for nothing.
QString WithoutCutNumber(QString purpose) {
  constexpr qsizetype kFirstCut = 24;
  while (purpose.size() >= kFirstCut && (purpose.back().isDigit() || purpose.back() == u'.')) {
    purpose.chop(1);
  }
  return purpose;
}

class ActionRows {
 public:
  explicit ActionRows(const FoundActionLayout& layout) : layout_(layout) {
    file_.source = layout.layout->source;
  }

  void Add(const files::TextRow& row) {
    if (!IsOfShares(Cell(row, kSeriesField))) {
      ++file_.left_out;
      return;
    }
    ActionRow record{.source = file_.source, .line = row.line};
    record.code = Cell(row, kCodeField);
    record.symbol = Cell(row, kSymbolField);
    record.isin = IsAbsent(Cell(row, kIsinField)) ? std::string() : Cell(row, kIsinField);
    record.name = Text(Cell(row, kNameField));
    record.purpose = Text(Cell(row, kPurposeField));
    if (record.code.empty() && record.symbol.empty()) {
      return Fail(row.line, Tr("ActionList", "there is no code"));
    }
    const bool is_own = file_.source == ActionSource::kOwn;
    if (is_own ? ReadOwn(row, record) : ReadListed(row, record)) {
      file_.rows.push_back(std::move(record));
    }
  }

  Result<ActionFile> Take() {
    if (!errors_.isEmpty()) {
      return Invalid(ErrorText());
    }
    if (file_.rows.empty() && file_.left_out == 0) {
      return Invalid(Tr("ActionList", "The file holds no corporate action."));
    }
    return std::move(file_);
  }

 private:
  const std::string& Cell(const files::TextRow& row, ActionField field) const {
    return layout_.Cell(row, field);
  }

  bool ReadListed(const files::TextRow& row, ActionRow& record) {
    record.meaning = ReadPurpose(layout_.layout->cuts_purposes ? WithoutCutNumber(record.purpose)
                                                               : record.purpose);
    if (!ReadDays(row, record)) {
      return false;
    }
    const bool says = !record.meaning.actions.empty() || !record.meaning.left_over.isEmpty();
    file_.left_out += says ? 0 : 1;
    return says;
  }

  bool ReadOwn(const files::TextRow& row, ActionRow& record) {
    const auto kind = actions::KindOf(Cell(row, kKindField));
    if (!kind) {
      Fail(row.line,
           Tr("ActionList", "%1 is no kind of corporate action").arg(Text(Cell(row, kKindField))));
      return false;
    }
    Action action;
    action.kind = *kind;
    action.note = Text(Cell(row, kNoteField)).left(kWidest);
    record.other_code = Cell(row, kOtherField);
    double of_new = 0;
    double of_old = 0;
    const bool read = ReadDay(row, kAllotmentField, action.allotment_day) &&
                      ReadNumber(row, kNewField, of_new) && ReadNumber(row, kOldField, of_old) &&
                      ReadNumber(row, kPriceField, action.price) &&
                      ReadNumber(row, kPercentField, action.cost_percent);
    action.new_shares = Shares(of_new);
    action.old_shares = Shares(of_old);
    record.meaning.actions.push_back(std::move(action));
    return read && ReadDays(row, record);
  }

  bool ReadDays(const files::TextRow& row, ActionRow& record) {
    if (!ReadDay(row, kExDayField, record.ex_day) ||
        !ReadDay(row, kRecordDayField, record.record_day)) {
      return false;
    }
    for (Action& action : record.meaning.actions) {
      action.ex_day = record.ex_day;
      action.record_day = record.record_day;
    }
    return true;
  }

  bool ReadDay(const files::TextRow& row, ActionField field, QString& into) {
    const std::string& text = Cell(row, field);
    if (IsAbsent(text)) {
      return true;
    }
    const auto day = DayIn(text);
    if (!day) {
      Fail(row.line, Tr("ActionList", "%1 is no date").arg(Text(text)));
      return false;
    }
    into = text::FormatDmy(*day);
    return true;
  }

  bool ReadNumber(const files::TextRow& row, ActionField field, double& into) {
    const std::string& text = Cell(row, field);
    if (IsAbsent(text)) {
      return true;
    }
    const std::optional<double> number = text::ParseNumber(text);
    if (!number || *number < 0 || *number > 1e9) {
      Fail(row.line, Tr("ActionList", "%1 is no number that can stand there").arg(Text(text)));
      return false;
    }
    into = *number;
    return true;
  }

  void Fail(std::size_t line, const QString& what) {
    errors_ << Tr("ActionList", "Line %1: %2.").arg(static_cast<qulonglong>(line)).arg(what);
  }

  QString ErrorText() const {
    constexpr qsizetype kShown = 10;
    QStringList lines = errors_.mid(0, kShown);
    if (errors_.size() > kShown) {
      lines << Tr("ActionList", "... and %1 more.").arg(errors_.size() - kShown);
    }
    return lines.join(QLatin1Char('\n'));
  }

  const FoundActionLayout& layout_;
  ActionFile file_;
  QStringList errors_;
};

}  // namespace

Result<ActionFile> ReadActionTable(const files::TextTable& table) {
  if (table.rows.empty()) {
    return Invalid(Tr("ActionList", "The file holds no corporate action."));
  }
  const auto layout = LayoutOf(table.rows.front());
  if (!layout) {
    return Invalid(ExpectedActionHeadings());
  }
  if (table.rows.size() > kMostActions) {
    return Invalid(Tr("ActionList", "The file holds more than can be read."));
  }
  ActionRows rows(*layout);
  for (std::size_t row = 1; row < table.rows.size(); ++row) {
    rows.Add(table.rows[row]);
  }
  return rows.Take();
}

Result<ActionFile> ReadActionFile(const QString& path) {
  try {
    return ReadActionTable(files::ReadTableFile(path));
  } catch (const files::TableError& error) {
    return Invalid(QString::fromUtf8(error.what()));
  }
}

}  // namespace quorvane::corporate_actions
