#include "ui/main/OutsideTools.h"

#include "core/platform/Processes.h"

#include <QFileInfo>

namespace quorvane::ui {

OutsideTools::OutsideTools(const QString& data_folder, QObject* parent)
    : QObject(parent), data_folder_(data_folder) {}

QString OutsideTools::PathOf(const QString& name) const {
  const QString with_ending = data_folder_ + QLatin1Char('/') + name + QStringLiteral(".exe");
  const QString plain = data_folder_ + QLatin1Char('/') + name;
#ifdef Q_OS_WIN
  return with_ending;
#else
  return QFileInfo(plain).isFile() || !QFileInfo(with_ending).isFile() ? plain : with_ending;
#endif
}

bool OutsideTools::IsRunning(const QString& name) const {
  const auto found = running_.find(name);
  return found != running_.end() && found->second->state() != QProcess::NotRunning;
}

bool OutsideTools::BringUp(const QString& name, controls::Messages& messages) const {
  if (platform::ShowWindowTitled(name)) {
    return true;
  }
  if (IsRunning(name)) {
    messages.Inform(tr("%1 is running already.").arg(name));
    return true;
  }
  return false;
}

void OutsideTools::Open(const QString& name, controls::Messages& messages) {
  if (!BringUp(name, messages) && !Start(name)) {
    messages.Refuse(tr("Couldn't start %1. Expected the program as %2.").arg(name, PathOf(name)));
  }
}

bool OutsideTools::Start(const QString& name) {
  const QString path = PathOf(name);
  if (!QFileInfo(path).isExecutable() || QFileInfo(path).isDir()) {
    return false;
  }
  constexpr int kLongestStartMs = 2000;
  auto process = std::make_unique<QProcess>();
  process->setWorkingDirectory(data_folder_);
  process->start(path, QStringList());
  if (!process->waitForStarted(kLongestStartMs)) {
    return false;
  }
  running_[name] = std::move(process);
  return true;
}

}  // namespace quorvane::ui
