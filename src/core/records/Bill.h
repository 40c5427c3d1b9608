#pragma once

#include "core/ClientYear.h"
#include "core/records/Cells.h"
#include "core/records/Table.h"
#include "core/text/Shares.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace quorvane::records {

enum class Side : std::uint8_t { kSale = 0, kPurchase = 1 };

/// 1 is a purchase, every other number a sale.
inline void ReadCell(const Recordset& row, std::size_t column, Side& into) {
  into = row.Int(column) == 1 ? Side::kPurchase : Side::kSale;
}

/// One line of a broker's bill: a sale or a purchase of one scrip. The charges are kept as they
/// were entered, also with fractions of a paisa.
struct BillLine {
  ClientId client;
  text::FinancialYear year;
  BillId bill;
  int number = 0;  ///< from 1 on, in the order of entry
  Side side = Side::kPurchase;
  LotId lot;  ///< the lot that a sale draws on or a purchase came into; below 0: see lot_rate
  ScripId scrip;
  text::Shares quantity;
  double rate = 0;         ///< rupees a share
  double brokerage = 0;    ///< rupees a share
  double net = 0;          ///< rupees a share, with brokerage
  double amount = 0;       ///< rupees
  double service_tax = 0;  ///< rupees
  bool fo = false;         ///< futures and options
  double stt = 0;          ///< rupees
  double stt_percent = 0;  ///< the percentage that `stt` was proposed from
  QString delivery_type = QStringLiteral("N.A.");

  /// Not a column: the rate of the lot that a sale draws on while that lot has no number yet,
  /// because a purchase of the same bill brings it.
  double lot_rate = 0;

  bool IsPurchase() const { return side == Side::kPurchase; }
  ClientYear Of() const { return {client, year}; }
};

/// The delivery type of a line that was bought and sold on one day.
inline constexpr QLatin1String kNonDeliveryBased("Non Delivery Based");

/// A broker's bill (contract note). Amounts in rupees.
struct Bill {
  ClientId client;
  text::FinancialYear year;
  BillId id;  ///< none until it is saved
  QString number;
  QString date;  ///< dd/mm/yyyy
  BrokerId broker;
  ExchangeId exchange;
  AccountId account;  ///< may be none
  double total = 0;
  double other_charges = 0;
  double stt = 0;
  double transaction_charges = 0;
  double grand_total = 0;
  QString settlement_number;

  std::vector<BillLine> lines;  ///< in the order of entry; not a column

  ClientYear Of() const { return {client, year}; }
};

template <>
struct Table<BillLine> {
  static constexpr std::string_view kName = "SPTrans";
  static constexpr auto kColumns =
      std::tuple(Column{"Cid", &BillLine::client}, Column{"Fyear", &BillLine::year},
                 Column{"SID", &BillLine::bill}, Column{"Id", &BillLine::number},
                 Column{"SP", &BillLine::side}, Column{"StkId", &BillLine::lot},
                 Column{"ScriptId", &BillLine::scrip}, Column{"Qty", &BillLine::quantity},
                 Column{"Rate", &BillLine::rate}, Column{"Brk", &BillLine::brokerage},
                 Column{"Net", &BillLine::net}, Column{"Amt", &BillLine::amount},
                 Column{"STax", &BillLine::service_tax}, Column{"FO", &BillLine::fo},
                 Column{"STT", &BillLine::stt}, Column{"STTPer", &BillLine::stt_percent},
                 Column{"DelvType", &BillLine::delivery_type});
};

template <>
struct Table<Bill> {
  static constexpr std::string_view kName = "SPMaster";
  static constexpr auto kColumns =
      std::tuple(Column{"Cid", &Bill::client}, Column{"Fyear", &Bill::year},
                 Column{"ID", &Bill::id}, Column{"BillNo", &Bill::number},
                 Column{"BDate", &Bill::date}, Column{"BrokId", &Bill::broker},
                 Column{"ExId", &Bill::exchange}, Column{"AcId", &Bill::account},
                 Column{"Tot", &Bill::total}, Column{"OthCharge", &Bill::other_charges},
                 Column{"STT", &Bill::stt}, Column{"TranChg", &Bill::transaction_charges},
                 Column{"Total", &Bill::grand_total}, Column{"SettlNo", &Bill::settlement_number});
};

}  // namespace quorvane::records
