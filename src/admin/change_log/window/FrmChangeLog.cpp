#include "admin/change_log/window/FrmChangeLog.h"

#include "controls/Style.h"
#include "core/changes/Chain.h"
#include "core/changes/Words.h"
#include "core/platform/PrivateFile.h"

#include <QDate>
#include <QDir>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QSplitter>
#include <QVBoxLayout>

namespace quorvane::change_log {
namespace {

using controls::Answer;
using controls::ComboBox;
using controls::DateBox;
using controls::Icon;
using controls::ZENButton;

constexpr int kMostShown = 2000;

/// "2011-06-15"; empty for an empty box.
std::string IsoDay(const DateBox& box) {
  const QDate day = QDate::fromString(box.DateText(), QStringLiteral("dd/MM/yyyy"));
  return day.isValid() ? day.toString(Qt::ISODate).toStdString() : std::string();
}

}  // namespace

FrmChangeLog::FrmChangeLog(controls::Desk& desk)
    : ChildWindow(desk, QStringLiteral("FrmChangeLog"), tr("Log of Changes"), {780, 520}) {
  Build();
  Hold({{Field::kFromDate, "Text1_0"}, {Field::kToDate, "Text1_1"}, {Field::kDate, "Text1_1"}});
  FillLists();
  Fill();
}

void FrmChangeLog::Build() {
  auto* rows = new QVBoxLayout(this);
  BuildFilter(*rows);
  VSF = new controls::Grid(QStringLiteral("VSF"), tr("Changes"));
  VSF->SetColumns({{.heading = tr("No.")},
                   {.heading = tr("Time")},
                   {.heading = tr("User")},
                   {.heading = tr("Computer")},
                   {.heading = tr("What")},
                   {.heading = tr("Record")},
                   {.heading = tr("Client")},
                   {.heading = tr("Year")},
                   {.heading = tr("Takes Back")}});
  VSFRows = new controls::Grid(QStringLiteral("VSFRows"), tr("Before and after"));
  VSFRows->SetColumns({{.heading = tr("Of")},
                       {.heading = tr("Value")},
                       {.heading = tr("Before")},
                       {.heading = tr("After")}});
  auto* halves = new QSplitter(Qt::Vertical);
  halves->addWidget(VSF);
  halves->addWidget(VSFRows);
  halves->setChildrenCollapsible(false);
  halves->setStretchFactor(0, 3);
  halves->setStretchFactor(1, 2);
  rows->addWidget(halves, 1);
  LblCount = new QLabel();
  LblCount->setObjectName(QStringLiteral("LblCount"));
  CmdRemove = new ZENButton(QStringLiteral("CmdRemove"), tr("E&xport and Remove Old Entries..."));
  CmdRemove->setToolTip(tr("Writes the entries before the first day to a file and removes them"));
  auto* last = new QHBoxLayout();
  last->addWidget(LblCount, 1);
  last->addWidget(CmdRemove);
  rows->addLayout(last);
  On(VSF, &controls::Grid::CurrentRowChanged, &FrmChangeLog::VSF_RowColChange,
     QStringLiteral("VSF_RowColChange"));
  OnClick(CmdShow, &FrmChangeLog::CmdShow_Click);
  OnClick(CmdRemove, &FrmChangeLog::CmdRemove_Click);
}

void FrmChangeLog::BuildFilter(QVBoxLayout& rows) {
  auto* grid = new QGridLayout();
  int column = 0;
  const auto add = [&](const QString& name, const QString& text, QWidget* box) {
    box->setObjectName(name);
    auto* label = new QLabel(text);
    label->setBuddy(box);
    grid->addWidget(label, 0, column);
    grid->addWidget(box, 1, column++);
  };
  add(QStringLiteral("Text1_0"), tr("&From"), Text1_0 = new DateBox());
  add(QStringLiteral("Text1_1"), tr("&To"), Text1_1 = new DateBox());
  add(QStringLiteral("Combo1"), tr("&User"), Combo1 = new ComboBox());
  add(QStringLiteral("Combo2"), tr("&What"), Combo2 = new ComboBox());
  add(QStringLiteral("Combo3"), tr("&Client"), Combo3 = new ComboBox());
  for (DateBox* box : {Text1_0, Text1_1}) {
    box->setFixedWidth(110);
    Watch(box);
  }
  CmdShow = new ZENButton(QStringLiteral("CmdShow"), tr("&Show"));
  grid->addWidget(CmdShow, 1, column);
  for (int stretched = 2; stretched < column; ++stretched) {
    grid->setColumnStretch(stretched, 1);
  }
  rows.addLayout(grid);
}

void FrmChangeLog::FillLists() {
  directory_ = std::make_unique<lookups::Directory>(*Session().connection);
  Combo1->SetTexts(QStringList(QString()) + changes::Users(*Session().connection));
  QStringList kinds{QString()};
  for (const changes::Kind kind : changes::Kinds()) {
    kinds << changes::NameOf(kind);
  }
  Combo2->SetTexts(kinds);
  QStringList clients{QString()};
  for (const lookups::ClientEntry& client : directory_->Clients()) {
    clients << QString::fromStdString(client.code);
  }
  Combo3->SetTexts(clients);
}

changes::Filter FrmChangeLog::Chosen() const {
  changes::Filter filter;
  filter.from = IsoDay(*Text1_0);
  filter.to = IsoDay(*Text1_1);
  filter.user = Combo1->currentText();
  if (const int kind = Combo2->CurrentPosition(); kind > 0) {
    filter.kind = changes::Kinds()[static_cast<std::size_t>(kind) - 1];
  }
  if (const int client = Combo3->CurrentPosition(); client > 0) {
    filter.client = directory_->Clients()[static_cast<std::size_t>(client) - 1].id;
  }
  filter.newest = kMostShown;
  return filter;
}

void FrmChangeLog::Fill() {
  std::vector<controls::Row> rows;
  changes::ReadEntries(*Session().connection, Chosen(), false, [&](const changes::Entry& entry) {
    rows.push_back({.id = static_cast<int>(entry.id),
                    .cells = {static_cast<qlonglong>(entry.id), changes::TimeOf(entry), entry.user,
                              entry.host, changes::NameOf(entry.kind), changes::SubjectOf(entry),
                              QString::fromStdString(directory_->Client(entry.client).code),
                              QString::fromStdString(entry.year),
                              entry.undoes == 0 ? QVariant() : QVariant(qlonglong{entry.undoes})}});
  });
  LblCount->setText(
      rows.empty() ? tr("There is no such change.")
      : rows.size() == kMostShown
          ? tr("The newest %1 changes; choose days, a user or a client for others.").arg(kMostShown)
          : tr("Changes: %1").arg(rows.size()));
  CmdRemove->setEnabled(Session().connection->Author().May(changes::kAdminister));
  VSF->SetRows(std::move(rows));
  if (VSF->CurrentRow() < 0) {
    VSF->SelectRow(0);
  }
  ShowDifferences();
}

void FrmChangeLog::ShowDifferences() {
  std::vector<controls::Row> rows;
  if (const auto entry = changes::LoadEntry(*Session().connection, VSF->CurrentId())) {
    for (const changes::Difference& one :
         changes::Differences(entry->old_rows, entry->new_rows, changes::NamesIn(*directory_))) {
      rows.push_back({.id = static_cast<int>(rows.size()) + 1,
                      .cells = {one.place, one.column, one.before, one.after}});
    }
  }
  VSFRows->SetRows(std::move(rows));
}

void FrmChangeLog::LookAround(const changes::Novelties& news) {
  if (!news.Entries().empty()) {
    TheGuard().Run(QStringLiteral("LookAround"), [this] { Fill(); });
  }
}

void FrmChangeLog::VSF_RowColChange(int /*row*/) {
  ShowDifferences();
}

bool FrmChangeLog::HasProperDates() {
  for (DateBox* box : {Text1_0, Text1_1}) {
    if (!box->IsProper()) {
      ShowAt(tr("Enter Proper Date."), box);
      return false;
    }
  }
  return true;
}

void FrmChangeLog::CmdShow_Click() {
  if (HasProperDates()) {
    Fill();
  }
}

void FrmChangeLog::CmdRemove_Click() {
  if (!HasProperDates()) {
    return;
  }
  const std::string day = IsoDay(*Text1_0);
  if (day.empty()) {
    return ShowAt(tr("Enter the Day before which Entries are Removed."), Text1_0);
  }
  std::string content = changes::CsvHeadings();
  const Result<std::int64_t> last =
      changes::Export(*Session().connection, day, [&](const changes::Entry& entry) {
        content += changes::CsvOf(entry, directory_->Client(entry.client).code);
      });
  if (!last) {
    return Show(last.Why());
  }
  const QString path = TheDesk().ask_save_path(
      this, QDir::home().filePath(
                QStringLiteral("changes-before-%1.csv").arg(QString::fromStdString(day))));
  if (path.isEmpty()) {
    return;
  }
  platform::WritePrivate(path, QByteArrayView(content));
  if (!Say().Ask(tr("The entries before %1 are in %2. Remove them from the log?")
                     .arg(Text1_0->DateText(), QDir::toNativeSeparators(path)),
                 Answer::kNo, Icon::kCritical)) {
    return;
  }
  const Result<std::int64_t> removed = changes::RemoveUpTo(*Session().connection, *last);
  if (!removed) {
    return Show(removed.Why());
  }
  Text1_0->SetDate({});
  Fill();
  Say().Inform(tr("%1 Entries were Removed.").arg(*removed));
}

}  // namespace quorvane::change_log
