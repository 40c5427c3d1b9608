#include "reporting/window/ReportWindow.h"

#include "controls/ProgressDialog.h"
#include "controls/Style.h"
#include "reporting/output/WriteReport.h"

#include <QApplication>
#include <QDir>
#include <QHeaderView>
#include <QLabel>
#include <QRadioButton>
#include <QShortcut>
#include <QSplitter>

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace quorvane::reporting {
namespace {

using controls::ZENButton;

constexpr int kBesideWidth = 230;
constexpr int kTextColumn = 1;            // of a grid with ticks
constexpr qsizetype kLongestClient = 40;  // letters of a file's name

}  // namespace

ReportWindow::ReportWindow(ReportDesk& desk, const QString& name, const QString& title,
                           QSize designed)
    : ChildWindow(desk, name, title, designed),
      desk_(desk),
      current_(desk.session.current),
      client_name_(desk.session.current_client_name),
      outputs_(new ReportOutputs(desk, TheGuard(), *this, this)) {
  BuildLayout();
}

void ReportWindow::BuildLayout() {
  VS = new ReportGridView(QStringLiteral("VS"), tr("Report"));
  VS->SetHint(tr("The report appears here."));
  CmdReport = new ZENButton(QStringLiteral("CmdReport"), tr("&Report"));
  AddReportKey();
  CmdOutput = new ZENButton(QStringLiteral("CmdOutput"), tr("Out&put"));
  CmdOutput->setToolTip(tr("Pages, Word, Excel, PDF and CSV"));
  CmdExit = new ZENButton(QStringLiteral("CmdExit"), tr("E&xit"));
  CmdExit->SetCancels(true);

  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                           controls::kMargin);
  rows->setSpacing(controls::kSpacing);
  options_ = new QVBoxLayout;
  rows->addLayout(options_);
  beside_ = new QWidget;
  beside_rows_ = new QVBoxLayout(beside_);
  beside_rows_->setContentsMargins(0, 0, 0, 0);
  beside_->hide();
  auto* middle = new QSplitter;
  middle->setChildrenCollapsible(false);
  middle->addWidget(beside_);
  middle->addWidget(VS);
  middle->setStretchFactor(0, 0);
  middle->setStretchFactor(1, 1);
  rows->addWidget(middle, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch(1);
  buttons->addWidget(CmdReport);
  buttons->addWidget(CmdOutput);
  buttons->addWidget(CmdExit);
  rows->addLayout(buttons);

  OnClick(CmdReport, &ReportWindow::CmdReport_Click);
  OnClick(CmdOutput, &ReportWindow::CmdOutput_Click);
  OnClick(CmdExit, &ReportWindow::CmdExit_Click);
  VS->setContextMenuPolicy(Qt::CustomContextMenu);
  On(VS, &QWidget::customContextMenuRequested, &ReportWindow::VS_MouseUp,
     QStringLiteral("VS_MouseUp"));
}

/// One key that no other window has.
void ReportWindow::AddReportKey() {
  auto* key = new QShortcut(QKeySequence(Qt::Key_F5), this);
  key->setContext(Qt::WidgetWithChildrenShortcut);
  CmdReport->setToolTip(tr("F5"));
  connect(key, &QShortcut::activated, CmdReport, [this] {
    if (SettleEntry()) {
      CmdReport->click();
    }
  });
}

/// Leaving the box under entry completes and checks it; a box that refuses keeps the focus.
bool ReportWindow::SettleEntry() {
  QWidget* elsewhere = CmdReport->isVisibleTo(this) ? CmdReport : CmdOutput;
  elsewhere->setFocus(Qt::ShortcutFocusReason);
  return elsewhere->hasFocus();
}

std::optional<text::FinancialYear> ReportWindow::PeriodYear() const {
  return current_ ? std::optional(current_->year) : std::nullopt;
}

void ReportWindow::MakePeriod(PeriodPane::Form form) {
  Hold({{Field::kFromDate, "Text1_0"}, {Field::kToDate, "Text1_1"}});
  period_ = new PeriodPane(TheGuard(), PeriodYear(), form);
  for (controls::DateBox* box : period_->Boxes()) {
    Watch(box);
  }
  connect(period_, &PeriodPane::MonthRefused, this,
          [this](const QString& text, QWidget* month) { ShowAt(text, month); });
}

void ReportWindow::AddPeriod(Months months) {
  MakePeriod(months == Months::kYes ? PeriodPane::Form::kRowWithMonths : PeriodPane::Form::kRow);
  auto* row = new QHBoxLayout;
  row->addWidget(period_);
  row->addStretch(1);
  options_->addLayout(row);
}

QBoxLayout* ReportWindow::AddPeriodFrame() {
  MakePeriod(PeriodPane::Form::kFrame);
  auto* row = new QHBoxLayout;
  row->addWidget(period_);
  options_->addLayout(row);
  return row;
}

TickGrid* ReportWindow::AddTickGrid(const QString& name, const QString& heading,
                                    const QString& purpose, int share) {
  auto* grid = new TickGrid(name, purpose, {{.heading = heading}});
  grid->horizontalHeader()->setSectionResizeMode(kTextColumn, QHeaderView::Stretch);
  grid->setMinimumHeight(2 * controls::kBoxHeight);  // several are above each other
  AddBesideReport(grid, share);
  return grid;
}

int ReportWindow::Choice::Index() const {
  return group->checkedId();
}

void ReportWindow::Choice::Choose(int index) const {
  group->button(index)->setChecked(true);
}

ReportWindow::Choice ReportWindow::MakeChoice(const QString& frame_name, const QString& title,
                                              const QString& array_name,
                                              const QStringList& captions) {
  auto* frame = new QGroupBox(title);
  frame->setObjectName(frame_name);
  auto* group = new QButtonGroup(frame);
  group->setObjectName(array_name);
  auto* rows = new QVBoxLayout(frame);
  rows->setContentsMargins(controls::kSpacing, controls::kTightSpacing, controls::kSpacing,
                           controls::kTightSpacing);
  rows->setSpacing(controls::kTightSpacing);
  for (int i = 0; i < captions.size(); ++i) {
    auto* button = new QRadioButton(captions[i]);
    button->setObjectName(QStringLiteral("%1_%2").arg(array_name).arg(i));
    button->setChecked(i == 0);
    group->addButton(button, i);
    rows->addWidget(button);
  }
  rows->addStretch(1);
  return {frame, group};
}

QTabWidget* ReportWindow::AddPage(const QString& title, QWidget* page) {
  if (pages_ == nullptr) {
    pages_ = new QTabWidget;
    pages_->setObjectName(QStringLiteral("Pages"));
    pages_->setAccessibleName(tr("Report and charts"));
    pages_->setDocumentMode(true);
    auto* middle = qobject_cast<QSplitter*>(VS->parentWidget());
    const int place = middle->indexOf(VS);
    pages_->addTab(VS, tr("Report"));
    middle->insertWidget(place, pages_);
    middle->setStretchFactor(place, 1);
  }
  pages_->addTab(page, title);
  return pages_;
}

void ReportWindow::AddBesideReport(QWidget* widget, int share) {
  beside_rows_->addWidget(widget, share);
  beside_->setMinimumWidth(kBesideWidth);
  beside_->show();
}

// The Tab key goes from the options over the ticks to the report and the buttons, although these
// were made first.
void ReportWindow::Start() {
  const std::vector<QWidget*> last{VS, CmdReport, CmdOutput, CmdExit};
  std::vector<QWidget*> order;
  for (QWidget* each = nextInFocusChain(); each != this; each = each->nextInFocusChain()) {
    // Only what takes the Tab key itself can be put into an order.
    const bool takes_tab = (each->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
    if (takes_tab && each->focusProxy() == nullptr && std::ranges::find(last, each) == last.end()) {
      order.push_back(each);
    }
  }
  order.insert(order.end(), last.begin(), last.end());
  for (std::size_t at = 1; at < order.size(); ++at) {
    setTabOrder(order[at - 1], order[at]);
  }
  if (period_ != nullptr) {
    period_->Boxes().front()->setFocus();
  }
  // What is ticked takes as much as it needs; the rest is the report's.
  constexpr int kEverything = 10000;
  qobject_cast<QSplitter*>(beside_->parentWidget())
      ->setSizes({beside_->minimumWidth(), kEverything});
}

Period ReportWindow::ThePeriod() const {
  const Result<Period> period = period_->Read();
  if (!period) {
    throw std::logic_error(period.Why().text.toStdString());
  }
  return *period;
}

MaybeRefusal ReportWindow::Check() {
  if (period_ != nullptr) {
    if (MaybeRefusal refusal = period_->Read().Refused()) {
      return refusal;
    }
  }
  return CheckSelection();
}

void ReportWindow::CmdReport_Click() {
  if (const MaybeRefusal refusal = Check()) {
    Show(*refusal);
    return;
  }
  if (!BeforeReport()) {
    return;
  }
  std::optional<ReportDocument> document;
  {
    controls::ProgressDialog progress(this);
    document = BuildDocument(progress);
  }
  if (document) {
    VS->SetDocument(std::move(*document));
    if (VS->Model().rowCount() == 0) {
      VS->SetHint(tr("No Record Found."));
    }
    ReportShown(VS->Model().Document());
  }
}

std::optional<ReportDocument> ReportWindow::MakeOutput(std::optional<OutputFormat> format) {
  if (!format && !SettleOwnEntry()) {
    return std::nullopt;
  }
  MaybeRefusal refusal = format == OutputFormat::kXlsx ? CheckWorkbook() : std::nullopt;
  if (!refusal) {
    refusal = Check();
  }
  if (refusal) {
    Show(*refusal);
    return std::nullopt;
  }
  std::optional<ReportDocument> document;
  {
    controls::ProgressDialog progress(this);
    document = BuildOutput(progress);
  }
  if (document && RowCount(*document) == 0) {
    Say().Inform(tr("No Record Found."));
    document.reset();
  }
  return document;
}

/// The pages have a key, so they may be asked for while a box is still under entry.
bool ReportWindow::SettleOwnEntry() {
  const auto* box = qobject_cast<controls::TextBox*>(QApplication::focusWidget());
  return box == nullptr || !isAncestorOf(box) || SettleEntry();
}

void ReportWindow::CmdOutput_Click() {
  QMenu& menu = outputs_->Menu();
  menu.popup(CmdOutput->mapToGlobal(QPoint(0, -menu.sizeHint().height())));
}

void ReportWindow::VS_MouseUp(const QPoint& at) {
  outputs_->Menu().popup(VS->viewport()->mapToGlobal(at));
}

void ReportWindow::CmdExit_Click() {
  close();
}

void ReportWindow::WriteWord(const ReportDocument& document) {
  outputs_->WriteAndOpen(document, OutputFormat::kRtf);
}

void ReportWindow::WriteWorkbook(const ReportDocument& document, const QString& path,
                                 Progress& progress) {
  WriteReport(document, OutputFormat::kXlsx, path, progress);
}

QString ReportWindow::FileName(const ReportDocument& document) const {
  QStringList words{document.titles.value(0)};
  if (current_) {
    words << client_name_.left(kLongestClient) << current_->year.Text();
  }
  return FileStem(words + Choices());
}

QStringList ReportWindow::Choices() const {
  const auto year = PeriodYear();
  if (period_ == nullptr || !year) {
    return {};
  }
  const Period period = ThePeriod();
  return period == Period::Of(*year)
             ? QStringList()
             : QStringList{text::FormatDmy(period.from), text::FormatDmy(period.to)};
}

}  // namespace quorvane::reporting
