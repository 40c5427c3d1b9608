#pragma once

#include <QTextBrowser>

namespace quorvane::ui {

/// Shows chapters of the user guide, which are Markdown files in one folder. Links lead to other
/// chapters; a link to the web is opened by the desktop. Pictures are shrunk to the pane's width.
class GuidePane : public QTextBrowser {
  Q_OBJECT

 public:
  explicit GuidePane(const QString& folder, QWidget* parent = nullptr);

  /// Shows a chapter by its file name; the index when it is not there, and the folder in which the
  /// guide was looked for when there is none at all.
  void ShowChapter(const QString& file_name);

  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;

 private:
  int PictureWidth() const;

  QString folder_;
  int shown_width_ = 0;
};

}  // namespace quorvane::ui
