#pragma once

#include "ui/help/GuidePane.h"

#include <QPointer>
#include <QWidget>

namespace quorvane::ui {

/// The window of the user guide: a chapter, buttons to go back and forth, and the index.
class FrmHelp : public QWidget {
  Q_OBJECT

 public:
  explicit FrmHelp(const QString& folder, QWidget* parent = nullptr);

  GuidePane& Guide() { return *guide_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  GuidePane* guide_;
};

/// Shows help on windows: one window of the guide beside the main window, and one over each modal
/// window, which blocks all others.
class Help {
 public:
  /// `folder` holds the chapters.
  explicit Help(QString folder) : folder_(std::move(folder)) {}

  /// Shows the chapter about a window; returns the window of the guide.
  FrmHelp* Show(const QString& window_name, QWidget* over);

 private:
  QString folder_;
  QPointer<FrmHelp> window_;
};

}  // namespace quorvane::ui
