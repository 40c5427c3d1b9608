#pragma once

#include "controls/ComboBox.h"
#include "controls/FieldLayout.h"
#include "controls/RecordWindow.h"
#include "controls/TextBox.h"
#include "masters/Completions.h"
#include "masters/Contact.h"

#include <array>

namespace quorvane::masters {

/// The base of the windows whose records are a name with an address. "Text1_0" is the name,
/// "Text1_1" the address, "Text1_2" the city, "Combo1" the state; the rest follows from "Text1_3"
/// on. City, PIN and STD code complete from the stored records.
class FrmContact : public controls::RecordWindow {
  Q_OBJECT

 protected:
  enum Box { Name, Address, City, Pin, Std, Phone, Mobile, Fax, Email, kBoxes };

  FrmContact(controls::Desk& desk, const QString& name, const QString& title, QSize designed,
             AddressBook address_book);

  /// Adds the boxes to a layout of two columns.
  void AddContact(controls::FieldLayout& fields);

  void ClearContact();
  void ShowContact(const QString& name, const Contact& contact);
  QString EnteredName() const;
  Contact EnteredContact() const;

 private:
  controls::TextBox* AddBox(controls::FieldLayout& fields, Box box, const QString& label,
                            int span = 1);
  void Complete();

  AddressBook address_book_;
  std::array<controls::TextBox*, kBoxes> Text1{};  ///< none for the address
  controls::LinesBox* address_ = nullptr;
  controls::ComboBox* Combo1 = nullptr;
};

}  // namespace quorvane::masters
