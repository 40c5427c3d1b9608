#pragma once

#include "controls/TextBox.h"
#include "masters/Records.h"
#include "masters/ShownWindow.h"
#include "masters/clients/Documents.h"
#include "masters/clients/window/FrmClientMaster.h"
#include "masters/window/BoxName.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QPrinter>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <memory>
#include <optional>

namespace quorvane::test {

using clients::FrmClientMaster;
using controls::Grid;
using controls::TextBox;
using documents::DocumentDialogs;
using documents::DocumentViewer;

/// The client window over a database of two participants; the base of the window's tests.
class ClientWindow : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    database_.emplace();
    session_.connection = std::make_unique<database::Connection>(database_->Settings());
  }

  void cleanupTestCase() {
    session_.connection.reset();
    database_.reset();
  }

  void init() {
    folder_.emplace();
    session_.folders = app::Folders::At(folder_->path());
    QVERIFY(QDir().mkpath(session_.folders.data));
    WriteFile(session_.folders.data + "/statelist.txt", "GOA\nGUJARAT\nMAHARASHTRA\n");
    Empty(Db(), {"ClientInfo", "ClientActDet", "DepPart", "DpIDs"});
    Db().Execute("Insert Into DepPart(Id,Name) Values(1,'FIRST BANK'),(2,'SECOND HOUSE')");
    Db().Execute(
        "Insert Into DpIDs(DepId,Id,DPID) Values(1,11,'IN300001'),(1,12,'IN300002'),"
        "(2,21,'12099900')");
    messages_.emplace();
    desk_.emplace(controls::Desk{session_, *messages_, [] { return *text::MakeDate(1, 5, 2012); },
                                 [this](const QString& name) { opened_.append(name); }});
    desk_->ask_open_path = [this](QWidget*, const QString&, const QString&) { return picked_; };
    opened_.clear();
    picked_.clear();
  }

  void cleanup() {
    window_.reset();
    desk_.reset();
    folder_.reset();
  }

 protected:
  database::Connection& Db() { return *session_.connection; }

  void AddClient(int id, const QString& code) {
    Db().Execute("Insert Into ClientInfo(Id,Code,Name) Values(?,?,?)", id, code, code);
  }

  void AddAccount(int client, int id, int participant, int dp_id, const QString& number) {
    Db().Execute("Insert Into ClientActDet(CId,id,DMATAC,DPID,ACNo) Values(?,?,?,?,?)", client, id,
                 participant, dp_id, number);
  }

  documents::DocumentDialogs Dialogs() {
    documents::DocumentDialogs dialogs;
    dialogs.choose_color = [](QWidget*, const QColor&) { return QColor(Qt::green); };
    dialogs.set_up_printer = [this](QWidget*, QPrinter& printer, int) {
      printer.setOutputFileName(folder_->filePath("printed.pdf"));
      return true;
    };
    return dialogs;
  }

  void Open() {
    window_ = std::make_unique<FrmClientMaster>(*desk_, Dialogs());
    window_->setAttribute(Qt::WA_DeleteOnClose, false);
    window_->resize(1200, 700);
    window_->show();
    QApplication::setActiveWindow(window_.get());
    QVERIFY(QTest::qWaitForWindowActive(window_.get()));
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

  static QStringList TextsOf(const Grid& grid) {
    QStringList rows;
    for (int row = 0; row < grid.Model().RowCount(); ++row) {
      QStringList cells;
      for (int column = 0; column < grid.Model().columnCount(); ++column) {
        cells += grid.Model().Text(row, column);
      }
      rows += cells.join('|');
    }
    return rows;
  }

  static QString Focused() {
    const QWidget* focus = QApplication::focusWidget();
    return focus == nullptr ? QString("none") : focus->objectName();
  }

  static void Type(const QStringList& texts) { ShownWindow<FrmClientMaster>::Fill(texts); }

  std::optional<TestDatabase> database_;
  app::Session session_;
  std::optional<QTemporaryDir> folder_;
  std::optional<RecordingMessages> messages_;
  std::optional<controls::Desk> desk_;
  QStringList opened_;
  QString picked_;
  std::unique_ptr<FrmClientMaster> window_;
};

}  // namespace quorvane::test
