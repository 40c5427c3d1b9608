#include "admin/settings/Settings.h"
#include "admin/settings/window/frmsettings.h"
#include "controls/ComboBox.h"
#include "controls/Style.h"
#include "controls/TextBox.h"
#include "core/app/Ini.h"
#include "core/rates/QuoteDesk.h"
#include "support/Files.h"
#include "support/OnScreen.h"
#include "support/RecordingMessages.h"
#include "support/Test.h"
#include "support/TestDatabase.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QPointer>
#include <QRadioButton>
#include <QTcpServer>

using namespace quorvane;
using namespace quorvane::settings;

class frmsettingsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    folder_.emplace();
    session_.folders = app::Folders::At(folder_->path());
    session_.folders.screen_ini = folder_->filePath("screen/OrvikConfig.INI");
    messages_.said.clear();
  }
  void cleanup() {
    delete window_;
    window_ = nullptr;
    folder_.reset();
  }

  void SavedSettingsAreReadBackAndTheRestStays() {
    Write("; by hand\n[Backup]\nFolder=/b\n[Internet]\nBseHost=https://old.example\n");
    Open();
    Box(NseHost)->setText("https://nse.example");
    Box(BseHost)->setText("");
    QCOMPARE(Box(NseArchiveHost)->text(), QString("https://nsearchives.nseindia.com"));
    Box(NseArchiveHost)->setText("https://archive.example");
    Choice("Combo1")->ById(1);
    Box(Width)->setText("1024");
    Box(Height)->setText("768");
    Choice(BoxOf(WholeRupeeStt))->ById(1);
    Click("cmdUpdate");
    QCOMPARE(messages_.Texts(), QStringList("The settings are saved."));
    QCOMPARE(test::ReadFile(Config()),
             QByteArray("; by hand\n[Backup]\nFolder=/b\n[Internet]\nBseHost=\n"
                        "NseHost=https://nse.example\n"
                        "NseArchiveHost=https://archive.example\n"
                        "[Bills]\nWholeRupeeStt=yes\n"));
    const auto hosts = rates::ExchangeHosts::From(app::IniFile(Config()));
    QCOMPARE(hosts.nse_archive, QUrl("https://archive.example"));
    QCOMPARE(test::ReadFile(session_.folders.screen_ini),
             QByteArray("[ScrReso]\nOpt=1\nX=1024\nY=768\n"));
    QCOMPARE(session_.screen_factors.horizontal, 1024.0F / 800);
    QVERIFY(window_->close());
    QCOMPARE(messages_.said.size(), std::size_t{1});
  }

  void LanguageHoldsAtOnce() {
    Open();
    const auto caption = [] { return QCoreApplication::translate("MainMenu", "Clients"); };
    Choice(BoxOf(Language))->ById(1);
    Click("cmdUpdate");
    QCOMPARE(caption(), QString("ग्राहक"));
    QVERIFY(messages_.LastText() != "The settings are saved.");
    Choice(BoxOf(Language))->ById(0);
    Click("cmdUpdate");
    QCOMPARE(caption(), QString("Clients"));
  }

  void WhatCannotBeKeptIsRefusedAndNothingIsWritten_data() {
    const QString pixels =
        "Enter a Resolution from 640 to 16384 Pixels, or 0 for the Screen's own.";
    const QString address = "Enter a Web Address such as https://www.example.com, or Nothing.";
    const test::Table<int, QString, QString> row;
    row("too few pixels", Width, "639", pixels);
    row("folder", Reports, "/no/such", "The Folder /no/such does not Exist.");
    row("port", Port, "65536", "Enter a Port from 1 to 65535.");
    row("authority", TlsCa, "/no/such.pem", "The File /no/such.pem does not Exist.");
    row("no server", Server, "", "Enter the Database Server.");
    row("address without its kind", BseHost, "www.example.com", address);
    row("address of a file", IndexFeed, "file:///etc/passwd", address);
    row("too long", ArchiveHost, "https://" + QString(250, 'a'),
        "The Text is too Long. At Most 250 Letters are Kept.");
  }
  void WhatCannotBeKeptIsRefusedAndNothingIsWritten() {
    const auto [text, value, message] = test::Table<int, QString, QString>::Row();
    Open();
    Choice("Combo1")->ById(1);
    window_->findChild<QRadioButton*>("Option2")->setChecked(true);
    Box(Server)->setText("db.example");
    Box(Database)->setText("shares");
    Box(NseHost)->setText("https://good.example");
    Box(static_cast<Text>(text))->setText(value);
    Click("cmdUpdate");
    QCOMPARE(messages_.Texts(), QStringList(message));
    QVERIFY(Box(static_cast<Text>(text))->hasFocus());
    QVERIFY(!QFile::exists(Config()) && !QFile::exists(session_.folders.screen_ini));
  }

  void FailureOfOneFileTakesTheOtherBack() {
    QVERIFY(QDir().mkpath(Config()));  // a folder in the place of the file
    Settings settings;
    settings.screen_mode = ScreenMode::kAsDesigned;
    settings.texts[NseHost] = "https://nse.example";
    QVERIFY_EXCEPTION_THROWN(SaveSettings(session_.folders, settings), std::runtime_error);
    const app::IniFile screen(session_.folders.screen_ini);
    QCOMPARE(screen.Read("ScrReso", "Opt", "0"), QString("0"));
  }

  void OwnDatabaseForgetsTheServer() {
    Write("[Database]\nServer=db.example\nDatabase=shares\nPassword=secret\n");
    Open();
    QVERIFY(window_->findChild<QRadioButton*>("Option2")->isChecked());
    window_->findChild<QRadioButton*>("Option1")->setChecked(true);
    QVERIFY(!Box(Server)->isEnabled());
    Click("cmdUpdate");
    QCOMPARE(test::ReadFile(Config()), QByteArray("[Database]\n"));
    QVERIFY(messages_.LastText().contains("the next time"));
  }

  void ConnectionIsTriedWithoutWaiting() {
    test::TestDatabase database;
    const auto& reached = database.Settings();
    Open();
    window_->findChild<QRadioButton*>("Option2")->setChecked(true);
    Box(Socket)->setText(reached.socket);
    Box(Database)->setText(reached.database);
    Box(User)->setText(reached.user);
    Box(Password)->setText(reached.password);
    Click("cmdTest");
    QTRY_VERIFY_WITH_TIMEOUT(Outcome().startsWith("Connected. The server is "), 20000);
    Box(Database)->setText("no_such_database");
    Click("cmdTest");
    QTRY_VERIFY_WITH_TIMEOUT(Outcome().contains("no_such_database"), 20000);
    QVERIFY(window_->findChild<QWidget*>("cmdTest")->isEnabled());
  }

  void ChangedSettingsAreAskedAboutOnClosing() {
    Open();
    Box(Reports)->setText(folder_->path());
    messages_.WillAnswer(false);
    QVERIFY(!window_->close());
    QCOMPARE(messages_.Texts(),
             QStringList("The Settings were Changed. Close without Saving them?"));
    QCOMPARE(Box(Reports)->text(), folder_->path());
  }

 private:
  void Open() {
    window_ = new frmsettings(desk_);
    test::PutOnScreen(*window_);
  }
  controls::TextBox* Box(Text text) const {
    return window_->findChild<controls::TextBox*>(BoxOf(text));
  }
  controls::ComboBox* Choice(const QString& name) const {
    return window_->findChild<controls::ComboBox*>(name);
  }
  void Click(const char* name) const {
    window_->findChild<controls::ZENButton*>(QLatin1String(name))->click();
  }
  QString Outcome() const { return window_->findChild<QLabel*>("lblTest")->text(); }
  QString Config() const { return session_.folders.config_file; }
  void Write(const QByteArray& content) const { test::WriteFile(Config(), content); }
  std::optional<QTemporaryDir> folder_;
  app::Session session_;
  test::RecordingMessages messages_;
  controls::Desk desk_{session_, messages_};
  QPointer<frmsettings> window_;
};

static const test::RegisterTest<frmsettingsTest> kRegistered;
#include "frmsettingsTest.moc"
