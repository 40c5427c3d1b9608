#include "ui/main/MDIForm1.h"

#include "controls/ChildWindow.h"
#include "controls/WindowMemory.h"
#include "controls/ZENButton.h"
#include "core/app/AppInfo.h"
#include "core/app/Ini.h"
#include "core/rates/QuoteDesk.h"
#include "ui/folders/PortfolioFolders.h"
#include "ui/main/ClientBar.h"
#include "ui/main/EmptyArea.h"
#include "ui/main/MainHead.h"
#include "ui/main/MainMenu.h"
#include "ui/main/MainStatus.h"
#include "ui/main/MiscInfo.h"
#include "ui/main/OpenWindows.h"

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QPointer>
#include <QScreen>
#include <QStatusBar>
#include <QVBoxLayout>

namespace quorvane::ui {
namespace {

using controls::Answer;
using controls::Icon;

constexpr int kClockMs = 1000;
constexpr int kHeadlineMs = 5 * 60 * 1000;
const QString kMarketRateTool = QStringLiteral("MRate");
const QString kConverterTool = QStringLiteral("Converter");
const QString kClientList = QStringLiteral("FrmClientList");
const QString kTabsKey = QStringLiteral("Tabs");
constexpr QSize kUsualSize(1180, 740);
constexpr double kScreenShare = 0.85;

QUrl FeedAddress(const app::Session& session) {
  const app::IniFile config(session.folders.config_file);
  return QUrl(config.Read(QStringLiteral("Internet"), QStringLiteral("IndexFeed"),
                          QLatin1String(rates::kIndexFeed)));
}

}  // namespace

MDIForm1::MDIForm1(reporting::ReportDesk& desk)
    : desk_(desk),
      guard_(desk.messages),
      area_(new OpenWindows(desk)),
      feed_(FeedAddress(desk.session),
            desk.session.folders.application + QStringLiteral("/Sensex.xml")),
      tools_(desk.session.folders.data),
      round_(desk, *this) {
  setObjectName(QStringLiteral("MDIForm1"));
  setWindowTitle(app::TitleText());
  BuildMenuBar();
  BuildCentre();
  status_ = new MainStatus(*statusBar(), *area_,
                           QDir::toNativeSeparators(desk_.session.folders.application));
  // The desk outlives this window, and the next main window puts itself in its place.
  desk_.open = [self = QPointer(this)](const QString& name) {
    if (self != nullptr) {
      self->Open(name);
    }
  };
  desk_.has_window = [](const QString& name) {
    const Feature* feature = FindFeature(name);
    return feature != nullptr && feature->make != nullptr;
  };
  desk_.open_record = [self = QPointer(this)](const controls::RecordPlace& place) {
    if (self != nullptr) {
      self->OpenRecord(place);
    }
  };
  PlaceOnScreen();
  StartTimers();
}

// The windows inside go after the members of this one, and must not call it then.
MDIForm1::~MDIForm1() {
  area_->disconnect(this);
}

void MDIForm1::BuildMenuBar() {
  setMenuBar(new MenuBar([this](const QKeySequence& key) {
    controls::ChildWindow* front = area_->Front();
    return front != nullptr && front->PressKey(key);
  }));
  BuildMenu(*this, [this](const Feature& item) {
    guard_.Run(QLatin1String(item.item) + QStringLiteral("_Click"), [&] { Do(item); });
  });
}

void MDIForm1::BuildCentre() {
  auto* centre = new QWidget;
  auto* layout = new QVBoxLayout(centre);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  setCentralWidget(centre);
  head_ = new MainHead(*this);
  layout->addWidget(head_);
  bar_ = new ClientBar(desk_);
  head_->AddLine(*bar_);
  connect(bar_, &ClientBar::Chosen, this,
          [this] { guard_.Run(QStringLiteral("CboClient_Click"), [this] { OpenForChosen(); }); });
  guard_.Connect(head_->lblSensex, &QAbstractButton::clicked, this, &MDIForm1::lblSensex_Click,
                 QStringLiteral("lblSensex_Click"));
  guard_.Connect(head_->lblLoaded, &QAbstractButton::clicked, this, &MDIForm1::lblLoaded_Click,
                 QStringLiteral("lblLoaded_Click"));
  guard_.Connect(head_->LblChkUpdate, &QAbstractButton::clicked, this,
                 &MDIForm1::LblChkUpdate_Click, QStringLiteral("LblChkUpdate_Click"));
  connect(area_, &QMdiArea::subWindowActivated, this, &MDIForm1::RestButtonRow);
  connect(area_, &OpenWindows::Closed, this, &MDIForm1::ChildClosed);
  ShowTabs(!controls::WindowMemory(desk_.session.folders).Text(objectName(), kTabsKey).isEmpty());
  layout->addWidget(area_, 1);
  pages_ = new EmptyArea(desk_, *area_);
  connect(pages_, &EmptyArea::Chosen, this,
          [this](const QString& item) { findChild<QAction*>(item)->trigger(); });
  ShowStartPage();
}

// As large as work needs and the screen allows; where the user left it when that is still a screen.
void MDIForm1::PlaceOnScreen() {
  const controls::WindowMemory memory(desk_.session.folders);
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  const auto remembered = memory.Place(objectName());
  const QScreen* there = remembered ? QGuiApplication::screenAt(remembered->center()) : nullptr;
  if (there != nullptr) {
    setGeometry(controls::Inside(*remembered, there->availableGeometry()));
  } else {
    resize((screen.size() * kScreenShare).expandedTo(kUsualSize).boundedTo(screen.size()));
  }
  opened_at_ = geometry();
  if (memory.IsMaximized(objectName())) {
    setWindowState(Qt::WindowMaximized);
  }
}

void MDIForm1::RememberPlace() const {
  const controls::WindowMemory memory(desk_.session.folders);
  memory.KeepMaximized(objectName(), isMaximized());
  if (normalGeometry() != opened_at_) {
    memory.KeepPlace(objectName(), normalGeometry());
  }
}

void MDIForm1::Do(const Feature& item) {
  const QString target = QLatin1String(item.name);
  switch (item.action) {
    case MenuAction::kNoItem:
    case MenuAction::kHeading:
    case MenuAction::kSeparator:
      return;
    case MenuAction::kOpenWindow:
      return Open(target);
    case MenuAction::kOpenModal:
      return OpenModal(target);
    case MenuAction::kClientSelection:
      return SelectClientFor(target);
    case MenuAction::kBackUp:
      return mnuBackUp_Click();
    case MenuAction::kMiscellaneous:
      return mnuMisc_Click();
    case MenuAction::kConverter:
      return mnuConverter_Click();
    case MenuAction::kImportFolder:
      PortfolioFolders(desk_, *this).Import();
      return ShowStartPage();
    case MenuAction::kExportFolder:
      return PortfolioFolders(desk_, *this).Export();
    case MenuAction::kImportSample:
      PortfolioFolders(desk_, *this).ImportSample();
      return ShowStartPage();
    case MenuAction::kClientBar:
      return bar_->FocusClient();
    case MenuAction::kTabs:
      return ShowTabs(!area_->AreTabs());
    case MenuAction::kCloseAll:
      return CloseAll();
    case MenuAction::kUndo:
      return round_.TakeBackLast();
    case MenuAction::kLogOut:
      return mnuLogOut_Click();
    case MenuAction::kContact:
      return mnuContact_Click();
    case MenuAction::kQuit:
      return mnuQuit_Click();
  }
}

void MDIForm1::StartTimers() {
  guard_.Connect(&Timer1, &QTimer::timeout, this, &MDIForm1::Timer1_Timer,
                 QStringLiteral("Timer1_Timer"));
  guard_.Connect(&Timer2, &QTimer::timeout, this, &MDIForm1::cmdSensex,
                 QStringLiteral("cmdSensex"));
  connect(&feed_, &HeadlineFeed::HeadlineRead, head_, &MainHead::ShowHeadline);
  Timer1.start(kClockMs);
  Timer2.start(kHeadlineMs);
  round_.LookAround();
  cmdSensex();
}

void MDIForm1::Timer1_Timer() {
  head_->ShowTime();
  round_.LookAround();
}

void MDIForm1::cmdSensex() {
  feed_.Fetch();
}

void MDIForm1::lblSensex_Click() {
  tools_.Open(kMarketRateTool, desk_.messages);
}

void MDIForm1::lblLoaded_Click() {
  if (!tools_.BringUp(kMarketRateTool, desk_.messages)) {
    desk_.messages.Inform(tr("Couldn't find Window %1").arg(kMarketRateTool));
  }
}

void MDIForm1::mnuConverter_Click() {
  tools_.Open(kConverterTool, desk_.messages);
}

void MDIForm1::LblChkUpdate_Click() {
  desk_.messages.Inform(
      tr("This is %1.\nThe program never goes to the internet by itself for another release; your "
         "supplier's page has the newest one.")
          .arg(app::TitleText().trimmed()));
}

void MDIForm1::Open(const QString& name) {
  area_->Show(name);
}

void MDIForm1::OpenRecord(const controls::RecordPlace& place) {
  if (place.of) {
    desk_.session.current = place.of;
    desk_.session.current_client_name = place.client_name;
  }
  desk_.session.target = place.window;  // a window of two duties reads it
  if (!area_->Show(place.window)->GoTo(place.record)) {
    desk_.messages.Inform(tr("This record is not there any more."));
  }
}

/// The window in front, for the client and year that were chosen in the bar.
void MDIForm1::OpenForChosen() {
  const QString name = area_->NameOf(area_->Front());
  const Feature* feature = FindFeature(name);
  if (feature != nullptr && feature->action == MenuAction::kClientSelection) {
    desk_.session.target = name;
    Open(name);
  }
}

void MDIForm1::ShowTabs(bool on) {
  area_->ShowTabs(on);
  findChild<QAction*>(QStringLiteral("mnuTabs"))->setChecked(on);
  controls::WindowMemory(desk_.session.folders)
      .Keep(objectName(), kTabsKey, on ? QStringLiteral("1") : QString());
}

void MDIForm1::CloseAll() {
  if (area_->MayClose()) {
    area_->CloseAll();
  }
}

void MDIForm1::OpenModal(const QString& name) {
  FindFeature(name)->make(desk_)->OpenModal(this);
}

void MDIForm1::SelectClientFor(const QString& target) {
  EnableButtons(false);
  desk_.session.target = target;
  try {
    Open(kClientList);
  } catch (...) {
    EnableButtons(true);
    throw;
  }
}

void MDIForm1::ChildClosed() {
  RestButtonRow();
  ShowStartPage();
}

/// The row rests for the client list alone, and only while the list is in front: behind another
/// window nobody would see why.
void MDIForm1::RestButtonRow() {
  bar_->Refresh();
  const QMdiSubWindow* front = area_->currentSubWindow();
  const auto* window =
      front == nullptr ? nullptr : qobject_cast<controls::ChildWindow*>(front->widget());
  EnableButtons(area_->NameOf(window) != kClientList);
}

/// Windows come and go also while the database cannot be asked.
void MDIForm1::ShowStartPage() {
  guard_.Run(QStringLiteral("Form_Load"), [this] { pages_->Refresh(); });
}

void MDIForm1::EnableButtons(bool enabled) {
  head_->ButtonRow().setEnabled(enabled);
}

void MDIForm1::mnuMisc_Click() {
  (new MiscInfo(desk_))->OpenModal(this);
}

void MDIForm1::mnuContact_Click() {
  desk_.messages.Inform(
      tr("Quorvane\nFor help turn to whoever gave you the program, or read the "
         "user guide that came with it (docs/user-guide)."));
}

void MDIForm1::mnuBackUp_Click() {
  desk_.session.target = QStringLiteral("BackUp");
  Open(QStringLiteral("frmBackUpRestore"));
}

void MDIForm1::mnuLogOut_Click() {
  if (!desk_.messages.Ask(tr("Are You Sure You Want to LogOut?"), Answer::kNo,
                          Icon::kInformation) ||
      !area_->MayClose()) {
    return;
  }
  closing_confirmed_ = true;
  Q_EMIT LoggedOut();
  close();
}

void MDIForm1::mnuQuit_Click() {
  if (!desk_.messages.Ask(tr("Do You Want to Close the Application?"), Answer::kYes,
                          Icon::kInformation)) {
    return;
  }
  closing_confirmed_ = true;
  if (desk_.messages.Ask(tr("Do you Want to take BackUp of Database?"), Answer::kNo,
                         Icon::kInformation)) {
    mnuBackUp_Click();
  } else {
    close();
  }
}

void MDIForm1::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::LanguageChange) {
    ShowCaptions(*this);
    head_->ShowTexts();
    bar_->ShowTexts();
    pages_->ShowTexts();
    status_->Refresh();
  }
}

void MDIForm1::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::HelpContents)) {
    guard_.Run(QStringLiteral("mnuHelp_Click"), [this] { desk_.help(objectName(), this); });
  } else {
    QMainWindow::keyPressEvent(event);
  }
}

void MDIForm1::closeEvent(QCloseEvent* event) {
  if (!closing_confirmed_) {
    event->ignore();
    if (!desk_.messages.Ask(tr("Do You want to Close the Applicaltion?"), Answer::kNo,
                            Icon::kInformation)) {
      return;
    }
    if (desk_.messages.Ask(tr("Do you want to take BackUp of Database?"), Answer::kNo,
                           Icon::kInformation)) {
      closing_confirmed_ = true;
      guard_.Run(QStringLiteral("mnuBackUp_Click"), [this] { mnuBackUp_Click(); });
      return;
    }
  }
  // A child that must not close yet, such as one that is still being edited, keeps the frame open.
  closing_confirmed_ = area_->MayClose();
  event->setAccepted(closing_confirmed_);
  if (closing_confirmed_) {
    RememberPlace();
    area_->CloseAll();
  }
}

}  // namespace quorvane::ui
