#pragma once

#include "portfolio/FileLayouts.h"
#include "portfolio/OutputRow.h"

#include <QSaveFile>
#include <QString>

#include <memory>
#include <string>
#include <vector>

namespace quorvane::portfolio {

/// A file of a portfolio folder being written, its header first. Until Publish it has another name
/// and the old file is as it was; one that is not published leaves nothing. Throws
/// std::runtime_error with the file's name and the system's reason.
class OutputFile {
 public:
  OutputFile(const QString& folder, const FileLayout& layout);

  std::string& Buffer() { return buffer_; }
  void WriteWhenLarge();

  template <class... Fields>
  void Row(const Fields&... fields) {
    AppendFields(buffer_, fields...);
    buffer_ += '\n';
    WriteWhenLarge();
  }

  /// Everything is on the disk; what could go wrong has.
  void Finish();

  /// Puts the finished file in the place of the old one.
  void Publish();

 private:
  void Write();

  QSaveFile file_;
  std::string buffer_;
};

/// The files of a portfolio folder that is written as one: until Publish the folder has its old
/// files, all of them. They are then renamed one after the other, so that only an end of the
/// program in that instant, or a disk that fails in it, leaves old files beside new ones.
class OutputFolder {
 public:
  /// Makes the folder when it is missing.
  explicit OutputFolder(QString folder);

  /// The file is finished by its writer.
  OutputFile& Add(const FileLayout& layout);
  void Publish();

 private:
  QString folder_;
  std::vector<std::unique_ptr<OutputFile>> files_;
};

}  // namespace quorvane::portfolio
