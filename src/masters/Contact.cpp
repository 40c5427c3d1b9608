#include "masters/Contact.h"

#include <QCoreApplication>

namespace quorvane::masters {

Contact ContactOf(const database::Recordset& row, std::size_t first) {
  return {row.Text(first),     row.Text(first + 1), row.Text(first + 2),
          row.Text(first + 3), row.Text(first + 4), row.Text(first + 5),
          row.Text(first + 6), row.Text(first + 7), row.Text(first + 8)};
}

void AppendCells(std::vector<database::TextCell>& cells, const Contact& contact) {
  const auto add = [&](std::string_view column, const char* label, const QString& text,
                       Field field) {
    cells.push_back({column, label, text, field});
  };
  add("City", QT_TRANSLATE_NOOP("Masters", "City"), contact.city, Field::kCity);
  add("State", QT_TRANSLATE_NOOP("Masters", "State"), contact.state, Field::kState);
  add("PIN", QT_TRANSLATE_NOOP("Masters", "PIN"), contact.pin, Field::kPin);
  add("STD", QT_TRANSLATE_NOOP("Masters", "STD Code"), contact.std_code, Field::kStdCode);
  add("Phone", QT_TRANSLATE_NOOP("Masters", "Phone"), contact.phone, Field::kPhone);
  add("Mobile", QT_TRANSLATE_NOOP("Masters", "Mobile"), contact.mobile, Field::kMobile);
  add("Fax", QT_TRANSLATE_NOOP("Masters", "Fax"), contact.fax, Field::kFax);
  add("EMail", QT_TRANSLATE_NOOP("Masters", "E-Mail"), contact.email, Field::kEmail);
}

}  // namespace quorvane::masters
