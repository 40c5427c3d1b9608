#include "controls/Style.h"

#include "controls/HouseStyle.h"
#include "controls/Style.h"
#include "core/app/Folders.h"
#include "core/app/Ini.h"

#include <QApplication>
#include <QPageSize>
#include <QPainter>
#include <QPalette>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTranslator>

#include <map>
#include <memory>

namespace quorvane::controls {
namespace {

struct Colors {
  QRgb window;
  QRgb base;
  QRgb alternate;
  QRgb text;
  QRgb faint;  ///< disabled text and placeholders; 4.5:1 on the window at least
  QRgb button;
  QRgb edge;
  QRgb accent;
  QRgb link;
};

constexpr Colors kLight{0xfff3f5f8, 0xffffffff, 0xfff4f7fb, 0xff1a1f26, 0xff5d6672,
                        0xfffbfcfd, 0xffa9b2be, 0xff1f5fbf, 0xff1a4f9f};
constexpr Colors kDark{0xff20252b, 0xff171b20, 0xff1d2228, 0xffe7eaee, 0xff9aa4b0,
                       0xff2c333b, 0xff5a6572, 0xff2f6fd6, 0xff8ab4f8};

constexpr int kLighter = 120;  // per cent

void SetDisabled(QPalette& palette, const Colors& colors) {
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(QPalette::Disabled, role, QColor::fromRgb(colors.faint));
  }
  palette.setColor(QPalette::Disabled, QPalette::Base, QColor::fromRgb(colors.window));
  palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor::fromRgb(colors.edge));
  palette.setColor(QPalette::Disabled, QPalette::HighlightedText, QColor::fromRgb(colors.text));
}

QPalette PaletteOf(const Colors& colors) {
  QPalette palette;
  const auto set = [&](QPalette::ColorRole role, QRgb color) {
    palette.setColor(role, QColor::fromRgb(color));
  };
  set(QPalette::Window, colors.window);
  set(QPalette::WindowText, colors.text);
  set(QPalette::Base, colors.base);
  set(QPalette::AlternateBase, colors.alternate);
  set(QPalette::Text, colors.text);
  set(QPalette::PlaceholderText, colors.faint);
  set(QPalette::Button, colors.button);
  set(QPalette::ButtonText, colors.text);
  set(QPalette::BrightText, 0xffffffff);
  set(QPalette::ToolTipBase, colors.base);
  set(QPalette::ToolTipText, colors.text);
  // The frames of windows are drawn in these: without them they were light in the dark look, too.
  palette.setColor(QPalette::Light, QColor::fromRgb(colors.button).lighter(kLighter));
  palette.setColor(QPalette::Midlight, QColor::fromRgb(colors.button));
  palette.setColor(QPalette::Dark, QColor::fromRgb(colors.edge).darker(kLighter));
  palette.setColor(QPalette::Shadow, QColor(Qt::black));
  set(QPalette::Mid, colors.edge);
  set(QPalette::Highlight, colors.accent);
  set(QPalette::HighlightedText, 0xffffffff);
  set(QPalette::Link, colors.link);
  SetDisabled(palette, colors);
  return palette;
}

bool IsDarkPalette(const QPalette& palette) {
  return palette.color(QPalette::Window).lightness() < palette.color(QPalette::Text).lightness();
}

// The palette of the desktop shows through once the program's own is taken away.
bool SystemIsDark(QApplication& application) {
  application.setPalette(QPalette());
  return IsDarkPalette(QApplication::palette());
}

void SetColors(QApplication& application, Theme theme) {
  const bool dark = theme == Theme::kDark || (theme == Theme::kSystem && SystemIsDark(application));
  application.setPalette(PaletteOf(dark ? kDark : kLight));
}

// Applies the colours again when the desktop changes its own.
class SystemFollower final : public QObject {
 public:
  SystemFollower(QApplication& application, Theme theme)
      : application_(application), theme_(theme) {
    setObjectName(QStringLiteral("SystemFollower"));
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    // It is the windows that are told.
    if (event->type() == QEvent::ThemeChange && watched->isWindowType()) {
      SetColors(application_, theme_);
    }
    return false;
  }

 private:
  QApplication& application_;
  Theme theme_;
};

constexpr int kGrid = 128;  ///< the drawing's own units

void PaintBars(QPainter& painter) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0x1f, 0x4e, 0x79));
  painter.drawRoundedRect(8, 8, 112, 112, 24, 24);
  const std::pair<QRect, QColor> bars[] = {{{35, 66, 13, 20}, {0x9f, 0xc1, 0xe0}},
                                           {{57, 52, 13, 34}, {0xcf, 0xe2, 0xf3}},
                                           {{79, 38, 13, 48}, Qt::white}};
  for (const auto& [bar, color] : bars) {
    painter.setBrush(color);
    painter.drawRoundedRect(bar, 3, 3);
  }
}

void PaintLines(QPainter& painter) {
  const QColor rise(0xf2, 0xb1, 0x34);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(QColor(0x9f, 0xc1, 0xe0), 5, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(30, 92, 98, 92);
  painter.setPen(QPen(rise, 6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(QPolygon({{32, 54}, {54, 37}, {70, 42}, {94, 22}}));
  painter.setPen(Qt::NoPen);
  painter.setBrush(rise);
  painter.drawEllipse(QPoint(94, 22), 6, 6);
}

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

void ApplyTheme(QApplication& application, Theme theme) {
  delete application.findChild<QObject*>(QStringLiteral("SystemFollower"));
  if (dynamic_cast<HouseStyle*>(QApplication::style()) == nullptr) {
    auto style = std::make_unique<HouseStyle>();
    style->setParent(&application);
    QApplication::setStyle(style.release());
  }
  SetColors(application, theme);
  if (theme == Theme::kSystem) {
    auto follower = std::make_unique<SystemFollower>(application, theme);
    application.installEventFilter(follower.get());
    follower.release()->setParent(&application);
  }
}

bool IsDark() {
  return IsDarkPalette(QApplication::palette());
}

QColor Mix(const QColor& ink, const QColor& ground, double share) {
  const auto mix = [&](int above, int below) {
    return static_cast<int>(above * share + below * (1 - share));
  };
  return {mix(ink.red(), ground.red()), mix(ink.green(), ground.green()),
          mix(ink.blue(), ground.blue())};
}

QColor EdgeColor(const QPalette& palette) {
  return palette.color(QPalette::Mid);
}

QIcon AppIcon() {
  QIcon icon;
  for (const int size : {16, 32, 48, 64, 128, 256}) {
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(static_cast<double>(size) / kGrid, static_cast<double>(size) / kGrid);
    PaintBars(painter);
    PaintLines(painter);
    icon.addPixmap(picture);
  }
  return icon;
}

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
