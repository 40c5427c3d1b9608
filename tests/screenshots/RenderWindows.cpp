// Opens every window of the program over a portfolio and saves a picture of each, for a look at
// them and for the user guide: render_windows APPLICATION_FOLDER CLIENT_CODE YEAR OUT_FOLDER

#include "controls/Appearance.h"
#include "controls/ChildWindow.h"
#include "controls/Grid.h"
#include "controls/Style.h"
#include "core/app/AppInfo.h"
#include "core/app/Ini.h"
#include "core/lookups/Directory.h"
#include "support/RecordingMessages.h"
#include "ui/Features.h"
#include "ui/main/MDIForm1.h"

#include <QApplication>
#include <QDir>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>
#include <QTest>

#include <iostream>

namespace {

using namespace quorvane;

constexpr int kSettleMs = 250;

/// As a user finds it at work: a report is on the screen, a record is chosen.
void Fill(controls::ChildWindow& window) {
  if (auto* report = window.findChild<controls::ZENButton*>(QStringLiteral("CmdReport"))) {
    report->click();
    return;
  }
  for (controls::Grid* grid : window.findChildren<controls::Grid*>()) {
    if (grid->Model().RowCount() > 0 && grid->CurrentRow() < 0) {
      grid->SelectRow(0);
    }
  }
}

void Render(ui::MDIForm1& main, controls::Desk& desk, const QString& name, const QDir& out) {
  desk.session.target = name;
  main.Open(name);
  QTest::qWait(kSettleMs);
  auto* window = qobject_cast<controls::ChildWindow*>(
      main.findChild<QMdiArea*>()->subWindowList().last()->widget());
  Fill(*window);
  QTest::qWait(kSettleMs);
  const QSize size = QGuiApplication::primaryScreen()->size();
  const QString file =
      QStringLiteral("%1-%2x%3.png").arg(name).arg(size.width()).arg(size.height());
  if (!main.grab().save(out.filePath(file))) {
    throw std::runtime_error("cannot write " + out.filePath(file).toStdString());
  }
  window->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QTest::qWait(1);
}

void RenderAll(const QStringList& arguments) {
  app::StartUpOptions options;
  options.application_folder = arguments[1];
  options.shipped_data =
      app::ShippedFolder(QCoreApplication::applicationDirPath(), QStringLiteral("shipped"));
  const QSize screen = QGuiApplication::primaryScreen()->size();
  options.screen = app::ScreenSize{screen.width(), screen.height()};
  const auto session = app::StartUp(options);
  const lookups::Directory directory(*session->connection);
  const lookups::ClientEntry* client = directory.FindClient(arguments[2].toStdString());
  const auto year = text::FinancialYear::Parse(arguments[3]);
  if (client == nullptr || !year) {
    throw std::runtime_error("no such client or year");
  }
  session->current = ClientYear{client->id, *year};
  session->current_client_name = QString::fromStdString(client->name);
  test::RecordingMessages messages;
  controls::Desk desk{*session, messages};
  ui::MDIForm1 main(desk);
  main.setGeometry(QRect(QPoint(), screen));
  main.show();
  const QDir out(arguments[4]);
  out.mkpath(QStringLiteral("."));
  for (const ui::Feature& feature : ui::Features()) {
    if (feature.make != nullptr) {
      Render(main, desk, QLatin1String(feature.name), out);
    }
  }
  for (const QString& text : messages.Texts()) {
    std::cerr << text.toStdString() << '\n';
  }
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setWindowIcon(controls::AppIcon());
  if (argc != 5) {
    std::cerr << "usage: render_windows APPLICATION_FOLDER CLIENT_CODE YEAR OUT_FOLDER\n";
    return 2;
  }
  try {
    const app::Folders folders = app::Folders::At(QApplication::arguments()[1]);
    controls::ApplyAppearance(application, app::IniFile(folders.config_file));
    RenderAll(QApplication::arguments());
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
