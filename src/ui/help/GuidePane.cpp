#include "ui/help/GuidePane.h"

#include "controls/Style.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QResizeEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextTable>

namespace quorvane::ui {
namespace {

constexpr int kFewestPixels = 200;
const QString kIndex = QStringLiteral("README.md");

/// Markdown's tables come without lines.
void DrawTables(QTextDocument& document) {
  for (QTextFrame* frame : document.rootFrame()->childFrames()) {
    if (auto* table = qobject_cast<QTextTable*>(frame)) {
      QTextTableFormat format = table->format();
      format.setBorderCollapse(true);
      format.setBorder(1);
      format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
      format.setBorderBrush(controls::EdgeColor(QApplication::palette()));
      format.setCellPadding(controls::kTightSpacing);
      table->setFormat(format);
    }
  }
}

}  // namespace

GuidePane::GuidePane(const QString& folder, QWidget* parent)
    : QTextBrowser(parent), folder_(folder) {
  setSearchPaths({folder});
  // The width must not depend on how long the chapter is.
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
  document()->setDocumentMargin(2 * controls::kMargin);
}

void GuidePane::ShowChapter(const QString& file_name) {
  const QDir guide(folder_);
  const QString chapter = guide.exists(file_name) ? file_name : kIndex;
  if (folder_.isEmpty() || !guide.exists(chapter)) {
    setPlainText(tr("The user guide is not there. It belongs into %1.")
                     .arg(folder_.isEmpty() ? tr("the folder of the program")
                                            : QDir::toNativeSeparators(folder_)));
    return;
  }
  setSource(QUrl::fromLocalFile(guide.filePath(chapter)), QTextDocument::MarkdownResource);
}

void GuidePane::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
  if (name.scheme() == QStringLiteral("http") || name.scheme() == QStringLiteral("https")) {
    QDesktopServices::openUrl(name);
    return;
  }
  const QFileInfo file(source().resolved(name).toLocalFile());
  if (!name.path().isEmpty() && (!file.exists() || file.suffix() != QStringLiteral("md"))) {
    return;
  }
  QTextBrowser::doSetSource(
      name, type == QTextDocument::UnknownResource ? QTextDocument::MarkdownResource : type);
  shown_width_ = PictureWidth();
  DrawTables(*document());
}

int GuidePane::PictureWidth() const {
  return std::max(kFewestPixels,
                  viewport()->width() - static_cast<int>(2 * document()->documentMargin()));
}

QVariant GuidePane::loadResource(int type, const QUrl& name) {
  if (type != QTextDocument::ImageResource) {
    return QTextBrowser::loadResource(type, name);
  }
  const QImage picture(source().resolved(name).toLocalFile());
  const int width = PictureWidth();
  return picture.width() > width ? picture.scaledToWidth(width, Qt::SmoothTransformation) : picture;
}

/// Pictures are fitted anew once the width has changed for good, not at every step of the way.
void GuidePane::resizeEvent(QResizeEvent* event) {
  QTextBrowser::resizeEvent(event);
  constexpr int kMuch = 24;
  if (!source().isEmpty() && std::abs(PictureWidth() - shown_width_) > kMuch) {
    const int at = verticalScrollBar()->value();
    reload();
    verticalScrollBar()->setValue(at);
  }
}

}  // namespace quorvane::ui
