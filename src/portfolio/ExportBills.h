#pragma once

#include "core/Progress.h"
#include "core/database/Connection.h"
#include "portfolio/ExportedNames.h"
#include "portfolio/OutputFile.h"

namespace quorvane::portfolio {

/// Writes bills.csv: bills by client, account, date and key, each with its lines in order.
void ExportBills(database::Connection& connection, OutputFolder& folder, const ExportedNames& names,
                 Progress& progress);

}  // namespace quorvane::portfolio
