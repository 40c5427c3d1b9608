#include "reports/demat/window/RptDMatStatement.h"

#include "controls/ProgressDialog.h"
#include "core/lookups/Directory.h"
#include "reporting/output/WriteReport.h"
#include "reporting/selection/ReportLists.h"
#include "reports/demat/DematStatement.h"
#include "reports/demat/TransactionDocument.h"

#include <QDir>
#include <QFileInfo>

namespace quorvane::demat {
namespace {

// Indices of the option arrays.
enum TransactionIndex { kSummarizedIndex, kDetailedIndex };
enum DematIndex { kAccountWise, kAllAccounts };

bool IsForTransactions(const QString& target) {
  return target.compare(QLatin1String("RptTransaction"), Qt::CaseInsensitive) == 0;
}

QString WindowTitle(const app::Session& session) {
  const QString caption = IsForTransactions(session.target)
                              ? RptDMatStatement::tr("Transaction Report")
                              : RptDMatStatement::tr("Demat A/c Statement");
  const QString year = session.current ? session.current->year.Text() : QString();
  return caption + QLatin1Char(' ') + session.current_client_name + QLatin1Char(':') + year;
}

}  // namespace

RptDMatStatement::Mode RptDMatStatement::ModeOf(const QString& target) {
  return IsForTransactions(target) ? Mode::kTransactions : Mode::kStatement;
}

RptDMatStatement::RptDMatStatement(reporting::ReportDesk& desk)
    : ReportWindow(desk, QStringLiteral("RptDMatStatement"), WindowTitle(desk.session), {790, 540}),
      mode_(ModeOf(desk.session.target)) {
  if (!Current()) {
    throw std::runtime_error("no client and year were chosen");
  }
  AddPeriod(Months::kYes);
  BuildOptions();
  VSF = AddTickGrid(QStringLiteral("VSF"), tr("Demat A/c No."), tr("Demat accounts"));
  Hold({{Field::kAccounts, "VSF"}});
  VSF->Fill(reporting::AccountsByNumber(*Session().connection, Current()->client));
  Start();
}

void RptDMatStatement::BuildOptions() {
  OptTransaction = MakeChoice(QStringLiteral("FTransaction"), tr("Layout"),
                              QStringLiteral("OptTransaction"), {tr("Summarized"), tr("Detailed")});
  OptTransaction.group->button(kSummarizedIndex)->setToolTip(tr("One line a bill, scrip and side"));
  OptTransaction.group->button(kDetailedIndex)->setToolTip(tr("Every line of every bill"));
  OptDemat = MakeChoice(QStringLiteral("FDemat"), tr("Demat A/c"), QStringLiteral("OptDemat"),
                        {tr("Demat A/c Wise"), tr("All Demat A/c")});
  OptTransaction.frame->setVisible(mode_ == Mode::kTransactions);
  OptDemat.frame->hide();
  AddBesideReport(OptTransaction.frame);
  AddBesideReport(OptDemat.frame);
  On(OptTransaction.group, &QButtonGroup::idClicked, &RptDMatStatement::OptTransaction_Click,
     QStringLiteral("OptTransaction_Click"));
  On(OptDemat.group, &QButtonGroup::idClicked, &RptDMatStatement::OptDemat_Click,
     QStringLiteral("OptDemat_Click"));
}

void RptDMatStatement::OptTransaction_Click(int index) {
  OptDemat.frame->setVisible(index == kDetailedIndex);
  if (index == kDetailedIndex) {
    OptDemat.Choose(kAccountWise);
    OptDemat_Click(kAccountWise);
  }
}

void RptDMatStatement::OptDemat_Click(int index) {
  if (index != kAccountWise) {
    VSF->Model().TickAll(true);
  }
}

MaybeRefusal RptDMatStatement::CheckSelection() {
  if (MaybeRefusal refusal = VSF->RefuseWithoutAccount()) {
    return refusal;
  }
  return reporting::RefuseOutside(ThePeriod(), Current()->year);
}

DematQuery RptDMatStatement::QueryOfStatement() const {
  return {Current()->client, Current()->year, ThePeriod(), VSF->TickedAccounts(), {}};
}

TransactionLayout RptDMatStatement::ChosenLayout() const {
  return OptTransaction.Index() == kDetailedIndex ? TransactionLayout::kDetailed
                                                  : TransactionLayout::kSummarized;
}

TransactionQuery RptDMatStatement::QueryOfTransactions() const {
  const TransactionLayout layout = ChosenLayout();
  const bool account_wise =
      layout == TransactionLayout::kDetailed && OptDemat.Index() == kAccountWise;
  return {Current()->client, Current()->year, ThePeriod(), VSF->TickedAccounts(), {}, layout,
          account_wise};
}

std::optional<reporting::ReportDocument> RptDMatStatement::BuildDocument(Progress& progress) {
  return mode_ == Mode::kTransactions ? BuildTransactionDocument(progress)
                                      : BuildStatementDocument(progress);
}

reporting::ReportDocument RptDMatStatement::BuildStatementDocument(Progress& progress) const {
  const DematQuery query = QueryOfStatement();
  const lookups::Directory directory(*Session().connection);
  reporting::ReportDocument document = MakeDematDocument(query, *query.client, {}, directory);
  const auto take = [&](ClientId client, std::span<const ScripMovements> scrips) {
    document = MakeDematDocument(query, client, scrips, directory);
  };
  database::Connection& connection = *Session().connection;
  const records::Faults faults = BuildDematStatement(connection, query, progress, take);
  document.notes += records::FaultTexts(connection, faults);
  return document;
}

reporting::ReportDocument RptDMatStatement::BuildTransactionDocument(Progress& progress) {
  query_ = QueryOfTransactions();
  sections_.clear();
  database::Connection& connection = *Session().connection;
  const records::Faults faults = BuildTransactions(
      connection, *query_, progress, [&](ClientId, std::span<const TransactionSection> sections) {
        sections_.assign(sections.begin(), sections.end());
      });
  reporting::ReportDocument document =
      MakeTransactionDocument(*query_, *query_->client, sections_, lookups::Directory(connection));
  document.notes += records::FaultTexts(connection, faults);
  return document;
}

QStringList RptDMatStatement::Choices() const {
  if (mode_ == Mode::kStatement) {
    return VSF->TickedTexts();  // the period stands in the report's name
  }
  const QString extent =
      QueryOfTransactions().account_wise ? OptDemat.group->button(kAccountWise)->text() : QString();
  return ReportWindow::Choices() + VSF->TickedTexts() + QStringList{extent};
}

MaybeRefusal RptDMatStatement::CheckWorkbook() {
  const QString path = QDir(Session().folders.data).filePath(TransactionTemplate(ChosenLayout()));
  if (mode_ == Mode::kTransactions && !QFileInfo(path).isFile()) {
    return Refusal{tr("The template %1 is not there.").arg(QDir::toNativeSeparators(path))};
  }
  return std::nullopt;
}

void RptDMatStatement::WriteWorkbook(const reporting::ReportDocument& document, const QString& path,
                                     Progress& progress) {
  if (mode_ == Mode::kStatement) {
    ReportWindow::WriteWorkbook(document, path, progress);
    return;
  }
  const lookups::Directory directory(*Session().connection);
  WriteTransactionWorkbook(*query_, *query_->client, sections_, directory, Session().folders.data,
                           path, progress);
}

// The transaction report has its fixed place beside the templates, under two names.
void RptDMatStatement::WriteWord(const reporting::ReportDocument& document) {
  if (mode_ == Mode::kStatement) {
    ReportWindow::WriteWord(document);
    return;
  }
  const QDir folder(Session().folders.data);
  const QString path = folder.filePath(QStringLiteral("TransactionRpt.Doc"));
  {
    controls::ProgressDialog progress(this);
    WriteReport(document, reporting::OutputFormat::kRtf, path, progress);
    WriteReport(document, reporting::OutputFormat::kRtf,
                folder.filePath(QStringLiteral("TransactionRpt.rtf")), progress);
  }
  Outputs().Open(path);
}

}  // namespace quorvane::demat
