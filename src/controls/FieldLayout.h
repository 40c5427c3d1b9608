#pragma once

#include <QGridLayout>
#include <QString>

class QLabel;

namespace quorvane::controls {

/// Labelled boxes in one or more columns, filled row by row. The label's mnemonic leads to its box,
/// and the label is the box's accessible name. As the layout of a whole panel it puts the rows at
/// the top.
class FieldLayout : public QGridLayout {
  Q_OBJECT

 public:
  explicit FieldLayout(int columns = 1, QWidget* parent = nullptr);

  /// Adds `box` under its control name ("Text1_3"); `span` counts columns of fields.
  template <class Box>
  Box* Add(const QString& label, const QString& name, Box* box, int span = 1) {
    AddField(label, name, box, span);
    return box;
  }

  /// Starts a new row.
  void NewRow();

 private:
  void AddField(const QString& label, const QString& name, QWidget* box, int span);

  int columns_;
  bool fills_panel_;
  int at_ = 0;
  int row_ = 0;
};

/// A label's text without its mnemonic and colon.
QString PlainLabel(const QString& label);

}  // namespace quorvane::controls
