#include "documents/DocumentText.h"
#include "masters/clients/Documents.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTest>

#include <optional>
#include <stdexcept>

using namespace quorvane;
using namespace quorvane::documents;
using namespace std::chrono_literals;
using test::WriteFile;

class DocumentTextTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() { folder_.emplace(); }
  void cleanup() { folder_.reset(); }

  void EveryKindOfTextIsRead_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("contents");
    QTest::addColumn<bool>("is_html");
    const QByteArray rtf = "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0 Fee \\u8377? 100 & <b>}";
    const QByteArray doc = test::WordDocument(
        "PAN of K. L. O\x92"
        "BRIEN\r");
    QTest::newRow("UTF-8") << "a.txt" << QByteArray("Caf\xc3\xa9") << "Café" << false;
    QTest::newRow("UTF-8 with its mark") << "a.TXT" << QByteArray("\xef\xbb\xbfx") << "x" << false;
    QTest::newRow("UTF-16") << "a.txt" << QByteArray("\xff\xfe\x39\x20", 4) << "‹" << false;
    QTest::newRow("Windows") << "a.txt" << QByteArray("\x80 100 \xe9\x92") << "€ 100 é’" << false;
    QTest::newRow("empty") << "a.txt" << QByteArray() << "" << false;
    QTest::newRow("markup in a plain text") << "a.txt" << QByteArray("<b>") << "<b>" << false;
    QTest::newRow("HTML") << "a.htm" << QByteArray("<b>\xe2\x82\xb9</b>") << "<b>₹</b>" << true;
    QTest::newRow("HTML of an old program") << "a.HTML" << QByteArray("\x93x\x94") << "“x”" << true;
    QTest::newRow("rich text") << "a.rtf" << rtf << "Fee &#8377; 100 &amp; &lt;b&gt;" << true;
    QTest::newRow("rich text called DOC") << "a.DOC" << rtf << "&lt;b&gt;" << true;
    QTest::newRow("word processor") << "a.doc" << doc << "PAN of K. L. O’BRIEN" << false;
    QTest::newRow("plain text called DOC") << "a.doc" << QByteArray("plain") << "plain" << false;
  }

  void EveryKindOfTextIsRead() {
    QFETCH(const QString, name);
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, contents);
    const DocumentText text = Read(WriteFile(Path(name), bytes));
    QVERIFY2(text.contents.contains(contents), qPrintable(text.contents));
    QTEST(text.is_html, "is_html");
  }

  void NameNeverBecomesAnOptionOrACommand_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("option") << "-V.rtf";
    QTest::newRow("command") << "$(touch made); 'x' .rtf";
  }

  void NameNeverBecomesAnOptionOrACommand() {
    QFETCH(const QString, name);
    QVERIFY(Read(WriteFile(Path(name), "{\\rtf1 inside}")).contents.contains("inside"));
  }

  void UnreadableDocumentIsRefused_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("reason");
    const QByteArray large(kLimits.most_bytes + 1, 'x');
    QTest::newRow("text too large") << "a.txt" << large << "The Document is too Large to be Shown.";
    QTest::newRow("converted text too large") << "a.rtf"
                                              << "{\\rtf1 " + large + "}"
                                              << "The Document is too Large to be Shown.";
    QTest::newRow("no text in it")
        << "a.txt" << QByteArray("\0\1\2", 3) << "The Document holds no Text.";
    QTest::newRow("broken compound file")
        << "a.doc" << QByteArray::fromHex("d0cf11e0a1b11ae1ffff") << "The Document is Broken.";
    QTest::newRow("compressed kind")
        << "a.doc" << QByteArray("PK\3\4rest")
        << "The Document is of a Newer Kind. Save it as \"Rich Text\" to have it Shown.";
  }

  void UnreadableDocumentIsRefused() {
    QFETCH(const QString, name);
    QFETCH(const QByteArray, bytes);
    QTEST(FailureOf(WriteFile(Path(name), bytes), kLimits), "reason");
  }

  void VanishedFileIsRefusedWithItsReason() {
    const QString failure = FailureOf(Path("none.txt"), kLimits);
    QVERIFY2(failure.startsWith("The Document can't be Read: "), qPrintable(failure));
  }

  void MissingHelperIsNamed_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("program");
    QTest::newRow("rich text") << "a.rtf" << QByteArray("{\\rtf1 x}") << "unrtf";
    QTest::newRow("word processor") << "a.doc" << test::WordDocument("x") << "catdoc";
  }

  void MissingHelperIsNamed() {
    QFETCH(const QString, name);
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, program);
    TextLimits limits = kLimits;
    limits.find_program = [](const QString&) { return QString(); };
    QCOMPARE(FailureOf(WriteFile(Path(name), bytes), limits),
             QString("To Show this Document the Program \"%1\" is Needed, which is not Installed.")
                 .arg(program));
  }

  void AnotherHelperServesWhenTheFirstIsMissing() {
    TextLimits limits = kLimits;
    limits.find_program = [this](const QString& program) {
      return program == QLatin1String("antiword") ? Helper("echo from the other") : QString();
    };
    const QString path = WriteFile(Path("a.doc"), test::WordDocument("x"));
    QCOMPARE(ReadDocumentText(path, limits).contents, QString("from the other\n"));
  }

  void HelperIsStopped_data() {
    QTest::addColumn<QByteArray>("script");
    QTest::addColumn<QString>("reason");
    QTest::newRow("after its time")
        << QByteArray("exec sleep 60") << "The Document takes too Long to be Shown.";
    QTest::newRow("after too much output")
        << QByteArray("exec yes") << "The Document is too Large to be Shown.";
    QTest::newRow("when it fails") << QByteArray("exit 3") << "The Document is Broken.";
    QTest::newRow("when it crashes") << QByteArray("kill -9 $$") << "The Document is Broken.";
  }

  void HelperIsStopped() {
    QFETCH(const QByteArray, script);
    TextLimits limits = kLimits;
    limits.longest = 300ms;
    limits.find_program = [this, script](const QString&) { return Helper(script); };
    QElapsedTimer clock;
    clock.start();
    QTEST(FailureOf(WriteFile(Path("a.rtf"), "{\\rtf1 x}"), limits), "reason");
    QVERIFY2(clock.elapsed() < 20000, "the helper was waited for");
  }

 private:
  static inline const TextLimits kLimits{.most_bytes = 65536};

  QString Path(const QString& name) const { return folder_->filePath(name); }

  QString Helper(const QByteArray& script) const {
    QString path = WriteFile(Path("helper"), "#!/bin/sh\n" + script + "\n");
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
  }

  DocumentText Read(const QString& path) const { return ReadDocumentText(path, kLimits); }

  QString FailureOf(const QString& path, const TextLimits& limits) const {
    try {
      return "read: " + ReadDocumentText(path, limits).contents.left(100);
    } catch (const std::runtime_error& error) {
      return QString::fromUtf8(error.what());
    }
  }

  std::optional<QTemporaryDir> folder_;
};

namespace {
const test::RegisterTest<DocumentTextTest> kRegistered;
}

#include "DocumentTextTest.moc"
