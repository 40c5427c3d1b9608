#include "masters/clients/window/ClientWindow.h"

using namespace quorvane;
using namespace quorvane::documents;
using test::RecordingMessages;
using test::Rows;

class FrmSignTest : public test::ClientWindow {
  Q_OBJECT

 private Q_SLOTS:
  void DocumentIsPickedKeptShownAndCleared() {
    AddClient(7, "C7");
    AddAccount(7, 5, 1, 11, "A");
    Open();
    Modify(7);
    QVERIFY(!Button("CmdView")->isEnabled());
    Click("CmdSource");
    QVERIFY(!Button("CmdView")->isEnabled());
    shown_->chosen = test::WriteFile(folder_->filePath("Sign 1.txt"), "Signed");
    Click("CmdSource");
    QCOMPARE(Box(12)->text(), QString("Sign 1.txt"));
    QCOMPARE(View(), QString("shown"));
    Click("cmdUpdate");
    QFile::remove(shown_->chosen);
    QVERIFY(QFile::exists(folder_->filePath("SignDocs/7/Sign 1.txt")));
    QCOMPARE(View(), QString("shown"));
    QVERIFY(window_->findChild<DocumentViewer*>()->Page().text.contains("Signed"));
    Modify(7);
    Click("CmdClr");
    QVERIFY(!Button("CmdView")->isEnabled());
    Click("cmdUpdate");
    QVERIFY(!QFile::exists(folder_->filePath("SignDocs/7")));
    QCOMPARE(Rows(Db(), "Select SignDoc From ClientInfo"), QStringList(""));
  }

  void DocumentThatCannotBeShownIsToldAndThePaneIsEmpty_data() {
    const test::Table<QString, bool, QString> row;
    row("path out of the folder", "../a.jpg", false, "File does not Exist.");
    row("broken", "a.jpg", true, "The Image is Broken.");
  }
  void DocumentThatCannotBeShownIsToldAndThePaneIsEmpty() {
    const auto [name, there, message] = test::Table<QString, bool, QString>::Row();
    AddClient(7, "C7");
    Db().Execute("Update ClientInfo Set SignDoc=?", name);
    if (there) {
      QVERIFY(QDir().mkpath(folder_->filePath("SignDocs/7")));
      test::WriteFile(folder_->filePath("SignDocs/7/" + name), "no picture");
    }
    Open();
    window_->List().SelectId(7);
    QCOMPARE(View(), message);
    QCOMPARE(messages_->said.front().kind, RecordingMessages::Kind::kInform);
    QVERIFY(window_->findChild<DocumentViewer*>()->IsEmpty());
  }

  void DocumentOfAKindThatNothingShowsIsNotKept() {
    AddClient(7, "C7");
    AddAccount(7, 5, 1, 11, "A");
    Db().Execute("Update ClientInfo Set SignDoc='old.docx'");
    QVERIFY(QDir().mkpath(folder_->filePath("SignDocs/7")));
    test::WriteFile(folder_->filePath("SignDocs/7/old.docx"), "older");
    Open();
    Modify(7);
    Box(2)->setText("ANOTHER NAME");
    Click("cmdUpdate");
    QCOMPARE(Rows(Db(), "Select Name,SignDoc From ClientInfo"),
             QStringList("ANOTHER NAME|old.docx"));
    Modify(7);
    shown_->chosen = test::WriteFile(folder_->filePath("new.xyz"), "new");
    Click("CmdSource");
    Click("cmdUpdate");
    QCOMPARE(messages_->Texts(), QStringList("Format Not Supported."));
    QVERIFY(window_->IsEditing());
    QVERIFY(QFile::exists(folder_->filePath("SignDocs/7/old.docx")));
  }
};

static const test::RegisterTest<FrmSignTest> kRegistered;
#include "FrmSignTest.moc"
