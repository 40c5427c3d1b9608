#include "controls/Style.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QPalette>
#include <QTest>
#include <QWindow>

#include <algorithm>
#include <cmath>

using namespace quorvane::controls;

namespace {

double Linear(double share) {
  return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
}

double Luminance(const QColor& color) {
  return 0.2126 * Linear(color.redF()) + 0.7152 * Linear(color.greenF()) +
         0.0722 * Linear(color.blueF());
}

double Contrast(const QColor& one, const QColor& other) {
  const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
  return (light + 0.05) / (dark + 0.05);
}

}  // namespace

class StyleTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void TextIsReadableOnItsGround_data();
  void TextIsReadableOnItsGround();
  void SystemThemeComesBackWhenTheDesktopChanges_data();
  void SystemThemeComesBackWhenTheDesktopChanges();
  void cleanupTestCase();
};

void StyleTest::TextIsReadableOnItsGround_data() {
  QTest::addColumn<int>("theme");
  QTest::addColumn<int>("group");
  QTest::addColumn<int>("ink");
  QTest::addColumn<int>("ground");
  const auto row = [](const char* name, QPalette::ColorGroup group, QPalette::ColorRole ink,
                      QPalette::ColorRole ground) {
    for (const Theme theme : {Theme::kLight, Theme::kDark}) {
      QTest::addRow("%s, %s", name, theme == Theme::kDark ? "dark" : "light")
          << static_cast<int>(theme) << static_cast<int>(group) << static_cast<int>(ink)
          << static_cast<int>(ground);
    }
  };
  row("label", QPalette::Active, QPalette::WindowText, QPalette::Window);
  row("box", QPalette::Active, QPalette::Text, QPalette::Base);
  row("every other row", QPalette::Active, QPalette::Text, QPalette::AlternateBase);
  row("selected", QPalette::Active, QPalette::HighlightedText, QPalette::Highlight);
  row("button", QPalette::Active, QPalette::ButtonText, QPalette::Button);
  row("hint", QPalette::Active, QPalette::PlaceholderText, QPalette::Base);
  row("resting box", QPalette::Disabled, QPalette::Text, QPalette::Base);
  row("resting selection", QPalette::Disabled, QPalette::HighlightedText, QPalette::Highlight);
}

void StyleTest::TextIsReadableOnItsGround() {
  QFETCH(int, theme);
  QFETCH(int, group);
  QFETCH(int, ink);
  QFETCH(int, ground);
  ApplyTheme(*qApp, static_cast<Theme>(theme));
  QCOMPARE(IsDark(), theme == static_cast<int>(Theme::kDark));
  const QPalette palette = QApplication::palette();
  const auto color = [&](int role) {
    return palette.color(static_cast<QPalette::ColorGroup>(group),
                         static_cast<QPalette::ColorRole>(role));
  };
  const double contrast = Contrast(color(ink), color(ground));
  QVERIFY2(contrast >= 4.5, qPrintable(QString::number(contrast)));
}

void StyleTest::SystemThemeComesBackWhenTheDesktopChanges_data() {
  QTest::addColumn<int>("theme");
  QTest::addColumn<bool>("follows");
  QTest::newRow("system") << static_cast<int>(Theme::kSystem) << true;
  QTest::newRow("light") << static_cast<int>(Theme::kLight) << false;
}

void StyleTest::SystemThemeComesBackWhenTheDesktopChanges() {
  QFETCH(int, theme);
  ApplyTheme(*qApp, static_cast<Theme>(theme));
  QWindow window;
  QApplication::setPalette(QPalette(Qt::red));
  QEvent changed(QEvent::ThemeChange);
  QCoreApplication::sendEvent(&window, &changed);
  QTEST(QApplication::palette().color(QPalette::Button) != QColor(Qt::red), "follows");
}

void StyleTest::cleanupTestCase() {
  ApplyTheme(*qApp, Theme::kLight);
}

static const quorvane::test::RegisterTest<StyleTest> kRegistered;

#include "StyleTest.moc"
