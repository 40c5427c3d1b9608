#include "transactions/posting/Owner.h"

#include <QCoreApplication>

namespace quorvane::posting {

MaybeRefusal CheckClient(database::Transaction& transaction, ClientId client,
                         const QString& field) {
  auto rows = transaction.Open("Select Id From ClientInfo Where Id=? Lock In Share Mode", client);
  if (rows.Next()) {
    return std::nullopt;
  }
  return Refusal{QCoreApplication::translate("Posting", "This Client was Deleted in the Meantime."),
                 field};
}

MaybeRefusal CheckAccount(database::Transaction& transaction, ClientId client, AccountId account,
                          AccountId recorded, const QString& field) {
  if (!account || account == recorded) {
    return std::nullopt;
  }
  auto rows = transaction.Open(
      "Select id From ClientActDet Where id=? and CId=? Lock In Share Mode", account, client);
  if (rows.Next()) {
    return std::nullopt;
  }
  return Refusal{
      QCoreApplication::translate("Posting", "This Demat A/c was Deleted in the Meantime."), field};
}

}  // namespace quorvane::posting
