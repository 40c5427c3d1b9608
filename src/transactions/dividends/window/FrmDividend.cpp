#include "transactions/dividends/window/FrmDividend.h"

#include "controls/FieldLayout.h"
#include "core/app/Session.h"
#include "core/lookups/Choices.h"
#include "core/text/Amounts.h"

#include <algorithm>

namespace quorvane::dividends {
namespace {

using controls::ComboBox;
using controls::Mask;
using controls::TextBox;

}  // namespace

FrmDividend::FrmDividend(controls::Desk& desk)
    : RecordWindow(desk, QStringLiteral("FrmDividend"),
                   app::ClientTitle(tr("Dividends"), desk.session), {780, 520},
                   QStringLiteral("VSF"), Panels::kTogether),
      of_(app::CurrentOf(desk.session)),
      book_(*desk.session.connection, of_) {
  BuildFields();
  SetListColumns();
  Hold({{Field::kScrip, QStringLiteral("Combo1")},
        {Field::kAccount, QStringLiteral("Combo2")},
        {Field::kDate, QStringLiteral("Text1_0")},
        {Field::kQuantity, QStringLiteral("Text1_1")},
        {Field::kRate, QStringLiteral("Text1_2")},
        {Field::kTax, QStringLiteral("Text1_3")}});
  Start();
}

void FrmDividend::BuildFields() {
  constexpr int kTwoColumns = 2;
  auto* fields = new controls::FieldLayout(3, Details());
  Combo1 = fields->Add(tr("&Script Name"), QStringLiteral("Combo1"), new ComboBox(), kTwoColumns);
  Combo2 = fields->Add(tr("D&emat A/c No."), QStringLiteral("Combo2"), new ComboBox());
  date_ = fields->Add(tr("Da&te"), QStringLiteral("Text1_0"), new controls::DateBox());
  TxtQuantity = fields->Add(tr("&Quantity"), QStringLiteral("Text1_1"), new controls::NumberBox());
  TxtRate = fields->Add(tr("&Rs a Share"), QStringLiteral("Text1_2"), new controls::NumberBox());
  TxtAmount = fields->Add(tr("Dividend"), QStringLiteral("Text1_4"), new controls::AmountBox());
  TxtTax = fields->Add(tr("Ta&x Deducted"), QStringLiteral("Text1_3"), new controls::AmountBox());
  TxtAmount->setReadOnly(true);
  TxtAmount->setFocusPolicy(Qt::NoFocus);
  Combo2->SetItems(lookups::AccountItems(*Session().connection, of_.client));
  Watch(date_);
  for (TextBox* box : {TxtQuantity, TxtRate}) {
    On(box, &TextBox::Left, &FrmDividend::Text1_Validate, QStringLiteral("Text1_Validate"));
  }
}

void FrmDividend::SetListColumns() {
  database::Connection& connection = *Session().connection;
  List().SetColumns({{.heading = tr("Date"), .mask = Mask::kDate},
                     {.heading = tr("Script Name"),
                      .choices = lookups::ChoiceList(connection, lookups::Choices::kScripNames)},
                     {.heading = tr("Demat A/c No."),
                      .choices = lookups::AccountChoiceList(connection, of_.client)},
                     {.heading = tr("Quantity"), .mask = Mask::kAmount},
                     {.heading = tr("Rs a Share"), .mask = Mask::kQuantity},
                     {.heading = tr("Dividend"), .mask = Mask::kAmount},
                     {.heading = tr("Tax Deducted"), .mask = Mask::kAmount},
                     {.heading = tr("Corporate Action")}});
}

void FrmDividend::FillList() {
  const int scrip = Combo1->CurrentId();
  Combo1->SetItems(lookups::DropDownItems(*Session().connection, lookups::DropDown::kScrips));
  Combo1->ById(scrip);
  listed_ = book_.List();
  std::vector<controls::Row> rows;
  for (const Dividend& dividend : listed_) {
    rows.push_back({.id = dividend.id.value,
                    .cells = {dividend.date, dividend.scrip.value, dividend.account.value,
                              dividend.quantity.Number(), dividend.per_share, dividend.Gross(),
                              dividend.tax_deducted, dividend.action ? tr("Yes") : QString()}});
  }
  List().SetRows(std::move(rows));
}

void FrmDividend::Clear() {
  Combo1->Clear();
  Combo2->Clear();
  for (TextBox* box : {static_cast<TextBox*>(date_), TxtQuantity, TxtRate,
                       static_cast<TextBox*>(TxtTax), TxtAmount}) {
    box->clear();
  }
}

void FrmDividend::Load(int id) {
  const auto found = std::ranges::find(listed_, DividendId{id}, &Dividend::id);
  if (found == listed_.end()) {
    return;
  }
  Combo1->ById(found->scrip.value);
  Combo2->ById(found->account.value);
  date_->setText(found->date);
  TxtQuantity->setText(text::NumberText(found->quantity.Number()));
  TxtRate->setText(text::NumberText(found->per_share));
  TxtTax->setText(text::FormatAmount(found->tax_deducted));
  ShowAmounts();
}

void FrmDividend::BeginEditing() {
  const std::vector<lookups::Item> accounts =
      lookups::AccountItems(*Session().connection, of_.client);
  if (CurrentId() == 0 && accounts.size() == 1) {
    Combo2->ById(accounts.front().id);
  }
}

Dividend FrmDividend::Entered() const {
  Dividend dividend;
  dividend.id = DividendId{CurrentId()};
  dividend.scrip = ScripId{Combo1->CurrentId()};
  dividend.account = AccountId{Combo2->CurrentId()};
  dividend.date = date_->DateText();
  dividend.quantity = text::Shares(text::Val(TxtQuantity->text()));
  dividend.per_share = text::Val(TxtRate->text());
  dividend.tax_deducted = text::Val(TxtTax->text());
  return dividend;
}

void FrmDividend::ShowAmounts() {
  TxtAmount->setText(text::FormatAmount(Entered().Gross()));
}

void FrmDividend::Text1_Validate() {
  ShowAmounts();
}

MaybeRefusal FrmDividend::Save() {
  return Saved(book_.Save(Entered()));
}

void FrmDividend::Remove(int id) {
  book_.Delete(DividendId{id});
}

}  // namespace quorvane::dividends
