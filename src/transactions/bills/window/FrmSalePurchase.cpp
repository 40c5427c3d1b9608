#include "transactions/bills/window/FrmSalePurchase.h"

#include "core/app/CurrentClient.h"
#include "core/app/Ini.h"
#include "core/text/Amounts.h"
#include "transactions/bills/BillChecks.h"
#include "transactions/bills/window/ControlName.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>
#include <stdexcept>

namespace quorvane::bills {
namespace {

using controls::Answer;
using controls::Grid;
using controls::Icon;
using controls::Mask;
using controls::Row;
using controls::ZENButton;

bool RoundsStt(const app::Folders& folders) {
  return app::IniFile(folders.config_file)
             .Read(QStringLiteral("Bills"), QStringLiteral("WholeRupeeStt"))
             .compare(QLatin1String("yes"), Qt::CaseInsensitive) == 0;
}

QString TextOf(std::span<const Piece> pieces) {
  QStringList lines;
  for (const Piece& piece : pieces) {
    const auto& since = piece.from.since;
    lines +=
        FrmSalePurchase::tr("%1 at %2, held since %3")
            .arg(text::NumberText(piece.quantity.Number()), text::FormatAmount(piece.from.lot.rate),
                 since ? text::FormatDmy(*since) : QStringLiteral("-"));
  }
  return lines.join(QLatin1Char('\n'));
}

}  // namespace

FrmSalePurchase::FrmSalePurchase(controls::Desk& desk, RateSource rates)
    : RecordWindow(desk, QStringLiteral("FrmSalePurchase"),
                   app::ClientTitle(tr("Sale / Purchase"), desk.session), {796, 540},
                   QStringLiteral("VSF")),
      of_(app::CurrentOf(desk.session)),
      book_(*desk.session.connection, of_),
      entry_(*desk.session.connection, of_),
      rates_(rates ? std::move(rates) : AskExchanges(desk.session.folders)) {
  List().SetColumns({{.heading = tr("Bill No.")},
                     {.heading = tr("Date"), .mask = Mask::kDate},
                     {.heading = tr("Broker")},
                     {.heading = tr("Exchange")},
                     {.heading = tr("Demat A/c")},
                     {.heading = tr("Total"), .mask = Mask::kAmount}});
  auto* rows = new QVBoxLayout(Details());
  rows->setContentsMargins(0, 0, 0, 0);
  page_ = new BillPane(TheGuard(), *Session().connection, of_.year, this);
  rows->addWidget(page_);
  page_->Line().SetSttInWholeRupees(RoundsStt(Session().folders));
  Watch(page_->Head().DateBox());
  page_->ReadChoices(*Session().connection, of_.client);
  HoldFields();
  BuildSearch();
  Connect();
  Start();
}

void FrmSalePurchase::HoldFields() {
  Hold({{Field::kNumber, ControlName(BillBox::kNumber)},
        {Field::kDate, ControlName(BillBox::kDate)},
        {Field::kSettlementNumber, ControlName(BillBox::kSettlementNumber)},
        {Field::kBroker, ControlName(BillBox::kBroker)},
        {Field::kExchange, "Combo1"},
        {Field::kAccount, "Combo2"},
        {Field::kSide, "Combo3"},
        {Field::kScrip, "Combo4"},
        {Field::kScripCode, "TxtScr"},
        {Field::kLot, "VS3"},
        {Field::kQuantity, ControlName(BillBox::kQuantity)},
        {Field::kLine, "CmdUpdate1"},
        {Field::kLines, "Vs1"}});
}

void FrmSalePurchase::BuildSearch() {
  TxtSearch = new controls::TextBox();
  TxtSearch->setObjectName(QStringLiteral("TxtSearch"));
  TxtSearch->setAccessibleName(tr("Search"));
  TxtSearch->setPlaceholderText(tr("Search bill no., date or broker"));
  TxtSearch->setClearButtonEnabled(true);
  Buttons()->addWidget(TxtSearch, 1);
}

void FrmSalePurchase::Connect() {
  On(page_->Head().DateBox(), &controls::TextBox::Left, &FrmSalePurchase::Text1_Date_Left,
     QStringLiteral("Text1_Validate"));
  On(&page_->Head(), &BillHeaderPane::AccountChosen, &FrmSalePurchase::Combo2_Click,
     QStringLiteral("Combo2_Click"));
  On(&page_->Line(), &BillLinePane::ScripChosen, &FrmSalePurchase::Scrip_Chosen,
     QStringLiteral("Combo4_Click"));
  On(&page_->Line(), &BillLinePane::SideChosen, &FrmSalePurchase::Side_Chosen,
     QStringLiteral("Combo3_Click"));
  On(&page_->Line(), &BillLinePane::QuantityLeft, &FrmSalePurchase::Quantity_Left,
     QStringLiteral("Text1_Validate"));
  On(&page_->Line(), &BillLinePane::CodeUnknown, &FrmSalePurchase::Code_Unknown,
     QStringLiteral("TxtScr_Validate"));
  On(&page_->Foot(), &BillTotalsPane::ChargesLeft, &FrmSalePurchase::Charges_Left,
     QStringLiteral("Text1_Validate"));
  On(&page_->Lines(), &Grid::CurrentRowChanged, &FrmSalePurchase::VS1_RowChanged,
     QStringLiteral("Vs1_RowColChange"));
  On(&page_->Lines(), &Grid::RowActivated, &FrmSalePurchase::VS1_RowActivated,
     QStringLiteral("Vs1_DblClick"));
  On(page_->Holdings().Balance(), &Grid::RowActivated, &FrmSalePurchase::VS3_RowActivated,
     QStringLiteral("VS3_DblClick"));
  On(TxtSearch, &QLineEdit::textChanged, &FrmSalePurchase::TxtSearch_Change,
     QStringLiteral("TxtSearch_Change"));
  On(this, &ChildWindow::Closed, &FrmSalePurchase::Form_Unload, QStringLiteral("Form_Unload"));
  ConnectLineButtons();
}

void FrmSalePurchase::ConnectLineButtons() {
  OnClick(&page_->Button(LineCommand::kAdd), &FrmSalePurchase::CmdAdd1_Click);
  OnClick(&page_->Button(LineCommand::kModify), &FrmSalePurchase::CmdModify1_Click);
  OnClick(&page_->Button(LineCommand::kUpdate), &FrmSalePurchase::CmdUpdate1_Click);
  OnClick(&page_->Button(LineCommand::kDelete), &FrmSalePurchase::CmdDelete1_Click);
  OnClick(&page_->Button(LineCommand::kCancel), &FrmSalePurchase::cmdCancel1_Click);
  OnClick(page_->Holdings().Refresh(), &FrmSalePurchase::ImgRefresh_Click);
}

void FrmSalePurchase::FillList() {
  listed_ = ListBills(*Session().connection, of_);
  for (const ListedBill& listed : listed_) {
    if (listed.bill.id > last_.id) {
      last_ = listed.bill;
    }
  }
  ShowFound();
}

/// The bills that the search finds.
void FrmSalePurchase::ShowFound() {
  std::vector<Row> rows;
  for (const ListedBill& listed : listed_) {
    const Bill& bill = listed.bill;
    if (listed.Has(TxtSearch->text())) {
      rows.push_back({.id = bill.id.value,
                      .cells = {bill.number, bill.date, listed.broker, listed.exchange,
                                listed.account, bill.grand_total}});
    }
  }
  List().SetRows(std::move(rows));
}

void FrmSalePurchase::Clear() {
  shown_ = {};
  page_->Show(shown_, Caption());
  page_->Holdings().ShowBalance({}, {}, page_->Line().Scrips());
  page_->Holdings().ShowAverages({}, page_->Line().Scrips());
}

void FrmSalePurchase::Load(int id) {
  const std::optional<Bill> bill = book_.Load(BillId{id});
  if (!bill) {
    throw std::runtime_error(tr("This Bill was Deleted in the Meantime.").toStdString());
  }
  shown_ = *bill;
  page_->Show(shown_, Caption());
  ShowHoldings();
}

void FrmSalePurchase::BeginEditing() {
  page_->ReadChoices(*Session().connection, of_.client);
  if (CurrentId() == 0) {
    shown_ = NewBill();
  }
  entry_.Begin(shown_);
  page_->Line().Reset();
  page_->Show(shown_, Caption());
  ShowHoldings();
}

// The bills of a day mostly come from one broker, exchange and account.
Bill FrmSalePurchase::NewBill() {
  Bill bill;
  bill.broker = last_.broker;
  bill.exchange = last_.exchange;
  bill.account = page_->Head().AccountToBeginWith(last_.account);
  return bill;
}

MaybeRefusal FrmSalePurchase::Save() {
  TakeHeader();
  TakeCharges();
  if (MaybeRefusal refusal = CheckBill(entry_.Current(), of_.year)) {
    return refusal;
  }
  if (line_state_ != LineState::kNone && !page_->Line().Entry().IsEmpty()) {
    return Refusal{tr("The Line is not in the Bill yet. Update or Cancel it First."), Field::kLine};
  }
  if (MaybeRefusal refusal = entry_.CheckLots()) {
    return refusal;
  }
  if (entry_.IsTwin() && !AsksForTwin()) {
    return Refusal{{}, Field::kNumber};
  }
  MaybeRefusal refusal = entry_.Save();
  if (!refusal) {
    SetCurrentId(entry_.Current().id.value);
    last_ = entry_.Current();
    TxtSearch->clear();
  }
  return refusal;
}

bool FrmSalePurchase::AsksForTwin() {
  const Bill& bill = entry_.Current();
  return Say().Ask(tr("There is a Bill No. %1 of this Broker on %2 already.\n\nSave this one, too?")
                       .arg(bill.number, bill.date),
                   Answer::kNo, Icon::kInformation);
}

void FrmSalePurchase::Remove(int id) {
  Accepts(book_.Delete(BillId{id}));
}

void FrmSalePurchase::StateChanged() {
  Details()->setEnabled(true);
  TxtSearch->setEnabled(!IsEditing());
  SetLineState(LineState::kNone);
  if (!IsEditing() && entry_.IsOpen()) {
    TheGuard().Run(QStringLiteral("cmdCancel_Click"), [this] { entry_.Cancel(); });
  }
}

void FrmSalePurchase::EscapePressed() {
  if (line_state_ != LineState::kNone) {
    page_->Button(LineCommand::kCancel).setFocus(Qt::ShortcutFocusReason);
    page_->Button(LineCommand::kCancel).click();
  } else {
    RecordWindow::EscapePressed();
  }
}

QString FrmSalePurchase::GiveUpQuestion() const {
  return tr("The bill is not saved. Give it up?");
}

void FrmSalePurchase::Form_Unload() {
  if (entry_.IsOpen()) {
    entry_.Cancel();
  }
}

void FrmSalePurchase::TakeHeader() {
  entry_.SetHeader(page_->Head().Entered());
}

void FrmSalePurchase::TakeCharges() {
  entry_.SetCharges(page_->Foot().OtherCharges(), page_->Foot().TransactionCharges());
  page_->Foot().Show(Shown(), Caption());
}

records::TotalCaption FrmSalePurchase::Caption() const {
  return IsEditing() ? entry_.Caption() : records::SavedCaption(shown_.grand_total);
}

void FrmSalePurchase::ShowBalance() {
  page_->Holdings().ShowBalance(page_->Head().AccountNumber(), entry_.Balance(),
                                page_->Line().Scrips());
}

void FrmSalePurchase::ShowAverages(std::span<const records::Movement> movements) {
  database::Connection& connection = *Session().connection;
  RebuildAverageRates(connection, PlaceOfBill(), movements);
  page_->Holdings().ShowAverages(ReadAverageRates(connection, PlaceOfBill()),
                                 page_->Line().Scrips());
}

void FrmSalePurchase::ShowHoldings() {
  if (entry_.IsOpen()) {
    ShowBalance();
    ShowAverages(entry_.Movements());
    return;
  }
  database::Connection& connection = *Session().connection;
  const std::vector<records::Movement> movements = ReadAccount(connection, PlaceOfBill());
  page_->Holdings().ShowBalance(page_->Head().AccountNumber(),
                                ReadBalance(connection, PlaceOfBill(), movements),
                                page_->Line().Scrips());
  ShowAverages(movements);
}

void FrmSalePurchase::SetLineState(LineState state) {
  line_state_ = state;
  if (state == LineState::kNone) {
    ++question_;
    page_->Line().Begin();
  }
  page_->SetEditing(IsEditing(), state != LineState::kNone);
}

std::optional<std::size_t> FrmSalePurchase::ChangedLine() const {
  return line_state_ == LineState::kChanging ? std::optional(changed_line_) : std::nullopt;
}

bool FrmSalePurchase::Accepts(const MaybeRefusal& refusal) {
  if (refusal) {
    Show(*refusal);
  }
  return !refusal;
}

void FrmSalePurchase::Text1_Date_Left() {
  if (IsCancelling() || !page_->Head().DateBox()->IsProper()) {
    return;
  }
  const QString date = page_->Head().DateBox()->DateText();
  const ScripId scrip = page_->Line().Entry().Scrip();
  if (Accepts(CheckYear(date, of_.year)) && line_state_ != LineState::kNone && scrip &&
      !CheckDate(date, TheDesk().today())) {
    OfferRate(scrip);
  }
}

void FrmSalePurchase::Combo2_Click(int account) {
  if (!IsEditing()) {
    return;
  }
  if (!Accepts(entry_.ChooseAccount(AccountId{account}))) {
    page_->Head().ShowAccount(entry_.Current().account);
    return;
  }
  const std::size_t sales = entry_.SalesWithoutLot();
  if (sales > 0 &&
      Say().Ask(tr("%1 of the Bill's Sales name no Lot. Take the oldest Lots of the Demat A/c?")
                    .arg(sales),
                Answer::kYes, Icon::kInformation)) {
    Accepts(entry_.TakeOldestLots());
  }
  page_->ShowLines(Shown(), Caption());
  ShowHoldings();
}

void FrmSalePurchase::Scrip_Chosen(int scrip) {
  Side_Chosen();
  OfferRate(ScripId{scrip});
}

// A sale of a scrip that lies in one lot draws on it; of several the user picks one.
void FrmSalePurchase::Side_Chosen() {
  const LineEntry& entry = page_->Line().Entry();
  if (!entry.Scrip() || entry.Lot()) {
    return;
  }
  page_->Holdings().BringUp(entry.Scrip(), page_->Line().Scrips());
  if (entry.GetSide() != Side::kSale) {
    return;
  }
  if (const std::optional<records::Lot> lot = page_->Holdings().OnlyLotOf(entry.Scrip())) {
    page_->Line().PickLot(*lot);
  }
}

void FrmSalePurchase::OfferRate(ScripId scrip) {
  const int question = ++question_;
  const QString date = page_->Head().DateBox()->DateText();
  if (!Accepts(CheckDate(date, TheDesk().today()))) {
    return;
  }
  const ScripFound* found = page_->Line().Scrips().Find(scrip);
  if (const auto rate = MarketRateOf(*Session().connection, of_.year, scrip, date)) {
    page_->Line().OfferRate(*rate);
  } else if (found != nullptr) {
    rates_({page_->Head().ExchangeName(), *found, *text::ParseDmy(date), TheDesk().today()},
           [this, question](double found_rate) {
             if (question == question_ && found_rate > 0) {
               TheGuard().Run(QStringLiteral("TxtScr_Validate"),
                              [&] { page_->Line().OfferRate(found_rate); });
             }
           });
  }
}

void FrmSalePurchase::Quantity_Left() {
  if (!IsCancelling() && line_state_ != LineState::kNone) {
    Accepts(entry_.CheckQuantity(page_->Line().Entry().Entered(), ChangedLine()));
  }
}

void FrmSalePurchase::Code_Unknown(const QString& code) {
  if (!IsCancelling()) {
    Accepts(Refusal{tr("There is no Scrip of the Code %1.").arg(code), Field::kScripCode});
  }
}

void FrmSalePurchase::Charges_Left() {
  if (entry_.IsOpen()) {
    TakeCharges();
  }
}

void FrmSalePurchase::VS1_RowChanged() {
  page_->SetEditing(IsEditing(), line_state_ != LineState::kNone);
}

void FrmSalePurchase::VS1_RowActivated() {
  if (page_->Button(LineCommand::kModify).isEnabled()) {
    CmdModify1_Click();
  }
}

void FrmSalePurchase::VS3_RowActivated() {
  const std::optional<records::Lot> lot = page_->Holdings().CurrentLot();
  if (!IsEditing() || !lot) {
    return;
  }
  if (line_state_ == LineState::kNone) {
    CmdAdd1_Click();
  }
  if (line_state_ != LineState::kNone) {
    page_->Line().PickLot(*lot);
    page_->Line().FocusQuantity();
  }
}

// Another row loads another bill, and the list takes the focus with it.
void FrmSalePurchase::TxtSearch_Change() {
  if (IsEditing()) {
    return;  // Saving clears it and fills the list itself.
  }
  const int cursor = TxtSearch->cursorPosition();
  ShowList();
  ShowFound();
  TxtSearch->setFocus(Qt::OtherFocusReason);
  TxtSearch->setCursorPosition(cursor);
}

/// The date box complained when it was left for a button, and has the focus again.
bool FrmSalePurchase::IsDateRefused() const {
  const controls::DateBox* box = page_->Head().DateBox();
  return box->hasFocus() && !box->IsProper();
}

void FrmSalePurchase::CmdAdd1_Click() {
  TakeHeader();
  if (!IsDateRefused() && Accepts(CheckBeforeLine(entry_.Current()))) {
    SetLineState(LineState::kAdding);
    page_->Line().FocusFirst();
  }
}

void FrmSalePurchase::CmdModify1_Click() {
  changed_line_ = static_cast<std::size_t>(page_->Lines().CurrentRow());
  const BillLine line = entry_.Current().lines.at(changed_line_);
  SetLineState(LineState::kChanging);
  page_->Line().Begin(line);
  page_->Holdings().BringUp(line.scrip, page_->Line().Scrips());
  page_->Line().FocusQuantity();
}

/// A sale that names no lot, or one with too few shares, may take several: a line for each.
MaybeRefusal FrmSalePurchase::PutLine(const BillLine& line) {
  const std::vector<Piece> pieces = entry_.Spread(line, ChangedLine());
  if (!pieces.empty() &&
      Say().Ask(
          tr("Take the Sale from these Lots, with a Line for each?\n\n%1").arg(TextOf(pieces)),
          Answer::kYes, Icon::kInformation)) {
    return entry_.Put(SpreadOver(line, pieces), ChangedLine());
  }
  return entry_.Put(line, ChangedLine());
}

void FrmSalePurchase::CmdUpdate1_Click() {
  const LineEntry& entry = page_->Line().Entry();
  const BillLine line = entry.Entered();
  if (!Accepts(CheckLine(entry.GetSide(), line.scrip, line.quantity)) || !Accepts(PutLine(line))) {
    return;
  }
  const bool another = line_state_ == LineState::kAdding;
  SetLineState(LineState::kNone);
  page_->ShowLines(Shown(), Caption());
  ShowBalance();
  if (another) {
    SetLineState(LineState::kAdding);
    page_->Line().FocusFirst();
  } else {
    page_->Lines().setFocus(Qt::OtherFocusReason);
  }
}

void FrmSalePurchase::CmdDelete1_Click() {
  const int row = page_->Lines().CurrentRow();
  if (row < 0 || !Say().Ask(DeleteQuestion(), Answer::kNo, Icon::kCritical) ||
      !Accepts(entry_.Remove(static_cast<std::size_t>(row)))) {
    return;
  }
  page_->ShowLines(Shown(), Caption());
  ShowBalance();
  page_->Lines().SelectRow(std::min(row, page_->Lines().Model().RowCount() - 1));
  SetLineState(LineState::kNone);
  page_->Lines().setFocus(Qt::OtherFocusReason);
}

void FrmSalePurchase::cmdCancel1_Click() {
  SetLineState(LineState::kNone);
  ShowAverages(ReadAccount(*Session().connection, PlaceOfBill()));
  page_->Button(LineCommand::kAdd).setFocus(Qt::OtherFocusReason);
}

void FrmSalePurchase::ImgRefresh_Click() {
  if (entry_.IsOpen() && !Accepts(entry_.Refresh())) {
    return;
  }
  page_->ShowLines(Shown(), Caption());
  ShowHoldings();
  Say().Inform(tr("Refresh Successfully!"));
}

}  // namespace quorvane::bills
