#include "documents/DocumentText.h"

#include "core/platform/Processes.h"
#include "core/text/Tr.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QStringDecoder>

#include <array>
#include <stdexcept>
#include <utility>
#include <vector>

namespace quorvane::documents {
namespace {

constexpr int kPoll = 50;  // milliseconds between two looks at the clock
constexpr qsizetype kSignature = 8;

[[noreturn]] void Fail(const char* text) {
  throw std::runtime_error(Tr("Clients", text).toStdString());
}

[[noreturn]] void FailTooLarge() {
  Fail(QT_TRANSLATE_NOOP("Clients", "The Document is too Large to be Shown."));
}

[[noreturn]] void FailToRead(const QString& reason) {
  throw std::runtime_error(
      Tr("Clients", "The Document can't be Read: %1").arg(reason).toStdString());
}

[[noreturn]] void FailMissing(const QString& program) {
  throw std::runtime_error(
      Tr("Clients", "To Show this Document the Program \"%1\" is Needed, which is not Installed.")
          .arg(program)
          .toStdString());
}

QByteArray BytesOf(const QString& path, std::int64_t most_bytes) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    FailToRead(file.errorString());
  }
  QByteArray bytes = file.read(most_bytes + 1);
  if (file.error() != QFileDevice::NoError) {
    FailToRead(file.errorString());
  }
  if (bytes.size() > most_bytes) {
    FailTooLarge();
  }
  return bytes;
}

/// Texts of older programs are in the code page of Western Windows, which differs from Latin-1 in
/// these 32 places.
QString FromWindows(const QByteArray& bytes) {
  constexpr std::array<char16_t, 32> kPlaces{
      0x20ac, 0x81,   0x201a, 0x192,  0x201e, 0x2026, 0x2020, 0x2021, 0x2c6,  0x2030, 0x160,
      0x2039, 0x152,  0x8d,   0x17d,  0x8f,   0x90,   0x2018, 0x2019, 0x201c, 0x201d, 0x2022,
      0x2013, 0x2014, 0x2dc,  0x2122, 0x161,  0x203a, 0x153,  0x9d,   0x17e,  0x178};
  QString text = QString::fromLatin1(bytes);
  for (QChar& c : text) {
    if (c >= QChar(0x80) && c < QChar(0xa0)) {
      c = QChar(kPlaces[c.unicode() - 0x80]);
    }
  }
  return text;
}

QString Decoded(const QByteArray& bytes, QStringConverter::Encoding encoding) {
  QStringDecoder decode(encoding);
  QString text = decode(bytes);
  return decode.hasError() ? FromWindows(bytes) : text;
}

DocumentText PlainText(const QByteArray& bytes) {
  const auto marked = QStringConverter::encodingForData(bytes);
  QString text = Decoded(bytes, marked.value_or(QStringConverter::Utf8));
  if (text.contains(QChar::Null)) {
    Fail(QT_TRANSLATE_NOOP("Clients", "The Document holds no Text."));
  }
  return {.contents = std::move(text), .is_html = false};
}

DocumentText Html(const QByteArray& bytes) {
  const auto declared = QStringConverter::encodingForHtml(bytes);
  return {.contents = declared ? Decoded(bytes, *declared) : FromWindows(bytes), .is_html = true};
}

/// Ends the program however the conversion ends.
class Conversion {
 public:
  Conversion(const QString& program, const QStringList& arguments) {
    process_.setWorkingDirectory(QDir::tempPath());
    process_.setStandardInputFile(QProcess::nullDevice());
    process_.setStandardErrorFile(QProcess::nullDevice());
#ifdef Q_OS_UNIX
    process_.setChildProcessModifier(platform::EndWithParent);
#endif
    process_.start(program, arguments, QIODevice::ReadOnly);
  }
  ~Conversion() {
    if (process_.state() != QProcess::NotRunning) {
      process_.kill();
      process_.waitForFinished();
    }
  }
  Conversion(const Conversion&) = delete;

  QByteArray Output(const TextLimits& limits) {
    QElapsedTimer clock;
    clock.start();
    QByteArray output;
    while (!process_.waitForFinished(kPoll) && process_.state() != QProcess::NotRunning) {
      Take(output, limits.most_bytes);
      if (clock.hasExpired(limits.longest.count())) {
        Fail(QT_TRANSLATE_NOOP("Clients", "The Document takes too Long to be Shown."));
      }
    }
    Take(output, limits.most_bytes);
    if (process_.exitStatus() != QProcess::NormalExit || process_.exitCode() != 0) {
      Fail(QT_TRANSLATE_NOOP("Clients", "The Document is Broken."));
    }
    return output;
  }

 private:
  void Take(QByteArray& output, std::int64_t most_bytes) {
    output += process_.readAllStandardOutput();
    if (output.size() > most_bytes) {
      FailTooLarge();
    }
  }

  QProcess process_;
};

/// One way of converting a document; the file's path follows the arguments.
struct Converter {
  const char* program;
  QStringList arguments;
};

QByteArray Converted(const QString& path, const std::vector<Converter>& converters,
                     const TextLimits& limits) {
  for (const auto& [name, arguments] : converters) {
    const QString program = limits.find_program(QLatin1String(name));
    if (!program.isEmpty()) {
      const QString file = QFileInfo(path).absoluteFilePath();
      return Conversion(program, arguments + QStringList(file)).Output(limits);
    }
  }
  FailMissing(QLatin1String(converters.front().program));
}

QByteArray SignatureOf(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) {
    FailToRead(file.errorString());
  }
  return file.read(kSignature);
}

DocumentText WordProcessorText(const QString& path, const TextLimits& limits) {
  const QByteArray signature = SignatureOf(path);
  if (signature.startsWith("{\\rtf")) {
    return Html(Converted(path, {{"unrtf", {"--html", "--nopict"}}}, limits));
  }
  if (signature.startsWith("\xd0\xcf\x11\xe0")) {
    return PlainText(Converted(
        path, {{"catdoc", {"-w", "-d", "utf-8"}}, {"antiword", {"-w", "0", "-m", "UTF-8.txt"}}},
        limits));
  }
  if (signature.startsWith("PK\x03\x04")) {
    Fail(QT_TRANSLATE_NOOP(
        "Clients", "The Document is of a Newer Kind. Save it as \"Rich Text\" to have it Shown."));
  }
  return PlainText(BytesOf(path, limits.most_bytes));
}

}  // namespace

DocumentText ReadDocumentText(const QString& path, const TextLimits& limits) {
  const QString extension = QFileInfo(path).suffix().toUpper();
  if (extension == QLatin1String("TXT")) {
    return PlainText(BytesOf(path, limits.most_bytes));
  }
  if (extension.startsWith(QLatin1String("HTM"))) {
    return Html(BytesOf(path, limits.most_bytes));
  }
  return WordProcessorText(path, limits);
}

}  // namespace quorvane::documents
