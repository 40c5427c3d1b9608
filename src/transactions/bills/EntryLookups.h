#pragma once

#include "core/Ids.h"
#include "core/database/Connection.h"
#include "core/lookups/Choices.h"
#include "core/records/BillAmounts.h"
#include "core/text/FinancialYear.h"

#include <QString>
#include <QStringList>

#include <cstddef>
#include <optional>
#include <unordered_map>
#include <vector>

namespace quorvane::bills {

/// What the entry of a bill line looks up.

enum class Delivery : std::uint8_t { kDeliveryBased, kNonDeliveryBased };

/// "Delivery Based" or "Non Delivery Based": what is shown and stored.
QString DeliveryText(Delivery delivery);

/// nullopt for any other text, as bills of old have it.
std::optional<Delivery> DeliveryOf(const QString& text);

/// The percentages of a year; one that was not recorded is 0.
records::ChargePercents ReadPercents(database::Connection& connection, text::FinancialYear year,
                                     Delivery delivery);

/// The rate in rupees recorded for a scrip and day (dd/mm/yyyy) in a year; one of 0 is none.
std::optional<double> MarketRateOf(database::Connection& connection, text::FinancialYear year,
                                   ScripId scrip, const QString& date);

struct ScripFound {
  ScripId id;
  QString code;  ///< at the Bombay exchange
  QString name;
  QString ncode;  ///< at the National exchange
};

/// The scrips as they are chosen from, read at once. It is a copy of that moment.
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

/// The scrip of a code at either exchange, whatever the capitals; a code of the Bombay exchange
/// comes first. An empty code finds nothing.
std::optional<ScripFound> FindScripByCode(database::Connection& connection, const QString& code);

}  // namespace quorvane::bills
