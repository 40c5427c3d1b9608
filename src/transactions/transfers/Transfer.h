#pragma once

#include "core/Ids.h"
#include "core/Refusal.h"
#include "core/text/FinancialYear.h"

#include <QString>

namespace quorvane::transfers {

/// Shares of one lot that move from an account of the client to another account of theirs or of
/// another client; the purchase rate goes with them.
struct Transfer {
  TransferId id;  ///< none until it is saved
  QString date;   ///< dd/mm/yyyy
  AccountId from;
  AccountId to;
  ClientId to_client;   ///< owner of `to`; set when it is saved
  LotId lot;            ///< the lot that the shares come from
  ScripId scrip;        ///< the lot's; set when it is saved
  double rate = 0;      ///< the lot's purchase rate, rupees a share; set when it is saved
  double quantity = 0;  ///< shares
};

/// The first rule that the transfer breaks: date (a day of the year: no statement of another year
/// would show the transfer), from-account, to-account (which must be another one), lot, quantity.
MaybeRefusal CheckTransfer(const Transfer& transfer, text::FinancialYear year);

/// The quantity against the lot's balance.
MaybeRefusal CheckBalance(double quantity, double balance);

/// What is said when there is no account to transfer to, or no lot to transfer.
Refusal NoDestination();
Refusal NoLot();

}  // namespace quorvane::transfers
