#pragma once

#include <compare>
#include <cstddef>
#include <functional>

namespace quorvane {

/// A database key that cannot be mixed up with a key of another table. 0 means "none yet": a new
/// record has it until it is saved.
template <class Tag>
struct Id {
  int value = 0;

  constexpr auto operator<=>(const Id&) const = default;
  constexpr explicit operator bool() const { return value != 0; }
};

using ClientId = Id<struct ClientTag>;
using AccountId = Id<struct AccountTag>;
using ScripId = Id<struct ScripTag>;
using LotId = Id<struct LotTag>;
using BrokerId = Id<struct BrokerTag>;
using ExchangeId = Id<struct ExchangeTag>;
using ParticipantId = Id<struct ParticipantTag>;
using DpIdId = Id<struct DpIdTag>;
using BillId = Id<struct BillTag>;
using OpeningId = Id<struct OpeningTag>;
using TransferId = Id<struct TransferTag>;

}  // namespace quorvane

template <class Tag>
struct std::hash<quorvane::Id<Tag>> {
  std::size_t operator()(quorvane::Id<Tag> id) const noexcept { return std::hash<int>{}(id.value); }
};
