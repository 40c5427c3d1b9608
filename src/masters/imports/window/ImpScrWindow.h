#pragma once

#include "controls/ChildWindow.h"
#include "controls/ComboBox.h"
#include "controls/Grid.h"
#include "core/rates/PriceFetch.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace quorvane::imports {

/// What the two import windows share: a row of sources on top, what was read to look at, how much
/// it is, and the buttons to save it or to leave. A download goes on in the background; meanwhile
/// only it can be cancelled.
class ImpScrWindow : public controls::ChildWindow {
  Q_OBJECT

 public:
  /// Downloads fail after this; tests set less.
  void SetLimits(const rates::DownloadLimits& limits) { fetch_->SetLimits(limits); }

 protected:
  ImpScrWindow(controls::Desk& desk, const QString& name, const QString& title, QSize designed);

  /// The places for a window's own controls.
  QHBoxLayout* Sources() { return sources_; }
  QVBoxLayout* Middle() { return middle_; }

  controls::ZENButton* AddSource(const QString& name, const QString& caption, const QString& tip);

  /// Ends the window with the choice of what is shown, the counts and the buttons.
  void Finish(const QStringList& choices);

  /// The answer to a fetch, for the handler of that name: ends the wait, tells a failure, or goes
  /// on with `then`.
  rates::PriceFetch::Answer Awaited(const QString& handler,
                                    std::function<void(const rates::Fetched&)> then);
  rates::PriceFetch& Fetch() { return *fetch_; }

  QString AskFile(const QString& filters);
  void Tell(const QString& counts) { LblCount->setText(counts); }
  int Shown() const { return CboShow->CurrentPosition(); }
  void ShowAll() { CboShow->setCurrentIndex(0); }
  void EnableUpdate(bool on);
  bool CanUpdate() const { return can_update_; }

  virtual void Fill() = 0;
  virtual void Update() = 0;

  bool MayClose() override;
  void EscapePressed() override;

 private:
  void SetWaiting(bool on);
  void cmdUpdate_Click();
  void cmdCancel_Click();
  void cmdExit_Click();
  void CboShow_Click();
  void ShowProgress(qint64 received, qint64 total);

  rates::PriceFetch* fetch_;
  QHBoxLayout* sources_;
  QVBoxLayout* middle_;
  QWidget* source_bar_;
  QProgressBar* progress_;
  QLabel* LblCount;
  controls::ComboBox* CboShow;
  controls::ZENButton* cmdUpdate;
  controls::ZENButton* cmdCancel;
  controls::ZENButton* cmdExit;
  bool can_update_ = false;
};

}  // namespace quorvane::imports
