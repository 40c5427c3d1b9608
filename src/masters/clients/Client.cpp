#include "masters/clients/Client.h"

#include "core/text/Pan.h"

#include <QCoreApplication>

#include <algorithm>

namespace quorvane::clients {
namespace {

using database::TextCell;

constexpr int kGroupCodeBox = 1;
constexpr int kNameBox = 2;
constexpr int kAddressBox = 3;
constexpr int kPanBox = 11;
constexpr int kDocumentBox = 12;

Refusal Refuse(const char* text, const QString& field) {
  return {QCoreApplication::translate("Clients", text), field};
}

QString DateField() {
  return QStringLiteral("MaskEdBox1");
}
QString AccountsField() {
  return QStringLiteral("VS");
}

bool HasNumber(const Account& account) {
  return !account.number.trimmed().isEmpty();
}

MaybeRefusal CheckDateOfBirth(const QString& date) {
  if (date.isEmpty() || text::ParseDmy(date)) {
    return std::nullopt;
  }
  return Refuse(QT_TRANSLATE_NOOP("Clients", "Enter Proper Date."), DateField());
}

std::vector<TextCell> Cells(const Client& client) {
  std::vector<TextCell> cells{
      {"Code", QT_TRANSLATE_NOOP("Masters", "Client Code"), client.code, CodeField()},
      {"GCode", QT_TRANSLATE_NOOP("Masters", "Group Code"), client.group_code,
       masters::BoxName(kGroupCodeBox)},
      {"Name", QT_TRANSLATE_NOOP("Masters", "Client Name"), client.name,
       masters::BoxName(kNameBox)}};
  masters::AppendCells(cells, client.contact, kAddressBox);
  return cells;
}

std::vector<TextCell> AccountCells(const Client& client) {
  std::vector<TextCell> cells;
  for (const Account& account : client.accounts) {
    cells.push_back(
        {"ACNo", QT_TRANSLATE_NOOP("Masters", "Demat A/c No."), account.number, AccountsField()});
  }
  return cells;
}

MaybeRefusal CheckWidths(const Client& client) {
  MaybeRefusal refusal = database::CheckTextWidths("ClientInfo", Cells(client));
  return refusal ? refusal : database::CheckTextWidths("ClientActDet", AccountCells(client));
}

}  // namespace

QString CodeField() {
  return masters::BoxName(0);
}

QString DocumentField() {
  return masters::BoxName(kDocumentBox);
}

QStringList SexItems() {
  return {QCoreApplication::translate("Clients", "Male"),
          QCoreApplication::translate("Clients", "Female"),
          QCoreApplication::translate("Clients", "Other")};
}

QStringList MaritalStatusItems() {
  return {QCoreApplication::translate("Clients", "Single"),
          QCoreApplication::translate("Clients", "Married"),
          QCoreApplication::translate("Clients", "Widowed"),
          QCoreApplication::translate("Clients", "Divorced")};
}

MaybeRefusal CheckEntries(const Client& client) {
  if (client.code.trimmed().isEmpty()) {
    return Refuse(QT_TRANSLATE_NOOP("Clients", "Enter Client Code."), CodeField());
  }
  if (client.name.trimmed().isEmpty()) {
    return Refuse(QT_TRANSLATE_NOOP("Clients", "Enter Client Name."), masters::BoxName(kNameBox));
  }
  if (std::ranges::none_of(client.accounts, HasNumber)) {
    return Refuse(QT_TRANSLATE_NOOP("Clients", "Enter Demat A/c Details."), AccountsField());
  }
  return std::nullopt;
}

MaybeRefusal CheckValues(const Client& client, const Client& stored) {
  if (client.date_of_birth != stored.date_of_birth) {
    if (MaybeRefusal refusal = CheckDateOfBirth(client.date_of_birth)) {
      return refusal;
    }
  }
  if (client.pan != stored.pan) {
    if (MaybeRefusal refusal = CheckPan(client.pan)) {
      return refusal;
    }
  }
  return CheckWidths(client);
}

bool IsEmptyDate(const QString& date) {
  return std::ranges::all_of(
      date, [](QChar c) { return c.isSpace() || c == QChar('_') || c == QChar('/'); });
}

bool IsBlank(const Account& account) {
  return !account.id && !account.participant && !HasNumber(account);
}

MaybeRefusal CheckPan(const QString& pan) {
  if (text::IsValidPan(pan).valid) {
    return std::nullopt;
  }
  return Refuse(QT_TRANSLATE_NOOP("Clients", "Enter Proper PAN."), masters::BoxName(kPanBox));
}

QString PanWarning(const QString& pan) {
  return text::IsValidPan(pan).warning;
}

}  // namespace quorvane::clients
