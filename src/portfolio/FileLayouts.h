#pragma once

#include <cstddef>
#include <span>
#include <string_view>

namespace quorvane::portfolio {

/// The files of a portfolio folder, in the order in which they are read.
enum class FileKind {
  kParticipants,
  kClients,
  kAccounts,
  kBrokers,
  kScrips,
  kPercentages,
  kOpening,
  kBills,
  kTransfers,
  kBrokerOpening,
  kPayments,
  kReceipts,
  kRates,
  kIsins,
  kActions,
  kActionLots,
  kDividends,
  kFairValues,
  kTaxLosses,
  kOpeningMarks,
  kTradeKeys,
  kStatementChecks
};

struct ColumnLayout {
  std::string_view name;
  bool required = false;            ///< the header must name it and no field may be empty
  std::size_t most_characters = 0;  ///< what the database holds; 0 for numbers and dates
};

struct FileLayout {
  FileKind kind;
  std::string_view name;
  std::span<const ColumnLayout> columns;
};

std::span<const FileLayout> Layouts();
const FileLayout& LayoutOf(FileKind kind);

// Columns by place, as the layouts list them.
namespace participants {
enum {
  kName,
  kDepository,
  kDpId,
  kAddress,
  kCity,
  kState,
  kPin,
  kStd,
  kPhone,
  kMobile,
  kFax,
  kEmail,
  kPerson,
  kDesignation
};
}
namespace clients {
enum {
  kCode,
  kGroupCode,
  kName,
  kAddress,
  kCity,
  kState,
  kPin,
  kStd,
  kPhone,
  kMobile,
  kFax,
  kEmail,
  kDob,
  kPan,
  kSex,
  kMaritalStatus
};
}
namespace accounts {
enum { kClientCode, kParticipant, kDpId, kAccountNo };
}
namespace brokers {
enum { kName, kAddress, kCity, kState, kPin, kStd, kPhone, kMobile, kFax, kEmail };
}
namespace scrips {
enum { kCode, kNCode, kName, kType, kClass };
}
namespace percentages {
enum { kFyear, kName, kPercent, kAsOn };
}
namespace opening {
enum {
  kClientCode,
  kAccountNo,
  kFyear,
  kScripCode,
  kQuantity,
  kRate,
  kPurchaseDate,
  kServiceTax,
  kBrokerage,
  kStt,
  kFo
};
}
namespace bills {
enum {
  kClientCode,
  kAccountNo,
  kBillNo,
  kBillDate,
  kSettlementNo,
  kBroker,
  kExchange,
  kSide,
  kScripCode,
  kQuantity,
  kRate,
  kBrokerage,
  kServiceTax,
  kStt,
  kSttPercent,
  kDeliveryType,
  kFo,
  kLotRate,
  kOtherCharges,
  kTransactionCharges,
  kBillPart  ///< in an export only where a bill needs it
};
}
namespace transfers {
enum {
  kDate,
  kFromAccount,
  kToAccount,
  kScripCode,
  kRate,
  kQuantity,
  kFromClient,  ///< in an export only where clients have accounts of one number
  kToClient
};
}
namespace broker_opening {
enum { kClientCode, kFyear, kBroker, kAmount, kSide };
}
namespace money {
enum {
  kClientCode,
  kBroker,
  kMode,
  kAmount,
  kDate,
  kPaymentMode,
  kChequeNo,
  kChequeDate,
  kDrawnOn,
  kRemark
};
}
namespace rates {
enum { kDate, kScripCode, kRate };
}
namespace isins {
enum { kScripCode, kIsin, kFromDate };
}
namespace corporate_actions {
enum {
  kScripCode,
  kKind,
  kExDate,
  kRecordDate,
  kNew,
  kOld,
  kOtherScripCode,
  kPrice,
  kCostPercent,
  kNote,
  kAllotmentDate,
  kApplied  ///< 0 for an action that is only recorded
};
}
namespace corporate_action_lots {
enum {
  kAction,  ///< place in corporate_actions.csv, from 1 on
  kClientCode,
  kAccountNo,
  kScripCode,
  kRate,
  kOut,
  kToScripCode,
  kToRate,
  kIn,
  kAcquired,
  kBrokerage,
  kServiceTax,
  kStt
};
}
namespace dividends {
enum {
  kClientCode,
  kAccountNo,
  kScripCode,
  kDate,
  kQuantity,
  kPerShare,
  kTaxDeducted,
  kAction  ///< place in corporate_actions.csv; empty for one that was entered by hand
};
}
namespace fair_values {
enum { kScripCode, kRate };
}
namespace tax_losses {
enum {
  kClientCode,
  kFyear,
  kKind,
  kAmount,
  kLossYear  ///< empty: the year before
};
}
namespace opening_marks {
enum { kClientCode, kAccountNo, kFyear, kScripCode };
}
namespace trade_keys {
enum {
  kClientCode,
  kAccountNo,
  kBillNo,
  kBillDate,
  kBroker,
  kTradeKey,
  kScripCode,  ///< where the key names a scrip, which it leaves out
  kBillPart    ///< as in bills.csv
};
}
namespace statement_checks {
enum { kClientCode, kAccountNo, kStatementDay, kCompared, kDiffering, kCheckedOn };
}

}  // namespace quorvane::portfolio
