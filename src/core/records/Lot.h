#pragma once

#include "core/ClientYear.h"
#include "core/records/Table.h"
#include "core/text/Shares.h"

namespace quorvane::records {

/// Shares of one scrip in one account of a client and year, bought at one rate, with the quantity
/// still held, which may be 0.
struct Lot {
  ClientId client;
  text::FinancialYear year;
  LotId id;
  AccountId account;
  ScripId scrip;
  text::Shares quantity;
  double rate = 0;  ///< rupees a share, compared as exactly the double that was posted

  ClientYear Of() const { return {client, year}; }
};

/// The holdings ledger. Lots of a record under entry are copied to kScratchLots and never read
/// back from there.
template <>
struct Table<Lot> {
  static constexpr std::string_view kName = "Stock";
  static constexpr bool kIsDerived = true;
  static constexpr bool kNotesDeletes = true;
  static constexpr auto kColumns =
      std::tuple(Column{"Cid", &Lot::client}, Column{"Fyear", &Lot::year}, Column{"Id", &Lot::id},
                 Column{"AcId", &Lot::account}, Column{"ScriptId", &Lot::scrip},
                 Column{"Qty", &Lot::quantity}, Column{"Rate", &Lot::rate});
};

inline constexpr std::string_view kScratchLots = "Stock_Temp";

}  // namespace quorvane::records
