#include "portfolio/trades/window/ImpTrades.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace quorvane::portfolio {

using controls::ZENButton;

void ImpTrades::Build() {
  auto* rows = new QVBoxLayout(this);
  BuildHead(*rows);
  Columns = new ColumnPane;
  Columns->hide();
  Lines = new LinesPane;
  BuildFoot();
  rows->addWidget(Columns, 1);
  rows->addWidget(Lines, 1);
  rows->addWidget(Foot);
  Connect();
}

void ImpTrades::Connect() {
  On(Target->CboAccount, &QComboBox::currentIndexChanged, &ImpTrades::Choice_Changed,
     QStringLiteral("CboAccount_Changed"));
  On(Target->CboBroker, &QComboBox::currentIndexChanged, &ImpTrades::Choice_Changed,
     QStringLiteral("CboBroker_Changed"));
  On(Target->CboExchange, &QComboBox::currentIndexChanged, &ImpTrades::Choice_Changed,
     QStringLiteral("CboExchange_Changed"));
  On(Target->ChkJoin, &QCheckBox::toggled, &ImpTrades::Choice_Changed,
     QStringLiteral("ChkJoin_Click"));
  On(Lines->CboShow, &QComboBox::currentIndexChanged, &ImpTrades::CboShow_Changed,
     QStringLiteral("CboShow_Changed"));
  On(Lines->VSF, &controls::Grid::CurrentRowChanged, &ImpTrades::VSF_RowChanged,
     QStringLiteral("VSF_RowChanged"));
  On(&Lines->VSF->Model(), &controls::GridModel::CellEdited, &ImpTrades::VSF_CellEdited,
     QStringLiteral("VSF_CellEdited"));
  On(&Columns->VSC->Model(), &controls::GridModel::CellEdited, &ImpTrades::Columns_Edited,
     QStringLiteral("VSC_CellEdited"));
  On(Columns->ChkMonth, &QCheckBox::toggled, &ImpTrades::Columns_Edited,
     QStringLiteral("ChkMonth_Click"));
  OnClick(Columns->CmdUse, &ImpTrades::CmdUse_Click);
}

void ImpTrades::BuildHead(QVBoxLayout& rows) {
  auto* files = new QHBoxLayout;
  CmdFile = new ZENButton(QStringLiteral("CmdFile"), tr("&Files..."));
  CmdFile->setToolTip(tr("Trade books: .csv, .xlsx, .xls or .ods; several files at once"));
  LblFile = new QLabel;
  LblFile->setObjectName(QStringLiteral("LblFile"));
  LblFile->setWordWrap(true);
  files->addWidget(CmdFile);
  files->addWidget(LblFile, 1);
  Target = new TargetPane;
  rows.addLayout(files);
  rows.addWidget(Target);
  OnClick(CmdFile, &ImpTrades::CmdFile_Click);
}

void ImpTrades::BuildFoot() {
  Foot = new QWidget;
  auto* rows = new QVBoxLayout(Foot);
  rows->setContentsMargins(0, 0, 0, 0);
  auto* scrips = new QHBoxLayout;
  CboScrip = NewBox(QStringLiteral("CboScrip"));
  AddLabelled(*scrips, tr("S&cript"), CboScrip, 1);
  auto* buttons = new QHBoxLayout;
  const auto add = [&](QHBoxLayout* row, ZENButton*& button, const QString& name,
                       const QString& text, void (ImpTrades::*handler)()) {
    button = new ZENButton(name, text);
    row->addWidget(button);
    OnClick(button, handler);
  };
  add(scrips, CmdAssign, QStringLiteral("CmdAssign"), tr("Assi&gn"), &ImpTrades::CmdAssign_Click);
  add(scrips, CmdNew, QStringLiteral("CmdNew"), tr("&New Script"), &ImpTrades::CmdNew_Click);
  CmdAssign->setToolTip(tr("The trades of the current line's script are trades of the chosen one"));
  CmdNew->setToolTip(tr("The current line's script is recorded with the trades"));
  add(scrips, CmdConfirm, QStringLiteral("CmdConfirm"), tr("Confirm &Probable Scripts"),
      &ImpTrades::CmdConfirm_Click);
  add(buttons, CmdLook, QStringLiteral("CmdLook"), tr("&Look Again"), &ImpTrades::CmdLook_Click);
  buttons->addStretch();
  add(buttons, CmdSave, QStringLiteral("CmdSave"), tr("&Save Ticked"), &ImpTrades::CmdSave_Click);
  add(buttons, CmdExit, QStringLiteral("CmdExit"), tr("&Exit"), &ImpTrades::CmdExit_Click);
  rows->addLayout(scrips);
  rows->addLayout(buttons);
}

}  // namespace quorvane::portfolio
