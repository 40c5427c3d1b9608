#include "portfolio/trades/window/ImpTrades.h"

#include "controls/ProgressDialog.h"
#include "controls/Style.h"
#include "core/lookups/Choices.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace quorvane::portfolio {
namespace {

using controls::ComboBox;
using controls::ZENButton;
using lookups::DropDown;

ComboBox* NewBox(const QString& name) {
  auto* box = new ComboBox;
  box->setObjectName(name);
  return box;
}

}  // namespace

ImpTrades::ImpTrades(controls::Desk& desk)
    : ChildWindow(desk, QStringLiteral("ImpTrades"), tr("Trade Books of Brokers"), {790, 540}),
      book_(*desk.session.connection, desk.session.folders.data) {
  Build();
  FillChoices();
  Fill();
  Hold({{Field::kAccount, QStringLiteral("CboAccount")},
        {Field::kBroker, QStringLiteral("CboBroker")},
        {Field::kRecord, QStringLiteral("CmdFile")},
        {Field::kLines, QStringLiteral("VSF")},
        {Field::kScrips, QStringLiteral("CboScrip")}});
}

void ImpTrades::Build() {
  auto* rows = new QVBoxLayout(this);
  BuildHead(*rows);
  Columns = new ColumnPane;
  Columns->hide();
  Lines = new LinesPane;
  BuildFoot();
  rows->addWidget(Columns, 1);
  rows->addWidget(Lines, 1);
  rows->addWidget(Foot);
  Connect();
}

void ImpTrades::Connect() {
  On(CboAccount, &QComboBox::currentIndexChanged, &ImpTrades::Choice_Changed,
     QStringLiteral("CboAccount_Changed"));
  On(CboBroker, &QComboBox::currentIndexChanged, &ImpTrades::Choice_Changed,
     QStringLiteral("CboBroker_Changed"));
  On(CboExchange, &QComboBox::currentIndexChanged, &ImpTrades::Choice_Changed,
     QStringLiteral("CboExchange_Changed"));
  On(ChkJoin, &QCheckBox::toggled, &ImpTrades::Choice_Changed, QStringLiteral("ChkJoin_Click"));
  On(Lines->CboShow, &QComboBox::currentIndexChanged, &ImpTrades::CboShow_Changed,
     QStringLiteral("CboShow_Changed"));
  On(Lines->VSF, &controls::Grid::CurrentRowChanged, &ImpTrades::VSF_RowChanged,
     QStringLiteral("VSF_RowChanged"));
  On(&Lines->VSF->Model(), &controls::GridModel::CellEdited, &ImpTrades::VSF_CellEdited,
     QStringLiteral("VSF_CellEdited"));
  On(&Columns->VSC->Model(), &controls::GridModel::CellEdited, &ImpTrades::Columns_Edited,
     QStringLiteral("VSC_CellEdited"));
  On(Columns->ChkMonth, &QCheckBox::toggled, &ImpTrades::Columns_Edited,
     QStringLiteral("ChkMonth_Click"));
  OnClick(Columns->CmdUse, &ImpTrades::CmdUse_Click);
}

void ImpTrades::BuildHead(QVBoxLayout& rows) {
  auto* files = new QHBoxLayout;
  CmdFile = new ZENButton(QStringLiteral("CmdFile"), tr("&Files ..."));
  CmdFile->setToolTip(tr("Trade books: .csv, .xlsx, .xls or .ods; several files at once"));
  LblFile = new QLabel;
  LblFile->setObjectName(QStringLiteral("LblFile"));
  LblFile->setWordWrap(true);
  files->addWidget(CmdFile);
  files->addWidget(LblFile, 1);
  auto* choices = new QHBoxLayout;
  CboAccount = NewBox(QStringLiteral("CboAccount"));
  CboBroker = NewBox(QStringLiteral("CboBroker"));
  CboExchange = NewBox(QStringLiteral("CboExchange"));
  CboExchange->setToolTip(tr("Of trades whose file names none"));
  ChkJoin = new QCheckBox(tr("&Join Fills of an Order"));
  ChkJoin->setObjectName(QStringLiteral("ChkJoin"));
  ChkJoin->setChecked(true);
  AddLabelled(*choices, tr("&Account"), CboAccount);
  AddLabelled(*choices, tr("&Broker"), CboBroker);
  AddLabelled(*choices, tr("E&xchange"), CboExchange);
  choices->addWidget(ChkJoin);
  rows.addLayout(files);
  rows.addLayout(choices);
  OnClick(CmdFile, &ImpTrades::CmdFile_Click);
}

void ImpTrades::BuildFoot() {
  Foot = new QWidget;
  auto* rows = new QVBoxLayout(Foot);
  rows->setContentsMargins(0, 0, 0, 0);
  auto* scrips = new QHBoxLayout;
  CboScrip = NewBox(QStringLiteral("CboScrip"));
  CboScrip->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  AddLabelled(*scrips, tr("S&cript"), CboScrip);
  auto* buttons = new QHBoxLayout;
  const auto add = [&](QHBoxLayout* row, ZENButton*& button, const QString& name,
                       const QString& text, void (ImpTrades::*handler)()) {
    button = new ZENButton(name, text);
    row->addWidget(button);
    OnClick(button, handler);
  };
  add(scrips, CmdAssign, QStringLiteral("CmdAssign"), tr("Assi&gn"), &ImpTrades::CmdAssign_Click);
  add(scrips, CmdNew, QStringLiteral("CmdNew"), tr("&New Script"), &ImpTrades::CmdNew_Click);
  CmdAssign->setToolTip(tr("The trades of the current line's script are trades of the chosen one"));
  CmdNew->setToolTip(tr("The current line's script is recorded with the trades"));
  add(scrips, CmdConfirm, QStringLiteral("CmdConfirm"), tr("Confirm &Probable Scripts"),
      &ImpTrades::CmdConfirm_Click);
  add(buttons, CmdLook, QStringLiteral("CmdLook"), tr("&Look Again"), &ImpTrades::CmdLook_Click);
  buttons->addStretch();
  add(buttons, CmdSave, QStringLiteral("CmdSave"), tr("&Save Ticked"), &ImpTrades::CmdSave_Click);
  add(buttons, CmdExit, QStringLiteral("CmdExit"), tr("&Exit"), &ImpTrades::CmdExit_Click);
  rows->addLayout(scrips);
  rows->addLayout(buttons);
}

void ImpTrades::FillChoices() {
  std::vector<lookups::Item> accounts;
  for (const TradeAccount& account : book_.Accounts()) {
    accounts.push_back({account.id.value, account.text});
  }
  const bool one_account = accounts.size() == 1;
  CboAccount->SetItems(std::move(accounts));
  std::vector<lookups::Item> brokers =
      lookups::DropDownItems(*Session().connection, DropDown::kBrokers);
  const bool one_broker = brokers.size() == 1;
  CboBroker->SetItems(std::move(brokers));
  CboExchange->SetTexts({QStringLiteral("NSE"), QStringLiteral("BSE")});
  CboExchange->setCurrentIndex(0);
  CboScrip->SetItems(lookups::DropDownItems(*Session().connection, DropDown::kScrips));
  if (one_account) {
    CboAccount->setCurrentIndex(0);
  } else if (Session().current) {
    const auto own = lookups::AccountItems(*Session().connection, Session().current->client);
    CboAccount->ById(own.empty() ? 0 : own.front().id);
  }
  if (one_broker) {
    CboBroker->setCurrentIndex(0);
  }
}

/// The broker whose name the layout's has in it.
void ImpTrades::ProposeBroker() {
  for (const OpenedTrades& opened : opened_) {
    if (CboBroker->HasChoice() || !opened.header || opened.header->broker.isEmpty()) {
      continue;
    }
    for (int i = 0; i < CboBroker->count(); ++i) {
      if (CboBroker->itemText(i).contains(opened.header->broker, Qt::CaseInsensitive)) {
        CboBroker->setCurrentIndex(i);
        break;
      }
    }
  }
}

TradeOptions ImpTrades::Options() const {
  return {ChkJoin->isChecked() ? TradePlan::Fills::kJoined : TradePlan::Fills::kKept,
          CboExchange->currentText().toStdString(), TheDesk().today()};
}

TradeReading ImpTrades::Reading(const QString& path) const {
  return {path, CboExchange->currentText().toStdString(), {}, TheDesk().today()};
}

const OpenedTrades* ImpTrades::FirstUnknown() const {
  const auto unknown =
      std::ranges::find_if(opened_, [](const OpenedTrades& one) { return !one.header; });
  return unknown == opened_.end() ? nullptr : &*unknown;
}

void ImpTrades::CmdFile_Click() {
  const QStringList paths = TheDesk().ask_open_paths(
      this, tr("Trade Books (*.csv *.xlsx *.xls *.ods *.zip);;All Files (*)"));
  if (paths.isEmpty()) {
    return;
  }
  std::vector<OpenedTrades> opened;
  try {
    for (const QString& path : paths) {
      opened.push_back(book_.Open(path));
    }
  } catch (const files::TableError& error) {
    return ShowAt(QString::fromUtf8(error.what()), CmdFile);
  }
  opened_ = std::move(opened);
  ProposeBroker();
  LookThrough();
}

/// Goes on as far as what was chosen allows.
void ImpTrades::LookThrough() {
  plan_.reset();
  Fill();
  if (const OpenedTrades* unknown = FirstUnknown()) {
    AskColumns(*unknown);
  } else if (!opened_.empty() && CboAccount->HasChoice() && CboBroker->HasChoice()) {
    if (MakePlan()) {
      Look();
    }
  }
  Fill();
}

void ImpTrades::AskColumns(const OpenedTrades& opened) {
  if (!GuessHeader(opened.table, book_.Layouts())) {
    const QString text = book_.UnknownHeader(opened);
    opened_.clear();
    return ShowAt(text, CmdFile);
  }
  Columns->Ask(opened, book_.Layouts(), Reading(opened.path));
  Columns->VSC->setFocus();
}

bool ImpTrades::MakePlan() {
  controls::ProgressDialog progress(this);
  Result<TradeTarget> target =
      book_.TargetOf(AccountId{CboAccount->CurrentId()}, BrokerId{CboBroker->CurrentId()});
  if (!target) {
    Show(target.Why());
    return false;
  }
  target_ = *target;
  Result<TradeFile> file = book_.Read(opened_, *target_, Options(), progress);
  if (!file) {
    Show(file.Why());
    return false;
  }
  plan_ = book_.Plan(std::move(*file), *target_, Options(), progress);
  return true;
}

/// Marks what cannot be saved.
void ImpTrades::Look() {
  controls::ProgressDialog progress(this);
  const Result<TradeOutcome> outcome =
      CheckTrades(*Session().connection, *target_, *plan_, progress);
  if (!outcome) {
    return Show(outcome.Why());
  }
  outcome_ = tr("%1 bills with %2 lines would be saved.").arg(outcome->bills).arg(outcome->lines);
  if (outcome->carried > 0) {
    outcome_ += QLatin1Char(' ') + tr("%1 lots are carried forward.").arg(outcome->carried);
  }
  for (const QString& note : outcome->notes) {
    outcome_ += QLatin1Char(' ') + note;
  }
}

void ImpTrades::Fill() {
  Lines->Show(plan_ ? &*plan_ : nullptr, *Session().connection, outcome_);
  SetEnabled();
}

void ImpTrades::SetEnabled() {
  const bool unknown = FirstUnknown() != nullptr;
  Columns->setVisible(unknown);
  Lines->setVisible(!unknown);
  Foot->setVisible(!unknown);
  QStringList files;
  for (const OpenedTrades& opened : opened_) {
    const QString layout = opened.header ? opened.header->layout : QString();
    files << QFileInfo(opened.path).fileName() +
                 (layout.isEmpty() ? QString() : QStringLiteral(" (%1)").arg(layout));
  }
  LblFile->setText(opened_.empty() ? tr("Choose the trade books of a broker, and the demat account "
                                        "and broker that they belong to.")
                                   : files.join(QStringLiteral(", ")));
  const bool planned = plan_.has_value();
  CmdConfirm->setEnabled(planned && plan_->Count(LineState::kLikely) > 0);
  CmdAssign->setEnabled(planned);
  CmdNew->setEnabled(planned);
  CmdLook->setEnabled(planned);
  CmdSave->setEnabled(planned && std::ranges::any_of(plan_->Lines(), &TradeLine::ticked));
}

void ImpTrades::CmdUse_Click() {
  const std::optional<FoundHeader> chosen = Columns->Chosen();
  const OpenedTrades* asked = FirstUnknown();
  if (!chosen || asked == nullptr) {
    return;
  }
  const std::string header = HeaderText(asked->table.rows[chosen->row]);
  for (OpenedTrades& opened : opened_) {
    const bool same = !opened.header && opened.table.rows.size() > chosen->row &&
                      HeaderText(opened.table.rows[chosen->row]) == header;
    if (same) {
      opened.header = chosen;
      opened.mapped = true;
    }
  }
  LookThrough();
  (CboAccount->HasChoice() ? static_cast<QWidget*>(Lines->VSF) : CboAccount)->setFocus();
}

void ImpTrades::Columns_Edited() {
  Columns->Preview();
}

void ImpTrades::Choice_Changed() {
  if (!opened_.empty()) {
    LookThrough();
  }
}

void ImpTrades::CboShow_Changed() {
  if (plan_) {
    Lines->TakeTicks();
    Fill();
  }
}

std::optional<std::uint32_t> ImpTrades::CurrentScrip() {
  const std::optional<std::uint32_t> scrip = Lines->CurrentScrip();
  if (!scrip) {
    ShowAt(tr("Choose a line of the script."), Lines->VSF);
    return std::nullopt;
  }
  Lines->TakeTicks();
  return scrip;
}

/// The scrips changed, so the lines are made anew.
void ImpTrades::Settled() {
  {
    controls::ProgressDialog progress(this);
    plan_->Build(Options().fills, progress);
  }
  Look();
  Fill();
}

void ImpTrades::CmdAssign_Click() {
  const auto scrip = CurrentScrip();
  if (!scrip) {
    return;
  }
  if (!CboScrip->HasChoice()) {
    return ShowAt(tr("Choose the script."), CboScrip);
  }
  plan_->Settle(*scrip, ScripId{CboScrip->CurrentId()});
  Settled();
}

void ImpTrades::CmdNew_Click() {
  const auto scrip = CurrentScrip();
  if (!scrip) {
    return;
  }
  if (plan_->Scrips()[*scrip].match == ScripMatch::kKnown) {
    return ShowAt(tr("The script of this line is known."), Lines->VSF);
  }
  std::size_t unknown = 0;
  for (const TradedScrip& each : plan_->Scrips()) {
    unknown += each.match == ScripMatch::kUnknown ? 1 : 0;
  }
  const bool all =
      plan_->Scrips()[*scrip].match == ScripMatch::kUnknown && unknown > 1 &&
      Say().Ask(tr("Record all %1 unknown scripts as new?\n\nNo records only that of the current "
                   "line.")
                    .arg(unknown),
                controls::Answer::kNo, controls::Icon::kInformation);
  for (std::uint32_t place = 0; place < plan_->Scrips().size(); ++place) {
    if (place == *scrip || (all && plan_->Scrips()[place].match == ScripMatch::kUnknown)) {
      plan_->SettleAsNew(place);
    }
  }
  Settled();
}

void ImpTrades::CmdConfirm_Click() {
  Lines->TakeTicks();
  for (std::uint32_t place = 0; place < plan_->Scrips().size(); ++place) {
    const TradedScrip& scrip = plan_->Scrips()[place];
    if (scrip.match == ScripMatch::kLikely) {
      plan_->Settle(place, ScripId(scrip.scrip));
    }
  }
  Settled();
}

void ImpTrades::CmdLook_Click() {
  Lines->TakeTicks();
  plan_->ForgetImpossible();
  Look();
  Fill();
}

void ImpTrades::CmdSave_Click() {
  Lines->TakeTicks();
  const Result<TradeOutcome> saved = [&] {
    controls::ProgressDialog progress(this);
    return SaveTrades(*Session().connection, *target_, *plan_, TradeBook::MappedHeaders(opened_),
                      progress);
  }();
  if (!saved) {
    Show(saved.Why());
    return Fill();
  }
  QString text = tr("%1 Trades are Saved in %2 Bills.").arg(saved->trades).arg(saved->bills);
  if (saved->scrips > 0) {
    text += QLatin1Char('\n') + tr("%1 Scripts are New.").arg(saved->scrips);
  }
  for (const QString& note : saved->notes) {
    text += QLatin1Char('\n') + note;
  }
  LookThrough();
  Say().Inform(text);
}

void ImpTrades::CmdExit_Click() {
  close();
}

void ImpTrades::VSF_RowChanged(int row) {
  static_cast<void>(row);
  if (const auto scrip = Lines->CurrentScrip()) {
    CboScrip->ById(plan_->Scrips()[*scrip].scrip.value);
  }
}

void ImpTrades::VSF_CellEdited(int row, int column) {
  const QString why = Lines->TakeEdit(row, column);
  if (!why.isEmpty()) {
    Fill();
    ShowAt(why, Lines->VSF);
  }
}

}  // namespace quorvane::portfolio
