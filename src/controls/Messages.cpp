#include "controls/Messages.h"

#include "core/app/AppInfo.h"

#include <QApplication>
#include <QMessageBox>

namespace quorvane::controls {

namespace {

QMessageBox::Icon BoxIcon(Icon icon) {
  return icon == Icon::kCritical ? QMessageBox::Critical : QMessageBox::Information;
}

int Show(const QString& text, QMessageBox::Icon icon, QMessageBox::StandardButtons buttons,
         QMessageBox::StandardButton preset) {
  QMessageBox box(icon, app::TitleText(), text, buttons, QApplication::activeWindow());
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(preset);
  return box.exec();
}

}  // namespace

void MessageBoxes::Inform(const QString& text) {
  Show(text, QMessageBox::Information, QMessageBox::Ok, QMessageBox::Ok);
}

void MessageBoxes::Refuse(const QString& text) {
  Show(text, QMessageBox::Critical, QMessageBox::Ok, QMessageBox::Ok);
}

bool MessageBoxes::Ask(const QString& text, Answer preset, Icon icon) {
  return Show(text, BoxIcon(icon), QMessageBox::Yes | QMessageBox::No,
              preset == Answer::kYes ? QMessageBox::Yes : QMessageBox::No) == QMessageBox::Yes;
}

}  // namespace quorvane::controls
