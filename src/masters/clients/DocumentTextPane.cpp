#include "masters/clients/DocumentTextPane.h"

#include <QCoreApplication>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <utility>

namespace quorvane::clients {
namespace {

constexpr int kLight = 128;

// The time to lay a paragraph out grows with the square of its length: a megabyte without a line
// break would take more than a minute.
constexpr int kLongestParagraph = 4000;

/// A document that is complete in itself.
class ClosedDocument final : public QTextDocument {
 protected:
  // With no answer at all, the text would be looked for on the disk.
  QVariant loadResource(int type, const QUrl& name) override {
    return name.scheme() == QLatin1String("data") ? QTextDocument::loadResource(type, name)
                                                  : QVariant(QByteArray(""));
  }
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

}  // namespace

std::shared_ptr<QTextDocument> MakeTextDocument(const DocumentText& text) {
  auto document = std::make_shared<ClosedDocument>();
  document->setUndoRedoEnabled(false);
  if (text.is_html) {
    document->setHtml(text.contents);
  } else {
    document->setPlainText(text.contents);
  }
  BreakLongParagraphs(*document);
  document->moveToThread(QCoreApplication::instance()->thread());
  return document;
}

DocumentTextPane::DocumentTextPane(QWidget* parent) : QTextBrowser(parent) {
  setOpenLinks(false);
  setAccessibleName(tr("Text of the document"));
}

DocumentTextPane::~DocumentTextPane() {
  Empty();
}

void DocumentTextPane::Show(std::shared_ptr<QTextDocument> document) {
  setDocument(document.get());
  document_ = std::move(document);
}

void DocumentTextPane::Empty() {
  Show(nullptr);
}

void DocumentTextPane::SetBackgroundColor(const QColor& color) {
  QPalette colors = palette();
  colors.setColor(QPalette::Base, color);
  colors.setColor(QPalette::Text, color.lightness() < kLight ? Qt::white : Qt::black);
  setPalette(colors);
}

}  // namespace quorvane::clients
