#include "admin/backup/window/BackupsView.h"

#include "controls/ProgressDialog.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>

#include <algorithm>

namespace quorvane::backup {
namespace {

QString KindText(Kind kind) {
  switch (kind) {
    case Kind::kAutomatic:
      return BackupsView::tr("Automatic");
    case Kind::kReplaced:
      return BackupsView::tr("Before a restore");
    case Kind::kByHand:
      break;
  }
  return BackupsView::tr("By hand");
}

QString SizeText(const Entry& entry) {
  return entry.state == BackupState::kUnfinished
             ? QString()
             : QLocale(QLocale::English).formattedDataSize(entry.bytes, 1);
}

std::vector<Entry> EntriesOf(const QString& folder) {
  const bool is_backup = QFileInfo::exists(QDir(folder).filePath(QStringLiteral("manifest.json")));
  return is_backup ? std::vector<Entry>{Look(QDir(folder).absolutePath())} : ListBackups(folder);
}

}  // namespace

QString DateText(const QDateTime& made) {
  return made.toString(QStringLiteral("dd/MM/yyyy HH:mm"));
}

QString StateText(BackupState state) {
  switch (state) {
    case BackupState::kVerified:
      return BackupsView::tr("Verified");
    case BackupState::kComplete:
      return BackupsView::tr("Complete");
    case BackupState::kDamaged:
      return BackupsView::tr("Damaged");
    case BackupState::kUnfinished:
      break;
  }
  return BackupsView::tr("Not finished");
}

BackupsView::BackupsView(QWidget* parent) : Grid(QStringLiteral("VSF"), tr("Backups"), parent) {
  SetColumns({{.heading = tr("Made")},
              {.heading = tr("How")},
              {.heading = tr("Size"), .alignment = controls::Alignment::kRight},
              {.heading = tr("State")},
              {.heading = tr("Folder")}});
  // The order by date would be one of texts.
  SetSortable(false);
}

void BackupsView::ShowFolder(const QString& folder) {
  const Entry* current = Current();
  const QString path = current != nullptr ? current->path : QString();
  entries_ = EntriesOf(folder);
  Fill();
  Select(path);
  if (Current() == nullptr && !entries_.empty()) {
    SelectRow(0);
  }
}

void BackupsView::Fill() {
  std::vector<controls::Row> rows;
  for (const Entry& entry : entries_) {
    rows.push_back({.id = static_cast<int>(rows.size()) + 1,
                    .cells = {DateText(entry.made), KindText(entry.kind), SizeText(entry),
                              StateText(entry.state), entry.name}});
  }
  SetRows(std::move(rows));
}

const Entry* BackupsView::Current() const {
  const int id = CurrentId();
  return id < 1 || static_cast<std::size_t>(id) > entries_.size()
             ? nullptr
             : &entries_[static_cast<std::size_t>(id) - 1];
}

void BackupsView::Select(const QString& path) {
  const auto found = std::ranges::find(entries_, path, &Entry::path);
  if (found != entries_.end()) {
    SelectId(static_cast<int>(found - entries_.begin()) + 1);
  }
}

MaybeRefusal BackupsView::Verify() {
  if (Current() == nullptr) {
    return Refusal{tr("Select a BackUp!"), Field::kRecord};
  }
  const QString path = Current()->path;
  MaybeRefusal refusal;
  {
    controls::ProgressDialog progress(window());
    refusal = VerifyBackup(path, progress).Refused();
  }
  SetState(path, refusal ? BackupState::kDamaged : BackupState::kVerified,
           refusal ? refusal->text : QString());
  return refusal;
}

void BackupsView::SetState(const QString& path, BackupState state, const QString& fault) {
  const auto found = std::ranges::find(entries_, path, &Entry::path);
  if (found == entries_.end()) {
    return;
  }
  found->state = state;
  found->fault = fault;
  constexpr int kStateColumn = 3;
  Model().SetValue(static_cast<int>(found - entries_.begin()), kStateColumn, StateText(state));
}

}  // namespace quorvane::backup
