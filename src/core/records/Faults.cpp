#include "core/records/Faults.h"

#include "core/lookups/Directory.h"

namespace quorvane::records {
namespace {

QString RecordName(const Fault& fault) {
  const QString key = QString::number(fault.key);
  switch (fault.kind) {
    case FaultKind::kTransferWithoutDate:
    case FaultKind::kTransferToItself:
      return QStringLiteral("Transfer %1").arg(key);
    case FaultKind::kOpeningWithoutDate:
      return QStringLiteral("Opening stock %1").arg(key);
    case FaultKind::kPaymentWithoutDate:
      return QStringLiteral("Payment or receipt %1").arg(key);
    case FaultKind::kRecordWithoutYear:
      return QStringLiteral("Record %1").arg(key);
    default:
      return QStringLiteral("Bill %1").arg(
          fault.number.empty() ? key : QString::fromStdString(fault.number));
  }
}

QString Reason(FaultKind kind) {
  switch (kind) {
    case FaultKind::kBillWithoutDate:
    case FaultKind::kTransferWithoutDate:
      return QStringLiteral("has no proper date and is left out of the statements");
    case FaultKind::kOpeningWithoutDate:
      return QStringLiteral("has no proper purchase date and counts as bought before the year");
    case FaultKind::kLineOfAnotherBill:
      return QStringLiteral("has a line of another client or year, which is left out");
    case FaultKind::kTransferToItself:
      return QStringLiteral("goes to the account that it comes from and counts as gone");
    case FaultKind::kPaymentWithoutDate:
      return QStringLiteral("has no proper date and is left out of the broker ledger");
    case FaultKind::kSaleWithoutLot:
      return QStringLiteral("sells shares from no lot of its account");
    case FaultKind::kRecordWithoutYear:
      return QStringLiteral("has no proper financial year and is left out");
  }
  return {};
}

}  // namespace

QStringList FaultTexts(database::Connection& connection, const Faults& faults, std::size_t most) {
  QStringList texts;
  if (faults.empty()) {
    return texts;
  }
  const lookups::Directory directory(connection);
  for (const Fault& fault : faults) {
    if (static_cast<std::size_t>(texts.size()) == most) {
      texts.append(QStringLiteral("and %1 more").arg(faults.size() - most));
      break;
    }
    texts.append(QStringLiteral("%1 of client %2, dated \"%3\", %4.")
                     .arg(RecordName(fault),
                          QString::fromStdString(directory.Client(fault.client).code),
                          QString::fromStdString(fault.date), Reason(fault.kind)));
  }
  return texts;
}

}  // namespace quorvane::records
