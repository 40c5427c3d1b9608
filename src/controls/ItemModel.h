#pragma once

#include "core/lookups/Choices.h"

#include <QAbstractListModel>

#include <vector>

namespace quorvane::controls {

/// The lines of a drop-down list, replaced all at once.
class ItemModel : public QAbstractListModel {
  Q_OBJECT

 public:
  explicit ItemModel(QObject* parent = nullptr) : QAbstractListModel(parent) {}

  void SetItems(std::vector<lookups::Item> items) {
    beginResetModel();
    items_ = std::move(items);
    endResetModel();
  }
  const std::vector<lookups::Item>& Items() const { return items_; }

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : static_cast<int>(items_.size());
  }
  QVariant data(const QModelIndex& index, int role) const override {
    const bool text = role == Qt::DisplayRole || role == Qt::EditRole;
    return text && checkIndex(index, CheckIndexOption::IndexIsValid)
               ? QVariant(items_[static_cast<std::size_t>(index.row())].text)
               : QVariant();
  }

 private:
  std::vector<lookups::Item> items_;
};

}  // namespace quorvane::controls
