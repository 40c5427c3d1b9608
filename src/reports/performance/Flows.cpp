#include "reports/performance/Flows.h"

#include <algorithm>
#include <chrono>
#include <tuple>

namespace quorvane::performance {
namespace {

using positions::Event;
using positions::EventKind;
using positions::Move;
using positions::MoveKind;
using positions::Place;

Spot SpotOf(ClientId client, const Place& place) {
  return {client, place.account, place.scrip};
}

Spot SpotOf(const Event& event) {
  return {event.client, event.account, event.scrip};
}

bool IsOfBill(const Event& event) {
  return event.kind == EventKind::kPurchase || event.kind == EventKind::kSale;
}

/// The charges of the bills, divided among their lines by amount.
class ChargesOfLines {
 public:
  ChargesOfLines(std::span<const Event> events, const BillCharges& charges) {
    std::map<std::pair<ClientId, int>, std::vector<const Event*>> bills;
    for (const Event& event : events) {
      if (IsOfBill(event)) {
        bills[{event.client, event.document}].push_back(&event);
      }
    }
    for (auto& [bill, lines] : bills) {
      if (const auto found = charges.find(bill); found != charges.end()) {
        std::ranges::sort(lines, {}, &Event::line);
        Divide(found->second, lines);
      }
    }
  }

  Paise Of(const Event& event) const {
    const auto found = by_line_.find(&event);
    return found == by_line_.end() ? Paise() : found->second;
  }

 private:
  void Divide(Paise charges, std::span<const Event* const> lines) {
    std::int64_t whole = 0;
    for (const Event* line : lines) {
      whole += line->amount.Count();
    }
    std::int64_t before = 0;
    Paise given;
    for (const Event* line : lines) {
      before += line->amount.Count();
      const Paise upto =
          line == lines.back() ? charges : Paise(text::Proportion(charges.Count(), before, whole));
      by_line_.emplace(line, upto - given);
      given = upto;
    }
  }

  std::map<const Event*, Paise> by_line_;
};

class FlowMaker {
 public:
  explicit FlowMaker(const FlowSource& source)
      : source_(source), charges_(source.history.events, source.charges) {}

  std::vector<Flow> Make() {
    AddValues();
    for (const Event& event : source_.history.events) {
      if (!event.fo && IsWithin(event.day)) {
        AddTrade(event);
      }
    }
    for (const Move& move : source_.positions.moves) {
      AddMove(move);
    }
    for (const positions::Piece& piece : source_.positions.pieces) {
      if (piece.kind == positions::PieceKind::kFraction && IsWithin(piece.sold)) {
        Add({piece.sold, FlowKind::kFraction, SpotOf(piece.client, piece.place), {}, piece.sale});
      }
    }
    AddDividends();
    std::ranges::stable_sort(flows_, {},
                             [](const Flow& flow) { return std::tuple(flow.day, flow.kind); });
    return std::move(flows_);
  }

 private:
  bool IsWithin(Date day) const { return source_.period.from <= day && day <= source_.period.to; }
  Date DayBefore() const { return source_.period.from - std::chrono::days(1); }
  void Add(const Flow& flow) { flows_.push_back(flow); }

  void AddValues() {
    for (const positions::Balance& balance : source_.positions.balances) {
      const bool opens = balance.day == DayBefore();
      if (balance.place.fo || (!opens && balance.day != source_.period.to)) {
        continue;
      }
      const Worth worth =
          WorthOf(source_.rates, balance.place.scrip, balance.quantity, balance.cost, balance.day);
      Flow flow{balance.day, opens ? FlowKind::kOpeningValue : FlowKind::kClosingValue, {}, {}};
      (opens ? flow.to : flow.from) = SpotOf(balance.client, balance.place);
      Add(Valued(flow, worth));
    }
  }

  void AddTrade(const Event& event) {
    const Paise charges = event.stt + charges_.Of(event);
    switch (event.kind) {
      case EventKind::kPurchase:
        return Add({event.day, FlowKind::kPurchase, {}, SpotOf(event), event.amount + charges});
      case EventKind::kRights:
        return Add({event.day, FlowKind::kRights, {}, SpotOf(event), event.amount + charges});
      case EventKind::kSale:
        return Add({event.day,
                    FlowKind::kSale,
                    SpotOf(event),
                    {},
                    event.amount - event.expenses - charges});
      case EventKind::kBuyBack:
        return Add({event.day, FlowKind::kBuyBack, SpotOf(event), {}, event.amount});
      case EventKind::kOpening:
      case EventKind::kAction:
      case EventKind::kTransfer:
        return;
    }
  }

  void AddMove(const Move& move) {
    if (!IsWithin(move.day) || move.from.fo || move.to.fo || !move.quantity) {
      return;
    }
    const bool opens = move.kind == MoveKind::kOpening && move.day == source_.period.from;
    Flow flow{opens ? DayBefore() : move.day, KindOf(move.kind), {}, {}};
    if (move.from_client) {
      flow.from = SpotOf(move.from_client, move.from);
    }
    if (move.to_client) {
      flow.to = SpotOf(move.to_client, move.to);
    }
    const ScripId scrip = move.to_client ? move.to.scrip : move.from.scrip;
    const Worth worth = WorthOf(source_.rates, scrip, move.quantity, move.cost, flow.day);
    flow = Valued(flow, worth);
    if (opens) {
      flow.kind = FlowKind::kOpeningValue;
      if (flow.from) {  // the books open with less: the value before the day has that much less
        flow.to = std::exchange(flow.from, std::nullopt);
        flow.amount = -flow.amount;
      }
    }
    Add(flow);
  }

  static Flow Valued(Flow flow, const Worth& worth) {
    flow.amount = worth.amount;
    flow.valued = true;
    flow.rate_day = worth.rate_day;
    return flow;
  }

  static FlowKind KindOf(MoveKind kind) {
    switch (kind) {
      case MoveKind::kOpening:
        return FlowKind::kOpeningBalance;
      case MoveKind::kTransfer:
        return FlowKind::kTransfer;
      case MoveKind::kAction:
        break;
    }
    return FlowKind::kAction;
  }

  void AddDividends() {
    for (const records::Dividend& dividend : source_.dividends) {
      const auto day = text::ParseDmy(dividend.date);
      if (day && IsWithin(*day)) {
        const Paise tax = Paise::OfRupees(dividend.tax_deducted);
        Add({*day,
             FlowKind::kDividend,
             Spot{dividend.client, dividend.account, dividend.scrip},
             {},
             Paise::OfRupees(dividend.Gross()) - tax,
             tax});
      }
    }
  }

  const FlowSource& source_;
  ChargesOfLines charges_;
  std::vector<Flow> flows_;
};

}  // namespace

Worth WorthOf(const rates::RateHistory& rates, ScripId scrip, Shares quantity, Paise cost,
              Date day) {
  const auto rate = rates.NewestUpTo(scrip, day);
  return rate ? Worth{Paise::OfRupees(quantity.Number() * rate->rate), rate->date}
              : Worth{cost, std::nullopt};
}

std::vector<Flow> MakeFlows(const FlowSource& source) {
  return FlowMaker(source).Make();
}

}  // namespace quorvane::performance
