#pragma once

#include <QString>

namespace quorvane::app {

/// Values of this program that hold for the whole machine: key "Software\OrvikInfo\Quorvane" of
/// the local machine in the registry on Windows, a settings file elsewhere.
class MachineKey {
 public:
  /// The registry on Windows; elsewhere the machine's configuration folder when the file is there
  /// or can be made there, else the user's.
  MachineKey();
  explicit MachineKey(QString settings_file);

  /// Value "AdminPass"; empty when it is missing. A plain text of an earlier release is rewritten
  /// in the form of the other passwords. Throws std::runtime_error when it cannot be read, so that
  /// a protected password is never taken for a missing one.
  QString AdminPass() const;

  /// A settings file is closed to all but its owner. Throws std::runtime_error, with the value
  /// unchanged, when it cannot be written.
  void SetAdminPass(const QString& password) const;

 private:
  QString location_;
};

}  // namespace quorvane::app
