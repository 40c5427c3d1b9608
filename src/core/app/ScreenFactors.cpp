#include "core/app/ScreenFactors.h"

#include "core/text/Amounts.h"

namespace quorvane::app {
namespace {

constexpr double kDesignedWidth = 800;
constexpr double kDesignedHeight = 600;

double ReadNumber(const IniFile& ini, const QString& key) {
  return text::Val(ini.Read(QStringLiteral("ScrReso"), key, QStringLiteral("0")));
}

ScreenFactors FactorsFor(double width, double height) {
  return {.horizontal = static_cast<float>(width / kDesignedWidth),
          .vertical = static_cast<float>(height / kDesignedHeight)};
}

}  // namespace

ScreenFactors SetScreenFactors(const IniFile& screen_ini, int screen_width, int screen_height) {
  const double option = ReadNumber(screen_ini, QStringLiteral("Opt"));
  if (option == 0) {
    return FactorsFor(screen_width, screen_height);
  }
  if (option != 1) {
    return {};
  }
  const double width = ReadNumber(screen_ini, QStringLiteral("X"));
  const double height = ReadNumber(screen_ini, QStringLiteral("Y"));
  return FactorsFor(width > 0 ? width : screen_width, height > 0 ? height : screen_height);
}

}  // namespace quorvane::app
