#include "reports/booklet/YearBooklet.h"

#include "core/lookups/Directory.h"
#include "core/text/Tr.h"
#include "reports/dividends/DividendReport.h"
#include "reports/mis/MisReport.h"
#include "reports/performance/Returns.h"
#include "reports/tax/TaxDocument.h"

#include <algorithm>
#include <array>
#include <map>
#include <numeric>

namespace quorvane::booklet {
namespace {

using reporting::BookletPart;
using reporting::Cell;
using reporting::ReportDocument;
using reporting::RowKind;
using text::Paise;

constexpr int kLargest = 15;

constexpr std::array kParts{
    PartEntry{Part::kValue, "value", QT_TRANSLATE_NOOP("Booklet", "Value and Largest Holdings")},
    PartEntry{Part::kHoldings, "holdings", QT_TRANSLATE_NOOP("Booklet", "Holdings by Client")},
    PartEntry{Part::kGains, "gains", QT_TRANSLATE_NOOP("Booklet", "Gains by Kind")},
    PartEntry{Part::kTax, "tax", QT_TRANSLATE_NOOP("Booklet", "Tax Year")},
    PartEntry{Part::kDividends, "dividends", QT_TRANSLATE_NOOP("Booklet", "Dividends")},
    PartEntry{Part::kReturns, "returns", QT_TRANSLATE_NOOP("Booklet", "Returns")},
    PartEntry{Part::kMonths, "months", QT_TRANSLATE_NOOP("Booklet", "Value by Month")},
};

/// A text of the booklet itself, which is in English as all reports are.
QString TitleOf(Part part) {
  return QString::fromLatin1(kParts[static_cast<std::size_t>(part)].title);
}

Paise SumOf(const charts::ChartData& chart) {
  Paise sum;
  for (const charts::ChartData::Series& series : chart.series) {
    sum += Paise(std::accumulate(series.paise.begin(), series.paise.end(), std::int64_t{0}));
  }
  return sum;
}

class BookletMaker {
 public:
  BookletMaker(database::Connection& connection, const BookletQuery& query, Progress& progress)
      : connection_(connection),
        query_(query),
        progress_(progress),
        directory_(connection),
        clients_(query.family ? tax_year::FamilyByCode(connection, directory_, query.of.client)
                              : std::vector{query.of.client}),
        period_{query.of.year.FirstDay(), LastDayOf(query)} {}

  reporting::Booklet Make() {
    using Work = void (BookletMaker::*)();
    constexpr std::array<Work, kParts.size()> kWorks{
        &BookletMaker::AddValue, &BookletMaker::AddHoldings,  &BookletMaker::AddGains,
        &BookletMaker::AddTax,   &BookletMaker::AddDividends, &BookletMaker::AddReturns,
        &BookletMaker::AddMonths};
    MakeCover();
    for (const Part part : query_.parts) {
      progress_.ThrowIfCancelled();
      (this->*kWorks[static_cast<std::size_t>(part)])();
    }
    return std::move(booklet_);
  }

 private:
  QString NameOf(ClientId client) const {
    return QString::fromStdString(directory_.Client(client).name);
  }

  /// The family, or the one client.
  QString Whole() const {
    return clients_.size() > 1 ? QStringLiteral("Family") : NameOf(clients_.front());
  }

  QStringList Names() const {
    QStringList names;
    for (const ClientId client : clients_) {
      names << NameOf(client);
    }
    return names;
  }

  QString LastDay() const { return text::FormatDmy(period_.to); }

  bool Has(Part part) const { return query_.parts.contains(part); }

  void MakeCover() {
    booklet_.cover << (query_.family ? QStringLiteral("Family Booklet")
                                     : QStringLiteral("Portfolio Booklet"))
                   << QStringLiteral("Financial Year %1").arg(query_.of.year.Text())
                   << (period_.to == query_.of.year.LastDay()
                           ? QStringLiteral("From %1 To %2")
                           : QStringLiteral("From %1 To %2, the year is not over"))
                          .arg(text::FormatDmy(period_.from), LastDay())
                   << QStringLiteral(" ");
    booklet_.cover += Names();
    booklet_.cover << QStringLiteral(" ")
                   << QStringLiteral("Made on %1").arg(text::FormatDmy(query_.today));
  }

  void Add(Part part, const QString& of_whom, ReportDocument document,
           std::vector<charts::ChartData> charts = {}) {
    std::erase_if(charts, [](const charts::ChartData& chart) { return chart.IsEmpty(); });
    booklet_.parts.push_back({TitleOf(part), of_whom, std::move(document), std::move(charts)});
  }

  mis::MisQuery MisQueryOf(mis::ReportKind kind, mis::Grouping grouping) const {
    mis::MisQuery query = mis::MisQuery::OfYear(kind, grouping, query_.of.year);
    query.detail = false;
    query.period = period_;
    query.clients = clients_;
    return query;
  }

  void AddValue() {
    charts::ChartData chart =
        mis::Composition(connection_, MisQueryOf(mis::ReportKind::kMarket, mis::Grouping::kScrip),
                         kLargest, progress_);
    value_ = SumOf(chart);
    ReportDocument document = charts::TableOf(chart);
    document.titles = {QStringLiteral("Value and Largest Holdings on %1").arg(LastDay()),
                       Names().join(QStringLiteral(", "))};
    if (chart.IsEmpty()) {
      document.notes.prepend(QStringLiteral("Nothing that has a market rate is held."));
    }
    chart.notes.clear();
    Add(Part::kValue, Whole(), std::move(document), {std::move(chart)});
  }

  void AddHoldings() {
    Add(Part::kHoldings, Whole(),
        mis::MakeMisReport(
            connection_, MisQueryOf(mis::ReportKind::kMarket, mis::Grouping::kClient), progress_));
  }

  void AddGains() {
    const mis::MisQuery query = MisQueryOf(mis::ReportKind::kProfitLoss, mis::Grouping::kClient);
    const mis::HoldingsRead read = mis::ReadHoldings(connection_, query, period_, progress_);
    charts::ChartData chart = mis::GainsByKind(read.holdings, query);
    ReportDocument document = charts::TableOf(chart);
    document.titles = {QStringLiteral("Gains by Kind (From %1 To %2)")
                           .arg(text::FormatDmy(period_.from), LastDay()),
                       Names().join(QStringLiteral(", "))};
    document.tables.back().titles = {QStringLiteral("By Month")};
    if (clients_.size() > 1) {
      document.tables.insert(document.tables.begin(), GainsByClient(read.holdings, query));
    }
    if (chart.IsEmpty()) {
      document.notes << QStringLiteral("No sale of the period gained or lost anything.");
    }
    document.notes << QStringLiteral(
        "The gains are those of the capital-gain statement without charges; the tax law counts "
        "them otherwise.");
    document.notes += records::FaultTexts(connection_, read.faults);
    Add(Part::kGains, Whole(), std::move(document), {std::move(chart)});
  }

  /// The gains of each client, whose sums are those of all months.
  reporting::Table GainsByClient(std::span<const mis::Holding> holdings,
                                 const mis::MisQuery& query) const {
    std::map<ClientId, std::vector<mis::Holding>> by_client;
    for (const mis::Holding& holding : holdings) {
      by_client[holding.client].push_back(holding);
    }
    charts::ChartData chart;
    chart.kind = charts::ChartKind::kStacked;
    chart.category_heading = QStringLiteral("Client");
    for (const ClientId client : clients_) {
      const charts::ChartData own = mis::GainsByKind(by_client[client], query);
      chart.categories << NameOf(client);
      chart.series.resize(own.series.size());
      for (std::size_t i = 0; i < own.series.size(); ++i) {
        chart.series[i].name = own.series[i].name;
        chart.series[i].paise.push_back(std::accumulate(
            own.series[i].paise.begin(), own.series[i].paise.end(), std::int64_t{0}));
      }
    }
    reporting::Table table = std::move(charts::TableOf(chart).tables.front());
    table.titles = {QStringLiteral("By Client")};
    return table;
  }

  void AddTax() {
    const Result<tax_year::Law> law = tax_year::Law::Load(query_.data_folder, query_.of.year);
    if (!law) {
      ReportDocument document;
      document.titles = {QStringLiteral("Tax Year %1").arg(query_.of.year.Text())};
      document.notes = {QStringLiteral("Left out: %1").arg(law.Why().text)};
      return Add(Part::kTax, Whole(), std::move(document));
    }
    const std::vector<tax_year::Member> members =
        tax_year::ReadMembers(connection_, directory_, *law, clients_, progress_);
    if (members.size() > 1) {
      Add(Part::kTax, Whole(), tax_year::MakeFamilyDocument(law->rules, members, directory_));
    }
    for (const tax_year::Member& member : members) {
      Add(Part::kTax, NameOf(member.tax.year.of.client),
          tax_year::MakeTaxDocument(law->rules, member.tax, member.points, directory_));
    }
  }

  /// Of everyone who received any.
  void AddDividends() {
    const auto windows = tax::AdvanceTaxWindows(query_.data_folder, query_.of.year);
    bool any = false;
    for (const ClientId client : clients_) {
      progress_.ThrowIfCancelled();
      ReportDocument document =
          dividends::MakeDividendReport(connection_, {{client, query_.of.year}, period_}, windows);
      const bool received =
          std::ranges::any_of(document.tables.front().rows,
                              [](const reporting::Row& row) { return row.kind == RowKind::kData; });
      if (received) {
        any = true;
        Add(Part::kDividends, NameOf(client), std::move(document));
      }
    }
    if (!any) {
      ReportDocument document;
      document.titles = {QStringLiteral("Dividends (From %1 To %2)")
                             .arg(text::FormatDmy(period_.from), LastDay())};
      document.notes = {QStringLiteral("No dividend of the period is recorded.")};
      Add(Part::kDividends, Whole(), std::move(document));
    }
  }

  const performance::Returns& TheReturns() {
    if (!returns_) {
      returns_ = performance::ReadReturns(
          connection_,
          {.clients = {clients_.begin(), clients_.end()}, .from = period_.from, .to = period_.to},
          progress_);
    }
    return *returns_;
  }

  /// The reports differ in what they count, so that their values may.
  void NoteOtherValue(ReportDocument& document) {
    const Paise closing = TheReturns().whole.closing;
    if (value_ && *value_ != closing) {
      document.notes << QStringLiteral(
                            "The value on %1 is %2 here and %3 in the part \"%4\". Here the "
                            "documents of all years count, without futures and options, and shares "
                            "without any rate at cost; there the documents of the year count, and "
                            "shares without any rate are left out.")
                            .arg(LastDay(), text::FormatAmount(closing.Rupees()),
                                 text::FormatAmount(value_->Rupees()), TitleOf(Part::kValue));
    }
  }

  void AddReturns() {
    ReportDocument document =
        performance::MakeReturnsDocument(TheReturns(), performance::Months::kWithout);
    NoteOtherValue(document);
    document.notes += records::FaultTexts(connection_, TheReturns().faults);
    Add(Part::kReturns, Whole(), std::move(document));
  }

  void AddMonths() {
    ReportDocument document = performance::MakeMonthsDocument(TheReturns());
    NoteOtherValue(document);
    charts::ChartData chart = performance::ValueChart(TheReturns());
    chart.subtitle.clear();  // whose it is stands above it
    Add(Part::kMonths, Whole(), std::move(document), {std::move(chart)});
  }

  database::Connection& connection_;
  const BookletQuery& query_;
  Progress& progress_;
  lookups::Directory directory_;
  std::vector<ClientId> clients_;
  reporting::Period period_;
  std::optional<Paise> value_;  ///< of the part of the value
  std::optional<performance::Returns> returns_;
  reporting::Booklet booklet_;
};

}  // namespace

std::span<const PartEntry> Parts() {
  return kParts;
}

std::optional<Part> PartNamed(std::string_view name) {
  const auto* const found =
      std::ranges::find_if(kParts, [&](const PartEntry& entry) { return name == entry.name; });
  return found == kParts.end() ? std::nullopt : std::optional(found->part);
}

text::Date LastDayOf(const BookletQuery& query) {
  return std::min(query.today, query.of.year.LastDay());
}

Result<reporting::Booklet> MakeBooklet(database::Connection& connection, const BookletQuery& query,
                                       Progress& progress) {
  if (query.parts.empty()) {
    return Refusal{Tr("Booklet", "Select a part of the booklet!"), Field::kRecord};
  }
  if (query.today < query.of.year.FirstDay()) {
    return Refusal{Tr("Booklet", "The year %1 has not begun.").arg(query.of.year.Text())};
  }
  return BookletMaker(connection, query, progress).Make();
}

}  // namespace quorvane::booklet
