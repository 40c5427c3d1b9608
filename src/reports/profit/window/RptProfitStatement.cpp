#include "reports/profit/window/RptProfitStatement.h"

#include "controls/Style.h"
#include "controls/WindowMemory.h"
#include "core/lookups/Directory.h"
#include "reporting/charts/ChartData.h"
#include "reporting/output/XlsxTemplate.h"
#include "reporting/selection/ReportLists.h"
#include "reports/profit/ProfitDocument.h"

#include <QLabel>

namespace quorvane::profit {
namespace {

// Indices of the option arrays. What comes first is what counts when nothing is chosen.
enum FoIndex { kFo, kNonFo, kAllFo };
enum ChargeIndex { kWithoutCharge, kWithCharge };
enum GainIndex { kBoth, kNonSpeculation, kSpeculation };
enum FormatIndex { kNewFormat, kOldFormat };
enum SourceIndex { kClientScrips, kAllScrips };

constexpr int kFirstYearOfSections = 2017;  // sales from February 2018 on
const QString kTaxYear = QStringLiteral("RptTaxYear");

const QString kUnsold = QStringLiteral("Unsold");
const QString kNo = QStringLiteral("no");

StatementMode ModeOf(const QString& target) {
  return target.compare(QLatin1String("RptCapitalGain"), Qt::CaseInsensitive) == 0
             ? StatementMode::kCapitalGain
             : StatementMode::kProfit;
}

QString CaptionOf(StatementMode mode) {
  return mode == StatementMode::kCapitalGain ? RptProfitStatement::tr("Capital Gain Statement")
                                             : RptProfitStatement::tr("Profit Statement");
}

QString WindowTitle(const app::Session& session) {
  const QString year = session.current ? session.current->year.Text() : QString();
  return CaptionOf(ModeOf(session.target)) + QLatin1Char(' ') + session.current_client_name +
         QLatin1Char(':') + year;
}

GainFilter GainsOf(int index) {
  switch (index) {
    case kNonSpeculation:
      return GainFilter::kNonSpeculation;
    case kSpeculation:
      return GainFilter::kSpeculation;
    default:
      return GainFilter::kAll;
  }
}

}  // namespace

RptProfitStatement::RptProfitStatement(reporting::ReportDesk& desk)
    : ReportWindow(desk, QStringLiteral("RptProfitStatement"), WindowTitle(desk.session),
                   {790, 540}),
      mode_(ModeOf(desk.session.target)) {
  if (!Current()) {
    throw std::runtime_error("no client and year were chosen");
  }
  BuildOptions();
  if (Current()->year >= text::FinancialYear(kFirstYearOfSections)) {
    AddTaxYearLine();
  }
  VSD = AddTickGrid(QStringLiteral("VSD"), tr("Demat A/c No."), tr("Demat accounts"));
  Hold({{Field::kAccounts, "VSD"}, {Field::kScrips, "VSS"}});
  Option1 = MakeChoice(QStringLiteral("Frame5"), QString(), QStringLiteral("Option1"),
                       {tr("Show Client Scripts"), tr("Show All Scripts")});
  AddBesideReport(Option1.frame);
  VSS = AddTickGrid(QStringLiteral("VSS"), tr("Script Name"), tr("Scrips"), 2);
  On(optF.group, &QButtonGroup::idClicked, &RptProfitStatement::optF_Click,
     QStringLiteral("optF_Click"));
  On(Option1.group, &QButtonGroup::idClicked, &RptProfitStatement::Option1_Click,
     QStringLiteral("Option1_Click"));
  BuildExport();
  chart_ = new charts::ChartPane(TheGuard(), TheDesk());
  AddPage(tr("Chart"), chart_);
  VSD->Fill(reporting::AccountsByNumber(*Session().connection, Current()->client));
  FillScrips();
  Start();
}

void RptProfitStatement::BuildOptions() {
  QBoxLayout* row = AddPeriodFrame();
  row->setSpacing(controls::kTightSpacing);  // six frames side by side on a screen of 800
  optF = MakeChoice(QStringLiteral("Frame1"), tr("Bills"), QStringLiteral("optF"),
                    {tr("F && O"), tr("Non F && O"), tr("All")});
  optF.Choose(kAllFo);
  optSTax = MakeChoice(QStringLiteral("Frame2"), tr("Service Tax"), QStringLiteral("optSTax"),
                       {tr("Non S.Tax"), tr("S.Tax")});
  optSTT = MakeChoice(QStringLiteral("Frame3"), tr("STT"), QStringLiteral("optSTT"),
                      {tr("Non S.T.T."), tr("S.T.T.")});
  Option2 = MakeChoice(QStringLiteral("Frame4"), tr("Gains"), QStringLiteral("Option2"),
                       {tr("Both"), tr("Non-Speculation"), tr("Speculation")});
  OptFormat = MakeChoice(QStringLiteral("FrmFormat"), tr("Layout"), QStringLiteral("OptFormat"),
                         {tr("New Format"), tr("Old Format")});
  OptFormat.group->button(kNewFormat)->setToolTip(tr("Summary: one line a sale"));
  OptFormat.group->button(kOldFormat)->setToolTip(tr("Detail: purchases beside sales"));
  ChkAverage = new QCheckBox(tr("Average Rate"));
  ChkAverage->setObjectName(QStringLiteral("ChkAverage"));
  OptFormat.frame->layout()->addWidget(ChkAverage);
  for (const Choice* choice : {&optF, &optSTax, &optSTT, &Option2, &OptFormat}) {
    row->addWidget(choice->frame);
  }
  row->addStretch(1);
}

/// What these statements do not know of the law, and the way to the report that does.
void RptProfitStatement::AddTaxYearLine() {
  auto* row = new QHBoxLayout;
  auto* line =
      new QLabel(tr("From 2018-19 the return needs the Tax Year report: fair values of "
                    "31-Jan-2018, sections and set-off."));
  line->setObjectName(QStringLiteral("LblTaxYear"));
  line->setWordWrap(true);
  row->addWidget(line, 1);
  if (TheDesk().has_window(kTaxYear)) {
    auto* button = new controls::ZENButton(QStringLiteral("CmdTaxYear"), tr("Tax Year"));
    row->addWidget(button);
    OnClick(button, &RptProfitStatement::CmdTaxYear_Click);
  }
  AddOptions(row);
}

/// The report opens for the client and year of this window, also after another choice elsewhere.
void RptProfitStatement::CmdTaxYear_Click() {
  Session().current = Current();
  Session().current_client_name = ClientName();
  Session().target = kTaxYear;
  TheDesk().open(kTaxYear);
}

// Only the capital-gain statement is handed on as a workbook by a button of its own.
void RptProfitStatement::BuildExport() {
  FrmExp = new QGroupBox;
  FrmExp->setObjectName(QStringLiteral("FrmExp"));
  auto* row = new QHBoxLayout(FrmExp);
  row->setContentsMargins(controls::kTightSpacing, controls::kTightSpacing, controls::kTightSpacing,
                          controls::kTightSpacing);
  auto* button =
      new controls::ZENButton(QStringLiteral("CmdExpCapGain"), tr("Export &Capital Gain"));
  row->addWidget(button);
  AddBesideReport(FrmExp);
  FrmExp->setVisible(mode_ == StatementMode::kCapitalGain);
  TheGuard().Connect(button, &QAbstractButton::clicked, &Outputs(),
                     &reporting::ReportOutputs::mnuexcel_Click,
                     QStringLiteral("CmdExpCapGain_Click"));
}

void RptProfitStatement::FillScrips() {
  database::Connection& connection = *Session().connection;
  VSS->Fill(Option1.Index() == kAllScrips
                ? reporting::AllScrips(connection)
                : reporting::ScripsOfClient(connection, *Current(), ChosenFo()));
}

void RptProfitStatement::optF_Click(int) {
  FillScrips();
}

void RptProfitStatement::Option1_Click(int) {
  FillScrips();
}

gains::FoChoice RptProfitStatement::ChosenFo() const {
  switch (optF.Index()) {
    case kFo:
      return gains::FoChoice::kFo;
    case kNonFo:
      return gains::FoChoice::kNonFo;
    default:
      return gains::FoChoice::kAll;
  }
}

MaybeRefusal RptProfitStatement::CheckSelection() {
  if (MaybeRefusal refusal = VSD->RefuseWithoutAccount()) {
    return refusal;
  }
  if (MaybeRefusal refusal = reporting::RefuseOutside(ThePeriod(), Current()->year)) {
    return refusal;
  }
  return VSS->RefuseWithoutTick(tr("Select Script Name!"), Field::kScrips);
}

ProfitQuery RptProfitStatement::Query() const {
  const ClientYear& current = *Current();
  const reporting::Period period = ThePeriod();
  ProfitQuery query = ProfitQuery::OfYear(current.client, current.year);
  query.from = period.from;
  query.to = period.to;
  query.accounts = VSD->TickedAccounts();
  query.scrips = VSS->Ticked<ScripId>();
  query.charges = {optSTax.Index() == kWithCharge, optSTT.Index() == kWithCharge};
  query.gains = GainsOf(Option2.Index());
  query.fo = ChosenFo();
  query.average = ChkAverage->isChecked();
  query.unsold = unsold_;
  return query;
}

std::optional<reporting::ReportDocument> RptProfitStatement::Build(Layout layout,
                                                                   Progress& progress) {
  const ProfitQuery query = Query();
  const lookups::Directory directory(*Session().connection);
  reporting::ReportDocument document =
      MakeProfitDocument(mode_, layout, query, Current()->client, {}, directory);
  const reporting::Period period{query.from, query.to};
  ShowChart(period, {});
  const auto take = [&](ClientId client, std::span<const StatementRow> rows) {
    document = MakeProfitDocument(mode_, layout, query, client, rows, directory);
    ShowChart(period, rows);
  };
  database::Connection& connection = *Session().connection;
  const records::Faults faults = BuildStatement(connection, query, progress, take);
  document.notes += records::FaultTexts(connection, faults);
  return document;
}

void RptProfitStatement::ShowChart(const reporting::Period& period,
                                   std::span<const StatementRow> rows) {
  charts::GainsChart by_month(period);
  for (const StatementRow& row : rows) {
    if (row.kind == LineKind::kMatch) {
      by_month.Add(row.sale_date, gains::GainKind::kSpeculation, row.speculation);
      by_month.Add(row.sale_date, gains::GainKind::kShortTerm, row.short_term);
      by_month.Add(row.sale_date, gains::GainKind::kLongTerm, row.long_term);
    }
  }
  charts::ChartData chart = by_month.Take();
  chart.subtitle = tr("Financial Year : ") + Current()->year.Text();
  chart_->Show(chart);
}

std::optional<reporting::ReportDocument> RptProfitStatement::BuildDocument(Progress& progress) {
  return Build(Layout::kDetail, progress);
}

std::optional<reporting::ReportDocument> RptProfitStatement::BuildOutput(Progress& progress) {
  return Build(OutputLayout(), progress);
}

Layout RptProfitStatement::OutputLayout() const {
  return OptFormat.Index() == kNewFormat ? Layout::kSummary : Layout::kDetail;
}

QStringList RptProfitStatement::Choices() const {
  return QStringList{OptFormat.group->checkedButton()->text()} + ReportWindow::Choices() +
         ChoicesOf(Query()) + VSD->TickedTexts() + VSS->TickedTexts();
}

MaybeRefusal RptProfitStatement::CheckWorkbook() {
  return reporting::RefuseWithoutTemplate(
      reporting::TemplatePath(Session().folders, QLatin1String(kStatementTemplate)));
}

void RptProfitStatement::WriteWorkbook(const reporting::ReportDocument& document,
                                       const QString& path, Progress& progress) {
  WriteStatementWorkbook(
      document, OutputLayout(),
      reporting::TemplatePath(Session().folders, QLatin1String(kStatementTemplate)), path,
      progress);
}

bool RptProfitStatement::BeforeReport() {
  // The answer of the last time is the default, so that Enter repeats it.
  const controls::WindowMemory memory(Session().folders);
  const bool no = memory.Text(objectName(), kUnsold) == kNo;
  unsold_ =
      Say().Ask(tr("Do You Want to Show Unsold Quantity Also?"),
                no ? controls::Answer::kNo : controls::Answer::kYes, controls::Icon::kInformation);
  memory.Keep(objectName(), kUnsold, unsold_ ? QStringLiteral("yes") : kNo);
  return true;
}

void RptProfitStatement::ReportShown(const reporting::ReportDocument& document) {
  Say().Inform(reporting::RowCount(document) == 0 ? tr("No Record Found.")
                                                  : tr("Report is Ready."));
}

}  // namespace quorvane::profit
