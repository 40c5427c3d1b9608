#pragma once

#include "controls/Desk.h"

namespace quorvane::ui {

/// Takes portfolio folders in and writes them, over the main window: asks for the folder, shows the
/// progress, tells what was done. Nothing is taken in from a folder with errors; they are listed in
/// a window. Throws what the work throws, Cancellation included; nothing was changed
/// then.
class PortfolioFolders {
 public:
  PortfolioFolders(controls::Desk& desk, QWidget& over) : desk_(desk), over_(over) {}

  void Import();
  void Export();

  /// The sample portfolio that comes with the program.
  void ImportSample();

 private:
  void TakeIn(const QString& folder);

  controls::Desk& desk_;
  QWidget& over_;
};

}  // namespace quorvane::ui
