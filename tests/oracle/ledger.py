"""Moves the shares of a portfolio day by day: which lot each sale takes from, and what is left.

On one day corporate actions come first, then what was bought without delivery, then bills in file
order, the purchases of a bill before its sales, then transfers in file order. A sale without
delivery that names no lot takes what was bought so on that day before the oldest purchases; another
one that names no lot takes it last. A bill that lacks balance is tried again after those transfers
of the day that are possible. Each financial year stands on its own opening rows.
"""

from bisect import insort
from collections import defaultdict
from datetime import date
from fractions import Fraction

from exact import Refusal, financial_year, plain, rounded
from actions import Piece, effect
from folder import Action, Bill, Line, Portfolio, Transfer, years


class Shortage(Refusal):
    """More is sold or transferred than there is."""


class _Layer:
    """A quantity that came in at one time. Layers are used up by purchase date; those of one date
    in the order of their arrival, and a year's opening rows arrive first."""

    __slots__ = ("key", "entered", "rate", "left", "received", "non_delivery")

    def __init__(self, when: date, entered: date, arrival: int, rate: Fraction, left: Fraction,
                 non_delivery: bool):
        self.key = (when, arrival)
        self.entered = (entered, arrival)
        self.non_delivery = non_delivery
        self.rate = rate
        self.left = self.received = left

    def __lt__(self, other: "_Layer") -> bool:
        return self.key < other.key


class _Shelf:
    """The layers of every account and scrip during one year."""

    def __init__(self):
        self._layers: dict[tuple[str, str], list[_Layer]] = defaultdict(list)
        self._arrivals = 0

    def put(self, account, scrip, when, rate, quantity, non_delivery=False, entered=None):
        self._arrivals += 1
        insort(self._layers[account, scrip],
               _Layer(when, entered or when, self._arrivals, rate, quantity, non_delivery))

    def apply(self, account, action: Action) -> list[tuple[str, Fraction]]:
        """Lets a corporate action change an account; the lots that shares came into."""
        pieces = self._by_entry(self._layers[account, action.scrip])
        if not pieces:
            return []
        done = effect(pieces, action, account)
        if action.kind == "buy-back":
            for piece in done.out:
                self.take(account, action.scrip, piece.quantity, piece.rate)
        elif done.out:
            self._layers[account, action.scrip] = []
        for scrip, piece in done.into:
            self.put(account, scrip, piece.acquired, piece.rate, piece.quantity,
                     entered=action.ex_day)
        return [(scrip, piece.rate) for scrip, piece in done.into]

    @staticmethod
    def _by_entry(layers: list[_Layer]) -> list[Piece]:
        """What is left when sales use up, within the lot that they name, what came in first."""
        taken = defaultdict(Fraction)
        for layer in layers:
            taken[layer.rate] += layer.received - layer.left
        pieces = []
        for layer in sorted(layers, key=lambda layer: layer.entered):
            used_up = min(taken[layer.rate], layer.received)
            taken[layer.rate] -= used_up
            if used_up < layer.received:
                pieces.append(Piece(layer.rate, layer.received - used_up, layer.key[0]))
        return pieces

    def take(self, account, scrip, quantity, rate=None, until=date.max,
             last=lambda layer: False) -> list[tuple[Fraction, Fraction]]:
        """Takes from the earliest layers (of that rate, if given; none that counts as held from
        after `until`; those that are to be `last` after all others): (rate, quantity) in order,
        neighbours of one rate joined. Takes nothing when there is not enough."""
        layers = self._layers[account, scrip]
        usable = [layer for layer in layers
                  if layer.key[0] <= until and (rate is None or layer.rate == rate)]
        usable.sort(key=last)
        balance = sum((layer.left for layer in usable), Fraction(0))
        if quantity > balance:
            raise Shortage(f"Maximum Allowed Value is: {plain(balance)}")
        takes: list[tuple[Fraction, Fraction]] = []
        for layer in usable:
            if not quantity:
                break
            part = min(quantity, layer.left)
            if not part:
                continue
            layer.left -= part
            quantity -= part
            if takes and takes[-1][0] == layer.rate:
                part += takes.pop()[1]
            takes.append((layer.rate, part))
        return takes

    def saved(self, keys):
        return {key: [(layer, layer.left) for layer in self._layers[key]] for key in keys}

    def restore(self, saved):
        for key, layers in saved.items():
            for layer, left in layers:
                layer.left = left
            self._layers[key] = [layer for layer, _left in layers]

    def lots(self) -> dict[tuple[str, str, Fraction], Fraction]:
        result: dict[tuple[str, str, Fraction], Fraction] = defaultdict(Fraction)
        for (account, scrip), layers in self._layers.items():
            for layer in layers:
                result[account, scrip, layer.rate] += layer.left
        return dict(result)


def split(line: Line, takes: list[tuple[Fraction, Fraction]]) -> list[Line]:
    """One line a lot. Up to any line the charges are the rounded part of the quantity so far, never
    beyond the whole: the parts add up to it and none is negative."""
    lines = []
    taken = Fraction(0)
    service_tax = stt = Fraction(0)
    for rate, quantity in takes:
        taken += quantity
        tax_so_far, stt_so_far = (
            whole if taken == line.quantity else min(whole, rounded(whole * taken / line.quantity))
            for whole in (line.service_tax, line.stt))
        lines.append(line._replace(quantity=quantity, lot_rate=rate,
                                   service_tax=tax_so_far - service_tax, stt=stt_so_far - stt))
        service_tax, stt = tax_so_far, stt_so_far
    return lines


class Ledger:
    """What became of a portfolio: `lines` of each bill (by its order) with every sale's lot rate
    known, and `lots`: (year, account, scrip, rate) -> quantity at the year's end, used-up lots
    included. Raises Refusal for a portfolio that sells or transfers what is not there."""

    def __init__(self, portfolio: Portfolio):
        self.portfolio = portfolio
        self.lines: dict[int, list[Line]] = {}
        self.lots: dict[tuple[str, str, str, Fraction], Fraction] = {}
        bills, transfers = defaultdict(list), defaultdict(list)
        for bill in portfolio.bills:
            bills[bill.date].append(bill)
        for transfer in portfolio.transfers:
            transfers[transfer.date].append(transfer)
        days = sorted({*bills, *transfers, *(action.ex_day for action in portfolio.actions)})
        for year in years(portfolio):
            self._shelf = _Shelf()
            self._open(year)
            for when in days:
                if financial_year(when) == year:
                    self._act(when)
                    self._settle_day(bills[when], transfers[when])
            self._close(year)

    def _open(self, year: str):
        self._year = year
        for row in self.portfolio.openings:
            if row.year == year:
                self._put(row.account, row.scrip, row.date, row.rate, row.quantity)

    def _put(self, account, scrip, when, rate, quantity, non_delivery=False):
        self._shelf.put(account, scrip, when, rate, quantity, non_delivery)
        self.lots[self._year, account, scrip, rate] = Fraction(0)

    def _close(self, year: str):
        for lot, quantity in self._shelf.lots().items():
            self.lots[(year, *lot)] = quantity

    def _act(self, when: date):
        for action in self.portfolio.actions:
            for account in self.portfolio.accounts if action.ex_day == when else ():
                for scrip, rate in self._shelf.apply(account, action):
                    self.lots[self._year, account, scrip, rate] = Fraction(0)

    def _settle_day(self, bills: list[Bill], transfers: list[Transfer]):
        for bill in bills:
            self._receive(bill, True)
        for bill in bills:
            try:
                self._settle(bill)
            except Shortage:
                transfers = [one for one in transfers if not self._moved(one)]
                self._settle(bill)
        for transfer in transfers:
            self._move(transfer)

    def _receive(self, bill: Bill, non_delivery: bool):
        for line in bill.lines:
            if line.purchase and line.non_delivery == non_delivery:
                self._put(bill.account, line.scrip, bill.date, line.rate, line.quantity,
                          non_delivery)

    def _settle(self, bill: Bill):
        saved = self._shelf.saved({(bill.account, line.scrip) for line in bill.lines})
        try:
            self.lines[bill.order] = self._settled_lines(bill)
        except Shortage:
            self._shelf.restore(saved)
            raise

    def _settled_lines(self, bill: Bill) -> list[Line]:
        self._receive(bill, False)
        settled: list[Line] = []
        for line in bill.lines:
            settled += [line] if line.purchase else self._sold(bill, line)
        return settled

    def _sold(self, bill: Bill, line: Line) -> list[Line]:
        if line.no_lot:
            return [line]

        def last(layer: _Layer) -> bool:
            of_the_day = layer.non_delivery and layer.key[0] == bill.date
            return line.lot_rate is None and of_the_day != line.non_delivery
        try:
            takes = self._shelf.take(bill.account, line.scrip, line.quantity, line.lot_rate,
                                     bill.date if line.lot_rate is None else date.max, last)
        except Shortage as shortage:
            raise Shortage(f"bills.csv line {line.row}: You Can't Sale Scripts More than Balance. "
                           f"{shortage}") from None
        return split(line, takes)

    def _move(self, transfer: Transfer):
        try:
            self._shelf.take(transfer.source, transfer.scrip, transfer.quantity, transfer.rate)
        except Shortage as shortage:
            raise Shortage(f"transfers.csv line {transfer.row}: You Can't Transfer Scripts More "
                           f"than Balance. {shortage}") from None
        self._put(transfer.target, transfer.scrip, transfer.date, transfer.rate,
                  transfer.quantity)

    def _moved(self, transfer: Transfer) -> bool:
        try:
            self._move(transfer)
        except Shortage:
            return False
        return True

    def holdings(self, client: str, year: str) -> list[tuple[str, str, Fraction, Fraction]]:
        """(account, scrip, rate, quantity), by these; used-up lots included."""
        return sorted((account, scrip, rate, quantity)
                      for (lot_year, account, scrip, rate), quantity in self.lots.items()
                      if lot_year == year and self.portfolio.accounts[account] == client)
