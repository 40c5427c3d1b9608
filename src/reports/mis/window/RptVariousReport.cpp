#include "reports/mis/window/RptVariousReport.h"

#include "controls/FieldLayout.h"
#include "controls/ProgressDialog.h"
#include "controls/Style.h"
#include "core/text/FinancialYear.h"
#include "reporting/output/WriteReport.h"
#include "reports/mis/MisReport.h"

#include <QLabel>

#include <algorithm>

namespace quorvane::mis {
namespace {

using controls::ZENButton;

constexpr int kFirstYear = 2005;
constexpr int kYearWidth = 80;
constexpr int kDateWidth = 110;
constexpr float kSelectionWidth = 215;  // of a screen of 800 by 600
constexpr float kMostStretch = 1.3F;    // the rest of a larger screen is the report's
constexpr int kPartsShown = 10;
enum PageIndex { kReportPage, kChartPage, kRatesPage };
enum ChartIndex { kComposition, kValueByMonth, kGainsByKind };

QStringList YearsUpTo(text::Date today) {
  QStringList years;
  for (text::FinancialYear year = text::FinancialYear::Of(today);
       year.FirstCalendarYear() >= kFirstYear; year = year.Previous()) {
    years << year.Text();
  }
  return years;
}

QLabel* LabelFor(const QString& text, QWidget* buddy) {
  auto* label = new QLabel(text);
  label->setBuddy(buddy);
  return label;
}

}  // namespace

RptVariousReport::RptVariousReport(reporting::ReportDesk& desk)
    : ReportWindow(desk, QStringLiteral("RptVariousReport"), tr("MIS Report:"), {790, 560}) {
  BuildHead();
  AddPeriod(Months::kYes);
  BuildButtons();
  selection_ = new SelectionPane(TheGuard(), *Session().connection);
  const float stretch = std::min(Session().screen_factors.horizontal, kMostStretch);
  selection_->setMinimumWidth(
      std::max(static_cast<int>(kSelectionWidth * stretch), selection_->minimumSizeHint().width()));
  AddBesideReport(selection_);
  // As narrow as its words allow, or the window is wider than a small screen.
  selection_->parentWidget()->setMinimumWidth(selection_->minimumWidth());
  BuildPages();
  FreeKeys();
  selection_->Fill(Current() ? Current()->client : ClientId{}, *RptVariousReport::PeriodYear());
  ShowKind();
  Start();
}

void RptVariousReport::BuildHead() {
  CboYr = new controls::ComboBox;
  CboYr->setObjectName(QStringLiteral("CboYr"));
  CboYr->setAccessibleName(tr("Financial Year"));
  CboYr->setFixedWidth(kYearWidth);
  CboYr->SetTexts(YearsUpTo(TheDesk().today()));
  if (!Current() || !CboYr->ByText(Current()->year.Text())) {
    CboYr->ById(0);
  }
  detail_ = new OptionPairView(0, tr("De&tail"), tr("C&onsolidated"), tr("Extent"));
  Text3 = new controls::DateBox;
  Text3->setObjectName(QStringLiteral("Text3"));
  Hold({{Field::kRateDate, "Text3"},
        {Field::kClients, "VSC"},
        {Field::kAccounts, "VSD"},
        {Field::kScrips, "VSS"}});
  Text3->setAccessibleName(tr("Rates as on"));
  Text3->setToolTip(tr("The day of a valuation and of its rates; empty: the period's last day"));
  Text3->setFixedWidth(kDateWidth);
  Watch(Text3);
  CmdShowReport = new ZENButton(QStringLiteral("CmdShowReport"), tr("Pages"));
  CmdShowPLRpt = new ZENButton(QStringLiteral("CmdShowPLRpt"), tr("Market Valuation"));
  CmdShowPLRpt->setCheckable(true);
  FrmPL = new QWidget;
  FrmPL->setObjectName(QStringLiteral("FrmPL"));
  auto* valuation = new QHBoxLayout(FrmPL);
  valuation->setContentsMargins(0, 0, 0, 0);
  valuation->addWidget(LabelFor(tr("Rates as on"), Text3));
  valuation->addWidget(Text3);
  valuation->addWidget(CmdShowPLRpt);
  valuation->addWidget(CmdShowReport);
  auto* row = new QHBoxLayout;
  row->addWidget(LabelFor(tr("Financial Year"), CboYr));
  row->addWidget(CboYr);
  row->addSpacing(controls::kSpacing);
  row->addWidget(detail_);
  row->addStretch(1);
  row->addWidget(FrmPL);
  AddOptions(row);
  On(CboYr, &QComboBox::currentIndexChanged, &RptVariousReport::CboYr_Click,
     QStringLiteral("CboYr_Click"));
  CmdShowReport->setToolTip(tr("Show the valuation as pages, to print and save"));
  OnClick(CmdShowReport, &RptVariousReport::CmdShowReport_Click);
  OnClick(CmdShowPLRpt, &RptVariousReport::CmdShowPLRpt_Click);
}

void RptVariousReport::BuildButtons() {
  auto* row = new QHBoxLayout;
  const auto add = [&](std::size_t at, const char* name, const QString& caption,
                       void (RptVariousReport::*handler)()) {
    kinds_[at] = new ZENButton(QLatin1String(name), caption);
    kinds_[at]->setCheckable(true);
    row->addWidget(kinds_[at], 1);
    OnClick(kinds_[at], handler);
  };
  add(0, "CmdPortPos", tr("Port&Folio Position Report"), &RptVariousReport::CmdPortPos_Click);
  add(1, "CmdPortVal", tr("Portfolio &Valuation Report"), &RptVariousReport::CmdPortVal_Click);
  add(2, "CmdProfitLossReport", tr("&Profit/Loss Report"),
      &RptVariousReport::CmdProfitLossReport_Click);
  add(3, "CmdStkVal", tr("Stock Valuation &Report"), &RptVariousReport::CmdStkVal_Click);
  AddOptions(row);
  BuildGroupings();
}

void RptVariousReport::BuildGroupings() {
  groupings_ = new QWidget;
  auto* groupings = new QHBoxLayout(groupings_);
  groupings->setContentsMargins(0, 0, 0, 0);
  groupings->setSpacing(controls::kTightSpacing);
  const QStringList captions{tr("&Script Wise"), tr("&Demat A/c Wise"), tr("&Client/Group Wise")};
  CmdRepType = new QButtonGroup(this);
  CmdRepType->setObjectName(QStringLiteral("CmdRepType"));
  for (int i = 0; i < captions.size(); ++i) {
    auto* button = new ZENButton(QStringLiteral("CmdRepType_%1").arg(i), captions[i]);
    button->setCheckable(true);
    CmdRepType->addButton(button, i);
    groupings->addWidget(button);
  }
  CmdRepType->setExclusive(false);  // none is lit while there is no report
  On(CmdRepType, &QButtonGroup::idClicked, &RptVariousReport::CmdRepType_Click,
     QStringLiteral("CmdRepType_Click"));
  groupings_->hide();
}

void RptVariousReport::BuildPages() {
  chart_ = new charts::ChartPane(TheGuard(), TheDesk(),
                                 {tr("Composition"), tr("Value by month"), tr("Gains by kind")});
  rates_ = new RatesPane(TheGuard(), TheDesk());
  AddPage(tr("Chart"), chart_);
  pages_ = AddPage(tr("Rates"), rates_);
  pages_->setCornerWidget(groupings_);  // a row of their own would be one less of the report
  On(pages_, &QTabWidget::currentChanged, &RptVariousReport::Pages_Click,
     QStringLiteral("Pages_Click"));
  On(chart_, &charts::ChartPane::Chosen, &RptVariousReport::Chart_Click,
     QStringLiteral("CmbChart_Click"));
  On(rates_, &RatesPane::DateChosen, &RptVariousReport::RatesChosen,
     QStringLiteral("VSf1_DblClick"));
}

// The captions of the reports take nearly every letter: what is shared with other windows gives its
// own up.
void RptVariousReport::FreeKeys() {
  CmdReport->hide();
  CmdOutput->setText(tr("Output"));
  ThePeriodPane().FreeKeys();
}

std::optional<text::FinancialYear> RptVariousReport::PeriodYear() const {
  return text::FinancialYear::Parse(CboYr->currentText());
}

void RptVariousReport::CboYr_Click() {
  const auto year = PeriodYear();
  if (!year) {
    return;
  }
  ThePeriodPane().SetYear(*year);
  Text3->SetDate({});
  selection_->SetYear(*year);
}

void RptVariousReport::SetKind(ReportKind kind) {
  kind_ = kind;
  kind_chosen_ = true;
  shown_.reset();
  VS->SetDocument({});
  VS->SetHint(tr("Choose how the report is grouped."));
  ShowKind();
  CmdRepType->button(static_cast<int>(grouping_))->setFocus(Qt::OtherFocusReason);
}

/// Lit are the kind that was chosen and the grouping of the report that is shown.
void RptVariousReport::ShowKind() {
  constexpr std::array kKinds{ReportKind::kPosition, ReportKind::kValuation,
                              ReportKind::kProfitLoss, ReportKind::kStock};
  for (std::size_t i = 0; i < kKinds.size(); ++i) {
    kinds_[i]->setChecked(kind_chosen_ && kKinds[i] == kind_);
  }
  CmdShowPLRpt->setChecked(kind_chosen_ && kind_ == ReportKind::kMarket);
  for (QAbstractButton* button : CmdRepType->buttons()) {
    button->setChecked(shown_ && static_cast<int>(*shown_) == CmdRepType->id(button));
  }
  groupings_->setVisible(kind_chosen_);
  CmdShowReport->setEnabled(IsOfOneDay(kind_));
}

void RptVariousReport::CmdPortPos_Click() {
  SetKind(ReportKind::kPosition);
}

void RptVariousReport::CmdPortVal_Click() {
  SetKind(ReportKind::kValuation);
}

void RptVariousReport::CmdProfitLossReport_Click() {
  SetKind(ReportKind::kProfitLoss);
}

void RptVariousReport::CmdStkVal_Click() {
  SetKind(ReportKind::kStock);
}

void RptVariousReport::CmdRepType_Click(int grouping) {
  grouping_ = static_cast<Grouping>(grouping);
  ShowKind();
  CmdReport_Click();
}

bool RptVariousReport::BeforeReport() {
  kind_chosen_ = true;
  pages_->setCurrentIndex(kReportPage);
  return true;
}

void RptVariousReport::CmdShowReport_Click() {
  Outputs().mnupreview_Click();
}

// The market valuation is the profit or loss that is not realised yet, on the date of the rates.
void RptVariousReport::CmdShowPLRpt_Click() {
  SetKind(ReportKind::kMarket);
  CmdRepType_Click(static_cast<int>(grouping_));
}

void RptVariousReport::RatesChosen(const QString& date) {
  Text3->SetDate(date);
  Text3->setFocus(Qt::OtherFocusReason);
}

// What happened outside of the year is in no document of the year.
MaybeRefusal RptVariousReport::CheckDays() const {
  const text::FinancialYear year = *PeriodYear();
  if (MaybeRefusal refusal = reporting::RefuseOutside(ThePeriod(), year)) {
    return refusal;
  }
  if (Text3->text().trimmed().isEmpty()) {
    return std::nullopt;
  }
  const auto date = Text3->Date();
  if (!date) {
    return Refusal{tr("Enter Proper Date."), Field::kRateDate};
  }
  MaybeRefusal outside = reporting::RefuseOutside({*date, *date}, year);
  if (outside) {
    outside->field = Field::kRateDate;
  }
  return outside;
}

MaybeRefusal RptVariousReport::CheckSelection() {
  if (MaybeRefusal refusal = selection_->Check()) {
    return refusal;
  }
  return CheckDays();
}

MisQuery RptVariousReport::Query() const {
  MisQuery query = MisQuery::OfYear(kind_, grouping_, *PeriodYear());
  query.detail = detail_->IsFirst();
  query.period = ThePeriod();
  query.as_on = Text3->Date();
  query.clients = selection_->Clients();
  query.accounts = selection_->Accounts();
  query.scrips = selection_->Scrips();
  return query;
}

std::optional<reporting::ReportDocument> RptVariousReport::BuildDocument(Progress& progress) {
  return MakeMisReport(*Session().connection, Query(), progress);
}

void RptVariousReport::ReportShown(const reporting::ReportDocument& document) {
  shown_ = grouping_;
  ShowKind();
  if (reporting::RowCount(document) == 0) {
    Say().Inform(tr("No Record Found."));
  }
}

// The titles say whose report it is, for which year and period.
QString RptVariousReport::FileName(const reporting::ReportDocument& document) const {
  QStringList words{TitleOf(kind_, grouping_)};
  if (IsOfOneDay(kind_)) {
    words << LongDate(Query().ValuedOn());
  }
  words << CboYr->currentText() << document.titles.mid(2) << controls::PlainLabel(detail_->Text())
        << selection_->Choices();
  return reporting::FileStem(words);
}

void RptVariousReport::Pages_Click(int page) {
  if (page == kChartPage) {
    ShowChart();
  }
}

void RptVariousReport::Chart_Click(int) {
  ShowChart();
}

void RptVariousReport::ShowChart() {
  if (const MaybeRefusal refusal = Check()) {
    chart_->Show({});
    Show(*refusal);
    return;
  }
  controls::ProgressDialog progress(this);
  database::Connection& connection = *Session().connection;
  MisQuery query = Query();
  query.period.to = std::max(query.period.from, std::min(query.period.to, TheDesk().today()));
  switch (chart_->Choice()) {
    case kValueByMonth:
      chart_->Show(ValueByMonth(connection, query, progress));
      break;
    case kGainsByKind:
      chart_->Show(GainsByKind(connection, query, progress));
      break;
    default:
      chart_->Show(Composition(connection, query, kPartsShown, progress));
      break;
  }
}

bool RptVariousReport::MayClose() {
  return !rates_->IsEditing() ||
         Say().Ask(tr("The rates are not saved. Close without saving them?"), controls::Answer::kNo,
                   controls::Icon::kInformation);
}

void RptVariousReport::EscapePressed() {
  if (rates_->IsEditing()) {
    rates_->Cancel();
  } else {
    ReportWindow::EscapePressed();
  }
}

}  // namespace quorvane::mis
