#include "reports/home/window/HomePane.h"

#include "controls/Style.h"
#include "reports/home/window/FamilyChoice.h"
#include "reports/home/window/FrmFigures.h"
#include "reports/home/window/HomeTexts.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace quorvane::home {
namespace {

using controls::Row;

constexpr int kLookMs = 60 * 1000;
constexpr int kFirstYear = 2005;
constexpr qint64 kOldBackupDays = 7;

/// The accounts without a statement are told by kStatements and the state that they are in.
enum MissingLine { kRates = 1, kBackup, kNothing, kStatements = 10 };

controls::Column Right(const QString& heading) {
  return {.heading = heading, .alignment = controls::Alignment::kRight};
}

}  // namespace

HomePane::HomePane(controls::Desk& desk, QWidget& area)
    : QWidget(&area),
      desk_(desk),
      guard_(desk.messages),
      family_label_(new QLabel),
      year_label_(new QLabel),
      LblState(new QLabel),
      CboFamily(new controls::ComboBox),
      CboYear(new controls::ComboBox) {
  setObjectName(QStringLiteral("HomePane"));
  Build();
  ShowTexts();
  area.installEventFilter(this);
  setGeometry(area.rect());
  guard_.Connect(&Timer1, &QTimer::timeout, this, &HomePane::Timer1_Timer,
                 QStringLiteral("Timer1_Timer"));
  for (const controls::ComboBox* box : {CboFamily, CboYear}) {
    guard_.Connect(box, &QComboBox::activated, this, &HomePane::Cbo_Click,
                   box->objectName() + QStringLiteral("_Click"));
    guard_.Connect(box, &controls::ComboBox::Left, this, &HomePane::Cbo_Click,
                   box->objectName() + QStringLiteral("_LostFocus"));
  }
}

void HomePane::Build() {
  setAutoFillBackground(true);
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins(controls::kMargin, controls::kTightSpacing, controls::kMargin,
                             controls::kMargin);
  layout->setSpacing(controls::kTightSpacing);
  layout->setHorizontalSpacing(controls::kMargin);
  layout->addWidget(Head(), 0, 0, 1, 2);
  figures_ = AddPart(*layout, QStringLiteral("VSFigures"), 1, 0, 1);
  largest_ = AddPart(*layout, QStringLiteral("VSLargest"), 1, 1, 1);
  missing_ = AddPart(*layout, QStringLiteral("VSMissing"), 2, 0, 1);
  dividends_ = AddPart(*layout, QStringLiteral("VSDividends"), 2, 1, 1);
  last_ = AddPart(*layout, QStringLiteral("VSLast"), 3, 0, 2);
  layout->setRowStretch(1, 6);
  layout->setRowStretch(2, 3);
  layout->setRowStretch(3, 4);
  layout->setColumnStretch(0, 4);
  layout->setColumnStretch(1, 5);
  const auto on = [this](const Part& part, auto handler) {
    guard_.Connect(part.grid, &controls::Grid::RowActivated, this, handler,
                   part.grid->objectName() + QStringLiteral("_DblClick"));
  };
  on(figures_, &HomePane::VSFigures_DblClick);
  on(largest_, &HomePane::VSLargest_DblClick);
  on(missing_, &HomePane::VSMissing_DblClick);
  on(dividends_, &HomePane::VSDividends_DblClick);
  on(last_, &HomePane::VSLast_DblClick);
}

QWidget* HomePane::Head() {
  auto* head = new QWidget;
  auto* line = new QHBoxLayout(head);
  line->setContentsMargins(0, 0, 0, 0);
  line->setSpacing(controls::kSpacing);
  CboFamily->setObjectName(QStringLiteral("CboFamily"));
  CboYear->setObjectName(QStringLiteral("CboHomeYear"));
  LblState->setObjectName(QStringLiteral("LblState"));
  LblState->setTextFormat(Qt::PlainText);
  // A long message is cut off rather than making the window wide.
  LblState->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  LblState->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  line->addWidget(family_label_);
  line->addWidget(CboFamily);
  line->addWidget(year_label_);
  line->addWidget(CboYear);
  line->addWidget(LblState, 1);
  return head;
}

HomePane::Part HomePane::AddPart(QGridLayout& layout, const QString& name, int row, int column,
                                 int span) {
  Part part{new QLabel, new controls::Grid(name, name)};
  part.heading->setBuddy(part.grid);
  QFont bold = part.heading->font();
  bold.setBold(true);
  part.heading->setFont(bold);
  part.grid->SetSortable(false);
  part.grid->setMinimumHeight(2 * controls::kBoxHeight);
  auto* lines = new QVBoxLayout;
  lines->setSpacing(2);
  lines->addWidget(part.heading);
  lines->addWidget(part.grid, 1);
  layout.addLayout(lines, row, column, 1, span);
  return part;
}

void HomePane::ShowTexts() {
  family_label_->setText(tr("Family"));
  year_label_->setText(tr("Gains of"));
  CboFamily->setAccessibleName(tr("Family"));
  CboYear->setAccessibleName(tr("Year of the gains"));
  const auto name = [](const Part& part, const QString& text,
                       std::vector<controls::Column> columns) {
    part.heading->setText(text);
    part.grid->setAccessibleName(text);
    part.grid->setToolTip(tr("Enter or a double click opens what the line is made of."));
    part.grid->SetColumns(std::move(columns));
  };
  name(figures_, tr("Value and Gains"),
       {{.heading = tr("Figure")}, Right(tr("Rupees")), {.heading = tr("Of")}});
  name(largest_, tr("Largest Holdings"),
       {{.heading = tr("Script Name")},
        Right(tr("Quantity")),
        Right(tr("Value")),
        Right(tr("Day's Change"))});
  name(missing_, tr("What Is Missing"), {{.heading = tr("Missing")}});
  name(dividends_, tr("Dividends to Come"),
       {{.heading = tr("Script Name")},
        {.heading = tr("Day")},
        Right(tr("A Share")),
        Right(tr("Amount")),
        {.heading = tr("State")}});
  name(last_, tr("Last Records Entered"),
       {{.heading = tr("Record")},
        {.heading = tr("Date")},
        {.heading = tr("About")},
        {.heading = tr("Client")},
        Right(tr("Amount"))});
  ShowParts();
}

void HomePane::SetBackup(const std::optional<QDateTime>& made) {
  backup_ = made;
  ShowMissing();
}

void HomePane::FillChoices() {
  OfferFamilies(*CboFamily, desk_.session);
  if (!CboYear->HasChoice()) {
    FillYears();
  }
}

void HomePane::FillYears() {
  const auto last = text::FinancialYear::Of(desk_.today());
  QStringList texts;
  for (auto year = text::FinancialYear(kFirstYear); year <= last; year = year.Next()) {
    texts << year.Text();
  }
  CboYear->SetTexts(texts);
  CboYear->ByText((desk_.session.current ? desk_.session.current->year : last).Text());
}

Scope HomePane::Wanted() const {
  const auto year = text::FinancialYear::Parse(CboYear->currentText());
  return {ChosenFamily(*CboFamily), year.value_or(text::FinancialYear::Of(desk_.today())),
          desk_.today()};
}

void HomePane::Ask() {
  if (work_ == nullptr) {
    work_ = new HomeWork(desk_.session.connection->Settings(), desk_.session.read_only, this);
    connect(work_, &HomeWork::Ready, this, &HomePane::Ready);
    connect(work_, &HomeWork::Failed, this, &HomePane::Failed);
  }
  work_->Ask(Wanted());
  ShowState();
}

void HomePane::Ready(const Shown& shown) {
  if (shown.scope == Wanted()) {
    shown_ = shown;
    failure_.clear();
    ShowParts();
  }
}

void HomePane::Failed(const QString& why) {
  failure_ = why;
  ShowState();
}

void HomePane::ShowState() {
  LblState->setText(StateText(shown_, failure_));
  LblState->setToolTip(LblState->text());
}

void HomePane::ShowParts() {
  ShowState();
  ShowMissing();
  if (shown_) {
    ShowFigures();
    ShowLargest();
    ShowDividends();
    ShowLast();
  }
}

void HomePane::ShowFigures() {
  const Figures& figures = shown_->figures;
  std::vector<Row> rows;
  for (const FigureLine& line : FigureLines(figures, shown_->scope)) {
    rows.push_back({.id = static_cast<int>(line.kind) + 1,
                    .cells = {line.name, Rupees(line.amount), line.of}});
  }
  figures_.grid->SetRows(std::move(rows));
}

void HomePane::ShowLargest() {
  std::vector<Row> rows;
  for (const LargeHolding& one : shown_->figures.largest) {
    rows.push_back({.id = one.held.scrip.value,
                    .cells = {one.name, Quantity(one.held.quantity), Rupees(one.held.value),
                              Rupees(one.held.change)}});
  }
  if (rows.empty()) {
    rows.push_back({.cells = {tr("Nothing that is held has a rate.")}});
  }
  largest_.grid->SetRows(std::move(rows));
}

void HomePane::ShowDividends() {
  std::vector<Row> rows;
  for (const ComingDividend& one : shown_->figures.dividends) {
    rows.push_back({.id = static_cast<int>(rows.size()) + 1,
                    .cells = {one.scrip_name, one.day, text::FormatAmount(one.per_share),
                              one.amount ? Rupees(*one.amount) : QString(), StateOf(one)}});
  }
  if (rows.empty()) {
    rows.push_back({.cells = {tr("None to come.")}});
  }
  dividends_.grid->SetRows(std::move(rows));
}

void HomePane::ShowMissing() {
  std::vector<Row> rows;
  const int without = shown_ ? shown_->figures.without_rate : 0;
  if (without > 0) {
    rows.push_back(
        {.id = kRates,
         .cells = {tr("%1 scrips held have no rate of the last seven days.").arg(without)}});
  }
  if (shown_) {
    for (const auto& [state, text] : StatementLines(shown_->figures.statements)) {
      rows.push_back({.id = kStatements + static_cast<int>(state), .cells = {text}});
    }
  }
  if (!backup_) {
    rows.push_back({.id = kBackup, .cells = {tr("There is no backup.")}});
  } else if (const qint64 days = backup_->daysTo(QDateTime::currentDateTime());
             days > kOldBackupDays) {
    rows.push_back({.id = kBackup, .cells = {tr("The newest backup is %1 days old.").arg(days)}});
  }
  if (rows.empty()) {
    rows.push_back({.id = kNothing, .cells = {tr("Nothing is missing.")}});
  }
  missing_.grid->SetRows(std::move(rows));
}

void HomePane::ShowLast() {
  std::vector<Row> rows;
  for (const LastRecord& one : shown_->figures.last) {
    const QString amount = one.kind == LastRecord::Kind::kTransfer
                               ? Quantity(Shares(one.amount))
                               : Rupees(Paise::OfRupees(one.amount));
    rows.push_back(
        {.id = static_cast<int>(rows.size()) + 1,
         .cells = {NameOf(one.kind), one.date, one.about,
                   QStringLiteral("%1, %2").arg(one.client_name, one.of.year.Text()), amount}});
  }
  if (rows.empty()) {
    rows.push_back({.cells = {tr("Nothing is entered yet.")}});
  }
  last_.grid->SetRows(std::move(rows));
}

void HomePane::Cbo_Click() {
  const Scope wanted = Wanted();
  KeepFamily(desk_.session, wanted.family);
  if (!shown_ || shown_->scope != wanted) {
    Ask();
  }
}

void HomePane::Timer1_Timer() {
  Ask();
}

void HomePane::VSFigures_DblClick(int row) {
  const auto kind = static_cast<FigureLine::Kind>(figures_.grid->Model().IdOf(row) - 1);
  desk_.open(QLatin1String(IsGain(kind) ? kGainsWindow : kHoldingsWindow));
}

void HomePane::VSLargest_DblClick(int row) {
  if (const int scrip = largest_.grid->Model().IdOf(row); scrip != 0) {
    desk_.open_record({.window = QLatin1String(kHoldingsWindow), .record = scrip});
  }
}

void HomePane::VSDividends_DblClick(int row) {
  const int at = dividends_.grid->Model().IdOf(row);
  if (at == 0) {
    return;
  }
  const ComingDividend& one = shown_->figures.dividends[static_cast<std::size_t>(at) - 1];
  if (one.of) {
    desk_.open_record({QStringLiteral("FrmDividend"), one.dividend, one.of, one.client_name});
  } else {
    desk_.open_record({.window = QStringLiteral("FrmCorpAction"), .record = one.action});
  }
}

void HomePane::VSMissing_DblClick(int row) {
  const int line = missing_.grid->Model().IdOf(row);
  if (line >= kStatements) {
    return desk_.open_record(
        {.window = QLatin1String(kStatementsWindow), .record = line - kStatements});
  }
  switch (line) {
    case kRates:
      return desk_.open_record(
          {.window = QLatin1String(kHoldingsWindow), .record = FrmFigures::kOldRates});
    case kBackup:
      Q_EMIT Chosen(QStringLiteral("mnuBackUp"));
      return;
    default:
      return;
  }
}

void HomePane::VSLast_DblClick(int row) {
  if (const int at = last_.grid->Model().IdOf(row); at != 0) {
    const LastRecord& one = shown_->figures.last[static_cast<std::size_t>(at) - 1];
    desk_.open_record({QLatin1String(WindowOf(one.kind)), one.record, one.of, one.client_name});
  }
}

void HomePane::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  guard_.Run(QStringLiteral("Form_Load"), [this] {
    FillChoices();
    Ask();
  });
  Timer1.start(kLookMs);
}

void HomePane::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  Timer1.stop();
}

bool HomePane::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) {
    setGeometry(static_cast<QWidget*>(watched)->rect());
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace quorvane::home
