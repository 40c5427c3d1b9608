#pragma once

#include "core/Ids.h"
#include "core/Progress.h"
#include "core/Result.h"
#include "core/database/Connection.h"
#include "portfolio/reconcile/Statement.h"

#include <QStringList>

namespace quorvane::reconcile {

/// Reads a statement of holdings: PDF with text, comma separated text or a workbook. Refused with
/// Field::kPassword when no password opens it, and for what is no such file. Throws Cancellation.
Result<Statement> ReadStatement(const QString& path, const QStringList& passwords,
                                Progress& progress);

/// The same with the passwords that are usual for the client's papers, after the entered ones.
Result<Statement> ReadStatementOf(database::Connection& connection, ClientId client,
                                  const QString& path, const QStringList& entered,
                                  Progress& progress);

}  // namespace quorvane::reconcile
