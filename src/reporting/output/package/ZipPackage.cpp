#include "reporting/output/package/ZipPackage.h"

#include <QFile>

#include <archive.h>
#include <archive_entry.h>

#include <algorithm>
#include <memory>
#include <stdexcept>

namespace quorvane::reporting {
namespace {

constexpr std::size_t kBlock = std::size_t{64} * 1024;

struct FreeReader {
  void operator()(archive* handle) const { archive_read_free(handle); }
};
struct FreeWriter {
  void operator()(archive* handle) const { archive_write_free(handle); }
};
struct FreeEntry {
  void operator()(archive_entry* entry) const { archive_entry_free(entry); }
};

[[noreturn]] void Fail(archive* handle) {
  const char* reason = archive_error_string(handle);
  throw std::runtime_error(reason == nullptr ? "unknown error" : reason);
}

void Check(int result, archive* handle) {
  if (result < ARCHIVE_WARN) {
    Fail(handle);
  }
}

std::string ReadContent(archive* handle) {
  std::string content;
  std::string block(kBlock, '\0');
  while (true) {
    const la_ssize_t size = archive_read_data(handle, block.data(), block.size());
    if (size < 0) {
      Fail(handle);
    }
    if (size == 0) {
      return content;
    }
    content.append(block, 0, static_cast<std::size_t>(size));
  }
}

la_ssize_t WriteBlock(archive* handle, void* device, const void* data, std::size_t size) {
  auto& out = *static_cast<QIODevice*>(device);
  if (out.write(static_cast<const char*>(data), static_cast<qint64>(size)) !=
      static_cast<qint64>(size)) {
    archive_set_error(handle, EIO, "%s", out.errorString().toUtf8().constData());
    return -1;
  }
  return static_cast<la_ssize_t>(size);
}

}  // namespace

ZipPackage ZipPackage::Read(const QString& path) {
  const std::unique_ptr<archive, FreeReader> handle(archive_read_new());
  Check(archive_read_support_format_zip(handle.get()), handle.get());
  Check(archive_read_open_filename(handle.get(), QFile::encodeName(path).constData(), kBlock),
        handle.get());
  ZipPackage package;
  archive_entry* entry = nullptr;
  while (true) {
    const int result = archive_read_next_header(handle.get(), &entry);
    if (result == ARCHIVE_EOF) {
      return package;
    }
    Check(result, handle.get());
    const char* name = archive_entry_pathname(entry);
    if (name != nullptr && archive_entry_filetype(entry) != AE_IFDIR) {
      package.files_.push_back({name, ReadContent(handle.get())});
    }
  }
}

const std::string* ZipPackage::Find(std::string_view name) const {
  const auto found = std::ranges::find(files_, name, &File::name);
  return found == files_.end() ? nullptr : &found->content;
}

void ZipPackage::Put(std::string_view name, std::string content) {
  const auto found = std::ranges::find(files_, name, &File::name);
  if (found != files_.end()) {
    found->content = std::move(content);
  } else {
    files_.push_back({std::string(name), std::move(content)});
  }
}

void ZipPackage::Remove(std::string_view name) {
  std::erase_if(files_, [&](const File& file) { return file.name == name; });
}

void ZipPackage::Write(QIODevice& out) const {
  const std::unique_ptr<archive, FreeWriter> handle(archive_write_new());
  Check(archive_write_set_format_zip(handle.get()), handle.get());
  Check(archive_write_set_bytes_in_last_block(handle.get(), 1), handle.get());
  Check(archive_write_open(handle.get(), &out, nullptr, WriteBlock, nullptr), handle.get());
  constexpr int kPlainFile = 0644;
  for (const File& file : files_) {
    const std::unique_ptr<archive_entry, FreeEntry> entry(archive_entry_new());
    archive_entry_set_pathname(entry.get(), file.name.c_str());
    archive_entry_set_filetype(entry.get(), AE_IFREG);
    archive_entry_set_perm(entry.get(), kPlainFile);
    archive_entry_set_size(entry.get(), static_cast<la_int64_t>(file.content.size()));
    Check(archive_write_header(handle.get(), entry.get()), handle.get());
    const la_ssize_t size =
        archive_write_data(handle.get(), file.content.data(), file.content.size());
    if (size != static_cast<la_ssize_t>(file.content.size())) {
      Fail(handle.get());
    }
  }
  Check(archive_write_close(handle.get()), handle.get());
}

}  // namespace quorvane::reporting
