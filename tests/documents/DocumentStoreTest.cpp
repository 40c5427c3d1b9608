#include "documents/DocumentKind.h"
#include "documents/DocumentStore.h"
#include "masters/Records.h"
#include "support/TestMain.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <optional>
#include <stdexcept>

using namespace quorvane;
using namespace quorvane::documents;

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
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << "sign.bmp";
    QTest::newRow("quote and blanks") << "O'BRIEN & SONS 1.JPG";
    QTest::newRow("Devanagari") << "हस्ताक्षर.pdf";
    QTest::newRow("two dots inside") << "a..b.txt";
    QTest::newRow("hidden") << ".sign.txt";
  }

  void DocumentIsCopiedUnderItsOwnName() {
    QFETCH(const QString, name);
    QVERIFY(!store_->Put(kClient, Write("home/" + name, "first")));
    QCOMPARE(Read(store_->Path(kClient, name)), QByteArray("first"));
    QCOMPARE(Files(), QStringList("7/" + name));
    for (const char* made : {"SignDocs", "SignDocs/7"}) {
      QVERIFY(!(QFileInfo(folder_->filePath(made)).permissions() &
                (QFile::ExeGroup | QFile::ExeOther)));
    }
    QCOMPARE(store_->Path(ClientId{8}, name), std::optional<QString>());
  }

  void NewDocumentTakesThePlaceOfTheOldOne() {
    QVERIFY(!store_->Put(kClient, Write("home/old.txt", "old")));
    QVERIFY(!store_->Put(ClientId{8}, Write("home/old.txt", "of another client")));
    QVERIFY(!store_->Put(kClient, Write("home/new.txt", "new")));
    QCOMPARE(Files(), QStringList({"7/new.txt", "8/old.txt"}));
    QVERIFY(!store_->Put(kClient, Write("home/new.txt", "newer")));
    QCOMPARE(Read(store_->Path(kClient, "new.txt")), QByteArray("newer"));
  }

  void StoredDocumentMayBePickedAgain() {
    QVERIFY(!store_->Put(kClient, Write("home/sign.txt", "sign")));
    QVERIFY(!store_->Put(kClient, *store_->Path(kClient, "sign.txt")));
    QCOMPARE(Read(store_->Path(kClient, "sign.txt")), QByteArray("sign"));
  }

  void RefusedSourceLeavesTheOldDocument_data() {
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("text");
    const QString no_document = QStringLiteral("This File Can't be Kept as a Document.");
    QTest::newRow("vanished") << "home/nothing.txt"
                              << "File does not Exist.";
    QTest::newRow("folder") << "home" << no_document;
    QTest::newRow("name that climbs elsewhere") << "home/..\\..\\evil.txt" << no_document;
    QTest::newRow("name of a drive") << "home/c:evil.txt" << no_document;
    QTest::newRow("name with a line break") << "home/a\nb.txt" << no_document;
    QTest::newRow("kind that nothing shows") << "home/sheet.xlsx"
                                             << "Format Not Supported.";
    QTest::newRow("too large") << "home/large.txt"
                               << "The File is too Large. At Most 3 MB are Allowed.";
    QTest::newRow("link to nowhere") << "home/dangling.txt"
                                     << "File does not Exist.";
  }

  void RefusedSourceLeavesTheOldDocument() {
    QFETCH(const QString, source);
    Write("home/..\\..\\evil.txt", "evil");
    Write("home/c:evil.txt", "evil");
    Write("home/a\nb.txt", "evil");
    Write("home/sheet.xlsx", "PK");
    Write("home/large.txt", QByteArray(3 * 1024 * 1024 + 1, 'x'));
    QFile::link(folder_->filePath("nowhere"), folder_->filePath("home/dangling.txt"));
    QVERIFY(!store_->Put(kClient, Write("home/old.txt", "old")));

    const MaybeRefusal refusal = store_->Put(kClient, folder_->filePath(source));
    QTEST(test::TextOfRefusal(refusal), "text");
    QCOMPARE(Files(), QStringList("7/old.txt"));
  }

  void DeviceIsNoDocument() {
    const MaybeRefusal refusal = store_->Put(kClient, QStringLiteral("/dev/zero"));
    QCOMPARE(test::TextOfRefusal(refusal),
             QStringLiteral("This File Can't be Kept as a Document."));
  }

  void FileOfTheLargestSizeIsKept() {
    const QByteArray content(3 * 1024 * 1024, 'x');
    QVERIFY(!store_->Put(kClient, Write("home/large.txt", content)));
    QCOMPARE(Read(store_->Path(kClient, "large.txt")), content);
  }

  void ReceivedCopyThatIsNotPlacedGoes() {
    QVERIFY(!store_->Put(kClient, Write("home/old.txt", "old")));
    {
      const auto incoming = store_->Receive(Write("home/new.txt", "new"));
      QCOMPARE(incoming->Name(), QStringLiteral("new.txt"));
      QCOMPARE(Files().size(), 2);
    }
    QCOMPARE(Files(), QStringList("7/old.txt"));
  }

  void DocumentThatCannotBePlacedLeavesTheOldOne() {
    QVERIFY(!store_->Put(kClient, Write("home/old.txt", "old")));
    QVERIFY(QDir(folder_->path()).mkpath("SignDocs/7/new.txt/full"));
    QVERIFY_EXCEPTION_THROWN(static_cast<void>(store_->Put(kClient, Write("home/new.txt", "new"))),
                             std::runtime_error);
    QCOMPARE(Files(), QStringList("7/old.txt"));
  }

  void StoredNameNeverLeadsOut_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("above the store") << "../../home/outside.txt";
    QTest::newRow("another client") << "../8/other.txt";
    QTest::newRow("whole path") << QDir::tempPath();
    QTest::newRow("folder itself") << ".";
    QTest::newRow("folder above") << "..";
    QTest::newRow("nothing") << "";
    QTest::newRow("link") << "link.txt";
  }

  void StoredNameNeverLeadsOut() {
    QFETCH(const QString, name);
    QVERIFY(!store_->Put(kClient, Write("home/old.txt", "old")));
    QVERIFY(!store_->Put(ClientId{8}, Write("home/other.txt", "other")));
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
    QVERIFY(!store_->Put(kClient, Write("elsewhere.txt", "new")));
    QCOMPARE(Files(), QStringList("7/elsewhere.txt"));
    QVERIFY(!QFile::exists(folder_->filePath("home/elsewhere.txt")));

    QVERIFY(QFile::link(outside_, folder_->filePath("SignDocs/7/outside.txt")));
    QVERIFY(!store_->Put(kClient, Write("outside.txt", "mine")));
    QCOMPARE(Read(outside_), QByteArray("outside"));
    QCOMPARE(Read(store_->Path(kClient, "outside.txt")), QByteArray("mine"));
  }

  void RemoveTakesOneClientsFolder() {
    store_->Remove(kClient);
    QVERIFY(!store_->Put(kClient, Write("home/a.txt", "a")));
    QVERIFY(!store_->Put(ClientId{77}, Write("home/b.txt", "b")));
    store_->Remove(kClient);
    QVERIFY(!QFile::exists(folder_->filePath("SignDocs/7")));
    QCOMPARE(Files(), QStringList("77/b.txt"));
  }

  void NoClientHasNoFolder() {
    QVERIFY(!store_->Put(kClient, Write("home/a.txt", "a")));
    QVERIFY_EXCEPTION_THROWN(store_->Remove(ClientId{}), std::logic_error);
    QVERIFY_EXCEPTION_THROWN(store_->Put(ClientId{-1}, outside_), std::logic_error);
    QCOMPARE(Files(), QStringList("7/a.txt"));
  }

  void ExtensionDecidesWhatShowsADocument_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("kind");
    const auto rows = [](DocumentKind kind, const QStringList& names) {
      for (const QString& name : names) {
        QTest::newRow(qPrintable(name)) << name << static_cast<int>(kind);
      }
    };
    rows(DocumentKind::kImage, {"a.bmp", "a.GIF", "a.b.Jpg", "a.TIF", "a.jpeg"});
    rows(DocumentKind::kText, {"a.rtf", "a.DOC", "a.txt", "a.Htm", "a.html"});
    rows(DocumentKind::kPdf, {"a.pdf", "A.PDF"});
    rows(DocumentKind::kUnsupported, {"a.exe", "pdf", "a.pdf.zip", "a.", "", "a.docx"});
  }

  void ExtensionDecidesWhatShowsADocument() {
    QFETCH(const QString, name);
    QFETCH(const int, kind);
    QCOMPARE(static_cast<int>(KindOf(name)), kind);
  }

 private:
  static constexpr ClientId kClient{7};

  QString Write(const QString& name, const QByteArray& content) const {
    QFile file(folder_->filePath(name));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
      throw std::runtime_error("a test's file cannot be written");
    }
    return file.fileName();
  }

  static QByteArray Read(const std::optional<QString>& path) {
    QFile file(path.value_or(QString()));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("nothing");
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
};

static const test::RegisterTest<DocumentStoreTest> kRegistered;

#include "DocumentStoreTest.moc"
