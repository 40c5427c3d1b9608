#pragma once

#include <QString>

#include <optional>

namespace quorvane::text {

/// A password as it is stored: a decimal number a character, joined with ",". The mapping is fixed,
/// reversible and the same for every user and position; it is no protection against somebody who
/// can read the database.
QString EncodePassword(const QString& password);

/// The password again; nullopt for a text that is no such list, the empty one included.
std::optional<QString> DecodePassword(const QString& stored);

}  // namespace quorvane::text
