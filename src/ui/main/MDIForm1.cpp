#include "ui/main/MDIForm1.h"

#include "admin/backup/BackupList.h"
#include "controls/ChildWindow.h"
#include "controls/ProgressDialog.h"
#include "controls/RecordWindow.h"
#include "controls/WindowMemory.h"
#include "controls/ZENButton.h"
#include "core/app/AppInfo.h"
#include "core/app/Ini.h"
#include "core/changes/Undo.h"
#include "core/rates/QuoteDesk.h"
#include "masters/client_list/ClientList.h"
#include "reports/home/window/HomePane.h"
#include "ui/folders/PortfolioFolders.h"
#include "ui/main/ClientBar.h"
#include "ui/main/MainHead.h"
#include "ui/main/MainMenu.h"
#include "ui/main/MainStatus.h"
#include "ui/main/MiscInfo.h"
#include "ui/main/StartPage.h"

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMdiSubWindow>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScreen>
#include <QStatusBar>
#include <QTabBar>
#include <QVBoxLayout>

#include <algorithm>

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
constexpr int kGroundDarker = 106;  // per cent of the windows' ground

QColor GroundOf(const QPalette& palette) {
  return palette.color(QPalette::Window).darker(kGroundDarker);
}

QUrl FeedAddress(const app::Session& session) {
  const app::IniFile config(session.folders.config_file);
  return QUrl(config.Read(QStringLiteral("Internet"), QStringLiteral("IndexFeed"),
                          QLatin1String(rates::kIndexFeed)));
}

}  // namespace

MDIForm1::MDIForm1(reporting::ReportDesk& desk)
    : desk_(desk),
      guard_(desk.messages),
      area_(new QMdiArea),
      feed_(FeedAddress(desk.session),
            desk.session.folders.application + QStringLiteral("/Sensex.xml")),
      tools_(desk.session.folders.data),
      news_(*desk.session.connection) {
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
    controls::ChildWindow* front = Front();
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
  area_->setObjectName(QStringLiteral("MDIExtend1"));
  area_->setBackground(GroundOf(palette()));
  area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  // When a window closes, the one before it comes back.
  area_->setActivationOrder(QMdiArea::ActivationHistoryOrder);
  connect(area_, &QMdiArea::subWindowActivated, this, &MDIForm1::RestButtonRow);
  ShowTabs(!controls::WindowMemory(desk_.session.folders).Text(objectName(), kTabsKey).isEmpty());
  layout->addWidget(area_, 1);
  const auto choose = [this](const QString& item) { findChild<QAction*>(item)->trigger(); };
  start_ = new StartPage(*area_);
  connect(start_, &StartPage::Chosen, this, choose);
  home_ = new home::HomePane(desk_, *area_);
  connect(home_, &home::HomePane::Chosen, this, choose);
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
      return ShowTabs(area_->viewMode() != QMdiArea::TabbedView);
    case MenuAction::kCloseAll:
      return CloseAll();
    case MenuAction::kUndo:
      return mnuUndo_Click();
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
  LookAround();
  cmdSensex();
}

void MDIForm1::Timer1_Timer() {
  head_->ShowTime();
  LookAround();
}

/// What this and other programs changed appears in the open windows. A question that is shown
/// meanwhile keeps the timer alive, so one look does not begin within another.
void MDIForm1::LookAround() {
  constexpr qint64 kRestMs = 30'000;
  if (desk_.session.connection->InTransaction()) {
    return;
  }
  const bool rests = since_failed_.isValid() && !since_failed_.hasExpired(kRestMs);
  if (looks_around_ || rests || desk_.session.read_only) {
    return;
  }
  const QScopedValueRollback<bool> looking(looks_around_, true);
  try {
    const std::vector<changes::Entry> news = news_.Read();
    for (controls::ChildWindow* child : findChildren<controls::ChildWindow*>()) {
      child->LookAround(news);
    }
  } catch (const database::DatabaseError&) {
    // The user's next step tells of it; a box or a wait each second would only be in the way.
    since_failed_.start();
  }
}

bool MDIForm1::IsEditing() const {
  return std::ranges::any_of(findChildren<controls::RecordWindow*>(),
                             &controls::RecordWindow::IsEditing);
}

void MDIForm1::mnuUndo_Click() {
  if (IsEditing()) {
    return desk_.messages.Refuse(tr("Save or Cancel the Record that is being Entered First."));
  }
  const Result<changes::Entry> last = changes::LastToUndo(*desk_.session.connection, std::nullopt);
  if (!last) {
    return desk_.messages.Refuse(last.Why().text);
  }
  if (!desk_.messages.Ask(changes::AskUndo(*last), Answer::kNo, Icon::kInformation)) {
    return;
  }
  MaybeRefusal refusal;
  {
    controls::ProgressDialog progress(this);
    refusal = changes::Undo(*desk_.session.connection, *last, progress);
  }
  if (refusal) {
    desk_.messages.Refuse(refusal->text);
  }
  LookAround();
}

void MDIForm1::cmdSensex() {
  feed_.Fetch();
}

void MDIForm1::lblSensex_Click() {
  StartTool(kMarketRateTool);
}

void MDIForm1::lblLoaded_Click() {
  if (!ShowTool(kMarketRateTool)) {
    desk_.messages.Inform(tr("Couldn't find Window %1").arg(kMarketRateTool));
  }
}

void MDIForm1::mnuConverter_Click() {
  StartTool(kConverterTool);
}

/// Brings a tool that runs to the front, or says that it runs where the desktop does not let one
/// program show the window of another. False when it does not run.
bool MDIForm1::ShowTool(const QString& name) {
  if (tools_.Show(name)) {
    return true;
  }
  if (tools_.IsRunning(name)) {
    desk_.messages.Inform(tr("%1 is running already.").arg(name));
    return true;
  }
  return false;
}

void MDIForm1::StartTool(const QString& name) {
  if (!ShowTool(name) && !tools_.Start(name)) {
    desk_.messages.Refuse(
        tr("Couldn't start %1. Expected the program as %2.").arg(name, tools_.PathOf(name)));
  }
}

void MDIForm1::LblChkUpdate_Click() {
  desk_.messages.Inform(
      tr("This is %1.\nThe program never goes to the internet by itself for another release; your "
         "supplier's page has the newest one.")
          .arg(app::TitleText().trimmed()));
}

void MDIForm1::Open(const QString& name) {
  Show(name);
}

controls::ChildWindow* MDIForm1::Show(const QString& name) {
  const QString key = KeyOf(name);
  const auto found = open_.find(key);
  if (found != open_.end()) {
    auto* frame = qobject_cast<QMdiSubWindow*>(found->second->parentWidget());
    if (frame->isMinimized()) {
      frame->showNormal();
    }
    area_->setActiveSubWindow(frame);
    found->second->AskedAgain();
    return found->second;
  }
  const Feature* feature = FindFeature(name);
  if (feature == nullptr || feature->make == nullptr) {
    throw std::runtime_error(tr("There is no window %1.").arg(name).toStdString());
  }
  controls::ChildWindow* child = feature->make(desk_);
  open_[key] = child;
  connect(child, &controls::ChildWindow::Closed, this, [this, key] {
    open_.erase(key);
    ChildClosed();
  });
  start_->hide();
  home_->hide();
  child->OpenIn(*area_);
  child->FocusFirst();
  return child;
}

void MDIForm1::OpenRecord(const controls::RecordPlace& place) {
  if (place.of) {
    desk_.session.current = place.of;
    desk_.session.current_client_name = place.client_name;
  }
  desk_.session.target = place.window;  // a window of two duties reads it
  if (!Show(place.window)->GoTo(place.record)) {
    desk_.messages.Inform(tr("This record is not there any more."));
  }
}

/// The window in front, for the client and year that were chosen in the bar.
void MDIForm1::OpenForChosen() {
  const auto front = std::ranges::find(open_, Front(), [](const auto& one) { return one.second; });
  if (front == open_.end()) {
    return;
  }
  const QString name = front->first.section(QLatin1Char(' '), 0, 0);
  const Feature* feature = FindFeature(name);
  if (feature != nullptr && feature->action == MenuAction::kClientSelection) {
    desk_.session.target = name;
    Show(name);
  }
}

void MDIForm1::ShowTabs(bool on) {
  area_->setViewMode(on ? QMdiArea::TabbedView : QMdiArea::SubWindowView);
  area_->setTabsClosable(true);
  area_->setTabsMovable(true);
  area_->setDocumentMode(true);
  if (auto* tabs = area_->findChild<QTabBar*>()) {
    tabs->setAccessibleName(tr("Open windows"));
  }
  findChild<QAction*>(QStringLiteral("mnuTabs"))->setChecked(on);
  controls::WindowMemory(desk_.session.folders)
      .Keep(objectName(), kTabsKey, on ? QStringLiteral("1") : QString());
}

void MDIForm1::CloseAll() {
  if (ChildrenMayClose()) {
    CloseChildren();
  }
}

// A window that works on the client and year of its opening is no window for another client.
QString MDIForm1::KeyOf(const QString& name) const {
  const std::optional<ClientYear>& current = desk_.session.current;
  const Feature* feature = FindFeature(name);
  if (!current || feature == nullptr || feature->action != MenuAction::kClientSelection) {
    return name;
  }
  return QStringLiteral("%1 %2 %3").arg(name, current->year.Text()).arg(current->client.value);
}

void MDIForm1::OpenModal(const QString& name) {
  FindFeature(name)->make(desk_)->OpenModal(this);
}

void MDIForm1::SelectClientFor(const QString& target) {
  EnableButtons(false);
  desk_.session.target = target;
  try {
    Show(kClientList);
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
  const auto list = open_.find(kClientList);
  EnableButtons(list == open_.end() || front == nullptr || front->widget() != list->second);
}

/// Windows come and go also while the database cannot be asked.
void MDIForm1::ShowStartPage() {
  guard_.Run(QStringLiteral("Form_Load"), [this] {
    has_clients_ = has_clients_ || client_list::HasClients(*desk_.session.connection);
    start_->setVisible(open_.empty() && !has_clients_);
    if (open_.empty() && has_clients_) {
      const auto backups = backup::ListBackups(backup::ReadSettings(desk_.session.folders).folder);
      home_->SetBackup(backups.empty() ? std::nullopt : std::optional(backups.front().made));
    }
    home_->setVisible(open_.empty() && has_clients_);
  });
}

controls::ChildWindow* MDIForm1::Front() const {
  const QMdiSubWindow* frame = area_->activeSubWindow();
  return frame == nullptr ? nullptr : qobject_cast<controls::ChildWindow*>(frame->widget());
}

/// Asks every open window before any of them goes: one that must stay keeps them all.
bool MDIForm1::ChildrenMayClose() {
  const auto children = findChildren<controls::ChildWindow*>();
  for (controls::ChildWindow* child : children) {
    if (!child->AgreeToClose()) {
      std::ranges::for_each(children, &controls::ChildWindow::StayOpen);
      if (auto* frame = qobject_cast<QMdiSubWindow*>(child->parentWidget())) {
        area_->setActiveSubWindow(frame);
      }
      return false;
    }
  }
  return true;
}

void MDIForm1::CloseChildren() {
  for (controls::ChildWindow* child : findChildren<controls::ChildWindow*>()) {
    child->close();
  }
  area_->closeAllSubWindows();
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
      !ChildrenMayClose()) {
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
    start_->ShowTexts();
    home_->ShowTexts();
    status_->Refresh();
  } else if (event->type() == QEvent::PaletteChange && area_ != nullptr) {
    area_->setBackground(GroundOf(palette()));
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
  closing_confirmed_ = ChildrenMayClose();
  event->setAccepted(closing_confirmed_);
  if (closing_confirmed_) {
    RememberPlace();
    CloseChildren();
  }
}

}  // namespace quorvane::ui
