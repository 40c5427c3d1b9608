#pragma once

#include "core/rates/Download.h"

#include <QLayout>
#include <QObject>
#include <QString>
#include <QUrl>
#include <QWidget>

class QBoxLayout;
class QLabel;
class QMainWindow;

namespace quorvane::controls {
class ZENButton;
}

namespace quorvane::ui {

/// The head of the main window: index headline, buttons of the market-rate tool, clock, and the row
/// of buttons `ZENButton1` for the menu items that are used daily. A click on any of them leaves
/// the keyboard in the window that has it.
class MainHead : public QWidget {
  Q_OBJECT

 public:
  /// The menu of `window` is built already.
  explicit MainHead(QMainWindow& window);

  /// Writes the captions in the language in force; the headline stays.
  void ShowTexts();

  /// Shows the time and day of now.
  void ShowTime();

  void ShowHeadline(const QString& headline);

  /// Adds a line below the others.
  void AddLine(QWidget& line) { layout()->addWidget(&line); }

  QWidget& ButtonRow() { return *button_row_; }

  controls::ZENButton* lblSensex;
  controls::ZENButton* lblLoaded;
  controls::ZENButton* LblChkUpdate;

 private:
  QBoxLayout* FirstLine();

  QLabel* LblTime;
  QLabel* LblDate;
  QWidget* button_row_;
  bool has_headline_ = false;
};

/// Fetches the exchange's index feed in the background, keeps it in a file and tells its headline.
/// After a failure there is no headline.
class HeadlineFeed : public QObject {
  Q_OBJECT

 public:
  /// `file` is where the feed is kept; an empty or invalid address is never asked.
  HeadlineFeed(const QUrl& address, const QString& file, QObject* parent = nullptr);

  /// Asks for the feed; does nothing while an answer is awaited.
  void Fetch();

 Q_SIGNALS:
  void HeadlineRead(const QString& headline);

 private:
  QUrl address_;
  QString file_;
  rates::Download download_;
};

}  // namespace quorvane::ui
