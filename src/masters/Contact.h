#pragma once

#include "core/database/Recordset.h"
#include "core/database/TextWidths.h"
#include "core/database/Value.h"
#include "core/records/Masters.h"

#include <QString>

#include <vector>

namespace quorvane::masters {

using records::Contact;

/// The columns in the order of the members, for a list of columns.
inline constexpr std::string_view kContactColumns =
    "Address,City,State,PIN,STD,Phone,Mobile,Fax,EMail";
inline constexpr std::size_t kContactColumnCount = 9;

/// Reads the columns above, which begin at `first`.
Contact ContactOf(const database::Recordset& row, std::size_t first);

void AppendValues(std::vector<database::Value>& values, const Contact& contact);

/// The texts for the check of their widths. The windows number their boxes from the address on:
/// its box is "Text1_<address_box>"; the state stands in "Combo1".
void AppendCells(std::vector<database::TextCell>& cells, const Contact& contact, int address_box);

/// The name of a window's numbered box.
QString BoxName(int number);

/// "(?,?,?)" for that many values.
std::string Placeholders(std::size_t count);

}  // namespace quorvane::masters
