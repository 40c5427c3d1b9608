#include "controls/DesktopFiles.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QUrl>

namespace quorvane::controls {

bool OpenWithDesktop(const QString& path) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
}

QString AskSavePath(QWidget* over, const QString& suggested_path) {
  const QString suffix = QFileInfo(suggested_path).suffix();
  QFileDialog dialog(over, QCoreApplication::translate("DesktopFiles", "Save As"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix(suffix);
  dialog.setNameFilter(QStringLiteral("%1 (*.%2)").arg(suffix.toUpper(), suffix));
  dialog.setDirectory(QFileInfo(suggested_path).absolutePath());
  dialog.selectFile(QFileInfo(suggested_path).fileName());
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

QString AskOpenPath(QWidget* over, const QString& folder, const QString& filters) {
  return QFileDialog::getOpenFileName(
      over, QCoreApplication::translate("DesktopFiles", "Choose a File"), folder, filters);
}

QString AskFolder(QWidget* over, const QString& start) {
  return QFileDialog::getExistingDirectory(
      over, QCoreApplication::translate("DesktopFiles", "Choose a Folder"), start);
}

}  // namespace quorvane::controls
