#pragma once

#include "core/database/Recordset.h"
#include "core/database/TextWidths.h"
#include "core/database/Value.h"
#include "core/records/Masters.h"

#include <QString>

#include <vector>

namespace quorvane::masters {

using records::Contact;

/// The columns of a contact, in the order of the members.
inline constexpr std::string_view kContactColumns =
    "Address,City,State,PIN,STD,Phone,Mobile,Fax,EMail";
inline constexpr std::size_t kContactColumnCount = 9;

/// Reads the columns above, which begin at `first`.
Contact ContactOf(const database::Recordset& row, std::size_t first);

/// Appends the texts, so that their lengths can be checked.
void AppendCells(std::vector<database::TextCell>& cells, const Contact& contact);

}  // namespace quorvane::masters
