#include "documents/DocumentText.h"
#include "reader/Pages.h"
#include "reader/Refuse.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QFontDatabase>
#include <QImageReader>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextDocumentFragment>
#include <QUrl>

#include <algorithm>
#include <vector>

namespace quorvane::reader {
namespace {

// Device-independent pixels.
constexpr QSizeF kA4(794, 1123);
constexpr double kWidest = 4 * 794;
constexpr double kEdge = 48;
constexpr int kFontSize = 10;  // points

// The time to lay a paragraph out grows with the square of its length: a megabyte without a line
// break would take more than a minute.
constexpr int kLongestParagraph = 4000;

/// A document that is complete in itself, with the pictures that stand in its own text.
class ClosedDocument final : public QTextDocument {
 public:
  bool HoldsTooLargePicture() const { return too_large_; }

 protected:
  // With no answer at all, the text would be looked for on the disk.
  QVariant loadResource(int type, const QUrl& name) override {
    if (name.scheme() != QLatin1String("data")) {
      return QByteArray("");
    }
    const QVariant data = QTextDocument::loadResource(type, name);
    return type == ImageResource ? QVariant(Picture(data.toByteArray())) : data;
  }

 private:
  QImage Picture(QByteArray data) {
    QBuffer buffer(&data);
    QImageReader picture(&buffer);
    if (IsTooLarge(picture.size())) {
      too_large_ = true;
      return {};
    }
    return picture.read();
  }

  bool too_large_ = false;
};

void BreakLongParagraphs(QTextDocument& document) {
  QTextCursor cursor(&document);
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    if (block.length() > kLongestParagraph) {
      cursor.setPosition(block.position() + kLongestParagraph - 1);
      cursor.insertBlock();
      block = document.findBlock(cursor.position()).previous();
    }
  }
}

/// The size of a picture in the text that fits on the paper.
QSizeF FittedSize(const QTextImageFormat& picture, const QTextDocument& document) {
  const auto image =
      document.resource(QTextDocument::ImageResource, QUrl(picture.name())).value<QImage>();
  QSizeF size = image.size();
  if (picture.hasProperty(QTextFormat::ImageWidth)) {
    size.setWidth(picture.width());
  }
  if (picture.hasProperty(QTextFormat::ImageHeight)) {
    size.setHeight(picture.height());
  }
  const QSizeF room = kA4 - 2 * QSizeF(kEdge, kEdge);
  const bool fits = size.width() <= room.width() && size.height() <= room.height();
  return fits ? size : size.scaled(room, Qt::KeepAspectRatio);
}

std::vector<QTextFragment> PicturesIn(const QTextDocument& document) {
  std::vector<QTextFragment> pictures;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    for (auto piece = block.begin(); !piece.atEnd(); ++piece) {
      if (piece.fragment().charFormat().isImageFormat()) {
        pictures.push_back(piece.fragment());
      }
    }
  }
  return pictures;
}

void FitPictures(QTextDocument& document) {
  QTextCursor cursor(&document);
  for (const QTextFragment& piece : PicturesIn(document)) {
    QTextImageFormat picture = piece.charFormat().toImageFormat();
    const QSizeF size = FittedSize(picture, document);
    picture.setWidth(size.width());
    picture.setHeight(size.height());
    cursor.setPosition(piece.position());
    cursor.setPosition(piece.position() + piece.length(), QTextCursor::KeepAnchor);
    cursor.setCharFormat(picture);
  }
}

void Fill(QTextDocument& document, const documents::DocumentText& text) {
  document.setUndoRedoEnabled(false);
  document.setDocumentMargin(kEdge);
  // Columns of a plain text are made of blanks.
  QFont font = text.is_html ? QFontDatabase::systemFont(QFontDatabase::GeneralFont)
                            : QFontDatabase::systemFont(QFontDatabase::FixedFont);
  font.setPointSize(kFontSize);
  document.setDefaultFont(font);
  if (text.is_html) {
    document.setHtml(text.contents);
  } else {
    document.setPlainText(text.contents);
  }
  BreakLongParagraphs(document);
  FitPictures(document);
}

/// Lays the text out on A4, or on larger paper of the same shape when something is wider.
QSizeF LayOut(QTextDocument& document) {
  QSizeF paper = kA4;
  document.setPageSize(paper);
  const double needed = std::min(kWidest, document.documentLayout()->documentSize().width());
  if (needed > paper.width()) {
    paper *= needed / paper.width();
    document.setPageSize(paper);
  }
  return paper;
}

QString TextIn(QTextDocument& document, const QRectF& place) {
  const QAbstractTextDocumentLayout& layout = *document.documentLayout();
  QTextCursor cursor(&document);
  cursor.setPosition(std::max(0, layout.hitTest(place.topLeft(), Qt::FuzzyHit)));
  const int end = std::max(cursor.position(), layout.hitTest(place.bottomRight(), Qt::FuzzyHit));
  cursor.setPosition(end, QTextCursor::KeepAnchor);
  return cursor.selection().toPlainText().remove(QChar::ObjectReplacementCharacter);
}

}  // namespace

documents::DocumentPage ReadTextPage(const QString& path, int number, int dots) {
  ClosedDocument document;
  Fill(document, documents::ReadDocumentText(path, {}));
  const QSizeF actual = LayOut(document);
  if (document.HoldsTooLargePicture()) {
    RefuseTooLarge();
  }
  const QRectF place(QPointF(0, number * actual.height()), actual);
  QImage paper = BlankPaper(actual, dots);
  QPainter painter(&paper);
  painter.scale(paper.width() / actual.width(), paper.height() / actual.height());
  painter.translate(-place.topLeft());
  painter.setClipRect(place);
  QAbstractTextDocumentLayout::PaintContext context;
  context.clip = place;
  context.palette.setColor(QPalette::Text, Qt::black);
  document.documentLayout()->draw(&painter, context);
  painter.end();
  documents::DocumentPage page =
      documents::MakePage(std::move(paper), actual, number, std::max(1, document.pageCount()));
  page.text = TextIn(document, place);
  return page;
}

}  // namespace quorvane::reader
