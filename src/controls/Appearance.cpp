#include "controls/Appearance.h"

#include "controls/Style.h"
#include "core/app/Folders.h"
#include "core/app/Ini.h"

#include <QApplication>
#include <QPageSize>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTranslator>

#include <map>
#include <memory>

namespace quorvane::controls {
namespace {

const QString kTranslator = QStringLiteral("ProgramLanguage");
const QString kEnglish = QStringLiteral("en");

/// The buttons of message boxes are the toolkit's, which has no words of its own for every
/// language.
[[maybe_unused]] constexpr const char* kToolkitTexts[] = {
    QT_TRANSLATE_NOOP("QPlatformTheme", "OK"),     QT_TRANSLATE_NOOP("QPlatformTheme", "&Yes"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "&No"),    QT_TRANSLATE_NOOP("QPlatformTheme", "Cancel"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "Save"),   QT_TRANSLATE_NOOP("QPlatformTheme", "Open"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "Close"),  QT_TRANSLATE_NOOP("QPlatformTheme", "Apply"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "Reset"),  QT_TRANSLATE_NOOP("QPlatformTheme", "Help"),
    QT_TRANSLATE_NOOP("QPlatformTheme", "Discard")};

void ApplyLanguage(QApplication& application, const QString& language) {
  delete application.findChild<QTranslator*>(kTranslator);
  if (language == kEnglish) {
    return;
  }
  auto translator = std::make_unique<QTranslator>();
  translator->setObjectName(kTranslator);
  const QString folder =
      app::ShippedFolder(QCoreApplication::applicationDirPath(), QStringLiteral("languages"));
  if (translator->load(QStringLiteral("quorvane_") + language, folder)) {
    QCoreApplication::installTranslator(translator.get());
    translator.release()->setParent(&application);
  }
}

Theme ThemeOf(const QString& name) {
  static const std::map<QString, Theme> kThemes{{QStringLiteral("light"), Theme::kLight},
                                                {QStringLiteral("dark"), Theme::kDark}};
  const auto found = kThemes.find(name.toLower());
  return found == kThemes.end() ? Theme::kSystem : found->second;
}

}  // namespace

void ApplyAppearance(QApplication& application, const app::IniFile& settings) {
  const QString section = QStringLiteral("Display");
  ApplyTheme(application, ThemeOf(settings.Read(section, QStringLiteral("Theme"))));
  ApplyLanguage(application,
                settings.Read(section, QStringLiteral("Language"), kEnglish).toLower());
}

void ProposePrinter(QPrinter& printer, const app::IniFile& settings) {
  const QString section = QStringLiteral("Printer");
  const QString name = settings.Read(section, QStringLiteral("Name"));
  if (!name.isEmpty() && QPrinterInfo::availablePrinterNames().contains(name)) {
    printer.setPrinterName(name);
  }
  static const std::map<QString, QPageSize::PageSizeId> kSizes{{"A3", QPageSize::A3},
                                                               {"A4", QPageSize::A4},
                                                               {"A5", QPageSize::A5},
                                                               {"LEGAL", QPageSize::Legal},
                                                               {"LETTER", QPageSize::Letter}};
  const auto size = kSizes.find(settings.Read(section, QStringLiteral("PageSize")).toUpper());
  printer.setPageSize(QPageSize(size == kSizes.end() ? QPageSize::A4 : size->second));
}

}  // namespace quorvane::controls
