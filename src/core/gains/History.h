#pragma once

#include "core/ClientYear.h"
#include "core/Progress.h"
#include "core/database/Connection.h"
#include "core/gains/Matching.h"
#include "core/records/Action.h"
#include "core/records/Movements.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace quorvane::gains {

/// A list that grows without moving its values: unlike a vector it makes no copies and never needs
/// twice the memory when millions of values are read in.
template <class T>
class Blocks {
 public:
  T& Add() {
    if (size_ == blocks_.size() << kShift) {
      blocks_.push_back(std::make_unique_for_overwrite<T[]>(kBlock));
    }
    T& value = (*this)[size_++];
    value = T{};
    return value;
  }

  std::size_t size() const { return size_; }
  T& operator[](std::size_t i) { return blocks_[i >> kShift][i & (kBlock - 1)]; }
  const T& operator[](std::size_t i) const { return blocks_[i >> kShift][i & (kBlock - 1)]; }

 private:
  static constexpr std::size_t kShift = 12;
  static constexpr std::size_t kBlock = std::size_t{1} << kShift;

  std::vector<std::unique_ptr<T[]>> blocks_;
  std::size_t size_ = 0;
};

/// Which lines count: futures and options, the others, or all. Transfers are no futures or options.
enum class FoChoice : std::uint8_t { kFo, kNonFo, kAll };

struct HistoryQuery {
  std::optional<ClientId> client;  ///< every client when there is none
  text::FinancialYear year;
  Date from;  ///< sales before it use lots up but are not listed
  Date to;    ///< nothing after it counts
  FoChoice fo = FoChoice::kAll;
  std::optional<ScripId> scrip = {};  ///< every scrip when there is none
  /// Corporate actions of the day after `to` that were recorded before this one count, too; all of
  /// that day before one that is not recorded.
  std::optional<ActionId> before_action = {};
};

/// What happened to one scrip in one account: lots that came in and what left, in date order.
/// Purchases of one date: opening lots, corporate actions, bill lines by bill, transfers in; sales
/// of one date: corporate actions, bill lines by bill, transfers out.
struct ScripHistory {
  ClientId client;
  ScripId scrip;
  AccountId account;
  std::span<Purchase> purchases;
  std::span<const Sale> sales;
};

/// The movements of a year, read by one query a table, however many clients there are.
class History {
 public:
  /// Throws DatabaseError or Cancellation.
  History(database::Connection& connection, const HistoryQuery& query, Progress& progress);

  /// Calls `visit` for each client (by code), scrip (by name) and account (by number) that has
  /// movements, in that order. The spans last as long as the call.
  void Visit(const std::function<void(const ScripHistory&)>& visit);

  std::size_t LineCount() const { return movements_.size(); }

  /// Records that could not count as they are written.
  const records::Faults& Faults() const { return faults_; }

 private:
  friend class HistoryReader;

  using Kind = records::MovementKind;

  struct Movement {
    std::uint32_t client_rank;
    std::uint32_t scrip_rank;
    std::uint32_t account_rank;
    std::int32_t day;       ///< days since 1970-01-01
    std::int32_t document;  ///< bill, opening or transfer
    std::int32_t line;
    Kind kind;
    bool fo;
    std::int32_t acquired;  ///< as `day`
    double quantity;
    double lot_rate;
    double net;
    double amount;
    double service_tax;
    double stt;
    double brokerage;
  };

  struct Key {
    std::uint64_t place;
    std::uint64_t order;
    std::uint32_t movement;
  };

  std::vector<std::size_t> ClientStarts() const;
  Key KeyOf(std::size_t movement) const;
  std::vector<Key> SortedKeys() const;
  void LookAhead(const std::vector<Key>& keys, std::size_t place) const;
  void AddToBuffers(const Movement& movement);

  HistoryQuery query_;
  Blocks<Movement> movements_;
  records::Faults faults_;
  std::vector<int> clients_;  ///< ids by rank
  std::vector<int> scrips_;
  std::vector<int> accounts_;
  std::vector<Purchase> purchases_;
  std::vector<Sale> sales_;
};

}  // namespace quorvane::gains
