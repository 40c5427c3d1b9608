#include "portfolio/trades/window/ColumnPane.h"

#include "controls/Style.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace quorvane::portfolio {
namespace {

using controls::Mask;
using controls::Row;

enum Column { kHeading, kFirst, kSecond, kMeaning };

constexpr std::size_t kSampleRows = 40;
constexpr std::size_t kShownTrades = 8;

QString Utf8(const std::string& text) {
  return QString::fromStdString(text);
}

QString MeaningChoices() {
  QString list = QStringLiteral("#0;") + ColumnPane::tr("(not read)") + QLatin1Char('|');
  for (std::size_t i = 0; i < kMeanings; ++i) {
    list += QStringLiteral("#%1;%2|").arg(i + 1).arg(TextOf(static_cast<Meaning>(i)));
  }
  return list;
}

/// The meaning of a column, counted from 1; 0 when it has none.
int MeaningAt(const ColumnMap& map, int column) {
  for (std::size_t i = 0; i < kMeanings; ++i) {
    const std::vector<int>& columns = map.columns[i];
    if (std::ranges::find(columns, column) != columns.end()) {
      return static_cast<int>(i) + 1;
    }
  }
  return 0;
}

Row TradeRow(const TradeFile& file, const Trade& trade) {
  const bool bought = trade.side == records::Side::kPurchase;
  const QString side = bought ? ColumnPane::tr("Purchase") : ColumnPane::tr("Sale");
  return {
      .id = static_cast<int>(trade.line),
      .cells = {text::FormatDmy(trade.day), Utf8(file.exchanges[trade.exchange]),
                Utf8(file.scrips[trade.scrip].Shown()), side, trade.quantity.Number(), trade.rate}};
}

}  // namespace

ColumnPane::ColumnPane(QWidget* parent) : QWidget(parent) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  auto* head = new QLabel(
      tr("The headings of this file are not known yet. Choose what its columns mean; the "
         "trades below show how it is then read. The choice is kept for the next file."));
  head->setWordWrap(true);
  VSC = new controls::Grid(QStringLiteral("VSC"), tr("Columns of the file"));
  VSC->SetColumns({{.heading = tr("Heading")},
                   {.heading = tr("First Row")},
                   {.heading = tr("Second Row")},
                   {.heading = tr("Meaning"), .choices = MeaningChoices(), .editable = true}});
  VSC->SetSortable(false);
  VSP = new controls::Grid(QStringLiteral("VSP"), tr("First trades of the file"));
  VSP->SetColumns({{.heading = tr("Date"), .mask = Mask::kDate},
                   {.heading = tr("Exchange")},
                   {.heading = tr("Script")},
                   {.heading = tr("Purchase or Sale")},
                   {.heading = tr("Quantity"), .mask = Mask::kQuantity},
                   {.heading = tr("Rate"), .mask = Mask::kAmount}});
  ChkMonth = new QCheckBox(tr("&Month before Day"));
  ChkMonth->setObjectName(QStringLiteral("ChkMonth"));
  LblMissing = new QLabel;
  LblMissing->setObjectName(QStringLiteral("LblMissing"));
  LblMissing->setWordWrap(true);
  CmdUse = new controls::ZENButton(QStringLiteral("CmdUse"), tr("&Use these Columns"));
  auto* foot = new QHBoxLayout;
  foot->addWidget(ChkMonth);
  foot->addWidget(LblMissing, 1);
  foot->addWidget(CmdUse);
  rows->addWidget(head);
  rows->addWidget(VSC, 3);
  rows->addWidget(VSP, 2);
  rows->addLayout(foot);
}

void ColumnPane::Ask(const OpenedTrades& opened, const std::vector<TradeLayout>& layouts,
                     const TradeReading& reading) {
  reading_ = reading;
  header_ = GuessHeader(opened.table, layouts).value_or(FoundHeader{});
  sample_.rows.clear();
  for (std::size_t i = header_.row; i < opened.table.rows.size(); ++i) {
    if (sample_.rows.size() > kSampleRows) {
      break;
    }
    sample_.rows.push_back(opened.table.rows[i]);
  }
  ChkMonth->setChecked(header_.map.days == DayOrder::kMonthFirst);
  FillColumns();
  Preview();
}

void ColumnPane::FillColumns() {
  std::vector<controls::Row> rows;
  const auto cell = [&](std::size_t row, int column) {
    return row < sample_.rows.size() ? Utf8(files::CellAt(sample_.rows[row], column)) : QString();
  };
  const int columns =
      sample_.rows.empty() ? 0 : static_cast<int>(sample_.rows.front().cells.size());
  rows.reserve(static_cast<std::size_t>(columns));
  for (int column = 0; column < columns; ++column) {
    rows.push_back({.id = column + 1,
                    .cells = {cell(0, column), cell(1, column), cell(2, column),
                              MeaningAt(header_.map, column)}});
  }
  VSC->SetRows(std::move(rows));
}

ColumnMap ColumnPane::Map() const {
  ColumnMap map;
  map.days = ChkMonth->isChecked() ? DayOrder::kMonthFirst : DayOrder::kDayFirst;
  for (int row = 0; row < VSC->Model().RowCount(); ++row) {
    if (const int meaning = VSC->Model().Value(row, kMeaning).toInt(); meaning > 0) {
      map.Add(static_cast<Meaning>(meaning - 1), VSC->Model().IdOf(row) - 1);
    }
  }
  return map;
}

std::optional<FoundHeader> ColumnPane::Chosen() const {
  FoundHeader chosen{header_.row, Map(), {}, {}};
  return WhatIsMissing(chosen.map) ? std::nullopt : std::optional(chosen);
}

void ColumnPane::Preview() {
  const ColumnMap map = Map();
  const auto missing = WhatIsMissing(map);
  CmdUse->setEnabled(!missing);
  if (VSC->WidthsByHand().isEmpty()) {
    VSC->FitColumns();  // for the meanings that were chosen
  }
  if (missing) {
    LblMissing->setText(tr("Still missing: %1").arg(*missing));
    VSP->SetRows({});
    return;
  }
  ErrorList errors;
  Progress silent;
  const TradeFile file = TradesIn(sample_, {0, map, {}, {}}, reading_, errors, silent);
  LblMissing->setText(errors.Empty() ? tr("%1 trades in the first %2 rows.")
                                           .arg(file.trades.size())
                                           .arg(sample_.rows.empty() ? 0 : sample_.rows.size() - 1)
                                     : Utf8(errors.Errors().front().Text()));
  std::vector<controls::Row> rows;
  for (const Trade& trade : file.trades) {
    if (rows.size() < kShownTrades) {
      rows.push_back(TradeRow(file, trade));
    }
  }
  VSP->SetRows(std::move(rows));
}

}  // namespace quorvane::portfolio
