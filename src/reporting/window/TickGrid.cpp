#include "reporting/window/TickGrid.h"

#include <utility>

namespace quorvane::reporting {
namespace {

constexpr int kTextColumn = 1;
constexpr qsizetype kMostNamed = 3;

}  // namespace

TickGrid::TickGrid(const QString& name, const QString& purpose,
                   std::vector<controls::Column> columns)
    : Grid(name, purpose) {
  columns.insert(columns.begin(), {.mask = controls::Mask::kTick});
  SetColumns(std::move(columns));
  SetFilterable(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void TickGrid::Fill(const std::vector<lookups::Item>& items, bool ticked) {
  std::vector<controls::Row> rows;
  rows.reserve(items.size());
  for (const lookups::Item& item : items) {
    rows.push_back({.id = item.id, .cells = {ticked, item.text}});
  }
  SetRows(std::move(rows));
}

std::vector<AccountId> TickGrid::TickedAccounts() const {
  return Model().AllTicked() ? std::vector<AccountId>() : Ticked<AccountId>();
}

QStringList TickGrid::TickedTexts() const {
  const QStringList texts = Model().AllTicked() ? QStringList() : Model().TickedTexts(kTextColumn);
  const qsizetype more = texts.size() - kMostNamed;
  return more <= 0 ? texts : texts.mid(0, kMostNamed) + QStringList(tr("and %1 more").arg(more));
}

MaybeRefusal TickGrid::RefuseWithoutTick(const QString& text, Field field) const {
  return Model().TickedIds().empty() ? MaybeRefusal({text, field}) : std::nullopt;
}

MaybeRefusal TickGrid::RefuseWithoutAccount() const {
  return Model().CountOfAll() == 0 ? std::nullopt
                                   : RefuseWithoutTick(tr("Select Demat A/c!"), Field::kAccounts);
}

}  // namespace quorvane::reporting
