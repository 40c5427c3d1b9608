#include "transactions/opening_stock/window/FrmStkOpBalance.h"

#include "controls/ProgressDialog.h"
#include "controls/TextBox.h"
#include "core/app/Session.h"
#include "core/lookups/Choices.h"
#include "transactions/opening_stock/OpeningReport.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QShortcut>

#include <algorithm>

namespace quorvane::opening_stock {
namespace {

using controls::AmountBox;
using controls::ComboBox;
using controls::Mask;
using controls::TextBox;
using controls::ZENButton;

/// For a number that follows from others.
TextBox* ShownBox() {
  auto* box = new AmountBox();
  box->setReadOnly(true);
  box->setFocusPolicy(Qt::NoFocus);
  return box;
}

}  // namespace

FrmStkOpBalance::FrmStkOpBalance(reporting::ReportDesk& desk)
    : RecordWindow(desk, QStringLiteral("FrmStkOpBalance"),
                   app::ClientTitle(tr("Stock Opening Balance"), desk.session), {780, 520},
                   QStringLiteral("VSF"), Panels::kTogether),
      desk_(desk),
      of_(app::CurrentOf(desk.session)),
      book_(*desk.session.connection, of_) {
  BuildFields();
  BuildButtons();
  SetListColumns();
  Hold({{Field::kScrip, "Combo1"},
        {Field::kAccount, "Combo2"},
        {Field::kQuantity, "Text1_0"},
        {Field::kRate, "Text1_1"},
        {Field::kDate, "Text1_3"}});
  Start();
}

void FrmStkOpBalance::BuildFields() {
  constexpr int kTwoColumns = 2;
  auto* fields = new controls::FieldLayout(3, Details());
  TxtScr = fields->Add(tr("Scrip Code"), QStringLiteral("TxtScr"), new TextBox());
  TxtScr->setPlaceholderText(tr("BSE or NSE"));
  Combo1 = fields->Add(tr("&Script Name"), QStringLiteral("Combo1"), new ComboBox(), kTwoColumns);
  Combo2 = fields->Add(tr("D&emat A/c No."), QStringLiteral("Combo2"), new ComboBox());
  BuildBoxes(*fields);
  ChkFO =
      fields->Add(tr("F&&O"), QStringLiteral("ChkFO"), new QCheckBox(tr("Futures and options")));
  ReadScrips();
  Combo2->SetItems(lookups::AccountItems(*Session().connection, of_.client));
  On(TxtScr, &TextBox::Left, &FrmStkOpBalance::TxtScr_Validate, QStringLiteral("TxtScr_Validate"));
  On(Combo1, &QComboBox::activated, &FrmStkOpBalance::Combo1_Click, QStringLiteral("Combo1_Click"));
  On(Combo1, &ComboBox::Left, &FrmStkOpBalance::Combo1_Click, QStringLiteral("Combo1_Click"));
}

void FrmStkOpBalance::ReadScrips() {
  const int scrip = Combo1->CurrentId();
  scrips_ = lookups::ScripList(*Session().connection);
  Combo1->SetItems(scrips_.Names());
  Combo1->ById(scrip);
  TxtScr->SetCompletions(scrips_.Codes());
}

void FrmStkOpBalance::ShowScripCode() {
  coded_ = ScripId{Combo1->CurrentId()};
  const lookups::ScripFound* scrip = scrips_.Find(coded_);
  TxtScr->setText(scrip == nullptr ? QString() : scrip->ShownCode());
}

void FrmStkOpBalance::TxtScr_Validate() {
  const QString code = TxtScr->text().trimmed();
  const lookups::ScripFound* shown = scrips_.Find(ScripId{Combo1->CurrentId()});
  if (code.isEmpty() || (shown != nullptr && shown->HasCode(code))) {
    ShowScripCode();
    return;
  }
  const std::optional<lookups::ScripFound> found =
      lookups::FindScripByCode(*Session().connection, code);
  if (!found) {
    if (!IsCancelling()) {
      ShowAt(tr("There is no Scrip of the Code %1.").arg(code), TxtScr);
    }
    return;
  }
  if (scrips_.Find(found->id) == nullptr) {
    ReadScrips();
  }
  Combo1->ById(found->id.value);
  ShowScripCode();
}

/// A code that was refused stays for its user to correct while the scrip is the same.
void FrmStkOpBalance::Combo1_Click() {
  if (ScripId{Combo1->CurrentId()} != coded_) {
    ShowScripCode();
  }
}

void FrmStkOpBalance::BuildBoxes(controls::FieldLayout& fields) {
  const auto add = [&](OpeningBox box, const QString& label, TextBox* control) {
    const auto place = static_cast<std::size_t>(box);
    Text1[place] = fields.Add(label, QStringLiteral("Text1_%1").arg(place), control);
    On(control, &TextBox::Left, &FrmStkOpBalance::Text1_Validate, QStringLiteral("Text1_Validate"));
  };
  date_ = new controls::DateBox();
  add(OpeningBox::kQuantity, tr("Quantity"),
      new controls::NumberBox(controls::NumberBox::Sign::kAny));
  add(OpeningBox::kRate, tr("Rate"), new AmountBox());
  add(OpeningBox::kTotal, tr("Total"), ShownBox());
  add(OpeningBox::kPurchaseDate, tr("Purc&hase Date"), date_);
  add(OpeningBox::kServiceTax, tr("Ser&vice Tax"), new AmountBox());
  add(OpeningBox::kStt, tr("STT"), new controls::NumberBox(controls::NumberBox::Sign::kAny));
  Watch(date_);
}

void FrmStkOpBalance::BuildButtons() {
  CmdImport = new ZENButton(QStringLiteral("CmdImport"), tr("Carry &Forward"));
  CmdImport->setToolTip(tr("Brings the lots left of the year before into this year"));
  CmdReport = new ZENButton(QStringLiteral("CmdReport"), tr("Report"));
  CmdReport->setToolTip(tr("Shows the list as pages, to print or save (Ctrl+P)"));
  Buttons()->addWidget(CmdImport);
  Buttons()->addWidget(CmdReport);
  OnClick(CmdImport, &FrmStkOpBalance::CmdImport_Click);
  OnClick(CmdReport, &FrmStkOpBalance::CmdReport_Click);
  auto* print = new QShortcut(QKeySequence::Print, this);
  print->setContext(Qt::WidgetWithChildrenShortcut);
  connect(print, &QShortcut::activated, CmdReport, &QAbstractButton::click);
}

void FrmStkOpBalance::SetListColumns() {
  database::Connection& connection = *Session().connection;
  List().SetColumns(
      {{.heading = tr("Script Name"),
        .choices = lookups::ChoiceList(connection, lookups::Choices::kScripNames)},
       {.heading = tr("Demat A/c No."),
        .choices = lookups::AccountChoiceList(connection, of_.client)},
       {.heading = tr("Rate"), .mask = Mask::kAmount},
       {.heading = tr("Quantity"), .mask = Mask::kAmount},
       {.heading = tr("Purchase Date"), .mask = Mask::kDate},
       {.heading = tr("Total"), .mask = Mask::kAmount},
       {.heading = tr("Service Tax"), .mask = Mask::kAmount},
       {.heading = tr("STT"), .mask = Mask::kAmount},
       {.heading = tr("F&O"), .choices = QStringLiteral("#0;%1|#1;%2").arg(tr("No"), tr("Yes"))},
       {.heading = tr("Brokerage"), .mask = Mask::kAmount}});
}

void FrmStkOpBalance::FillList() {
  lots_ = book_.List();
  std::vector<controls::Row> rows;
  for (const OpeningLot& lot : lots_) {
    rows.push_back({.id = lot.id.value,
                    .cells = {lot.scrip.value, lot.account.value, lot.rate, lot.quantity.Number(),
                              lot.purchase_date, lot.total, lot.service_tax, lot.stt,
                              lot.fo ? 1 : 0, lot.brokerage}});
  }
  List().SetRows(std::move(rows));
}

void FrmStkOpBalance::Clear() {
  entry_ = OpeningEntry();
  Combo1->Clear();
  ShowScripCode();
  Combo2->Clear();
  ChkFO->setChecked(false);
  ShowBoxes();
}

void FrmStkOpBalance::Load(int id) {
  const auto found = std::ranges::find(lots_, OpeningId{id}, &OpeningLot::id);
  if (found == lots_.end()) {
    return;
  }
  entry_ = OpeningEntry(*found);
  Combo1->ById(found->scrip.value);
  ShowScripCode();
  Combo2->ById(found->account.value);
  ChkFO->setChecked(found->fo);
  ShowBoxes();
}

/// Lots are entered account by account.
void FrmStkOpBalance::BeginEditing() {
  if (CurrentId() != 0) {
    return;
  }
  const std::vector<lookups::Item> accounts =
      lookups::AccountItems(*Session().connection, of_.client);
  if (accounts.size() == 1) {
    Combo2->ById(accounts.front().id);
  } else if (last_account_) {
    Combo2->ById(last_account_.value);
  }
}

MaybeRefusal FrmStkOpBalance::Save() {
  TakeBoxes();
  const OpeningLot lot = Entered();
  MaybeRefusal refusal = Saved(book_.Save(lot));
  if (!refusal) {
    last_account_ = lot.account;
  }
  return refusal;
}

void FrmStkOpBalance::Remove(int id) {
  if (const MaybeRefusal refusal = book_.Delete(OpeningId{id})) {
    Show(*refusal);
  }
}

void FrmStkOpBalance::StateChanged() {
  CmdImport->setEnabled(!IsEditing());
  CmdReport->setEnabled(!IsEditing() && !lots_.empty());
}

QString FrmStkOpBalance::TypedIn(OpeningBox box) const {
  return box == OpeningBox::kPurchaseDate ? date_->DateText() : BoxOf(box)->text();
}

/// A box that was not changed gives what it showed, and that changes nothing.
void FrmStkOpBalance::TakeBoxes() {
  for (const OpeningBox box : {OpeningBox::kQuantity, OpeningBox::kRate, OpeningBox::kPurchaseDate,
                               OpeningBox::kServiceTax, OpeningBox::kStt}) {
    entry_.Leave(box, TypedIn(box), of_.year);
  }
  ShowBoxes();
}

void FrmStkOpBalance::ShowBoxes() {
  for (std::size_t place = 0; place < kOpeningBoxCount; ++place) {
    const QString& text = entry_.Text(static_cast<OpeningBox>(place));
    // A text that is no date stays for its user to correct.
    const bool wrong_date = Text1[place] == date_ && IsEditing() && !date_->IsProper();
    if (Text1[place]->text() != text && !wrong_date) {
      Text1[place]->setText(text);
    }
  }
}

OpeningLot FrmStkOpBalance::Entered() const {
  OpeningLot lot = entry_.Lot();
  lot.id = OpeningId{CurrentId()};
  lot.scrip = ScripId{Combo1->CurrentId()};
  lot.account = AccountId{Combo2->CurrentId()};
  lot.fo = ChkFO->isChecked();
  return lot;
}

void FrmStkOpBalance::Text1_Validate() {
  if (IsEditing()) {
    TakeBoxes();
  }
}

void FrmStkOpBalance::FirstShown() {
  RecordWindow::FirstShown();
  if (lots_.empty() && HasLotsToCarryForward(*Session().connection, of_)) {
    CarryForwardIfWanted();
  }
}

void FrmStkOpBalance::CmdImport_Click() {
  if (HasLotsToCarryForward(*Session().connection, of_)) {
    CarryForwardIfWanted();
  } else {
    Say().Inform(tr("There is no Stock of %1 to Carry Forward.").arg(of_.year.Previous().Text()));
  }
}

void FrmStkOpBalance::CarryForwardIfWanted() {
  if (!Say().Ask(tr("Do you want to Carry Forward the Stock From Previous Year?"),
                 controls::Answer::kNo, controls::Icon::kInformation)) {
    return;
  }
  const Result<std::size_t> carried = [this] {
    const std::unique_ptr<Progress> progress = NewProgress();
    return CarryForward(*Session().connection, of_, *progress);
  }();
  if (!carried) {
    Show(carried.Why());
    return;
  }
  Refill();
  TellOfOtherRows(*carried);
}

/// Only rows that are identical to a carried lot make place for it. Those of an earlier carry
/// forward whose lot has changed since would count a second time.
void FrmStkOpBalance::TellOfOtherRows(std::size_t carried) {
  if (lots_.size() > carried) {
    Say().Inform(tr("%1 lots were carried forward. %2 other opening rows stay as they are; delete "
                    "those that should not count.")
                     .arg(carried)
                     .arg(lots_.size() - carried));
  }
}

std::unique_ptr<Progress> FrmStkOpBalance::NewProgress() {
  return std::make_unique<controls::ProgressDialog>(this);
}

void FrmStkOpBalance::CmdReport_Click() {
  const lookups::Directory directory(*Session().connection);
  desk_.show_report(MakeOpeningReport(lots_, of_, directory), this);
}

}  // namespace quorvane::opening_stock
