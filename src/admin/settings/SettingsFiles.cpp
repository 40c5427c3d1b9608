#include "admin/settings/Settings.h"
#include "core/app/Ini.h"
#include "core/rates/QuoteDesk.h"

#include <vector>

namespace quorvane::settings {
namespace {

constexpr char kScreenSection[] = "ScrReso";
constexpr char kOption[] = "Opt";

/// The value of a setting that the files do not name.
QString Preset(Text text) {
  switch (text) {
    case Width:
    case Height:
      return QStringLiteral("0");
    case Theme:
      return QStringLiteral("system");
    case Language:
      return QStringLiteral("en");
    case TlsVerify:
    case WholeRupeeStt:
      return QStringLiteral("no");
    case IndexFeed:
      return QLatin1String(rates::kIndexFeed);
    case BseHost:
    case ArchiveHost:
      return QStringLiteral("https://www.bseindia.com");
    case NseHost:
      return QStringLiteral("https://www.nseindia.com");
    case NseArchiveHost:
      return QStringLiteral("https://nsearchives.nseindia.com");
    case PageSize:
      return QStringLiteral("A4");
    default:
      return {};
  }
}

ScreenMode ModeOf(const QString& option) {
  const int number = option.toInt();
  return number == 0   ? ScreenMode::kToScreen
         : number == 1 ? ScreenMode::kToResolution
                       : ScreenMode::kAsDesigned;
}

QString YesOrNo(const QString& text) {
  const QString word = text.toLower();
  const bool yes = word == QStringLiteral("yes") || word == QStringLiteral("1") ||
                   word == QStringLiteral("true") || word == QStringLiteral("on");
  return yes ? QStringLiteral("yes") : QStringLiteral("no");
}

/// What the files keep of a text; nothing for a preset and for a text without use.
std::optional<QString> Kept(const Settings& settings, Text text) {
  const QString& value = settings.texts[text];
  const bool unused = IsOfDatabase(text) && settings.own_database;
  return unused || value == Preset(text) ? std::nullopt : std::optional(value);
}

std::vector<app::IniSetting> Changes(const Settings& before, const Settings& after,
                                     bool of_screen) {
  std::vector<app::IniSetting> changes;
  if (of_screen && before.screen_mode != after.screen_mode) {
    changes.push_back({QLatin1String(kScreenSection), QLatin1String(kOption),
                       QString::number(static_cast<int>(after.screen_mode))});
  }
  for (int number = 0; number < kTexts; ++number) {
    const auto text = static_cast<Text>(number);
    const std::optional<QString> kept = Kept(after, text);
    if (IsOfScreen(text) == of_screen && Kept(before, text) != kept) {
      const TextPlace& place = PlaceOf(text);
      changes.push_back({QLatin1String(place.section), QLatin1String(place.key), kept});
    }
  }
  return changes;
}

void Write(const app::IniFile& file, const std::vector<app::IniSetting>& changes) {
  if (!changes.empty()) {
    file.Write(changes);
  }
}

}  // namespace

Settings LoadSettings(const app::Folders& folders) {
  const app::IniFile screen(folders.screen_ini);
  const app::IniFile config(folders.config_file);
  Settings settings;
  settings.screen_mode = ModeOf(
      screen.Read(QLatin1String(kScreenSection), QLatin1String(kOption), QStringLiteral("0")));
  for (int number = 0; number < kTexts; ++number) {
    const auto text = static_cast<Text>(number);
    const TextPlace& place = PlaceOf(text);
    const app::IniFile& file = IsOfScreen(text) ? screen : config;
    settings.texts[text] =
        file.Read(QLatin1String(place.section), QLatin1String(place.key), Preset(text));
  }
  for (const Text text : {TlsVerify, WholeRupeeStt}) {
    settings.texts[text] = YesOrNo(settings.texts[text]);
  }
  settings.own_database = settings.texts[Server].isEmpty() && settings.texts[Socket].isEmpty() &&
                          settings.texts[Database].isEmpty();
  return settings;
}

MaybeRefusal SaveSettings(const app::Folders& folders, const Settings& settings) {
  if (MaybeRefusal refusal = CheckSettings(settings)) {
    return refusal;
  }
  const Settings before = LoadSettings(folders);
  const app::IniFile screen(folders.screen_ini);
  Write(screen, Changes(before, settings, true));
  try {
    Write(app::IniFile(folders.config_file), Changes(before, settings, false));
  } catch (...) {
    Write(screen, Changes(settings, before, true));
    throw;
  }
  return std::nullopt;
}

}  // namespace quorvane::settings
