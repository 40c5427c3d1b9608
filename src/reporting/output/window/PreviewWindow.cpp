#include "reporting/output/window/PreviewWindow.h"

#include "controls/ProgressDialog.h"
#include "controls/Style.h"
#include "core/app/Ini.h"
#include "core/platform/PrivateFile.h"
#include "core/text/Amounts.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QPdfPageNavigator>
#include <QPrintDialog>
#include <QPrinter>
#include <QShortcut>

#include <array>
#include <stdexcept>

namespace quorvane::reporting {
namespace {

using controls::ZENButton;

constexpr int kSmallButton = 36;
constexpr int kPageBox = 52;
constexpr double kZoomStep = 1.25;
constexpr int kLargestResolution =
    300;  // dots an inch; more is not seen and takes four times as long
constexpr double kPointsAnInch = 72;
constexpr std::array kZooms{0.5, 0.75, 1.0, 1.25, 1.5, 2.0, 3.0};
constexpr int kFitWidth = 0;

/// A page in its own size, or shrunk to a paper that is smaller.
QRectF PlaceOn(const QRectF& paper, QSizeF page) {
  constexpr double kHardlyMore = 1.01;
  if (page.width() > paper.width() * kHardlyMore || page.height() > paper.height() * kHardlyMore) {
    page.scale(paper.size(), Qt::KeepAspectRatio);
  }
  return {QPointF(), page};
}

constexpr int kFitPage = 1;
constexpr int kLastPlace = -2;  // of a page
constexpr int kFixedZooms = 2;  // items before those of kZooms

QStringList ZoomTexts() {
  QStringList texts{PreviewWindow::tr("Fit Width"), PreviewWindow::tr("Fit Page")};
  for (const double zoom : kZooms) {
    texts << QStringLiteral("%1%").arg(zoom * 100);
  }
  return texts;
}

}  // namespace

PreviewWindow::PreviewWindow(controls::Desk& desk, const QString& title, QByteArray pdf,
                             QString suggested_path)
    : ChildWindow(desk, QStringLiteral("RepView"), title, {780, 540}),
      pdf_(std::move(pdf)),
      suggested_path_(std::move(suggested_path)) {
  buffer_.open(QIODevice::ReadOnly);
  document_.load(&buffer_);
  if (document_.status() != QPdfDocument::Status::Ready) {
    throw std::runtime_error("the pages cannot be read back");
  }
  search_.setDocument(&document_);
  BuildLayout();
  AddShortcuts();
  ShowPageNumber(0);
}

void PreviewWindow::BuildLayout() {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                           controls::kMargin);
  rows->setSpacing(controls::kSpacing);
  auto* head = new QHBoxLayout;
  head->setSpacing(controls::kTightSpacing);
  pages_ = new PagesView;
  pages_->setObjectName(QStringLiteral("Pages"));
  pages_->setAccessibleName(tr("Pages"));
  pages_->setDocument(&document_);
  AddNavigation(head);
  head->addStretch(1);
  AddZoom(head);
  head->addStretch(1);
  AddSearch(head);
  rows->addLayout(head);
  rows->addWidget(pages_, 1);

  auto* print = new ZENButton(QStringLiteral("CmdPrint"), tr("&Print"));
  auto* save = new ZENButton(QStringLiteral("CmdSave"), tr("&Save as PDF"));
  auto* exit = new ZENButton(QStringLiteral("CmdExit"), tr("E&xit"));
  auto* foot = new QHBoxLayout;
  foot->addStretch(1);
  for (ZENButton* button : {print, save, exit}) {
    foot->addWidget(button);
  }
  rows->addLayout(foot);
  OnClick(print, &PreviewWindow::CmdPrint_Click);
  OnClick(save, &PreviewWindow::CmdSave_Click);
  OnClick(exit, &PreviewWindow::CmdExit_Click);
  pages_->setFocus();
}

void PreviewWindow::AddSmallButton(QBoxLayout* row, const char* name, const QString& caption,
                                   const QString& purpose, void (PreviewWindow::*handler)()) {
  auto* button = new ZENButton(QLatin1String(name), caption);
  button->setToolTip(purpose);
  button->setAccessibleName(purpose);
  button->setFixedWidth(kSmallButton);
  row->addWidget(button);
  OnClick(button, handler);
}

void PreviewWindow::AddNavigation(QBoxLayout* row) {
  const auto add = [&](const char* name, const QString& caption, const QString& purpose,
                       void (PreviewWindow::*handler)()) {
    AddSmallButton(row, name, caption, purpose, handler);
  };
  add("CmdFirst", QStringLiteral("\u00ab"), tr("First page"), &PreviewWindow::CmdFirst_Click);
  add("CmdPrevious", QStringLiteral("\u2039"), tr("Previous page"),
      &PreviewWindow::CmdPrevious_Click);
  TxtPage = new QSpinBox;
  TxtPage->setObjectName(QStringLiteral("TxtPage"));
  TxtPage->setAccessibleName(tr("Page"));
  TxtPage->setRange(1, std::max(1, document_.pageCount()));
  TxtPage->setButtonSymbols(QAbstractSpinBox::NoButtons);
  TxtPage->setAlignment(Qt::AlignRight);
  TxtPage->setKeyboardTracking(false);
  TxtPage->setFixedWidth(kPageBox);
  row->addWidget(TxtPage);
  row->addWidget(new QLabel(tr("of %1").arg(document_.pageCount())));
  add("CmdNext", QStringLiteral("\u203a"), tr("Next page"), &PreviewWindow::CmdNext_Click);
  add("CmdLast", QStringLiteral("\u00bb"), tr("Last page"), &PreviewWindow::CmdLast_Click);
  On(TxtPage, &QSpinBox::valueChanged, &PreviewWindow::TxtPage_Change,
     QStringLiteral("TxtPage_Change"));
  connect(pages_->pageNavigator(), &QPdfPageNavigator::currentPageChanged, this,
          &PreviewWindow::ShowPageNumber);
}

void PreviewWindow::AddZoom(QBoxLayout* row) {
  AddSmallButton(row, "CmdZoomOut", QStringLiteral("\u2212"), tr("Smaller"),
                 &PreviewWindow::CmdZoomOut_Click);
  CmbZoom = new controls::ComboBox(nullptr, controls::ComboBox::Entry::kFreeText);
  CmbZoom->setObjectName(QStringLiteral("CmbZoom"));
  CmbZoom->setAccessibleName(tr("Zoom"));
  CmbZoom->SetTexts(ZoomTexts());
  CmbZoom->setCurrentIndex(kFitWidth);
  CmbZoom->setFixedWidth(110);
  row->addWidget(CmbZoom);
  AddSmallButton(row, "CmdZoomIn", QStringLiteral("+"), tr("Larger"),
                 &PreviewWindow::CmdZoomIn_Click);
  On(CmbZoom, &QComboBox::activated, &PreviewWindow::CmbZoom_Click,
     QStringLiteral("CmbZoom_Click"));
  On(CmbZoom, &controls::ComboBox::Left, &PreviewWindow::CmbZoom_Validate,
     QStringLiteral("CmbZoom_Validate"));
  connect(pages_, &QPdfView::zoomFactorChanged, this, &PreviewWindow::ShowZoom);
}

void PreviewWindow::AddSearch(QBoxLayout* row) {
  TxtFind = new controls::TextBox;
  TxtFind->setObjectName(QStringLiteral("TxtFind"));
  TxtFind->setAccessibleName(tr("Find"));
  TxtFind->setPlaceholderText(tr("Find"));
  TxtFind->SetUpperCase(false);
  TxtFind->setClearButtonEnabled(true);
  LblFound = new QLabel;
  LblFound->setObjectName(QStringLiteral("LblFound"));
  LblFound->setMinimumWidth(LblFound->fontMetrics().horizontalAdvance(tr("Not found")));
  row->addWidget(TxtFind);
  AddSmallButton(row, "CmdFindPrevious", QStringLiteral("\u2191"), tr("Find previous"),
                 &PreviewWindow::CmdFindPrevious_Click);
  AddSmallButton(row, "CmdFindNext", QStringLiteral("\u2193"), tr("Find next"),
                 &PreviewWindow::CmdFindNext_Click);
  row->addWidget(LblFound);
  On(TxtFind, &QLineEdit::textChanged, &PreviewWindow::TxtFind_Change,
     QStringLiteral("TxtFind_Change"));
  On(TxtFind, &QLineEdit::returnPressed, &PreviewWindow::CmdFindNext_Click,
     QStringLiteral("TxtFind_KeyPress"));
}

void PreviewWindow::AddShortcuts() {
  const auto add = [this](QKeySequence::StandardKey keys, const char* name,
                          void (PreviewWindow::*handler)()) {
    auto* shortcut = new QShortcut(keys, this);
    shortcut->setContext(Qt::WidgetWithChildrenShortcut);
    On(shortcut, &QShortcut::activated, handler, QLatin1String(name) + QStringLiteral("_Click"));
  };
  add(QKeySequence::Print, "CmdPrint", &PreviewWindow::CmdPrint_Click);
  add(QKeySequence::Save, "CmdSave", &PreviewWindow::CmdSave_Click);
  add(QKeySequence::ZoomIn, "CmdZoomIn", &PreviewWindow::CmdZoomIn_Click);
  add(QKeySequence::ZoomOut, "CmdZoomOut", &PreviewWindow::CmdZoomOut_Click);
  add(QKeySequence::FindNext, "CmdFindNext", &PreviewWindow::CmdFindNext_Click);
  add(QKeySequence::FindPrevious, "CmdFindPrevious", &PreviewWindow::CmdFindPrevious_Click);
  auto* find = new QShortcut(QKeySequence::Find, this);
  find->setContext(Qt::WidgetWithChildrenShortcut);
  connect(find, &QShortcut::activated, TxtFind,
          [this] { TxtFind->setFocus(Qt::ShortcutFocusReason); });
}

void PreviewWindow::ShowPageNumber(int page) {
  const QSignalBlocker quiet(TxtPage);
  TxtPage->setValue(page + 1);
  Q_EMIT PageShown(page + 1, document_.pageCount());
}

void PreviewWindow::ShowZoom() {
  if (pages_->zoomMode() == QPdfView::ZoomMode::Custom) {
    CmbZoom->setCurrentText(QStringLiteral("%1%").arg(qRound(pages_->Zoom() * 100)));
  }
}

void PreviewWindow::CmdFirst_Click() {
  pages_->GoTo(0);
}

void PreviewWindow::CmdPrevious_Click() {
  pages_->GoTo(pages_->CurrentPage() - 1);
}

void PreviewWindow::CmdNext_Click() {
  pages_->GoTo(pages_->CurrentPage() + 1);
}

void PreviewWindow::CmdLast_Click() {
  pages_->GoTo(document_.pageCount() - 1);
}

void PreviewWindow::TxtPage_Change(int number) {
  pages_->GoTo(number - 1);
}

void PreviewWindow::CmbZoom_Click(int position) {
  if (position == kFitWidth || position == kFitPage) {
    pages_->setZoomMode(position == kFitWidth ? QPdfView::ZoomMode::FitToWidth
                                              : QPdfView::ZoomMode::FitInView);
  } else if (position >= kFixedZooms) {
    pages_->SetZoom(kZooms[static_cast<std::size_t>(position - kFixedZooms)]);
  }
}

// A number that was typed in; other texts leave the zoom as it is.
void PreviewWindow::CmbZoom_Validate() {
  constexpr double kPerCent = 100;
  const double typed = text::Val(CmbZoom->currentText());
  if (typed > 0) {
    pages_->SetZoom(typed / kPerCent);
  }
}

void PreviewWindow::CmdZoomIn_Click() {
  pages_->SetZoom(pages_->Zoom() * kZoomStep);
  ShowZoom();
}

void PreviewWindow::CmdZoomOut_Click() {
  pages_->SetZoom(pages_->Zoom() / kZoomStep);
  ShowZoom();
}

void PreviewWindow::TxtFind_Change() {
  found_page_ = -1;
  LblFound->clear();
  pages_->Mark(std::nullopt);
}

void PreviewWindow::CmdFindNext_Click() {
  Find(true);
}

void PreviewWindow::CmdFindPrevious_Click() {
  Find(false);
}

// The search model would look at a page each tenth of a second; pages are asked for here as they
// are needed.
void PreviewWindow::Find(bool forward) {
  if (TxtFind->text().isEmpty()) {
    TxtFind->setFocus();
    return;
  }
  search_.setSearchString(TxtFind->text());
  const int pages = document_.pageCount();
  const bool again = found_page_ >= 0;
  const int start = again ? found_page_ : pages_->CurrentPage();
  controls::ProgressDialog progress(this);
  progress.Begin(tr("Searching"), pages);
  for (int step = 0; step <= pages; ++step) {
    const int page = (start + (forward ? step : pages - step % pages)) % pages;
    const bool here = step == 0 && again;
    if (ShowPlace(page, here ? found_number_ + (forward ? 1 : -1) : forward ? 0 : kLastPlace)) {
      return;
    }
    progress.Step(step);
    progress.ThrowIfCancelled();
  }
  LblFound->setText(tr("Not found"));
}

bool PreviewWindow::ShowPlace(int page, int number) {
  const QList<QPdfLink> places = search_.resultsOnPage(page);
  const int count = static_cast<int>(places.size());
  const int chosen = number == kLastPlace ? count - 1 : number;
  if (chosen < 0 || chosen >= count) {
    return false;
  }
  found_page_ = page;
  found_number_ = chosen;
  pages_->Mark(places[chosen]);
  ShowPageNumber(page);
  LblFound->setText(tr("Page %1").arg(page + 1));
  return true;
}

void PreviewWindow::CmdPrint_Click() {
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(windowTitle());
  const QSizeF size = document_.pagePointSize(0);
  controls::ProposePrinter(printer, app::IniFile(Session().folders.config_file));
  printer.setPageOrientation(size.width() > size.height() ? QPageLayout::Landscape
                                                          : QPageLayout::Portrait);
  QPrintDialog dialog(&printer, this);
  dialog.setOption(QAbstractPrintDialog::PrintPageRange);
  dialog.setMinMax(1, document_.pageCount());
  if (dialog.exec() == QDialog::Accepted) {
    controls::ProgressDialog progress(this);
    PrintPages(printer, progress);
  }
}

void PreviewWindow::PrintPages(QPrinter& printer, Progress& progress) {
  printer.setFullPage(true);
  const bool range = printer.printRange() == QPrinter::PageRange && printer.fromPage() > 0;
  const int first = range ? printer.fromPage() - 1 : 0;
  const int last =
      range ? std::min(printer.toPage(), document_.pageCount()) - 1 : document_.pageCount() - 1;
  QPainter painter;
  if (!painter.begin(&printer)) {
    throw std::runtime_error("the printer cannot be used");
  }
  const double dots = std::min(printer.resolution(), kLargestResolution) / kPointsAnInch;
  progress.Begin(tr("Printing"), last - first + 1);
  for (int page = first; page <= last; ++page) {
    if (page > first) {
      printer.newPage();
    }
    const QImage image =
        document_.render(page, QSizeF(document_.pagePointSize(page) * dots).toSize());
    const QRectF paper = printer.pageLayout().fullRectPixels(printer.resolution());
    painter.drawImage(
        PlaceOn(paper, document_.pagePointSize(page) * (printer.resolution() / kPointsAnInch)),
        image);
    progress.Step(page - first + 1);
    if (progress.Cancelled()) {
      printer.abort();
      throw Cancellation();
    }
  }
}

void PreviewWindow::CmdSave_Click() {
  const QString path = TheDesk().ask_save_path(this, suggested_path_);
  if (path.isEmpty()) {
    return;
  }
  platform::WritePrivate(path, pdf_);
  Say().Inform(tr("Saved as %1.").arg(path));
}

void PreviewWindow::CmdExit_Click() {
  close();
}

}  // namespace quorvane::reporting
