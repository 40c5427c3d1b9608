#!/usr/bin/env python3
"""Writes a random but legal portfolio folder: the same arguments give the same files.

    generate.py --lines N --seed S --out FOLDER [--clients C] [--scrips K] [--years Y]
                [--first-year 2011] [--order date|client] [--actions A] [--twice] [--tax]

N is the number of lines in bills.csv, A that of corporate actions a year. Files are written as they
come up; memory follows the number of lots held, not N. With --order client the bills are sorted by
client at the end, in memory. With --twice a scrip with an action has another one on the same day.
--tax makes what the tax of a year depends on (generate_tax.py).
"""

import argparse
import itertools
import random
from collections import defaultdict
from datetime import date, timedelta
from fractions import Fraction
from pathlib import Path

from actions import Effect, Piece, effect
from exact import plain as exact_text
from folder import Action

QUANTITY = 10**6  # quantities are counted in millionths of a share
RATE = 10000      # rates and brokerage in ten-thousandths of a rupee
KINDS = ("Brokerage Delivery Based", "Brokerage Non Delivery Based", "STT Delivery Based",
         "STT Non Delivery Based", "Service Tax")
BILL_HEADER = ("client_code,account_no,bill_no,bill_date,settlement_no,broker,exchange,side,"
               "scrip_code,quantity,rate,brokerage,service_tax,stt,stt_percent,delivery_type,fo,"
               "lot_rate,other_charges,transaction_charges\n")


ACTIONS = (("split", 2, 1), ("split", 10, 1), ("split", 5, 2), ("consolidation", 1, 10),
           ("bonus", 1, 2), ("bonus", 17, 25), ("bonus", 2, 1), ("rights", 1, 15),
           ("merger", 8, 5), ("merger", 2, 5), ("demerger", 1, 10), ("demerger", 1, 1),
           ("name-change", 0, 0), ("dividend", 0, 0))


def plain(value: int | Fraction, unit: int) -> str:
    if isinstance(value, Fraction):
        return exact_text(value / unit)
    whole, rest = divmod(value, unit)
    if not rest:
        return str(whole)
    return f"{whole}.{str(unit + rest)[1:].rstrip('0')}"


def dmy(when: date) -> str:
    return f"{when.day:02d}/{when.month:02d}/{when.year}"


def year_text(first: int) -> str:
    return f"{first}-{(first + 1) % 100:02d}"


class Layer:
    __slots__ = ("bought", "entered", "arrival", "rate", "left", "received", "intraday")
    arrivals = itertools.count()

    def __init__(self, bought: date, rate: int | Fraction, left: int, intraday: bool = False,
                 entered: date | None = None):
        self.bought, self.rate, self.left, self.intraday = bought, rate, left, intraday
        self.entered, self.received, self.arrival = entered or bought, left, next(self.arrivals)


class Generator:
    def __init__(self, arguments):
        self.random = random.Random(arguments.seed)
        self.out = Path(arguments.out)
        self.out.mkdir(parents=True, exist_ok=True)
        self.lines = arguments.lines
        self.action_count = arguments.actions
        self.twice = arguments.twice
        self.actions: list[str] = []
        self.applied: list[tuple[Action, dict[str, Effect]]] = []
        self.ended: set[str] = set()  # scrips that have gone into another one
        self.years = [arguments.first_year + n for n in range(arguments.years)]
        self.by_client = arguments.order == "client"
        self.kept: list[tuple[str, list[str]]] = []  # bills that wait for --order client
        clients = arguments.clients or max(3, min(1000, self.lines // 150))
        self.clients = [f"C{n:05d}" for n in range(1, clients + 1)]
        self.accounts: list[tuple[str, str]] = []
        self.scrips = [f"{600001 + 7 * n}" for n in range(arguments.scrips)]
        self.delivered = self.scrips  # scrips that are transferred and have actions
        self.oldest = 900  # days that an opening purchase lies back at most
        self.price = {scrip: self.random.randint(20, 3000) * RATE for scrip in self.scrips}
        self.brokers = ["AMARNATH BROKING", "BHAGIRATHI SHARES & STOCKS", 'CHITRA "FAST" EQUITY']
        # (account, scrip) -> layers, earliest purchase first
        self.held: dict[tuple[str, str], list[Layer]] = defaultdict(list)
        self.gone: dict[tuple[str, str], list[Layer]] = defaultdict(list)  # used up in this year
        self.bill_count = 0

    # Masters

    def write(self, name: str, header: str, rows):
        with (self.out / name).open("w", encoding="utf-8", newline="") as file:
            file.write(header + "\n")
            file.writelines(row + "\n" for row in rows)

    def masters(self):
        self.write("participants.csv", "name,depository,dp_id,city",
                   ["NIDHI DEPOSITORY,NSDL,IN399901,PUNE",
                    "SAMPADA DEPOSITORY,CDSL,12999001,SURAT"])
        self.write("clients.csv", "code,group_code,name", (
            f"{code},G{n // 4:04d},CLIENT {code} O'GROUP" for n, code in enumerate(self.clients)))
        for n, code in enumerate(self.clients):
            for extra in range(self.random.choice((1, 1, 2, 3))):
                self.accounts.append((code, f"{10000000 + n * 4 + extra}"))
        self.write("accounts.csv", "client_code,participant,dp_id,account_no", (
            f"{code},NIDHI DEPOSITORY,IN399901,{account}" for code, account in self.accounts))
        self.write("brokers.csv", "name,city", (
            '"' + name.replace('"', '""') + '",MUMBAI' for name in self.brokers))
        self.write("scrips.csv", "code,ncode,name,type,class", (
            f"{code},N{code},SCRIP {code} & CO,EQUITY,{'ABC'[n % 3]}"
            for n, code in enumerate(self.scrips)))
        self.write("percentages.csv", "fyear,name,percent,as_on", (
            f"{year_text(year)},{kind},{percent},01/04/{year}" for year in self.years
            for kind, percent in zip(KINDS, ("0.5", "0.05", "0.125", "0.025", "10.3"))))
        self.write("rates.csv", "date,scrip_code,rate", (
            f"31/03/{year + 1},{scrip},{plain(self.price[scrip], RATE)}"
            for year in self.years for scrip in self.scrips))

    # Small choices

    def chance(self, percent: float) -> bool:
        return self.random.random() * 100 < percent

    def quantity(self) -> int:
        if self.chance(4):
            return self.random.randint(1, 500 * 1000) * QUANTITY // 1000
        return self.random.choice((1, 5, 10, 25, 50, 100, 250, 37, 400)) * QUANTITY

    def rate(self, scrip: str) -> int:
        moved = self.price[scrip] * self.random.randint(980, 1021) // 1000
        self.price[scrip] = min(max(5 * RATE, moved), 60000 * RATE)
        step = 1 if self.chance(5) else RATE // 100
        return max(step, self.price[scrip] // step * step)

    def charges(self, quantity: int, rate: int, intraday: bool) -> tuple[int, int, int]:
        """Brokerage a share in RATE units; service tax and STT of the line in paise."""
        if self.chance(5):
            return 0, 0, 0
        rate = int(rate)
        step = 1 if self.chance(5) else RATE // 100
        brokerage = rate // (2000 if intraday else 200) // step * step
        value = quantity * rate // QUANTITY // (RATE // 100)
        tax = brokerage * quantity * 103 // 1000 // QUANTITY // (RATE // 100)
        return brokerage, tax, value * (25 if intraday else 125) // 100000

    # Lots

    def balance(self, key, rate=None) -> int:
        return sum(one.left for one in self.held[key] if rate is None or one.rate == rate)

    def take(self, key, quantity: int, rate=None, last=lambda layer: False):
        for layer in sorted(self.held[key], key=last):
            if quantity and (rate is None or layer.rate == rate):
                part = min(quantity, layer.left)
                layer.left -= part
                quantity -= part
        assert quantity == 0
        self.gone[key] += [layer for layer in self.held[key] if not layer.left]
        self.held[key] = [layer for layer in self.held[key] if layer.left]

    def part_of(self, balance: int) -> int:
        """Some of a balance: all of it now and then, else whole shares where there are any."""
        if self.chance(20) or balance <= QUANTITY:
            return balance
        thousandth = QUANTITY // 1000
        part = self.random.randint(1, balance // thousandth) * thousandth
        return part if self.chance(4) else max(QUANTITY, part // QUANTITY * QUANTITY)

    # Bills

    def bill(self, owner, when: date, count: int, selling: str | None = None) -> list[str]:
        """Rows of one bill of up to `count` lines. Its purchases count before its sales wherever
        they stand, so some bills list the sales first. `selling` names a scrip whose whole holding
        goes."""
        client, account = owner
        bought, sold, used = [], [], set()
        if selling:
            key = (account, selling)
            sold.append(self.sale(key, when, self.balance(key), None, False))
            used.add(selling)
        while len(bought) + len(sold) < count and len(used) < len(self.scrips):
            scrip = self.random.choice(self.scrips)
            if scrip in used:
                continue
            key = (account, scrip)
            if self.held[key] and (self.chance(48) or len(self.held[key]) > 12):
                used.add(scrip)
                self.add_sale(key, when, sold)
            elif self.chance(8) and len(bought) + len(sold) + 2 <= count:
                used.add(scrip)
                self.intraday(key, when, bought, sold)
            else:
                bought.append(self.purchase(key, when, False)[0])
        return self.bill_rows(client, account, when, sold + bought if self.chance(30)
                              else bought + sold)

    def bill_rows(self, client: str, account: str, when: date, rows: list[str]) -> list[str]:
        self.bill_count += 1
        head = (f"{client},{account},{self.bill_count:07d},{dmy(when)},"
                f"{when.year}{when.month:02d}{when.day:02d},{self.broker()},"
                f"{self.random.choice(('NSE', 'BSE'))},")
        other, transaction = self.random.choice((("0", "0"), ("12.5", "3.17"), ("0", "0.42")))
        return [f"{head}{row},{other},{transaction}\n" if n == 0 else f"{head}{row},,\n"
                for n, row in enumerate(rows)]

    def broker(self) -> str:
        return '"' + self.random.choice(self.brokers).replace('"', '""') + '"'

    def line(self, side, scrip, quantity, rate, intraday, lot_rate="") -> str:
        brokerage, tax, stt = self.charges(quantity, rate, intraday)
        kind = "Non Delivery Based" if intraday else "Delivery Based"
        return (f"{side},{scrip},{plain(quantity, QUANTITY)},{plain(rate, RATE)},"
                f"{plain(brokerage, RATE)},{plain(tax, 100)},{plain(stt, 100)},"
                f"{'0.025' if intraday else '0.125'},{kind},{self.fo(scrip, 3)},{lot_rate}")

    def fo(self, _scrip: str, percent: int) -> int:
        """Whether a line is one of futures and options."""
        return int(not self.action_count and self.chance(percent))

    def purchase(self, key, when: date, intraday: bool) -> tuple[str, Layer]:
        _account, scrip = key
        held = self.held[key]
        rate = self.random.choice(held).rate if held and self.chance(15) else self.rate(scrip)
        layer = Layer(when, rate, self.quantity(), intraday)
        # What is bought without delivery comes in before the other purchases of its day.
        at = next((n for n, one in enumerate(held)
                   if intraday and one.bought == when and not one.intraday), len(held))
        held.insert(at, layer)
        return self.line("P", scrip, layer.left, rate, intraday), layer

    def sale(self, key, when: date, quantity, lot_rate, intraday) -> str:
        def last(layer: Layer) -> bool:
            of_the_day = layer.intraday and layer.bought == when
            return lot_rate is None and of_the_day != intraday
        _account, scrip = key
        self.take(key, quantity, lot_rate, last)
        lot = "" if lot_rate is None else plain(lot_rate, RATE)
        return self.line("S", scrip, quantity, self.rate(scrip), intraday, lot)

    def add_sale(self, key, when: date, sold: list[str]):
        # Bonus shares are sold without a lot's rate only from the day on which they are held.
        named = self.chance(50) or any(layer.bought > when for layer in self.held[key])
        lot_rate = self.random.choice(self.held[key]).rate if named else None
        quantity = self.part_of(self.balance(key, lot_rate))
        sold.append(self.sale(key, when, quantity, lot_rate, False))

    def intraday(self, key, when: date, bought: list[str], sold: list[str]):
        row, layer = self.purchase(key, when, True)
        bought.append(row)
        lot_rate = layer.rate if self.chance(70) else None
        sold.append(self.sale(key, when, self.part_of(layer.left), lot_rate, True))

    # Transfers

    def holder(self, among) -> tuple[str, str] | None:
        """An (account, scrip) with something in it, among some accounts."""
        for _attempt in range(20):
            key = (self.random.choice(among)[1], self.random.choice(self.delivered))
            if self.held.get(key):
                return key
        return None

    def transfer(self, file, when: date, source_key, target: str):
        account, scrip = source_key
        layer = self.random.choice(self.held[source_key])
        quantity = self.part_of(self.balance(source_key, layer.rate))
        self.take(source_key, quantity, layer.rate)
        self.held[target, scrip].append(Layer(when, layer.rate, quantity))
        file.write(f"{dmy(when)},{account},{target},{scrip},{plain(layer.rate, RATE)},"
                   f"{plain(quantity, QUANTITY)}\n")

    def day_transfers(self, file, when: date, due: int):
        for _attempt in range(1 + due // 50):
            if not self.chance(25):
                continue
            key = self.holder(self.accounts)
            target = self.random.choice(self.accounts)[1]
            if key and target != key[0]:
                self.transfer(file, when, key, target)

    def sold_on_arrival(self, file, when: date, busy: set[str]) -> int:
        """Shares that come in by a transfer and are sold in a bill of the same day; neither
        account has another movement on that day. Returns the lines written."""
        idle = [one for one in self.accounts if one[1] not in busy]
        key = self.holder(idle) if len(idle) > 1 else None
        owner = self.random.choice(idle) if key else None
        if not key or owner[1] == key[0] or self.held.get((owner[1], key[1])):
            return 0
        self.transfer(file, when, key, owner[1])
        return self.keep(owner[0], self.bill(owner, when, 1, selling=key[1]))

    # Years

    def opening_rows(self):
        owners = {account: client for client, account in self.accounts}
        for n, year in enumerate(self.years):
            self.begin_year(n, year)
            for (account, scrip), layers in sorted(self.held.items()):
                for layer in layers:
                    brokerage, tax, stt = self.charges(layer.left, layer.rate, False)
                    yield (f"{owners[account]},{account},{year_text(year)},{scrip},"
                           f"{plain(layer.left, QUANTITY)},{plain(layer.rate, RATE)},"
                           f"{dmy(layer.bought)},{plain(tax, 100)},{plain(brokerage, RATE)},"
                           f"{plain(stt, 100)},{self.fo(scrip, 2)}")
            self.trading_year(year, self.lines * (n + 1) // len(self.years)
                              - self.lines * n // len(self.years))

    def begin_year(self, n: int, year: int):
        if n == 0:
            self.first_layers(year, self.accounts)

    def first_layers(self, year: int, accounts):
        for _client, account in accounts:
            for scrip in self.random.sample(self.scrips, min(3, len(self.scrips))):
                days = [self.random.randint(1, self.oldest)
                        for _ in range(self.random.choice((1, 2)))]
                for back in sorted(days, reverse=True):
                    self.held[account, scrip].append(Layer(
                        date(year, 4, 1) - timedelta(days=back), self.rate(scrip),
                        self.quantity()))

    def trading_year(self, year: int, lines: int):
        first = date(year, 4, 1)
        days = (date(year + 1, 4, 1) - first).days
        self.gone.clear()
        for layers in self.held.values():
            for layer in layers:
                layer.entered = layer.bought  # an opening row has no other day
                layer.received, layer.arrival = layer.left, next(Layer.arrivals)
        due_actions = self.action_days(first, days)
        for n, due in enumerate(self.lines_by_day(first, days, lines)):
            when = first + timedelta(days=n)
            if n in due_actions:
                self.act(when)
            on_arrival = due > 0 and self.chance(10)
            busy = self.day_bills(when, due - 1 if on_arrival else due)
            if not on_arrival:
                self.day_transfers(self.transfers, when, due)
            elif not self.sold_on_arrival(self.transfers, when, busy):
                self.day_bills(when, 1)

    def lines_by_day(self, _first: date, days: int, lines: int) -> list[int]:
        return [lines * (n + 1) // days - lines * n // days for n in range(days)]

    # Corporate actions

    def action_days(self, _first: date, days: int) -> list[int]:
        return self.random.sample(range(days), self.action_count)

    def new_action(self, when: date) -> Action:
        scrip, other = self.random.sample([one for one in self.delivered
                                           if one not in self.ended], 2)
        kind, new, old = self.kind_of_action(when)
        return Action(kind, scrip, when, None, None, Fraction(new), Fraction(old),
                      other if kind in ("merger", "demerger", "name-change") else "",
                      Fraction(self.random.randint(1, 500)),
                      Fraction("33.35") if kind == "demerger" else Fraction(0))

    def kind_of_action(self, _when: date) -> tuple[str, int, int]:
        return self.random.choice(ACTIONS)

    def act(self, when: date):
        action = self.new_action(when)
        self.carry_out(action)
        second = self.new_action(when)._replace(scrip=action.scrip) if self.twice else action
        if action.scrip not in (*self.ended, second.other) and second != action:
            self.carry_out(second)

    def carry_out(self, action: Action):
        when = action.ex_day
        kind, scrip = action.kind, action.scrip
        effects = {account: self.effect_on(account, action) for _client, account in self.accounts}
        if any(len(exact_text(piece.rate)) > 14 for done in effects.values()
               for _scrip, piece in done.into):
            return  # such a rate is no lot's: the program keeps fifteen digits
        if kind in ("merger", "name-change"):
            self.ended.add(scrip)
        for account, done in effects.items():
            self.apply(account, action, done)
        self.applied.append((action, effects))
        self.actions.append(
            f"{scrip},{kind},{dmy(when)},{exact_text(action.new) if action.new else ''},"
            f"{exact_text(action.old) if action.old else ''},{action.other},"
            f"{exact_text(action.price)},{exact_text(action.percent)}")

    def effect_on(self, account: str, action: Action) -> Effect:
        """Within a lot the sales have used up what came in first."""
        layers = self.held[account, action.scrip] + self.gone[account, action.scrip]
        taken = defaultdict(int)
        for layer in layers:
            taken[layer.rate] += layer.received - layer.left
        pieces = []
        for layer in sorted(layers, key=lambda one: (one.entered, not one.intraday, one.arrival)):
            used_up = min(taken[layer.rate], layer.received)
            taken[layer.rate] -= used_up
            if used_up < layer.received:
                pieces.append(Piece(Fraction(layer.rate) / RATE,
                                    Fraction(layer.received - used_up, QUANTITY), layer.bought))
        return effect(pieces, self.chosen(account, action, pieces), account)

    def chosen(self, _account: str, action: Action, _pieces: list[Piece]) -> Action:
        """The action with what an account chooses of it."""
        return action

    def apply(self, account: str, action: Action, done: Effect):
        if action.kind == "buy-back":
            for piece in done.out:
                self.take((account, action.scrip), int(piece.quantity * QUANTITY),
                          piece.rate * RATE)
        elif done.out:
            self.held[account, action.scrip] = []
            self.gone[account, action.scrip] = []
        for scrip, piece in done.into:
            rate = piece.rate * RATE
            held = self.held[account, scrip]
            held.append(Layer(piece.acquired, int(rate) if rate.denominator == 1 else rate,
                              int(piece.quantity * QUANTITY), entered=action.ex_day))
            held.sort(key=lambda layer: layer.bought)

    def day_bills(self, when: date, due: int) -> set[str]:
        """Writes bills of `due` lines in all and returns their accounts."""
        busy = set()
        while due > 0:
            owner = self.random.choice(self.accounts)
            busy.add(owner[1])
            due -= self.keep(owner[0], self.bill(owner, when, min(due,
                                                                  self.random.randint(1, 6))))
        return busy

    def keep(self, client: str, rows: list[str]) -> int:
        if self.by_client:
            self.kept.append((client, rows))
        else:
            self.bills.writelines(rows)
        return len(rows)

    def money(self):
        rows = [f"{code},{year_text(self.years[0])},\"{self.brokers[1]}\",{n % 900 + 0.5},"
                f"{'Dr' if n % 2 else 'Cr'}" for n, code in enumerate(self.clients)]
        self.write("broker_opening.csv", "client_code,fyear,broker,amount,side", rows)
        header = ("client_code,broker,mode,amount,date,payment_mode,cheque_no,cheque_date,drawn_on,"
                  "remark")
        for name, modes in (("payments.csv", ("Payment", "Cr. By Broker")),
                            ("receipts.csv", ("Receving", "Dr. By Broker"))):
            self.write(name, header, (
                f"{code},{self.brokers[0]},{modes[n % 2]},{1000 + n}.25,05/05/{self.years[0]},"
                + ("Cash,,,," if n % 3 else
                   f"Cheque,{100000 + n},04/05/{self.years[0]},CITY BANK,\"part, rest later\"")
                for n, code in enumerate(self.clients)))

    def run(self):
        self.masters()
        self.money()
        with (self.out / "bills.csv").open("w", encoding="utf-8", newline="") as self.bills, \
                (self.out / "transfers.csv").open("w", encoding="utf-8", newline="") as \
                self.transfers:
            self.bills.write(BILL_HEADER)
            self.transfers.write("date,from_account,to_account,scrip_code,rate,quantity\n")
            self.write("opening.csv",
                       "client_code,account_no,fyear,scrip_code,quantity,rate,purchase_date,"
                       "service_tax,brokerage,stt,fo", self.opening_rows())
            if self.actions:
                self.write("corporate_actions.csv", "scrip_code,kind,ex_date,new,old,"
                           "other_scrip_code,price,cost_percent", self.actions)
            for _client, rows in sorted(self.kept, key=lambda bill: bill[0]):
                self.bills.writelines(rows)


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--lines", type=int, required=True)
    parser.add_argument("--seed", type=int, required=True)
    parser.add_argument("--out", required=True)
    parser.add_argument("--clients", type=int, default=0, help="0: from the number of lines")
    parser.add_argument("--scrips", type=int, default=40)
    parser.add_argument("--years", type=int, default=1)
    parser.add_argument("--first-year", type=int, default=2011)
    parser.add_argument("--order", choices=("date", "client"), default="date")
    parser.add_argument("--actions", type=int, default=0, help="corporate actions a year")
    parser.add_argument("--twice", action="store_true", help="two actions on an ex-day")
    parser.add_argument("--tax", action="store_true", help="has corporate actions, too")
    arguments = parser.parse_args()
    generator = Generator
    if arguments.tax:
        from generate_tax import TaxGenerator as generator  # which builds on this module
    generator(arguments).run()


if __name__ == "__main__":
    main()
