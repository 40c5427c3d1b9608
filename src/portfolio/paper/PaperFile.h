#pragma once

#include "core/Progress.h"
#include "core/Result.h"
#include "core/files/TextTable.h"
#include "portfolio/paper/Words.h"

#include <QString>
#include <QStringList>

#include <variant>
#include <vector>

namespace quorvane::paper {

/// What a statement or a note is read from: the printed lines of a PDF document, or the table
/// that a file is or a web page shows.
using PaperContent = std::variant<std::vector<Line>, files::TextTable>;

/// Reads a PDF document with text, a web page, or any file that files::ReadTableFile reads; the
/// contents say which it is. The passwords are tried in their order. Refused with Field::kPassword
/// when none opens the document, and for a file that cannot be read, is broken or has no text.
/// Throws Cancellation.
Result<PaperContent> ReadPaper(const QString& path, const QStringList& passwords,
                               Progress& progress);

/// The passwords to try for a client's papers: those that were entered, then the PAN in capitals
/// and small letters, then the PAN with the day of birth (ddmmyyyy) and the day alone.
QStringList PasswordsFor(const QString& pan, const QString& date_of_birth,
                         const QStringList& entered);

}  // namespace quorvane::paper
