#include "controls/RecordWindow.h"

// How a window of records takes in what was changed, here and by other programs.

namespace quorvane::controls {

void RecordWindow::LookAround(const changes::Novelties& news) {
  if (editing_) {
    return WatchFor(news);
  }
  if (news.Entries().empty() || !isVisible() || reading_again_) {
    return;
  }
  constexpr std::size_t kMost = 500;
  const changes::Touched touched = TouchedBy(news);
  const bool singly = !touched.IsUnnamed() && touched.keys.size() <= kMost;
  if (!touched.IsNothing()) {
    ReadAgain(singly ? std::span<const int>(touched.keys) : std::span<const int>(),
              touched.MayHaveChanged(current_));
  }
}

/// What it saved itself before the edit began is no news.
void RecordWindow::WatchFor(const changes::Novelties& news) {
  const auto seen = Session().connection->Edits().Seen(RecordTable(), current_);
  for (const changes::Entry& entry : news.Entries()) {
    if (!seen || entry.id <= *seen || !IsOfClient(entry)) {
      continue;
    }
    const changes::Touched touched = news.TouchedBy(entry, RecordTable());
    if (touched.MayHaveChanged(current_)) {
      watch_->ChangedBy(entry, touched.Names(current_));
    }
  }
  watch_->LookForOthers(false);
}

/// Which records of the window's kind the entries changed that the window does not show yet. Of
/// many entries the rows are not read.
changes::Touched RecordWindow::TouchedBy(const changes::Novelties& news) const {
  constexpr std::size_t kMany = 50;
  changes::Touched all;
  all.everything = news.Entries().size() > kMany && news.Entries().back().id > shows_up_to_;
  for (const changes::Entry& entry : news.Entries()) {
    const bool is_shown = RecordTable().empty() || entry.id <= shows_up_to_;
    if (all.everything || is_shown || !IsOfClient(entry)) {
      continue;
    }
    const changes::Touched one = news.TouchedBy(entry, RecordTable());
    all.keys.insert(all.keys.end(), one.keys.begin(), one.keys.end());
    all.went += one.went;
    all.came += one.came;
    all.everything = one.everything;
  }
  return all;
}

bool RecordWindow::IsOfClient(const changes::Entry& entry) const {
  return changes::IsOf(entry, RecordClient().value_or(ClientId()));
}

}  // namespace quorvane::controls
