#include "reporting/window/ReportWindow.h"

#include "controls/ProgressDialog.h"
#include "controls/Style.h"
#include "core/platform/PrivateFile.h"
#include "reporting/output/WriteReport.h"
#include "reporting/period/window/MonthsPane.h"

#include <QApplication>
#include <QDir>
#include <QHeaderView>
#include <QLabel>
#include <QRadioButton>
#include <QShortcut>
#include <QSplitter>

#include <stdexcept>

namespace quorvane::reporting {
namespace {

using controls::DateBox;
using controls::Grid;
using controls::ZENButton;

constexpr int kDateWidth = 110;
constexpr int kBesideWidth = 230;
constexpr int kTextColumn = 1;            // of a grid with ticks
constexpr qsizetype kLongestClient = 40;  // letters of a file's name
constexpr qsizetype kMostNamed = 3;

QLabel* LabelFor(const QString& text, QWidget* buddy) {
  auto* label = new QLabel(text);
  label->setBuddy(buddy);
  return label;
}

template <class Box>
Box* Named(Box* box, const QString& name, const QString& purpose) {
  box->setObjectName(name);
  box->setAccessibleName(purpose);
  return box;
}

}  // namespace

ReportWindow::ReportWindow(controls::Desk& desk, const QString& name, const QString& title,
                           QSize designed)
    : ChildWindow(desk, name, title, designed),
      current_(desk.session.current),
      client_name_(desk.session.current_client_name) {
  BuildLayout();
  BuildMenu();
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
  buttons_ = new QHBoxLayout;
  buttons_->addStretch(1);
  buttons_->addWidget(CmdReport);
  buttons_->addWidget(CmdOutput);
  buttons_->addWidget(CmdExit);
  rows->addLayout(buttons_);

  OnClick(CmdReport, &ReportWindow::CmdReport_Click);
  OnClick(CmdOutput, &ReportWindow::CmdOutput_Click);
  OnClick(CmdExit, &ReportWindow::CmdExit_Click);
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

void ReportWindow::BuildMenu() {
  mnuReport = new QMenu(this);
  mnuReport->setObjectName(QStringLiteral("mnuReport"));
  AddAction("mnupreview", tr("&Preview and Print"), &ReportWindow::mnupreview_Click)
      ->setShortcut(QKeySequence::Print);
  AddAction("mnuword", tr("&Word"), &ReportWindow::mnuword_Click);
  AddAction("mnuexcel", tr("&Excel"), &ReportWindow::mnuexcel_Click);
  AddAction("mnupdf", tr("P&DF"), &ReportWindow::mnupdf_Click);
  AddAction("mnucsv", tr("&CSV"), &ReportWindow::mnucsv_Click);
  VS->setContextMenuPolicy(Qt::CustomContextMenu);
  On(VS, &QWidget::customContextMenuRequested, &ReportWindow::VS_MouseUp,
     QStringLiteral("VS_MouseUp"));
}

QAction* ReportWindow::AddAction(const char* name, const QString& caption,
                                 void (ReportWindow::*handler)()) {
  QAction* action = mnuReport->addAction(caption);
  action->setObjectName(QLatin1String(name));
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  addAction(action);
  On(action, &QAction::triggered, handler, QLatin1String(name) + QStringLiteral("_Click"));
  return action;
}

void ReportWindow::SetPeriodYear(text::FinancialYear year) {
  Text1[0]->SetDate(text::FormatDmy(year.FirstDay()));
  Text1[1]->SetDate(text::FormatDmy(year.LastDay()));
  if (months_ != nullptr) {
    months_->SetYear(year);
  }
}

std::optional<text::FinancialYear> ReportWindow::PeriodYear() const {
  return current_ ? std::optional(current_->year) : std::nullopt;
}

void ReportWindow::MakePeriodBoxes() {
  const auto year = PeriodYear();
  for (std::size_t i = 0; i < Text1.size(); ++i) {
    Text1[i] =
        Named(new DateBox, QStringLiteral("Text1_%1").arg(i), i == 0 ? tr("From") : tr("To"));
    Text1[i]->setFixedWidth(kDateWidth);
    if (year) {
      Text1[i]->SetDate(text::FormatDmy(i == 0 ? year->FirstDay() : year->LastDay()));
    }
    Watch(Text1[i]);
    On(Text1[i], &DateBox::Left, &ReportWindow::Text1_Validate, QStringLiteral("Text1_Validate"));
  }
}

void ReportWindow::AddPeriod(Months months) {
  MakePeriodBoxes();
  auto* row = new QHBoxLayout;
  row->addWidget(LabelFor(tr("&From"), Text1[0]));
  row->addWidget(Text1[0]);
  row->addWidget(LabelFor(tr("&To"), Text1[1]));
  row->addWidget(Text1[1]);
  if (months == Months::kYes) {
    AddMonths(row);
  }
  row->addStretch(1);
  options_->addLayout(row);
}

QBoxLayout* ReportWindow::AddPeriodFrame() {
  MakePeriodBoxes();
  auto* frame = new QGroupBox(tr("Period"));
  frame->setObjectName(QStringLiteral("FrmPeriod"));
  auto* boxes = new QGridLayout(frame);
  boxes->setContentsMargins(controls::kSpacing, controls::kTightSpacing, controls::kSpacing,
                            controls::kTightSpacing);
  boxes->addWidget(LabelFor(tr("&From"), Text1[0]), 0, 0);
  boxes->addWidget(Text1[0], 0, 1);
  boxes->addWidget(LabelFor(tr("&To"), Text1[1]), 1, 0);
  boxes->addWidget(Text1[1], 1, 1);
  auto* row = new QHBoxLayout;
  row->addWidget(frame);
  options_->addLayout(row);
  return row;
}

void ReportWindow::AddMonths(QBoxLayout* row) {
  const auto year = PeriodYear();
  if (!year) {
    throw std::logic_error("months are those of a chosen financial year");
  }
  months_ = new MonthsPane(*year);
  CmbFromMth = months_->Names(0);
  CmbToMth = months_->Names(1);
  row->addWidget(months_);
  On(CmbFromMth, &QComboBox::currentIndexChanged, &ReportWindow::CmbFromMth_Click,
     QStringLiteral("CmbFromMth_Click"));
  On(CmbToMth, &QComboBox::currentIndexChanged, &ReportWindow::CmbToMth_Click,
     QStringLiteral("CmbToMth_Click"));
}

void ReportWindow::CmbFromMth_Click() {
  TakeMonth(0);
}

void ReportWindow::CmbToMth_Click() {
  TakeMonth(1);
}

void ReportWindow::TakeMonth(std::size_t end) {
  const std::optional<Result<Period>> chosen = months_->Chosen(end);
  if (!chosen) {
    return;
  }
  const Result<Period>& month = *chosen;
  if (!month) {
    Show({month.Why().text, months_->Names(end)->objectName()});
    return;
  }
  Text1[end]->SetDate(text::FormatDmy(end == 0 ? month->from : month->to));
}

// A date that was typed in belongs to no chosen month any more.
void ReportWindow::Text1_Validate() {
  for (std::size_t end = 0; months_ != nullptr && end < Text1.size(); ++end) {
    months_->KeepOnly(end, Text1[end]->Date());
  }
}

Grid* ReportWindow::AddTickGrid(const QString& name, const QString& heading, const QString& purpose,
                                int share) {
  auto* grid = new Grid(name, purpose);
  grid->SetColumns({{.heading = QString(), .mask = controls::Mask::kTick}, {.heading = heading}});
  grid->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  grid->horizontalHeader()->setSectionResizeMode(kTextColumn, QHeaderView::Stretch);
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

void ReportWindow::FillTicks(Grid& grid, const std::vector<lookups::Item>& items, bool ticked) {
  std::vector<controls::Row> rows;
  rows.reserve(items.size());
  for (const lookups::Item& item : items) {
    rows.push_back({.id = item.id, .cells = {ticked, item.text}});
  }
  grid.SetRows(std::move(rows));
}

MaybeRefusal ReportWindow::RefuseWithoutTick(const Grid& grid, const QString& text) {
  return grid.Model().TickedIds().empty() ? MaybeRefusal({text, grid.objectName()}) : std::nullopt;
}

MaybeRefusal ReportWindow::RefuseWithoutAccount(const Grid& grid) {
  return grid.Model().RowCount() == 0 ? std::nullopt
                                      : RefuseWithoutTick(grid, tr("Select Demat A/c!"));
}

std::vector<AccountId> ReportWindow::ChosenAccounts(const Grid& grid) {
  return grid.Model().AllTicked() ? std::vector<AccountId>() : Ticked<AccountId>(grid);
}

// The Tab key goes from the options over the ticks to the report and the buttons, although these
// were made first.
void ReportWindow::Start() {
  for (QWidget* last : std::initializer_list<QWidget*>{VS, CmdReport, CmdOutput, CmdExit}) {
    setTabOrder(previousInFocusChain(), last);
  }
  if (Text1[0] != nullptr) {
    Text1[0]->setFocus();
  }
  // What is ticked takes as much as it needs; the rest is the report's.
  constexpr int kEverything = 10000;
  qobject_cast<QSplitter*>(beside_->parentWidget())
      ->setSizes({beside_->minimumWidth(), kEverything});
}

Period ReportWindow::ThePeriod() const {
  const Result<Period> period = ReadPeriod(Text1[0]->text(), Text1[1]->text());
  if (!period) {
    throw std::logic_error(period.Why().text.toStdString());
  }
  return *period;
}

MaybeRefusal ReportWindow::Check() {
  if (Text1[0] != nullptr) {
    if (MaybeRefusal refusal = ReadPeriod(Text1[0]->text(), Text1[1]->text()).Refused()) {
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

std::optional<ReportDocument> ReportWindow::MakeOutput() {
  if (const MaybeRefusal refusal = Check()) {
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

void ReportWindow::CmdOutput_Click() {
  mnuReport->popup(CmdOutput->mapToGlobal(QPoint(0, -mnuReport->sizeHint().height())));
}

void ReportWindow::VS_MouseUp(const QPoint& at) {
  mnuReport->popup(VS->viewport()->mapToGlobal(at));
}

void ReportWindow::CmdExit_Click() {
  close();
}

void ReportWindow::mnupreview_Click() {
  // By its key the action comes while a box is still under entry.
  const auto* box = qobject_cast<controls::TextBox*>(QApplication::focusWidget());
  if (box != nullptr && isAncestorOf(box) && !SettleEntry()) {
    return;
  }
  if (const auto document = MakeOutput()) {
    TheDesk().show_report(*document, this);
  }
}

void ReportWindow::mnuword_Click() {
  if (const auto document = MakeOutput()) {
    WriteWord(*document);
  }
}

void ReportWindow::WriteWord(const ReportDocument& document) {
  WriteAndOpen(document, OutputFormat::kRtf);
}

void ReportWindow::mnuexcel_Click() {
  if (const MaybeRefusal refusal = CheckWorkbook()) {
    Show(*refusal);
    return;
  }
  if (const auto document = MakeOutput()) {
    WriteAndOpen(*document, OutputFormat::kXlsx);
  }
}

void ReportWindow::mnupdf_Click() {
  if (const auto document = MakeOutput()) {
    WriteWhereAsked(*document, OutputFormat::kPdf);
  }
}

void ReportWindow::mnucsv_Click() {
  if (const auto document = MakeOutput()) {
    WriteWhereAsked(*document, OutputFormat::kCsv);
  }
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
  if (Text1[0] == nullptr || !year) {
    return {};
  }
  const Period period = ThePeriod();
  return period == Period::Of(*year)
             ? QStringList()
             : QStringList{text::FormatDmy(period.from), text::FormatDmy(period.to)};
}

QStringList ReportWindow::ChosenOf(const Grid& grid) {
  QStringList texts;
  for (int row = 0; row < grid.Model().RowCount() && !grid.Model().AllTicked(); ++row) {
    if (grid.Model().IsTicked(row)) {
      texts << grid.Model().Text(row, kTextColumn);
    }
  }
  const qsizetype more = texts.size() - kMostNamed;
  return more <= 0 ? texts : texts.mid(0, kMostNamed) << tr("and %1 more").arg(more);
}

void ReportWindow::Write(const ReportDocument& document, OutputFormat format, const QString& path) {
  controls::ProgressDialog progress(this);
  if (format == OutputFormat::kXlsx) {
    WriteWorkbook(document, path, progress);
  } else {
    WriteReport(document, format, path, progress);
  }
}

void ReportWindow::WriteAndOpen(const ReportDocument& document, OutputFormat format) {
  const QDir folder(Session().folders.application + QStringLiteral("/Reports"));
  platform::MakeOutputFolder(folder.path());
  const QString path = folder.filePath(FileName(document) + ExtensionOf(format));
  Write(document, format, path);
  Open(path);
}

void ReportWindow::Open(const QString& path) {
  if (!TheDesk().open_file(path)) {
    Say().Inform(tr("The report lies in %1. No program that opens it was found.").arg(path));
  }
}

void ReportWindow::WriteWhereAsked(const ReportDocument& document, OutputFormat format) {
  const QString suggested = QDir::home().filePath(FileName(document) + ExtensionOf(format));
  const QString path = TheDesk().ask_save_path(this, suggested);
  if (!path.isEmpty()) {
    Write(document, format, path);
    Say().Inform(tr("Saved as %1.").arg(path));
  }
}

}  // namespace quorvane::reporting
