"""What a corporate action makes of the pieces that an account holds, in exact numbers."""

from datetime import date, timedelta
from fractions import Fraction
from typing import NamedTuple

from exact import paise, rounded
from folder import Action

MILLIONTH = 10**6


class Piece(NamedTuple):
    """Shares of one lot that were acquired together."""

    rate: Fraction
    quantity: Fraction
    acquired: date
    brokerage: Fraction = Fraction(0)
    service_tax: Fraction = Fraction(0)
    stt: Fraction = Fraction(0)


class Move(NamedTuple):
    """What goes out of one piece, and what comes in for it."""

    source: Piece
    out: Fraction
    scrip: str = ""
    into: Piece | None = None


class Effect:
    def __init__(self, moves: list[Move]):
        self.moves = [one for one in moves if one.out or one.into]

    @property
    def out(self) -> list[Piece]:
        return [one.source._replace(quantity=one.out) for one in self.moves if one.out]

    @property
    def into(self) -> list[tuple[str, Piece]]:
        """With their scrips."""
        return [(one.scrip, one.into) for one in self.moves if one.into]


def kept(quantity: Fraction) -> Fraction:
    """Quantities are kept to a millionth of a share."""
    return Fraction(paise(quantity * MILLIONTH / 100), MILLIONTH)


def held_from(action: Action) -> date:
    """Of bonus shares: the allotment, else the working day after the record day."""
    if action.allotment or action.kind != "bonus":
        return action.allotment or action.ex_day
    when = (action.record_day or action.ex_day) + timedelta(days=1)
    while when.weekday() > 4:
        when += timedelta(days=1)
    return when


def restated(quantities: list[Fraction], total: Fraction) -> list[Fraction]:
    """Each quantity as its part of another total, to a millionth, adding up to it."""
    whole, before, given, result = sum(quantities), Fraction(0), Fraction(0), []
    for quantity in quantities:
        before += quantity
        upto = kept(total * before / whole)
        result.append(upto - given)
        given = upto
    return result


def _converted(pieces: list[Piece], new: Fraction, old: Fraction,
               part: Fraction) -> list[Piece | None]:
    """The pieces at a ratio with a part of their cost; the fraction of a share goes off the first.
    None where nothing is left."""
    exact = restated([one.quantity for one in pieces],
                     kept(sum(one.quantity for one in pieces) * new / old))
    fraction = sum(exact) % 1
    result = []
    for one, quantity in zip(pieces, exact):
        gone = min(fraction, quantity)
        fraction -= gone
        share = part * (quantity - gone) / quantity if quantity else Fraction(0)
        result.append(Piece(one.rate * part * old / new, quantity - gone, one.acquired,
                            one.brokerage * part * old / new, rounded(one.service_tax * share),
                            rounded(one.stt * share)))
    return [one if one.quantity else None for one in result]


def _exchanged(pieces: list[Piece], scrip: str, new: Fraction, old: Fraction) -> Effect:
    return Effect([Move(piece, piece.quantity, scrip, into)
                   for piece, into in zip(pieces, _converted(pieces, new, old, Fraction(1)))])


def _given(pieces: list[Piece], quantity: Fraction) -> Effect:
    """Shares that go to a buy-back, first those that came in first."""
    moves = []
    for piece in pieces:
        part = min(quantity, piece.quantity)
        quantity -= part
        moves.append(Move(piece, part))
    return Effect(moves)


def effect(pieces: list[Piece], action: Action, account: str = "") -> Effect:
    if not pieces:
        return Effect([])
    held = sum((one.quantity for one in pieces), Fraction(0))
    one, here, there = Fraction(1), action.scrip, action.other
    chosen = None if action.given is None else sum(action.given.get(account, ()), Fraction(0))
    if action.kind in ("split", "consolidation"):
        return _exchanged(pieces, here, action.new, action.old)
    if action.kind == "merger":
        return _exchanged(pieces, there, action.new, action.old)
    if action.kind == "name-change" and there:
        return _exchanged(pieces, there, one, one)
    if action.kind == "demerger":
        part = action.percent / 100
        stay = [Piece(each.rate * (1 - part), each.quantity, each.acquired,
                      each.brokerage * (1 - part), rounded(each.service_tax * (1 - part)),
                      rounded(each.stt * (1 - part))) for each in pieces]
        moved = _converted(pieces, action.new, action.old, part)
        return Effect([Move(each, each.quantity, here, left) for each, left in zip(pieces, stay)]
                      + [Move(each, Fraction(0), there, gone)
                         for each, gone in zip(pieces, moved)])
    if action.kind == "buy-back":
        return _given(pieces, chosen or Fraction(0))
    if action.kind in ("bonus", "rights"):
        whole = kept(held * action.new / action.old) if chosen is None else chosen
        whole -= whole % 1
        rate = action.price if action.kind == "rights" else Fraction(0)
        none = Piece(Fraction(0), Fraction(0), action.ex_day)
        into = Piece(rate, whole, held_from(action)) if whole else None
        return Effect([Move(none, Fraction(0), here, into)])
    return Effect([])
