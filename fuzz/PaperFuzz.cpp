#include "core/files/TableReaders.h"
#include "portfolio/notes/NoteBill.h"
#include "portfolio/notes/NoteLines.h"
#include "portfolio/reconcile/StatementLines.h"

using namespace quorvane;

namespace {

/// The words of the input as the reader program hands them over, with places that follow from the
/// bytes.
documents::PrintedText PrintedOf(std::string_view bytes) {
  constexpr double kHeight = 8;
  documents::PrintedText text;
  text.pages = 2;
  double left = 0;
  double top = 0;
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t end = std::min(bytes.find_first_of(" \n", at), bytes.size());
    const auto word = bytes.substr(at, end - at);
    const double right = left + 5 * static_cast<double>(word.size());
    text.words.push_back({at > bytes.size() / 2 ? 1 : 0, left, right, top, top + kHeight,
                          QString::fromUtf8(word.data(), static_cast<qsizetype>(word.size()))});
    const bool line_ends = end < bytes.size() && bytes[end] == '\n';
    left = line_ends ? 0 : right + 5;
    top += line_ends ? kHeight : 0;
    at = end + 1;
  }
  return text;
}

void ReadNote(const std::vector<paper::Line>& lines) {
  const notes::Note note = notes::ReadNoteLines(lines);
  const notes::NoteBalance balance = notes::CheckNote(note);
  if (balance.adds_up) {
    notes::MakeBill(note, balance);
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  for (const auto& lines : {paper::LinesOf(bytes), paper::LinesOf(PrintedOf(bytes))}) {
    reconcile::ReadStatementLines(lines);
    ReadNote(lines);
  }
  try {
    reconcile::ReadStatementTable(files::ReadCsvText(bytes));
  } catch (const files::TableError&) {
    // A refusal is what broken input gets.
  }
  return 0;
}
