#include "ui/main/MainHead.h"

#include "controls/Style.h"
#include "controls/ZENButton.h"
#include "ui/main/MainMenu.h"

#include <QDateTime>
#include <QHBoxLayout>
#include <QLabel>
#include <QLocale>

namespace quorvane::ui {
namespace {

using controls::ZENButton;

QLabel* Named(const QString& name) {
  auto* label = new QLabel;
  label->setObjectName(name);
  return label;
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
  const QLocale english(QLocale::English);
  LblTime->setText(english.toString(now.time(), QStringLiteral("hh:mm:ss AP")));
  LblDate->setText(english.toString(now.date(), QStringLiteral("dddd, MMMM d, yyyy")));
}

// A single "&" would be taken for the mark of an access key.
void MainHead::ShowHeadline(const QString& headline) {
  has_headline_ = true;
  lblSensex->setText(QString(headline).replace(QLatin1Char('&'), QStringLiteral("&&")));
}

}  // namespace quorvane::ui
