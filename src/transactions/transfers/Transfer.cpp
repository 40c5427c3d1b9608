#include "transactions/transfers/Transfer.h"

#include "core/text/Amounts.h"
#include "core/text/Dates.h"
#include "core/text/Tr.h"

namespace quorvane::transfers {
namespace {

/// A movement without a date that can be read would be lost to every statement.
MaybeRefusal CheckDate(const QString& date, text::FinancialYear year) {
  if (date.trimmed().isEmpty()) {
    return Refusal{Tr("Transfers", "Enter Date."), Field::kDate};
  }
  const auto day = text::ParseDmy(date);
  if (!day) {
    return Refusal{Tr("Transfers", "Enter Proper Date."), Field::kDate};
  }
  if (!year.Contains(*day)) {
    Refusal refusal =
        Refusal{Tr("Transfers", "The Date is not in the Financial Year %1."), Field::kDate};
    refusal.text = refusal.text.arg(year.Text());
    return refusal;
  }
  return std::nullopt;
}

MaybeRefusal CheckAccounts(const Transfer& transfer) {
  if (!transfer.from) {
    return Refusal{Tr("Transfers", "Select Demat A/c No. From which You want to Transfer Scripts."),
                   Field::kAccount};
  }
  if (!transfer.to || transfer.to == transfer.from) {
    return NoDestination();
  }
  return std::nullopt;
}

}  // namespace

Refusal NoDestination() {
  return Refusal{Tr("Transfers", "Select Demat A/c No. To which You want to Transfer Scripts."),
                 Field::kToAccount};
}

Refusal NoLot() {
  return Refusal{Tr("Transfers", "Select Script Name that You want to Transfer."), Field::kLot};
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
    return Refusal{Tr("Transfers", "Enter Quantity Greater than Zero."), Field::kQuantity};
  }
  return std::nullopt;
}

MaybeRefusal CheckBalance(Shares quantity, Shares balance) {
  if (quantity <= balance) {
    return std::nullopt;
  }
  Refusal refusal =
      Refusal{Tr("Transfers",
                 "You Can't Transfer Scripts More than Balance.\nMaximum Allowed Value is: %1"),
              Field::kQuantity};
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
