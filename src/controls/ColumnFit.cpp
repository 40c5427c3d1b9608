#include "controls/ColumnFit.h"

#include "controls/Style.h"

#include <algorithm>

namespace quorvane::controls {
namespace {

constexpr int kSample = 200;  // rows that are measured
constexpr int kCellPadding = 16;
constexpr int kNarrowestText = 130;
constexpr int kWidest = 420;

}  // namespace

void ColumnFit::Apply() {
  int left = list_.viewport()->width();
  for (int column = 0; column < model_.columnCount(); ++column) {
    if (!list_.isColumnHidden(column)) {
      list_.setColumnWidth(column, WidthOf(column));
      left -= list_.columnWidth(column);
    }
  }
  const std::vector<int> texts = Texts();
  if (texts.empty()) {
    return;
  }
  if (model_.RowCount() == 0 && left > 0) {
    const int share = left / static_cast<int>(texts.size());
    for (const int column : texts) {
      GiveTo(column, share);
    }
    left -= share * static_cast<int>(texts.size());
  }
  const int widest = *std::ranges::max_element(
      texts, {}, [this](int column) { return list_.columnWidth(column); });
  if (left > 0 || list_.columnWidth(widest) + left >= kNarrowestText) {
    GiveTo(widest, left);
  }
}

int ColumnFit::WidthOf(int column) const {
  const QFontMetrics metrics = list_.fontMetrics();
  const QString heading = model_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
  int width = metrics.horizontalAdvance(heading) + kSpacing;
  const int step = std::max(1, model_.RowCount() / kSample);
  for (int row = 0; row < model_.RowCount(); row += step) {
    width = std::max(width, metrics.horizontalAdvance(model_.Text(row, column)));
  }
  return std::clamp(width + kCellPadding, kNarrowestColumn, kWidest);
}

std::vector<int> ColumnFit::Texts() const {
  std::vector<int> texts;
  for (int column = 0; column < model_.columnCount(); ++column) {
    const Column& one = model_.Columns()[static_cast<std::size_t>(column)];
    if (one.mask == Mask::kText && !list_.isColumnHidden(column)) {
      texts.push_back(column);
    }
  }
  return texts;
}

void ColumnFit::GiveTo(int column, int more) {
  list_.setColumnWidth(column, list_.columnWidth(column) + more);
}

}  // namespace quorvane::controls
