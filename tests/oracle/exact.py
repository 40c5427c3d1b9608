"""Exact numbers: plain decimals are fractions, money is whole paise. No binary floating point."""

import re
from datetime import date
from fractions import Fraction
from functools import lru_cache

_PLAIN = re.compile(r"-?\d+(\.\d+)?\Z")
_DMY = re.compile(r"(\d\d)/(\d\d)/(\d{4})\Z")


class Refusal(ValueError):
    """A portfolio that is not accepted, with the reason."""


@lru_cache(maxsize=1 << 16)
def number(text: str) -> Fraction:
    """Reads a plain decimal such as 100.5; an empty text is 0."""
    text = text.strip()
    if not text:
        return Fraction(0)
    if not _PLAIN.match(text):
        raise Refusal(f"'{text}' is not a number")
    return Fraction(text)


def paise(rupees: Fraction) -> int:
    """Rounds to whole paise, half away from zero."""
    hundredfold = rupees * 100
    whole, rest = divmod(abs(hundredfold.numerator), hundredfold.denominator)
    if 2 * rest >= hundredfold.denominator:
        whole += 1
    return whole if hundredfold >= 0 else -whole


def rounded(rupees: Fraction) -> Fraction:
    """The amount rounded to paise, in rupees."""
    return Fraction(paise(rupees), 100)


def money(amount: int) -> str:
    """Paise as rupees with two decimals."""
    sign = "-" if amount < 0 else ""
    return f"{sign}{abs(amount) // 100}.{abs(amount) % 100:02d}"


def plain(value: Fraction) -> str:
    """A decimal without needless zeros: 100.5, 0, -3."""
    decimals = 0
    while (value * 10**decimals).denominator != 1:
        decimals += 1
        if decimals > 40:
            raise ValueError(f"{value} has no finite decimal form")
    digits = str(abs(int(value * 10**decimals))).rjust(decimals + 1, "0")
    sign = "-" if value < 0 else ""
    if decimals == 0:
        return sign + digits
    return f"{sign}{digits[:-decimals]}.{digits[-decimals:]}"


@lru_cache(maxsize=1 << 14)
def day(text: str) -> date:
    """Reads dd/mm/yyyy."""
    parts = _DMY.match(text)
    try:
        return date(int(parts[3]), int(parts[2]), int(parts[1]))
    except (TypeError, ValueError):
        raise Refusal(f"'{text}' is not a date") from None


def dmy(when: date) -> str:
    return f"{when.day:02d}/{when.month:02d}/{when.year:04d}"


def financial_year(when: date) -> str:
    """2011-12 for a day from 01/04/2011 to 31/03/2012."""
    first = when.year if when.month >= 4 else when.year - 1
    return f"{first}-{(first + 1) % 100:02d}"


def first_day(year: str) -> date:
    return date(int(year[:4]), 4, 1)


def last_day(year: str) -> date:
    return date(int(year[:4]) + 1, 3, 31)


def anniversary(when: date) -> date:
    """The same day a year later; 29 February becomes 28 February."""
    if (when.month, when.day) == (2, 29):
        return date(when.year + 1, 2, 28)
    return when.replace(year=when.year + 1)
