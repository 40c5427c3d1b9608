#pragma once

#include "core/records/Action.h"
#include "core/records/Bill.h"
#include "core/records/Movements.h"
#include "core/records/Opening.h"
#include "core/records/Transfer.h"

namespace quorvane::records {

/// Movements from records as they are read: a field that was not read stays 0.

/// The opening lot came in on `date`.
Movement MovementOf(const Opening& opening, text::Date date);

/// What the movements of a bill's lines need of the bill.
struct BillHead {
  ClientYear of;
  AccountId account;
  BrokerId broker;
  text::Date date;
  bool dated = false;  ///< the date could be read
};

Movement MovementOf(const BillLine& line, const BillHead& bill);

/// What leaves the account that the transfer is from. It is not dated when its date cannot be read.
Movement TransferOut(const Transfer& transfer);

/// What comes into the account that the transfer is to.
Movement TransferIn(const Transfer& transfer);

/// What a corporate action takes out of the lot, and what it gives into the other one, on `day`.
Movement ActionOut(const ActionLot& lot, text::Date day);
Movement ActionIn(const ActionLot& lot, text::Date day);

}  // namespace quorvane::records
