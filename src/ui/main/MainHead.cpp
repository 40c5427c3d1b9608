#include "ui/main/MainHead.h"

#include "controls/Style.h"
#include "controls/ZENButton.h"
#include "core/rates/QuoteDesk.h"
#include "ui/main/MainMenu.h"

#include <QDateTime>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>
#include <QSaveFile>

namespace quorvane::ui {
namespace {

using controls::ZENButton;

QLabel* Named(const QString& name) {
  auto* label = new QLabel;
  label->setObjectName(name);
  return label;
}

constexpr rates::DownloadLimits kFeedLimits{.milliseconds = 10000, .bytes = 1 << 20};

/// The feed is kept for a look at it; when that fails nothing else does.
void Keep(const QString& path, const QByteArray& feed) {
  QSaveFile file(path);
  if (file.open(QIODevice::WriteOnly) && file.write(feed) == feed.size()) {
    file.commit();
  }
}

}  // namespace

MainHead::MainHead(QMainWindow& window)
    : lblSensex(new ZENButton(QStringLiteral("lblSensex"), QString())),
      lblLoaded(new ZENButton(QStringLiteral("lblLoaded"), QString())),
      LblChkUpdate(new ZENButton(QStringLiteral("LblChkUpdate"), QString())),
      LblTime(Named(QStringLiteral("LblTime"))),
      LblDate(Named(QStringLiteral("LblDate"))),
      button_row_(new QWidget) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(controls::kMargin, controls::kTightSpacing, controls::kMargin,
                           controls::kTightSpacing);
  rows->setSpacing(controls::kTightSpacing);
  rows->addLayout(FirstLine());
  button_row_->setObjectName(QStringLiteral("ZENButton1"));
  auto* row = new QHBoxLayout(button_row_);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(controls::kTightSpacing);
  BuildButtonRow(window, *row);
  rows->addWidget(button_row_);
  for (ZENButton* button : findChildren<ZENButton*>()) {
    button->setFocusPolicy(Qt::TabFocus);
  }
  ShowTexts();
  ShowTime();
}

QBoxLayout* MainHead::FirstLine() {
  auto* line = new QHBoxLayout;
  for (ZENButton* button : {lblSensex, lblLoaded, LblChkUpdate}) {
    line->addWidget(button);
  }
  line->addStretch(1);
  line->addWidget(LblDate);
  line->addSpacing(controls::kMargin);
  line->addWidget(LblTime);
  return line;
}

void MainHead::ShowTexts() {
  if (!has_headline_) {
    lblSensex->setText(tr("BSE Market Rate List"));
  }
  lblSensex->setToolTip(tr("Starts the market-rate tool"));
  lblLoaded->setText(tr("Show Market Rates"));
  lblLoaded->setToolTip(tr("Brings the market-rate tool to the front"));
  LblChkUpdate->setText(tr("Check For Updates"));
}

void MainHead::ShowTime() {
  const QDateTime now = QDateTime::currentDateTime();
  //: The code of the language, in which the names of days and months are written.
  const QLocale locale(tr("en"));
  LblTime->setText(locale.toString(now.time(), QStringLiteral("hh:mm:ss AP")));
  //: The date as the language orders it; the letters stay as they are.
  LblDate->setText(locale.toString(now.date(), tr("dddd, MMMM d, yyyy")));
}

// A single "&" would be taken for the mark of an access key.
void MainHead::ShowHeadline(const QString& headline) {
  has_headline_ = true;
  lblSensex->setText(QString(headline).replace(QLatin1Char('&'), QStringLiteral("&&")));
}

HeadlineFeed::HeadlineFeed(const QUrl& address, const QString& file, QObject* parent)
    : QObject(parent), address_(address), file_(file) {}

void HeadlineFeed::Fetch() {
  if (download_.IsRunning() || !address_.isValid() || address_.isEmpty()) {
    return;
  }
  download_.Get(address_, kFeedLimits, [this](const rates::Downloaded& feed) {
    if (!feed.IsWhole()) {
      return;
    }
    Keep(file_, feed.body);
    if (const auto headline = rates::HeadlineOf(feed.body)) {
      Q_EMIT HeadlineRead(*headline);
    }
  });
}

}  // namespace quorvane::ui
