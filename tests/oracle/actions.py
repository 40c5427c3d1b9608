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


class Effect(NamedTuple):
    out: list[Piece]
    into: list[tuple[str, Piece]]  # with their scrips


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


def _converted(pieces: list[Piece], action: Action, new: Fraction, old: Fraction,
               part: Fraction) -> list[Piece]:
    """The pieces at a ratio with a part of their cost; the fraction of a share goes off the first."""
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
    return [one for one in result if one.quantity]


def effect(pieces: list[Piece], action: Action) -> Effect:
    if not pieces:
        return Effect([], [])
    held = sum((one.quantity for one in pieces), Fraction(0))
    one, here, there = Fraction(1), action.scrip, action.other
    if action.kind in ("split", "consolidation"):
        return Effect(pieces, [(here, piece) for piece in
                               _converted(pieces, action, action.new, action.old, one)])
    if action.kind == "merger" or action.kind == "name-change" and there:
        new, old = (action.new, action.old) if action.kind == "merger" else (one, one)
        return Effect(pieces, [(there, piece) for piece in
                               _converted(pieces, action, new, old, one)])
    if action.kind == "demerger":
        part = action.percent / 100
        stay = [Piece(each.rate * (1 - part), each.quantity, each.acquired,
                      each.brokerage * (1 - part), rounded(each.service_tax * (1 - part)),
                      rounded(each.stt * (1 - part))) for each in pieces]
        return Effect(pieces, [(here, piece) for piece in stay]
                      + [(there, piece) for piece in
                         _converted(pieces, action, action.new, action.old, part)])
    if action.kind in ("bonus", "rights"):
        whole = kept(held * action.new / action.old)
        whole -= whole % 1
        rate = action.price if action.kind == "rights" else Fraction(0)
        return Effect([], [(here, Piece(rate, whole, held_from(action)))] if whole else [])
    return Effect([], [])
