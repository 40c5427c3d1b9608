#include "masters/imports/window/ImpScrMaster.h"

#include "controls/ProgressDialog.h"

namespace quorvane::imports {
namespace {

/// What is shown; the states of rows follow from the second on.
enum Choice { kAllRows, kNewRows, kChangedRows, kUnchangedRows };

QString Utf8(const std::string& text) {
  return QString::fromStdString(text);
}

QString StateText(ScripState state) {
  switch (state) {
    case ScripState::kNew:
      return ImpScrMaster::tr("New");
    case ScripState::kChanged:
      return ImpScrMaster::tr("Changed");
    default:
      return ImpScrMaster::tr("Unchanged");
  }
}

bool IsShown(ScripState state, int choice) {
  switch (choice) {
    case kNewRows:
      return state == ScripState::kNew;
    case kChangedRows:
      return state == ScripState::kChanged;
    case kUnchangedRows:
      return state == ScripState::kUnchanged;
    default:
      return true;
  }
}

}  // namespace

ImpScrMaster::ImpScrMaster(controls::Desk& desk)
    : ImpScrWindow(desk, QStringLiteral("ImpScrMaster"), tr("Import Script Master"), {760, 500}),
      VSF(new controls::Grid(QStringLiteral("VSF"), tr("Scrips in the file"))) {
  controls::ZENButton* import =
      AddSource(QStringLiteral("CmdImport"), tr("From &File..."),
                tr("A scrip list or a daily price file: .xls, .xlsx, .ods, .csv or .zip"));
  controls::ZENButton* fetch = AddSource(QStringLiteral("CmdFetch"), tr("From the &Exchange"),
                                         tr("The Bombay exchange's newest daily price file"));
  VSF->SetFilterable(true);
  VSF->SetColumns({{.heading = QStringLiteral("SC_BCode")},
                   {.heading = QStringLiteral("SC_NCode")},
                   {.heading = QStringLiteral("SC_Name")},
                   {.heading = QStringLiteral("SC_Class")},
                   {.heading = QStringLiteral("SC_Type")},
                   {.heading = tr("State")}});
  Middle()->addWidget(VSF, 1);
  OnClick(import, &ImpScrMaster::CmdImport_Click);
  OnClick(fetch, &ImpScrMaster::CmdFetch_Click);
  Finish({tr("All rows"), tr("New scrips"), tr("Changed scrips"), tr("Unchanged scrips")});
  Tell(tr("Choose a file, or fetch the newest daily price file."));
}

void ImpScrMaster::CmdImport_Click() {
  const QString path =
      AskFile(tr("Excel Files(*.xls *.xlsx *.ods);;Comma Saperted File(*.csv *.zip)"));
  if (path.isEmpty()) {
    Say().Refuse(tr("Select .XLS or .CSV File."));
    return;
  }
  Load(path);
}

void ImpScrMaster::CmdFetch_Click() {
  Fetch().NewestFile(
      Awaited(QStringLiteral("CmdFetch_Click"), [this](const rates::Fetched& fetched) {
        if (Load(fetched.path)) {
          Say().Inform(tr("Successfully Completed.Please Update Record"));
        }
      }));
}

bool ImpScrMaster::Load(const QString& path) {
  Result<rates::PriceFile> file = rates::ReadPriceFile(path);
  if (!file) {
    Show(file.Why());
    return false;
  }
  file_ = std::move(*file);
  ShowAll();
  Plan();
  return true;
}

void ImpScrMaster::Plan() {
  plan_ = PlanImport(*Session().connection, file_);
  const ImportCounts counts = CountStates(plan_);
  QString text = tr("%1 scrips: %2 new, %3 changed, %4 unchanged.")
                     .arg(static_cast<qulonglong>(plan_.size()))
                     .arg(static_cast<qulonglong>(counts.added))
                     .arg(static_cast<qulonglong>(counts.changed))
                     .arg(static_cast<qulonglong>(counts.unchanged));
  if (file_.left_out > 0) {
    text += tr(" %1 rows of other series or markets are left out.")
                .arg(static_cast<qulonglong>(file_.left_out));
  }
  Tell(text);
  EnableUpdate(counts.added + counts.changed > 0);
  Fill();
}

void ImpScrMaster::Fill() {
  std::vector<controls::Row> rows;
  for (const ImportedScrip& scrip : plan_) {
    if (IsShown(scrip.state, Shown())) {
      rows.push_back(
          {.id = scrip.id.value,
           .cells = {Utf8(scrip.code), Utf8(scrip.symbol), Utf8(scrip.name),
                     Utf8(scrip.scrip_class), Utf8(scrip.type), StateText(scrip.state)}});
    }
  }
  VSF->SetRows(std::move(rows));
}

bool ImpScrMaster::MayClose() {
  const bool leaves =
      !CanUpdate() || Say().Ask(tr("The scrips are not saved. Close without saving them?"),
                                controls::Answer::kNo, controls::Icon::kInformation);
  return leaves && ImpScrWindow::MayClose();
}

void ImpScrMaster::Update() {
  {
    controls::ProgressDialog progress(this);
    ImportScrips(*Session().connection, file_, progress);
  }
  Plan();
  Say().Inform(tr("Update Successfully!"));
}

}  // namespace quorvane::imports
