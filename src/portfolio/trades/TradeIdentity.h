#pragma once

#include "core/Ids.h"
#include "portfolio/trades/TradeFile.h"

#include <optional>
#include <string>
#include <string_view>

namespace quorvane::portfolio {

// What tells a trade from all others of an account, as the database keeps it.

/// By the numbers that the exchange gave it.
std::string IdentityOfNumbered(const Trade& trade, const std::string& exchange);

/// What a trade without a number has in common with those that are alike: day, scrip, side,
/// quantity and rate. `scrip` is the number of the program's scrip.
std::string LikenessOf(const Trade& trade, const std::string& exchange, const std::string& scrip);

/// By its likeness and its place among those of its file that are alike, from 1 on.
std::string IdentityAmongAlike(const std::string& likeness, int place);

/// The scrip in an identity by likeness; nullopt in any other one.
std::optional<ScripId> ScripInIdentity(std::string_view identity);

/// The identity with another scrip, or with none for an empty text; one without a scrip stays.
std::string WithScrip(std::string_view identity, std::string_view scrip);

/// The longest identity that is kept; a longer one is kept as its hash.
inline constexpr std::size_t kLongestIdentity = 120;

}  // namespace quorvane::portfolio
