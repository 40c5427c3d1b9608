"""The tax year of a client, worked out a second time: gains by kind and per cent, the set-off of
losses and the tax, in whole paise, in the cells of the program's csv."""

from collections import defaultdict
from datetime import date
from fractions import Fraction
from typing import NamedTuple

from exact import anniversary, dmy, financial_year, money, paise, plain
from layers import FAIR_DAY, History, Sold, half_away

COLUMNS = ("row", "kind", "section", "percent", "account_no", "scrip_code", "acquired", "sold",
           "quantity", "sale_value", "expenses", "cost", "fair_value", "cost_taken", "gain",
           "window", "loss_year", "loss_kind")

SHORT, LONG = ("short-term", "short-term-stt"), ("long-term", "long-term-stt")
TOTAL_ORDER = ("short-term-stt", "short-term", "long-term-stt", "long-term", "speculation",
               "futures-and-options", "dividend", "exempt")
LOSS_ORDER = ("long-term", "short-term", "speculation")
TAXED = TOTAL_ORDER[:5]

# Kind: from which day on a section and a per cent hold.
RATES = {
    "short-term-stt": ((date(2004, 10, 1), "111A", Fraction(10)),
                       (date(2008, 4, 1), "111A", Fraction(15)),
                       (date(2024, 7, 23), "111A", Fraction(20)),
                       (date(2026, 4, 1), "196", Fraction(20))),
    "long-term-stt": ((date(2018, 4, 1), "112A", Fraction(10)),
                      (date(2024, 7, 23), "112A", Fraction(25, 2)),
                      (date(2026, 4, 1), "198", Fraction(25, 2))),
    "long-term": ((date.min, "112", Fraction(10)),
                  (date(2024, 7, 23), "112", Fraction(25, 2)),
                  (date(2026, 4, 1), "197", Fraction(25, 2))),
    "short-term": ((date.min, "normal rates", None),),
    "speculation": ((date.min, "43(5)", None),),
    "futures-and-options": ((date.min, "business", None),),
    "dividend": ((date.min, "2(22)(f)", None),),
}
LONG_TERM_TAXED = date(2018, 4, 1)  # before it exempt where STT was paid
# How the money of a buy-back counts, from which day on.
BUY_BACKS = ((date.min, "gain"), (date(2019, 7, 5), "exempt"), (date(2024, 10, 1), "dividend"),
             (date(2026, 4, 1), "gain"))
EXEMPTIONS = (("2018-19", 1_00_000_00), ("2024-25", 1_25_000_00))
EXEMPT_SECTIONS = ("112A", "198")
CARRIED_YEARS = {"long-term": 8, "short-term": 8, "speculation": 4}


class Group(NamedTuple):
    kind: str
    section: str
    percent: Fraction | None


class TaxPiece(NamedTuple):
    group: Group
    place: tuple[str, str]
    acquired: date
    sold: date
    quantity: Fraction
    sale: int
    expenses: int
    cost: int
    fair: int | None = None

    @property
    def cost_taken(self) -> int:
        if self.fair is None:
            return self.cost
        return max(self.cost, min(self.fair, self.sale))

    @property
    def gain(self) -> int:
        if self.group.kind == "unknown":
            return 0
        return self.sale - self.expenses - self.cost_taken


def valid(table, when):
    """The last entry of a dated table that began until then; None before the first."""
    begun = [entry for entry in table if entry[0] <= when]
    return begun[-1] if begun else None


def group_of(kind: str, sold: date) -> Group:
    _from, section, percent = valid(RATES[kind], sold) or (None, "", None)
    return Group(kind, section, percent)


def window(sold: date) -> int:
    """Of advance tax, from 1 on; until 2015-16 there was none until 15 June."""
    ends = [(6, 15), (9, 15), (12, 15), (15, 15), (15, 31)]
    if sold < date(2016, 4, 1):
        del ends[0]
    month = sold.month if sold.month >= 4 else sold.month + 12
    return next(n for n, end in enumerate(ends, 1) if (month, sold.day) <= end)


def pieces_of(sold: Sold) -> list[TaxPiece]:
    """What one piece is for the tax: one entry, or two of a buy-back that is a dividend."""
    where = sold.place[:2], sold.acquired, sold.sold, sold.quantity
    amounts = sold.sale, sold.expenses, sold.cost
    if sold.kind == "without-cost":
        return [TaxPiece(Group("unknown", "", None), *where, *amounts)]
    if sold.kind in ("fo", "speculation"):
        kind = {"fo": "futures-and-options"}.get(sold.kind, sold.kind)
        return [TaxPiece(group_of(kind, sold.sold), *where, *amounts)]
    term = "short-term" if sold.sold <= anniversary(sold.acquired) else "long-term"
    if sold.kind == "buy-back":
        money_is = valid(BUY_BACKS, sold.sold)[1]
        if money_is == "exempt":
            return [TaxPiece(Group("exempt", "10(34A)", None), *where, *amounts)]
        if money_is == "dividend":
            return [TaxPiece(group_of(term, sold.sold), *where, 0, 0, sold.cost),
                    TaxPiece(group_of("dividend", sold.sold), *where, sold.sale, 0, 0)]
    if not sold.stt_paid:
        return [TaxPiece(group_of(term, sold.sold), *where, *amounts)]
    if term == "long-term" and sold.sold < LONG_TERM_TAXED:
        return [TaxPiece(Group("exempt", "10(38)", None), *where, *amounts)]
    old = term == "long-term" and sold.acquired <= FAIR_DAY
    return [TaxPiece(group_of(f"{term}-stt", sold.sold), *where, *amounts,
                     sold.fair if old else None)]


class Loss:
    """`left` is what no gain has taken up yet."""

    def __init__(self, year: str, kind: str, amount: int):
        self.year, self.kind, self.left = year, kind, amount


def age(loss: Loss, year: str) -> int:
    return int(year[:4]) - int(loss.year[:4])


class TaxYear:
    """Of some pieces and losses brought forward. `left`: what the set-off left of each gain."""

    def __init__(self, year: str, pieces: list[TaxPiece], losses: list[Loss]):
        self.year, self.pieces = year, pieces
        self.groups: dict[Group, list[TaxPiece]] = defaultdict(list)
        for piece in pieces:
            if piece.group.kind != "unknown":
                self.groups[piece.group].append(piece)
        self.gains = {group: sum(piece.gain for piece in some)
                      for group, some in self.groups.items()}
        self.left = {group: gain for group, gain in self.gains.items()
                     if group.kind in TAXED and gain > 0}
        self.set_offs: list[tuple[Group, Loss, int]] = []
        self.exemptions: list[tuple[Group, int]] = []
        self.losses = [Loss(year, kind, amount) for kind, amount in self._own_losses() if amount]
        brought = [loss for loss in losses if age(loss, year) <= CARRIED_YEARS[loss.kind]]
        brought.sort(key=lambda loss: (loss.year, LOSS_ORDER.index(loss.kind)))
        for loss in self.losses + brought:
            for group in self._against(loss.kind):
                self._set_off(loss, group)
        self.losses += brought
        self._exempt()

    def _own_losses(self):
        for kind, kinds in zip(LOSS_ORDER, (LONG, SHORT, ("speculation",))):
            yield kind, -sum(gain for group, gain in self.gains.items()
                             if group.kind in kinds and gain < 0)

    def _in(self, kinds) -> list[Group]:
        """Those with gains: by per cent descending, in one per cent by kind. What has no per cent
        is taxed at the rates of other income, and comes first."""
        def order(group: Group):
            highest = group.percent if group.percent is not None else Fraction(1000)
            return -highest, kinds.index(group.kind)
        return sorted((group for group in self.left if group.kind in kinds), key=order)

    def _against(self, kind: str) -> list[Group]:
        if kind == "speculation":
            return self._in(("speculation",))
        return (self._in(SHORT) if kind == "short-term" else []) + self._in(LONG)

    def _set_off(self, loss: Loss, group: Group):
        amount = min(loss.left, self.left[group])
        if amount:
            loss.left -= amount
            self.left[group] -= amount
            self.set_offs.append((group, loss, amount))

    def _exempt(self):
        entry = valid(EXEMPTIONS, self.year)
        still = entry[1] if entry else 0
        for group in self._in(("long-term-stt",)):
            amount = min(still, self.left[group])
            if amount and group.section in EXEMPT_SECTIONS:
                still -= amount
                self.left[group] -= amount
                self.exemptions.append((group, amount))

    def ordered(self, groups) -> list[Group]:
        return sorted(groups, key=lambda group: (TOTAL_ORDER.index(group.kind),
                                                 group.percent or 0, group.section))

    def tax(self, group: Group) -> int:
        return half_away(self.left[group] * group.percent / 100)


def tax_year(history: History, client: str, year: str) -> TaxYear:
    portfolio = history.portfolio
    mine = [one for one in history.rows
            if one.sold and financial_year(one.sold) == year
            and portfolio.accounts[one.place[0]] == client]
    mine.sort(key=lambda one: (*one.place[:2], one.sold))
    losses = [Loss(loss.loss_year, loss.kind, paise(loss.amount)) for loss in portfolio.losses
              if (loss.client, loss.year) == (client, year)]
    return TaxYear(year, [piece for one in mine for piece in pieces_of(one)], losses)


class _Rows:
    def __init__(self, of: TaxYear):
        self.of = of
        self.rows: list[dict] = []

    def add(self, row: str, group: Group | None = None, **cells):
        if group:
            cells.update(kind=group.kind, section=group.section,
                         percent="" if group.percent is None else plain(group.percent))
        self.rows.append({name: "" for name in COLUMNS} | {"row": row} | cells)

    def pieces(self):
        for one in self.of.pieces:
            self.add("piece", one.group, account_no=one.place[0], scrip_code=one.place[1],
                     acquired=dmy(one.acquired), sold=dmy(one.sold),
                     quantity=plain(one.quantity), sale_value=money(one.sale),
                     expenses=money(one.expenses), cost=money(one.cost),
                     fair_value="" if one.fair is None else money(one.fair),
                     cost_taken=money(one.cost_taken), gain=money(one.gain),
                     window=str(window(one.sold)))

    def totals(self):
        groups = self.of.ordered(self.of.groups)
        for group in groups:
            some = self.of.groups[group]
            self.add("total", group, sale_value=money(sum(one.sale for one in some)),
                     expenses=money(sum(one.expenses for one in some)),
                     cost=money(sum(one.cost for one in some)),
                     cost_taken=money(sum(one.cost_taken for one in some)),
                     gain=money(self.of.gains[group]))
        for group in groups:
            gains: dict[int, int] = defaultdict(int)
            for one in self.of.groups[group]:
                gains[window(one.sold)] += one.gain
            for number, gain in sorted(gains.items()):
                self.add("window", group, window=str(number), gain=money(gain))

    def set_off(self):
        for group, loss, amount in self.of.set_offs:
            self.add("set_off", group, loss_year=loss.year, loss_kind=loss.kind,
                     gain=money(amount))
        for group, amount in self.of.exemptions:
            self.add("exemption", group, gain=money(amount))
        taxable = self.of.ordered(self.of.left)
        for group in taxable:
            self.add("taxable", group, gain=money(self.of.left[group]))
        for group in taxable:
            if group.percent is not None and self.of.left[group]:
                self.add("tax", group, gain=money(self.of.tax(group)))

    def losses(self):
        left = sorted((loss for loss in self.of.losses if loss.left),
                      key=lambda loss: (loss.year, LOSS_ORDER.index(loss.kind)))
        for row in ("carried", "lapsed"):
            for loss in left:
                ends = age(loss, self.of.year) == CARRIED_YEARS[loss.kind]
                if ends == (row == "lapsed"):
                    self.add(row, loss_year=loss.year, loss_kind=loss.kind, gain=money(loss.left))


def tax_cells(history: History, client: str, year: str) -> list[dict]:
    rows = _Rows(tax_year(history, client, year))
    rows.pieces()
    rows.totals()
    rows.set_off()
    rows.losses()
    return rows.rows
