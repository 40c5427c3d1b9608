#include "masters/window/FrmContact.h"

#include "core/lookups/Choices.h"
#include "masters/window/BoxName.h"

namespace quorvane::masters {

using controls::ComboBox;
using controls::FieldLayout;
using controls::TextBox;

FrmContact::FrmContact(controls::Desk& desk, const QString& name, const QString& title,
                       QSize designed, AddressBook address_book)
    : RecordWindow(desk, name, title, designed, QStringLiteral("VSF")),
      address_book_(address_book) {
  Hold({{Field::kName, BoxName(Name)}});
  Hold(ContactControls(Address));
}

void FrmContact::AddContact(FieldLayout& fields) {
  constexpr int kWhole = 2;
  Text1[Name] = AddBox(fields, Name, tr("Na&me"), kWhole);
  address_ = fields.Add(tr("Addre&ss"), BoxName(Address), new controls::LinesBox(), kWhole);
  Text1[City] = AddBox(fields, City, tr("&City"));
  Combo1 = fields.Add(tr("Stat&e"), QStringLiteral("Combo1"),
                      new ComboBox(nullptr, ComboBox::Entry::kFreeText));
  Combo1->SetTexts(
      lookups::FillStateList(Session().folders.data + QStringLiteral("/statelist.txt")));
  Text1[Pin] = AddBox(fields, Pin, tr("P&IN"));
  Text1[Std] = AddBox(fields, Std, tr("S&TD Code"));
  Text1[Phone] = AddBox(fields, Phone, tr("P&hone"));
  Text1[Mobile] = AddBox(fields, Mobile, tr("Mo&bile"));
  Text1[Fax] = AddBox(fields, Fax, tr("Fa&x"));
  Text1[Email] = AddBox(fields, Email, tr("E-Mai&l"));
  Text1[Email]->SetUpperCase(false);
  Complete();
}

void FrmContact::ClearContact() {
  for (TextBox* box : Text1) {
    if (box != nullptr) {
      box->clear();
    }
  }
  address_->clear();
  Combo1->Clear();
}

void FrmContact::ShowContact(const QString& name, const Contact& contact) {
  Text1[Name]->setText(name);
  address_->setText(contact.address);
  Text1[City]->setText(contact.city);
  Combo1->ByText(contact.state);
  Text1[Pin]->setText(contact.pin);
  Text1[Std]->setText(contact.std_code);
  Text1[Phone]->setText(contact.phone);
  Text1[Mobile]->setText(contact.mobile);
  Text1[Fax]->setText(contact.fax);
  Text1[Email]->setText(contact.email);
}

QString FrmContact::EnteredName() const {
  return Text1[Name]->text();
}

Contact FrmContact::EnteredContact() const {
  return {.address = address_->text(),
          .city = Text1[City]->text(),
          .state = Combo1->currentText(),
          .pin = Text1[Pin]->text(),
          .std_code = Text1[Std]->text(),
          .phone = Text1[Phone]->text(),
          .mobile = Text1[Mobile]->text(),
          .fax = Text1[Fax]->text(),
          .email = Text1[Email]->text()};
}

TextBox* FrmContact::AddBox(FieldLayout& fields, Box box, const QString& label, int span) {
  return fields.Add(label, BoxName(box), new TextBox(), span);
}

void FrmContact::Complete() {
  database::Connection& connection = *Session().connection;
  CompleteFrom(Text1[City], [this, &connection] { return Cities(connection, address_book_); });
  CompleteFrom(Text1[Pin], [this, &connection] {
    return PinsOf(connection, address_book_, Text1[City]->text());
  });
  CompleteFrom(Text1[Std], [this, &connection] {
    return StdCodesOf(connection, address_book_, Text1[City]->text());
  });
}

}  // namespace quorvane::masters
