#include "documents/DocumentKind.h"
#include "documents/DocumentStore.h"
#include "documents/DocumentText.h"
#include "masters/clients/Documents.h"
#include "support/Files.h"
#include "support/Records.h"
#include "support/Test.h"

#include <QDirIterator>
#include <QElapsedTimer>

#include <stdexcept>

using namespace quorvane;
using namespace quorvane::documents;
using namespace std::chrono_literals;
using test::WriteFile;

class DocumentStoreTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void init() {
    folder_.emplace();
    QVERIFY(QDir(folder_->path()).mkpath(QStringLiteral("home")));
    outside_ = Write("home/outside.txt", "outside");
    store_.emplace(folder_->filePath("SignDocs"), std::int64_t{3 * 1024 * 1024});
  }
  void cleanup() { folder_.reset(); }

  void DocumentIsCopiedUnderItsOwnName_data() {
    const test::Table<QString> row;
    row("quote and blanks", "O'BRIEN & SONS 1.JPG");
    row("Devanagari", "हस्ताक्षर.pdf");
    row("hidden", ".sign.txt");
  }
  void DocumentIsCopiedUnderItsOwnName() {
    const auto [name] = test::Table<QString>::Row();
    QVERIFY(!Put(kClient, Write("home/" + name, "first")));
    QCOMPARE(Read(store_->Path(kClient, name)), QByteArray("first"));
    QCOMPARE(Files(), QStringList("7/" + name));
    for (const char* made : {"SignDocs", "SignDocs/7"}) {
      QVERIFY(!(QFileInfo(folder_->filePath(made)).permissions() &
                (QFile::ExeGroup | QFile::ExeOther)));
    }
    QCOMPARE(store_->Path(ClientId{8}, name), std::optional<QString>());
  }

  void NewDocumentTakesThePlaceOfTheOldOne() {
    QVERIFY(!Put(kClient, Write("home/old.txt", "old")));
    QVERIFY(!Put(ClientId{8}, Write("home/old.txt", "of another client")));
    QVERIFY(!Put(kClient, Write("home/new.txt", "new")));
    QCOMPARE(Files(), QStringList({"7/new.txt", "8/old.txt"}));
    QVERIFY(!Put(kClient, Write("home/new.txt", "newer")));
    QCOMPARE(Read(store_->Path(kClient, "new.txt")), QByteArray("newer"));
  }

  void StoredDocumentMayBePickedAgain() {
    QVERIFY(!Put(kClient, Write("home/sign.txt", "sign")));
    QVERIFY(!Put(kClient, *store_->Path(kClient, "sign.txt")));
    QCOMPARE(Read(store_->Path(kClient, "sign.txt")), QByteArray("sign"));
  }

  void RefusedSourceLeavesTheOldDocument_data() {
    const test::Table<QString, QString> row;
    const QString no_document = QStringLiteral("This File Can't be Kept as a Document.");
    row("vanished", "home/nothing.txt", "File does not Exist.");
    row("folder", "home", no_document);
    row("device", "/dev/zero", no_document);
    row("name that climbs elsewhere", "home/..\\..\\evil.txt", no_document);
    row("name with a line break", "home/a\nb.txt", no_document);
    row("kind that nothing shows", "home/sheet.xlsx", "Format Not Supported.");
    row("too large", "home/large.txt", "The File is too Large. At Most 3 MB are Allowed.");
    row("link to nowhere", "home/dangling.txt", "File does not Exist.");
  }
  void RefusedSourceLeavesTheOldDocument() {
    const auto [source, text] = test::Table<QString, QString>::Row();
    Write("home/..\\..\\evil.txt", "evil");
    Write("home/a\nb.txt", "evil");
    Write("home/sheet.xlsx", "PK");
    Write("home/large.txt", QByteArray(3 * 1024 * 1024 + 1, 'x'));
    QFile::link(folder_->filePath("nowhere"), folder_->filePath("home/dangling.txt"));
    QVERIFY(!Put(kClient, Write("home/old.txt", "old")));

    const MaybeRefusal refusal = Put(kClient, QDir(folder_->path()).filePath(source));
    QCOMPARE(test::TextOf(refusal), text);
    QCOMPARE(Files(), QStringList("7/old.txt"));
  }

  void ReceivedCopyThatIsNotPlacedGoes() {
    QVERIFY(!Put(kClient, Write("home/old.txt", "old")));
    {
      const auto incoming = store_->Receive(Write("home/new.txt", "new"));
      QVERIFY(incoming);
      QCOMPARE(incoming->Name(), "new.txt");
      QCOMPARE(Files().size(), 2);
    }
    QCOMPARE(Files(), QStringList("7/old.txt"));
  }

  void DocumentThatCannotBePlacedLeavesTheOldOne() {
    QVERIFY(!Put(kClient, Write("home/old.txt", "old")));
    QVERIFY(QDir(folder_->path()).mkpath("SignDocs/7/new.txt/full"));
    QVERIFY_EXCEPTION_THROWN(static_cast<void>(Put(kClient, Write("home/new.txt", "new"))),
                             std::runtime_error);
    QCOMPARE(Files(), QStringList("7/old.txt"));
  }

  void StoredNameNeverLeadsOut_data() {
    const test::Table<QString> row;
    row("above the store", "../../home/outside.txt");
    row("another client", "../8/other.txt");
    row("whole path", QDir::tempPath());
    row("folder above", "..");
    row("link", "link.txt");
  }
  void StoredNameNeverLeadsOut() {
    const auto [name] = test::Table<QString>::Row();
    QVERIFY(!Put(kClient, Write("home/old.txt", "old")));
    QVERIFY(!Put(ClientId{8}, Write("home/other.txt", "other")));
    QVERIFY(QFile::link(outside_, folder_->filePath("SignDocs/7/link.txt")));
    QCOMPARE(store_->Path(kClient, name), std::optional<QString>());
  }

  void LinksInTheStoreAreNotFollowed() {
    QVERIFY(QDir(folder_->path()).mkpath("SignDocs"));
    QVERIFY(QFile::link(folder_->filePath("home"), folder_->filePath("SignDocs/7")));
    QCOMPARE(store_->Path(kClient, "outside.txt"), std::optional<QString>());
    store_->Remove(kClient);
    QCOMPARE(Read(outside_), QByteArray("outside"));

    QVERIFY(QFile::link(folder_->filePath("home"), folder_->filePath("SignDocs/7")));
    QVERIFY(!Put(kClient, Write("elsewhere.txt", "new")));
    QCOMPARE(Files(), QStringList("7/elsewhere.txt"));
    QVERIFY(!QFile::exists(folder_->filePath("home/elsewhere.txt")));

    QVERIFY(QFile::link(outside_, folder_->filePath("SignDocs/7/outside.txt")));
    QVERIFY(!Put(kClient, Write("outside.txt", "mine")));
    QCOMPARE(Read(outside_), QByteArray("outside"));
    QCOMPARE(Read(store_->Path(kClient, "outside.txt")), QByteArray("mine"));
  }

  void RemoveTakesOneClientsFolder() {
    store_->Remove(kClient);
    QVERIFY(!Put(kClient, Write("home/a.txt", "a")));
    QVERIFY(!Put(ClientId{77}, Write("home/b.txt", "b")));
    store_->Remove(kClient);
    QVERIFY(!QFile::exists(folder_->filePath("SignDocs/7")));
    QCOMPARE(Files(), QStringList("77/b.txt"));
  }

  void NoClientHasNoFolder() {
    QVERIFY(!Put(kClient, Write("home/a.txt", "a")));
    QVERIFY_EXCEPTION_THROWN(store_->Remove(ClientId{}), std::logic_error);
    QVERIFY_EXCEPTION_THROWN(static_cast<void>(Put(ClientId{-1}, outside_)), std::logic_error);
    QCOMPARE(Files(), QStringList("7/a.txt"));
  }

  void ExtensionDecidesWhatShowsADocument() {
    for (const auto& [name, kind] : {std::pair{"a.b.Jpg", DocumentKind::kImage},
                                     {"a.TIF", DocumentKind::kImage},
                                     {"a.DOC", DocumentKind::kText},
                                     {"A.PDF", DocumentKind::kPdf},
                                     {"pdf", DocumentKind::kUnsupported},
                                     {"a.pdf.zip", DocumentKind::kUnsupported},
                                     {"a.docx", DocumentKind::kUnsupported}}) {
      QVERIFY2(KindOf(name) == kind, name);
    }
  }

  void EveryKindOfTextIsRead_data() {
    const test::Table<QString, QByteArray, QString, bool> row;
    const QByteArray rtf = "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0 Fee \\u8377? 100 & <b>}";
    const QByteArray doc = test::WordDocument(
        "PAN of K. L. O\x92"
        "BRIEN\r");
    row("UTF-8", "a.txt", QByteArray("Caf\xc3\xa9"), "Café", false);
    row("UTF-16", "a.txt", QByteArray("\xff\xfe\x39\x20", 4), "‹", false);
    row("Windows", "a.txt", QByteArray("\x80 100 \xe9\x92"), "€ 100 é’", false);
    row("markup in a plain text", "a.txt", QByteArray("<b>"), "<b>", false);
    row("HTML", "a.htm", QByteArray("<b>\xe2\x82\xb9</b>"), "<b>₹</b>", true);
    row("rich text", "a.rtf", rtf, "Fee &#8377; 100 &amp; &lt;b&gt;", true);
    row("rich text called DOC", "a.DOC", rtf, "&lt;b&gt;", true);
    row("word processor", "a.doc", doc, "PAN of K. L. O’BRIEN", false);
  }
  void EveryKindOfTextIsRead() {
    const auto [name, bytes, contents, is_html] =
        test::Table<QString, QByteArray, QString, bool>::Row();
    const DocumentText text = ReadText(WriteFile(Path(name), bytes));
    QVERIFY2(text.contents.contains(contents), qPrintable(text.contents));
    QCOMPARE(text.is_html, is_html);
  }

  void NameNeverBecomesAnOptionOrACommand() {
    QVERIFY(ReadText(WriteFile(Path("-V.rtf"), "{\\rtf1 inside}")).contents.contains("inside"));
  }

  void UnreadableDocumentIsRefused_data() {
    const test::Table<QString, QByteArray, QString> row;
    const QByteArray large(kLimits.most_bytes + 1, 'x');
    row("text too large", "a.txt", large, "The Document is too Large to be Shown.");
    row("converted text too large", "a.rtf", "{\\rtf1 " + large + "}",
        "The Document is too Large to be Shown.");
    row("no text in it", "a.txt", QByteArray("\0\1\2", 3), "The Document holds no Text.");
    row("broken compound file", "a.doc", QByteArray::fromHex("d0cf11e0a1b11ae1ffff"),
        "The Document is Broken.");
    row("compressed kind", "a.doc", QByteArray("PK\3\4rest"),
        "The Document is of a Newer Kind. Save it as \"Rich Text\" to have it Shown.");
  }
  void UnreadableDocumentIsRefused() {
    const auto [name, bytes, reason] = test::Table<QString, QByteArray, QString>::Row();
    QCOMPARE(FailureOf(WriteFile(Path(name), bytes), kLimits), reason);
  }

  void MissingHelperIsNamed_data() {
    const test::Table<QString, QByteArray, QString> row;
    row("rich text", "a.rtf", QByteArray("{\\rtf1 x}"), "unrtf");
    row("word processor", "a.doc", test::WordDocument("x"), "catdoc");
  }
  void MissingHelperIsNamed() {
    const auto [name, bytes, program] = test::Table<QString, QByteArray, QString>::Row();
    TextLimits limits = kLimits;
    limits.find_program = [](const QString&) { return QString(); };
    QCOMPARE(FailureOf(WriteFile(Path(name), bytes), limits),
             QString("To Show this Document the Program \"%1\" is Needed, which is not Installed.")
                 .arg(program));
  }

  void HelperIsStopped_data() {
    const test::Table<QByteArray, QString> row;
    row("after its time", QByteArray("exec sleep 60"), "The Document takes too Long to be Shown.");
    row("after too much output", QByteArray("exec yes"), "The Document is too Large to be Shown.");
    row("when it fails", QByteArray("exit 3"), "The Document is Broken.");
    row("when it crashes", QByteArray("kill -9 $$"), "The Document is Broken.");
  }
  void HelperIsStopped() {
    const auto [script, reason] = test::Table<QByteArray, QString>::Row();
    TextLimits limits = kLimits;
    limits.longest = 300ms;
    limits.find_program = [this, script](const QString&) { return Helper(script); };
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(FailureOf(WriteFile(Path("a.rtf"), "{\\rtf1 x}"), limits), reason);
    QVERIFY2(clock.elapsed() < 20000, "the helper was waited for");
  }

 private:
  static constexpr ClientId kClient{7};

  MaybeRefusal Put(ClientId client, const QString& source) const {
    auto incoming = store_->Receive(source);
    if (incoming) {
      store_->Place(client, std::move(*incoming));
    }
    return incoming.Refused();
  }

  QString Write(const QString& name, const QByteArray& content) const {
    return test::WriteFile(folder_->filePath(name), content);
  }

  static QByteArray Read(const std::optional<QString>& path) {
    return test::ReadFile(path.value_or(QString()));
  }

  /// Every file of the store.
  QStringList Files() const {
    QStringList files;
    const QDir root(folder_->filePath("SignDocs"));
    QDirIterator walk(root.path(), QDir::Files | QDir::Hidden | QDir::System,
                      QDirIterator::Subdirectories);
    while (walk.hasNext()) {
      files += root.relativeFilePath(walk.next());
    }
    files.sort();
    return files;
  }

  std::optional<QTemporaryDir> folder_;
  std::optional<DocumentStore> store_;
  QString outside_;

  static inline const TextLimits kLimits{.most_bytes = 65536};

  QString Path(const QString& name) const { return folder_->filePath(name); }

  QString Helper(const QByteArray& script) const {
    QString path = WriteFile(Path("helper"), "#!/bin/sh\n" + script + "\n");
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    return path;
  }

  static DocumentText ReadText(const QString& path) { return ReadDocumentText(path, kLimits); }

  QString FailureOf(const QString& path, const TextLimits& limits) const {
    try {
      return "read: " + ReadDocumentText(path, limits).contents.left(100);
    } catch (const std::runtime_error& error) {
      return QString::fromUtf8(error.what());
    }
  }
};

static const test::RegisterTest<DocumentStoreTest> kRegistered;
#include "DocumentStoreTest.moc"
