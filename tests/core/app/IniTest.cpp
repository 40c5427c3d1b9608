#include "core/app/Ini.h"
#include "core/app/ScreenFactors.h"
#include "support/TestMain.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>
#include <stdexcept>

using namespace quorvane::app;

class IniTest : public QObject {
  Q_OBJECT

  IniFile Given(const QByteArray& content);
  QByteArray Content();

  std::unique_ptr<QTemporaryDir> folder_;

 private Q_SLOTS:
  void init();
  void ReadsAValue_data();
  void ReadsAValue();
  void MissingGivesTheDefault_data();
  void MissingGivesTheDefault();
  void LongValueIsCutAtTheBufferSize();
  void TextEndsAtItsFirstNul_data();
  void TextEndsAtItsFirstNul();
  void WriteChangesOneLineOnly_data();
  void WriteChangesOneLineOnly();
  void WhatIsWrittenIsRead_data();
  void WhatIsWrittenIsRead();
  void WriteMakesFolderAndFile();
  void OnlyTheUserReadsWhatIsWritten();
  void UnusableSettingIsRefused_data();
  void UnusableSettingIsRefused();
  void UnreadableFileIsNotAMissingOne_data();
  void UnreadableFileIsNotAMissingOne();
  void ScreenFactorsFollowTheMode_data();
  void ScreenFactorsFollowTheMode();
};

void IniTest::init() {
  folder_ = std::make_unique<QTemporaryDir>();
}

IniFile IniTest::Given(const QByteArray& content) {
  QFile file(folder_->filePath("Confg.ini"));
  if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
    qFatal("cannot write the test's settings");
  }
  return IniFile(file.fileName());
}

QByteArray IniTest::Content() {
  QFile file(folder_->filePath("Confg.ini"));
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

void IniTest::ReadsAValue_data() {
  QTest::addColumn<QByteArray>("content");
  QTest::addColumn<QString>("value");
  QTest::newRow("plain") << QByteArray("[Paths]\nBackup=/srv\n") << "/srv";
  QTest::newRow("no line end") << QByteArray("[Paths]\nBackup=/srv") << "/srv";
  QTest::newRow("Windows line ends") << QByteArray("[Paths]\r\nBackup=/srv\r\n") << "/srv";
  QTest::newRow("any case") << QByteArray("[PATHS]\nbackUP=/srv\n") << "/srv";
  QTest::newRow("blanks") << QByteArray(" [ Paths ] \n\t Backup =  /srv \t\n") << "/srv";
  QTest::newRow("double quotes") << QByteArray("[Paths]\nBackup=\" /srv \"\n") << " /srv ";
  QTest::newRow("single quotes") << QByteArray("[Paths]\nBackup='/srv'\n") << "/srv";
  QTest::newRow("one quote stays") << QByteArray("[Paths]\nBackup=\"/srv\n") << "\"/srv";
  QTest::newRow("empty value") << QByteArray("[Paths]\nBackup=\n") << "";
  QTest::newRow("value with =") << QByteArray("[Paths]\nBackup=a=b;c\n") << "a=b;c";
  QTest::newRow("key is not taken from another section")
      << QByteArray("[Other]\nBackup=no\n[Paths]\nBackup=yes\n[Third]\nBackup=no\n") << "yes";
  QTest::newRow("first key counts") << QByteArray("[Paths]\nBackup=1\nBackup=2\n") << "1";
  QTest::newRow("comment is no key") << QByteArray("[Paths]\n;Backup=1\nBackup=2\n") << "2";
  QTest::newRow("longer key is another") << QByteArray("[Paths]\nBackup2=1\nBackup=2\n") << "2";
  QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF[Paths]\nBackup=/srv\n") << "/srv";
  QTest::newRow("UTF-8") << QByteArray("[Paths]\nBackup=\xE2\x82\xB9\n") << QString(QChar(0x20B9));
  QTest::newRow("8-bit code") << QByteArray("[Paths]\nBackup=\xE9t\xE9\n")
                              << QString::fromLatin1("\xE9t\xE9");
  QTest::newRow("NUL ends it") << QByteArray("[Paths]\nBackup=ab\0cd\n", 22) << "ab";
}

void IniTest::ReadsAValue() {
  QFETCH(QByteArray, content);
  QTEST(Given(content).Read("Paths", "Backup", "default"), "value");
}

void IniTest::MissingGivesTheDefault_data() {
  QTest::addColumn<QByteArray>("content");
  QTest::newRow("empty file") << QByteArray();
  QTest::newRow("no section") << QByteArray("Backup=1\n");
  QTest::newRow("other section") << QByteArray("[Other]\nBackup=1\n");
  QTest::newRow("other key") << QByteArray("[Paths]\nBackups=1\n");
  QTest::newRow("key without =") << QByteArray("[Paths]\nBackup\n");
}

void IniTest::MissingGivesTheDefault() {
  QFETCH(QByteArray, content);
  QCOMPARE(Given(content).Read("Paths", "Backup", "default"), "default");
  QCOMPARE(IniFile(folder_->filePath("none/none.ini")).Read("Paths", "Backup", "default"),
           "default");
}

void IniTest::LongValueIsCutAtTheBufferSize() {
  const QByteArray value(300, 'x');
  QCOMPARE(Given("[Paths]\nBackup=" + value).Read("Paths", "Backup").size(), 254);
  QCOMPARE(Given("").Read("Paths", "Backup", value).size(), 254);
}

void IniTest::TextEndsAtItsFirstNul_data() {
  QTest::addColumn<QString>("text");
  QTest::addColumn<QString>("trimmed");
  QTest::newRow("none") << "abc"
                        << "abc";
  QTest::newRow("padded buffer") << QString("abc").leftJustified(255, QChar(0)) << "abc";
  QTest::newRow("text after it") << QString("ab") + QChar(0) + "c"
                                 << "ab";
  QTest::newRow("at once") << QString(QChar(0)) + "c"
                           << "";
  QTest::newRow("empty") << ""
                         << "";
}

void IniTest::TextEndsAtItsFirstNul() {
  QFETCH(QString, text);
  QTEST(TrimNul(text), "trimmed");
}

void IniTest::WriteChangesOneLineOnly_data() {
  QTest::addColumn<QByteArray>("before");
  QTest::addColumn<QByteArray>("after");
  QTest::newRow("empty file") << QByteArray() << QByteArray("[Paths]\nBackup=new\n");
  QTest::newRow("replace, all else stays")
      << QByteArray("; mine\n[A]\nx=1\n\n[paths]\n# note\nBACKUP = old\nb=2\n")
      << QByteArray("; mine\n[A]\nx=1\n\n[paths]\n# note\nBACKUP = new\nb=2\n");
  QTest::newRow("new key at its section's end")
      << QByteArray("[Paths]\na=1\n\n[Z]\nz=1\n")
      << QByteArray("[Paths]\na=1\nBackup=new\n\n[Z]\nz=1\n");
  QTest::newRow("new key of an empty section")
      << QByteArray("[Paths]\n[Z]\n") << QByteArray("[Paths]\nBackup=new\n[Z]\n");
  QTest::newRow("new section") << QByteArray("[Z]\nz=1\n")
                               << QByteArray("[Z]\nz=1\n[Paths]\nBackup=new\n");
  QTest::newRow("last line without its end")
      << QByteArray("[Z]\nz=1") << QByteArray("[Z]\nz=1\n[Paths]\nBackup=new\n");
  QTest::newRow("replace without a line end")
      << QByteArray("[Paths]\nBackup=old") << QByteArray("[Paths]\nBackup=new");
  QTest::newRow("Windows line ends") << QByteArray("[Paths]\r\nBackup=old\r\n[Z]\r\n")
                                     << QByteArray("[Paths]\r\nBackup=new\r\n[Z]\r\n");
  QTest::newRow("new section with Windows line ends")
      << QByteArray("[Z]\r\nz=1") << QByteArray("[Z]\r\nz=1\r\n[Paths]\r\nBackup=new\r\n");
  QTest::newRow("bytes of another code stay")
      << QByteArray("[Z]\nz=\xE9\n") << QByteArray("[Z]\nz=\xE9\n[Paths]\nBackup=new\n");
  QTest::newRow("byte order mark stays") << QByteArray("\xEF\xBB\xBF[Paths]\nBackup=old\n")
                                         << QByteArray("\xEF\xBB\xBF[Paths]\nBackup=new\n");
}

void IniTest::WriteChangesOneLineOnly() {
  QFETCH(QByteArray, before);
  const IniFile ini = Given(before);
  ini.Write("Paths", "Backup", "new");
  QTEST(Content(), "after");
  QCOMPARE(ini.Read("Paths", "Backup"), "new");
}

void IniTest::WhatIsWrittenIsRead_data() {
  QTest::addColumn<QString>("value");
  QTest::newRow("blanks around") << "  two words ";
  QTest::newRow("in quotes") << "\"quoted\"";
  QTest::newRow("rupee sign") << QString(QChar(0x20B9)) + "5";
  QTest::newRow("empty") << "";
  QTest::newRow("like a section") << "[Paths]";
  QTest::newRow("like a comment") << ";no";
}

void IniTest::WhatIsWrittenIsRead() {
  QFETCH(QString, value);
  const IniFile ini = Given("[Paths]\nBackup=old\n");
  ini.Write("Paths", "Backup", value);
  QCOMPARE(ini.Read("Paths", "Backup", "default"), value);
}

void IniTest::WriteMakesFolderAndFile() {
  const IniFile ini(folder_->filePath("new/folder/OrvikConfig.INI"));
  ini.Write("ScrReso", "Opt", "2");
  QCOMPARE(ini.Read("ScrReso", "Opt"), "2");
}

void IniTest::OnlyTheUserReadsWhatIsWritten() {
  const IniFile ini = Given("[Database]\nPassword=old\n");
  constexpr auto kOwner = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser;
  QVERIFY(QFile::setPermissions(ini.Path(), kOwner | QFile::ReadGroup | QFile::ReadOther));
  ini.Write("Database", "Password", "new");
  QCOMPARE(QFileInfo(ini.Path()).permissions(), QFile::Permissions(kOwner));
}

void IniTest::UnusableSettingIsRefused_data() {
  QTest::addColumn<QString>("section");
  QTest::addColumn<QString>("key");
  QTest::addColumn<QString>("value");
  QTest::newRow("line break in the value") << "Paths"
                                           << "Backup"
                                           << "a\nOther=b";
  QTest::newRow("line break in the key") << "Paths"
                                         << "Back\nup"
                                         << "a";
  QTest::newRow("section that ends itself") << "Paths]x"
                                            << "Backup"
                                            << "a";
  QTest::newRow("= in the key") << "Paths"
                                << "a=b"
                                << "a";
  QTest::newRow("key like a section") << "Paths"
                                      << "[a"
                                      << "a";
  QTest::newRow("key like a comment") << "Paths"
                                      << ";a"
                                      << "a";
  QTest::newRow("no key") << "Paths"
                          << " "
                          << "a";
}

void IniTest::UnusableSettingIsRefused() {
  QFETCH(QString, section);
  QFETCH(QString, key);
  QFETCH(QString, value);
  const IniFile ini = Given("[Paths]\nBackup=old\n");
  QVERIFY_EXCEPTION_THROWN(ini.Write(section, key, value), std::runtime_error);
  QCOMPARE(Content(), QByteArray("[Paths]\nBackup=old\n"));
}

void IniTest::UnreadableFileIsNotAMissingOne_data() {
  using Make = std::function<bool(const QString&)>;
  const auto holds = [](const QByteArray& content) -> Make {
    return [content](const QString& path) {
      QFile file(path);
      return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
    };
  };
  QTest::addColumn<Make>("make");
  QTest::newRow("folder") << Make([](const QString& path) { return QDir().mkpath(path); });
  QTest::newRow("link to nowhere") << Make(
      [](const QString& path) { return QFile::link(QStringLiteral("/nowhere/at/all"), path); });
  QTest::newRow("pipe") << Make(
      [](const QString& path) { return QProcess::execute(QStringLiteral("mkfifo"), {path}) == 0; });
  QTest::newRow("UTF-16") << holds(QByteArray("\xFF\xFE[\0P\0]\0", 8));
  QTest::newRow("UTF-16, high byte first") << holds(QByteArray("\xFE\xFF\0[\0P\0]", 8));
  QTest::newRow("UTF-16 without its mark") << holds(QByteArray("[\0P\0]\0", 6));
  QTest::newRow("too large") << holds(QByteArray((1 << 20) + 1, '\n'));
}

void IniTest::UnreadableFileIsNotAMissingOne() {
  QFETCH(const std::function<bool(const QString&)>, make);
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

void IniTest::ScreenFactorsFollowTheMode_data() {
  QTest::addColumn<QByteArray>("content");
  QTest::addColumn<float>("horizontal");
  QTest::addColumn<float>("vertical");
  QTest::newRow("fresh installation") << QByteArray() << 2.0F << 1.5F;
  QTest::newRow("0 is the screen")
      << QByteArray("[ScrReso]\nOpt=0\nX=800\nY=600\n") << 2.0F << 1.5F;
  QTest::newRow("1 is the given size")
      << QByteArray("[ScrReso]\nOpt=1\nX=1000\nY=1200\n") << 1.25F << 2.0F;
  QTest::newRow("1 with nothing given") << QByteArray("[ScrReso]\nOpt=1\n") << 2.0F << 1.5F;
  QTest::newRow("1 with zeros") << QByteArray("[ScrReso]\nOpt=1\nX=0\nY=0\n") << 2.0F << 1.5F;
  QTest::newRow("1 with one given") << QByteArray("[ScrReso]\nOpt=1\nY=1200\n") << 2.0F << 2.0F;
  QTest::newRow("1 with an impossible size")
      << QByteArray("[ScrReso]\nOpt=1\nX=-5\n") << 2.0F << 1.5F;
  QTest::newRow("2 is as designed") << QByteArray("[ScrReso]\nOpt=2\nX=1000\n") << 1.0F << 1.0F;
  QTest::newRow("a word is 0") << QByteArray("[ScrReso]\nOpt=screen\n") << 2.0F << 1.5F;
}

void IniTest::ScreenFactorsFollowTheMode() {
  QFETCH(QByteArray, content);
  const ScreenFactors factors = SetScreenFactors(Given(content), 1600, 900);
  QTEST(factors.horizontal, "horizontal");
  QTEST(factors.vertical, "vertical");
}

static const quorvane::test::RegisterTest<IniTest> kRegistered;

#include "IniTest.moc"
