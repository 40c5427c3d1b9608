#include "core/positions/Positions.h"

#include "core/positions/EventReader.h"
#include "core/positions/Replay.h"

#include <algorithm>
#include <numeric>
#include <tuple>
#include <unordered_map>

namespace quorvane::positions {
namespace {

/// Scrips that corporate actions connect have one number.
class ScripGroups {
 public:
  explicit ScripGroups(std::span<const DatedAction> actions) {
    for (const DatedAction& action : actions) {
      if (action.terms.other) {
        const int a = Of(action.terms.scrip.value);
        parent_[Of(action.terms.other.value)] = a;
      }
    }
  }

  int Of(int scrip) {
    const auto found = parent_.find(scrip);
    if (found == parent_.end() || found->second == scrip) {
      return scrip;
    }
    return found->second = Of(found->second);
  }

 private:
  std::unordered_map<int, int> parent_;
};

Replay::Years YearsOf(const EventList& list) {
  Replay::Years years;
  for (const OpenedYear& opened : list.opened) {
    years.opened.insert({opened.client.value, opened.year});
    years.all.push_back(opened.year);
  }
  std::ranges::sort(years.all);
  years.all.erase(std::unique(years.all.begin(), years.all.end()), years.all.end());
  const auto note = [&](ClientId client, text::FinancialYear year) {
    const auto [first, fresh] = years.first.try_emplace(client.value, year);
    if (!fresh) {
      first->second = std::min(first->second, year);
    }
  };
  for (const Event& event : list.events) {
    const auto year = text::FinancialYear::Of(event.day);
    note(event.client, year);
    if (event.to_client) {
      note(event.to_client, year);
    }
  }
  return years;
}

void AddActions(EventList& list) {
  for (std::size_t i = 0; i < list.actions.size(); ++i) {
    Event event;
    event.kind = EventKind::kAction;
    event.day = list.actions[i].ex_day;
    event.scrip = list.actions[i].terms.scrip;
    event.document = static_cast<int>(i);
    list.events.push_back(event);
  }
}

struct Key {
  std::int64_t group_day;
  std::int64_t order;
  std::uint32_t event;
  std::int32_t line;
};

/// The place among the events of a scrip and day. Corporate actions of all kinds follow each other
/// as they were recorded.
std::int64_t OrderOf(const Event& event, std::span<const DatedAction> actions) {
  const bool of_an_action = event.kind >= EventKind::kAction && event.kind <= EventKind::kBuyBack;
  const EventKind kind = of_an_action ? EventKind::kAction : event.kind;
  const int document = event.kind == EventKind::kAction
                           ? actions[static_cast<std::size_t>(event.document)].terms.id.value
                           : event.document;
  return (std::int64_t{static_cast<int>(kind)} << 32) | static_cast<std::uint32_t>(document);
}

std::vector<Event> InOrder(EventList& list) {
  ScripGroups groups(list.actions);
  std::vector<Key> keys(list.events.size());
  for (std::size_t i = 0; i < keys.size(); ++i) {
    const Event& event = list.events[i];
    keys[i] = {(std::int64_t{groups.Of(event.scrip.value)} << 32) |
                   static_cast<std::uint32_t>(event.day.time_since_epoch().count() + (1 << 30)),
               OrderOf(event, list.actions), static_cast<std::uint32_t>(i), event.line};
  }
  std::ranges::sort(keys, {}, [](const Key& key) {
    return std::tuple(key.group_day, key.order, key.line, key.event);
  });
  std::vector<Event> events;
  events.reserve(keys.size());
  for (const Key& key : keys) {
    events.push_back(list.events[key.event]);
  }
  list.events = {};
  return events;
}

template <class T>
auto PlaceOf(const T& one) {
  return std::tuple(one.client, one.place);
}

void Sort(Positions& result) {
  std::ranges::stable_sort(result.holdings, {}, [](const Holding& one) { return PlaceOf(one); });
  std::ranges::stable_sort(result.pieces, {},
                           [](const Piece& one) { return std::tuple(PlaceOf(one), one.sold); });
  std::ranges::stable_sort(result.shortages, {},
                           [](const Shortage& one) { return std::tuple(PlaceOf(one), one.day); });
  std::ranges::stable_sort(result.differences, {},
                           [](const Difference& one) { return std::tuple(one.of, one.place); });
}

}  // namespace

Shares Holding::Quantity() const {
  return std::accumulate(layers.begin(), layers.end(), Shares(),
                         [](Shares sum, const Layer& layer) { return sum + layer.quantity; });
}

Paise Holding::Cost() const {
  return std::accumulate(layers.begin(), layers.end(), Paise(),
                         [](Paise sum, const Layer& layer) { return sum + layer.cost; });
}

Positions Compute(EventList& list, Date to, std::span<const Date> days) {
  const Replay::Years years = YearsOf(list);
  AddActions(list);
  ScripGroups groups(list.actions);
  const std::vector<Event> events = InOrder(list);
  Positions result;
  Replay replay(list.actions, years, list.fair_values, days, result);
  for (std::size_t first = 0; first < events.size();) {
    const int group = groups.Of(events[first].scrip.value);
    std::size_t next = first + 1;
    while (next < events.size() && groups.Of(events[next].scrip.value) == group) {
      ++next;
    }
    replay.Run(std::span(events).subspan(first, next - first), to);
    first = next;
  }
  Sort(result);
  return result;
}

Positions ReadPositions(database::Connection& connection, const PositionsQuery& query,
                        Progress& progress) {
  EventReader reader(connection, progress);
  EventList list = reader.Read(query);
  Positions result = Compute(list, query.to);
  if (query.client) {
    const auto is_other = [&](const auto& one) { return one.client != *query.client; };
    std::erase_if(result.holdings, is_other);
    std::erase_if(result.pieces, is_other);
    std::erase_if(result.shortages, is_other);
    std::erase_if(result.differences,
                  [&](const Difference& one) { return one.of.client != *query.client; });
  }
  result.faults = reader.Faults();
  return result;
}

}  // namespace quorvane::positions
