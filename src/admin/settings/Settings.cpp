#include "admin/settings/Settings.h"

#include "core/database/DatabaseSettings.h"
#include "core/text/Tr.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

namespace quorvane::settings {
namespace {

constexpr qsizetype kLongest = 250;
constexpr int kFewestPixels = 640;
constexpr int kMostPixels = 16384;
constexpr int kLastPort = 65535;

constexpr TextPlace kPlaces[kTexts] = {
    {"ScrReso", "X", Rule::kPixels, Field::kScreenWidth},
    {"ScrReso", "Y", Rule::kPixels, Field::kScreenHeight},
    {"Display", "Theme", Rule::kAny, Field::kTheme},
    {"Display", "Language", Rule::kAny, Field::kLanguage},
    {"Paths", "Reports", Rule::kFolder, Field::kTemplates},
    {"Database", "Driver", Rule::kDriver, Field::kDriver},
    {"Database", "Server", Rule::kAny, Field::kServer},
    {"Database", "Port", Rule::kPort, Field::kPort},
    {"Database", "Socket", Rule::kAny, Field::kSocket},
    {"Database", "Database", Rule::kAny, Field::kDatabase},
    {"Database", "User", Rule::kAny, Field::kUser},
    {"Database", "Password", Rule::kAny, Field::kPassword},
    {"Database", "TlsCa", Rule::kFile, Field::kTlsAuthority},
    {"Database", "TlsCertificate", Rule::kFile, Field::kTlsCertificate},
    {"Database", "TlsKey", Rule::kFile, Field::kTlsKey},
    {"Database", "TlsVerify", Rule::kAny, Field::kTlsVerify},
    {"Internet", "IndexFeed", Rule::kWebAddress, Field::kIndexFeed},
    {"Internet", "BseHost", Rule::kWebAddress, Field::kBseHost},
    {"Internet", "NseHost", Rule::kWebAddress, Field::kNseHost},
    {"Internet", "BseQuoteHost", Rule::kWebAddress, Field::kBseQuoteHost},
    {"Internet", "NseQuoteHost", Rule::kWebAddress, Field::kNseQuoteHost},
    {"Internet", "ArchiveHost", Rule::kWebAddress, Field::kArchiveHost},
    {"Internet", "NseArchiveHost", Rule::kWebAddress, Field::kNseArchiveHost},
    {"Printer", "Name", Rule::kAny, Field::kPrinter},
    {"Printer", "PageSize", Rule::kAny, Field::kPageSize},
    {"Bills", "WholeRupeeStt", Rule::kAny, Field::kWholeRupeeStt},
};

bool IsWholeNumber(const QString& text, int first, int last) {
  bool is_number = false;
  const int number = text.toInt(&is_number);
  return is_number && first <= number && number <= last;
}

bool IsWebAddress(const QString& text) {
  const QUrl address(text, QUrl::StrictMode);
  return address.isValid() && !address.host().isEmpty() &&
         (address.scheme() == QStringLiteral("http") ||
          address.scheme() == QStringLiteral("https"));
}

/// What is wrong with a text that is not empty; empty when nothing is.
QString Fault(Rule rule, const QString& text) {
  const QString shown = QDir::toNativeSeparators(text);
  switch (rule) {
    case Rule::kPixels:
      return text == QStringLiteral("0") || IsWholeNumber(text, kFewestPixels, kMostPixels)
                 ? QString()
                 : Tr("Settings",
                      "Enter a Resolution from 640 to 16384 Pixels, or 0 for the Screen's own.");
    case Rule::kPort:
      return IsWholeNumber(text, 1, kLastPort) ? QString()
                                               : Tr("Settings", "Enter a Port from 1 to 65535.");
    case Rule::kFolder:
      return QFileInfo(text).isDir() ? QString()
                                     : Tr("Settings", "The Folder %1 does not Exist.").arg(shown);
    case Rule::kFile:
      return QFileInfo(text).isFile() ? QString()
                                      : Tr("Settings", "The File %1 does not Exist.").arg(shown);
    case Rule::kDriver:
      return database::MayLoadDriver(text)
                 ? QString()
                 : Tr("Settings",
                      "Enter the Name of an Installed Driver, or a File of "
                      "the Machine's Administrator.");
    case Rule::kWebAddress:
      return IsWebAddress(text)
                 ? QString()
                 : Tr("Settings",
                      "Enter a Web Address such as https://www.example.com, or Nothing.");
    case Rule::kAny:
      break;
  }
  return {};
}

bool IsUsed(const Settings& settings, Text text) {
  if (IsOfScreen(text)) {
    return settings.screen_mode == ScreenMode::kToResolution;
  }
  return !IsOfDatabase(text) || !settings.own_database;
}

MaybeRefusal CheckText(const Settings& settings, Text text) {
  const QString& value = settings.texts[text];
  if (value.size() > kLongest || value.contains(QLatin1Char('\n'))) {
    return Refusal{Tr("Settings", "The Text is too Long. At Most 250 Letters are Kept."),
                   PlaceOf(text).field};
  }
  const QString fault =
      value.isEmpty() || !IsUsed(settings, text) ? QString() : Fault(PlaceOf(text).rule, value);
  return fault.isEmpty() ? std::nullopt : MaybeRefusal(Refusal{fault, PlaceOf(text).field});
}

MaybeRefusal CheckDatabase(const Settings& settings) {
  if (settings.own_database) {
    return std::nullopt;
  }
  if (settings.texts[Server].isEmpty() && settings.texts[Socket].isEmpty()) {
    return Refusal{Tr("Settings", "Enter the Database Server."), PlaceOf(Server).field};
  }
  if (settings.texts[Database].isEmpty()) {
    return Refusal{Tr("Settings", "Enter the Name of the Database."), PlaceOf(Database).field};
  }
  return std::nullopt;
}

}  // namespace

const TextPlace& PlaceOf(Text text) {
  return kPlaces[text];
}

bool IsOfDatabase(Text text) {
  return Driver <= text && text <= TlsVerify;
}

bool IsOfScreen(Text text) {
  return text == Width || text == Height;
}

MaybeRefusal CheckSettings(const Settings& settings) {
  for (int text = 0; text < kTexts; ++text) {
    if (MaybeRefusal refusal = CheckText(settings, static_cast<Text>(text))) {
      return refusal;
    }
  }
  return CheckDatabase(settings);
}

database::ConnectionSettings DatabaseOf(const Settings& settings) {
  const auto& texts = settings.texts;
  database::ConnectionSettings database;
  if (!texts[Driver].isEmpty()) {
    database.driver = texts[Driver];
  }
  database.server = texts[Server];
  database.port = texts[Port].toInt();
  database.socket = texts[Socket];
  database.database = texts[Database];
  database.user = texts[User];
  database.password = texts[Password];
  database.tls_ca = texts[TlsCa];
  database.tls_certificate = texts[TlsCertificate];
  database.tls_key = texts[TlsKey];
  database.tls_verify = texts[TlsVerify] == QStringLiteral("yes");
  return database;
}

}  // namespace quorvane::settings
