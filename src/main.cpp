#include "admin/backup/BackupList.h"
#include "admin/backup/RestoreFiles.h"
#include "admin/users/UserBook.h"
#include "admin/users/window/frmLogin.h"
#include "controls/Desk.h"
#include "controls/Messages.h"
#include "controls/ProgressDialog.h"
#include "controls/Style.h"
#include "core/app/AppInfo.h"
#include "core/app/Ini.h"
#include "core/app/MachineKey.h"
#include "core/app/Session.h"
#include "core/platform/Processes.h"
#include "core/text/Tr.h"
#include "reporting/output/window/RepView.h"
#include "ui/help/FrmHelp.h"
#include "ui/main/MDIForm1.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QMessageBox>
#include <QPointer>
#include <QScreen>
#include <QSplashScreen>
#include <QStatusBar>
#include <QTimer>

namespace {

using namespace quorvane;

app::StartUpOptions Options(const QString& folder, QSplashScreen& splash) {
  app::StartUpOptions options;
  options.application_folder = folder;
  options.shipped_data =
      app::ShippedFolder(QCoreApplication::applicationDirPath(), QStringLiteral("shipped"));
  options.single_copy = true;
  const QSize screen = QGuiApplication::primaryScreen()->size();
  options.screen = app::ScreenSize{screen.width(), screen.height()};
  options.on_first_start = [&splash] {
    splash.show();
    splash.showMessage(quorvane::Tr("Main", "Making the database folder ..."), Qt::AlignCenter);
    QCoreApplication::processEvents();
  };
  return options;
}

/// Shows the main window, after a log-out the login window, and so on until one is closed.
class Desktop {
 public:
  explicit Desktop(app::Session& session) : desk_{{session, messages_}} {
    reports_.Setapppath(session.folders.application);
    reports_.winmodereport(1);
    desk_.show_report = [this](const reporting::ReportDocument& document, QWidget* over) {
      reporting::HandOver(document, reports_, over);
    };
    desk_.show_pages = [this](const QStringList& titles, const QByteArray& pages, QWidget* over) {
      reports_.Open(titles, pages, over);
    };
    desk_.help = [this](const QString& window_name, QWidget* over) {
      help_.Show(window_name, over);
    };
    controls::AskWithDialogs(desk_);
    desk_.open_file = controls::OpenWithDesktop;
  }

  /// Where a user has fewer rights than all, nobody begins without logging in.
  void Begin() {
    if (desk_.session.read_only || !users::UserBook(*desk_.session.connection).HasLimitedUsers()) {
      ShowMainWindow();
    } else {
      ShowLogin();
    }
  }

  /// There is one main window at most: one that is open comes to the front.
  void ShowMainWindow() {
    if (main_ != nullptr && main_->isVisible()) {
      main_->activateWindow();
      return;
    }
    main_ = new ui::MDIForm1(desk_);
    main_->setAttribute(Qt::WA_DeleteOnClose);
    reports_.StatusBarobj(main_->statusBar());
    QObject::connect(main_, &ui::MDIForm1::LoggedOut, main_, [this] { ShowLogin(); });
    main_->show();
  }

  /// The day's automatic backup, when it is wanted and not there yet.
  void BackUpIfDue() {
    controls::Guard(messages_).Run(QStringLiteral("AutomaticBackUp"), [this] {
      app::Session& session = desk_.session;
      const backup::Settings settings = backup::ReadSettings(session.folders);
      if (session.read_only || !backup::IsAutomaticDue(settings, QDate::currentDate())) {
        return;
      }
      controls::ProgressDialog progress(main_);
      const MaybeRefusal refusal = backup::MakeAutomatic(
          {*session.connection, session.folders}, settings, QDateTime::currentDateTime(), progress);
      if (refusal) {
        throw std::runtime_error(refusal->text.toStdString());
      }
    });
  }

 private:
  void ShowLogin() {
    auto* login = new users::frmLogin(
        desk_, users::Login(*desk_.session.connection, app::MachineKey(), attempts_));
    QObject::connect(login, &users::frmLogin::Admitted, login, [this] { ShowMainWindow(); });
    login->show();
  }

  controls::MessageBoxes messages_;
  reporting::ReportDesk desk_;
  users::Attempts attempts_;
  reporting::RepView reports_{desk_};
  ui::Help help_{app::ShippedFolder(QCoreApplication::applicationDirPath(),
                                    QStringLiteral("docs/user-guide"))};
  QPointer<ui::MDIForm1> main_;
};

int Run(QApplication& application, const QString& folder) {
  QSplashScreen splash(QPixmap(360, 120));
  try {
    controls::ApplyAppearance(application, app::IniFile(app::Folders::At(folder).config_file));
    const std::unique_ptr<app::Session> session = app::StartUp(Options(folder, splash));
    if (!session->read_only) {
      backup::SettleInterruptedRestore(*session->connection, session->folders);
    }
    splash.close();
    if (session->read_only) {
      QMessageBox::warning(
          nullptr, app::TitleText().trimmed(),
          quorvane::Tr("Main",
                       "The disk of %1 is full. Records can be shown, exported and "
                       "backed up to another disk; nothing can be changed until "
                       "there is room and the program was started again.")
              .arg(QDir::toNativeSeparators(folder)));
    }
    Desktop desktop(*session);
    desktop.Begin();
    QTimer::singleShot(0, &application, [&desktop] { desktop.BackUpIfDue(); });
    return application.exec();
  } catch (const std::exception& error) {
    splash.close();
    if (platform::EndRequested()) {
      return 1;
    }
    QMessageBox::critical(nullptr, app::TitleText().trimmed(), QString::fromUtf8(error.what()));
    return 1;
  }
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  platform::NoteEndRequests();
  // Without the questions that a window asks before it closes: nobody is there to answer them.
  platform::OnEndRequest(&application, [] { QCoreApplication::exit(0); });
  QCoreApplication::setApplicationName(QStringLiteral("quorvane"));
  QGuiApplication::setDesktopFileName(QStringLiteral("in.quorvane.Quorvane"));
  QApplication::setWindowIcon(controls::AppIcon());
  QCoreApplication::setApplicationVersion(QLatin1String(app::kVersionText));
  QCommandLineParser parser;
  parser.addHelpOption();
  parser.addVersionOption();
  const QCommandLineOption data(QStringLiteral("data"),
                                QStringLiteral("Application folder with the settings and data"),
                                QStringLiteral("DIR"));
  parser.addOption(data);
  parser.process(application);
  const QString folder =
      parser.isSet(data) ? QDir(parser.value(data)).absolutePath()
                         : app::DefaultApplicationFolder(QCoreApplication::applicationDirPath());
  return Run(application, folder);
}
