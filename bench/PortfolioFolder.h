#pragma once

#include "bench/Portfolio.h"

#include <QString>

namespace quorvane::bench {

/// Writes a portfolio as a portfolio folder. Sales of the accounts that take part in transfers name
/// their lot by its rate; of the others they leave it to the import, which splits them.
void WriteFolder(const QString& folder, const Portfolio& portfolio);

}  // namespace quorvane::bench
