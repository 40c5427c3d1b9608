#include "portfolio/trades/window/ImpTrades.h"

#include "controls/ProgressDialog.h"
#include "core/lookups/Choices.h"

#include <QFileInfo>
#include <QLabel>

#include <algorithm>

namespace quorvane::portfolio {

ImpTrades::ImpTrades(controls::Desk& desk)
    : ChildWindow(desk, QStringLiteral("ImpTrades"), tr("Trade Books of Brokers"), {790, 540}),
      book_(*desk.session.connection, desk.session.folders.data) {
  Build();
  Target->Offer(book_, Session());
  CboScrip->SetItems(lookups::DropDownItems(*Session().connection, lookups::DropDown::kScrips));
  Fill();
  Hold({{Field::kAccount, QStringLiteral("CboAccount")},
        {Field::kBroker, QStringLiteral("CboBroker")},
        {Field::kRecord, QStringLiteral("CmdFile")},
        {Field::kLines, QStringLiteral("VSF")},
        {Field::kScrips, QStringLiteral("CboScrip")}});
}

TradeOptions ImpTrades::Options() const {
  return Target->Options(TheDesk().today());
}

TradeReading ImpTrades::Reading(const QString& path) const {
  const TradeOptions options = Options();
  return {path, options.exchange, {}, options.today};
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
  // Without files a change of the broker does nothing.
  opened_.clear();
  Target->ProposeBroker(opened);
  opened_ = std::move(opened);
  LookThrough();
}

/// Goes on as far as what was chosen allows.
void ImpTrades::LookThrough() {
  plan_.reset();
  Fill();
  if (const OpenedTrades* unknown = FirstUnknown()) {
    AskColumns(*unknown);
  } else if (!opened_.empty() && Target->IsChosen()) {
    if (MakePlan()) {
      Look();
    }
  }
  Fill();
  if (FirstUnknown() != nullptr) {
    Columns->VSC->setFocus();
  }
}

void ImpTrades::AskColumns(const OpenedTrades& opened) {
  if (!GuessHeader(opened.table, book_.Layouts())) {
    const QString text = book_.UnknownHeader(opened);
    opened_.clear();
    return ShowAt(text, CmdFile);
  }
  Columns->Ask(opened, book_.Layouts(), Reading(opened.path));
}

bool ImpTrades::MakePlan() {
  const Result<TradeTarget> target = book_.TargetOf(Target->Account(), Target->Broker());
  if (!target) {
    Show(target.Why());
    return false;
  }
  target_ = *target;
  const MaybeRefusal refusal = [&]() -> MaybeRefusal {
    controls::ProgressDialog progress(this);
    Result<TradeFile> file = book_.Read(opened_, *target_, Options(), progress);
    if (file) {
      plan_ = book_.Plan(std::move(*file), *target_, Options(), progress);
    }
    return file.Refused();
  }();
  if (refusal) {
    Show(*refusal);
  }
  return !refusal;
}

/// Marks what cannot be saved.
void ImpTrades::Look() {
  const Result<TradeOutcome> outcome = [&] {
    controls::ProgressDialog progress(this);
    return CheckTrades(*Session().connection, *target_, *plan_, progress);
  }();
  if (!outcome) {
    outcome_ = outcome.Why().text;
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
  Lines->Show(plan_ ? &*plan_ : nullptr, *Session().connection, plan_ ? outcome_ : NextStep());
  SetEnabled();
}

/// What the user is to choose before there are lines.
QString ImpTrades::NextStep() const {
  if (!opened_.empty() && !Target->CboAccount->HasChoice()) {
    return tr("Choose the demat account that the trades belong to.");
  }
  if (!opened_.empty() && !Target->CboBroker->HasChoice()) {
    return tr("Choose the broker of the trades.");
  }
  return tr("Nothing to save yet.");
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
  (plan_ ? static_cast<QWidget*>(Lines->VSF) : Target->CboAccount)->setFocus();
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
