"""What is held and what was sold over all years, worked out a second time: layers with their days
and costs, first in, first out by the day on which they entered an account."""

from datetime import date
from fractions import Fraction
from typing import NamedTuple

from actions import held_from, kept, restated
from exact import dmy, financial_year, first_day, money, paise, plain
from folder import Action
from ledger import Ledger

COLUMNS = ("row", "account_no", "scrip_code", "acquired", "entered", "quantity", "cost", "sold",
           "sale", "expenses", "stt")
FAIR_DAY = date(2018, 1, 31)


def half_away(value: Fraction) -> int:
    return paise(value / 100)


def shared(whole: int, parts: list[Fraction]) -> list[int]:
    """Paise over parts of a quantity, so that up to any part the sum is the rounded share."""
    total, before, taken, result = sum(parts), 0, Fraction(0), []
    for part in parts:
        taken += part
        upto = half_away(whole * taken / total)
        result.append(upto - before)
        before = upto
    return result


class Layer:
    """`fair` is the fair value of 31/01/2018 in paise, of shares acquired until then; None where
    there is none. It is divided as the cost is."""

    def __init__(self, acquired, entered, quantity, cost, intraday=False, fair=None):
        self.acquired, self.entered = acquired, entered
        self.quantity, self.cost, self.intraday, self.fair = quantity, cost, intraday, fair

    def part(self, quantity: Fraction) -> "Layer":
        """Takes a part out, with its share of the cost."""
        cost, fair = self._shares(quantity / self.quantity)
        self.quantity -= quantity
        return Layer(self.acquired, self.entered, quantity, cost, self.intraday, fair)

    def split_off(self, percent: Fraction) -> "Layer":
        """Takes a part of the cost out, for as many shares."""
        cost, fair = self._shares(percent / 100)
        return Layer(self.acquired, self.entered, self.quantity, cost, fair=fair)

    def _shares(self, part: Fraction) -> tuple[int, int | None]:
        """Takes a part of the cost and of the fair value out."""
        cost, fair = half_away(self.cost * part), None
        self.cost -= cost
        if self.fair is not None:
            fair = half_away(self.fair * part)
            self.fair -= fair
        return cost, fair


class Sold(NamedTuple):
    """A piece that left, or a difference of a year's opening."""

    place: tuple[str, str, bool]
    when: date
    kind: str
    acquired: date
    entered: date | None
    quantity: Fraction
    cost: int
    sold: date | None = None
    sale: int | None = None
    expenses: int | None = None
    stt: int | None = None
    stt_paid: bool = False
    fair: int | None = None


def take(layers: list[Layer], quantity: Fraction, when: date, intraday=False) -> list[Layer]:
    """The parts taken; what is not there is missing in their sum."""
    def of_the_day(layer):
        return layer.intraday and layer.entered == when
    taken = []
    for layer in sorted(layers, key=lambda one: of_the_day(one) != intraday):
        part = min(quantity, layer.quantity)
        if part:
            taken.append(layer.part(part))
            quantity -= part
    layers[:] = [layer for layer in layers if layer.quantity]
    return taken


def put(layers: list[Layer], new: list[Layer]):
    layers += new
    layers.sort(key=lambda layer: layer.entered)


def restate(layers: list[Layer], total: Fraction):
    for layer, quantity in zip(layers, restated([one.quantity for one in layers], total)):
        layer.quantity = quantity


class History:
    """`layers`: (account, scrip, futures) -> what is held, and `rows` of what was sold."""

    def __init__(self, ledger: Ledger):
        self.portfolio = ledger.portfolio
        self.lines = ledger.lines
        self.layers: dict[tuple[str, str, bool], list[Layer]] = {}
        self.rows: list[Sold] = []
        opened = {(row.client, row.year) for row in self.portfolio.openings}
        self.first = self._first_years()
        days = {one.date for one in (*self.portfolio.bills, *self.portfolio.transfers)}
        days |= {action.ex_day for action in self.portfolio.actions}
        days |= {first_day(year) for _client, year in opened}
        valued = False
        for when in sorted(days):
            if when > FAIR_DAY and not valued:
                self._value()
                valued = True
            year = financial_year(when)
            if when == first_day(year):
                self._open(year, {client for client, of in opened if of == year})
            self._play(when)

    def _first_years(self) -> dict[str, str]:
        first: dict[str, str] = {}
        owners = self.portfolio.accounts
        for client, year in (
                *((row.client, row.year) for row in self.portfolio.openings),
                *((bill.client, financial_year(bill.date)) for bill in self.portfolio.bills),
                *((owners[account], financial_year(move.date))
                  for move in self.portfolio.transfers
                  for account in (move.source, move.target))):
            first[client] = min(first.get(client, year), year)
        return first

    def _at(self, account, scrip, fo=False) -> list[Layer]:
        return self.layers.setdefault((account, scrip, fo), [])

    def _value(self):
        """What is held at the end of 31/01/2018 gets its fair value."""
        for (_account, scrip, _fo), layers in self.layers.items():
            for layer in layers:
                layer.fair = self._fair(scrip, layer.acquired, layer.quantity, FAIR_DAY)

    def _fair(self, scrip: str, acquired: date, quantity: Fraction, entered: date) -> int | None:
        """Of shares that enter on a day; splits until then have changed their number."""
        if scrip not in self.portfolio.fair_values or acquired > FAIR_DAY or entered < FAIR_DAY:
            return None
        value = self.portfolio.fair_values[scrip] * quantity
        for action in self.portfolio.actions:
            if (action.kind in ("split", "consolidation") and action.scrip == scrip
                    and FAIR_DAY < action.ex_day < entered):
                value *= action.old / action.new
        return paise(value)

    def _open(self, year: str, clients: set[str]):
        opening: dict[tuple, list[Layer]] = {}
        for row in self.portfolio.openings:
            if row.year == year:
                cost = paise((row.rate + row.brokerage) * row.quantity) + paise(row.service_tax)
                self._at(row.account, row.scrip, row.fo)
                fair = self._fair(row.scrip, row.date, row.quantity, first_day(year))
                opening.setdefault((row.account, row.scrip, row.fo), []).append(
                    Layer(row.date, row.date, row.quantity, cost, fair=fair))
        for place, layers in self.layers.items():
            client = self.portfolio.accounts[place[0]]
            if client in clients:
                if self.first[client] == year:
                    put(layers, opening.get(place, []))
                else:
                    self._compare(place, layers, opening.get(place, []), year)

    def _compare(self, place, layers: list[Layer], recorded: list[Layer], year: str):
        excess = sum(one.quantity for one in recorded) - sum(one.quantity for one in layers)
        if not excess:
            return
        cost = sum(one.cost for one in recorded) - sum(one.cost for one in layers)
        self.rows.append(Sold(place, first_day(year), "difference", first_day(year), None, excess,
                              cost))
        by_day: dict[date, Fraction] = {}
        for sign, some in ((1, recorded), (-1, layers)):
            for one in some:
                by_day[one.acquired] = by_day.get(one.acquired, Fraction(0)) + sign * one.quantity
        if excess > 0:
            for one in recorded:
                part = min(excess, one.quantity, max(by_day[one.acquired], Fraction(0)))
                if part:
                    by_day[one.acquired] -= part
                    excess -= part
                    new = one.part(part)
                    new.fair = self._fair(place[1], new.acquired, part, first_day(year))
                    put(layers, [new])
            return
        for when in sorted(by_day):
            part = min(-excess, max(-by_day[when], Fraction(0)))
            excess += part
            for layer in [one for one in layers if one.acquired == when]:
                some = min(part, layer.quantity)
                if some:
                    layer.part(some)
                    part -= some
        layers[:] = [layer for layer in layers if layer.quantity]

    def _play(self, when: date):
        for action in self.portfolio.actions:
            if action.ex_day == when:
                self._apply(action)
                self._subscribe_or_give(action)
        bills = [bill for bill in self.portfolio.bills if bill.date == when]
        for bill in bills:
            for line in self.lines[bill.order]:
                if line.purchase:
                    cost = (paise((line.rate + line.brokerage) * line.quantity)
                            + paise(line.service_tax))
                    put(self._at(bill.account, line.scrip, line.fo),
                        [Layer(when, when, line.quantity, cost, line.non_delivery)])
        for move in self.portfolio.transfers:
            if move.date == when:
                taken = take(self._at(move.source, move.scrip), move.quantity, when)
                missing = move.quantity - sum(one.quantity for one in taken)
                if missing:  # as recorded, at the rate of the lot
                    whole = paise(move.rate * move.quantity)
                    taken.append(Layer(when, when, missing,
                                       half_away(whole * missing / move.quantity)))
                put(self._at(move.target, move.scrip),
                    [Layer(one.acquired, when, one.quantity, one.cost, fair=one.fair)
                     for one in taken])
        for bill in bills:
            for line in self.lines[bill.order]:
                if not line.purchase:
                    self._sell(bill, line)

    def _sell(self, bill, line):
        before = paise(line.rate * line.quantity)
        net = paise((line.rate - line.brokerage) * line.quantity)
        self._leave((bill.account, line.scrip, line.fo), "fo" if line.fo else "sale", bill.date,
                    line.quantity, (before, before - net + paise(line.service_tax),
                                    paise(line.stt)), line.non_delivery)

    def _leave(self, place, usual: str, when: date, quantity: Fraction, wholes, intraday=False):
        """Takes shares out, with their parts of the whole amounts: sale, expenses, STT."""
        parts = take(self._at(*place), quantity, when, intraday)
        quantities = [one.quantity for one in parts]
        missing = quantity - sum(quantities)
        if missing:
            quantities.append(missing)
            parts.append(Layer(when, when, missing, 0))
        amounts = [shared(whole, quantities) for whole in wholes]
        for n, part in enumerate(parts):
            kind = usual
            if usual == "sale" and intraday and part.intraday and part.entered == when:
                kind = "speculation"
            if missing and part is parts[-1]:
                kind = "without-cost"
            self._sold(place, kind, part, when, *(one[n] for one in amounts), wholes[2] > 0)

    def _subscribe_or_give(self, action: Action):
        """What accounts chose to take of rights, or to give to a buy-back, lot by lot."""
        for account, lots in (action.given or {}).items():
            for quantity in lots:
                place, amount = (account, action.scrip, False), paise(action.price * quantity)
                if action.kind == "rights":
                    put(self._at(*place),
                        [Layer(held_from(action), action.ex_day, quantity, amount)])
                else:
                    self._leave(place, "buy-back", action.ex_day, quantity, (amount, 0, 0))

    def _sold(self, place, kind, part: Layer, when: date, sale: int, expenses=0, stt=0,
              stt_paid=False):
        self.rows.append(Sold(place, when, kind, part.acquired, part.entered, part.quantity,
                              part.cost, when, sale, expenses, stt, stt_paid, part.fair))

    def _apply(self, action: Action):
        for account in self.portfolio.accounts:
            layers = self._at(account, action.scrip)
            held = sum((layer.quantity for layer in layers), Fraction(0))
            if held > 0:
                self._apply_to(account, layers, held, action)

    def _apply_to(self, account, layers: list[Layer], held: Fraction, action: Action):
        here, there = (account, action.scrip, False), (account, action.other, False)
        new = kept(held * action.new / action.old) if action.old else Fraction(0)
        if action.kind in ("split", "consolidation"):
            restate(layers, new)
            self._fraction(here, layers, action)
        elif action.kind == "bonus":
            given = [Layer(held_from(action), action.ex_day, new, 0)]
            self._fraction(here, given, action)
            put(layers, given)
        elif action.kind == "rights" and action.given is None:
            whole = new - new % 1
            if whole:
                put(layers, [Layer(held_from(action), action.ex_day, whole,
                                   paise(action.price * whole))])
        elif action.kind in ("merger", "name-change") and action.other:
            moved, layers[:] = list(layers), []
            if action.kind == "merger":
                restate(moved, new)
            self._fraction(there, moved, action)
            put(self._at(*there), moved)
        elif action.kind == "demerger":
            moved = [one.split_off(action.percent) for one in layers]
            restate(moved, new)
            self._fraction(there, moved, action)
            put(self._at(*there), moved)

    def _fraction(self, place, layers: list[Layer], action: Action):
        total = sum(layer.quantity for layer in layers)
        parts = take(layers, total % 1, action.ex_day)
        if parts:
            quantities = [one.quantity for one in parts]
            money_parts = shared(paise(action.price * sum(quantities)), quantities)
            for part, amount in zip(parts, money_parts):
                self._sold(place, "fraction", part, action.ex_day, amount)

    def cells(self, client: str) -> list[dict]:
        """In the form and order of the program's csv."""
        accounts, scrips = list(self.portfolio.accounts), list(self.portfolio.scrips)

        def order(place):
            account, scrip, fo = place
            return accounts.index(account), scrips.index(scrip), fo

        def is_of_client(place):
            return self.portfolio.accounts[place[0]] == client

        rows = [("layer", *place[:2], dmy(one.acquired), dmy(one.entered), plain(one.quantity),
                 money(one.cost), "", "", "", "")
                for place in sorted(filter(is_of_client, self.layers), key=order)
                for one in self.layers[place]]
        mine = [row for row in self.rows if is_of_client(row.place)]
        sold = sorted((row for row in mine if row.kind != "difference"),
                      key=lambda row: (order(row.place), row.when))
        sold += sorted((row for row in mine if row.kind == "difference"),
                       key=lambda row: (row.when, order(row.place)))
        for one in sold:
            rows.append((one.kind, *one.place[:2], dmy(one.acquired),
                         dmy(one.entered) if one.entered else "", plain(one.quantity),
                         money(one.cost),
                         *(("",) * 4 if one.sold is None else
                           (dmy(one.sold), money(one.sale), money(one.expenses),
                            money(one.stt)))))
        return [dict(zip(COLUMNS, row)) for row in rows]
