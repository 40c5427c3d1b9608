#pragma once

#include "documents/DocumentReading.h"
#include "documents/window/DocumentPageView.h"

#include <QWidget>

class QLabel;
class QPrinter;

namespace quorvane {
class Progress;
namespace controls {
class ZENButton;
}
}  // namespace quorvane

namespace quorvane::documents {

/// A pane that shows a picture, a PDF document or a text page by page. Documents are read by a
/// separate program: Open returns at once, Opened or Failed follows. Nothing that a document names
/// is fetched, neither from the network nor from the disk.
class DocumentViewer : public QWidget {
  Q_OBJECT

 public:
  using View = DocumentPageView::View;

  explicit DocumentViewer(ReadingLimits limits = {}, QWidget* parent = nullptr);

  /// Empties the pane and starts to read a document. A file that cannot be one is refused by Failed
  /// at once.
  void Open(const QString& path);

  /// Shows nothing but the hint; the reading of a document is cancelled.
  void Clear(const QString& hint = {});

  bool IsEmpty() const { return Page().IsEmpty(); }
  const DocumentPage& Page() const { return pages_->Page(); }

  /// Counted from 0, and how many there are; 0 and 0 of an empty pane.
  int PageNumber() const { return Page().number; }
  int PageCount() const { return Page().count; }

  void Rotate90();
  void SetView(View view);
  View CurrentView() const { return pages_->CurrentView(); }
  void NextPage();
  void PreviousPage();

  void SetBackgroundColor(const QColor& color);
  QColor BackgroundColor() const { return background_; }

  /// Prints the pages of the printer's range, each as large as the paper allows. Events are handled
  /// meanwhile. Throws std::runtime_error, or Cancellation.
  void PrintImage(QPrinter& printer, Progress& progress) const;

 Q_SIGNALS:
  void Opened();
  void Failed(const QString& text);

  /// What the pane holds changed: the place to enable buttons.
  void Changed();

 private:
  QWidget* PageBar();
  void Start(int page);
  void Take(const QByteArray& answer);
  void ShowPageBar();
  void Fail(const QString& text);
  DocumentPage PageToPrint(int number, std::int64_t printed, Progress& progress) const;

  ReadingLimits limits_;
  QString path_;
  QColor background_;
  DocumentReading reading_;
  DocumentPageView* pages_;
  QWidget* page_bar_ = nullptr;
  QLabel* page_label_ = nullptr;
  controls::ZENButton* previous_ = nullptr;
  controls::ZENButton* next_ = nullptr;
};

}  // namespace quorvane::documents
