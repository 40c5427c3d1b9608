#include "reports/tax/window/RptTaxYear.h"

#include "controls/ProgressDialog.h"
#include "core/app/Session.h"
#include "core/platform/PrivateFile.h"
#include "reporting/output/WriteReport.h"
#include "reports/tax/Schedule112A.h"

#include <QDir>
#include <QVBoxLayout>

#include <algorithm>

namespace quorvane::tax_year {
namespace {

enum Whose { kClient, kFamily };

}  // namespace

RptTaxYear::RptTaxYear(reporting::ReportDesk& desk)
    : ReportWindow(desk, QStringLiteral("RptTaxYear"),
                   app::ClientTitle(tr("Tax Year"), desk.session), {790, 520}),
      of_(app::CurrentOf(desk.session)) {
  auto* row = new QHBoxLayout();
  whose_ = MakeChoice(QStringLiteral("Frame1"), tr("Whose"), QStringLiteral("optW"),
                      {tr("&Client"), tr("&Family")});
  row->addWidget(whose_.frame);
  row->addStretch(1);
  cmdUpload = new controls::ZENButton(QStringLiteral("cmdUpload"), tr("Schedule 112&A..."));
  cmdUpload->setToolTip(tr("The upload file of schedule 112A of the return, of the client"));
  row->addWidget(cmdUpload);
  AddOptions(row);
  pages_ = AddPage(tr("Check List"), MakeCheckList());
  OnClick(cmdUpload, &RptTaxYear::cmdUpload_Click);
  OnClick(cmdOpen, &RptTaxYear::cmdOpen_Click);
  On(VSF, &controls::Grid::RowActivated, &RptTaxYear::VSF_RowActivated,
     QStringLiteral("VSF_RowActivated"));
  ShowPoints();
  Start();
}

QWidget* RptTaxYear::MakeCheckList() {
  auto* pane = new QWidget();
  auto* rows = new QVBoxLayout(pane);
  VSF = new controls::Grid(QStringLiteral("VSF"), tr("What is open before filing"));
  VSF->SetColumns({{.heading = tr("Client")}, {.heading = tr("State")}, {.heading = tr("Point")}});
  VSF->setWordWrap(true);
  cmdOpen =
      new controls::ZENButton(QStringLiteral("cmdOpen"), tr("&Open the Window That Mends It"));
  auto* buttons = new QHBoxLayout();
  buttons->addStretch(1);
  buttons->addWidget(cmdOpen);
  rows->addWidget(VSF, 1);
  rows->addLayout(buttons);
  return pane;
}

bool RptTaxYear::IsFamily() const {
  return whose_.Index() == kFamily;
}

MaybeRefusal RptTaxYear::CheckSelection() {
  return tax::Rules::Load(Session().folders.data, of_.year).Refused();
}

QStringList RptTaxYear::Choices() const {
  return {IsFamily() ? tr("Family") : QString()};
}

std::optional<reporting::ReportDocument> RptTaxYear::BuildDocument(Progress& progress) {
  database::Connection& connection = *Session().connection;
  const Result<Law> law = Law::Load(Session().folders.data, of_.year);
  if (!law) {
    Show(law.Why());
    return std::nullopt;
  }
  const lookups::Directory directory(connection);
  const std::vector<ClientId> clients =
      IsFamily() ? FamilyByCode(connection, directory, of_.client) : std::vector{of_.client};
  members_ = ReadMembers(connection, directory, *law, clients, progress);
  return IsFamily() ? MakeFamilyDocument(law->rules, members_, directory)
                    : MakeTaxDocument(law->rules, members_.front().tax, members_.front().points,
                                      directory);
}

void RptTaxYear::ReportShown(const reporting::ReportDocument& /*document*/) {
  ShowPoints();
  CarryLosses();
}

void RptTaxYear::ShowPoints() {
  points_.clear();
  std::vector<controls::Row> rows;
  // A window that opens has no points yet, and needs no names.
  const auto directory =
      members_.empty() ? std::nullopt
                       : std::optional<lookups::Directory>(std::in_place, *Session().connection);
  for (const Member& member : members_) {
    for (const Point& point : member.points) {
      points_.push_back(point);
      rows.push_back({.id = static_cast<int>(points_.size()),
                      .cells = {QString::fromStdString(directory->Client(point.of.client).name),
                                point.open ? tr("Open") : tr("Hint"), point.text}});
    }
  }
  cmdOpen->setEnabled(!rows.empty());
  const auto open = std::ranges::count_if(points_, &Point::open);
  pages_->setTabText(1, open > 0 ? tr("Check List (%1)").arg(open) : tr("Check List"));
  if (rows.empty()) {
    rows.push_back({.cells = {QString(), QString(),
                              members_.empty() ? tr("Press Report: what is open before filing is "
                                                    "then listed here.")
                                               : tr("Nothing is open before filing.")}});
  }
  VSF->SetRows(std::move(rows));
}

/// Asks once, after the report that shows what is meant.
void RptTaxYear::CarryLosses() {
  if (asked_ || !LacksLosses(members_)) {
    return;
  }
  asked_ = true;
  if (!Say().Ask(tr("The losses that %1 leaves are not brought forward into %2. Bring them "
                    "forward now?")
                     .arg(of_.year.Previous().Text(), of_.year.Text()),
                 controls::Answer::kYes, controls::Icon::kInformation)) {
    return;
  }
  tax_year::CarryLosses(*Session().connection, members_);
  CmdReport_Click();
}

/// The upload file is of one taxpayer, also while the family is shown.
void RptTaxYear::cmdUpload_Click() {
  controls::ProgressDialog progress(this);
  const Result<Law> law = Law::Load(Session().folders.data, of_.year);
  if (!law) {
    return Show(law.Why());
  }
  database::Connection& connection = *Session().connection;
  const lookups::Directory directory(connection);
  const std::vector<Member> members =
      ReadMembers(connection, directory, *law, std::vector{of_.client}, progress);
  const Member& member = members.front();
  const Result<std::string> upload =
      MakeSchedule112A(law->rules, member.tax.year, directory, rates::AllIsins(connection));
  if (!upload) {
    return Show(upload.Why());
  }
  const auto open = std::ranges::count_if(member.points, &Point::open);
  if (open > 0 && !Say().Ask(tr("The check list has %1 open points, so the figures may be wrong. "
                                "Write the file all the same?")
                                 .arg(open),
                             controls::Answer::kNo, controls::Icon::kCritical)) {
    pages_->setCurrentIndex(1);
    return;
  }
  const QString name =
      reporting::FileStem({QStringLiteral("Schedule 112A"), ClientName(), of_.year.Text()});
  const QString path =
      TheDesk().ask_save_path(this, QDir::home().filePath(name + QStringLiteral(".csv")));
  if (!path.isEmpty()) {
    platform::WritePrivate(path, QByteArray::fromStdString(*upload));
    Say().Inform(tr("Saved as %1.").arg(path));
  }
}

void RptTaxYear::cmdOpen_Click() {
  VSF_RowActivated(VSF->CurrentRow());
}

/// The window opens for the client and year of the point.
void RptTaxYear::VSF_RowActivated(int /*row*/) {
  const int id = VSF->CurrentId();
  if (id <= 0) {
    return;
  }
  const Point& point = points_[static_cast<std::size_t>(id) - 1];
  const lookups::Directory directory(*Session().connection);
  Session().current = point.of;
  Session().current_client_name = QString::fromStdString(directory.Client(point.of.client).name);
  TheDesk().open(point.window);
}

}  // namespace quorvane::tax_year
