#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace quorvane::rates {

/// Where the feed is unless the settings ([Internet] IndexFeed) name another address.
inline constexpr char kIndexFeed[] = "https://www.bseindia.com/sensex/xml-data/sensexrss.xml";

/// The headline of the exchange's index feed (RSS): the title of its last item, with each "*"
/// written as "  +", after "BSE ". nullopt when the text is no such feed, is larger than a feed can
/// be, or its last title has no "*" (there is then no headline to show).
std::optional<QString> HeadlineOf(const QByteArray& feed);

}  // namespace quorvane::rates
