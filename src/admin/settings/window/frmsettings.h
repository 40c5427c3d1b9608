#pragma once

#include "admin/settings/DatabaseTrial.h"
#include "admin/settings/Settings.h"
#include "controls/ChildWindow.h"

#include <array>
#include <functional>

class QLabel;
class QRadioButton;
class QTabWidget;

namespace quorvane::controls {
class ComboBox;
class FieldLayout;
}  // namespace quorvane::controls

namespace quorvane::settings {

/// The name of the box of a setting, as "Text1_3".
inline QString BoxOf(Text text) {
  return QStringLiteral("Text1_%1").arg(static_cast<int>(text));
}

/// The settings: screen, theme and language, folders, database, exchange hosts, printer. They are
/// kept as a whole by "Save" or not at all.
class frmsettings : public controls::ChildWindow {
  Q_OBJECT

 public:
  /// `choose_folder` asks for a folder, beginning with one; empty when none was chosen.
  using FolderDialog = std::function<QString(QWidget* over, const QString& from)>;
  explicit frmsettings(controls::Desk& desk, FolderDialog choose_folder = AskFolder);

 protected:
  void Reveal(QWidget* field) override;
  bool MayClose() override;

 private:
  static QString AskFolder(QWidget* over, const QString& from);

  QWidget* DisplayPage();
  QWidget* FoldersPage();
  QWidget* DatabasePage();
  QWidget* InternetPage();
  QWidget* PrinterPage();
  QWidget* BillsPage();
  QWidget* ReportsFolder();
  QLayout* DatabaseChoice();
  QLayout* TrialRow();
  QLayout* Buttons();
  void AddText(controls::FieldLayout& fields, Text text, const QString& label, int span = 1);
  void AddChoice(controls::FieldLayout& fields, Text text, const QString& label,
                 const QStringList& values, const QStringList& shown);
  void ListPrinters(int page);
  void Connect();

  void Put(const Settings& settings);
  Settings Entered() const;
  QString TextIn(Text text) const;
  void Enable();

  void cmdFolder_Click();
  void cmdTest_Click();
  void TestFinished(const QString& failure, const QString& about);
  void cmdUpdate_Click();
  void cmdexit_Click();
  void Apply(const Settings& before);

  FolderDialog choose_folder_;
  Settings kept_;
  DatabaseTrial trial_;
  QTabWidget* pages_ = nullptr;
  std::array<QWidget*, kTexts> boxes_{};
  std::array<QStringList, kTexts> values_{};  ///< of the choices
  controls::ComboBox* Combo1 = nullptr;       ///< the screen mode
  QRadioButton* Option1 = nullptr;            ///< the program's own database
  QRadioButton* Option2 = nullptr;            ///< another server
  QLabel* lblTest = nullptr;
  controls::ZENButton* cmdFolder = nullptr;
  controls::ZENButton* cmdTest = nullptr;
  controls::ZENButton* cmdUpdate = nullptr;
  controls::ZENButton* cmdexit = nullptr;
};

}  // namespace quorvane::settings
