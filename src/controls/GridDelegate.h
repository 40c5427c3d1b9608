#pragma once

#include <QStyledItemDelegate>

namespace quorvane::controls {

/// Draws and edits the cells of a Grid: the box of the column's kind, and ticks in the middle.
class GridDelegate final : public QStyledItemDelegate {
  Q_OBJECT

 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 Q_SIGNALS:
  void Refused(const QString& text) const;

 protected:
  bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace quorvane::controls
