#pragma once

#include "core/rates/PriceFile.h"
#include "core/rates/QuoteDesk.h"

#include <QVector>

namespace quorvane::rates {

/// Where an exchange's archive keeps the daily price file of a day, the likeliest address first.
/// Since 8 July 2024 both have the common daily file; before it, and after it when there is none,
/// the Bombay exchange's is "/Hisbhav/eq<ddmmyy>_csv.zip". Empty without a host.
QVector<QUrl> ArchiveAddresses(const ExchangeHosts& hosts, Exchange exchange, text::Date date);

}  // namespace quorvane::rates
