#include "controls/RecordWindow.h"

#include "controls/Style.h"

#include <QApplication>
#include <QButtonGroup>
#include <QHBoxLayout>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QSplitter>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <utility>

namespace quorvane::controls {
namespace {
enum Panel { kDetails, kList };
}  // namespace

RecordWindow::RecordWindow(Desk& desk, const QString& name, const QString& title, QSize designed,
                           const QString& list_name, Panels panels)
    : ChildWindow(desk, name, title, designed),
      cmdAdd(new ZENButton(QStringLiteral("cmdAdd"), tr("&Add"))),
      cmdModify(new ZENButton(QStringLiteral("cmdModify"), tr("Modif&y"))),
      cmdUpdate(new ZENButton(QStringLiteral("cmdUpdate"), tr("U&pdate"))),
      cmdCancel(new ZENButton(QStringLiteral("cmdCancel"), tr("Ca&ncel"))),
      CmdDelete(new ZENButton(QStringLiteral("CmdDelete"), tr("&Delete"))),
      panels_(panels),
      details_(new QWidget()),
      list_(new Grid(list_name, title)),
      buttons_(new QHBoxLayout()),
      watch_(new EditWatch()) {
  list_->SetFilterable(true);
  HintWhenEmpty(*list_, May(changes::kEnter)
                            ? tr("No record is here yet. Add (Ctrl+N) begins the first.")
                            : tr("No record is here yet."));
  auto* rows = new QVBoxLayout(this);
  if (panels == Panels::kTabs) {
    BuildTabs(*rows);
  } else {
    BuildTogether(*rows);
  }
  BuildButtons();
  rows->addLayout(buttons_);
  rows->addWidget(watch_);
}

void RecordWindow::BuildTabs(QVBoxLayout& rows) {
  stack_ = new QStackedWidget();
  tabs_ = new QButtonGroup(this);
  tab_row_ = new QHBoxLayout();
  tab_row_->setSpacing(kTightSpacing);
  tab_row_->addStretch();
  rows.addLayout(tab_row_);
  rows.addWidget(stack_, 1);
  AddPanel(tr("Details"), Scrolling(details_));
  AddPanel(tr("List"), list_);
  On(tabs_, &QButtonGroup::idClicked, &RecordWindow::ImgBack_Click,
     QStringLiteral("ImgBack_Click"));
}

void RecordWindow::BuildTogether(QVBoxLayout& rows) {
  auto* halves = new QSplitter(Qt::Vertical);
  halves->addWidget(Scrolling(details_));
  halves->addWidget(list_);
  halves->setChildrenCollapsible(false);
  halves->setStretchFactor(1, 1);
  rows.addWidget(halves, 1);
}

void RecordWindow::AddPanel(const QString& title, QWidget* panel) {
  const int number = stack_->addWidget(panel);
  auto* tab = new ZENButton(QStringLiteral("ImgBack_%1").arg(number), title);
  tab->setCheckable(true);
  tab->setShortcut(QKeySequence(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + number)));
  tab->setToolTip(tr("Alt+%1").arg(number + 1));
  tabs_->addButton(tab, number);
  tab_row_->insertWidget(number, tab);
}

void RecordWindow::BuildButtons() {
  for (ZENButton* button : {cmdAdd, cmdModify, cmdUpdate, cmdCancel, CmdDelete}) {
    buttons_->addWidget(button);
  }
  buttons_->addStretch();
  cmdCancel->SetCancels(true);
  OnClick(cmdAdd, &RecordWindow::cmdAdd_Click);
  OnClick(cmdModify, &RecordWindow::cmdModify_Click);
  OnClick(cmdUpdate, &RecordWindow::cmdUpdate_Click);
  OnClick(cmdCancel, &RecordWindow::cmdCancel_Click);
  OnClick(CmdDelete, &RecordWindow::CmdDelete_Click);
  PressOn(QKeySequence::New, cmdAdd);
  PressOn(QKeySequence::Save, cmdUpdate);
}

void RecordWindow::Start() {
  Hold({{Field::kRecord, list_->objectName()}});
  On(list_, &Grid::CurrentRowChanged, &RecordWindow::List_RowChanged,
     list_->objectName() + QLatin1String("_RowColChange"));
  On(list_, &Grid::RowActivated, &RecordWindow::List_RowActivated,
     list_->objectName() + QLatin1String("_DblClick"));
  ShowList();
  SetEditing(false);
  TheGuard().Run(QStringLiteral("Form_Load"), [this] { Refill(0); });
}

// A fresh window starts in its list, and an empty one with the first record to be made.
void RecordWindow::FirstShown() {
  if (!editing_ && !details_->isAncestorOf(QApplication::focusWidget())) {
    Rest();
  }
}

void RecordWindow::Rest() {
  if (list_->Model().RowCount() > 0) {
    list_->setFocus(Qt::OtherFocusReason);
  } else {
    cmdAdd->setFocus(Qt::OtherFocusReason);
  }
}

QString RecordWindow::DeleteQuestion() const {
  return tr("Are You Sure, You want to Delete this Record?");
}

void RecordWindow::cmdAdd_Click() {
  Clear();
  current_ = 0;
  BeginEditing();
  SetEditing(true);
}

void RecordWindow::cmdModify_Click() {
  const int id = list_->CurrentId();
  if (id == 0) {
    return;
  }
  // Before it is read, so that no change of another program goes unseen.
  if (!RecordTable().empty()) {
    watch_->Begin(*Session().connection, RecordTable(), id);
  }
  try {
    Clear();
    Load(id);
    current_ = id;
    BeginEditing();
  } catch (...) {
    watch_->End();
    throw;
  }
  SetEditing(true);
  watch_->LookForOthers(true);
}

void RecordWindow::cmdUpdate_Click() {
  if (RefusesDate()) {
    return;
  }
  const int before = current_;
  if (const MaybeRefusal refusal = Save()) {
    Show(*refusal);
    return;
  }
  SetEditing(false);
  ShowList();
  Refill(current_, std::array{before, current_});
  // Enter begins the next record: in the list it would open the one just saved.
  cmdAdd->setFocus(Qt::OtherFocusReason);
}

/// A text that is no date would be saved as none. It was complained about already when the box has
/// just been left for the button and got the focus back.
bool RecordWindow::RefusesDate() {
  for (DateBox* box : details_->findChildren<DateBox*>()) {
    if (!box->isEnabled() || box->IsProper()) {
      continue;
    }
    if (!ChecksItsDates()) {
      if (!box->hasFocus()) {
        ShowAt(tr("Enter Proper Date."), box);
      }
      return true;
    }
    if (box->hasFocus() && box->IsRefused()) {
      return true;
    }
  }
  return false;
}

void RecordWindow::cmdCancel_Click() {
  SetEditing(false);
  ShowList();
  ShowRecord(list_->CurrentId());
}

void RecordWindow::CmdDelete_Click() {
  const int id = list_->CurrentId();
  const int row = list_->CurrentRow();
  if (id == 0 || !Say().Ask(DeleteQuestion(), Answer::kNo, Icon::kCritical)) {
    return;
  }
  Remove(id);
  Refill(0, std::array{id});
  list_->SelectRow(std::min(row, list_->Model().RowCount() - 1));
}

void RecordWindow::List_RowChanged(int /*row*/) {
  if (!filling_ && !editing_) {
    ShowRecord(list_->CurrentId());
  }
}

void RecordWindow::List_RowActivated(int /*row*/) {
  if (!editing_ && cmdModify->isEnabled()) {
    cmdModify_Click();
  }
}

void RecordWindow::ImgBack_Click(int panel) {
  ShowPanel(panel);
}

void RecordWindow::Refill(int id, std::span<const int> changed) {
  const std::int64_t last = LastEntry();
  const bool is_whole = FillAgain(id, changed);
  ShowRecord(list_->CurrentId());
  shows_up_to_ = is_whole ? last : shows_up_to_;
}

/// Without any keys all records are read. Returns whether all were.
bool RecordWindow::FillAgain(int id, std::span<const int> changed) {
  const QScopedValueRollback<bool> filling(filling_, true);
  const bool is_whole = changed.empty() || !ReadRecords(changed);
  if (is_whole) {
    FillList();
  }
  since_filled_.start();
  list_->Reveal(id);
  if (list_->CurrentRow() < 0) {
    list_->SelectRow(0);
  }
  return is_whole;
}

std::int64_t RecordWindow::LastEntry() const {
  const bool has_log = Session().connection != nullptr && !Session().read_only;
  return has_log && !RecordTable().empty() ? changes::LastEntry(*Session().connection) : 0;
}

bool RecordWindow::GoTo(int record) {
  if (record == 0 || (editing_ && current_ == record)) {
    return true;
  }
  if (editing_) {
    Say().Inform(tr("Another record is under entry here. Save it or cancel it first."));
    return true;
  }
  Refill(record);
  ShowList();
  list_->setFocus(Qt::OtherFocusReason);
  return list_->CurrentId() == record;
}

void RecordWindow::ShowRecord(int id) {
  Clear();
  current_ = id;
  if (id != 0) {
    Load(id);
  }
  Enable();
}

void RecordWindow::SetEditing(bool editing) {
  editing_ = editing;
  if (!editing) {
    watch_->End();
  }
  Enable();
  if (editing) {
    begun_with_ = FormContents(*details_);
    ShowDetails();
    FocusFirstField(*details_);
  }
}

void RecordWindow::Enable() {
  const bool chosen = list_->CurrentId() != 0;
  list_->setEnabled(!editing_);
  if (!editing_ && details_->isEnabled() && isVisible()) {
    // Before the buttons and boxes rest: the focus would wander over other controls.
    ShowList();
    list_->setFocus(Qt::OtherFocusReason);
  }
  details_->setEnabled(editing_);
  const bool may_enter = May(changes::kEnter);
  cmdAdd->setEnabled(!editing_ && may_enter);
  cmdModify->setEnabled(!editing_ && chosen && may_enter);
  CmdDelete->setEnabled(!editing_ && chosen && May(changes::kDelete));
  cmdUpdate->setEnabled(editing_);
  cmdCancel->setEnabled(editing_);
  StateChanged();
}

bool RecordWindow::May(changes::Right right) const {
  return Session().connection == nullptr || Session().connection->Author().May(right);
}

void RecordWindow::ShowPanel(int panel) {
  if (stack_ != nullptr) {
    stack_->setCurrentIndex(panel);
    tabs_->button(panel)->setChecked(true);
  }
}

void RecordWindow::ShowDetails() {
  ShowPanel(kDetails);
}

void RecordWindow::ShowList() {
  ShowPanel(kList);
}

void RecordWindow::Reveal(QWidget* field) {
  for (int panel = 0; stack_ != nullptr && panel < stack_->count(); ++panel) {
    if (stack_->widget(panel)->isAncestorOf(field)) {
      ShowPanel(panel);
    }
  }
}

// Not in the middle of work that keeps the screen alive: its transaction is open. Nor again after a
// failure: the box that tells it would activate the window as it closes, without an end.
void RecordWindow::Activated() {
  constexpr qint64 kFreshMs = 300;
  const bool is_fresh = !since_filled_.isValid() || since_filled_.elapsed() < kFreshMs;
  if (editing_ || is_fresh || Session().connection->InTransaction() ||
      std::exchange(reading_again_, false)) {
    return;
  }
  ReadAgain();
}

void RecordWindow::ReadAgain(std::span<const int> changed, bool shows_chosen) {
  reading_again_ = true;
  TheGuard().Run(QStringLiteral("Form_Activate"), [&] {
    const std::optional<Grid::Order> order = list_->SortedBy();
    const QString chosen = list_->SelectedText();
    FillAgain(current_, changed);
    list_->SortBy(order);
    if (shows_chosen || list_->CurrentId() != current_ || list_->SelectedText() != chosen) {
      ShowRecord(list_->CurrentId());
    }
    reading_again_ = false;
  });
}

bool RecordWindow::MayClose() {
  return !editing_ || Say().Ask(tr("The record is not saved. Close without saving it?"),
                                Answer::kNo, Icon::kInformation);
}

void RecordWindow::EscapePressed() {
  if (!editing_) {
    ChildWindow::EscapePressed();
  } else if (!IsChanged() || Say().Ask(GiveUpQuestion(), Answer::kNo, Icon::kInformation)) {
    Press(*cmdCancel);
  }
}

QString RecordWindow::GiveUpQuestion() const {
  return tr("The record is not saved. Give up what was entered?");
}

bool RecordWindow::IsChanged() const {
  return editing_ && FormContents(*details_) != begun_with_;
}

}  // namespace quorvane::controls
