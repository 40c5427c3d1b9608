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

  Line LineAt(int row) const { return lines_[static_cast<std::size_t>(row)].line; }

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

  void AddTable(std::uint32_t index);
  void AddNotes();
  QString TextAt(const Place& place, int column) const;
  Qt::Alignment AlignmentAt(std::size_t table, int column) const;

  ReportDocument document_;
  std::vector<Place> lines_;
  int columns_ = 0;
};

}  // namespace quorvane::reporting
