#include "masters/clients/Client.h"

#include "core/text/Pan.h"
#include "core/text/Tr.h"

#include <algorithm>

namespace quorvane::clients {
namespace {

using database::TextCell;

bool HasNumber(const Account& account) {
  return !account.number.trimmed().isEmpty();
}

MaybeRefusal CheckDateOfBirth(const QString& date) {
  if (date.isEmpty() || text::ParseDmy(date)) {
    return std::nullopt;
  }
  return Refusal{Tr("Clients", "Enter Proper Date."), Field::kDateOfBirth};
}

std::vector<TextCell> Cells(const Client& client) {
  std::vector<TextCell> cells{
      {"Code", QT_TRANSLATE_NOOP("Masters", "Client Code"), client.code, Field::kCode},
      {"GCode", QT_TRANSLATE_NOOP("Masters", "Group Code"), client.group_code, Field::kGroupCode},
      {"Name", QT_TRANSLATE_NOOP("Masters", "Client Name"), client.name, Field::kName}};
  masters::AppendCells(cells, client.contact);
  return cells;
}

std::vector<TextCell> AccountCells(const Client& client) {
  std::vector<TextCell> cells;
  for (const Account& account : client.accounts) {
    cells.push_back(
        {"ACNo", QT_TRANSLATE_NOOP("Masters", "Demat A/c No."), account.number, Field::kAccounts});
  }
  return cells;
}

MaybeRefusal CheckWidths(const Client& client) {
  MaybeRefusal refusal = database::CheckTextWidths("ClientInfo", Cells(client));
  return refusal ? refusal : database::CheckTextWidths("ClientActDet", AccountCells(client));
}

}  // namespace

QStringList SexItems() {
  return {Tr("Clients", "Male"), Tr("Clients", "Female"), Tr("Clients", "Other")};
}

QStringList MaritalStatusItems() {
  return {Tr("Clients", "Single"), Tr("Clients", "Married"), Tr("Clients", "Widowed"),
          Tr("Clients", "Divorced")};
}

MaybeRefusal CheckEntries(const Client& client) {
  if (client.code.trimmed().isEmpty()) {
    return Refusal{Tr("Clients", "Enter Client Code."), Field::kCode};
  }
  if (client.name.trimmed().isEmpty()) {
    return Refusal{Tr("Clients", "Enter Client Name."), Field::kName};
  }
  if (std::ranges::none_of(client.accounts, HasNumber)) {
    return Refusal{Tr("Clients", "Enter Demat A/c Details."), Field::kAccounts};
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
  return Refusal{Tr("Clients", "Enter Proper PAN."), Field::kPan};
}

QString PanWarning(const QString& pan) {
  return text::IsValidPan(pan).warning;
}

}  // namespace quorvane::clients
