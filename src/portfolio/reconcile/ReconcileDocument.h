#pragma once

#include "core/lookups/Directory.h"
#include "portfolio/reconcile/Reconciliation.h"
#include "reporting/document/ReportDocument.h"

#include <string>

namespace quorvane::reconcile {

/// The report of a reconciliation, an account after the other, with all rows or with those that do
/// not agree.
reporting::ReportDocument MakeReconcileDocument(const Reconciliation& result,
                                                const lookups::Directory& directory,
                                                bool differences_only);

/// The same for programs: a row a security, with words that stay the same.
std::string ReconcileCsv(const Reconciliation& result, const lookups::Directory& directory,
                         bool differences_only);

}  // namespace quorvane::reconcile
