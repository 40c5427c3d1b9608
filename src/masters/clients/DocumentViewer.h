#pragma once

#include "masters/clients/DocumentPageView.h"
#include "masters/clients/DocumentText.h"
#include "masters/clients/DocumentTextPane.h"

#include <QFutureWatcher>
#include <QWidget>

#include <atomic>
#include <memory>
#include <variant>

class QLabel;
class QPrinter;
class QStackedLayout;

namespace quorvane {
class Progress;
namespace controls {
class ZENButton;
}
}  // namespace quorvane

namespace quorvane::clients {

/// A pane that shows a picture, a PDF document page by page, or a text. Documents are read outside
/// of the windows' thread: Open returns at once, Opened or Failed follows. Nothing that a document
/// names is fetched, neither from the network nor from the disk.
class DocumentViewer : public QWidget {
  Q_OBJECT

 public:
  using View = DocumentPageView::View;

  explicit DocumentViewer(TextLimits limits = {}, QWidget* parent = nullptr);
  ~DocumentViewer() override;

  /// Empties the pane and starts to read a document. A file that cannot be one is refused by Failed
  /// at once.
  void Open(const QString& path);

  /// Shows nothing but the hint; a document on its way is forgotten.
  void Clear(const QString& hint = {});

  bool IsEmpty() const { return !HasPages() && !HasText(); }
  bool HasPages() const { return !pages_->Page().IsEmpty(); }
  bool HasText() const { return text_->IsShowing(); }

  /// Counted from 0, and how many there are; 0 and 0 without pages.
  int PageNumber() const { return pages_->Page().number; }
  int PageCount() const { return pages_->Page().count; }

  /// Pages only; nothing happens to a text.
  void Rotate90();
  void SetView(View view);
  View CurrentView() const { return pages_->CurrentView(); }
  void NextPage();
  void PreviousPage();

  void SetBackgroundColor(const QColor& color);
  QColor BackgroundColor() const { return background_; }

  /// Prints the pages of the printer's range, each as large as the paper allows. Throws
  /// std::runtime_error, or Cancellation.
  void PrintImage(QPrinter& printer, Progress& progress) const;

 Q_SIGNALS:
  void Opened();
  void Failed(const QString& text);

  /// What the pane holds changed: the place to enable buttons.
  void Changed();

 private:
  using Text = std::shared_ptr<QTextDocument>;
  struct Reading {
    std::variant<Text, DocumentPage> contents;
    QString failure;
  };

  static Reading Read(const QString& path, int page, const TextLimits& limits,
                      const std::atomic<bool>& cancelled);

  QWidget* PageBar();
  void Start(int page);
  void Forget();
  void Take(Reading reading);
  void ShowPage(DocumentPage page);
  void ShowText(Text text);
  void ShowPageBar();
  void Fail(const QString& text);
  void PrintPages(QPrinter& printer, Progress& progress) const;

  TextLimits limits_;
  QString path_;
  QColor background_;
  std::shared_ptr<std::atomic<bool>> cancelled_;
  QFutureWatcher<Reading> reading_;
  QStackedLayout* stack_;
  DocumentPageView* pages_;
  DocumentTextPane* text_;
  QWidget* page_bar_ = nullptr;
  QLabel* page_label_ = nullptr;
  controls::ZENButton* previous_ = nullptr;
  controls::ZENButton* next_ = nullptr;
};

}  // namespace quorvane::clients
