#include "reports/tax/Schedule112A.h"

#include "core/text/Amounts.h"
#include "core/text/Csv.h"

#include <algorithm>
#include <array>
#include <compare>
#include <tuple>

namespace quorvane::tax_year {
namespace {

using tax::UploadLayout;

constexpr std::string_view kNoIsin = "INNOTREQUIRD";
constexpr std::string_view kAllScrips = "CONSOLIDATED";
constexpr std::string_view kBefore = "BE";
constexpr std::string_view kAfter = "AE";

constexpr std::string_view kAcquiredHeading = "Share/Unit acquired(1a)";
constexpr std::string_view kTransferredHeading = "Share/Unit Transferred(1b)";
constexpr std::array<std::string_view, 13> kHeadings{
    "ISIN Code(2)",
    "Name of the Share/Unit(3)",
    "No. of Shares/Units(4)",
    "Sale-price per Share/Unit(5)",
    "Full Value of Consideration(Total Sale Value)(6) = 4 * 5",
    "Cost of acquisition without indexation(7)",
    "Cost of acquisition(8)",
    "If the long term capital asset was acquired before 01.02.2018(9)",
    "Fair Market Value per share/unit as on 31st January 2018(10)",
    "Total Fair Market Value of capital asset as per section 55(2)(ac)(11) = 4 * 10",
    "Expenditure wholly and exclusively in connection with transfer(12)",
    "Total deductions(13) = 7 + 12",
    "Balance(14) = 6 - 13"};

/// The sums of a row.
struct UploadRow {
  bool before = false;      ///< acquired before 1-Feb-2018
  bool old_rates = false;   ///< sold before the rates changed within the year
  bool all_scrips = false;  ///< of shares acquired later
  std::string isin{};
  std::string name{};
  ScripId scrip{};
  Shares quantity{};
  Paise sale{};
  Paise cost{};
  Paise cost_taken{};
  Paise fair{};
  Paise expenses{};

  bool TakesTogether(const UploadRow& other) const {
    return !before && !other.before && old_rates == other.old_rates &&
           (all_scrips || (scrip == other.scrip && isin == other.isin));
  }

  void Add(const UploadRow& other) {
    quantity += other.quantity;
    sale += other.sale;
    cost += other.cost;
    cost_taken += other.cost_taken;
    expenses += other.expenses;
  }
};

class Writer {
 public:
  explicit Writer(UploadLayout layout) : layout_(layout) {
    Text(kAcquiredHeading);
    if (HasTransferred()) {
      Text(kTransferredHeading);
    }
    std::ranges::for_each(kHeadings, [this](std::string_view heading) { Text(heading); });
    End();
  }

  void Add(const UploadRow& row) {
    Text(row.before ? kBefore : kAfter);
    if (HasTransferred()) {
      Text(row.old_rates ? kBefore : kAfter);
    }
    Text(row.all_scrips ? kNoIsin : row.isin);
    Text(row.all_scrips ? kAllScrips : row.name);
    if (row.all_scrips) {
      return AddSums(row);
    }
    Number(row.quantity.Number());
    PerShare(row.sale, row.quantity);
    Money(row.sale);
    Money(row.cost_taken);
    Money(row.cost);
    Money(row.before ? std::min(row.sale, row.fair) : Paise());
    PerShare(row.fair, row.quantity);
    Money(row.fair);
    Money(row.expenses);
    Money(row.cost_taken + row.expenses);
    Money(row.sale - row.cost_taken - row.expenses);
    End();
  }

  std::string Take() && { return std::move(out_); }

 private:
  bool HasTransferred() const { return layout_ == UploadLayout::kAcquiredTransferred; }

  /// Columns 6, 8 and 12 alone.
  void AddSums(const UploadRow& row) {
    Empty(2);
    Money(row.sale);
    Empty(1);
    Money(row.cost);
    Empty(3);
    Money(row.expenses);
    Empty(2);
    End();
  }

  void Separate() {
    if (!first_) {
      out_ += ',';
    }
    first_ = false;
  }
  void Text(std::string_view text) {
    Separate();
    text::AppendCsvField(out_, text);
  }
  void Empty(int cells) {
    for (int i = 0; i < cells; ++i) {
      Separate();
    }
  }
  void Number(double number) {
    Separate();
    text::AppendExact(out_, number);
  }
  void Money(Paise amount) {
    Separate();
    text::AppendPaise(out_, amount.Count());
  }

  /// Enough decimals that the product with the quantity is the sum again.
  void PerShare(Paise amount, Shares quantity) {
    Number(quantity ? text::Shares(amount.Rupees() / quantity.Number()).Number() : 0);
  }
  void End() {
    out_ += '\n';
    first_ = true;
  }

  UploadLayout layout_;
  std::string out_;
  bool first_ = true;
};

UploadRow RowOf(const TaxPiece& piece, const tax::Rules& rules, const lookups::Directory& directory,
                const ScripIsins& isins) {
  const UploadLayout layout = *rules.Upload();
  UploadRow row{.before = piece.AcquiredBefore2018()};
  row.all_scrips = !row.before && layout == UploadLayout::kConsolidated;
  row.old_rates = layout == UploadLayout::kAcquiredTransferred &&
                  piece.section != rules.SectionOf(piece.kind, rules.Year().LastDay());
  row.scrip = piece.of.place.scrip;
  row.isin = IsinOn(isins, row.scrip, piece.of.sold).toStdString();
  if (row.isin.empty()) {
    row.isin = kNoIsin;
  }
  row.name = directory.Scrip(row.scrip).name;
  row.quantity = piece.of.quantity;
  row.sale = piece.sale;
  row.cost = piece.cost;
  row.cost_taken = piece.cost_taken;
  row.fair = piece.fair.value_or(Paise());
  row.expenses = piece.expenses;
  return row;
}

/// By scrip, those acquired before 1-Feb-2018 first, and at the end what is in one row.
void Sort(std::vector<UploadRow>& rows) {
  std::ranges::stable_sort(rows, {}, [](const UploadRow& row) {
    return std::tuple(row.all_scrips, row.all_scrips ? std::string_view() : row.name, !row.before,
                      !row.old_rates);
  });
}

}  // namespace

QString IsinOn(const ScripIsins& isins, ScripId scrip, Date day) {
  const auto found = isins.find(scrip);
  if (found == isins.end()) {
    return {};
  }
  QString isin = found->second.front().isin;
  for (const rates::DatedIsin& one : found->second) {
    const auto from = text::ParseDmy(one.from_day);
    if (!from || *from <= day) {
      isin = one.isin;
    }
  }
  return isin;
}

Result<std::string> MakeSchedule112A(const tax::Rules& rules, const TaxYear& year,
                                     const lookups::Directory& directory, const ScripIsins& isins) {
  if (!rules.Upload()) {
    return Refusal{QStringLiteral("There is no upload file of schedule 112A for %1.")
                       .arg(rules.Year().Text())};
  }
  std::vector<UploadRow> rows;
  for (const TaxPiece& piece : year.pieces) {
    if (piece.kind != tax::GainKind::kLongTermStt) {
      continue;
    }
    const UploadRow row = RowOf(piece, rules, directory, isins);
    const auto same = std::ranges::find_if(
        rows, [&](const UploadRow& other) { return row.TakesTogether(other); });
    if (same == rows.end()) {
      rows.push_back(row);
    } else {
      same->Add(row);
    }
  }
  if (rows.empty()) {
    return Refusal{
        QStringLiteral("No sale of %1 falls under schedule 112A.").arg(rules.Year().Text())};
  }
  Sort(rows);
  Writer writer(*rules.Upload());
  std::ranges::for_each(rows, [&](const UploadRow& row) { writer.Add(row); });
  return std::move(writer).Take();
}

}  // namespace quorvane::tax_year
