#pragma once

#include "controls/TextBox.h"
#include "masters/clients/Documents.h"
#include "masters/clients/window/FrmClientMaster.h"
#include "masters/window/BoxName.h"
#include "support/Files.h"
#include "support/ShownWindow.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QSignalSpy>

namespace quorvane::test {

using clients::FrmClientMaster;
using controls::Grid;
using controls::TextBox;
using documents::DocumentViewer;

/// The client window over a database of two participants; the base of the window's tests.
class ClientWindow : public DatabaseTest {
  Q_OBJECT

 protected:
  struct Shown : ShownWindow<FrmClientMaster> {
    Shown(TestDatabase& database, const QString& home) {
      session_.folders = app::Folders::At(home);
      Open(database);
      window->resize(1200, 700);
    }
  };

 private Q_SLOTS:
  void init() {
    folder_.emplace();
    WriteFile(folder_->filePath("Data/statelist.txt"), "GOA\nGUJARAT\nMAHARASHTRA\n");
    Empty(Db(), {"ClientInfo", "ClientActDet", "DepPart", "DpIDs"});
    Db().Execute("Insert Into DepPart(Id,Name) Values(1,'FIRST BANK'),(2,'SECOND HOUSE')");
    Db().Execute(
        "Insert Into DpIDs(DepId,Id,DPID) Values(1,11,'IN300001'),(1,12,'IN300002'),"
        "(2,21,'12099900')");
  }
  void cleanup() {
    shown_.reset();
    folder_.reset();
  }

 protected:
  database::Connection& Db() { return **database_; }

  void AddClient(int id, const QString& code) {
    Db().Execute("Insert Into ClientInfo(Id,Code,Name) Values(?,?,?)", id, code, code);
  }
  void AddAccount(int client, int id, int participant, int dp_id, const QString& number) {
    Db().Execute("Insert Into ClientActDet(CId,id,DMATAC,DPID,ACNo) Values(?,?,?,?,?)", client, id,
                 participant, dp_id, number);
  }

  void Open() {
    shown_ = std::make_unique<Shown>(*database_, folder_->path());
    window_ = shown_->window;
    messages_ = &shown_->messages;
  }

  void Modify(int id) {
    window_->List().SelectId(id);
    Click("cmdModify");
    QVERIFY(window_->IsEditing());
  }

  QAbstractButton* Button(const char* name) { return window_->findChild<QAbstractButton*>(name); }

  // As a mouse does it: the button takes the focus, then the click.
  void Click(const char* name) {
    QAbstractButton* button = Button(name);
    if (button->isEnabled()) {
      button->setFocus(Qt::MouseFocusReason);
    }
    QTest::mouseClick(button, Qt::LeftButton);
  }

  /// "shown" or what was said instead.
  QString View() {
    const auto* viewer = window_->findChild<DocumentViewer*>();
    QSignalSpy opened(viewer, &documents::DocumentViewer::Opened);
    const std::size_t said = messages_->said.size();
    Click("CmdView");
    const bool done =
        QTest::qWaitFor([&] { return !opened.isEmpty() || messages_->said.size() > said; }, 20000);
    return !done ? QString("nothing") : opened.isEmpty() ? messages_->LastText() : QString("shown");
  }

  TextBox* Box(int number) { return window_->findChild<TextBox*>(masters::BoxName(number)); }

  QStringList Accounts() const { return shown_->RowsOf("VS"); }

  static QString Focused() { return Shown::Focused(); }
  static void Type(const QStringList& texts) { Shown::Fill(texts); }

  std::optional<QTemporaryDir> folder_;
  std::unique_ptr<Shown> shown_;
  FrmClientMaster* window_ = nullptr;
  RecordingMessages* messages_ = nullptr;
};

}  // namespace quorvane::test
