#include "reporting/output/TemplateFolder.h"

#include "core/app/Ini.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace quorvane::reporting {

QString TemplatePath(const app::Folders& folders, const QString& file_name) {
  const app::IniFile settings(folders.config_file);
  const QString folder =
      settings.Read(QStringLiteral("Paths"), QStringLiteral("Reports"), folders.data);
  return QDir(folder).filePath(file_name);
}

MaybeRefusal RefuseWithoutTemplate(const QString& path) {
  if (QFileInfo(path).isFile()) {
    return std::nullopt;
  }
  return Refusal{QCoreApplication::translate("TemplateFolder",
                                             "The template %1 is not there. Put it back, or name "
                                             "its folder in the settings.")
                     .arg(QDir::toNativeSeparators(path)),
                 QString()};
}

}  // namespace quorvane::reporting
