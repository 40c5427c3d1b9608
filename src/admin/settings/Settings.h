#pragma once

#include "core/Result.h"
#include "core/app/Folders.h"
#include "core/database/Connection.h"

#include <QString>

#include <array>
#include <optional>
#include <span>

namespace quorvane::settings {

/// How windows are stretched; the number is what the file keeps.
enum class ScreenMode { kToScreen = 0, kToResolution = 1, kAsDesigned = 2 };

/// A setting that is a text.
enum Text {
  Width,
  Height,
  Theme,     ///< "system", "light" or "dark"
  Language,  ///< "en", "hi"
  Reports,   ///< folder of the workbooks' templates
  Driver,
  Server,
  Port,
  Socket,
  Database,
  User,
  Password,
  TlsCa,
  TlsCertificate,
  TlsKey,
  TlsVerify,  ///< "yes" or "no"
  IndexFeed,
  BseHost,
  NseHost,
  BseQuoteHost,
  NseQuoteHost,
  ArchiveHost,
  NseArchiveHost,
  Printer,        ///< name of the printer that is proposed; empty: the desktop's own
  PageSize,       ///< "A4", "Letter", "Legal", "A5", "A3"
  WholeRupeeStt,  ///< "yes" or "no": the STT of a bill's line is proposed in whole rupees
  kTexts
};

/// Where a text is kept, which rule it follows, and what a refusal calls it.
enum class Rule { kAny, kPixels, kFolder, kFile, kDriver, kPort, kWebAddress };
struct TextPlace {
  const char* section;
  const char* key;
  Rule rule;
  Field field;  ///< that a refusal names
};
const TextPlace& PlaceOf(Text text);

/// What the settings window shows and keeps. Texts are as they are typed.
struct Settings {
  ScreenMode screen_mode = ScreenMode::kToScreen;
  bool own_database = true;  ///< the program keeps its own server; the database's texts are unused
  std::array<QString, kTexts> texts;

  bool operator==(const Settings&) const = default;
};

/// The first text that cannot be kept, by the order of Text.
MaybeRefusal CheckSettings(const Settings& settings);

/// The database that the settings name; for settings that were checked.
database::ConnectionSettings DatabaseOf(const Settings& settings);

/// The texts that belong to the database section.
bool IsOfDatabase(Text text);

/// The texts that are kept in the user's screen settings, not with the application folder.
bool IsOfScreen(Text text);

/// The settings as they are kept in "OrvikConfig.INI" (section "ScrReso") and "Confg.ini" (all
/// others), with the presets of what is missing there. Throws std::runtime_error when a file cannot
/// be read.
Settings LoadSettings(const app::Folders& folders);

/// Keeps what differs from the files; every other line of them stays, and a preset is not
/// written. Refused settings change nothing, and so does a failure (std::runtime_error) of either
/// file.
MaybeRefusal SaveSettings(const app::Folders& folders, const Settings& settings);

}  // namespace quorvane::settings
