#pragma once

#include "admin/backup/BackupList.h"
#include "controls/Grid.h"
#include "core/Result.h"

#include <vector>

namespace quorvane::backup {

/// The backups of a folder as a list, the newest first.
class BackupsView : public controls::Grid {
  Q_OBJECT

 public:
  explicit BackupsView(QWidget* parent = nullptr);

  /// Lists a folder of backups, or a single backup when the folder is one. The first is current
  /// unless the one that was current before is still there.
  void ShowFolder(const QString& folder);

  /// nullptr when none is current.
  const Entry* Current() const;
  void Select(const QString& path);

  /// Reads every byte of the current backup, shows the progress and then the state in the list.
  /// Refused when none is current or it is damaged. Throws Cancellation.
  MaybeRefusal Verify();

  /// Shows that a backup was just made or read without a fault.
  void ShowVerified(const QString& path) { SetState(path, BackupState::kVerified); }

  bool IsEmpty() const { return entries_.empty(); }

 private:
  void Fill();
  void SetState(const QString& path, BackupState state, const QString& fault = {});

  std::vector<Entry> entries_;
};

/// "25/11/2026 08:15".
QString DateText(const QDateTime& made);

/// "Verified", "Complete", "Damaged", "Not finished".
QString StateText(BackupState state);

}  // namespace quorvane::backup
