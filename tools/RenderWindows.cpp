// Opens every window of the program over a portfolio and saves a picture of each, for a look at
// them and for the user guide: render_windows APPLICATION_FOLDER CLIENT_CODE YEAR OUT_FOLDER
// [IN_FOLDER]. IN_FOLDER has the files that are opened, in a folder for each window. Without it the
// windows are shown as they open, for a portfolio without records; the client may be missing then.

#include "admin/users/UserBook.h"
#include "admin/users/window/frmLoginSetUp.h"
#include "controls/ChildWindow.h"
#include "controls/DateBox.h"
#include "controls/Grid.h"
#include "controls/Messages.h"
#include "controls/RecordWindow.h"
#include "controls/Style.h"
#include "core/app/AppInfo.h"
#include "core/app/Ini.h"
#include "core/lookups/Directory.h"
#include "core/records/Masters.h"
#include "core/records/Query.h"
#include "core/records/Writing.h"
#include "reporting/output/window/RepView.h"
#include "support/RecordingMessages.h"
#include "ui/Features.h"
#include "ui/main/MDIForm1.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QScreen>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <iostream>
#include <map>
#include <utility>

namespace {

using namespace quorvane;

constexpr int kInFolder = 5;  // its place among the arguments
constexpr int kSettleMs = 250;
constexpr int kReadingMs = 2000;  // of a document, of the figures at first

/// What is pressed in a window before its picture is taken.
const std::map<QString, QStringList> kPressed{
    {QStringLiteral("RepairTable"), {QStringLiteral("cmdCheck")}},
    {QStringLiteral("frmBackUpRestore"), {QStringLiteral("cmdBackUp")}},
    {QStringLiteral("ImpScrMaster"), {QStringLiteral("CmdImport")}},
    {QStringLiteral("ImpScrRate"), {QStringLiteral("CmdImport")}},
    {QStringLiteral("FrmScriptTransfer"), {QStringLiteral("cmdModify")}},
    {QStringLiteral("FrmCorpAction"), {QStringLiteral("CmdPreview")}},
    {QStringLiteral("ImpCorpAction"), {QStringLiteral("CmdFile")}},
    {QStringLiteral("FrmFairValue"), {QStringLiteral("CmdFile")}},
    {QStringLiteral("ImpTrades"), {QStringLiteral("CmdFile")}},
    {QStringLiteral("FrmReconcile"), {QStringLiteral("CmdFile")}},
    {QStringLiteral("ImpNotes"), {QStringLiteral("CmdFile")}},
    {QStringLiteral("FrmClientMaster"),
     {QStringLiteral("cmdModify"), QStringLiteral("CmdSource"), QStringLiteral("cmdUpdate")}},
};

const QStringList kShownByDetails{QStringLiteral("FrmClientMaster"), QStringLiteral("FrmDepPart"),
                                  QStringLiteral("FrmBroker")};
const QStringList kLeftUnsaved{QStringLiteral("FrmSalePurchase"),
                               QStringLiteral("FrmScriptTransfer"), QStringLiteral("ImpScrMaster"),
                               QStringLiteral("ImpScrRate"), QStringLiteral("FrmFairValue")};
const QString kBill = QStringLiteral("KV/1112/0015");
const QString kSearched = QStringLiteral("100");
const QString kNowhere = QStringLiteral("NO SUCH RECORD");
const QString kCalculation = QStringLiteral("1250*48=");

template <class Widget>
Widget& Named(QWidget& window, const QString& name) {
  auto* widget = window.findChild<Widget*>(name);
  if (widget == nullptr) {
    throw std::runtime_error("there is no " + name.toStdString());
  }
  return *widget;
}

/// A sale from a lot, its line being changed.
void ChangeSale(QWidget& window) {
  Named<QLineEdit>(window, QStringLiteral("TxtSearch")).setText(kBill);
  Named<controls::Grid>(window, QStringLiteral("VSF")).SelectRow(0);
  Named<QAbstractButton>(window, QStringLiteral("cmdModify")).click();
  Named<controls::Grid>(window, QStringLiteral("Vs1")).SelectRow(1);
  Named<QAbstractButton>(window, QStringLiteral("CmdModify1")).click();
}

void ChooseRows(QWidget& window) {
  for (controls::Grid* grid : window.findChildren<controls::Grid*>()) {
    if (grid->Model().RowCount() > 0 && grid->CurrentRow() < 0) {
      grid->SelectRow(0);
    }
  }
}

/// As a user finds it at work: a report is on the screen, a record is chosen.
void Fill(controls::ChildWindow& window) {
  const QString name = window.objectName();
  if (auto* report = window.findChild<controls::ZENButton*>(QStringLiteral("CmdReport"));
      report != nullptr && name.startsWith(QLatin1String("Rpt"))) {
    report->click();
    return;
  }
  if (name == QLatin1String("frmcalc")) {
    QTest::keyClicks(&window, kCalculation);
  }
  if (name == QLatin1String("FrmSearch")) {
    Named<QLineEdit>(window, QStringLiteral("TxtSearch")).setText(kSearched);
    QTest::qWait(kSettleMs);
    return;
  }
  if (name == QLatin1String("FrmSalePurchase")) {
    ChangeSale(window);
    return;
  }
  auto* date = window.findChild<controls::DateBox*>(QStringLiteral("TxtDate"));
  if (date != nullptr && name != QLatin1String("FrmReconcile")) {
    date->setText(QStringLiteral("31/03/2012"));
  }
  if (name == QLatin1String("ImpNotes")) {
    Named<QComboBox>(window, QStringLiteral("Combo2")).setCurrentIndex(0);
  }
  ChooseRows(window);
  if (name == QLatin1String("ImpTrades")) {
    Named<QComboBox>(window, QStringLiteral("CboBroker")).setCurrentIndex(0);
  }
  if (const auto pressed = kPressed.find(name); pressed != kPressed.end()) {
    for (const QString& button : pressed->second) {
      Named<QAbstractButton>(window, button).click();
    }
  }
  if (kShownByDetails.contains(name)) {
    Named<QAbstractButton>(window, QStringLiteral("ImgBack_0")).click();
  }
}

void Save(QWidget& shown, const QString& name, const QDir& out) {
  QTest::qWait(kSettleMs);
  const QSize size = QGuiApplication::primaryScreen()->size();
  const QString file =
      QStringLiteral("%1-%2x%3.png").arg(name).arg(size.width()).arg(size.height());
  if (!shown.grab().save(out.filePath(file))) {
    throw std::runtime_error("cannot write " + out.filePath(file).toStdString());
  }
}

/// The panes beside the report.
void RenderPanes(ui::MDIForm1& main, controls::ChildWindow& window, const QDir& out) {
  auto& pages = Named<QTabWidget>(window, QString());
  for (const auto& [page, name] : {std::pair{1, "chart"}, std::pair{2, "rates"}}) {
    pages.setCurrentIndex(page);
    ChooseRows(*pages.currentWidget());
    Save(main, window.objectName() + QLatin1Char('-') + QLatin1String(name), out);
  }
}

void RenderPreview(ui::MDIForm1& main, controls::ChildWindow& window, const QDir& out) {
  Named<QAction>(window, QStringLiteral("mnupreview")).trigger();
  QTest::qWait(kSettleMs);
  Save(main, QStringLiteral("RepView"), out);
  main.findChild<QMdiArea*>()->subWindowList().last()->close();
}

void Render(ui::MDIForm1& main, reporting::ReportDesk& desk, test::RecordingMessages& messages,
            const QString& name, const QDir& out) {
  desk.session.target = name;
  main.Open(name);
  QTest::qWait(kSettleMs);
  auto* window = qobject_cast<controls::ChildWindow*>(
      main.findChild<QMdiArea*>()->subWindowList().last()->widget());
  Fill(*window);
  QTest::qWait(name == QLatin1String("frmdocuments") ? kReadingMs : 0);
  Save(main, name, out);
  if (name == QLatin1String("RptVariousReport")) {
    RenderPanes(main, *window, out);
  } else if (name == QLatin1String("RptProfitStatement")) {
    RenderPreview(main, *window, out);
  } else if (name == QLatin1String("FrmSearch")) {
    Named<QLineEdit>(*window, QStringLiteral("TxtSearch")).setText(kNowhere);
    QTest::qWait(kSettleMs);
    Save(main, name + QStringLiteral("-none"), out);
  }
  if (kLeftUnsaved.contains(name)) {
    messages.WillAnswer(true);
  }
  window->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  QTest::qWait(1);
}

/// Several windows, each behind a tab.
void RenderTabs(ui::MDIForm1& main, const QDir& out) {
  Named<QAction>(main, QStringLiteral("mnuTabs")).trigger();
  for (const char* window : {"FrmClientMaster", "FrmHoldings", "FrmScript"}) {
    main.Open(QLatin1String(window));
  }
  Save(main, QStringLiteral("Tabs"), out);
  Named<QAction>(main, QStringLiteral("mnuCloseAll")).trigger();
  Named<QAction>(main, QStringLiteral("mnuTabs")).trigger();
}

/// The box with what a window refused.
void RenderBox(const QString& text, const QString& name, const QDir& out) {
  QTimer::singleShot(kSettleMs, [&] {
    QWidget* box = QApplication::activeModalWidget();
    Save(*box, name, out);
    box->close();
  });
  controls::MessageBoxes().Refuse(text);
}

/// A record that somebody else saved while it was open here: the line that tells, and the refusal
/// with both versions.
void RenderRefused(ui::MDIForm1& main, reporting::ReportDesk& desk,
                   test::RecordingMessages& messages, const QDir& out) {
  main.Open(QStringLiteral("FrmDepPart"));
  auto& window = Named<controls::RecordWindow>(main, QStringLiteral("FrmDepPart"));
  window.List().SelectRow(0);
  Named<QAbstractButton>(window, QStringLiteral("cmdModify")).click();
  Named<QLineEdit>(window, QStringLiteral("Text1_0")).setText(QStringLiteral("SANCHAYIKA DP LTD"));
  database::Connection& connection = *desk.session.connection;
  records::Participant theirs =
      records::Select<records::Participant>(connection)
          .Where(&records::Participant::id, ParticipantId{window.CurrentId()})
          .All()
          .front();
  theirs.name = QStringLiteral("SANCHAYIKA DEPOSITORY LTD");
  const changes::Author author = connection.Author();
  connection.SetAuthor({QStringLiteral("ANITA"), QStringLiteral("desk-2")});
  database::InTransaction(connection, [&](database::Transaction& transaction) {
    records::Replace(transaction, theirs);
  });
  connection.SetAuthor(author);
  QTest::qWait(kReadingMs);
  Save(main, QStringLiteral("Changed"), out);
  Named<QAbstractButton>(window, QStringLiteral("cmdUpdate")).click();
  RenderBox(messages.LastText(), QStringLiteral("Changed-refused"), out);
  messages.WillAnswer(true);
  window.close();
}

/// The users with their rights.
void RenderUsers(reporting::ReportDesk& desk, const QDir& out) {
  users::UserBook book(*desk.session.connection);
  for (const auto& [name, rights] :
       {std::pair{"ANITA", changes::kAllRights}, std::pair{"RAVI", 0}}) {
    static_cast<void>(
        book.Save({.name = QLatin1String(name), .password = kBill, .rights = rights}));
  }
  auto* window = new users::frmLoginSetUp(desk);
  window->OpenModal(nullptr);
  ChooseRows(*window);
  Save(*window, window->objectName(), out);
  window->close();
}

/// False when there is no such client.
bool ChooseClient(app::Session& session, const QStringList& arguments) {
  const lookups::Directory directory(*session.connection);
  const lookups::ClientEntry* client = directory.FindClient(arguments[2].toStdString());
  const auto year = text::FinancialYear::Parse(arguments[3]);
  if (client == nullptr || !year) {
    return false;
  }
  session.current = ClientYear{client->id, *year};
  session.current_client_name = QString::fromStdString(client->name);
  return true;
}

/// Every window as it opens.
void RenderEmpty(ui::MDIForm1& main, reporting::ReportDesk& desk, const QDir& out) {
  for (const ui::Feature& feature : ui::Features()) {
    if (feature.make == nullptr) {
      continue;
    }
    desk.session.target = QLatin1String(feature.name);
    main.Open(QLatin1String(feature.name));
    Save(main, QLatin1String(feature.name) + QStringLiteral("-empty"), out);
    Named<QAction>(main, QStringLiteral("mnuCloseAll")).trigger();
  }
}

/// Every window at work.
void RenderFilled(ui::MDIForm1& main, reporting::ReportDesk& desk,
                  test::RecordingMessages& messages, const QDir& out) {
  for (const ui::Feature& feature : ui::Features()) {
    if (feature.make != nullptr) {
      Render(main, desk, messages, QLatin1String(feature.name), out);
    }
  }
  RenderTabs(main, out);
  RenderRefused(main, desk, messages, out);
  RenderUsers(desk, out);
}

void RenderAll(const QStringList& arguments) {
  app::StartUpOptions options;
  options.application_folder = arguments[1];
  options.shipped_data =
      app::ShippedFolder(QCoreApplication::applicationDirPath(), QStringLiteral("shipped"));
  const QSize screen = QGuiApplication::primaryScreen()->size();
  options.screen = app::ScreenSize{screen.width(), screen.height()};
  const auto session = app::StartUp(options);
  const bool has_client = ChooseClient(*session, arguments);
  const bool is_filled = arguments.size() > kInFolder;
  if (is_filled && !has_client) {
    throw std::runtime_error("no such client or year");
  }
  test::RecordingMessages messages;
  reporting::ReportDesk desk{{*session, messages}};
  desk.ask_open_path = [&](QWidget* over, const QString&, const QString&) {
    const QDir in(QDir(arguments.value(kInFolder)).filePath(over->objectName()));
    return in.filePath(in.entryList(QDir::Files).value(0));
  };
  desk.ask_open_paths = [&](QWidget* over, const QString& filters) {
    return QStringList{desk.ask_open_path(over, QString(), filters)};
  };
  reporting::RepView preview(desk);
  desk.show_report = [&](const reporting::ReportDocument& document, QWidget* over) {
    reporting::HandOver(document, preview, over);
  };
  desk.show_pages = [&](const QStringList& titles, const QByteArray& pages, QWidget* over) {
    preview.Open(titles, pages, over);
  };
  ui::MDIForm1 main(desk);
  main.setGeometry(QRect(QPoint(), screen));
  main.show();
  const QDir out(arguments[4]);
  out.mkpath(QStringLiteral("."));
  QTest::qWait(kReadingMs);  // the figures
  Save(main, main.objectName() + (is_filled ? "" : has_client ? "-empty" : "-start"), out);
  if (is_filled) {
    RenderFilled(main, desk, messages, out);
  } else if (has_client) {
    RenderEmpty(main, desk, out);
  }
  for (const QString& text : messages.Texts()) {
    std::cerr << text.toStdString() << '\n';
  }
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setWindowIcon(controls::AppIcon());
  if (argc != kInFolder && argc != kInFolder + 1) {
    std::cerr
        << "usage: render_windows APPLICATION_FOLDER CLIENT_CODE YEAR OUT_FOLDER [IN_FOLDER]\n";
    return 2;
  }
  try {
    const app::Folders folders = app::Folders::At(QApplication::arguments()[1]);
    controls::ApplyAppearance(application, app::IniFile(folders.config_file));
    RenderAll(QApplication::arguments());
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
  return 0;
}
