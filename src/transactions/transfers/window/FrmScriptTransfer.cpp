#include "transactions/transfers/window/FrmScriptTransfer.h"

#include "controls/Style.h"
#include "controls/TextBox.h"
#include "core/app/Session.h"
#include "core/lookups/Choices.h"
#include "core/text/Amounts.h"
#include "transactions/transfers/Transfer.h"

#include <QHBoxLayout>
#include <QScopedValueRollback>

#include <algorithm>

namespace quorvane::transfers {
namespace {

using controls::ComboBox;
using controls::Mask;
using controls::TextBox;
using lookups::Choices;

constexpr int kListScript = 5;

/// Shows what the chosen lot says.
template <class Box>
Box* Shown(Box* box) {
  box->setReadOnly(true);
  box->setFocusPolicy(Qt::NoFocus);
  return box;
}

}  // namespace

FrmScriptTransfer::FrmScriptTransfer(controls::Desk& desk)
    : RecordWindow(desk, QStringLiteral("FrmScriptTransfer"),
                   app::ClientTitle(tr("Transfer of Scripts"), desk.session), {790, 540},
                   QStringLiteral("VSF"), Panels::kTogether),
      of_(app::CurrentOf(desk.session)),
      book_(*desk.session.connection, of_) {
  BuildDetails();
  SetColumns();
  Connect();
  Hold({{Field::kDate, "Text1_0"},
        {Field::kAccount, "Combo1"},
        {Field::kToAccount, "Combo2"},
        {Field::kLot, "VS"},
        {Field::kQuantity, "Text1_2"}});
  Start();
}

void FrmScriptTransfer::BuildDetails() {
  auto* halves = new QHBoxLayout(Details());
  halves->setContentsMargins(0, 0, 0, 0);
  halves->setSpacing(controls::kMargin);
  auto* left = new QWidget();
  auto* fields = new controls::FieldLayout(1, left);
  fields->setContentsMargins(0, 0, 0, 0);
  BuildFields(*fields);
  VS = new controls::Grid(QStringLiteral("VS"), tr("Lots of the account"));
  halves->addWidget(left, 5);
  halves->addWidget(VS, 6);
  SetTabOrder();
}

void FrmScriptTransfer::BuildFields(controls::FieldLayout& fields) {
  const auto add = [&](Box place, const QString& label, TextBox* box) {
    Text1[place] = fields.Add(label, QStringLiteral("Text1_%1").arg(place), box);
  };
  date_ = new controls::DateBox();
  add(Date, tr("Date"), date_);
  Combo1 = fields.Add(tr("&From Demat A/c"), QStringLiteral("Combo1"), new ComboBox());
  fields.Add(tr("To"), QStringLiteral("FraTo"), BuildOptions());
  Combo2 = fields.Add(tr("To D&emat A/c"), QStringLiteral("Combo2"), new ComboBox());
  add(Script, tr("Script Name"), Shown(new TextBox()));
  add(Rate, tr("Rate"), Shown(new controls::AmountBox()));
  add(Quantity, tr("Quantity"), new controls::NumberBox());
  Watch(date_);
}

QWidget* FrmScriptTransfer::BuildOptions() {
  auto* options = new QWidget();
  auto* row = new QHBoxLayout(options);
  row->setContentsMargins(0, 0, 0, 0);
  Option1 = new QRadioButton(tr("O&wn account"));
  Option1->setObjectName(QStringLiteral("Option1"));
  Option1->setChecked(true);
  Option2 = new QRadioButton(tr("Another cl&ient"));
  Option2->setObjectName(QStringLiteral("Option2"));
  row->addWidget(Option1);
  row->addWidget(Option2);
  row->addStretch(1);
  return options;
}

void FrmScriptTransfer::SetColumns() {
  database::Connection& connection = *Session().connection;
  const QString scrips = lookups::ChoiceList(connection, Choices::kScripNames);
  const QString accounts = lookups::ChoiceList(connection, Choices::kAccounts);
  VS->SetColumns({{.heading = tr("Script Name"), .choices = scrips},
                  {.heading = tr("Rate"), .mask = Mask::kAmount},
                  {.heading = tr("Quantity"), .mask = Mask::kAmount}});
  List().SetColumns(
      {{.heading = tr("Date"), .mask = Mask::kDate},
       {.heading = tr("From A/c"), .choices = accounts},
       {.heading = tr("To"),
        .choices = QStringLiteral("#0;%1|#1;%2").arg(tr("Own Account"), tr("Another Client"))},
       {.heading = tr("To A/c"), .choices = accounts},
       {.heading = tr("To Client"), .choices = ClientChoiceList(connection)},
       {.heading = tr("Script Name"), .choices = scrips},
       {.heading = tr("Rate"), .mask = Mask::kAmount},
       {.heading = tr("Quantity"), .mask = Mask::kAmount}});
  Combo1->SetItems(lookups::AccountItems(connection, of_.client));
}

/// The lot is picked after both accounts are known, and before its quantity.
void FrmScriptTransfer::SetTabOrder() {
  setTabOrder(Combo2, VS);
  setTabOrder(VS, Text1[Quantity]);
}

void FrmScriptTransfer::Connect() {
  On(Combo1, &QComboBox::currentIndexChanged, &FrmScriptTransfer::Combo1_Click,
     QStringLiteral("Combo1_Click"));
  On(Option1, &QAbstractButton::toggled, &FrmScriptTransfer::Option1_Click,
     QStringLiteral("Option1_Click"));
  On(VS, &controls::Grid::CurrentRowChanged, &FrmScriptTransfer::VS_RowColChange,
     QStringLiteral("VS_RowColChange"));
  On(VS, &controls::Grid::RowActivated, &FrmScriptTransfer::VS_DblClick,
     QStringLiteral("VS_DblClick"));
  On(Text1[Quantity], &TextBox::Left, &FrmScriptTransfer::Text1_Validate,
     QStringLiteral("Text1_Validate"));
  On(this, &ChildWindow::Closed, &FrmScriptTransfer::Form_Unload, QStringLiteral("Form_Unload"));
}

void FrmScriptTransfer::FillList() {
  held_ = book_.Begin(std::nullopt);
  transfers_ = book_.List();
  std::vector<controls::Row> rows;
  for (const Transfer& transfer : transfers_) {
    rows.push_back(
        {.id = transfer.id.value,
         .cells = {transfer.date, transfer.from.value, transfer.to_client == of_.client ? 0 : 1,
                   transfer.to.value, transfer.to_client.value, transfer.scrip.value, transfer.rate,
                   transfer.quantity.Number()}});
  }
  List().SetRows(std::move(rows));
}

void FrmScriptTransfer::Clear() {
  const QScopedValueRollback<bool> filling(filling_, true);
  shown_ = {};
  for (TextBox* box : Text1) {
    box->clear();
  }
  Combo1->Clear();
  Option1->setChecked(true);
  FillDestinations();
  ShowLots();
}

void FrmScriptTransfer::Load(int id) {
  const auto found = std::ranges::find(transfers_, TransferId{id}, &Transfer::id);
  if (found == transfers_.end()) {
    return;
  }
  const QScopedValueRollback<bool> filling(filling_, true);
  shown_ = *found;
  date_->SetDate(shown_.date);
  Text1[Quantity]->setText(text::NumberText(shown_.quantity.Number()));
  Combo1->ById(shown_.from.value);
  (shown_.to_client == of_.client ? Option1 : Option2)->setChecked(true);
  FillDestinations();
  Combo2->ById(shown_.to.value);
  ShowLots();
}

/// The lots are those of the ledger as it is now; a transfer that is changed is taken back on them.
void FrmScriptTransfer::BeginEditing() {
  const QScopedValueRollback<bool> filling(filling_, true);
  held_ = book_.Begin(shown_.id ? std::optional(shown_) : std::nullopt);
  ShowLots();
}

MaybeRefusal FrmScriptTransfer::Save() {
  return Saved(book_.Save(Entered()));
}

void FrmScriptTransfer::Remove(int id) {
  if (const MaybeRefusal refusal = book_.Delete(TransferId{id})) {
    Show(*refusal);
  }
}

/// The lots are read again when an edit ends.
void FrmScriptTransfer::StateChanged() {
  const bool ended = was_editing_ && !IsEditing();
  was_editing_ = IsEditing();
  if (ended) {
    held_ = book_.Begin(std::nullopt);
  }
}

void FrmScriptTransfer::FillDestinations() {
  if (Option1->isChecked() == destinations_are_own_) {
    Combo2->Clear();
    return;
  }
  destinations_are_own_ = Option1->isChecked();
  database::Connection& connection = *Session().connection;
  Combo2->SetItems(*destinations_are_own_ ? lookups::AccountItems(connection, of_.client)
                                          : AccountsOfOtherClients(connection, of_.client));
}

void FrmScriptTransfer::ShowLots() {
  const QScopedValueRollback<bool> filling(filling_, true);
  lots_.clear();
  if (const AccountId account{Combo1->CurrentId()}) {
    lots_ = held_.Of({of_, account});
    std::erase_if(lots_, [](const records::Lot& lot) { return lot.quantity <= Shares(); });
  }
  std::vector<controls::Row> rows;
  for (const records::Lot& lot : lots_) {
    rows.push_back(
        {.id = lot.id.value, .cells = {lot.scrip.value, lot.rate, lot.quantity.Number()}});
  }
  VS->SetRows(std::move(rows));
  const records::Lot* lot = LotOf(shown_);
  VS->SelectId(lot == nullptr ? 0 : lot->id.value);
  ShowLot();
}

const records::Lot* FrmScriptTransfer::FindLot(LotId id) const {
  const auto found = std::ranges::find(lots_, id, &records::Lot::id);
  return found == lots_.end() ? nullptr : &*found;
}

/// By its number, or by what makes a lot when it was numbered anew since.
const records::Lot* FrmScriptTransfer::LotOf(const Transfer& transfer) const {
  if (transfer.from.value != Combo1->CurrentId()) {
    return nullptr;
  }
  const auto found = std::ranges::find_if(lots_, [&](const records::Lot& lot) {
    return lot.scrip == transfer.scrip && lot.rate == transfer.rate;
  });
  return found == lots_.end() ? nullptr : &*found;
}

void FrmScriptTransfer::ShowLot() {
  const controls::GridModel& list = List().Model();
  if (const records::Lot* lot = FindLot(LotId{VS->CurrentId()})) {
    Text1[Script]->setText(VS->Model().Text(VS->CurrentRow(), 0));
    Text1[Rate]->setText(text::FormatAmount(lot->rate));
  } else if (const int row = list.RowOf(shown_.id.value); !IsEditing() && row >= 0) {
    // The transfer that is looked at has taken all that its lot had.
    Text1[Script]->setText(list.Text(row, kListScript));
    Text1[Rate]->setText(text::FormatAmount(shown_.rate));
  } else {
    Text1[Script]->clear();
    Text1[Rate]->clear();
  }
}

Transfer FrmScriptTransfer::Entered() const {
  Transfer transfer;
  transfer.id = TransferId{CurrentId()};
  transfer.date = date_->IsProper() ? date_->DateText() : date_->text();
  transfer.from = AccountId{Combo1->CurrentId()};
  transfer.to = AccountId{Combo2->CurrentId()};
  transfer.lot = LotId{VS->CurrentId()};
  transfer.quantity = Shares(text::Val(Text1[Quantity]->text()));
  return transfer;
}

void FrmScriptTransfer::Combo1_Click() {
  if (!filling_) {
    ShowLots();
  }
}

void FrmScriptTransfer::Option1_Click() {
  if (!filling_) {
    FillDestinations();
  }
}

void FrmScriptTransfer::VS_RowColChange() {
  if (!filling_) {
    VS->SelectRow(VS->CurrentRow());
    ShowLot();
  }
}

void FrmScriptTransfer::VS_DblClick() {
  Text1[Quantity]->setFocus(Qt::TabFocusReason);
}

void FrmScriptTransfer::Text1_Validate() {
  const records::Lot* lot = FindLot(LotId{VS->CurrentId()});
  if (!IsEditing() || lot == nullptr || IsCancelling()) {
    return;
  }
  if (const MaybeRefusal refusal =
          CheckBalance(Shares(text::Val(Text1[Quantity]->text())), lot->quantity)) {
    Show(*refusal);
  }
}

void FrmScriptTransfer::Form_Unload() {
  book_.End();
}

}  // namespace quorvane::transfers
