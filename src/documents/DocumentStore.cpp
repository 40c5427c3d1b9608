#include "documents/DocumentStore.h"

#include "core/platform/PrivateFile.h"
#include "core/platform/Processes.h"
#include "core/text/Tr.h"
#include "documents/DocumentKind.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QUuid>

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <utility>

namespace quorvane::documents {
namespace {

constexpr std::int64_t kMegabyte = 1 << 20;

Refusal TooLarge(std::int64_t most_bytes) {
  return {Tr("Clients", "The File is too Large. At Most %1 MB are Allowed.")
              .arg(most_bytes / kMegabyte)};
}

[[noreturn]] void Fail(const QString& path, const QString& reason) {
  throw std::runtime_error(
      QStringLiteral("%1: %2").arg(QDir::toNativeSeparators(path), reason).toStdString());
}

/// Names that any system takes for a file of the folder that it is joined to.
bool StaysInItsFolder(const QString& name) {
  const bool plain = std::ranges::none_of(name, [](QChar c) {
    return c == QChar('/') || c == QChar('\\') || c == QChar(':') || c < QChar(' ');
  });
  return plain && !name.isEmpty() && name != QStringLiteral(".") && name != QStringLiteral("..");
}

/// False when the source turns out to be larger than the bound.
bool CopyBounded(QFile& from, QSaveFile& to, std::int64_t most_bytes) {
  for (std::int64_t copied = 0;;) {
    const QByteArray block = from.read(kMegabyte);
    if (from.error() != QFileDevice::NoError) {
      Fail(from.fileName(), from.errorString());
    }
    if (block.isEmpty()) {
      return true;
    }
    copied += block.size();
    if (copied > most_bytes) {
      return false;
    }
    if (to.write(block) != block.size()) {
      Fail(to.fileName(), to.errorString());
    }
  }
}

std::filesystem::path SystemPath(const QString& path) {
  return {path.toStdU16String()};
}

/// Puts a file in another's place, which is there at every moment.
void Replace(const QString& from, const QString& to) {
  std::error_code error;
  std::filesystem::rename(SystemPath(from), SystemPath(to), error);
  if (error) {
    Fail(to, QString::fromStdString(error.message()));
  }
}

/// Follows no link: of a link only the link itself goes.
void RemoveWhole(const QString& path) {
  std::error_code error;
  std::filesystem::remove_all(SystemPath(path), error);
  if (error) {
    Fail(path, QString::fromStdString(error.message()));
  }
}

}  // namespace

Refusal FileDoesNotExist() {
  return {Tr("Clients", "File does not Exist.")};
}

DocumentStore::Incoming::Incoming(QString copy, QString name)
    : copy_(std::move(copy)), name_(std::move(name)) {}

DocumentStore::Incoming::~Incoming() {
  if (!copy_.isEmpty()) {
    QFile::remove(copy_);
  }
}

DocumentStore::Incoming::Incoming(Incoming&& other) noexcept {
  *this = std::move(other);
}

DocumentStore::Incoming& DocumentStore::Incoming::operator=(Incoming&& other) noexcept {
  std::swap(copy_, other.copy_);
  std::swap(name_, other.name_);
  return *this;
}

DocumentStore::DocumentStore(QString folder, std::int64_t most_bytes)
    : folder_(std::move(folder)), most_bytes_(most_bytes) {}

Result<DocumentStore::Incoming> DocumentStore::Receive(const QString& source) const {
  const QFileInfo info(source);
  if (!info.exists()) {
    return FileDoesNotExist();
  }
  if (!info.isFile() || !StaysInItsFolder(info.fileName())) {
    return Refusal{Tr("Clients", "This File Can't be Kept as a Document.")};
  }
  if (KindOf(info.fileName()) == DocumentKind::kUnsupported) {
    return Refusal{FormatNotSupported()};
  }
  QFile from(source);
  if (!from.open(QIODevice::ReadOnly)) {
    Fail(source, from.errorString());
  }
  if (info.size() > most_bytes_) {
    return TooLarge(most_bytes_);
  }
  platform::MakeMissingFolder(folder_);
  QSaveFile to(folder_ + QStringLiteral("/incoming-") +
               QUuid::createUuid().toString(QUuid::WithoutBraces));
  platform::OpenPrivate(to);
  if (!CopyBounded(from, to, most_bytes_)) {
    return TooLarge(most_bytes_);
  }
  if (!to.commit()) {
    Fail(to.fileName(), to.errorString());
  }
  return Incoming(to.fileName(), info.fileName());
}

void DocumentStore::Place(ClientId client, Incoming incoming) const {
  const QString folder = FolderOf(client);
  if (QFileInfo(folder).isSymLink()) {
    RemoveWhole(folder);
  }
  platform::MakeMissingFolder(folder);
  Replace(incoming.copy_, folder + QChar('/') + incoming.name_);
  incoming.copy_.clear();
  ThrowAwayOthers(client, incoming.name_);
}

std::optional<QString> DocumentStore::Path(ClientId client, const QString& name) const {
  const QString folder = FolderOf(client);
  const QFileInfo file(folder + QChar('/') + name);
  if (!StaysInItsFolder(name) || QFileInfo(folder).isSymLink() || file.isSymLink() ||
      !file.isFile()) {
    return std::nullopt;
  }
  return file.filePath();
}

void DocumentStore::Remove(ClientId client) const {
  RemoveWhole(FolderOf(client));
}

QString DocumentStore::FolderOf(ClientId client) const {
  if (client.value <= 0) {
    throw std::logic_error("a document of no client");
  }
  return folder_ + QChar('/') + QString::number(client.value);
}

void DocumentStore::ThrowAwayOthers(ClientId client, const QString& name) const {
  const QDir folder(FolderOf(client));
  const QFileInfo kept(folder.filePath(name));
  constexpr auto kEverything =
      QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
  for (const QFileInfo& other : folder.entryInfoList(kEverything)) {
    // Not by name: some file systems take two spellings for one file.
    if (other != kept) {
      RemoveWhole(other.filePath());
    }
  }
}

std::vector<ListedDocument> ListDocuments(database::Connection& connection,
                                          const documents::DocumentStore& store) {
  std::vector<ListedDocument> documents;
  for (const auto& row :
       connection.Open("Select Id,Code,Name,SignDoc From ClientInfo Where SignDoc<>'' "
                       "Order By Code,Id")) {
    ListedDocument document;
    document.client = ClientId{row.Int(0)};
    document.code = row.Text(1);
    document.name = row.Text(2);
    document.file = row.Text(3);
    if (const auto path = store.Path(document.client, document.file)) {
      const QFileInfo file(*path);
      document.path = *path;
      document.kept = file.lastModified();
      document.bytes = file.size();
    }
    documents.push_back(std::move(document));
  }
  return documents;
}

}  // namespace quorvane::documents
