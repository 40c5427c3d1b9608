#pragma once

#include "core/files/TextTable.h"
#include "portfolio/paper/Words.h"

#include <vector>

namespace quorvane::notes {

/// The rows of a note that is a workbook or a web page, as the printed lines that it would have: a
/// word's place is its column. What stands below its heading, such as the note's number, also comes
/// as a line with that heading in front. A number behind the heading of a date, by which workbooks
/// keep days, becomes that day.
std::vector<paper::Line> LinesOfTable(const files::TextTable& table);

}  // namespace quorvane::notes
