#include "documents/DocumentReading.h"

#include "core/text/Tr.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QProcessEnvironment>
#include <QStandardPaths>
#include <QTranslator>

#include <utility>

namespace quorvane::documents {
namespace {

constexpr qsizetype kMostAnswer = qsizetype{160} << 20;  // bytes; more than the largest page has
constexpr qsizetype kLongestRefusal = 500;
constexpr int kMegabyte = 1 << 20;

QString TooLong() {
  return Tr("Clients", "The Document takes too Long to be Shown.");
}

/// The reader is not believed: what it says is one short line.
QString RefusalIn(const QByteArray& answer) {
  const QString line =
      QString::fromUtf8(answer.left(answer.indexOf('\n'))).left(kLongestRefusal).trimmed();
  return line.isEmpty() ? Tr("Clients", "The Document is Broken.") : line;
}

/// The file with the texts of the language in which the program speaks; empty in English.
QString LanguageFile() {
  const auto* translator = QCoreApplication::instance()->findChild<QTranslator*>();
  return translator == nullptr ? QString() : translator->filePath();
}

}  // namespace

QString FindReader() {
  const QString folder = QCoreApplication::applicationDirPath();
  return QStandardPaths::findExecutable(
      QStringLiteral("quorvane-reader"),
      {folder, folder + QStringLiteral("/.."), folder + QStringLiteral("/../libexec/quorvane")});
}

DocumentReading::DocumentReading(ReadingLimits limits, QObject* parent)
    : QObject(parent), limits_(std::move(limits)) {
  clock_.setSingleShot(true);
  connect(&clock_, &QTimer::timeout, this, [this] { Fail(TooLong()); });
}

DocumentReading::~DocumentReading() {
  Stop();
}

QStringList DocumentReading::Limits() const {
  QStringList arguments{QStringLiteral("--seconds=%1").arg(limits_.process.cpu.count()),
                        QStringLiteral("--megabytes=%1").arg(limits_.process.bytes / kMegabyte)};
  if (const QString language = LanguageFile(); !language.isEmpty()) {
    arguments += QStringLiteral("--language=") + language;
  }
  return arguments;
}

void DocumentReading::Start(const QString& path, int page, int dots) {
  Run({QStringLiteral("--page=%1").arg(page), QStringLiteral("--dots=%1").arg(dots)}, path, {});
}

void DocumentReading::StartText(const QString& path, const QString& password) {
  Run({QStringLiteral("--text")}, path, password.toUtf8() + '\n');
}

void DocumentReading::Run(const QStringList& what, const QString& path, const QByteArray& input) {
  Stop();
  const QString reader = limits_.find_reader();
  if (reader.isEmpty()) {
    Fail(Tr("Clients",
            "The Program \"quorvane-reader\", which Reads Documents, is Missing. "
            "Install Quorvane Again."));
    return;
  }
  // Not a child of this object: a process that is to end is never waited for.
  process_ = new QProcess(QCoreApplication::instance());
  process_->setWorkingDirectory(QDir::tempPath());
  if (input.isEmpty()) {
    process_->setStandardInputFile(QProcess::nullDevice());
  }
  process_->setStandardErrorFile(QProcess::nullDevice());
  connect(process_, &QProcess::readyReadStandardOutput, this, &DocumentReading::Take);
  connect(process_, &QProcess::finished, this, [this](int status, QProcess::ExitStatus how) {
    End(status, how == QProcess::CrashExit);
  });
  connect(process_, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
    if (error == QProcess::FailedToStart) {
      Fail(Tr("Clients", "The Document can't be Read: %1").arg(process_->errorString()));
    }
  });
  clock_.start(limits_.longest);
  const QStringList arguments =
      what + Limits() + QStringList{QStringLiteral("--"), QFileInfo(path).absoluteFilePath()};
  process_->start(reader, arguments, input.isEmpty() ? QIODevice::ReadOnly : QIODevice::ReadWrite);
  if (!input.isEmpty() && process_ != nullptr) {
    process_->write(input);
    process_->closeWriteChannel();
  }
}

void DocumentReading::Stop() {
  clock_.stop();
  answer_.clear();
  if (QProcess* ending = std::exchange(process_, nullptr); ending != nullptr) {
    ending->disconnect(this);
    connect(ending, &QProcess::finished, ending, &QObject::deleteLater);
    if (ending->state() == QProcess::NotRunning) {
      ending->deleteLater();
    }
    ending->kill();
  }
}

void DocumentReading::Take() {
  answer_ += process_->readAllStandardOutput();
  if (answer_.size() > kMostAnswer) {
    Fail(Tr("Clients", "The Document is too Large to be Shown."));
  }
}

void DocumentReading::End(int status, bool crashed) {
  answer_ += process_->readAllStandardOutput();
  const QByteArray answer = std::move(answer_);
  if (crashed) {
    Fail(Tr("Clients", "The Document is Broken, or Showing it Needs too Much Memory."));
  } else if (status == kReaderUsedUp) {
    Fail(TooLong());
  } else if (status == kReaderLocked) {
    Stop();
    Q_EMIT Locked();
  } else if (status != kReaderDone) {
    Fail(RefusalIn(answer));
  } else {
    Stop();
    Q_EMIT Finished(answer);
  }
}

void DocumentReading::Fail(const QString& text) {
  Stop();
  Q_EMIT Failed(text);
}

}  // namespace quorvane::documents
