#pragma once

#include "controls/ChildWindow.h"
#include "portfolio/ImportErrors.h"

#include <vector>

namespace quorvane::ui {

/// Why a portfolio folder was not taken in: file, line, column and what is wrong there, a row an
/// error. Nothing of the folder was taken in.
class FrmImportErrors : public controls::ChildWindow {
  Q_OBJECT

 public:
  FrmImportErrors(controls::Desk& desk, const std::vector<portfolio::ImportError>& errors);

 private:
  void cmdexit_Click();
};

}  // namespace quorvane::ui
