#include "ui/main/NewsRound.h"

#include "controls/ProgressDialog.h"
#include "controls/RecordWindow.h"
#include "core/changes/Undo.h"
#include "core/text/Tr.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <iterator>

namespace quorvane::ui {

using controls::ChildWindow;
using controls::RecordWindow;

NewsRound::NewsRound(controls::Desk& desk, QWidget& main)
    : desk_(desk), main_(main), news_(*desk.session.connection) {}

// A question that is shown meanwhile keeps the timer alive, so one look does not begin within
// another.
void NewsRound::LookAround() {
  constexpr qint64 kRestMs = 30'000;
  if (desk_.session.connection->InTransaction()) {
    return;
  }
  const bool rests = since_failed_.isValid() && !since_failed_.hasExpired(kRestMs);
  if (looks_around_ || rests || desk_.session.read_only) {
    return;
  }
  const QScopedValueRollback<bool> looking(looks_around_, true);
  try {
    std::ranges::move(news_.Read(), std::back_inserter(untold_));
    const changes::Novelties news(*desk_.session.connection, untold_);
    for (ChildWindow* child : main_.findChildren<ChildWindow*>()) {
      child->LookAround(news);
    }
    untold_.clear();
  } catch (const database::DatabaseError&) {
    // The user's next step tells of it; a box or a wait each second would only be in the way.
    since_failed_.start();
  }
}

bool NewsRound::IsEditing() const {
  return std::ranges::any_of(main_.findChildren<RecordWindow*>(), &RecordWindow::IsEditing);
}

void NewsRound::TakeBackLast() {
  if (IsEditing()) {
    return desk_.messages.Refuse(
        Tr("MainWindow", "Save or Cancel the Record that is being Entered First."));
  }
  const Result<changes::Entry> last = changes::LastToUndo(*desk_.session.connection, std::nullopt);
  if (!last) {
    return desk_.messages.Refuse(last.Why().text);
  }
  if (!desk_.messages.Ask(changes::AskUndo(*last), controls::Answer::kNo,
                          controls::Icon::kInformation)) {
    return;
  }
  MaybeRefusal refusal;
  {
    controls::ProgressDialog progress(&main_);
    refusal = changes::Undo(*desk_.session.connection, *last, progress);
  }
  if (refusal) {
    desk_.messages.Refuse(refusal->text);
  }
  LookAround();
}

}  // namespace quorvane::ui
