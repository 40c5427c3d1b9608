#pragma once

#include "core/lookups/Directory.h"
#include "masters/ShownWindow.h"
#include "reporting/screen/window/ReportGridView.h"

#include <QAction>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace quorvane::test {

/// A report window over a test database, with what leaves it written down. The shipped files lie in
/// a folder of its own.
template <class Window>
struct ShownReport {
  ShownReport(TestDatabase& database, const QString& target, const char* client, int year) {
    session.connection = std::make_unique<database::Connection>(database.Settings());
    session.folders = app::Folders::At(folder.path());
    app::InstallShippedFiles(session.folders, QStringLiteral(QUORVANE_SOURCE_DIR "/data/shipped"));
    const lookups::Directory directory(*session.connection);
    const lookups::ClientEntry* found = directory.FindClient(client);
    session.current = ClientYear{found->id, text::FinancialYear(year)};
    session.current_client_name = QString::fromStdString(found->name);
    session.target = target;
    desk.open_file = [this](const QString& path) {
      opened.append(path);
      return opens;
    };
    desk.ask_save_path = [this](QWidget*, const QString&) { return save_path; };
    desk.show_report = [this](const reporting::ReportDocument& document, QWidget*) {
      printed.push_back(document);
    };
    window = std::make_unique<Window>(desk);
    window->show();
    window->activateWindow();
    if (!QTest::qWaitForWindowActive(window.get())) {
      throw std::runtime_error("the window does not become active");
    }
  }

  template <class Control>
  Control* Named(const QString& name) const {
    return window->template findChild<Control*>(name);
  }
  void Click(const QString& button) const { Named<QAbstractButton>(button)->click(); }
  void Menu(const QString& action) const { Named<QAction>(action)->trigger(); }
  void Choose(const QString& combo, const QString& text) const {
    auto* box = Named<QComboBox>(combo);
    box->setCurrentIndex(box->findText(text));
  }
  QString TextIn(const QString& box) const { return Named<QLineEdit>(box)->text(); }
  void Enter(const QString& box, const QString& text) const {
    Named<QLineEdit>(box)->setText(text);
  }
  const reporting::ReportModel& Screen() const {
    return Named<reporting::ReportGridView>("VS")->Model();
  }

  QTemporaryDir folder;
  app::Session session;
  RecordingMessages messages;
  reporting::ReportDesk desk{{session, messages, [] { return *text::MakeDate(15, 11, 2011); }}};
  QStringList opened;
  bool opens = true;
  QString save_path;
  std::vector<reporting::ReportDocument> printed;
  std::unique_ptr<Window> window;
};

}  // namespace quorvane::test
