#include "ui/main/MDIForm1.h"

#include "controls/ChildWindow.h"
#include "controls/Style.h"
#include "controls/ZENButton.h"
#include "core/app/AppInfo.h"
#include "core/app/Ini.h"
#include "core/rates/IndexHeadline.h"
#include "masters/client_list/ClientList.h"
#include "ui/main/MainMenu.h"
#include "ui/main/MiscInfo.h"
#include "ui/main/WindowTable.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDateTime>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLocale>
#include <QMdiSubWindow>
#include <QStatusBar>
#include <QVBoxLayout>

namespace quorvane::ui {
namespace {

using controls::Answer;
using controls::Icon;
using controls::ZENButton;

constexpr int kClockMs = 1000;
constexpr int kHeadlineMs = 5 * 60 * 1000;
const QString kMarketRateTool = QStringLiteral("MRate");
const QString kConverterTool = QStringLiteral("Converter");
const QString kClientList = QStringLiteral("FrmClientList");

QUrl FeedAddress(const app::Session& session) {
  const app::IniFile config(session.folders.config_file);
  return QUrl(config.Read(QStringLiteral("Internet"), QStringLiteral("IndexFeed"),
                          QLatin1String(rates::kIndexFeed)));
}

}  // namespace

MDIForm1::MDIForm1(controls::Desk& desk)
    : desk_(desk),
      guard_(desk.messages),
      area_(new QMdiArea),
      feed_(FeedAddress(desk.session),
            desk.session.folders.application + QStringLiteral("/Sensex.xml")),
      tools_(desk.session.folders.data) {
  setObjectName(QStringLiteral("MDIForm1"));
  setWindowTitle(app::TitleText());
  auto* centre = new QWidget;
  auto* layout = new QVBoxLayout(centre);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  setCentralWidget(centre);
  area_->setObjectName(QStringLiteral("MDIExtend1"));
  area_->setBackground(palette().color(QPalette::Window).darker(106));
  area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  area_->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
  BuildMenu(*this, [this](const MenuItem& item) {
    guard_.Run(QLatin1String(item.name) + QStringLiteral("_Click"), [&] { Do(item); });
  });
  BuildHead();
  layout->addWidget(area_, 1);
  BuildStatusBar();
  desk_.open = [this](const QString& name) { Open(name); };
  resize(1180, 740);
  StartTimers();
}

MDIForm1::~MDIForm1() {
  desk_.open = [](const QString&) {};
}

void MDIForm1::Do(const MenuItem& item) {
  const QString target = QLatin1String(item.target);
  switch (item.action) {
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
    case MenuAction::kLogOut:
      return mnuLogOut_Click();
    case MenuAction::kContact:
      return mnuContact_Click();
    case MenuAction::kQuit:
      return mnuQuit_Click();
  }
}

void MDIForm1::BuildHead() {
  auto* head = new QWidget;
  auto* rows = new QVBoxLayout(head);
  rows->setContentsMargins(controls::kMargin, controls::kTightSpacing, controls::kMargin,
                           controls::kTightSpacing);
  rows->setSpacing(controls::kTightSpacing);
  auto* line = new QHBoxLayout;
  lblSensex = new ZENButton(QStringLiteral("lblSensex"), tr("BSE Market Rate List"));
  lblSensex->setToolTip(tr("Starts the market-rate tool"));
  guard_.Connect(lblSensex, &QAbstractButton::clicked, this, &MDIForm1::lblSensex_Click,
                 QStringLiteral("lblSensex_Click"));
  auto* loaded = new ZENButton(QStringLiteral("lblLoaded"), tr("Show Market Rates"));
  loaded->setToolTip(tr("Brings the market-rate tool to the front"));
  guard_.Connect(loaded, &QAbstractButton::clicked, this, &MDIForm1::lblLoaded_Click,
                 QStringLiteral("lblLoaded_Click"));
  auto* updates = new ZENButton(QStringLiteral("LblChkUpdate"), tr("Check For Updates"));
  guard_.Connect(updates, &QAbstractButton::clicked, this, &MDIForm1::LblChkUpdate_Click,
                 QStringLiteral("LblChkUpdate_Click"));
  LblDate = new QLabel;
  LblDate->setObjectName(QStringLiteral("LblDate"));
  LblTime = new QLabel;
  LblTime->setObjectName(QStringLiteral("LblTime"));
  line->addWidget(lblSensex);
  line->addWidget(loaded);
  line->addWidget(updates);
  line->addStretch(1);
  line->addWidget(LblDate);
  line->addSpacing(controls::kMargin);
  line->addWidget(LblTime);
  rows->addLayout(line);
  button_row_ = new QWidget;
  button_row_->setObjectName(QStringLiteral("ZENButton1"));
  auto* row = new QHBoxLayout(button_row_);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(controls::kTightSpacing);
  BuildButtonRow(*this, *row);
  rows->addWidget(button_row_);
  qobject_cast<QVBoxLayout*>(centralWidget()->layout())->addWidget(head);
}

void MDIForm1::BuildStatusBar() {
  statusBar()->setObjectName(QStringLiteral("TXStatusBar1"));
  for (const QString& panel : {tr("Page"), tr("Line"), tr("Col")}) {
    auto* label = new QLabel(panel);
    label->setMinimumWidth(80);
    statusBar()->addPermanentWidget(label);
  }
  statusBar()->showMessage(desk_.session.folders.application);
}

void MDIForm1::StartTimers() {
  guard_.Connect(&Timer1, &QTimer::timeout, this, &MDIForm1::Timer1_Timer,
                 QStringLiteral("Timer1_Timer"));
  guard_.Connect(&Timer2, &QTimer::timeout, this, &MDIForm1::cmdSensex,
                 QStringLiteral("cmdSensex"));
  connect(&feed_, &HeadlineFeed::HeadlineRead, this, &MDIForm1::ShowHeadline);
  Timer1_Timer();
  Timer1.start(kClockMs);
  Timer2.start(kHeadlineMs);
  cmdSensex();
}

void MDIForm1::Timer1_Timer() {
  const QDateTime now = QDateTime::currentDateTime();
  const QLocale english(QLocale::English);
  LblTime->setText(english.toString(now.time(), QStringLiteral("hh:mm:ss AP")));
  LblDate->setText(english.toString(now.date(), QStringLiteral("dddd, MMMM d, yyyy")));
}

void MDIForm1::cmdSensex() {
  feed_.Fetch();
}

void MDIForm1::ShowHeadline(const QString& headline) {
  lblSensex->setText(headline);
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
    area_->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(found->second->parentWidget()));
    return found->second;
  }
  controls::ChildWindow* child = MakeWindow(name, desk_);
  if (child == nullptr) {
    throw std::runtime_error(tr("There is no window %1.").arg(name).toStdString());
  }
  open_[key] = child;
  connect(child, &controls::ChildWindow::Closed, this, [this, key] {
    open_.erase(key);
    ChildClosed();
  });
  child->OpenIn(*area_);
  return child;
}

// A window that works on the client and year of its opening is no window for another client.
QString MDIForm1::KeyOf(const QString& name) const {
  const std::optional<ClientYear>& current = desk_.session.current;
  if (!current || !client_list::FindTarget(name)) {
    return name;
  }
  return QStringLiteral("%1 %2 %3").arg(name, current->year.Text()).arg(current->client.value);
}

void MDIForm1::OpenModal(const QString& name) {
  if (controls::ChildWindow* child = MakeWindow(name, desk_)) {
    child->OpenModal(this);
  }
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

/// The row waits for the client list and for whatever it opened.
void MDIForm1::ChildClosed() {
  if (open_.empty()) {
    EnableButtons(true);
  }
}

void MDIForm1::EnableButtons(bool enabled) {
  button_row_->setEnabled(enabled);
}

bool MDIForm1::IsButtonRowEnabled() const {
  return button_row_->isEnabled();
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
                          Icon::kInformation)) {
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
  area_->closeAllSubWindows();
  // A child that must not close yet, such as one that is still being edited, keeps the frame open.
  event->setAccepted(area_->subWindowList().isEmpty());
  closing_confirmed_ = event->isAccepted();
}

}  // namespace quorvane::ui
