#pragma once

#include "core/database/Connection.h"
#include "portfolio/ExportedNames.h"
#include "portfolio/OutputFile.h"

namespace quorvane::portfolio {

/// Writes the master files and rates.csv: what the documents that were written before have used, or
/// everything when the export is of every client.
void ExportMasters(database::Connection& connection, OutputFolder& folder,
                   const ExportedNames& names);

}  // namespace quorvane::portfolio
