#include "masters/Questions.h"

#include <QCoreApplication>

namespace quorvane::masters {

QString AskDeleteRecord() {
  return QCoreApplication::translate("Masters", "Are You Sure, You want to Delete this Record?");
}

QString AskDeleteRelatedRecords() {
  return AskDeleteRecord() + QLatin1Char('\n') +
         QCoreApplication::translate("Masters", "All Related Records Will be Deleted.");
}

QString AskDeleteRelatedData() {
  return AskDeleteRecord() + QLatin1Char('\n') +
         QCoreApplication::translate("Masters", "All Related Data Will be Deleted.");
}

QString AskDeleteClient() {
  return QCoreApplication::translate(
      "Masters",
      "Are You Sure, You want to Delete this Client?\nAll Related Data will be Deleted.");
}

}  // namespace quorvane::masters
