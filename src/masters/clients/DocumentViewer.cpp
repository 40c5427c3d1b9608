#include "masters/clients/DocumentViewer.h"

#include "controls/Style.h"
#include "controls/ZENButton.h"
#include "core/Progress.h"
#include "masters/clients/DocumentKind.h"
#include "masters/clients/DocumentStore.h"

#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPageRanges>
#include <QPainter>
#include <QPrinter>
#include <QPromise>
#include <QStackedLayout>
#include <QThreadPool>

#include <stdexcept>
#include <utility>
#include <vector>

namespace quorvane::clients {
namespace {

/// What speaks against a file before it is read.
QString Objection(const QString& path) {
  const QFileInfo file(path);
  if (!file.exists()) {
    return FileDoesNotExist().text;
  }
  if (!file.isFile()) {
    return DocumentViewer::tr("This is a Folder, not a Document.");
  }
  if (KindOf(path) == DocumentKind::kUnsupported) {
    return FormatNotSupported();
  }
  return file.size() > DocumentStore::kMostBytes
             ? DocumentViewer::tr("The Document is too Large to be Shown.")
             : QString();
}

/// The pages that the printer was set to, counted from 1: all of them, or ranges such as "1-2,5".
std::vector<int> PagesToPrint(const QPrinter& printer, int count) {
  const QPageRanges ranges = printer.pageRanges();
  std::vector<int> numbers;
  for (int number = 1; number <= count; ++number) {
    if (ranges.isEmpty() || ranges.contains(number)) {
      numbers.push_back(number);
    }
  }
  if (numbers.empty()) {
    throw std::runtime_error(DocumentViewer::tr("The Document has no such Page.").toStdString());
  }
  return numbers;
}

}  // namespace

DocumentViewer::DocumentViewer(TextLimits limits, QWidget* parent)
    : QWidget(parent),
      limits_(std::move(limits)),
      stack_(new QStackedLayout()),
      pages_(new DocumentPageView()),
      text_(new DocumentTextPane()) {
  page_bar_ = PageBar();
  background_ = palette().color(QPalette::Mid);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addLayout(stack_, 1);
  rows->addWidget(page_bar_);
  stack_->addWidget(pages_);
  stack_->addWidget(text_);
  page_bar_->hide();
  connect(&reading_, &QFutureWatcherBase::finished, this, [this] {
    if (reading_.future().resultCount() > 0) {
      Take(reading_.result());
    }
  });
}

DocumentViewer::~DocumentViewer() {
  Forget();
}

QWidget* DocumentViewer::PageBar() {
  auto* bar = new QWidget();
  auto* columns = new QHBoxLayout(bar);
  columns->setContentsMargins(0, controls::kTightSpacing, 0, 0);
  previous_ = new controls::ZENButton(QStringLiteral("PreviousPage"), tr("Previous Pa&ge"));
  next_ = new controls::ZENButton(QStringLiteral("NextPage"), tr("Next Page"));
  page_label_ = new QLabel();
  columns->addStretch();
  for (QWidget* one : std::initializer_list<QWidget*>{previous_, page_label_, next_}) {
    columns->addWidget(one);
  }
  columns->addStretch();
  connect(previous_, &QAbstractButton::clicked, this, &DocumentViewer::PreviousPage);
  connect(next_, &QAbstractButton::clicked, this, &DocumentViewer::NextPage);
  return bar;
}

void DocumentViewer::Open(const QString& path) {
  Clear();
  if (const QString objection = Objection(path); !objection.isEmpty()) {
    Fail(objection);
    return;
  }
  path_ = path;
  pages_->Clear(tr("The document is being read ..."));
  Start(0);
}

void DocumentViewer::Clear(const QString& hint) {
  Forget();
  path_.clear();
  text_->Empty();
  pages_->Straighten();
  pages_->Clear(hint);
  stack_->setCurrentWidget(pages_);
  ShowPageBar();
  Q_EMIT Changed();
}

void DocumentViewer::Forget() {
  if (cancelled_) {
    *cancelled_ = true;
  }
  reading_.setFuture({});
}

void DocumentViewer::Start(int page) {
  Forget();
  cancelled_ = std::make_shared<std::atomic<bool>>(false);
  auto promise = std::make_shared<QPromise<Reading>>();
  promise->start();
  reading_.setFuture(promise->future());
  QThreadPool::globalInstance()->start(
      [promise, cancelled = cancelled_, path = path_, page, limits = limits_] {
        promise->addResult(Read(path, page, limits, *cancelled));
        promise->finish();
      });
}

DocumentViewer::Reading DocumentViewer::Read(const QString& path, int page,
                                             const TextLimits& limits,
                                             const std::atomic<bool>& cancelled) {
  try {
    if (KindOf(path) == DocumentKind::kText) {
      return {.contents = MakeTextDocument(ReadDocumentText(path, limits, cancelled)),
              .failure = {}};
    }
    return {.contents = ReadDocumentPage(path, page), .failure = {}};
  } catch (const std::exception& error) {
    return {.contents = {}, .failure = QString::fromUtf8(error.what())};
  }
}

void DocumentViewer::Take(Reading reading) {
  if (!reading.failure.isEmpty()) {
    Fail(reading.failure);
    return;
  }
  if (auto* page = std::get_if<DocumentPage>(&reading.contents)) {
    ShowPage(std::move(*page));
  } else {
    ShowText(std::get<Text>(std::move(reading.contents)));
  }
  Q_EMIT Changed();
  Q_EMIT Opened();
}

void DocumentViewer::ShowPage(DocumentPage page) {
  pages_->Show(std::move(page));
  stack_->setCurrentWidget(pages_);
  ShowPageBar();
}

void DocumentViewer::ShowText(Text text) {
  text_->Show(std::move(text));
  pages_->Clear({});
  stack_->setCurrentWidget(text_);
}

void DocumentViewer::ShowPageBar() {
  page_bar_->setVisible(PageCount() > 1);
  page_label_->setText(tr("Page %1 of %2").arg(PageNumber() + 1).arg(PageCount()));
  previous_->setEnabled(PageNumber() > 0);
  next_->setEnabled(PageNumber() + 1 < PageCount());
}

void DocumentViewer::Fail(const QString& text) {
  Clear();
  Q_EMIT Failed(text);
}

void DocumentViewer::Rotate90() {
  if (HasPages()) {
    pages_->Rotate90();
  }
}

void DocumentViewer::SetView(View view) {
  pages_->SetView(view);
}

void DocumentViewer::NextPage() {
  if (PageNumber() + 1 < PageCount()) {
    Start(PageNumber() + 1);
  }
}

void DocumentViewer::PreviousPage() {
  if (PageNumber() > 0) {
    Start(PageNumber() - 1);
  }
}

void DocumentViewer::SetBackgroundColor(const QColor& color) {
  background_ = color;
  pages_->SetBackgroundColor(color);
  text_->SetBackgroundColor(color);
}

void DocumentViewer::PrintImage(QPrinter& printer, Progress& progress) const {
  if (HasText()) {
    text_->print(&printer);
  } else if (HasPages()) {
    PrintPages(printer, progress);
  }
}

void DocumentViewer::PrintPages(QPrinter& printer, Progress& progress) const {
  const std::vector<int> numbers = PagesToPrint(printer, PageCount());
  QPainter painter;
  if (!painter.begin(&printer)) {
    throw std::runtime_error(tr("The Printer can't be Used.").toStdString());
  }
  progress.Begin(tr("Printing"), static_cast<std::int64_t>(numbers.size()));
  std::int64_t printed = 0;
  for (const int number : numbers) {
    if (printed > 0 && !printer.newPage()) {
      throw std::runtime_error(tr("The Printer can't be Used.").toStdString());
    }
    const QRectF paper(QPointF(0, 0),
                       printer.pageLayout().paintRectPixels(printer.resolution()).size());
    PaintPageInto(painter, paper, ReadDocumentPage(path_, number - 1), pages_->QuarterTurns());
    progress.Step(++printed);
    if (progress.Cancelled()) {
      printer.abort();
      throw Cancellation();
    }
  }
}

}  // namespace quorvane::clients
