#pragma once

#include "reporting/document/ReportDocument.h"

#include <string>

namespace quorvane::reporting {

/// The report as comma separated values for a spreadsheet or a program: UTF-8, RFC 4180 quoting,
/// lines ended by LF. Titles, groups and notes are records of one field; each table begins with its
/// headings, in which the heading of a column's group stands first ("Sale Date"). Numbers are
/// written as their mask shows them, without thousands separators. A text that a spreadsheet would
/// take for a formula ("=1+1", "@name", a leading tab) gets an apostrophe before it; one that is a
/// number ("-12.50") stays as it is.
std::string WriteCsv(const ReportDocument& document);

}  // namespace quorvane::reporting
