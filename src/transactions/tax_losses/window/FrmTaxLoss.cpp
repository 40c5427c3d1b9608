#include "transactions/tax_losses/window/FrmTaxLoss.h"

#include "controls/Style.h"
#include "core/app/Session.h"
#include "core/text/Tr.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace quorvane::tax_losses {
namespace {

using controls::Answer;
using controls::Grid;
using controls::Icon;
using controls::Mask;
using controls::ZENButton;

enum Column { kLossYear, kKind, kAmount };

QString YearChoices(text::FinancialYear year) {
  QStringList choices;
  for (const text::FinancialYear loss_year : LossYears(year)) {
    choices << QStringLiteral("#%1;%2").arg(loss_year.FirstCalendarYear()).arg(loss_year.Text());
  }
  return choices.join(QLatin1Char('|'));
}

QString KindChoices() {
  QStringList choices;
  for (const tax::LossKindName& name : tax::kLossKinds) {
    choices << QStringLiteral("#%1;%2").arg(static_cast<int>(name.kind)).arg(Tr("Tax", name.title));
  }
  return choices.join(QLatin1Char('|'));
}

}  // namespace

FrmTaxLoss::FrmTaxLoss(controls::Desk& desk)
    : ChildWindow(desk, QStringLiteral("FrmTaxLoss"),
                  app::ClientTitle(tr("Losses Brought Forward"), desk.session), {620, 420}),
      of_(app::CurrentOf(desk.session)),
      book_(*desk.session.connection, of_),
      LblTotal(new QLabel),
      VSF(new Grid(QStringLiteral("VSF"), tr("Losses of earlier years"))),
      CmdAddRow(new ZENButton(QStringLiteral("CmdAddRow"), tr("Add Ro&w"))),
      CmdDelRow(new ZENButton(QStringLiteral("CmdDelRow"), tr("&Delete Row"))),
      CmdUpdate(new ZENButton(QStringLiteral("CmdUpdate"), tr("&Update"))),
      CmdExit(new ZENButton(QStringLiteral("CmdExit"), tr("E&xit"))) {
  Build();
  BuildGrid();
  for (const Field field : {Field::kYear, Field::kKind, Field::kAmount}) {
    Hold({{field, VSF->objectName()}});
  }
  stored_ = book_.List();
  Fill();
}

void FrmTaxLoss::Build() {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                             controls::kMargin);
  layout->setSpacing(controls::kSpacing);
  auto* what = new QLabel(tr("What is left of losses of earlier years when %1 begins, as in the "
                             "return of the year before.")
                              .arg(of_.year.Text()));
  what->setWordWrap(true);
  LblTotal->setObjectName(QStringLiteral("LblTotal"));
  LblTotal->setWordWrap(true);
  CmdExit->SetCancels(true);
  CmdDelRow->SetCancels(true);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(CmdAddRow);
  buttons->addWidget(CmdDelRow);
  buttons->addStretch(1);
  buttons->addWidget(CmdUpdate);
  buttons->addWidget(CmdExit);
  layout->addWidget(what);
  layout->addWidget(VSF, 1);
  layout->addWidget(LblTotal);
  layout->addLayout(buttons);
  PressOn(QKeySequence::Save, CmdUpdate);
  OnClick(CmdAddRow, &FrmTaxLoss::CmdAddRow_Click);
  OnClick(CmdDelRow, &FrmTaxLoss::CmdDelRow_Click);
  OnClick(CmdUpdate, &FrmTaxLoss::CmdUpdate_Click);
  OnClick(CmdExit, &FrmTaxLoss::CmdExit_Click);
}

void FrmTaxLoss::BuildGrid() {
  VSF->SetSortable(false);
  VSF->SetColumns(
      {{.heading = tr("Year of the Loss"), .choices = YearChoices(of_.year), .editable = true},
       {.heading = tr("Kind"), .choices = KindChoices(), .editable = true},
       {.heading = tr("Amount"), .mask = Mask::kAmount, .editable = true}});
  On(&VSF->Model(), &controls::GridModel::CellEdited, &FrmTaxLoss::VSF_AfterEdit,
     QStringLiteral("VSF_AfterEdit"));
  On(VSF, &Grid::LastCellLeft, &FrmTaxLoss::VSF_LastCellLeft, QStringLiteral("VSF_KeyDown"));
}

void FrmTaxLoss::Fill() {
  std::vector<controls::Row> rows;
  for (const TaxLoss& loss : stored_) {
    rows.push_back({.cells = {loss.loss_year.FirstCalendarYear(), static_cast<int>(loss.kind),
                              loss.amount.Rupees()}});
  }
  VSF->SetRows(std::move(rows));
  Changed();
}

std::vector<TaxLoss> FrmTaxLoss::Entered() const {
  const controls::GridModel& model = VSF->Model();
  std::vector<TaxLoss> losses;
  losses.reserve(static_cast<std::size_t>(model.RowCount()));
  for (int row = 0; row < model.RowCount(); ++row) {
    losses.push_back({of_.client, of_.year,
                      text::FinancialYear(model.Value(row, kLossYear).toInt()),
                      static_cast<tax::LossKind>(model.Value(row, kKind).toInt()),
                      text::Paise::OfRupees(model.Number(row, kAmount))});
  }
  return losses;
}

void FrmTaxLoss::Changed() {
  const std::vector<TaxLoss> losses = Entered();
  LblTotal->setText(
      losses.empty()
          ? tr("No loss is brought forward into %1. Add Row enters one.").arg(of_.year.Text())
          : TotalsText(losses));
  CmdDelRow->setEnabled(!losses.empty());
  CmdUpdate->setEnabled(losses != stored_);
}

void FrmTaxLoss::VSF_AfterEdit() {
  Changed();
}

// Enter on a last row without an amount is the way out of the grid.
void FrmTaxLoss::VSF_LastCellLeft() {
  const int row = VSF->CurrentRow();
  if (row < 0 || VSF->Model().Number(row, kAmount) == 0) {
    CmdAddRow->setFocus(Qt::TabFocusReason);
  } else {
    CmdAddRow_Click();
  }
}

void FrmTaxLoss::CmdAddRow_Click() {
  const int row =
      VSF->AddRow({.cells = {of_.year.Previous().FirstCalendarYear(),
                             static_cast<int>(tax::kLossKinds.front().kind), QVariant()}});
  VSF->setCurrentIndex(VSF->Model().index(row, kLossYear));
  VSF->setFocus(Qt::OtherFocusReason);
  Changed();
}

void FrmTaxLoss::CmdDelRow_Click() {
  VSF->RemoveCurrentRow();
  Changed();
}

void FrmTaxLoss::ShowBadRow(const Refusal& refusal, const std::vector<TaxLoss>& losses) {
  for (std::size_t count = 1; count <= losses.size(); ++count) {
    if (tax::CheckTaxLosses(std::span(losses).first(count))) {
      VSF->SelectRow(static_cast<int>(count) - 1);
      break;
    }
  }
  Show(refusal);
}

void FrmTaxLoss::CmdUpdate_Click() {
  const std::vector<TaxLoss> losses = Entered();
  if (const MaybeRefusal refusal = book_.Save(losses)) {
    ShowBadRow(*refusal, losses);
    return;
  }
  stored_ = book_.List();
  Fill();
  Say().Inform(tr("Update Successfully!"));
}

void FrmTaxLoss::CmdExit_Click() {
  close();
}

bool FrmTaxLoss::MayClose() {
  return Entered() == stored_ ||
         Say().Ask(tr("The losses are not saved. Close without saving them?"), Answer::kNo,
                   Icon::kInformation);
}

}  // namespace quorvane::tax_losses
