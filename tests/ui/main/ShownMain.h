#pragma once

#include "controls/ChildWindow.h"
#include "support/Files.h"
#include "support/LocalExchange.h"
#include "support/OnScreen.h"
#include "support/RecordingMessages.h"
#include "support/TestDatabase.h"
#include "ui/main/MDIForm1.h"

#include <QAction>
#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>

namespace quorvane::test {

/// The main window over a test database, its index feed asked of a local exchange.
struct ShownMain {
  static constexpr char kFeedPath[] = "/sensex/xml-data/sensexrss.xml";

  explicit ShownMain(const LocalExchange::Reply& feed = {.status = 404}) {
    exchange.Answer(QLatin1String(kFeedPath), feed);
    session.folders = app::Folders::At(folder.path());
    app::InstallShippedFiles(session.folders, QStringLiteral(QUORVANE_SOURCE_DIR "/data/shipped"));
    session.connection = std::make_unique<database::Connection>(database.Settings());
    WriteFile(session.folders.config_file,
              "[Internet]\nIndexFeed=" + exchange.Address().toEncoded() + kFeedPath + "\n");
    Open();
  }
  ~ShownMain() { delete main; }
  ShownMain(const ShownMain&) = delete;

  void Open() {
    main = new ui::MDIForm1(desk);
    main->setAttribute(Qt::WA_DeleteOnClose);
    PutOnScreen(*main);
  }

  void Choose(const char* item) const {
    main->findChild<QAction*>(QLatin1String(item))->trigger();
    QApplication::processEvents();
  }

  QStringList OpenWindows() const {
    QStringList names;
    for (const QMdiSubWindow* frame : main->findChild<QMdiArea*>()->subWindowList()) {
      names << frame->widget()->objectName();
    }
    return names;
  }

  template <class Control>
  Control* Named(const char* name) const {
    return main->findChild<Control*>(QLatin1String(name));
  }

  LocalExchange exchange;
  QTemporaryDir folder;
  TestDatabase database;
  app::Session session;
  RecordingMessages messages;
  reporting::ReportDesk desk{{session, messages, [] { return *text::MakeDate(15, 11, 2011); }}};
  QPointer<ui::MDIForm1> main;
};

}  // namespace quorvane::test
