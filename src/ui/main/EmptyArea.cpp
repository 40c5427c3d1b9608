#include "ui/main/EmptyArea.h"

#include "admin/backup/BackupList.h"
#include "masters/client_list/ClientList.h"
#include "reports/home/window/HomePane.h"
#include "ui/main/StartPage.h"

#include <optional>

namespace quorvane::ui {

EmptyArea::EmptyArea(controls::Desk& desk, OpenWindows& area)
    : QObject(&area),
      desk_(desk),
      area_(area),
      start_(new StartPage(area)),
      home_(new home::HomePane(desk, area)) {
  connect(start_, &StartPage::Chosen, this, &EmptyArea::Chosen);
  connect(home_, &home::HomePane::Chosen, this, &EmptyArea::Chosen);
  connect(&area, &OpenWindows::Opening, this, &EmptyArea::Hide);
}

void EmptyArea::Refresh() {
  has_clients_ = has_clients_ || client_list::HasClients(*desk_.session.connection);
  const bool is_empty = area_.IsEmpty();
  start_->setVisible(is_empty && !has_clients_);
  if (is_empty && has_clients_) {
    const auto backups = backup::ListBackups(backup::ReadSettings(desk_.session.folders).folder);
    home_->SetBackup(backups.empty() ? std::nullopt : std::optional(backups.front().made));
  }
  home_->setVisible(is_empty && has_clients_);
}

void EmptyArea::Hide() {
  start_->hide();
  home_->hide();
}

void EmptyArea::ShowTexts() {
  start_->ShowTexts();
  home_->ShowTexts();
}

}  // namespace quorvane::ui
