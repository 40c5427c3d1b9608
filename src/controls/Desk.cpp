#include "controls/Desk.h"

#include "controls/WindowMemory.h"
#include "core/text/Tr.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QUrl>

namespace quorvane::controls {

namespace {

const QString kSection = QStringLiteral("Files");

/// The folder of the last file or the last folder that was chosen for a purpose ("Open").
class LastFolder {
 public:
  LastFolder(const WindowMemory& memory, const char* purpose)
      : memory_(memory), purpose_(QLatin1String(purpose)) {}

  QString Or(const QString& fallback) const {
    const QString last = memory_.Text(kSection, purpose_);
    return !last.isEmpty() && QFileInfo(last).isDir() ? last : fallback;
  }

  QString Note(const QString& folder, const QString& chosen) const {
    if (!chosen.isEmpty()) {
      memory_.Keep(kSection, purpose_, folder);
    }
    return chosen;
  }

 private:
  WindowMemory memory_;
  QString purpose_;
};

QString AskSavePath(QWidget* over, const QString& suggested_path, const LastFolder& last) {
  const QFileInfo suggested(suggested_path);
  QFileDialog dialog(over, Tr("DesktopFiles", "Save As"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(suggested.suffix());
  dialog.setNameFilter(
      QStringLiteral("%1 (*.%2)").arg(suggested.suffix().toUpper(), suggested.suffix()));
  dialog.setDirectory(last.Or(suggested.absolutePath()));
  dialog.selectFile(suggested.fileName());
  const QString path =
      dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
  return last.Note(QFileInfo(path).absolutePath(), path);
}

QString AskOpenPath(QWidget* over, const QString& folder, const QString& filters,
                    const LastFolder& last) {
  const QString path =
      QFileDialog::getOpenFileName(over, Tr("DesktopFiles", "Choose a File"),
                                   last.Or(folder.isEmpty() ? QDir::homePath() : folder), filters);
  return last.Note(QFileInfo(path).absolutePath(), path);
}

QStringList AskOpenPaths(QWidget* over, const QString& filters, const LastFolder& last) {
  QStringList paths = QFileDialog::getOpenFileNames(over, Tr("DesktopFiles", "Choose Files"),
                                                    last.Or(QDir::homePath()), filters);
  if (!paths.isEmpty()) {
    last.Note(QFileInfo(paths.front()).absolutePath(), paths.front());
  }
  return paths;
}

QString AskFolder(QWidget* over, const QString& start, const LastFolder& last) {
  const QString folder =
      QFileDialog::getExistingDirectory(over, Tr("DesktopFiles", "Choose a Folder"),
                                        start.isEmpty() ? last.Or(QDir::homePath()) : start);
  return last.Note(folder, folder);
}

}  // namespace

bool OpenWithDesktop(const QString& path) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

void AskWithDialogs(Desk& desk) {
  const WindowMemory memory(desk.session.folders);
  desk.ask_save_path = [last = LastFolder(memory, "Save")](QWidget* over, const QString& path) {
    return AskSavePath(over, path, last);
  };
  desk.ask_open_path = [last = LastFolder(memory, "Open")](QWidget* over, const QString& folder,
                                                           const QString& filters) {
    return AskOpenPath(over, folder, filters, last);
  };
  desk.ask_open_paths = [last = LastFolder(memory, "Open")](QWidget* over, const QString& filters) {
    return AskOpenPaths(over, filters, last);
  };
  desk.ask_folder = [last = LastFolder(memory, "Folder")](QWidget* over, const QString& start) {
    return AskFolder(over, start, last);
  };
}

}  // namespace quorvane::controls
