#include "core/positions/Replay.h"

#include <algorithm>
#include <map>
#include <utility>

namespace quorvane::positions {
namespace {

OpenLayer LayerOf(const Event& event, Source source) {
  OpenLayer layer;
  layer.acquired = event.acquired;
  layer.entered = event.kind == EventKind::kOpening ? event.acquired : event.day;
  layer.quantity = event.quantity;
  layer.cost = event.amount;
  layer.source = source;
  layer.non_delivery = event.non_delivery;
  return layer;
}

Paise PriceOf(double price, Shares quantity) {
  return Paise::OfRupees(price * quantity.Number());
}

}  // namespace

Replay::Account& Replay::At(ClientId client, const Place& place) {
  const std::uint64_t key = (std::uint64_t{static_cast<std::uint32_t>(client.value)} << 32) |
                            static_cast<std::uint32_t>(place.account.value);
  std::vector<Account*>& same = by_account_[key];
  const auto found =
      std::ranges::find_if(same, [&](const Account* one) { return one->place == place; });
  if (found != same.end()) {
    return **found;
  }
  Account& account = accounts_.emplace_back();
  account.client = client;
  account.place = place;
  same.push_back(&account);
  return account;
}

void Replay::Run(std::span<const Event> events, Date to) {
  accounts_.clear();
  by_account_.clear();
  fair_ = FairRates(fair_values_);
  valued_ = false;
  next_day_ = 0;
  std::size_t next = 0;
  const auto play_before = [&](Date day) {
    while (next < events.size() && events[next].day < day) {
      PassTo(events[next].day);
      NoteBalancesBefore(events[next].day);
      Play(events[next++]);
    }
  };
  for (const text::FinancialYear year : years_.all) {
    const Date first_day = year.FirstDay();
    if (first_day > to) {
      break;
    }
    play_before(first_day);
    PassTo(first_day);
    const std::size_t first = next;
    while (next < events.size() && events[next].day == first_day &&
           events[next].kind == EventKind::kOpening) {
      ++next;
    }
    NoteBalancesBefore(first_day);
    OpenYear(year, events.subspan(first, next - first));
  }
  play_before(to == Date::max() ? to : to + std::chrono::days(1));
  NoteBalancesBefore(Date::max());
  Finish();
}

/// Once 31-Jan-2018 is past, what is held has its value of that day.
void Replay::PassTo(Date day) {
  if (valued_ || day <= tax::kFairValueDay) {
    return;
  }
  valued_ = true;
  for (Account& account : accounts_) {
    const FairRate* rate = fair_.Find(account.place.scrip);
    if (rate != nullptr && !account.place.fo) {
      account.layers.Value(tax::kFairValueDay, *rate);
    }
  }
}

/// Shares of an opening balance may be older than the books.
void Replay::AddOpening(Account& account, OpenLayer layer) {
  const FairRate* rate = fair_.Find(account.place.scrip);
  if (valued_ && rate != nullptr && !account.place.fo && layer.acquired <= tax::kFairValueDay) {
    layer.fair = rate->ValueOf(layer.quantity);
  }
  account.layers.Add(layer);
}

/// Compares the balances that the clients' books open the year with.
void Replay::OpenYear(text::FinancialYear year, std::span<const Event> openings) {
  std::map<Account*, std::vector<Event>> recorded;
  for (const Event& opening : openings) {
    recorded[&Of(opening)].push_back(opening);
  }
  for (Account& account : accounts_) {
    if (years_.opened.contains({account.client.value, year})) {
      const auto found = recorded.find(&account);
      Open(account, year, found == recorded.end() ? std::span<const Event>() : found->second);
    }
  }
}

void Replay::Open(Account& account, text::FinancialYear year, std::span<const Event> openings) {
  const Shares computed = account.layers.Quantity();
  Difference difference{.of = {account.client, year},
                        .place = account.place,
                        .computed = computed,
                        .computed_cost = account.layers.Cost()};
  for (const Event& opening : openings) {
    difference.recorded += opening.quantity;
    difference.recorded_cost += opening.amount;
  }
  const Paise cost = account.layers.Cost();
  const auto first = years_.first.find(account.client.value);
  if (first == years_.first.end() || first->second == year) {
    for (const Event& opening : openings) {
      AddOpening(account, LayerOf(opening, Source::kOpening));
    }
    AddOpeningMove(account, year, computed, cost);
    return;
  }
  const Shares excess = difference.Excess();
  if (!excess) {
    return;
  }
  result_.differences.push_back(difference);
  if (excess > Shares()) {
    Adopt(account, excess, openings);
  } else {
    Drop(account, -excess, openings);
  }
  AddOpeningMove(account, year, computed, cost);
}

void Replay::AddOpeningMove(const Account& account, text::FinancialYear year, Shares before,
                            Paise cost_before) {
  const Shares more = account.layers.Quantity() - before;
  if (!more) {
    return;
  }
  Move move{.day = year.FirstDay()};
  const bool came_in = more > Shares();
  (came_in ? move.to_client : move.from_client) = account.client;
  (came_in ? move.to : move.from) = account.place;
  move.quantity = came_in ? more : -more;
  const Paise cost = account.layers.Cost() - cost_before;
  move.cost = came_in ? cost : -cost;
  result_.moves.push_back(move);
}

namespace {

/// Shares by the day of their acquisition: recorded less computed.
std::map<Date, Shares> ExcessByDay(const Layers& layers, std::span<const Event> openings) {
  std::map<Date, Shares> excess;
  for (const Event& opening : openings) {
    excess[opening.acquired] += opening.quantity;
  }
  for (const Layer& layer : layers.Left()) {
    excess[layer.acquired] -= layer.quantity;
  }
  return excess;
}

}  // namespace

/// Takes the shares in that the years before do not know, first those of days of which more is
/// recorded than computed.
void Replay::Adopt(Account& account, Shares excess, std::span<const Event> openings) {
  const std::map<Date, Shares> by_day = ExcessByDay(account.layers, openings);
  std::map<Date, Shares> left = by_day;
  for (const Event& opening : openings) {
    Shares& of_day = left[opening.acquired];
    const Shares part = std::min({excess, opening.quantity, std::max(of_day, Shares())});
    if (!part) {
      continue;
    }
    OpenLayer layer = LayerOf(opening, Source::kOpening);
    layer.cost = text::PartOf(opening.amount, part, opening.quantity);
    layer.quantity = part;
    AddOpening(account, layer);
    of_day -= part;
    excess -= part;
  }
}

/// Takes the shares out that the recorded balance does not have, first those of days of which more
/// is computed than recorded.
void Replay::Drop(Account& account, Shares missing, std::span<const Event> openings) {
  for (const auto& [day, excess] : ExcessByDay(account.layers, openings)) {
    const Shares part = std::min(missing, std::max(-excess, Shares()));
    if (part) {
      missing -= part - account.layers.TakeAcquired(part, day);
    }
  }
}

void Replay::Play(const Event& event) {
  switch (event.kind) {
    case EventKind::kOpening:
      return AddOpening(Of(event), LayerOf(event, Source::kPurchase));
    case EventKind::kPurchase:
      return Of(event).layers.Add(LayerOf(event, Source::kPurchase));
    case EventKind::kRights:
      return Of(event).layers.Add(LayerOf(event, Source::kRights));
    case EventKind::kAction:
      return Apply(actions_[static_cast<std::size_t>(event.document)], event);
    case EventKind::kBuyBack:
      return Sell(event, PieceKind::kBuyBack);
    case EventKind::kTransfer:
      return Transfer(event);
    case EventKind::kSale:
      return Sell(event, event.fo ? PieceKind::kFo : PieceKind::kDelivery);
  }
}

void Replay::Sell(const Event& event, PieceKind kind) {
  Account& account = Of(event);
  Spread sale(event.amount, event.quantity);
  Spread expenses(event.expenses, event.quantity);
  Spread stt(event.stt, event.quantity);
  Piece piece{.client = event.client, .place = account.place, .sold = event.day};
  piece.stt_paid = event.stt > Paise();
  piece.document = event.document;
  piece.line = event.line;
  const auto add = [&](Shares quantity) {
    piece.quantity = quantity;
    piece.sale = sale.Next(quantity);
    piece.expenses = expenses.Next(quantity);
    piece.stt = stt.Next(quantity);
    result_.pieces.push_back(piece);
  };
  const Shares missing = account.layers.Take(
      event.quantity, event.day, event.non_delivery, [&](const OpenLayer& part) {
        const bool of_the_day = part.non_delivery && part.entered == event.day;
        piece.kind = !event.fo && event.non_delivery && of_the_day ? PieceKind::kSpeculation : kind;
        piece.acquired = part.acquired;
        piece.entered = part.entered;
        piece.cost = part.cost;
        piece.fair = part.fair;
        piece.source = part.source;
        add(part.quantity);
      });
  if (missing) {
    piece.kind = kind;
    piece.has_cost = false;
    piece.cost = {};
    piece.fair = std::nullopt;
    piece.acquired = event.day;
    piece.entered = event.day;
    piece.source = Source::kPurchase;
    add(missing);
    AddShortage(account, event, missing);
  }
}

void Replay::Transfer(const Event& event) {
  Account& from = Of(event);
  Account& to = At(event.to_client, {event.to, event.scrip, event.fo});
  Move move{.day = event.day,
            .kind = MoveKind::kTransfer,
            .from_client = event.client,
            .from = from.place,
            .to_client = event.to_client,
            .to = to.place,
            .quantity = event.quantity,
            .document = event.document};
  const auto enter = [&](OpenLayer layer) {
    move.cost += layer.cost;
    layer.entered = event.day;
    layer.non_delivery = false;
    to.layers.Add(layer);
  };
  const Shares missing = from.layers.Take(event.quantity, event.day, false, enter);
  if (missing) {
    OpenLayer layer = LayerOf(event, Source::kTransfer);
    layer.quantity = missing;
    layer.cost = text::PartOf(event.amount, missing, event.quantity);
    enter(layer);
    AddShortage(from, event, missing);
  }
  result_.moves.push_back(move);
}

void Replay::AddShortage(const Account& account, const Event& event, Shares quantity) {
  result_.shortages.push_back({account.client, account.place, event.day, quantity, event.document});
}

void Replay::Apply(const DatedAction& action, const Event& event) {
  const bool split = action.terms.kind == records::ActionKind::kSplit ||
                     action.terms.kind == records::ActionKind::kConsolidation;
  if (split && valued_) {
    fair_.Split(action.terms.scrip, action.terms.Ratio());
  }
  // What the action makes of an account is no holder of it.
  const std::size_t holders = accounts_.size();
  for (std::size_t i = 0; i < holders; ++i) {
    Account& account = accounts_[i];
    if (account.place.scrip == action.terms.scrip && !account.place.fo &&
        account.layers.Quantity() > Shares()) {
      ApplyTo(account, action, event);
    }
  }
}

void Replay::ApplyTo(Account& account, const DatedAction& action, const Event& event) {
  using records::ActionKind;
  const Shares held = account.layers.Quantity();
  const records::Action& terms = action.terms;
  switch (terms.kind) {
    case ActionKind::kSplit:
    case ActionKind::kConsolidation:
      account.layers.Restate(terms.Ratio().Of(held));
      return TakeFraction(account, account.layers, action, event);
    case ActionKind::kBonus:
      return GiveBonus(account, action, event);
    case ActionKind::kMerger:
      account.layers.Restate(terms.Ratio().Of(held));
      return MoveTo(account, std::exchange(account.layers, {}), action, event);
    case ActionKind::kNameChange:
      if (terms.other) {
        MoveTo(account, std::exchange(account.layers, {}), action, event);
      }
      return;
    case ActionKind::kDemerger:
      return MoveTo(
          account,
          account.layers.SplitOff(terms.Ratio().Of(held), Shares(terms.cost_percent).Millionths()),
          action, event);
    case ActionKind::kRights:
    case ActionKind::kBuyBack:
    case ActionKind::kDividend:
      return;
  }
}

void Replay::GiveBonus(Account& account, const DatedAction& action, const Event& event) {
  const Shares exact = action.terms.Ratio().Of(account.layers.Quantity());
  OpenLayer bonus;
  bonus.acquired = action.held_from;
  bonus.entered = event.day;
  bonus.quantity = exact;
  bonus.source = Source::kBonus;
  Layers given;
  given.Add(bonus);
  TakeFraction(account, given, action, event);
  account.layers.TakeOver(given);
}

void Replay::MoveTo(Account& account, Layers moved, const DatedAction& action, const Event& event) {
  Account& to = At(account.client, {account.place.account, action.terms.other, false});
  result_.moves.push_back({.day = event.day,
                           .kind = MoveKind::kAction,
                           .from_client = account.client,
                           .from = account.place,
                           .to_client = account.client,
                           .to = to.place,
                           .quantity = moved.Quantity(),
                           .cost = moved.Cost(),
                           .document = action.terms.id.value});
  TakeFraction(to, moved, action, event);
  to.layers.TakeOver(moved);
}

/// Whole shares only: the part of a share is paid for in money.
void Replay::TakeFraction(const Account& account, Layers& layers, const DatedAction& action,
                          const Event& event) {
  const Shares exact = layers.Quantity();
  const Shares fraction = exact - text::WholeShares(exact);
  Spread money(PriceOf(action.terms.price, fraction), fraction);
  layers.Take(fraction, event.day, false, [&](const OpenLayer& part) {
    Piece piece{.client = account.client, .place = account.place, .kind = PieceKind::kFraction};
    piece.acquired = part.acquired;
    piece.entered = part.entered;
    piece.sold = event.day;
    piece.quantity = part.quantity;
    piece.cost = part.cost;
    piece.fair = part.fair;
    piece.sale = money.Next(part.quantity);
    piece.source = part.source;
    piece.document = action.terms.id.value;
    result_.pieces.push_back(piece);
  });
}

/// Balances of days that have passed when the events of `day` begin.
void Replay::NoteBalancesBefore(Date day) {
  for (; next_day_ < days_.size() && days_[next_day_] < day; ++next_day_) {
    for (const Account& account : accounts_) {
      const Shares quantity = account.layers.Quantity();
      if (quantity) {
        result_.balances.push_back(
            {days_[next_day_], account.client, account.place, quantity, account.layers.Cost()});
      }
    }
  }
}

void Replay::Finish() {
  for (const Account& account : accounts_) {
    Holding holding{account.client, account.place, account.layers.Left()};
    if (!holding.layers.empty()) {
      result_.holdings.push_back(std::move(holding));
    }
  }
}

}  // namespace quorvane::positions
