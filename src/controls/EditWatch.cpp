#include "controls/EditWatch.h"

#include "core/changes/Words.h"

namespace quorvane::controls {

EditWatch::EditWatch(QWidget* parent) : QLabel(parent) {
  setObjectName(QStringLiteral("lblNotice"));
  setWordWrap(true);
  hide();
}

void EditWatch::Begin(database::Connection& connection, std::string_view table, int key) {
  record_ = std::make_unique<changes::EditedRecord>(connection, table, key);
}

void EditWatch::End() {
  record_.reset();
  others_.clear();
  changed_.clear();
  is_certain_ = false;
  Tell();
}

void EditWatch::ChangedBy(const changes::Entry& entry, bool names_it) {
  if (is_certain_ && !names_it) {
    return;
  }
  is_certain_ = names_it;
  const QString what =
      names_it
          ? tr("%1 changed this record on %2 at %3. Saving shows what differs.")
          : tr("%1 changed many records on %2 at %3, this one perhaps among them. Saving shows "
               "what differs.");
  changed_ = what.arg(entry.user, entry.host, changes::TimeOf(entry));
  Tell();
}

void EditWatch::LookForOthers(bool now) {
  constexpr qint64 kEachMs = 5000;
  if (record_ == nullptr || (!now && !since_look_.hasExpired(kEachMs))) {
    return;
  }
  record_->Beat();
  others_ = changes::TextOf(record_->Others());
  since_look_.start();
  Tell();
}

void EditWatch::Tell() {
  const QString told = QStringList({changed_, others_}).join(QLatin1Char(' ')).trimmed();
  if (told != text()) {
    setText(told);
    setVisible(!told.isEmpty());
  }
}

}  // namespace quorvane::controls
