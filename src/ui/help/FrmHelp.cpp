#include "ui/help/FrmHelp.h"

#include "controls/Style.h"
#include "controls/ZENButton.h"
#include "ui/Features.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>

namespace quorvane::ui {
namespace {

constexpr QSize kDesigned(820, 640);

}  // namespace

FrmHelp::FrmHelp(const QString& folder, QWidget* parent)
    : QWidget(parent, Qt::Window), guide_(new GuidePane(folder)) {
  setObjectName(QStringLiteral("FrmHelp"));
  setWindowTitle(tr("User Guide"));
  setAttribute(Qt::WA_DeleteOnClose);
  auto* rows = new QVBoxLayout(this);
  auto* buttons = new QHBoxLayout();
  const auto add = [&](const char* name, const QString& caption, void (QTextBrowser::*slot)()) {
    auto* button = new controls::ZENButton(QLatin1String(name), caption);
    buttons->addWidget(button);
    connect(button, &QAbstractButton::clicked, guide_, slot);
    return button;
  };
  auto* back = add("cmdBack", tr("&Back"), &QTextBrowser::backward);
  auto* forward = add("cmdForward", tr("&Forward"), &QTextBrowser::forward);
  auto* index = new controls::ZENButton(QStringLiteral("cmdIndex"), tr("&Index"));
  buttons->addWidget(index);
  buttons->addStretch(1);
  connect(index, &QAbstractButton::clicked, guide_, [this] { guide_->ShowChapter({}); });
  back->setEnabled(false);
  forward->setEnabled(false);
  connect(guide_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
  connect(guide_, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
  rows->addLayout(buttons);
  rows->addWidget(guide_, 1);
  resize(kDesigned.boundedTo(screen()->availableSize()));
  guide_->setFocus();
}

void FrmHelp::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    close();
  } else {
    QWidget::keyPressEvent(event);
  }
}

namespace {

/// The chapter of the user guide about a window; its index for a window that has none.
QString ChapterOf(const QString& window_name) {
  const Feature* feature = FindFeature(window_name);
  const QString chapter = QLatin1String(feature == nullptr ? "" : feature->chapter);
  return chapter.isEmpty() ? QStringLiteral("README.md") : chapter;
}

}  // namespace

FrmHelp* Help::Show(const QString& window_name, QWidget* over) {
  QWidget* window = over->window();
  FrmHelp* help = window_;
  if (window->isModal()) {
    help = window->findChild<FrmHelp*>(QString(), Qt::FindDirectChildrenOnly);
    help = help == nullptr ? new FrmHelp(folder_, window) : help;
  } else if (help == nullptr) {
    help = window_ = new FrmHelp(folder_, window);
  }
  help->show();
  help->Guide().ShowChapter(ChapterOf(window_name));
  help->raise();
  help->activateWindow();
  return help;
}

}  // namespace quorvane::ui
