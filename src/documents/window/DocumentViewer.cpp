#include "documents/window/DocumentViewer.h"

#include "controls/Style.h"
#include "controls/ZENButton.h"
#include "core/Progress.h"
#include "documents/DocumentKind.h"
#include "documents/DocumentStore.h"

#include <QEventLoop>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QPageRanges>
#include <QPainter>
#include <QPrinter>
#include <QTimer>

#include <stdexcept>
#include <utility>
#include <vector>

namespace quorvane::documents {
namespace {

constexpr int kScreenDots = 192;  // to the inch
constexpr int kPrintDots = 300;
constexpr int kLook = 50;  // milliseconds between two looks at whether printing is cancelled

/// What speaks against a file before it is read.
QString ReasonNotShown(const QString& path) {
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
  if (file.size() > DocumentStore::kMostBytes) {
    return DocumentViewer::tr("The Document is too Large to be Shown.");
  }
  QFile content(path);
  return content.open(QIODevice::ReadOnly)
             ? QString()
             : DocumentViewer::tr("The Document can't be Read: %1").arg(content.errorString());
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

DocumentViewer::DocumentViewer(ReadingLimits limits, QWidget* parent)
    : QWidget(parent),
      limits_(std::move(limits)),
      reading_(limits_),
      pages_(new DocumentPageView()) {
  page_bar_ = PageBar();
  background_ = palette().color(QPalette::Mid);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addWidget(pages_, 1);
  rows->addWidget(page_bar_);
  page_bar_->hide();
  connect(&reading_, &DocumentReading::Finished, this, &DocumentViewer::Take);
  connect(&reading_, &DocumentReading::Failed, this, &DocumentViewer::Fail);
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
  if (const QString reason = ReasonNotShown(path); !reason.isEmpty()) {
    Fail(reason);
    return;
  }
  path_ = path;
  pages_->Clear(tr("The document is being read ..."));
  Start(0);
}

void DocumentViewer::Clear(const QString& hint) {
  reading_.Stop();
  path_.clear();
  pages_->Straighten();
  pages_->Clear(hint);
  ShowPageBar();
  Q_EMIT Changed();
}

void DocumentViewer::Start(int page) {
  reading_.Start(path_, page, kScreenDots);
}

void DocumentViewer::Take(const QByteArray& answer) {
  std::optional<DocumentPage> page = PageOf(answer);
  if (!page) {
    Fail(tr("The Document is Broken."));
    return;
  }
  pages_->Show(std::move(*page));
  ShowPageBar();
  Q_EMIT Changed();
  Q_EMIT Opened();
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
  if (!IsEmpty()) {
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
}

DocumentPage DocumentViewer::PageToPrint(int number, std::int64_t printed,
                                         Progress& progress) const {
  std::optional<DocumentPage> page;
  QString failure;
  bool ended = false;
  QEventLoop loop;
  DocumentReading reading(limits_);
  const auto end = [&] {
    ended = true;
    loop.quit();
  };
  connect(&reading, &DocumentReading::Finished, &loop, [&](const QByteArray& answer) {
    page = PageOf(answer);
    end();
  });
  connect(&reading, &DocumentReading::Failed, &loop, [&](const QString& text) {
    failure = text;
    end();
  });
  QTimer look;
  connect(&look, &QTimer::timeout, &loop, [&] {
    progress.Step(printed);
    if (progress.Cancelled()) {
      loop.quit();
    }
  });
  look.start(kLook);
  reading.Start(path_, number, kPrintDots);
  if (!ended) {
    loop.exec();
  }
  if (!ended) {
    throw Cancellation();
  }
  if (!page) {
    throw std::runtime_error(
        (failure.isEmpty() ? tr("The Document is Broken.") : failure).toStdString());
  }
  return std::move(*page);
}

void DocumentViewer::PrintImage(QPrinter& printer, Progress& progress) const {
  if (IsEmpty()) {
    return;
  }
  const std::vector<int> numbers = PagesToPrint(printer, PageCount());
  const int quarter_turns = pages_->QuarterTurns();
  QPainter painter;
  if (!painter.begin(&printer)) {
    throw std::runtime_error(tr("The Printer can't be Used.").toStdString());
  }
  progress.Begin(tr("Printing"), static_cast<std::int64_t>(numbers.size()));
  std::int64_t printed = 0;
  try {
    for (const int number : numbers) {
      const DocumentPage page = PageToPrint(number - 1, printed, progress);
      if (printed > 0 && !printer.newPage()) {
        throw std::runtime_error(tr("The Printer can't be Used.").toStdString());
      }
      const QRectF paper(QPointF(0, 0),
                         printer.pageLayout().paintRectPixels(printer.resolution()).size());
      PaintPageInto(painter, paper, page, quarter_turns);
      progress.Step(++printed);
      progress.ThrowIfCancelled();
    }
  } catch (const Cancellation&) {
    printer.abort();
    throw;
  }
}

}  // namespace quorvane::documents
