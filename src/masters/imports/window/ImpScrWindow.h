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

/// What the two import windows share: a row of sources on top, the rows that were read, their
/// counts, and the buttons to save them or to leave. A download runs in the background; meanwhile
/// the user can only cancel it.
class ImpScrWindow : public controls::ChildWindow {
  Q_OBJECT

 public:
  /// Bounds of a download, beyond which it fails; tests set lower ones.
  void SetLimits(const rates::DownloadLimits& limits) { fetch_->SetLimits(limits); }

 protected:
  ImpScrWindow(controls::Desk& desk, const QString& name, const QString& title, QSize designed);

  /// The row for a window's own controls.
  QHBoxLayout* Sources() { return sources_; }
  QVBoxLayout* Middle() { return middle_; }

  controls::ZENButton* AddSource(const QString& name, const QString& caption, const QString& tip);

  /// Adds the last rows of the window: the choice of what is shown, the counts and the buttons.
  void Finish(const QStringList& choices);

  /// What a fetch calls when it is done, under the name of that handler: ends the wait and tells a
  /// failure, or calls `then`.
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
