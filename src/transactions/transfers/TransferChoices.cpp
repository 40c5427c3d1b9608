#include "transactions/transfers/TransferChoices.h"

namespace quorvane::transfers {

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
