#pragma once

#include "core/Refusal.h"
#include "core/app/Folders.h"

#include <QString>

namespace quorvane::reporting {

/// A template of the program's workbooks by its file name ("ProfitGainRpt.xlsx"): in the folder
/// that the settings name (Confg.ini, section "Paths", key "Reports"), else in the folder of
/// shipped files.
QString TemplatePath(const app::Folders& folders, const QString& file_name);

/// A refusal that tells where the template was looked for when it is not there.
MaybeRefusal RefuseWithoutTemplate(const QString& path);

}  // namespace quorvane::reporting
