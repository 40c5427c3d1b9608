#pragma once

#include "core/Ids.h"
#include "core/database/Connection.h"
#include "core/lookups/Choices.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <optional>
#include <unordered_map>
#include <vector>

namespace quorvane::lookups {

struct ScripFound {
  ScripId id;
  QString code;  ///< at the Bombay exchange
  QString name;
  QString ncode;  ///< at the National exchange

  /// Without regard to capitals, at either exchange.
  bool HasCode(const QString& wanted) const;

  /// The code by which it is shown: that of the Bombay exchange when it has one.
  QString ShownCode() const { return code.isEmpty() ? ncode : code; }
};

/// All scrips to choose from, read at once. It is a copy of that moment.
class ScripList {
 public:
  ScripList() = default;
  explicit ScripList(database::Connection& connection);

  /// By name.
  std::vector<lookups::Item> Names() const;

  /// The codes of both exchanges, each once, in their order.
  QStringList Codes() const;

  /// nullptr when there is no such scrip.
  const ScripFound* Find(ScripId id) const;

  /// Empty when there is no such scrip.
  QString NameOf(ScripId id) const;

 private:
  std::vector<ScripFound> scrips_;
  std::unordered_map<ScripId, std::size_t> places_;
};

/// The scrip of a code at either exchange, without regard to capitals; a code of the Bombay
/// exchange comes first. An empty code finds nothing.
std::optional<ScripFound> FindScripByCode(database::Connection& connection, const QString& code);

}  // namespace quorvane::lookups
