"""Portfolios for the tax years: generate.py --tax. Trades and corporate actions gather around the
days on which the law changes, scrips have fair values of 31/01/2018, shares go to buy-backs, some
lines are futures and options or have no STT, clients join in later years, openings differ from what
the year before left, and losses are brought forward."""

import csv
from bisect import insort
from collections import Counter
from datetime import date, timedelta
from fractions import Fraction

from actions import Piece
from exact import plain
from folder import Action, read
from generate import ACTIONS, QUANTITY, RATE, Generator, Layer, year_text
from ledger import Ledger
from lots import COLUMNS, lot_rows

FAIR_DAY = date(2018, 1, 31)
TURNS = (FAIR_DAY, date(2018, 3, 31), date(2019, 7, 4), date(2020, 2, 28), date(2021, 2, 28),
         date(2024, 2, 28), date(2024, 7, 22), date(2024, 9, 30), date(2025, 2, 28),
         date(2026, 3, 31))  # the last day of a rule, or one by the 29th of February
WINDOW_ENDS = ((6, 15), (9, 15), (12, 15), (3, 15), (3, 31))
LAST_YEAR = 2026
BUY_BACK = ("buy-back", 0, 0)
ENDING = ("merger", "name-change")


def turning_days(first: date, days: int) -> list[int]:
    """The days of a year, counted from 0, that are worth a trade: both sides of every turn."""
    ends = [day for day in TURNS if first <= day + timedelta(days=1) and (day - first).days < days]
    ends += [date(first.year + (month < 4), month, day) for month, day in WINDOW_ENDS]
    near = {(end - first).days + n for end in ends for n in (-1, 0, 1)}
    return sorted({0, 1} | {n for n in near if 0 <= n < days})


class TaxGenerator(Generator):
    def __init__(self, arguments):
        arguments.actions = arguments.actions or 4
        super().__init__(arguments)
        self.futures = set(self.scrips[-2:])
        self.delivered = self.scrips[:-2]
        self.oldest = 2200
        self.fair_prices = dict(self.price)
        self.begun: dict[str, int] = {}  # client -> first year

    # Masters and years

    def masters(self):
        super().masters()
        self.everyone = self.accounts
        early = self.years[:max(1, len(self.years) // 2)]
        for n, client in enumerate(self.clients):
            self.begun[client] = self.random.choice(early) if n else self.years[0]

    def begin_year(self, n: int, year: int):
        self.accounts = [one for one in self.everyone if self.begun[one[0]] <= year]
        self.first_layers(year, [one for one in self.accounts if self.begun[one[0]] == year])
        if n:
            for scrip in self.scrips:
                self.move_price(scrip, Fraction(self.random.randint(60, 170), 100))
            for _client, account in self.accounts:
                if self.chance(40):
                    self.differ(account, year)
        if year <= FAIR_DAY.year - 1:
            self.fair_prices = dict(self.price)

    def differ(self, account: str, year: int):
        """The opening has shares that the year before did not leave, or lacks some."""
        scrip = self.random.choice([one for one in self.scrips if one not in self.ended])
        held = self.held[account, scrip]
        if held and self.chance(50):
            self.take((account, scrip), self.part_of(self.balance((account, scrip))))
            return
        bought = date(year, 3, 31) - timedelta(days=self.random.randint(0, self.oldest))
        if self.chance(30):
            bought = min(bought, FAIR_DAY + timedelta(days=self.random.choice((0, 1))))
        insort(held, Layer(bought, self.rate(scrip), self.quantity()), key=lambda one: one.bought)

    def move_price(self, scrip: str, factor: Fraction):
        self.price[scrip] = min(max(5 * RATE, int(self.price[scrip] * factor)), 60000 * RATE)

    def lines_by_day(self, first: date, days: int, lines: int) -> list[int]:
        turns = turning_days(first, days)
        count = Counter(self.random.choice(turns) if self.chance(60) else
                        self.random.randrange(days) for _ in range(lines))
        return [count[n] for n in range(days)]

    def day_transfers(self, file, when: date, due: int):
        if due or self.chance(15):
            super().day_transfers(file, when, due)

    # Lines

    def quantity(self) -> int:
        """Small mostly, so that gains are about the exemption of a year."""
        if self.chance(85):
            return self.random.choice((1, 2, 5, 7, 10, 20)) * QUANTITY
        return super().quantity()

    def fo(self, scrip: str, _percent: int) -> int:
        return int(scrip in self.futures)

    def charges(self, quantity: int, rate: int, intraday: bool) -> tuple[int, int, int]:
        brokerage, tax, stt = super().charges(quantity, rate, intraday)
        if self.chance(25):
            stt = 0
        elif self.chance(5):
            stt = 1  # less than a paisa for each part
        return brokerage, tax, stt

    def bill(self, owner, when: date, count: int, selling: str | None = None) -> list[str]:
        """Now and then a sale of shares that no record brought in."""
        client, account = owner
        scrip = self.random.choice(self.scrips)
        if selling or self.held[account, scrip] or not self.chance(6):
            return super().bill(owner, when, count, selling)
        return self.bill_rows(client, account, when, [self.line(
            "S", scrip, self.quantity(), self.rate(scrip), False, "none")])

    # Corporate actions

    def action_days(self, first: date, days: int) -> list[int]:
        turns = turning_days(first, days)
        few = self.random.sample(turns, min(len(turns), (self.action_count + 1) // 2))
        return sorted({*few, *self.random.sample(range(days), self.action_count // 2)})

    def kind_of_action(self, when: date) -> tuple[str, int, int]:
        buy_back_changes = {(2019, 7), (2024, 9), (2024, 10), (2026, 3), (2026, 4)}
        if self.chance(75 if (when.year, when.month) in buy_back_changes else 15):
            return BUY_BACK
        alive = len(self.delivered) - len(self.ended)
        return self.random.choice([one for one in ACTIONS if alive > 6 or one[0] not in ENDING])

    def act(self, when: date):
        before = len(self.applied)
        super().act(when)
        for action, _effects in self.applied[before:]:
            if action.kind in ("split", "consolidation"):
                self.move_price(action.scrip, action.old / action.new)

    def chosen(self, account: str, action: Action, pieces: list[Piece]) -> Action:
        held = sum(int(piece.quantity * QUANTITY) for piece in pieces)
        if action.kind != "buy-back" or not held:
            return action
        given = self.part_of(held) if self.chance(70) else 0
        return action._replace(given={account: [Fraction(given, QUANTITY)]})

    # What the tax needs besides

    def fair_values(self):
        for scrip in self.scrips:
            if self.chance(85):
                paise = self.fair_prices[scrip] // (RATE // 100) * self.random.randint(50, 200)
                yield f"{scrip},{plain(Fraction(max(1, paise // 100), 100))}"

    def losses(self):
        for client in self.clients:
            for year in range(self.begun[client], LAST_YEAR + 1):
                some = {(self.random.choice(("short-term", "long-term", "speculation")),
                         self.random.choice((1, 2, 3, 4, 4, 5, 7, 8, 8)))
                        for _ in range(self.random.choice((0, 0, 1, 3)))}
                some = {(kind, min(age, 4) if kind == "speculation" else age) for kind, age in some}
                for kind, age in sorted(some):
                    amount = Fraction(self.random.randint(1, 200_000_00), 100)
                    yield (f"{client},{year_text(year)},{kind},{plain(amount)},"
                           f"{year_text(year - age)}")

    def lots(self):
        """First with what the accounts chose, then, from the records, with the charges as well."""
        owners = {account: client for client, account in self.everyone}
        rows = [(str(n), owners[account], account, action.scrip, plain(move.source.rate),
                 plain(move.out), move.scrip, "", plain(move.into.quantity) if move.into else "0",
                 "", "", "", "")
                for n, (action, effects) in enumerate(self.applied, 1)
                for account, done in effects.items() for move in done.moves]
        for _attempt in range(2):
            with (self.out / "corporate_action_lots.csv").open("w", newline="") as file:
                csv.writer(file, lineterminator="\n").writerows([COLUMNS, *rows])
            rows = lot_rows(Ledger(read(self.out)))

    def run(self):
        super().run()
        self.write("fair_values.csv", "scrip_code,rate", self.fair_values())
        self.write("tax_losses.csv", "client_code,fyear,kind,amount,loss_year", self.losses())
        self.lots()
