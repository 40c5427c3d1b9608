#include "ui/main/StartPage.h"

#include "controls/Style.h"
#include "core/text/Tr.h"

#include <QCoreApplication>
#include <QEvent>
#include <QGridLayout>

namespace quorvane::ui {
namespace {

/// A way to begin: the menu item that it is, the button's caption and what comes of it.
struct Step {
  const char* item;
  const char* caption;
  const char* words;
};
constexpr Step kBeginnings[] = {
    {"mnuImpSample", QT_TRANSLATE_NOOP("StartPage", "Take In the Sample Portfolio"),
     QT_TRANSLATE_NOOP("StartPage",
                       "Made-up clients, bills and rates, to look around in every window.")},
    {"mnuImpScrMaster", QT_TRANSLATE_NOOP("StartPage", "Scrips From an Exchange's File"),
     QT_TRANSLATE_NOOP("StartPage",
                       "The scrip list or a daily price file, before the first bill.")},
    {"mnuClientInfo", QT_TRANSLATE_NOOP("StartPage", "Enter the First Client"),
     QT_TRANSLATE_NOOP("StartPage",
                       "With the demat accounts. Participants and brokers are in the "
                       "menu Master Details.")},
    {"mnuImpFolder", QT_TRANSLATE_NOOP("StartPage", "Import a Portfolio Folder"),
     QT_TRANSLATE_NOOP("StartPage",
                       "Clients, bills and balances that another program or an export "
                       "wrote as CSV files.")},
};
constexpr int kWidest = 640;
constexpr int kTitlePoints = 5;  // larger than other texts

}  // namespace

StartPage::StartPage(QWidget& area) : QWidget(&area), title_(new QLabel), hint_(new QLabel) {
  static_assert(std::size(kBeginnings) == kSteps);
  setObjectName(QStringLiteral("StartPage"));
  auto* outside = new QGridLayout(this);
  auto* middle = new QWidget;
  middle->setMaximumWidth(kWidest);
  outside->addWidget(middle, 1, 1);
  outside->setRowStretch(0, 1);
  outside->setRowStretch(2, 2);
  outside->setColumnStretch(0, 1);
  outside->setColumnStretch(1, 8);
  outside->setColumnStretch(2, 1);
  auto* rows = new QGridLayout(middle);
  rows->setVerticalSpacing(controls::kMargin);
  rows->setHorizontalSpacing(controls::kMargin);
  rows->setColumnStretch(1, 1);
  QFont large = title_->font();
  large.setPointSize(large.pointSize() + kTitlePoints);
  title_->setFont(large);
  rows->addWidget(title_, 0, 0, 1, 2);
  for (std::size_t step = 0; step < kSteps; ++step) {
    const QString item = QLatin1String(kBeginnings[step].item);
    buttons_[step] = new controls::ZENButton(QStringLiteral("cmd_") + item, QString());
    words_[step] = new QLabel;
    words_[step]->setWordWrap(true);
    rows->addWidget(buttons_[step], static_cast<int>(step) + 1, 0);
    rows->addWidget(words_[step], static_cast<int>(step) + 1, 1);
    connect(buttons_[step], &QAbstractButton::clicked, this, [this, item] { Q_EMIT Chosen(item); });
  }
  hint_->setWordWrap(true);
  rows->addWidget(hint_, static_cast<int>(kSteps) + 1, 0, 1, 2);
  area.installEventFilter(this);
  setGeometry(area.rect());
  ShowTexts();
}

void StartPage::ShowTexts() {
  title_->setText(tr("No client is entered yet. Begin with one of these:"));
  hint_->setText(tr("F1 opens the user guide. This page goes with the first client."));
  for (std::size_t step = 0; step < kSteps; ++step) {
    buttons_[step]->setText(Tr("StartPage", kBeginnings[step].caption));
    words_[step]->setText(Tr("StartPage", kBeginnings[step].words));
  }
}

bool StartPage::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize) {
    setGeometry(static_cast<QWidget*>(watched)->rect());
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace quorvane::ui
