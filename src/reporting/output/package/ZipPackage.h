#pragma once

#include <QIODevice>
#include <QString>

#include <string>
#include <string_view>
#include <vector>

namespace quorvane::reporting {

/// The files inside a zip archive, in their order, all of them in memory.
class ZipPackage {
 public:
  /// Throws std::runtime_error when the file cannot be read or is no zip archive.
  static ZipPackage Read(const QString& path);

  /// nullptr when there is no such file.
  const std::string* Find(std::string_view name) const;

  /// Replaces a file's content; a new file comes last.
  void Put(std::string_view name, std::string content);
  void Remove(std::string_view name);

  /// Throws std::runtime_error.
  void Write(QIODevice& out) const;

 private:
  struct File {
    std::string name;
    std::string content;
  };

  std::vector<File> files_;
};

}  // namespace quorvane::reporting
