#include "masters/imports/window/ImpScrWindow.h"

#include "controls/Style.h"
#include "core/app/Ini.h"

#include <QDir>

namespace quorvane::imports {
namespace {

using controls::ZENButton;

constexpr int kWidestProgress = 180;  ///< device-independent pixels

}  // namespace

ImpScrWindow::ImpScrWindow(controls::Desk& desk, const QString& name, const QString& title,
                           QSize designed)
    : ChildWindow(desk, name, title, designed),
      fetch_(new rates::PriceFetch(
          rates::ExchangeHosts::From(app::IniFile(desk.session.folders.config_file)),
          desk.session.folders.market_rate, this)),
      sources_(new QHBoxLayout),
      middle_(new QVBoxLayout),
      source_bar_(new QWidget),
      progress_(new QProgressBar),
      LblCount(new QLabel),
      CboShow(new controls::ComboBox),
      cmdUpdate(new ZENButton(QStringLiteral("cmdUpdate"), tr("&Update"))),
      cmdCancel(new ZENButton(QStringLiteral("cmdCancel"), tr("Ca&ncel"))),
      cmdExit(new ZENButton(QStringLiteral("cmdExit"), tr("E&xit"))) {
  sources_->setContentsMargins(0, 0, 0, 0);
  sources_->setSpacing(controls::kSpacing);
  source_bar_->setLayout(sources_);
  middle_->setSpacing(controls::kSpacing);
  LblCount->setObjectName(QStringLiteral("LblCount"));
  LblCount->setWordWrap(true);
  CboShow->setObjectName(QStringLiteral("CboShow"));
  progress_->setMaximumWidth(kWidestProgress);
  progress_->setAccessibleName(tr("Download"));
  cmdCancel->SetCancels(true);
  cmdExit->SetCancels(true);
  connect(fetch_, &rates::PriceFetch::Progressed, this, &ImpScrWindow::ShowProgress);
}

ZENButton* ImpScrWindow::AddSource(const QString& name, const QString& caption,
                                   const QString& tip) {
  auto* button = new ZENButton(name, caption);
  button->setToolTip(tip);
  sources_->addWidget(button);
  return button;
}

void ImpScrWindow::Finish(const QStringList& choices) {
  sources_->addStretch(1);
  CboShow->SetTexts(choices);
  CboShow->setCurrentIndex(0);
  auto* show = new QLabel(tr("&Show"));
  show->setBuddy(CboShow);
  auto* counts = new QHBoxLayout;
  counts->addWidget(show);
  counts->addWidget(CboShow);
  counts->addSpacing(controls::kSpacing);
  counts->addWidget(LblCount, 1);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(progress_);
  buttons->addStretch(1);
  for (ZENButton* button : {cmdUpdate, cmdCancel, cmdExit}) {
    buttons->addWidget(button);
  }
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(controls::kMargin, controls::kMargin, controls::kMargin,
                             controls::kMargin);
  layout->setSpacing(controls::kSpacing);
  layout->addWidget(source_bar_);
  layout->addLayout(counts);
  layout->addLayout(middle_, 1);
  layout->addLayout(buttons);
  PressOn(QKeySequence::Save, cmdUpdate);
  OnClick(cmdUpdate, &ImpScrWindow::cmdUpdate_Click);
  OnClick(cmdCancel, &ImpScrWindow::cmdCancel_Click);
  OnClick(cmdExit, &ImpScrWindow::cmdExit_Click);
  On(CboShow, &QComboBox::currentIndexChanged, &ImpScrWindow::CboShow_Click,
     QStringLiteral("CboShow_Click"));
  SetWaiting(false);
}

rates::PriceFetch::Answer ImpScrWindow::Awaited(const QString& handler,
                                                std::function<void(const rates::Fetched&)> then) {
  SetWaiting(true);
  return [this, handler, then = std::move(then)](const rates::Fetched& fetched) {
    SetWaiting(false);
    TheGuard().Run(handler, [&] {
      if (fetched.failure.isEmpty()) {
        then(fetched);
      } else {
        Say().Refuse(fetched.failure);
      }
    });
  };
}

QString ImpScrWindow::AskFile(const QString& filters) {
  return TheDesk().ask_open_path(this, Session().folders.data,
                                 tr("Files of the exchanges (*.csv *.zip *.xls *.xlsx *.ods)") +
                                     QStringLiteral(";;") + filters);
}

void ImpScrWindow::EnableUpdate(bool on) {
  can_update_ = on;
  cmdUpdate->setEnabled(on);
}

void ImpScrWindow::SetWaiting(bool on) {
  source_bar_->setEnabled(!on);
  cmdUpdate->setEnabled(!on && can_update_);
  cmdCancel->setEnabled(on);
  progress_->setRange(0, 0);
  progress_->setVisible(on);
  if (on) {
    cmdCancel->setFocus();
  }
}

void ImpScrWindow::ShowProgress(qint64 received, qint64 total) {
  constexpr qint64 kKibibyte = 1024;
  progress_->setRange(0, total > 0 ? static_cast<int>(total / kKibibyte) : 0);
  progress_->setValue(static_cast<int>(received / kKibibyte));
}

void ImpScrWindow::cmdUpdate_Click() {
  Update();
}

void ImpScrWindow::cmdCancel_Click() {
  fetch_->Cancel();
  SetWaiting(false);
}

void ImpScrWindow::cmdExit_Click() {
  close();
}

void ImpScrWindow::CboShow_Click() {
  Fill();
}

void ImpScrWindow::EscapePressed() {
  if (cmdCancel->isEnabled()) {
    cmdCancel_Click();
  } else {
    close();
  }
}

bool ImpScrWindow::MayClose() {
  fetch_->Cancel();
  SetWaiting(false);
  return true;
}

}  // namespace quorvane::imports
