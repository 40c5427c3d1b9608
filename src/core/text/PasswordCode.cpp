#include "core/text/PasswordCode.h"

#include <QStringList>

namespace quorvane::text {
namespace {

constexpr char32_t kLastCharacter = 0x10FFFF;

/// Flips bits below the lowest plane's size, so that every character's number is another
/// character's, and numbers of common characters stay short.
constexpr char32_t Transformed(char32_t character) {
  constexpr char32_t kFlipped = 0x5A;
  return character ^ kFlipped;
}

static_assert(Transformed(kLastCharacter) <= kLastCharacter);

bool IsSurrogate(char32_t character) {
  return character >= 0xD800 && character <= 0xDFFF;
}

}  // namespace

QString EncodePassword(const QString& password) {
  QStringList numbers;
  for (const char32_t character : password.toUcs4()) {
    numbers << QString::number(static_cast<std::uint32_t>(Transformed(character)));
  }
  return numbers.join(QLatin1Char(','));
}

std::optional<QString> DecodePassword(const QString& stored) {
  QString password;
  for (const QString& number : stored.split(QLatin1Char(','))) {
    bool is_number = false;
    const char32_t character = Transformed(number.toUInt(&is_number));
    if (!is_number || character > kLastCharacter || IsSurrogate(character)) {
      return std::nullopt;
    }
    // Not through QString::fromUcs4, which takes a leading U+FEFF for a byte order mark.
    password += QStringView(QChar::fromUcs4(character));
  }
  return password;
}

}  // namespace quorvane::text
