#pragma once

#include "core/lookups/Directory.h"
#include "reporting/screen/window/ReportGridView.h"
#include "support/Files.h"
#include "support/ShownWindow.h"

#include <QAction>

namespace quorvane::test {

/// A report window over a test database. The shipped files lie in a folder of its own. `known` are
/// the other windows that the program has.
template <class Window>
struct ShownReport : ShownWindow<Window> {
  ShownReport(TestDatabase& database, const QString& target, const char* client, int year,
              const QStringList& known = {}) {
    app::Session& session = this->session_;
    session.folders = app::Folders::At(this->folder.path());
    app::InstallShippedFiles(session.folders, QStringLiteral(QUORVANE_SOURCE_DIR "/data/shipped"));
    const lookups::Directory directory(*database);
    const lookups::ClientEntry* found = directory.FindClient(client);
    session.current = ClientYear{found->id, text::FinancialYear(year)};
    session.current_client_name = QString::fromStdString(found->name);
    session.target = target;
    this->desk_.has_window = [known](const QString& name) { return known.contains(name); };
    this->desk_.open_file = [this](const QString& path) {
      this->opened.append(path);
      return opens;
    };
    this->desk_.ask_save_path = [this](QWidget*, const QString&) { return save_path; };
    this->Open(database);
  }

  void Click(const QString& button) const {
    this->template Named<QAbstractButton>(button)->click();
  }
  void Menu(const QString& action) const { this->template Named<QAction>(action)->trigger(); }
  void Enter(const QString& box, const QString& text) const { this->Named(box)->setText(text); }
  const reporting::ReportModel& Screen() const {
    return this->template Named<reporting::ReportGridView>("VS")->Model();
  }

  bool opens = true;
  QString save_path;
};

}  // namespace quorvane::test
