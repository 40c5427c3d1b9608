#include "portfolio/SafetyCopy.h"

#include "portfolio/Export.h"

namespace quorvane::portfolio {

QString MakeSafetyCopy(database::Connection& connection, const QString& application_folder,
                       const QDateTime& now, Progress& progress) {
  const QString folder = application_folder + QStringLiteral("/BackUp/") +
                         now.toString(QStringLiteral("yyyy-MM-dd_hhmmss"));
  ExportPortfolio(connection, folder, std::nullopt, progress);
  return folder;
}

}  // namespace quorvane::portfolio
