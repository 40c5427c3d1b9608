#include "reports/mis/window/RatesPane.h"

#include "controls/Style.h"
#include "core/text/Amounts.h"

#include <QHeaderView>
#include <QLabel>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QShowEvent>
#include <QVBoxLayout>

namespace quorvane::mis {
namespace {

using controls::Grid;
using controls::Row;
using controls::ZENButton;

constexpr int kDateWidth = 110;
constexpr int kDatesWidth = 150;

ZENButton* Button(const char* name, const QString& caption) {
  return new ZENButton(QLatin1String(name), caption);
}

}  // namespace

RatesPane::RatesPane(const controls::Guard& guard, controls::Desk& desk)
    : guard_(guard),
      desk_(desk),
      book_(*desk.session.connection),
      exchange_(desk.session.folders),
      FrmDtList(new QGroupBox(tr("Dates"))),
      FrmRates(new QGroupBox(tr("Market Rates"))),
      VSf1(new Grid(QStringLiteral("VSf1"), tr("Dates with rates"))),
      VSF(new RateList),
      Text2(new controls::DateBox),
      cmdAdd(Button("cmdAdd", tr("Add"))),
      cmdModify(Button("cmdModify", tr("Modify"))),
      CmdDelete(Button("CmdDelete", tr("Delete"))),
      CboExchange(new controls::ComboBox),
      CmdFetch(Button("CmdFetch", tr("Fetch"))),
      CmdImportRate(Button("CmdImportRate", tr("Import"))),
      cmdUpdate(Button("cmdUpdate", tr("Update"))),
      cmdCancel(Button("cmdCancel", tr("Cancel"))) {
  FrmDtList->setObjectName(QStringLiteral("FrmDtList"));
  FrmRates->setObjectName(QStringLiteral("FrmRates"));
  Text2->setObjectName(QStringLiteral("Text2"));
  Text2->setAccessibleName(tr("Rate date"));
  Text2->setFixedWidth(kDateWidth);
  Text2->SetToday(desk.today);
  CboExchange->setObjectName(QStringLiteral("CboExchange"));
  CboExchange->setAccessibleName(tr("Exchange"));
  CboExchange->setToolTip(tr("Exchange"));
  CboExchange->SetTexts({QStringLiteral("BSE"), QStringLiteral("NSE")});
  CboExchange->setCurrentIndex(0);
  CmdFetch->setToolTip(tr("The closing prices of the chosen scripts, from the exchange"));
  cmdCancel->SetCancels(true);
  VSf1->SetColumns({{.heading = tr("Date"), .mask = controls::Mask::kDate}});
  VSf1->setMinimumWidth(kDateWidth);
  VSf1->setMaximumWidth(kDatesWidth);
  VSf1->horizontalHeader()->setStretchLastSection(true);
  Arrange();
  Connect(guard);
  Edit(false);
}

void RatesPane::Arrange() {
  auto* dates = new QVBoxLayout(FrmDtList);
  dates->setContentsMargins(controls::kTightSpacing, controls::kTightSpacing,
                            controls::kTightSpacing, controls::kTightSpacing);
  dates->addWidget(VSf1);
  auto* rates = new QVBoxLayout(FrmRates);
  auto* head = new QHBoxLayout;
  auto* label = new QLabel(tr("Date"));
  label->setBuddy(Text2);
  head->addWidget(label);
  head->addWidget(Text2);
  head->addStretch(1);
  head->addWidget(CboExchange);
  head->addWidget(CmdFetch);
  head->addWidget(CmdImportRate);
  rates->addLayout(head);
  rates->addWidget(VSF, 1);
  rates->addLayout(ButtonRow());
  auto* columns = new QHBoxLayout(this);
  columns->setContentsMargins(0, controls::kTightSpacing, 0, 0);
  columns->addWidget(FrmDtList);
  columns->addWidget(FrmRates, 1);
}

QLayout* RatesPane::ButtonRow() {
  auto* row = new QHBoxLayout;
  row->setSpacing(controls::kTightSpacing);
  row->addStretch(1);
  for (ZENButton* button : {cmdAdd, cmdModify, cmdUpdate, cmdCancel, CmdDelete}) {
    row->addWidget(button);
  }
  return row;
}

void RatesPane::Connect(const controls::Guard& guard) {
  const auto on_click = [&](ZENButton* button, void (RatesPane::*handler)()) {
    guard.Connect(button, &QAbstractButton::clicked, this, handler,
                  button->objectName() + QStringLiteral("_Click"));
  };
  on_click(cmdAdd, &RatesPane::cmdAdd_Click);
  on_click(cmdModify, &RatesPane::cmdModify_Click);
  on_click(CmdDelete, &RatesPane::CmdDelete_Click);
  on_click(CmdImportRate, &RatesPane::CmdImportRate_Click);
  on_click(CmdFetch, &RatesPane::CmdFetch_Click);
  on_click(cmdUpdate, &RatesPane::cmdUpdate_Click);
  on_click(cmdCancel, &RatesPane::cmdCancel_Click);
  guard.Connect(VSf1, &Grid::CurrentRowChanged, this, &RatesPane::VSf1_RowColChange,
                QStringLiteral("VSf1_RowColChange"));
  guard.Connect(VSf1, &Grid::RowActivated, this, &RatesPane::VSf1_DblClick,
                QStringLiteral("VSf1_DblClick"));
  guard.Connect(Text2, &controls::DateBox::Left, this, &RatesPane::Text2_Validate,
                QStringLiteral("Text2_Validate"));
  const auto press_on = [this](QKeySequence::StandardKey key, ZENButton* button) {
    auto* shortcut = new QShortcut(QKeySequence(key), this);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    button->setToolTip(shortcut->key().toString(QKeySequence::NativeText));
    connect(shortcut, &QShortcut::activated, button, [button] {
      if (button->isEnabled()) {
        button->setFocus(Qt::ShortcutFocusReason);
        button->click();
      }
    });
  };
  press_on(QKeySequence::New, cmdAdd);
  press_on(QKeySequence::Save, cmdUpdate);
}

void RatesPane::Edit(bool editing, bool new_date) {
  StopFetch();
  isins_.clear();
  editing_ = editing;
  FrmDtList->setEnabled(!editing);
  const bool dated = VSf1->CurrentRow() >= 0;
  cmdAdd->setEnabled(!editing);
  cmdModify->setEnabled(!editing && dated);
  CmdDelete->setEnabled(!editing && dated);
  cmdUpdate->setEnabled(editing);
  cmdCancel->setEnabled(editing);
  CmdImportRate->setEnabled(editing);
  CboExchange->setEnabled(editing);
  CmdFetch->setEnabled(editing);
  Text2->setReadOnly(!new_date);
  Text2->setFocusPolicy(new_date ? Qt::StrongFocus : Qt::ClickFocus);
  VSF->SetEditing(editing);
}

// Ten thousand scrips are read when rates are looked at, not when the window opens.
void RatesPane::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (!event->spontaneous() && !editing_) {
    Refresh();
  }
}

void RatesPane::Refresh() {
  const auto chosen = CurrentDate();
  VSF->SetScrips(rates::ListScrips(*desk_.session.connection));
  std::vector<Row> rows;
  for (const text::Date date : book_.Dates()) {
    rows.push_back({.id = static_cast<int>(date.time_since_epoch().count()),
                    .cells = {text::FormatDmy(date)}});
  }
  VSf1->SetRows(std::move(rows));
  SelectDate(chosen);
}

std::optional<text::Date> RatesPane::CurrentDate() const {
  return VSf1->CurrentRow() < 0 ? std::nullopt
                                : text::ParseDmy(VSf1->Model().Text(VSf1->CurrentRow(), 0));
}

void RatesPane::SelectDate(std::optional<text::Date> date) {
  {
    const QScopedValueRollback<bool> filling(filling_, true);
    VSf1->SelectId(date ? static_cast<int>(date->time_since_epoch().count()) : 0);
    if (VSf1->CurrentRow() < 0) {
      VSf1->SelectRow(0);
    }
  }
  VSf1_RowColChange();
}

void RatesPane::VSf1_RowColChange() {
  if (filling_ || editing_) {
    return;
  }
  const auto date = CurrentDate();
  Text2->SetDate(date ? text::FormatDmy(*date) : QString());
  Edit(false);
  VSF->ShowRates(date ? book_.RatesOf(*date) : RateList::Rates());
}

void RatesPane::VSf1_DblClick() {
  if (const auto date = CurrentDate()) {
    Q_EMIT DateChosen(text::FormatDmy(*date));
  }
}

void RatesPane::cmdAdd_Click() {
  Edit(true, true);
  VSF->ShowRates({});
  Text2->SetDate({});
  Text2->setFocus(Qt::OtherFocusReason);
}

void RatesPane::cmdModify_Click() {
  Edit(true);
  VSF->ShowRates(VSF->Recorded());
  VSF->FocusFirstRate();
}

void RatesPane::Text2_Validate() {
  const auto date = Text2->Date();
  if (!Text2->isReadOnly() && date) {
    VSF->ChangeRecorded(book_.RatesOf(*date));
  }
}

void RatesPane::Refuse(const Refusal& refusal) {
  desk_.messages.Inform(refusal.text);
  if (refusal.field == Field::kDate) {
    Text2->setFocus(Qt::OtherFocusReason);
  }
}

std::optional<text::Date> RatesPane::CheckedDate() {
  if (const auto refusal = rates::CheckRateDate(Text2->text(), desk_.today())) {
    Refuse(*refusal);
    return std::nullopt;
  }
  return Text2->Date();
}

void RatesPane::cmdUpdate_Click() {
  const auto date = CheckedDate();
  if (!date) {
    return;
  }
  Text2_Validate();
  book_.Save(*date, VSF->Changed(), isins_);
  Edit(false);
  Refresh();
  SelectDate(date);
  Q_EMIT RatesChanged();
  desk_.messages.Inform(tr("Update Successfully!"));
  VSf1->setFocus(Qt::OtherFocusReason);
}

void RatesPane::cmdCancel_Click() {
  Edit(false);
  VSf1_RowColChange();
  VSf1->setFocus(Qt::OtherFocusReason);
}

void RatesPane::CmdDelete_Click() {
  const auto date = CurrentDate();
  if (!date || !desk_.messages.Ask(tr("Are You Sure, You want to Delete All Records of this Date?"),
                                   controls::Answer::kNo, controls::Icon::kCritical)) {
    return;
  }
  book_.DeleteDate(*date);
  Refresh();
  Q_EMIT RatesChanged();
}

// The file's rates go into the grid, to be looked at; they are recorded with Update.
void RatesPane::CmdImportRate_Click() {
  const auto date = CheckedDate();
  if (!date) {
    return;
  }
  const QString path =
      desk_.ask_open_path(this, QString(), tr("Excel Files") + QStringLiteral(" (*.CSV *.csv)"));
  if (path.isEmpty()) {
    return;
  }
  Result<rates::MatchedRates> found = rates::ReadRates(*desk_.session.connection, path, *date);
  if (!found) {
    Refuse(found.Why());
    return;
  }
  isins_ = std::move(found->isins);
  RateList::Rates read;
  for (const rates::ScripRate& rate : found->rates) {
    read[rate.scrip] = rate.rate;
  }
  VSF->SetRates(read);
  desk_.messages.Inform(tr("%1 rates were read; %2 lines of the file belong to no script. Press "
                           "Update to keep them.")
                            .arg(read.size())
                            .arg(found->unmatched.size()));
  VSF->setFocus(Qt::OtherFocusReason);
}

// The button stops the fetch that it began.
void RatesPane::CmdFetch_Click() {
  if (exchange_.IsRunning()) {
    FetchEnded();
    return;
  }
  const auto date = CheckedDate();
  if (!date) {
    return;
  }
  std::vector<rates::ListedScrip> scrips = VSF->Chosen();
  if (scrips.empty()) {
    desk_.messages.Inform(tr("Select Script Name!"));
    VSF->setFocus(Qt::OtherFocusReason);
    return;
  }
  fetched_ = 0;
  asked_ = 0;
  CmdFetch->setText(tr("Stop"));
  cmdUpdate->setEnabled(false);
  Text2->setEnabled(false);
  const auto guarded = [this](const std::function<void()>& work) {
    guard_.Run(QStringLiteral("CmdFetch_Click"), work);
  };
  exchange_.Ask(
      {CboExchange->currentText(), std::move(scrips), *date, desk_.today()},
      [=, this](ScripId scrip, double rate) { guarded([=, this] { TakeFetched(scrip, rate); }); },
      [=, this] { guarded([this] { FetchEnded(); }); });
}

void RatesPane::TakeFetched(ScripId scrip, double rate) {
  ++asked_;
  if (rate > 0 && VSF->SetRate(scrip, text::RoundAmount(rate))) {
    ++fetched_;
  }
}

void RatesPane::FetchEnded() {
  StopFetch();
  desk_.messages.Inform(tr("%1 rates were fetched; of %2 scripts none was found. Press Update to "
                           "keep them.")
                            .arg(fetched_)
                            .arg(asked_ - fetched_));
  VSF->setFocus(Qt::OtherFocusReason);
}

void RatesPane::StopFetch() {
  exchange_.Stop();
  CmdFetch->setText(tr("Fetch"));
  cmdUpdate->setEnabled(editing_);
  Text2->setEnabled(true);
}

}  // namespace quorvane::mis
