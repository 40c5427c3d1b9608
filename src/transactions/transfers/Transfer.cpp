#include "transactions/transfers/Transfer.h"

#include "core/text/Amounts.h"
#include "core/text/Dates.h"

#include <QCoreApplication>

namespace quorvane::transfers {
namespace {

Refusal Refuse(const char* text, const QString& field) {
  return {QCoreApplication::translate("Transfers", text), field};
}

QString DateField() {
  return QStringLiteral("Text1_0");
}
QString ScripField() {
  return QStringLiteral("Text1_1");
}
QString QuantityField() {
  return QStringLiteral("Text1_2");
}

/// A movement without a date that can be read would be lost to every statement.
MaybeRefusal CheckDate(const QString& date, text::FinancialYear year) {
  if (date.trimmed().isEmpty()) {
    return Refuse(QT_TRANSLATE_NOOP("Transfers", "Enter Date."), DateField());
  }
  const auto day = text::ParseDmy(date);
  if (!day) {
    return Refuse(QT_TRANSLATE_NOOP("Transfers", "Enter Proper Date."), DateField());
  }
  if (!year.Contains(*day)) {
    Refusal refusal = Refuse(
        QT_TRANSLATE_NOOP("Transfers", "The Date is not in the Financial Year %1."), DateField());
    refusal.text = refusal.text.arg(year.Text());
    return refusal;
  }
  return std::nullopt;
}

MaybeRefusal CheckAccounts(const Transfer& transfer) {
  if (!transfer.from) {
    return Refuse(QT_TRANSLATE_NOOP(
                      "Transfers", "Select Demat A/c No. From which You want to Transfer Scripts."),
                  QStringLiteral("Combo1"));
  }
  if (!transfer.to || transfer.to == transfer.from) {
    return NoDestination();
  }
  return std::nullopt;
}

}  // namespace

Refusal NoDestination() {
  return Refuse(
      QT_TRANSLATE_NOOP("Transfers", "Select Demat A/c No. To which You want to Transfer Scripts."),
      QStringLiteral("Combo2"));
}

Refusal NoLot() {
  return Refuse(QT_TRANSLATE_NOOP("Transfers", "Select Script Name that You want to Transfer."),
                ScripField());
}

MaybeRefusal CheckTransfer(const Transfer& transfer, text::FinancialYear year) {
  if (MaybeRefusal refusal = CheckDate(transfer.date, year)) {
    return refusal;
  }
  if (MaybeRefusal refusal = CheckAccounts(transfer)) {
    return refusal;
  }
  if (!transfer.lot) {
    return NoLot();
  }
  if (transfer.quantity <= Shares()) {
    return Refuse(QT_TRANSLATE_NOOP("Transfers", "Enter Quantity Greater than Zero."),
                  QuantityField());
  }
  return std::nullopt;
}

MaybeRefusal CheckBalance(Shares quantity, Shares balance) {
  if (quantity <= balance) {
    return std::nullopt;
  }
  Refusal refusal =
      Refuse(QT_TRANSLATE_NOOP(
                 "Transfers",
                 "You Can't Transfer Scripts More than Balance.\nMaximum Allowed Value is: %1"),
             QuantityField());
  refusal.text = refusal.text.arg(text::FormatAmount(balance.Number()));
  return refusal;
}

std::vector<lookups::Item> AccountsOfOtherClients(database::Connection& connection,
                                                  ClientId client) {
  std::vector<lookups::Item> items;
  for (const auto& row : connection.Open(
           "Select A.id,C.Name,A.ACNo From ClientActDet A Join ClientInfo C On C.Id=A.CId Where "
           "A.CId<>? Order By C.Name,A.ACNo,A.id",
           client)) {
    items.push_back({row.Int(0), QStringLiteral("%1 - %2").arg(row.Text(1), row.Text(2))});
  }
  return items;
}

QString ClientChoiceList(database::Connection& connection) {
  std::vector<lookups::Item> clients;
  for (const auto& row : connection.Open("Select Id,Name From ClientInfo")) {
    clients.push_back({row.Int(0), row.Text(1)});
  }
  return lookups::ListOf(clients);
}

}  // namespace quorvane::transfers
