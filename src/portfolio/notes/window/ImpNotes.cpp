#include "portfolio/notes/window/ImpNotes.h"

#include "controls/ProgressDialog.h"
#include "controls/Style.h"
#include "core/lookups/Directory.h"
#include "core/text/Amounts.h"
#include "portfolio/paper/ScripIsins.h"

#include <QFileInfo>
#include <QLabel>
#include <QSplitter>
#include <QVBoxLayout>

#include <algorithm>

namespace quorvane::notes {
namespace {

using controls::ComboBox;
using controls::Grid;
using controls::Mask;
using controls::ZENButton;

QString Utf8(const std::string& text) {
  return QString::fromStdString(text);
}

QVariant Amount(const std::optional<Paise>& amount) {
  return amount ? QVariant(amount->Rupees()) : QVariant();
}

}  // namespace

ImpNotes::ImpNotes(controls::Desk& desk)
    : ChildWindow(desk, QStringLiteral("ImpNotes"), tr("Contract Notes"), {790, 520}) {
  Build();
  Hold({{Field::kClients, QStringLiteral("Combo1")},
        {Field::kAccount, QStringLiteral("Combo2")},
        {Field::kBroker, QStringLiteral("Combo3")},
        {Field::kScrip, QStringLiteral("Combo5")},
        {Field::kPassword, QStringLiteral("TxtPassword")},
        {Field::kRecord, QStringLiteral("VSF")},
        {Field::kLines, QStringLiteral("VSL")}});
  FillChoices();
  FillScrips();
  FillNotes();
}

void ImpNotes::Build() {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                           controls::kMargin);
  LblFile = new QLabel();
  LblFile->setObjectName(QStringLiteral("LblFile"));
  LblFile->setWordWrap(true);
  VSF = new Grid(QStringLiteral("VSF"), tr("Contract notes in the files"));
  VSF->SetColumns({{.heading = QString(), .mask = Mask::kTick},
                   {.heading = tr("Note No.")},
                   {.heading = tr("Date"), .mask = Mask::kDate},
                   {.heading = tr("Broker")},
                   {.heading = tr("Exchange")},
                   {.heading = tr("Net Amount"), .mask = Mask::kAmount},
                   {.heading = tr("State")},
                   {.heading = tr("Remark")},
                   {.heading = tr("File")}});
  VSL = new Grid(QStringLiteral("VSL"), tr("Lines of the chosen note"));
  VSL->SetColumns({{.heading = tr("Script Name")},
                   {.heading = tr("ISIN")},
                   {.heading = tr("S/P")},
                   {.heading = tr("Quantity"), .mask = Mask::kQuantity},
                   {.heading = tr("Rate"), .mask = Mask::kNumber},
                   {.heading = tr("Brokerage"), .mask = Mask::kNumber},
                   {.heading = tr("Tax"), .mask = Mask::kAmount},
                   {.heading = tr("STT"), .mask = Mask::kAmount},
                   {.heading = tr("Delivery")}});
  auto* splitter = new QSplitter(Qt::Vertical);
  splitter->addWidget(VSF);
  splitter->addWidget(VSL);
  rows->addLayout(BuildChoice());
  rows->addWidget(LblFile);
  rows->addWidget(splitter, 1);
  rows->addLayout(BuildAssignment());
  rows->addLayout(BuildButtons());
  On(VSF, &Grid::CurrentRowChanged, &ImpNotes::VSF_RowColChange,
     QStringLiteral("VSF_RowColChange"));
  On(VSL, &Grid::CurrentRowChanged, &ImpNotes::VSL_RowColChange,
     QStringLiteral("VSL_RowColChange"));
}

QLayout* ImpNotes::BuildChoice() {
  fields_ = new paper::PaperFields(paper::PaperFields::Account::kAlways);
  Combo3 = fields_->Add(tr("&Broker"), QStringLiteral("Combo3"), new ComboBox());
  Combo3->setToolTip(tr("Only for notes that do not have the broker's name as it is entered"));
  Combo4 = fields_->Add(tr("&Exchange"), QStringLiteral("Combo4"), new ComboBox());
  Combo4->setToolTip(tr("For notes that name none; NSE without a choice"));
  fields_->AddPassword();
  On(fields_->Combo1, &QComboBox::activated, &ImpNotes::Combo1_Click,
     QStringLiteral("Combo1_Click"));
  On(fields_->Combo1, &ComboBox::Left, &ImpNotes::Combo1_Click, QStringLiteral("Combo1_Click"));
  for (ComboBox* box : {fields_->Combo2, Combo3, Combo4}) {
    On(box, &QComboBox::activated, &ImpNotes::Combo_Click, box->objectName() + "_Click");
  }
  return fields_;
}

QLayout* ImpNotes::BuildAssignment() {
  auto* row = new QHBoxLayout();
  Combo5 = new ComboBox();
  Combo5->setObjectName(QStringLiteral("Combo5"));
  Combo5->setAccessibleName(tr("Script of the ISIN"));
  auto* label = new QLabel(tr("&Script of the ISIN"));
  label->setBuddy(Combo5);
  CmdAssign = new ZENButton(QStringLiteral("CmdAssign"), tr("&Assign"));
  CmdAssign->setToolTip(tr("The script is known by this ISIN from now on"));
  CmdScript = new ZENButton(QStringLiteral("CmdScript"), tr("&New Script..."));
  CmdScript->setToolTip(tr("Opens the scripts, to enter the one with this ISIN"));
  row->addWidget(label);
  row->addWidget(Combo5, 1);
  row->addWidget(CmdAssign);
  row->addWidget(CmdScript);
  OnClick(CmdAssign, &ImpNotes::CmdAssign_Click);
  OnClick(CmdScript, &ImpNotes::CmdScript_Click);
  return row;
}

QLayout* ImpNotes::BuildButtons() {
  auto* buttons = new QHBoxLayout();
  const auto add = [&](ZENButton*& button, const QString& name, const QString& text,
                       void (ImpNotes::*handler)()) {
    button = new ZENButton(name, text);
    buttons->addWidget(button);
    OnClick(button, handler);
  };
  add(CmdFile, QStringLiteral("CmdFile"), tr("Add a &File..."), &ImpNotes::CmdFile_Click);
  add(CmdTake, QStringLiteral("CmdTake"), tr("&Take Ticked In"), &ImpNotes::CmdTake_Click);
  add(CmdClear, QStringLiteral("CmdClear"), tr("&Clear the List"), &ImpNotes::CmdClear_Click);
  buttons->addStretch();
  return buttons;
}

void ImpNotes::FillChoices() {
  fields_->Offer(Session());
  Combo3->SetItems(lookups::DropDownItems(*Session().connection, lookups::DropDown::kBrokers));
  Combo4->SetItems(lookups::DropDownItems(*Session().connection, lookups::DropDown::kExchanges));
}

void ImpNotes::FillScrips() {
  Combo5->SetItems(lookups::DropDownItems(*Session().connection, lookups::DropDown::kScrips));
}

NoteQuery ImpNotes::Query() const {
  return {.client = fields_->Client(),
          .account = fields_->ChosenAccount(),
          .broker = BrokerId{Combo3->CurrentId()},
          .exchange = Combo4->HasChoice() ? Combo4->currentText() : QString(),
          .today = TheDesk().today()};
}

bool ImpNotes::CheckChoice() {
  if (!fields_->Combo1->HasChoice()) {
    Show(Refusal{tr("Select Client."), Field::kClients});
    return false;
  }
  if (!fields_->Combo2->HasChoice()) {
    Show(Refusal{tr("Select Demat A/c No."), Field::kAccount});
    return false;
  }
  return true;
}

/// Another client: the notes of the one before are no longer shown.
void ImpNotes::Combo1_Click() {
  if (fields_->IsAnotherClient(Session())) {
    notes_.clear();
    FillNotes();
  }
}

void ImpNotes::Combo_Click() {
  Plan();
}

void ImpNotes::CmdFile_Click() {
  if (!CheckChoice()) {
    return;
  }
  const QString path = TheDesk().ask_open_path(
      this, QString(), tr("Contract Notes (*.pdf *.htm *.html *.xlsx *.xls *.ods);;All Files (*)"));
  if (path.isEmpty()) {
    return;
  }
  Result<Note> note = [&] {
    controls::ProgressDialog progress(this);
    return ReadNote(*Session().connection, fields_->Client(), path, fields_->Passwords(), progress);
  }();
  if (!note) {
    return Show(note.Why());
  }
  std::erase_if(notes_, [&](const PlannedNote& one) { return one.path == path; });
  PlannedNote& added = notes_.emplace_back();
  added.path = path;
  added.note = std::move(*note);
  Plan();
  VSF->SelectRow(static_cast<int>(notes_.size()) - 1);
}

void ImpNotes::Plan() {
  std::vector<ReadFile> read;
  for (PlannedNote& one : notes_) {
    read.push_back({one.path, std::move(one.note)});
  }
  notes_ = PlanNotes(*Session().connection, Query(), std::move(read));
  FillNotes();
}

void ImpNotes::FillNotes() {
  std::vector<controls::Row> rows;
  for (std::size_t i = 0; i < notes_.size(); ++i) {
    const PlannedNote& one = notes_[i];
    rows.push_back({.id = static_cast<int>(i) + 1,
                    .cells = {one.state == NoteState::kReady, Utf8(one.note.number),
                              one.note.day ? text::FormatDmy(*one.note.day) : QString(),
                              one.broker_name, one.exchange, Amount(one.note.net),
                              TextOf(one.state), one.remark, QFileInfo(one.path).fileName()}});
  }
  VSF->SetRows(std::move(rows));
  FillLines();
}

const PlannedNote* ImpNotes::Current() const {
  const int id = VSF->CurrentId();
  return id > 0 && static_cast<std::size_t>(id) <= notes_.size()
             ? &notes_[static_cast<std::size_t>(id) - 1]
             : nullptr;
}

/// The lines of the bill that the note becomes; of a note that does not add up, those that it has.
void ImpNotes::FillLines() {
  std::vector<controls::Row> rows;
  if (const PlannedNote* note = Current(); note != nullptr) {
    const lookups::Directory directory(*Session().connection);
    std::vector<BillEntry> entries = note->bill.entries;
    if (entries.empty()) {
      for (std::size_t i = 0; i < note->note.lines.size(); ++i) {
        const NoteLine& line = note->note.lines[i];
        entries.push_back({i, line.side, false, line.quantity, line.rate, line.brokerage, 0, 0});
      }
    }
    for (const BillEntry& entry : entries) {
      const NoteLine& line = note->note.lines[entry.note_line];
      const ScripId scrip = note->scrips[entry.note_line];
      rows.push_back(
          {.id = static_cast<int>(entry.note_line) + 1,
           .cells = {Utf8(scrip ? directory.Scrip(scrip).name : line.name), Utf8(line.isin),
                     entry.side == Side::kPurchase ? tr("P") : tr("S"), entry.quantity.Number(),
                     entry.rate, entry.brokerage, entry.service_tax, entry.stt,
                     entry.non_delivery ? tr("Non Delivery Based") : tr("Delivery Based")}});
    }
  }
  VSL->SetRows(std::move(rows));
  ShowSums(Current());
  Enable();
}

/// What the note charges beside brokerage, so that it can be held beside the paper.
void ImpNotes::ShowSums(const PlannedNote* note) {
  if (note == nullptr) {
    LblFile->setText(
        tr("Choose contract notes as brokers send them by e-mail: PDF, web pages or workbooks."));
    return;
  }
  const auto amount = [](const std::optional<Paise>& paise) {
    return paise ? text::FormatAmount(paise->Rupees()) : tr("not read");
  };
  const Note& paper = note->note;
  LblFile->setText(
      tr("Obligation %1, exchange charges %2, tax %3, STT %4, SEBI fee, stamp duty and others %5; "
         "net amount %6.")
          .arg(
              amount(paper.obligation), amount(paper.Of(Charge::kExchange)),
              amount(paper.Of(Charge::kTax)), amount(paper.Of(Charge::kStt)),
              amount(paper.Of(Charge::kSebi) + paper.Of(Charge::kStamp) + paper.Of(Charge::kOther)),
              amount(paper.net)));
}

void ImpNotes::Enable() {
  const PlannedNote* note = Current();
  const int line = VSL->CurrentId();
  const bool unknown = note != nullptr && line > 0 &&
                       static_cast<std::size_t>(line) <= note->scrips.size() &&
                       !note->scrips[static_cast<std::size_t>(line) - 1] &&
                       !note->note.lines[static_cast<std::size_t>(line) - 1].isin.empty();
  CmdAssign->setEnabled(unknown);
  Combo5->setEnabled(unknown);
  CmdScript->setEnabled(unknown);
  CmdTake->setEnabled(
      std::ranges::any_of(notes_, [](const PlannedNote& one) { return one.CanBeTaken(); }));
  CmdClear->setEnabled(!notes_.empty());
}

void ImpNotes::VSF_RowColChange(int /*row*/) {
  FillLines();
}

void ImpNotes::VSL_RowColChange(int /*row*/) {
  Enable();
}

void ImpNotes::CmdAssign_Click() {
  const PlannedNote* note = Current();
  const int line = VSL->CurrentId();
  if (note == nullptr || line <= 0 || !Combo5->HasChoice()) {
    return Show(Refusal{tr("Select Script."), Field::kScrip});
  }
  const QString isin = Utf8(note->note.lines[static_cast<std::size_t>(line) - 1].isin);
  if (const MaybeRefusal refusal =
          paper::AssignIsin(*Session().connection, ScripId{Combo5->CurrentId()}, isin)) {
    return Show(*refusal);
  }
  Plan();
}

void ImpNotes::CmdScript_Click() {
  TheDesk().open(QStringLiteral("FrmScript"));
}

bool ImpNotes::AsksToReplace(const std::vector<PlannedNote>& chosen) {
  QStringList numbers;
  for (const PlannedNote& one : chosen) {
    if (one.state == NoteState::kRevises) {
      numbers << Utf8(one.note.number);
    }
  }
  return numbers.isEmpty() || Say().Ask(tr("Replace the Recorded Bills %1 by these Notes?")
                                            .arg(numbers.join(QStringLiteral(", "))),
                                        controls::Answer::kNo, controls::Icon::kInformation);
}

/// Without a note that is not ticked other shares may be without delivery than were shown.
bool ImpNotes::AsksAboutDelivery(const std::vector<PlannedNote>& chosen) {
  const bool as_shown = std::ranges::all_of(chosen, [this](const PlannedNote& one) {
    const auto shown = std::ranges::find(notes_, one.path, &PlannedNote::path);
    return shown != notes_.end() && shown->bill.entries == one.bill.entries;
  });
  return as_shown || Say().Ask(tr("Other Shares are Without Delivery than Shown, because not all "
                                  "Notes are Ticked. Take the Ticked Ones In?"),
                               controls::Answer::kNo, controls::Icon::kInformation);
}

void ImpNotes::CmdTake_Click() {
  if (!CheckChoice()) {
    return;
  }
  std::vector<ReadFile> ticked;
  for (const int id : VSF->Model().TickedIds()) {
    const PlannedNote& one = notes_[static_cast<std::size_t>(id) - 1];
    ticked.push_back({one.path, one.note});
  }
  // Others may have recorded meanwhile, and a note that is not ticked counts for no day.
  const std::vector<PlannedNote> chosen =
      PlanNotes(*Session().connection, Query(), std::move(ticked));
  if (chosen.empty()) {
    return ShowAt(tr("Tick a Note."), VSF);
  }
  if (!AsksToReplace(chosen) || !AsksAboutDelivery(chosen)) {
    return;
  }
  const Result<std::size_t> taken = [&] {
    controls::ProgressDialog progress(this);
    return TakeIn(*Session().connection, Query(), chosen, false, progress);
  }();
  if (!taken) {
    return Show(taken.Why());
  }
  Plan();
  Say().Inform(tr("%1 Bills are Recorded.").arg(qulonglong{*taken}));
}

void ImpNotes::CmdClear_Click() {
  notes_.clear();
  FillNotes();
}

}  // namespace quorvane::notes
