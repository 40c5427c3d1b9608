#include "portfolio/reconcile/window/FrmReconcile.h"

#include "controls/ProgressDialog.h"
#include "core/lookups/Directory.h"
#include "portfolio/paper/ScripIsins.h"
#include "portfolio/reconcile/KeptChecks.h"
#include "portfolio/reconcile/OpeningFromStatement.h"
#include "portfolio/reconcile/ReconcileDocument.h"
#include "portfolio/reconcile/StatementFile.h"
#include "reporting/output/WriteReport.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QLabel>
#include <QTabWidget>

namespace quorvane::reconcile {
namespace {

QString Utf8(const std::string& text) {
  return QString::fromStdString(text);
}

}  // namespace

FrmReconcile::FrmReconcile(reporting::ReportDesk& desk)
    : ChildWindow(desk, QStringLiteral("FrmReconcile"), tr("Compare with Statement"), {790, 520}),
      desk_(desk),
      outputs_(new reporting::ReportOutputs(desk, TheGuard(), *this, this)) {
  Build();
  Hold({{Field::kDate, QStringLiteral("TxtDate")},
        {Field::kAccount, QStringLiteral("Combo2")},
        {Field::kPassword, QStringLiteral("TxtPassword")},
        {Field::kScrip, QStringLiteral("Combo3")},
        {Field::kClients, QStringLiteral("Combo1")}});
  fields_->Offer(Session());
  FillScrips();
  FillRows();
}

void FrmReconcile::FillScrips() {
  Combo3->SetItems(lookups::DropDownItems(*Session().connection, lookups::DropDown::kScrips));
}

ReconcileQuery FrmReconcile::Query() const {
  return {.client = fields_->Client(),
          .day = text::ParseDmy(TxtDate->DateText()),
          .account = fields_->ChosenAccount(),
          .today = TheDesk().today()};
}

/// Another client: what is shown is of the one before.
void FrmReconcile::Combo1_Click() {
  if (!fields_->IsAnotherClient(Session())) {
    return;
  }
  statement_.reset();
  result_.reset();
  FillRows();
}

bool FrmReconcile::GoTo(int record) {
  if (record == 0) {
    return true;
  }
  const AccountId account{record};
  const ClientId client = lookups::Directory(*Session().connection).Account(account).client;
  if (!client || !fields_->Combo1->ById(client.value)) {
    return false;
  }
  Combo1_Click();
  return fields_->Combo2->ById(account.value);
}

void FrmReconcile::CmdFile_Click() {
  if (!fields_->Combo1->HasChoice()) {
    return Show(Refusal{tr("Select Client."), Field::kClients});
  }
  const QString path = TheDesk().ask_open_path(
      this, QString(),
      tr("Statements (*.pdf *.htm *.html *.csv *.xlsx *.xls *.ods);;All Files (*)"));
  if (!path.isEmpty()) {
    path_ = path;
    Read();
  }
}

void FrmReconcile::CmdAgain_Click() {
  Read();
}

void FrmReconcile::Read() {
  Result<Statement> statement = [&] {
    controls::ProgressDialog progress(this);
    return ReadStatementOf(*Session().connection, fields_->Client(), path_, fields_->Passwords(),
                           progress);
  }();
  statement_.reset();
  result_.reset();
  if (statement) {
    statement_ = std::move(*statement);
    Compare();
  } else {
    Show(statement.Why());
  }
  FillRows();
}

bool FrmReconcile::Compare() {
  Result<Reconciliation> result = [&] {
    controls::ProgressDialog progress(this);
    return Reconcile(*Session().connection, *statement_, Query(), progress);
  }();
  result_.reset();
  if (!result) {
    Show(result.Why());
    return false;
  }
  result_ = std::move(*result);
  if (!Session().read_only) {
    KeepCheck(*Session().connection, *result_, TheDesk().today());
  }
  return true;
}

void FrmReconcile::FillRows() {
  std::vector<controls::Row> rows;
  const std::size_t count = result_ ? result_->rows.size() : 0;
  for (std::size_t i = 0; i < count; ++i) {
    const ReconciledRow& row = result_->rows[i];
    if (ChkDiffer->isChecked() && row.agreement == Agreement::kAgrees) {
      continue;
    }
    const QVariant difference = row.Difference() ? QVariant(row.Difference().Number()) : QVariant();
    rows.push_back(
        {.id = static_cast<int>(i) + 1,
         .cells = {row.account_number, row.name, row.recorded.Number(), row.stated.Number(),
                   difference, TextOf(row.agreement, Language::kOfUser),
                   TextOf(row.cause, Language::kOfUser), row.isin}});
  }
  VSF->SetRows(std::move(rows));
  if (result_) {
    LblFile->setText(
        (QStringList{tr("%1, as on %2: %3 of %4 holdings do not agree.")
                         .arg(QFileInfo(path_).fileName(), text::FormatDmy(result_->day))
                         .arg(qulonglong{result_->Differences()})
                         .arg(qulonglong{count})} +
         result_->notes)
            .join(QLatin1Char(' ')));
  } else if (!path_.isEmpty()) {
    LblFile->setText(tr("%1 is not compared.").arg(QFileInfo(path_).fileName()));
  }
  FillMarks();
  Enable();
}

void FrmReconcile::FillMarks() {
  marks_.clear();
  if (fields_->Combo1->HasChoice()) {
    marks_ = OpenMarks(*Session().connection, fields_->Client());
  }
  const lookups::Directory directory(*Session().connection);
  std::vector<controls::Row> rows;
  for (std::size_t i = 0; i < marks_.size(); ++i) {
    const OpeningMark& mark = marks_[i];
    rows.push_back({.id = static_cast<int>(i) + 1,
                    .cells = {mark.year.Text(), Utf8(directory.Account(mark.account).number),
                              Utf8(directory.Scrip(mark.scrip).name), mark.quantity.Number()}});
  }
  VSM->SetRows(std::move(rows));
  pages_->setTabText(1, marks_.empty()
                            ? tr("Opening Stock without Cost")
                            : tr("Opening Stock without Cost (%1)").arg(qulonglong{marks_.size()}));
}

const ReconciledRow* FrmReconcile::Current() const {
  const int id = VSF->CurrentId();
  return result_ && id > 0 ? &result_->rows[static_cast<std::size_t>(id) - 1] : nullptr;
}

void FrmReconcile::Enable() {
  const ReconciledRow* row = Current();
  CmdAgain->setEnabled(!path_.isEmpty());
  CmdOpen->setEnabled(row != nullptr && row->cause.kind != CauseKind::kNone);
  const bool unknown = row != nullptr && row->agreement == Agreement::kUnknown;
  CmdAssign->setEnabled(unknown);
  Combo3->setEnabled(unknown);
  CmdOpening->setEnabled(statement_.has_value());
  CmdOutput->setEnabled(result_.has_value());
  CmdFill->setEnabled(!marks_.empty());
}

void FrmReconcile::ChkDiffer_Click() {
  FillRows();
}

void FrmReconcile::VSF_RowColChange(int /*row*/) {
  Enable();
}

void FrmReconcile::VSF_DblClick(int /*row*/) {
  CmdOpen_Click();
}

void FrmReconcile::CmdOpen_Click() {
  if (const ReconciledRow* row = Current(); row != nullptr) {
    Open(Cause(row->cause));
  }
}

void FrmReconcile::Open(const Cause& cause) {
  switch (cause.kind) {
    case CauseKind::kNone:
      return;
    case CauseKind::kActionToApply:
    case CauseKind::kActionOnItsWay:
    case CauseKind::kSuggestedAction:
      TheDesk().proposed_action = cause.action;
      return TheDesk().open(QStringLiteral("FrmCorpAction"));
    case CauseKind::kBill:
      return OpenFor(QStringLiteral("FrmSalePurchase"), text::FinancialYear::Of(*cause.day));
    case CauseKind::kTransfer:
      return OpenFor(QStringLiteral("FrmScriptTransfer"), text::FinancialYear::Of(*cause.day));
    case CauseKind::kOtherAccount:
      return OpenFor(QStringLiteral("FrmScriptTransfer"), text::FinancialYear::Of(result_->day));
  }
}

/// A window of the client in a year, as the client list opens it.
void FrmReconcile::OpenFor(const QString& window, text::FinancialYear year) {
  const ClientId client = fields_->Client();
  Session().current = ClientYear{client, year};
  Session().current_client_name =
      Utf8(lookups::Directory(*Session().connection).Client(client).name);
  TheDesk().open(window);
}

void FrmReconcile::CmdAssign_Click() {
  const ReconciledRow* row = Current();
  if (row == nullptr || !Combo3->HasChoice()) {
    return Show(Refusal{tr("Select Script."), Field::kScrip});
  }
  if (const MaybeRefusal refusal =
          paper::AssignIsin(*Session().connection, ScripId{Combo3->CurrentId()}, row->isin)) {
    return Show(*refusal);
  }
  Compare();
  FillRows();
}

void FrmReconcile::CmdOpening_Click() {
  if (!Say().Ask(tr("Take the Quantities of the Statement In as Opening Stock of %1?")
                     .arg(fields_->Combo1->currentText()),
                 controls::Answer::kNo, controls::Icon::kInformation)) {
    return;
  }
  const Result<std::size_t> taken = [&] {
    controls::ProgressDialog progress(this);
    return TakeInAsOpening(*Session().connection, *statement_, Query(), progress);
  }();
  if (!taken) {
    return Show(taken.Why());
  }
  Compare();
  FillRows();
  pages_->setCurrentIndex(1);
  Say().Inform(tr("%1 Opening Lots are Taken In. Enter the Cost and the Day of Purchase of Each.")
                   .arg(qulonglong{*taken}));
}

void FrmReconcile::CmdFill_Click() {
  const int id = VSM->CurrentId();
  const std::size_t place = id > 0 ? static_cast<std::size_t>(id) - 1 : 0;
  if (place < marks_.size()) {
    OpenFor(QStringLiteral("FrmStkOpBalance"), marks_[place].year);
  }
}

void FrmReconcile::CmdOutput_Click() {
  QMenu& menu = outputs_->Menu();
  menu.popup(CmdOutput->mapToGlobal(QPoint(0, -menu.sizeHint().height())));
}

std::optional<reporting::ReportDocument> FrmReconcile::MakeOutput(
    std::optional<reporting::OutputFormat> /*format*/) {
  if (!result_) {
    ShowAt(tr("Choose a Statement First."), CmdFile);
    return std::nullopt;
  }
  return MakeReconcileDocument(*result_, lookups::Directory(*Session().connection),
                               ChkDiffer->isChecked());
}

QString FrmReconcile::FileName(const reporting::ReportDocument& document) const {
  return reporting::FileStem(
      {document.titles.value(0), fields_->Combo1->currentText(), text::FormatDmy(result_->day)});
}

void FrmReconcile::WriteWorkbook(const reporting::ReportDocument& document, const QString& path,
                                 Progress& progress) {
  reporting::WriteReport(document, reporting::OutputFormat::kXlsx, path, progress);
}

void FrmReconcile::WriteWord(const reporting::ReportDocument& document) {
  outputs_->WriteAndOpen(document, reporting::OutputFormat::kRtf);
}

}  // namespace quorvane::reconcile
