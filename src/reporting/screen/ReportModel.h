#pragma once

#include "reporting/document/ReportDocument.h"

#include <QAbstractTableModel>

#include <vector>

namespace quorvane::reporting {

/// A report as rows and columns for the screen: its tables one after the other, its notes below.
/// The headings of the first table are the model's; a table with other headings begins with a row
/// of them.
class ReportModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  /// What a row is, beyond the kinds of a report's rows.
  enum class Line : std::uint8_t { kGroup, kData, kTotal, kNetTotal, kGap, kHeadings, kNote };

  /// Role under which a cell tells its row's Line as an int.
  static constexpr int kLineRole = Qt::UserRole + 1;

  explicit ReportModel(QObject* parent = nullptr) : QAbstractTableModel(parent) {}

  void SetDocument(ReportDocument document);
  const ReportDocument& Document() const { return document_; }

  Line LineAt(int row) const { return At(row).line; }

  /// Shows only the lines of data that have each word of a text in one of their cells, in any case,
  /// each under the headings of its group. Totals are of all lines, so they are not shown then. An
  /// empty text shows everything.
  void SetFilter(const QString& text);

  /// Sorts the lines of data by a column, those of a group among themselves; equal ones keep their
  /// order. Column -1 is the report's own order.
  void sort(int column, Qt::SortOrder order) override;

  /// Headings over neighbouring columns; empty when there are none.
  std::vector<ColumnGroup> Groups() const;

  /// The row with its cells separated by tabs, for the clipboard.
  QString RowText(int row) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  struct Place {
    Line line = Line::kData;
    std::uint32_t table = 0;
    std::uint32_t row = 0;  ///< of the table, or number of its title or of the note
  };

  const Place& At(int row) const { return shown_[static_cast<std::size_t>(row)]; }
  void Arrange();
  void SortLines();
  void KeepFitting();
  bool Fits(const Place& place, const QStringList& words) const;
  const Cell& CellAt(const Place& place, int column) const;
  void AddTable(std::uint32_t index);
  void AddNotes();
  QString TextAt(const Place& place, int column) const;
  Qt::Alignment AlignmentAt(std::size_t table, int column) const;

  ReportDocument document_;
  std::vector<Place> lines_;  ///< of the whole report in its order
  std::vector<Place> shown_;
  QString filter_;
  int sort_column_ = -1;
  Qt::SortOrder sort_order_ = Qt::AscendingOrder;
  int columns_ = 0;
};

}  // namespace quorvane::reporting
