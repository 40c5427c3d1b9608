#include "core/tax/Rules.h"

#include "core/files/TableFile.h"
#include "core/text/Amounts.h"
#include "core/text/Ratio.h"
#include "core/text/Tr.h"

#include <algorithm>
#include <span>
#include <utility>

namespace quorvane::tax {
namespace {

constexpr std::int64_t kAllPercent = 100'000'000;

/// The rows below the headings of a file. A cell that is not what it should be is an error of the
/// file, which the user sees with its line.
class RuleFile {
 public:
  RuleFile(const QString& folder, const char* name, std::size_t columns)
      : name_(QString::fromLatin1(name)), table_(files::ReadTableFile(folder + u'/' + name_)) {
    for (const files::TextRow& row : Rows()) {
      if (row.cells.size() != columns) {
        FailAt(row);
      }
    }
  }

  std::span<const files::TextRow> Rows() const {
    return std::span(table_.rows).subspan(std::min<std::size_t>(1, table_.rows.size()));
  }

  [[noreturn]] void FailAt(const files::TextRow& row) const {
    files::Fail(Tr("Tax", "Line %1 of tax/%2 cannot be read.")
                    .arg(static_cast<qulonglong>(row.line))
                    .arg(name_));
  }

  text::Date DayIn(const files::TextRow& row, int column) const {
    const auto day = text::ParseDmy(files::CellAt(row, column));
    return day ? *day : (FailAt(row), text::Date());
  }

  double NumberIn(const files::TextRow& row, int column) const {
    const auto number = text::ParseNumber(files::CellAt(row, column));
    return number ? *number : (FailAt(row), 0);
  }

  /// The place of a cell among the words that it may be.
  template <std::size_t n>
  std::size_t WordIn(const files::TextRow& row, int column,
                     const std::array<std::string_view, n>& words) const {
    const auto found = std::ranges::find(words, std::string_view(files::CellAt(row, column)));
    return found == words.end() ? (FailAt(row), 0)
                                : static_cast<std::size_t>(found - words.begin());
  }

 private:
  QString name_;
  files::TextTable table_;
};

QString TextIn(const files::TextRow& row, int column) {
  return QString::fromStdString(files::CellAt(row, column));
}

template <class List>
void SortByDay(List& list) {
  std::ranges::stable_sort(list, {}, [](const auto& one) { return one.from; });
}

/// The last one that begins on or before the day.
template <class List>
const auto* InForce(const List& list, text::Date day) {
  const auto after =
      std::ranges::upper_bound(list, day, {}, [](const auto& one) { return one.from; });
  return after == list.begin() ? nullptr : &std::prev(after)->value;
}

}  // namespace

text::Paise Percent::Of(text::Paise amount) const {
  return text::Paise(text::Proportion(amount.Count(), millionths_, kAllPercent));
}

bool Rules::LoadYear(const QString& folder) {
  enum { kYear, kExemption, kUpload, kSource, kColumns };
  static constexpr std::array<std::string_view, 4> kUploads{"", "acquired", "acquired-transferred",
                                                            "consolidated"};
  const RuleFile file(folder, "years.csv", kColumns);
  for (const files::TextRow& row : file.Rows()) {
    if (text::FinancialYear::Parse(files::CellAt(row, kYear)) != year_) {
      continue;
    }
    exemption_ = files::CellAt(row, kExemption).empty()
                     ? text::Paise()
                     : text::Paise::OfRupees(file.NumberIn(row, kExemption));
    if (const std::size_t upload = file.WordIn(row, kUpload, kUploads)) {
      upload_ = static_cast<UploadLayout>(upload - 1);
    }
    return true;
  }
  return false;
}

void Rules::LoadSections(const QString& folder) {
  enum { kKind, kFrom, kSection, kPercent, kSource, kColumns };
  const RuleFile file(folder, "sections.csv", kColumns);
  for (const files::TextRow& row : file.Rows()) {
    const auto kind = GainKindOf(files::CellAt(row, kKind));
    if (!kind) {
      file.FailAt(row);
    }
    Section section{TextIn(row, kSection)};
    const std::string& percent = files::CellAt(row, kPercent);
    section.exempt = percent == "exempt";
    if (!section.exempt && !percent.empty()) {
      section.percent = Percent(file.NumberIn(row, kPercent));
    }
    sections_[static_cast<std::size_t>(*kind)].push_back({file.DayIn(row, kFrom), section});
  }
  std::ranges::for_each(sections_, [](auto& list) { SortByDay(list); });
}

void Rules::LoadBuyBacks(const QString& folder) {
  enum { kFrom, kTreatment, kSection, kSource, kColumns };
  static constexpr std::array<std::string_view, 3> kTreatments{"gains", "exempt", "dividend"};
  const RuleFile file(folder, "buy-backs.csv", kColumns);
  for (const files::TextRow& row : file.Rows()) {
    buy_backs_.push_back({file.DayIn(row, kFrom),
                          {static_cast<BuyBackTreatment>(file.WordIn(row, kTreatment, kTreatments)),
                           TextIn(row, kSection)}});
  }
  SortByDay(buy_backs_);
}

void Rules::LoadLosses(const QString& folder) {
  enum { kKind, kYears, kSource, kColumns };
  const RuleFile file(folder, "losses.csv", kColumns);
  for (const files::TextRow& row : file.Rows()) {
    const auto kind = LossKindOf(files::CellAt(row, kKind));
    if (!kind) {
      file.FailAt(row);
    }
    carry_years_[static_cast<std::size_t>(*kind) - 1] =
        static_cast<int>(file.NumberIn(row, kYears));
  }
}

Result<Rules> Rules::Load(const QString& data_folder, text::FinancialYear year) {
  const QString folder = data_folder + QStringLiteral("/tax");
  Rules rules(year);
  if (!rules.LoadYear(folder)) {
    return Refusal{
        Tr("Tax", "The tax law of %1 is not in the data of this program.").arg(year.Text()),
        Field::kYear};
  }
  rules.LoadSections(folder);
  rules.LoadBuyBacks(folder);
  rules.LoadLosses(folder);
  rules.windows_ = AdvanceTaxWindows(data_folder, year);
  return rules;
}

const Section& Rules::SectionOf(GainKind kind, text::Date sold) const {
  static const Section kNone;
  const Section* section = InForce(sections_[static_cast<std::size_t>(kind)], sold);
  return section == nullptr ? kNone : *section;
}

const BuyBackRule& Rules::BuyBackOn(text::Date day) const {
  static const BuyBackRule kNone;
  const BuyBackRule* rule = InForce(buy_backs_, day);
  return rule == nullptr ? kNone : *rule;
}

int Rules::WindowOf(text::Date day) const {
  const auto found = std::ranges::find_if(
      windows_, [&](const AdvanceTaxWindow& window) { return window.Contains(day); });
  return found == windows_.end() ? 0 : static_cast<int>(found - windows_.begin()) + 1;
}

}  // namespace quorvane::tax
