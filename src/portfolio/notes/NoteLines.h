#pragma once

#include "portfolio/notes/Note.h"
#include "portfolio/paper/Words.h"

#include <optional>
#include <span>

namespace quorvane::notes {

/// Reads the printed lines of a contract note, or the rows of one that is a table: the form of one
/// average price a security, in use since 27 June 2025, and the older one of single trades. Where a
/// note has both, the trades are an annexure and are left out. Trades of one security, side and
/// rate are added up.
Note ReadNoteLines(std::span<const paper::Line> lines);

/// A line of the form of one average price: up to one purchase and one sale; empty when it is no
/// such line. `sell_left` is where the columns of sales begin, when that is known.
std::vector<NoteLine> AverageLines(const paper::Line& line, const std::optional<double>& sell_left);

/// A line of the older form; nullopt when it is no such line. `exchange` gets the one that it
/// names.
std::optional<NoteLine> TradeLine(const paper::Line& line, std::string& exchange);

}  // namespace quorvane::notes
