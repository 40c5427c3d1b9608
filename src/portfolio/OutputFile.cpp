#include "portfolio/OutputFile.h"

#include "core/platform/PrivateFile.h"

#include <QDir>

#include <stdexcept>
#include <utility>

namespace quorvane::portfolio {
namespace {

constexpr std::size_t kLarge = 1 << 20;

[[noreturn]] void Fail(const QSaveFile& file) {
  throw std::runtime_error("cannot write " + file.fileName().toStdString() + ": " +
                           file.errorString().toStdString());
}

}  // namespace

OutputFile::OutputFile(const QString& folder, const FileLayout& layout)
    : file_(QDir(folder).filePath(
          QString::fromUtf8(layout.name.data(), static_cast<qsizetype>(layout.name.size())))) {
  platform::OpenPrivate(file_);
  for (const ColumnLayout& column : layout.columns) {
    buffer_ += buffer_.empty() ? "" : ",";
    buffer_ += column.name;
  }
  buffer_ += '\n';
}

void OutputFile::Write() {
  const auto size = static_cast<qint64>(buffer_.size());
  if (file_.write(buffer_.data(), size) != size) {
    Fail(file_);
  }
  buffer_.clear();
}

void OutputFile::WriteWhenLarge() {
  if (buffer_.size() > kLarge) {
    Write();
  }
}

void OutputFile::Finish() {
  Write();
  if (!file_.flush()) {
    Fail(file_);
  }
}

void OutputFile::Publish() {
  platform::Commit(file_);
}

OutputFolder::OutputFolder(QString folder) : folder_(std::move(folder)) {
  platform::MakeOutputFolder(folder_);
}

OutputFile& OutputFolder::Add(const FileLayout& layout) {
  return *files_.emplace_back(std::make_unique<OutputFile>(folder_, layout));
}

void OutputFolder::Remove(const FileLayout& layout) {
  removed_.push_back(folder_ + QLatin1Char('/') +
                     QString::fromUtf8(layout.name.data(), std::ssize(layout.name)));
}

void OutputFolder::Publish() {
  for (const auto& file : files_) {
    file->Publish();
  }
  for (const QString& path : removed_) {
    if (QFile::exists(path) && !QFile::remove(path)) {
      throw std::runtime_error("cannot remove " + path.toStdString());
    }
  }
}

}  // namespace quorvane::portfolio
