#pragma once

#include "controls/Messages.h"

#include <QObject>
#include <QProcess>
#include <QString>

#include <map>
#include <memory>

namespace quorvane::ui {

/// The separate programs that come with this one and are in its Data folder: "MRate" and
/// "Converter". On Windows they end in ".exe", elsewhere they may.
class OutsideTools : public QObject {
  Q_OBJECT

 public:
  explicit OutsideTools(const QString& data_folder, QObject* parent = nullptr);

  /// Brings the program to the front, or starts it. Says so when it is not installed or does not
  /// start.
  void Open(const QString& name, controls::Messages& messages);

  /// Brings a program that runs to the front, or says that it runs where the desktop does not let
  /// one program show the window of another. False when it does not run.
  bool BringUp(const QString& name, controls::Messages& messages) const;

 private:
  bool IsRunning(const QString& name) const;
  bool Start(const QString& name);
  QString PathOf(const QString& name) const;

  QString data_folder_;
  std::map<QString, std::unique_ptr<QProcess>> running_;
};

}  // namespace quorvane::ui
