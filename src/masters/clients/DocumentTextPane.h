#pragma once

#include "masters/clients/DocumentText.h"

#include <QTextBrowser>

#include <memory>

namespace quorvane::clients {

/// Prepares a text to be shown: most of the work, for another thread than the one of the windows,
/// to which the result belongs.
std::shared_ptr<QTextDocument> MakeTextDocument(const DocumentText& text);

/// Shows a prepared text. Nothing that the text names is fetched, neither from the network nor from
/// the disk, and its links lead nowhere.
class DocumentTextPane : public QTextBrowser {
  Q_OBJECT

 public:
  explicit DocumentTextPane(QWidget* parent = nullptr);
  ~DocumentTextPane() override;

  void Show(std::shared_ptr<QTextDocument> document);
  void Empty();
  bool IsShowing() const { return document_ != nullptr; }

  void SetBackgroundColor(const QColor& color);

 protected:
  void doSetSource(const QUrl& /*name*/, QTextDocument::ResourceType /*type*/) override {}

 private:
  std::shared_ptr<QTextDocument> document_;
};

}  // namespace quorvane::clients
