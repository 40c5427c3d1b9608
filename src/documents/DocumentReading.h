#pragma once

#include "core/platform/Processes.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QTimer>

#include <chrono>
#include <functional>

class QProcess;

namespace quorvane::documents {

/// How the reader program ends.
enum ReaderStatus {
  kReaderDone = 0,     ///< the page is on its standard output
  kReaderRefused = 1,  ///< a line for the user is on it
  kReaderUsedUp = 3,   ///< its CPU time is used up
  kReaderLocked = 4    ///< no text without another password
};

/// Where the program "quorvane-reader" is: in the folder of the running program, in the folder
/// above it, or where it is installed; empty when it is missing.
QString FindReader();

/// What reading a page of a document may cost, and what reads it.
struct ReadingLimits {
  platform::ProcessLimits process = {};
  std::chrono::milliseconds longest{15000};
  std::function<QString()> find_reader = FindReader;
};

/// Lets a separate program read a page of a document, so that a bad document cannot end this
/// program. The reader is ended when it takes too long and with this object. Nothing here waits; to
/// be used in a thread with an event loop.
class DocumentReading : public QObject {
  Q_OBJECT

 public:
  explicit DocumentReading(ReadingLimits limits = {}, QObject* parent = nullptr);
  ~DocumentReading() override;

  /// Starts to read a page, counted from 0, in `dots` an inch (pictures in their own); an earlier
  /// reading is cancelled. Finished or Failed follows, once, possibly before this returns.
  void Start(const QString& path, int page, int dots);

  /// Starts to read the text of all pages of a PDF document, as Start does. The password reaches
  /// the reader by a pipe. Finished, Failed or Locked follows, once.
  void StartText(const QString& path, const QString& password);

  /// Cancels the reading: neither signal follows any more.
  void Stop();

 Q_SIGNALS:
  /// What the reader wrote, for PageOf or TextOf.
  void Finished(const QByteArray& answer);

  /// A text for the user.
  void Failed(const QString& text);

  /// The text of the document needs another password.
  void Locked();

 private:
  QStringList Limits() const;
  void Run(const QStringList& what, const QString& path, const QByteArray& input);
  void Take();
  void End(int status, bool crashed);
  void Fail(const QString& text);

  ReadingLimits limits_;
  QProcess* process_ = nullptr;
  QTimer clock_;
  QByteArray answer_;
};

}  // namespace quorvane::documents
