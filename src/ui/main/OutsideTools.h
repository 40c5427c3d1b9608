#pragma once

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

  bool IsRunning(const QString& name) const;

  /// Brings the program's window to the front; false when it does not run, or where the desktop
  /// does not let one program show the window of another.
  bool Show(const QString& name) const;

  /// Starts the program unless it runs already. False when it is not installed or does not start.
  bool Start(const QString& name);

  /// Where the program is looked for; named in the message when it is missing.
  QString PathOf(const QString& name) const;

 private:
  QString data_folder_;
  std::map<QString, std::unique_ptr<QProcess>> running_;
};

}  // namespace quorvane::ui
