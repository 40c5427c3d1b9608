#include "controls/Style.h"
#include "portfolio/reconcile/window/FrmReconcile.h"

#include <QCheckBox>
#include <QLabel>
#include <QTabWidget>
#include <QVBoxLayout>

namespace quorvane::reconcile {

using controls::ComboBox;
using controls::Grid;
using controls::Mask;
using controls::ZENButton;

void FrmReconcile::Build() {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                           controls::kMargin);
  rows->addLayout(BuildChoice());
  LblFile = new QLabel(
      tr("Choose a statement of holdings of the depository or of its participant: PDF, comma "
         "separated text or workbook."));
  LblFile->setObjectName(QStringLiteral("LblFile"));
  LblFile->setWordWrap(true);
  rows->addWidget(LblFile);
  pages_ = new QTabWidget();
  pages_->setAccessibleName(tr("Pages of the comparison"));
  pages_->addTab(BuildComparison(), tr("Comparison"));
  VSM = new Grid(QStringLiteral("VSM"), tr("Opening stock that has no cost yet"));
  VSM->SetColumns({{.heading = tr("Year")},
                   {.heading = tr("Demat A/c No.")},
                   {.heading = tr("Script Name")},
                   {.heading = tr("Quantity"), .mask = Mask::kQuantity}});
  auto* marks = new QWidget();
  auto* mark_rows = new QVBoxLayout(marks);
  CmdFill = new ZENButton(QStringLiteral("CmdFill"), tr("Enter &Cost and Day"));
  mark_rows->addWidget(VSM, 1);
  mark_rows->addWidget(CmdFill, 0, Qt::AlignLeft);
  pages_->addTab(marks, tr("Opening Stock without Cost"));
  rows->addWidget(pages_, 1);
  rows->addLayout(BuildButtons());
  OnClick(CmdFill, &FrmReconcile::CmdFill_Click);
}

QLayout* FrmReconcile::BuildChoice() {
  fields_ = new paper::PaperFields(paper::PaperFields::Account::kInDoubt);
  fields_->Combo2->setToolTip(tr("Only for a statement that names no account"));
  TxtDate = fields_->Add(tr("As O&n"), QStringLiteral("TxtDate"), new controls::DateBox());
  TxtDate->setToolTip(tr("Only for a statement that names no day, or to compare with another one"));
  fields_->AddPassword();
  Watch(TxtDate);
  On(fields_->Combo1, &QComboBox::activated, &FrmReconcile::Combo1_Click,
     QStringLiteral("Combo1_Click"));
  On(fields_->Combo1, &ComboBox::Left, &FrmReconcile::Combo1_Click, QStringLiteral("Combo1_Click"));
  return fields_;
}

QWidget* FrmReconcile::BuildComparison() {
  auto* page = new QWidget();
  auto* rows = new QVBoxLayout(page);
  ChkDiffer = new QCheckBox(tr("Only D&ifferences"));
  ChkDiffer->setObjectName(QStringLiteral("ChkDiffer"));
  VSF = new Grid(QStringLiteral("VSF"), tr("Holdings in the books and in the statement"));
  VSF->SetColumns({{.heading = tr("Demat A/c No.")},
                   {.heading = tr("Script Name")},
                   {.heading = tr("In the Books"), .mask = Mask::kQuantity},
                   {.heading = tr("In the Statement"), .mask = Mask::kQuantity},
                   {.heading = tr("Difference"), .mask = Mask::kQuantity},
                   {.heading = tr("Result")},
                   {.heading = tr("Likely Cause")},
                   {.heading = tr("ISIN")}});
  auto* below = new QHBoxLayout();
  CmdOpen = new ZENButton(QStringLiteral("CmdOpen"), tr("Open the Ca&use"));
  CmdOpen->setToolTip(tr("The bill, the transfer, or the corporate action, ready to be entered"));
  Combo3 = new ComboBox();
  Combo3->setObjectName(QStringLiteral("Combo3"));
  Combo3->setAccessibleName(tr("Script of the ISIN"));
  auto* label = new QLabel(tr("&Script of the ISIN"));
  label->setBuddy(Combo3);
  CmdAssign = new ZENButton(QStringLiteral("CmdAssign"), tr("&Assign"));
  CmdAssign->setToolTip(tr("The script is known by this ISIN from now on"));
  below->addWidget(CmdOpen);
  below->addStretch();
  below->addWidget(label);
  below->addWidget(Combo3, 1);
  below->addWidget(CmdAssign);
  rows->addWidget(ChkDiffer);
  rows->addWidget(VSF, 1);
  rows->addLayout(below);
  On(ChkDiffer, &QCheckBox::toggled, &FrmReconcile::ChkDiffer_Click,
     QStringLiteral("ChkDiffer_Click"));
  On(VSF, &Grid::CurrentRowChanged, &FrmReconcile::VSF_RowColChange,
     QStringLiteral("VSF_RowColChange"));
  On(VSF, &Grid::RowActivated, &FrmReconcile::VSF_DblClick, QStringLiteral("VSF_DblClick"));
  OnClick(CmdOpen, &FrmReconcile::CmdOpen_Click);
  OnClick(CmdAssign, &FrmReconcile::CmdAssign_Click);
  return page;
}

QLayout* FrmReconcile::BuildButtons() {
  auto* buttons = new QHBoxLayout();
  const auto add = [&](ZENButton*& button, const QString& name, const QString& text,
                       const QString& tip, void (FrmReconcile::*handler)()) {
    button = new ZENButton(name, text);
    button->setToolTip(tip);
    buttons->addWidget(button);
    OnClick(button, handler);
  };
  add(CmdFile, QStringLiteral("CmdFile"), tr("From &File..."), tr("Reads a statement"),
      &FrmReconcile::CmdFile_Click);
  add(CmdAgain, QStringLiteral("CmdAgain"), tr("Co&mpare Again"),
      tr("Reads the same statement and the books once more"), &FrmReconcile::CmdAgain_Click);
  add(CmdOpening, QStringLiteral("CmdOpening"), tr("Take In as Openin&g Stock"),
      tr("For a new client: quantities from the statement, cost and day to be filled in later"),
      &FrmReconcile::CmdOpening_Click);
  buttons->addStretch();
  add(CmdOutput, QStringLiteral("CmdOutput"), tr("Out&put"), tr("Pages, Word, Excel, PDF and CSV"),
      &FrmReconcile::CmdOutput_Click);
  return buttons;
}

}  // namespace quorvane::reconcile
