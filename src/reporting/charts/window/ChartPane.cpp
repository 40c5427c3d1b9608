#include "reporting/charts/window/ChartPane.h"

#include "controls/Style.h"
#include "reporting/output/WriteReport.h"

#include <QBoxLayout>
#include <QDir>
#include <QLabel>
#include <QPrintDialog>
#include <QPrinter>
#include <QSplitter>

#include <stdexcept>

namespace quorvane::charts {
namespace {

constexpr QSize kPicture(1400, 900);  // pixels
constexpr int kPictureShare = 440;
constexpr int kTableShare = 540;
constexpr int kChoiceWidth = 150;

QString SuggestedPath(const ChartData& chart) {
  return QDir::home().filePath(reporting::FileStem({chart.title, chart.subtitle}) +
                               QStringLiteral(".png"));
}

}  // namespace

ChartPane::ChartPane(const controls::Guard& guard, reporting::ReportDesk& desk,
                     const QStringList& titles)
    : desk_(desk),
      picture_(new ChartPictureView),
      VSChart(new reporting::ReportGridView(QStringLiteral("VSChart"), tr("The chart as a table"))),
      CmdPrintChart(new controls::ZENButton(QStringLiteral("CmdPrintChart"), tr("Print"))),
      CmdSaveChart(new controls::ZENButton(QStringLiteral("CmdSaveChart"), tr("Save Picture"))),
      CmdChartPages(new controls::ZENButton(QStringLiteral("CmdChartPages"), tr("Table"))) {
  Arrange(titles);
  CmdPrintChart->setToolTip(tr("Print the picture"));
  CmdSaveChart->setToolTip(tr("Save the picture as PNG"));
  CmdChartPages->setToolTip(tr("Show the table as pages"));
  VSChart->SetHint(tr("The figures appear here."));
  const auto connect_click = [&](controls::ZENButton* button, void (ChartPane::*handler)()) {
    guard.Connect(button, &QAbstractButton::clicked, this, handler,
                  button->objectName() + QStringLiteral("_Click"));
    button->setEnabled(false);
  };
  connect_click(CmdPrintChart, &ChartPane::CmdPrintChart_Click);
  connect_click(CmdSaveChart, &ChartPane::CmdSaveChart_Click);
  connect_click(CmdChartPages, &ChartPane::CmdChartPages_Click);
  if (CmbChart != nullptr) {
    guard.Connect(CmbChart, &QComboBox::currentIndexChanged, this, &ChartPane::CmbChart_Click,
                  QStringLiteral("CmbChart_Click"));
  }
}

void ChartPane::Arrange(const QStringList& titles) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, controls::kTightSpacing, 0, 0);
  auto* head = new QHBoxLayout;
  if (!titles.isEmpty()) {
    CmbChart = new controls::ComboBox;
    CmbChart->setObjectName(QStringLiteral("CmbChart"));
    CmbChart->setAccessibleName(tr("Chart"));
    CmbChart->setMinimumWidth(kChoiceWidth);
    CmbChart->SetTexts(titles);
    CmbChart->ById(0);
    head->addWidget(CmbChart);
  }
  head->addStretch(1);
  for (controls::ZENButton* button : {CmdChartPages, CmdSaveChart, CmdPrintChart}) {
    head->addWidget(button);
  }
  rows->addLayout(head);
  auto* middle = new QSplitter;
  middle->setChildrenCollapsible(false);
  middle->addWidget(picture_);
  middle->addWidget(VSChart);
  middle->setSizes({kPictureShare, kTableShare});
  rows->addWidget(middle, 1);
}

// A picture whose words cannot be read is of no use: where there is no room for both, the table is
// left to its button.
void ChartPane::resizeEvent(QResizeEvent* event) {
  constexpr int kRoomForBoth = 700;
  QWidget::resizeEvent(event);
  VSChart->setVisible(width() >= kRoomForBoth);
}

void ChartPane::Show(const ChartData& chart) {
  chart_ = chart;
  picture_->SetData(chart);
  VSChart->SetDocument(TableOf(chart));
  VSChart->setToolTip(chart.notes.join(QLatin1Char('\n')));
  for (controls::ZENButton* button : {CmdChartPages, CmdSaveChart, CmdPrintChart}) {
    button->setEnabled(!chart.IsEmpty());
  }
}

int ChartPane::Choice() const {
  return CmbChart == nullptr ? 0 : CmbChart->CurrentPosition();
}

void ChartPane::Choose(int title) {
  if (CmbChart != nullptr) {
    CmbChart->setCurrentIndex(title);
  }
}

void ChartPane::CmbChart_Click() {
  if (CmbChart->HasChoice()) {
    Q_EMIT Chosen(Choice());
  }
}

void ChartPane::CmdPrintChart_Click() {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(chart_.title);
  printer.setPageSize(QPageSize(QPageSize::A4));
  printer.setPageOrientation(QPageLayout::Landscape);
  QPrintDialog dialog(&printer, this);
  if (dialog.exec() != QDialog::Accepted) {
    return;
  }
  QPainter painter;
  if (!painter.begin(&printer)) {
    throw std::runtime_error("the printer cannot be used");
  }
  const QRectF page = printer.pageRect(QPrinter::DevicePixel);
  const QImage image = picture_->Picture(kPicture);
  const QSizeF size = QSizeF(image.size()).scaled(page.size(), Qt::KeepAspectRatio);
  painter.drawImage(QRectF(QPointF(), size), image);
}

void ChartPane::CmdSaveChart_Click() {
  const QString path = desk_.ask_save_path(this, SuggestedPath(chart_));
  if (path.isEmpty()) {
    return;
  }
  if (!picture_->Picture(kPicture).save(path, "PNG")) {
    throw std::runtime_error("cannot write " + path.toStdString());
  }
  desk_.messages.Inform(tr("Saved as %1.").arg(path));
}

void ChartPane::CmdChartPages_Click() {
  desk_.show_report(TableOf(chart_), this);
}

}  // namespace quorvane::charts
