#include "Printed.h"
#include "core/files/HtmlDocument.h"
#include "core/files/TableReaders.h"
#include "portfolio/notes/NoteBill.h"
#include "portfolio/notes/NoteLines.h"
#include "portfolio/notes/NoteTable.h"

using namespace quorvane;

namespace {

void ReadNote(const std::vector<paper::Line>& lines) {
  const notes::Note note = notes::ReadNoteLines(lines);
  const notes::NoteBalance balance = notes::CheckNote(note);
  if (balance.adds_up) {
    notes::MakeBill(note, balance, notes::UndeliveredWithin(note));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  ReadNote(paper::LinesOf(bytes));
  ReadNote(paper::LinesOf(PrintedOf(bytes)));
  try {
    const bool page = files::HtmlDocument::IsOne(bytes);
    ReadNote(
        notes::LinesOfTable(page ? files::HtmlDocument(bytes).Rows() : files::ReadCsvText(bytes)));
  } catch (const files::TableError&) {
    // A refusal is what broken input gets.
  }
  return 0;
}
