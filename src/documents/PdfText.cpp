#include "documents/PdfText.h"

#include "core/text/Tr.h"

#include <QEventLoop>
#include <QTimer>

#include <chrono>

namespace quorvane::documents {
namespace {

struct Answer {
  QByteArray text;
  QString refusal;  ///< empty when there is a text
  bool locked = false;
};

Answer AnswerOf(const QString& path, const QString& password, Progress& progress,
                const ReadingLimits& limits) {
  constexpr std::chrono::milliseconds kBeat{50};
  Answer answer;
  QEventLoop loop;
  bool done = false;
  DocumentReading reading(limits);
  QObject::connect(&reading, &DocumentReading::Finished, &loop, [&](const QByteArray& bytes) {
    answer.text = bytes;
    done = true;
  });
  QObject::connect(&reading, &DocumentReading::Failed, &loop, [&](const QString& text) {
    answer.refusal = text;
    done = true;
  });
  QObject::connect(&reading, &DocumentReading::Locked, &loop, [&] {
    answer.locked = true;
    done = true;
  });
  reading.StartText(path, password);
  // No key or click reaches a window meanwhile; the progress draws itself and hears "Cancel".
  QTimer beat;
  beat.start(kBeat);
  while (!done && !progress.Cancelled()) {
    loop.processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
    progress.Step(0);
  }
  progress.ThrowIfCancelled();
  return answer;
}

QString LockedText(bool tried) {
  return tried ? Tr("Documents",
                    "None of the Passwords Opens the Document. It is Often the PAN of the First "
                    "Holder in Capitals.")
               : Tr("Documents",
                    "The Document is Protected by a Password. It is Often the PAN of the First "
                    "Holder in Capitals.");
}

}  // namespace

ReadingLimits TextLimits() {
  ReadingLimits limits;
  limits.process.cpu = std::chrono::seconds(60);
  limits.longest = std::chrono::seconds(90);
  return limits;
}

Result<PrintedText> ReadPdfText(const QString& path, const QStringList& passwords,
                                Progress& progress, const ReadingLimits& limits) {
  progress.Begin(Tr("Documents", "Reading the Document"), 0);
  bool tried = false;
  for (const QString& password : QStringList{QString()} + passwords) {
    const Answer answer = AnswerOf(path, password, progress, limits);
    if (answer.locked) {
      tried = tried || !password.isEmpty();
      continue;
    }
    if (!answer.refusal.isEmpty()) {
      return Refusal{answer.refusal};
    }
    std::optional<PrintedText> text = TextOf(answer.text);
    if (!text) {
      return Refusal{Tr("Clients", "The Document is Broken.")};
    }
    if (text->IsEmpty()) {
      return Refusal{
          Tr("Documents",
             "The Document has no Text: it is a Picture of Paper. Ask for the File "
             "that was Sent by E-Mail, or for One as Comma Separated Text or Workbook.")};
    }
    return *std::move(text);
  }
  return Refusal{LockedText(tried), Field::kPassword};
}

}  // namespace quorvane::documents
