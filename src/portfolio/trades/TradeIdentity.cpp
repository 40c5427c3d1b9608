#include "portfolio/trades/TradeIdentity.h"

#include "core/text/Amounts.h"

#include <QCryptographicHash>

#include <fmt/format.h>

#include <charconv>

namespace quorvane::portfolio {
namespace {

constexpr std::string_view kAlike = "C|";

char LetterOf(records::Side side) {
  return side == records::Side::kPurchase ? 'P' : 'S';
}

auto DayNumber(text::Date day) {
  return day.time_since_epoch().count();
}

std::string Bounded(std::string identity) {
  if (identity.size() > kLongestIdentity) {
    const QByteArray bytes = QByteArray::fromStdString(identity);
    identity =
        "H|" + QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex().toStdString();
  }
  return identity;
}

/// Where the scrip stands: before side, quantity, rate and place. The exchange's name may have any
/// sign in it.
std::optional<std::pair<std::size_t, std::size_t>> ScripPlace(std::string_view identity) {
  constexpr int kBehind = 4;
  if (!identity.starts_with(kAlike)) {
    return std::nullopt;
  }
  std::size_t end = identity.size();
  for (int i = 0; i < kBehind; ++i) {
    end = end == 0 ? std::string_view::npos : identity.rfind('|', end - 1);
    if (end == std::string_view::npos) {
      return std::nullopt;
    }
  }
  const std::size_t before = end == 0 ? std::string_view::npos : identity.rfind('|', end - 1);
  if (before == std::string_view::npos) {
    return std::nullopt;
  }
  return std::pair(before + 1, end);
}

}  // namespace

std::string IdentityOfNumbered(const Trade& trade, const std::string& exchange) {
  return Bounded(fmt::format("T|{}|{}|{}|{}|{}", exchange, DayNumber(trade.day), trade.order_number,
                             trade.trade_number, LetterOf(trade.side)));
}

std::string LikenessOf(const Trade& trade, const std::string& exchange, const std::string& scrip) {
  std::string likeness = fmt::format("{}{}|{}|{}|{}|{}|", kAlike, exchange, DayNumber(trade.day),
                                     scrip, LetterOf(trade.side), trade.quantity.Millionths());
  text::AppendExact(likeness, trade.rate);
  return likeness;
}

std::string IdentityAmongAlike(const std::string& likeness, int place) {
  return Bounded(likeness + "|" + std::to_string(place));
}

std::optional<ScripId> ScripInIdentity(std::string_view identity) {
  const auto place = ScripPlace(identity);
  if (!place) {
    return std::nullopt;
  }
  int number = 0;
  const auto [end, error] =
      std::from_chars(identity.data() + place->first, identity.data() + place->second, number);
  const bool whole = error == std::errc() && end == identity.data() + place->second;
  return whole ? std::optional(ScripId{number}) : std::nullopt;
}

std::string WithScrip(std::string_view identity, std::string_view scrip) {
  std::string other(identity);
  if (const auto place = ScripPlace(identity)) {
    other.replace(place->first, place->second - place->first, scrip);
  }
  return other;
}

}  // namespace quorvane::portfolio
