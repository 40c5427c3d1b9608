#pragma once

#include "portfolio/FileLayouts.h"

#include <QSaveFile>
#include <QString>

#include <string>

namespace quorvane::portfolio {

/// Throws std::runtime_error when the folder cannot be made.
void MakeFolder(const QString& folder);

/// A file of a portfolio folder being written, its header first. An unfinished one leaves the old
/// file as it was. Throws std::runtime_error with the file's name and the system's reason.
class OutputFile {
 public:
  OutputFile(const QString& folder, const FileLayout& layout);

  std::string& Buffer() { return buffer_; }
  void WriteWhenLarge();
  void Finish();

 private:
  void Write();

  QSaveFile file_;
  std::string buffer_;
};

}  // namespace quorvane::portfolio
