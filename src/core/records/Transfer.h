#pragma once

#include "core/ClientYear.h"
#include "core/records/Table.h"
#include "core/text/Shares.h"

#include <QString>

#include <cstdint>

namespace quorvane::records {

/// Whose account the shares go to, as stored.
enum class TransTo : std::uint8_t { kSameClient = 0, kOtherClient = 1 };

/// Shares of one lot that move from an account of the client to another one of the same or of
/// another client; the purchase rate goes with them.
struct Transfer {
  ClientId client;
  text::FinancialYear year;
  TransferId id;  ///< none until it is saved
  QString date;   ///< dd/mm/yyyy
  AccountId from;
  TransTo kind = TransTo::kSameClient;
  AccountId to;
  ClientId to_client;  ///< owner of `to`
  LotId lot;           ///< the lot that the shares come from
  ScripId scrip;       ///< the lot's
  double rate = 0;     ///< the lot's purchase rate, rupees a share
  text::Shares quantity;
};

template <>
struct Table<Transfer> {
  static constexpr std::string_view kName = "ScrTransfer";
  static constexpr auto kColumns =
      std::tuple(Column{"Cid", &Transfer::client}, Column{"Fyear", &Transfer::year},
                 Column{"ID", &Transfer::id}, Column{"TDate", &Transfer::date},
                 Column{"FrmAcId", &Transfer::from}, Column{"TransTo", &Transfer::kind},
                 Column{"ToAcId", &Transfer::to}, Column{"ToClientID", &Transfer::to_client},
                 Column{"StkId", &Transfer::lot}, Column{"ScrId", &Transfer::scrip},
                 Column{"PRate", &Transfer::rate}, Column{"Qty", &Transfer::quantity});
};

}  // namespace quorvane::records
