#include "masters/Contact.h"

#include <QCoreApplication>

namespace quorvane::masters {

Contact ContactOf(const database::Recordset& row, std::size_t first) {
  return {row.Text(first),     row.Text(first + 1), row.Text(first + 2),
          row.Text(first + 3), row.Text(first + 4), row.Text(first + 5),
          row.Text(first + 6), row.Text(first + 7), row.Text(first + 8)};
}

void AppendValues(std::vector<database::Value>& values, const Contact& contact) {
  for (const QString& text :
       {contact.address, contact.city, contact.state, contact.pin, contact.std_code, contact.phone,
        contact.mobile, contact.fax, contact.email}) {
    values.emplace_back(text);
  }
}

void AppendCells(std::vector<database::TextCell>& cells, const Contact& contact, int address_box) {
  const auto box = [address_box](int after) { return BoxName(address_box + after); };
  cells.push_back({"City", QT_TRANSLATE_NOOP("Masters", "City"), contact.city, box(1)});
  cells.push_back(
      {"State", QT_TRANSLATE_NOOP("Masters", "State"), contact.state, QStringLiteral("Combo1")});
  cells.push_back({"PIN", QT_TRANSLATE_NOOP("Masters", "PIN"), contact.pin, box(2)});
  cells.push_back({"STD", QT_TRANSLATE_NOOP("Masters", "STD Code"), contact.std_code, box(3)});
  cells.push_back({"Phone", QT_TRANSLATE_NOOP("Masters", "Phone"), contact.phone, box(4)});
  cells.push_back({"Mobile", QT_TRANSLATE_NOOP("Masters", "Mobile"), contact.mobile, box(5)});
  cells.push_back({"Fax", QT_TRANSLATE_NOOP("Masters", "Fax"), contact.fax, box(6)});
  cells.push_back({"EMail", QT_TRANSLATE_NOOP("Masters", "E-Mail"), contact.email, box(7)});
}

QString BoxName(int number) {
  return QStringLiteral("Text1_%1").arg(number);
}

std::string Placeholders(std::size_t count) {
  std::string list = "(";
  for (std::size_t i = 0; i < count; ++i) {
    list += i == 0 ? "?" : ",?";
  }
  return list + ")";
}

}  // namespace quorvane::masters
