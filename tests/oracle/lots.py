"""What the corporate actions of a folder make of the lots of every account: the rows of
corporate_action_lots.csv."""

from exact import dmy, plain
from folder import years
from ledger import Ledger
from statement import Choice, collect

COLUMNS = ("action", "client_code", "account_no", "scrip_code", "rate", "out", "to_scrip_code",
           "to_rate", "in", "acquired", "brokerage", "service_tax", "stt")


def lot_rows(ledger: Ledger) -> list[tuple]:
    """By action, client and account."""
    portfolio = ledger.portfolio
    by_day = sorted(range(len(portfolio.actions)), key=lambda n: portfolio.actions[n].ex_day)
    effects = []
    for client in portfolio.clients:
        for year in years(portfolio):
            effects += [(by_day[order], client, account, effect) for order, account, effect in
                        collect(ledger, client, year, Choice()).effects]
    rows = []
    for n, client, account, effect in sorted(effects, key=lambda one: one[:3]):
        for move in effect.moves:
            into = move.into
            rows.append((str(n + 1), client, account, portfolio.actions[n].scrip,
                         plain(move.source.rate), plain(move.out),
                         *((move.scrip, plain(into.rate), plain(into.quantity), dmy(into.acquired),
                            plain(into.brokerage), plain(into.service_tax), plain(into.stt))
                           if into else ("", "0", "0", "", "0", "0", "0"))))
    return rows
