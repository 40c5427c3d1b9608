"""The capital-gain statement of a client and year, from the settled lines of a ledger."""

from collections import defaultdict, deque
from copy import copy
from datetime import date
from fractions import Fraction
from typing import NamedTuple

from actions import Effect, Piece, effect
from exact import anniversary, financial_year, first_day, last_day, paise, rounded
from folder import Action, Bill, Line, Transfer
from ledger import Ledger

CHARGES = ("none", "stax", "stt", "both")
FO = ("all", "fo", "non-fo")
GAINS = ("all", "speculation", "non-speculation")


class Choice(NamedTuple):
    """Period (the whole year when empty) and what counts."""

    start: date | None = None
    end: date | None = None
    charges: str = "none"
    fo: str = "all"
    gains: str = "all"


class Row(NamedTuple):
    """One line of the statement. Quantities and net rates are fractions, money is paise; None
    where a column does not apply."""

    row: str
    account_no: str | None = None
    scrip_code: str | None = None
    purchase_date: date | None = None
    quantity: Fraction | None = None
    purchase_net: Fraction | None = None
    purchase_amount: int | None = None
    sale_date: date | None = None
    sale_quantity: Fraction | None = None
    sale_net: Fraction | None = None
    sale_amount: int | None = None
    purchase_cost: int | None = None
    long_term: int | None = None
    short_term: int | None = None
    speculation: int | None = None
    stt_paid: int | None = None


class _Purchase:
    """What came in at one time, with what sales and transfers out have left of it."""

    def __init__(self, when, quantity, lot_rate, brokerage, service_tax, stt, fo):
        self.date = when
        self.quantity = quantity
        self.lot_rate = lot_rate
        self.brokerage = brokerage
        self.net = lot_rate + brokerage
        self.service_tax = service_tax
        self.stt = stt
        self.fo = fo
        self.left = quantity

    def unit_cost(self, charges: str) -> Fraction:
        cost = self.net
        if charges in ("stax", "both"):
            cost += self.service_tax / self.quantity
        if charges in ("stt", "both"):
            cost += self.stt / self.quantity
        return cost


class _Sale(NamedTuple):
    date: date
    quantity: Fraction
    lot_rate: Fraction
    net: Fraction
    stt: Fraction
    transfer: bool  # leaves by a transfer: at its purchase rate, without a gain
    listed: bool  # False before the period: only uses lots up


class _Sides:
    """Purchases and sales of one account and scrip, each in the order in which they count."""

    def __init__(self):
        self.purchases: list[tuple[tuple, _Purchase]] = []
        self.sales: list[tuple[tuple, _Sale]] = []

    def in_order(self):
        return ([one for _key, one in sorted(self.purchases, key=lambda pair: pair[0])],
                [one for _key, one in sorted(self.sales, key=lambda pair: pair[0])])


_OPENING, _ACTION, _BILL, _TRANSFER = range(4)


class _Collector:
    """Puts together the sides of every account and scrip of a client up to the period's end."""

    def __init__(self, ledger: Ledger, client: str, year: str, choice: Choice):
        self._client, self._year, self._fo = client, year, choice.fo
        self._start = choice.start or first_day(year)
        self._end = choice.end or last_day(year)
        self.sides: dict[tuple[str, str], _Sides] = defaultdict(_Sides)
        self.effects: list[tuple[int, str, Effect]] = []  # with the action's place by day
        portfolio = ledger.portfolio
        for order, row in enumerate(portfolio.openings):
            if (row.client, row.year) == (client, year) and self._wanted(row.fo):
                self._buy((row.account, row.scrip), (row.date, _OPENING, order), row)
        for bill in portfolio.bills:
            if bill.client == client and self._within(bill.date):
                self._add_bill(bill, ledger.lines[bill.order])
        if choice.fo != "fo":
            for order, move in enumerate(portfolio.transfers):
                if self._within(move.date):
                    self._add_transfer(move, order, portfolio.accounts)
            for order, action in enumerate(sorted(portfolio.actions, key=lambda one: one.ex_day)):
                if self._within(action.ex_day):
                    self._add_action(action, order)

    def _wanted(self, fo: bool) -> bool:
        return self._fo == "all" or fo == (self._fo == "fo")

    def _within(self, when: date) -> bool:
        return financial_year(when) == self._year and when <= self._end

    def _buy(self, place, key, source):
        """`source` is an opening row or a purchase line."""
        self.sides[place].purchases.append((key, _Purchase(
            key[0], source.quantity, source.rate, source.brokerage, source.service_tax,
            source.stt, source.fo)))

    def _add_bill(self, bill: Bill, lines: list[Line]):
        for order, line in enumerate(lines):
            place, key = (bill.account, line.scrip), (bill.date, _BILL, bill.order, order)
            if not self._wanted(line.fo):
                continue
            if line.purchase:
                self._buy(place, key, line)
            else:
                self.sides[place].sales.append((key, _Sale(
                    bill.date, line.quantity, line.lot_rate, line.rate - line.brokerage,
                    line.stt, False, bill.date >= self._start)))

    def _add_transfer(self, move: Transfer, order: int, owners: dict[str, str]):
        key, zero = (move.date, _TRANSFER, order), Fraction(0)
        if owners[move.source] == self._client:
            self.sides[move.source, move.scrip].sales.append((key, _Sale(
                move.date, move.quantity, move.rate, move.rate, zero, True,
                move.date >= self._start)))
        if owners[move.target] == self._client:
            self.sides[move.target, move.scrip].purchases.append((key, _Purchase(
                move.date, move.quantity, move.rate, zero, zero, zero, False)))


    def _add_action(self, action: Action, order: int):
        """Changes what is held when its ex-day begins; earlier ones were added before."""
        for account in [one for one, scrip in self.sides if scrip == action.scrip]:
            pieces = self._held(self.sides[account, action.scrip], action)
            if not pieces:
                continue
            done, zero = effect(pieces, action, account), Fraction(0)
            self.effects.append((order, account, done))
            for n, piece in enumerate(done.out):
                self.sides[account, action.scrip].sales.append((
                    (action.ex_day, _ACTION, order, n),
                    _Sale(action.ex_day, piece.quantity, piece.rate, piece.rate, zero, True,
                          action.ex_day >= self._start)))
            for n, (scrip, piece) in enumerate(done.into):
                self.sides[account, scrip].purchases.append((
                    (action.ex_day, _ACTION, order, n),
                    _Purchase(piece.acquired, piece.quantity, piece.rate, piece.brokerage,
                              piece.service_tax, piece.stt, False)))

    @staticmethod
    def _held(sides: "_Sides", action: Action) -> list[Piece]:
        before = (action.ex_day, _ACTION)
        purchases = [copy(one) for key, one in sorted(sides.purchases, key=lambda pair: pair[0])
                     if key[:2] <= before and not one.fo]
        sales = [one for key, one in sorted(sides.sales, key=lambda pair: pair[0])
                 if key[:2] <= before]
        _match((None, None), purchases, sales, Choice())
        pieces = []
        for one in purchases:
            if one.left:
                share = one.left / one.quantity
                pieces.append(Piece(one.lot_rate, one.left, one.date, one.brokerage,
                                    rounded(one.service_tax * share), rounded(one.stt * share)))
        return pieces


def collect(ledger: Ledger, client: str, year: str, choice: Choice) -> _Collector:
    """`sides`: (account, scrip) -> _Sides, and `effects` of the corporate actions."""
    return _Collector(ledger, client, year, choice)


def _kind(bought: date, sold: date) -> str:
    if bought == sold:
        return "speculation"
    return "short_term" if sold <= anniversary(bought) else "long_term"


def _listed(kind: str, gains: str) -> bool:
    return gains == "all" or (kind == "speculation") == (gains == "speculation")


class _Parts:
    """Hands out a sale's amount and STT so that the parts add up to the whole."""

    def __init__(self, sale: _Sale):
        self._sale = sale
        self._taken = Fraction(0)
        self._amount = rounded(sale.net * sale.quantity)

    def next(self, quantity: Fraction) -> tuple[int, int]:
        before = self._until(self._taken)
        self._taken += quantity
        after = self._until(self._taken)
        return after[0] - before[0], after[1] - before[1]

    def _until(self, quantity: Fraction) -> tuple[int, int]:
        share = quantity / self._sale.quantity
        return paise(self._amount * share), paise(self._sale.stt * share)


def _match_row(place, purchase: _Purchase, sale: _Sale, part, parts: _Parts, choice: Choice):
    amount, stt = parts.next(part)
    cost = paise(part * purchase.unit_cost(choice.charges))
    name = "transfer" if sale.transfer else "match"
    row = Row(name, *place, purchase.date, part, purchase.net, paise(purchase.net * part),
              sale.date, part, sale.net, amount, cost, 0, 0, 0, stt)
    if sale.transfer:
        return row if choice.gains != "speculation" else None
    gain = amount - cost - (stt if choice.charges in ("stt", "both") else 0)
    kind = _kind(purchase.date, sale.date)
    if not _listed(kind, choice.gains):
        return None
    return row._replace(**{kind: gain})


def _match(place, purchases: list[_Purchase], sales: list[_Sale], choice: Choice) -> list[Row]:
    rows = []
    lots: dict[Fraction, deque[_Purchase]] = defaultdict(deque)
    for purchase in purchases:
        lots[purchase.lot_rate].append(purchase)
    for sale in sales:
        wanted, parts, lot = sale.quantity, _Parts(sale), lots[sale.lot_rate]
        while wanted and lot:
            purchase = lot[0]
            part = min(wanted, purchase.left)
            purchase.left -= part
            wanted -= part
            if not purchase.left:
                lot.popleft()
            if sale.listed:
                rows.append(_match_row(place, purchase, sale, part, parts, choice))
        if wanted and sale.listed and choice.gains != "speculation":
            amount, stt = parts.next(wanted)
            rows.append(Row("transfer" if sale.transfer else "unmatched", *place,
                            sale_date=sale.date, sale_quantity=wanted, sale_net=sale.net,
                            sale_amount=amount, stt_paid=stt))
    return [row for row in rows if row]


def _unsold(place, purchases: list[_Purchase]) -> list[Row]:
    return [Row("unsold", *place, one.date, one.left, one.net, paise(one.net * one.left))
            for one in purchases if one.left]


def _total(name: str, rows: list[Row], scrip: str | None = None) -> Row:
    def total(column):
        return sum(getattr(row, column) or 0 for row in rows)

    sums = {column: total(column) for column in (
        "purchase_amount", "sale_amount", "purchase_cost", "long_term", "short_term",
        "speculation", "stt_paid")}
    if scrip is not None:
        sums["quantity"] = Fraction(total("quantity"))
        sums["sale_quantity"] = Fraction(total("sale_quantity"))
    return Row(name, scrip_code=scrip, **sums)


def statement(ledger: Ledger, client: str, year: str, choice: Choice = Choice()) -> list[Row]:
    """Scrips by name, in them accounts by number: sales and transfers out in their order, then
    what is unsold in purchase order; then the scrip's total, also when nothing of it is listed.
    Last the net total. Nothing at all for a client without a movement in the period."""
    sides = collect(ledger, client, year, choice).sides
    names = ledger.portfolio.scrips
    result: list[Row] = []
    listed: list[Row] = []
    for scrip in sorted({scrip for _account, scrip in sides},
                        key=lambda code: (names[code].upper(), code)):
        rows: list[Row] = []
        for account in sorted(account for account, code in sides if code == scrip):
            purchases, sales = sides[account, scrip].in_order()
            rows += _match((account, scrip), purchases, sales, choice)
            if choice.gains != "speculation":
                rows += _unsold((account, scrip), purchases)
        listed += rows
        result += rows + [_total("total", rows, scrip)]
    return result + [_total("net_total", listed)] if sides else []


class Remaining(NamedTuple):
    """What is left of a purchase at the year's end, as the next year's opening row has it."""

    account: str
    scrip: str
    quantity: Fraction
    rate: Fraction
    date: date
    service_tax: Fraction
    brokerage: Fraction
    stt: Fraction
    fo: bool


def remaining(ledger: Ledger, client: str, year: str) -> list[Remaining]:
    """By account and scrip code, in purchase order; charges pro rata to the paisa."""
    result = []
    sides = collect(ledger, client, year, Choice()).sides
    for account, scrip in sorted(sides):
        purchases, sales = sides[account, scrip].in_order()
        _match((account, scrip), purchases, sales, Choice())
        for one in purchases:
            if one.left:
                share = one.left / one.quantity
                result.append(Remaining(
                    account, scrip, one.left, one.lot_rate, one.date,
                    rounded(one.service_tax * share), one.brokerage, rounded(one.stt * share),
                    one.fo))
    return result
