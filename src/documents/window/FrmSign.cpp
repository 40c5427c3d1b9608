#include "documents/window/FrmSign.h"

#include "controls/ProgressDialog.h"
#include "controls/Style.h"

#include <QColorDialog>
#include <QHBoxLayout>
#include <QPrintDialog>
#include <QPrinter>

#include <utility>

namespace quorvane::documents {
namespace {

using controls::ZENButton;
using View = DocumentViewer::View;

QColor ChooseColor(QWidget* parent, const QColor& before) {
  return QColorDialog::getColor(before, parent, FrmSign::tr("Background"));
}

bool SetUpPrinter(QWidget* parent, QPrinter& printer, int pages) {
  QPrintDialog dialog(&printer, parent);
  dialog.setOption(QAbstractPrintDialog::PrintPageRange, pages > 1);
  if (pages > 1) {
    dialog.setMinMax(1, pages);
  }
  return dialog.exec() == QDialog::Accepted;
}

}  // namespace

DocumentDialogs::DocumentDialogs() : choose_color(ChooseColor), set_up_printer(SetUpPrinter) {}

FrmSign::FrmSign(const controls::Guard& guard, DocumentDialogs dialogs, app::IniFile settings)
    : dialogs_(std::move(dialogs)),
      settings_(std::move(settings)),
      viewer_(new DocumentViewer()),
      cmd_Rotate(new ZENButton(QStringLiteral("cmd_Rotate"), tr("&Rotate"))),
      cmdpicview(new ZENButton(QStringLiteral("cmdpicview"), tr("Actual &Size"))),
      CmdPrint(new ZENButton(QStringLiteral("CmdPrint"), tr("Prin&t..."))),
      CmdBGClr(new ZENButton(QStringLiteral("CmdBGClr"), tr("&Background..."))) {
  setObjectName(QStringLiteral("FrmSign"));
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addLayout(Buttons());
  rows->addWidget(viewer_, 1);
  Connect(guard);
  Enable();
}

QLayout* FrmSign::Buttons() {
  auto* columns = new QHBoxLayout();
  for (ZENButton* button : {cmd_Rotate, cmdpicview, CmdPrint, CmdBGClr}) {
    columns->addWidget(button);
  }
  columns->addStretch();
  return columns;
}

void FrmSign::Connect(const controls::Guard& guard) {
  const auto on_click = [&](const ZENButton* button, void (FrmSign::*handler)()) {
    guard.Connect(button, &QAbstractButton::clicked, this, handler,
                  button->objectName() + QLatin1String("_Click"));
  };
  on_click(cmd_Rotate, &FrmSign::cmd_Rotate_Click);
  on_click(cmdpicview, &FrmSign::cmdpicview_Click);
  on_click(CmdPrint, &FrmSign::CmdPrint_Click);
  on_click(CmdBGClr, &FrmSign::CmdBGClr_Click);
  connect(viewer_, &DocumentViewer::Changed, this, &FrmSign::Enable);
}

void FrmSign::Enable() {
  for (ZENButton* button : {cmd_Rotate, cmdpicview, CmdPrint}) {
    button->setEnabled(!viewer_->IsEmpty());
  }
}

void FrmSign::cmd_Rotate_Click() {
  viewer_->Rotate90();
}

void FrmSign::cmdpicview_Click() {
  const bool fits = viewer_->CurrentView() == View::kFit;
  viewer_->SetView(fits ? View::kActual : View::kFit);
  cmdpicview->setText(fits ? tr("&Fit to Window") : tr("Actual &Size"));
}

void FrmSign::CmdPrint_Click() {
  QPrinter printer(QPrinter::HighResolution);
  controls::ProposePrinter(printer, settings_);
  if (dialogs_.set_up_printer(this, printer, viewer_->PageCount())) {
    controls::ProgressDialog progress(this);
    viewer_->PrintImage(printer, progress);
  }
}

void FrmSign::CmdBGClr_Click() {
  const QColor color = dialogs_.choose_color(this, viewer_->BackgroundColor());
  if (color.isValid()) {
    viewer_->SetBackgroundColor(color);
  }
}

}  // namespace quorvane::documents
