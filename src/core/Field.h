#pragma once

#include <cstdint>

namespace quorvane {

/// A value that a user enters or chooses. A refusal names the value that broke its rule; the window
/// knows which control holds it.
enum class Field : std::uint8_t {
  kNone,

  // Masters
  kCode,
  kSecondCode,
  kGroupCode,
  kName,
  kCity,
  kState,
  kPin,
  kStdCode,
  kPhone,
  kMobile,
  kFax,
  kEmail,
  kPerson,
  kDesignation,
  kDpIds,
  kDateOfBirth,
  kPan,
  kDocument,
  kType,
  kClass,
  kYear,
  kDeliveryType,
  kPercent,
  kAsOn,

  // Documents
  kNumber,
  kDate,
  kSettlementNumber,
  kBroker,
  kExchange,
  kAccount,
  kToAccount,
  kSide,
  kScrip,
  kScripCode,
  kLot,
  kQuantity,
  kRate,
  kLine,   ///< the one that is being entered
  kLines,  ///< that are in the document
  kAmount,
  kTransactionMode,
  kPaymentMode,
  kChequeNumber,
  kDrawnOn,
  kRemark,
  kTax,
  kIsins,

  // Corporate actions
  kKind,
  kToScrip,
  kRatio,
  kPrice,
  kRecordDate,
  kAllotmentDate,

  // What is ticked or chosen in a list
  kRecord,
  kClients,
  kAccounts,
  kScrips,
  kBrokers,
  kFromDate,
  kToDate,
  kRateDate,

  // Users
  kPassword,
  kChangedName,  ///< of the user whose password is changed
  kOldPassword,
  kNewPassword,
  kConfirmedPassword,

  // Settings
  kFolder,
  kScreenWidth,
  kScreenHeight,
  kTheme,
  kLanguage,
  kTemplates,
  kDriver,
  kServer,
  kPort,
  kSocket,
  kDatabase,
  kUser,
  kTlsAuthority,
  kTlsCertificate,
  kTlsKey,
  kTlsVerify,
  kIndexFeed,
  kBseHost,
  kNseHost,
  kBseQuoteHost,
  kNseQuoteHost,
  kArchiveHost,
  kNseArchiveHost,
  kPrinter,
  kPageSize,
  kWholeRupeeStt,
};

}  // namespace quorvane
