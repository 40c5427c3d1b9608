#pragma once

#include <QString>

namespace quorvane::masters {

/// What is asked before a record is deleted, with No as the default answer.
QString AskDeleteRecord();          ///< a participant or a row of a lookup master
QString AskDeleteRelatedRecords();  ///< a broker
QString AskDeleteRelatedData();     ///< a scrip
QString AskDeleteClient();

}  // namespace quorvane::masters
