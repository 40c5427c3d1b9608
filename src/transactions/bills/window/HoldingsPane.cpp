#include "transactions/bills/window/HoldingsPane.h"

#include "controls/Style.h"
#include "core/text/Amounts.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QTabBar>
#include <QVBoxLayout>

#include <algorithm>

namespace quorvane::bills {
namespace {

constexpr int kLeastName = 80;

using controls::Grid;
using controls::Mask;
using controls::Row;

QString Signed(const records::BillLine& line) {
  const QLatin1Char sign(line.IsPurchase() ? '+' : '-');
  return sign + text::FormatAmount(line.quantity.Number());
}

}  // namespace

HoldingsPane::HoldingsPane(const BillContext& context)
    : context_(context),
      caption_(new QLabel()),
      tabs_(new QTabWidget()),
      VS3(new Grid(QStringLiteral("VS3"), tr("Balance of the demat account"))),
      VS2(new Grid(QStringLiteral("VS2"), tr("Quantities of the bill"))),
      VSAvg(new Grid(QStringLiteral("VSAvg"), tr("Average rates of the demat account"))),
      ImgRefresh(new controls::ZENButton(QStringLiteral("ImgRefresh"), tr("Refresh"))) {
  caption_->setObjectName(QStringLiteral("LblBalance"));
  VS3->SetColumns({{.heading = tr("Scrip")},
                   {.heading = tr("Balance"), .mask = Mask::kAmount},
                   {.heading = tr("Rate"), .mask = Mask::kAmount},
                   {.heading = tr("Held Since"), .mask = Mask::kDate}});
  VS2->SetColumns({{.heading = tr("Scrip")},
                   {.heading = tr("Quantity"), .alignment = controls::Alignment::kRight}});
  VS2->SetSortable(false);
  VSAvg->SetColumns(
      {{.heading = tr("Scrip")}, {.heading = tr("Average Rate"), .mask = Mask::kAmount}});
  // What counts is the numbers: a long name is cut where the pane is narrow.
  for (Grid* grid : {VS3, VS2, VSAvg}) {
    grid->horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
  }
  Arrange();
}

void HoldingsPane::Arrange() {
  tabs_->addTab(VS3, tr("Balance"));
  tabs_->addTab(VS2, tr("Bill"));
  tabs_->addTab(VSAvg, tr("Averages"));
  tabs_->setDocumentMode(true);
  tabs_->tabBar()->setFocusPolicy(Qt::NoFocus);
  tabs_->setCornerWidget(ImgRefresh);
  ImgRefresh->setToolTip(tr("Reads the balance again (F5)"));
  ImgRefresh->setFocusPolicy(Qt::ClickFocus);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(controls::kTightSpacing);
  rows->addWidget(caption_);
  rows->addWidget(tabs_, 1);
}

void HoldingsPane::Clear() {
  caption_->setText(tr("Balance in Demat A/c No. - %1").arg(QString()));
  lots_.clear();
  FillBalance();
  FillAverages({});
}

void HoldingsPane::ShowAccount(const QString& account_number) {
  caption_->setText(tr("Balance in Demat A/c No. - %1").arg(account_number));
  const BillEntry& entry = context_.entry;
  if (entry.IsOpen()) {
    ShowBalance();
    ShowAverages(entry.Movements());
    return;
  }
  const std::vector<records::Movement> movements =
      ReadAccount(context_.Connection(), entry.Place());
  lots_ = ReadBalance(context_.Connection(), entry.Place(), movements);
  FillBalance();
  ShowAverages(movements);
}

void HoldingsPane::ShowBalance() {
  lots_ = context_.entry.Balance();
  FillBalance();
}

void HoldingsPane::ShowRecordedAverages() {
  ShowAverages(ReadAccount(context_.Connection(), context_.entry.Place()));
}

void HoldingsPane::ShowAverages(std::span<const records::Movement> movements) {
  database::Connection& connection = context_.Connection();
  const ledger::Place place = context_.entry.Place();
  RebuildAverageRates(connection, place, movements);
  FillAverages(ReadAverageRates(connection, place));
}

void HoldingsPane::BringUp(ScripId scrip) {
  FillBalance(scrip);
  const bool held = std::ranges::any_of(
      lots_, [scrip](const HeldLot& one) { return one.lot.scrip == scrip && one.lot.quantity; });
  VS3->SelectRow(held ? 0 : -1);
}

void HoldingsPane::FillBalance(ScripId first) {
  std::vector<HeldLot> arranged = lots_;
  bills::Arrange(arranged, first);
  std::vector<Row> rows;
  rows.reserve(arranged.size());
  for (const HeldLot& held : arranged) {
    rows.push_back(
        {.id = held.lot.id.value,
         .cells = {context_.scrips.NameOf(held.lot.scrip), held.lot.quantity.Number(),
                   held.lot.rate, held.since ? text::FormatDmy(*held.since) : QString()}});
  }
  VS3->SetRows(std::move(rows));
  KeepNumbersInSight();
}

/// The names give way to the numbers and dates only so far.
void HoldingsPane::KeepNumbersInSight() {
  int width = kLeastName + VS3->verticalScrollBar()->sizeHint().width() + 2 * VS3->frameWidth();
  for (int column = 1; column < VS3->Model().columnCount(); ++column) {
    width += VS3->columnWidth(column);
  }
  VS3->setMinimumWidth(width);
}

void HoldingsPane::ShowMoves() {
  std::vector<Row> rows;
  for (const records::BillLine& line : context_.entry.Current().lines) {
    rows.push_back({.cells = {context_.scrips.NameOf(line.scrip), Signed(line)}});
  }
  VS2->SetRows(std::move(rows));
}

void HoldingsPane::FillAverages(const std::vector<AverageRate>& rates) {
  std::vector<Row> rows;
  rows.reserve(rates.size());
  for (const AverageRate& rate : rates) {
    rows.push_back(
        {.id = rate.scrip.value, .cells = {context_.scrips.NameOf(rate.scrip), rate.rate}});
  }
  VSAvg->SetRows(std::move(rows));
}

std::optional<records::Lot> HoldingsPane::CurrentLot() const {
  const auto found = std::ranges::find(lots_, LotId{VS3->CurrentId()},
                                       [](const HeldLot& held) { return held.lot.id; });
  return found == lots_.end() ? std::nullopt : std::optional(found->lot);
}

std::optional<records::Lot> HoldingsPane::OnlyLotOf(ScripId scrip) const {
  std::optional<records::Lot> only;
  for (const HeldLot& held : lots_) {
    if (held.lot.scrip != scrip || held.lot.quantity <= text::Shares()) {
      continue;
    }
    if (only) {
      return std::nullopt;
    }
    only = held.lot;
  }
  return only;
}

void HoldingsPane::FocusBalance() {
  tabs_->setCurrentWidget(VS3);
  VS3->setFocus(Qt::OtherFocusReason);
  if (VS3->CurrentRow() < 0) {
    VS3->SelectRow(0);
  }
}

}  // namespace quorvane::bills
