#include "controls/Style.h"
#include "support/Test.h"

#include <QApplication>
#include <QPalette>
#include <QWindow>

#include <algorithm>
#include <cmath>

using namespace quorvane::controls;
namespace test = quorvane::test;

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
  void TextIsReadableOnItsGround_data() {
    const test::Table<Theme, QPalette::ColorGroup, QPalette::ColorRole, QPalette::ColorRole> table;
    const auto row = [&](const std::string& name, QPalette::ColorGroup group,
                         QPalette::ColorRole ink, QPalette::ColorRole ground) {
      table((name + ", light").c_str(), Theme::kLight, group, ink, ground);
      table((name + ", dark").c_str(), Theme::kDark, group, ink, ground);
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
  void TextIsReadableOnItsGround() {
    const auto [theme, group, ink, ground] =
        test::Table<Theme, QPalette::ColorGroup, QPalette::ColorRole, QPalette::ColorRole>::Row();
    ApplyTheme(*qApp, theme);
    QCOMPARE(IsDark(), theme == Theme::kDark);
    const QPalette palette = QApplication::palette();
    const double contrast = Contrast(palette.color(group, ink), palette.color(group, ground));
    QVERIFY2(contrast >= 4.5, qPrintable(QString::number(contrast)));
  }

  void cleanupTestCase() { ApplyTheme(*qApp, Theme::kLight); }
};

static const quorvane::test::RegisterTest<StyleTest> kRegistered;
#include "StyleTest.moc"
