#include "core/app/Ini.h"
#include "core/app/Session.h"
#include "support/Files.h"
#include "support/Test.h"

#include <QProcess>

#include <stdexcept>

using namespace quorvane::app;
namespace test = quorvane::test;

class IniTest : public QObject {
  Q_OBJECT

  IniFile Given(const QByteArray& content) {
    return IniFile(test::WriteFile(folder_->filePath("Confg.ini"), content));
  }

  QByteArray Content() { return test::ReadFile(folder_->filePath("Confg.ini")); }

  using Make = std::function<bool(const QString&)>;

  std::unique_ptr<QTemporaryDir> folder_;

 private Q_SLOTS:
  void init() { folder_ = std::make_unique<QTemporaryDir>(); }

  void ReadsAValue_data() {
    const test::Table<QByteArray, QString> row;
    row("no line end", QByteArray("[Paths]\nBackup=/srv"), "/srv");
    row("Windows line ends", QByteArray("[Paths]\r\nBackup=/srv\r\n"), "/srv");
    row("any case", QByteArray("[PATHS]\nbackUP=/srv\n"), "/srv");
    row("blanks", QByteArray(" [ Paths ] \n\t Backup =  /srv \t\n"), "/srv");
    row("single quotes", QByteArray("[Paths]\nBackup='/srv'\n"), "/srv");
    row("empty value", QByteArray("[Paths]\nBackup=\n"), "");
    row("key without =", QByteArray("[Paths]\nBackup\n"), "default");
    row("other key", QByteArray("[Paths]\nBackups=1\n"), "default");
    row("value with =", QByteArray("[Paths]\nBackup=a=b;c\n"), "a=b;c");
    row("key is not taken from another section",
        QByteArray("[Other]\nBackup=no\n[Paths]\nBackup=yes\n[Third]\nBackup=no\n"), "yes");
    row("comment is no key", QByteArray("[Paths]\n;Backup=1\nBackup=2\n"), "2");
    row("byte order mark", QByteArray("\xEF\xBB\xBF[Paths]\nBackup=/srv\n"), "/srv");
    row("UTF-8", QByteArray("[Paths]\nBackup=\xE2\x82\xB9\n"), QString(QChar(0x20B9)));
    row("8-bit code", QByteArray("[Paths]\nBackup=\xE9t\xE9\n"), QString::fromLatin1("\xE9t\xE9"));
  }
  void ReadsAValue() {
    const auto [content, value] = test::Table<QByteArray, QString>::Row();
    QCOMPARE(Given(content).Read("Paths", "Backup", "default"), value);
    QCOMPARE(IniFile(folder_->filePath("none.ini")).Read("Paths", "Backup", "default"), "default");
  }

  void LongValueIsCutAtTheBufferSize() {
    const QByteArray value(300, 'x');
    QCOMPARE(Given("[Paths]\nBackup=" + value).Read("Paths", "Backup").size(), 254);
    QCOMPARE(Given("").Read("Paths", "Backup", value).size(), 254);
  }

  void WriteChangesOneLineOnly_data() {
    const test::Table<QByteArray, QByteArray> row;
    row("empty file", QByteArray(), QByteArray("[Paths]\nBackup=new\n"));
    row("replace, all else stays",
        QByteArray("; mine\n[A]\nx=1\n\n[paths]\n# note\nBACKUP = old\nb=2\n"),
        QByteArray("; mine\n[A]\nx=1\n\n[paths]\n# note\nBACKUP = new\nb=2\n"));
    row("new key at its section's end", QByteArray("[Paths]\na=1\n\n[Z]\nz=1\n"),
        QByteArray("[Paths]\na=1\nBackup=new\n\n[Z]\nz=1\n"));
    row("last line without its end", QByteArray("[Z]\nz=1"),
        QByteArray("[Z]\nz=1\n[Paths]\nBackup=new\n"));
    row("replace without a line end", QByteArray("[Paths]\nBackup=old"),
        QByteArray("[Paths]\nBackup=new"));
    row("Windows line ends", QByteArray("[Paths]\r\nBackup=old\r\n[Z]\r\n"),
        QByteArray("[Paths]\r\nBackup=new\r\n[Z]\r\n"));
    row("bytes of another code stay", QByteArray("[Z]\nz=\xE9\n"),
        QByteArray("[Z]\nz=\xE9\n[Paths]\nBackup=new\n"));
  }
  void WriteChangesOneLineOnly() {
    const auto [before, after] = test::Table<QByteArray, QByteArray>::Row();
    const IniFile ini = Given(before);
    ini.Write("Paths", "Backup", "new");
    QCOMPARE(Content(), after);
    QCOMPARE(ini.Read("Paths", "Backup"), "new");
  }

  void WhatIsWrittenIsRead_data() {
    const test::Table<QString> row;
    row("blanks around", "  two words ");
    row("in quotes", "\"quoted\"");
    row("empty", "");
    row("like a comment", ";no");
  }
  void WhatIsWrittenIsRead() {
    const auto [value] = test::Table<QString>::Row();
    const IniFile ini = Given("[Paths]\nBackup=old\n");
    ini.Write("Paths", "Backup", value);
    QCOMPARE(ini.Read("Paths", "Backup", "default"), value);
  }

  void OnlyTheUserReadsWhatIsWritten() {
    const IniFile ini = Given("[Database]\nPassword=old\n");
    constexpr auto kOwner =
        QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
    QVERIFY(QFile::setPermissions(ini.Path(), kOwner | QFile::ReadGroup | QFile::ReadOther));
    ini.Write("Database", "Password", "new");
    QCOMPARE(QFileInfo(ini.Path()).permissions(), QFile::Permissions(kOwner));
  }

  void UnusableSettingIsRefused_data() {
    const test::Table<QString, QString, QString> row;
    row("line break in the value", "Paths", "Backup", "a\nOther=b");
    row("line break in the key", "Paths", "Back\nup", "a");
    row("= in the key", "Paths", "a=b", "a");
    row("no key", "Paths", " ", "a");
  }
  void UnusableSettingIsRefused() {
    const auto [section, key, value] = test::Table<QString, QString, QString>::Row();
    const IniFile ini = Given("[Paths]\nBackup=old\n");
    QVERIFY_EXCEPTION_THROWN(ini.Write(section, key, value), std::runtime_error);
    QCOMPARE(Content(), QByteArray("[Paths]\nBackup=old\n"));
  }

  void UnreadableFileIsNotAMissingOne_data() {
    const auto holds = [](const QByteArray& content) -> Make {
      return [content](const QString& path) { return !test::WriteFile(path, content).isEmpty(); };
    };
    const test::Table<Make> row;
    row("folder", Make([](const QString& path) { return QDir().mkpath(path); }));
    row("pipe", Make([](const QString& path) {
          return QProcess::execute(QStringLiteral("mkfifo"), {path}) == 0;
        }));
    row("UTF-16", holds(QByteArray("\xFF\xFE[\0P\0]\0", 8)));
    row("too large", holds(QByteArray((1 << 20) + 1, '\n')));
  }
  void UnreadableFileIsNotAMissingOne() {
    const auto [make] = test::Table<Make>::Row();
    const QString path = folder_->filePath("odd.ini");
    QVERIFY(make(path));
    QVERIFY_EXCEPTION_THROWN(IniFile(path).Read("Paths", "Backup", "default"), std::runtime_error);
    try {
      IniFile(path).Write("Paths", "Backup", "new");
      QFAIL("it was written over");
    } catch (const std::runtime_error& error) {
      QVERIFY(QString(error.what()).contains("odd.ini"));
    }
  }

  void ScreenFactorsFollowTheMode_data() {
    const test::Table<QByteArray, float, float> row;
    row("fresh installation", QByteArray(), 2.0F, 1.5F);
    row("1 is the given size", QByteArray("[ScrReso]\nOpt=1\nX=1000\nY=1200\n"), 1.25F, 2.0F);
    row("1 with zeros", QByteArray("[ScrReso]\nOpt=1\nX=0\nY=0\n"), 2.0F, 1.5F);
    row("1 with an impossible size", QByteArray("[ScrReso]\nOpt=1\nX=-5\n"), 2.0F, 1.5F);
    row("2 is as designed", QByteArray("[ScrReso]\nOpt=2\nX=1000\n"), 1.0F, 1.0F);
  }
  void ScreenFactorsFollowTheMode() {
    const auto [content, horizontal, vertical] = test::Table<QByteArray, float, float>::Row();
    const ScreenFactors factors = SetScreenFactors(Given(content), 1600, 900);
    QCOMPARE(factors.horizontal, horizontal);
    QCOMPARE(factors.vertical, vertical);
  }
};

static const quorvane::test::RegisterTest<IniTest> kRegistered;
#include "IniTest.moc"
