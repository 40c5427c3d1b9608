#pragma once

#include "controls/ChildWindow.h"
#include "controls/ComboBox.h"
#include "controls/TextBox.h"
#include "core/Progress.h"
#include "reporting/output/window/PagesView.h"

#include <QBuffer>
#include <QLabel>
#include <QPdfDocument>
#include <QPdfSearchModel>
#include <QSpinBox>

class QBoxLayout;
class QPrinter;

namespace quorvane::reporting {

/// A report's pages on the screen: to leaf through, to enlarge, to search, to print and to save.
/// What is shown is the PDF itself, so that screen, paper and file are alike.
class PreviewWindow : public controls::ChildWindow {
  Q_OBJECT

 public:
  /// `pdf` is the file's content, `suggested_path` where it may be saved.
  PreviewWindow(controls::Desk& desk, const QString& title, QByteArray pdf, QString suggested_path);

  /// Prints the pages that the printer was set to, at its resolution. Throws Cancellation.
  void PrintPages(QPrinter& printer, Progress& progress);

  PagesView& Pages() { return *pages_; }
  int PageCount() const { return document_.pageCount(); }

 Q_SIGNALS:
  /// The page in sight has changed; counted from 1.
  void PageShown(int page, int pages);

 private:
  void BuildLayout();
  void AddSmallButton(QBoxLayout* row, const char* name, const QString& caption,
                      const QString& purpose, void (PreviewWindow::*handler)());
  void AddNavigation(QBoxLayout* row);
  void AddZoom(QBoxLayout* row);
  void AddSearch(QBoxLayout* row);
  void AddShortcuts();
  void Find(bool forward);
  bool ShowPlace(int page, int number);
  void ShowPageNumber(int page);
  void ShowZoom();

  void CmdFirst_Click();
  void CmdPrevious_Click();
  void CmdNext_Click();
  void CmdLast_Click();
  void TxtPage_Change(int number);
  void CmbZoom_Click(int position);
  void CmbZoom_Validate();
  void CmdZoomIn_Click();
  void CmdZoomOut_Click();
  void TxtFind_Change();
  void CmdFindNext_Click();
  void CmdFindPrevious_Click();
  void CmdPrint_Click();
  void CmdSave_Click();
  void CmdExit_Click();

  QByteArray pdf_;
  QBuffer buffer_{&pdf_};
  QString suggested_path_;
  QPdfDocument document_;
  QPdfSearchModel search_;
  PagesView* pages_ = nullptr;
  QSpinBox* TxtPage = nullptr;
  controls::ComboBox* CmbZoom = nullptr;
  controls::TextBox* TxtFind = nullptr;
  QLabel* LblFound = nullptr;
  int found_page_ = -1;
  int found_number_ = 0;  ///< on its page
};

}  // namespace quorvane::reporting
