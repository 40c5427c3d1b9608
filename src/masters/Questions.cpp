#include "masters/Questions.h"

#include "core/text/Tr.h"

namespace quorvane::masters {

QString AskDeleteRecord() {
  return Tr("Masters", "Are You Sure, You want to Delete this Record?");
}

QString AskDeleteRelatedRecords() {
  return AskDeleteRecord() + QLatin1Char('\n') +
         Tr("Masters", "All Related Records Will be Deleted.");
}

QString AskDeleteRelatedData() {
  return AskDeleteRecord() + QLatin1Char('\n') + Tr("Masters", "All Related Data Will be Deleted.");
}

QString AskDeleteClient() {
  return Tr("Masters",
            "Are You Sure, You want to Delete this Client?\nAll Related Data will be Deleted.");
}

}  // namespace quorvane::masters
