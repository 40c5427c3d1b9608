#include "portfolio/reconcile/StatementFile.h"

#include "core/records/Masters.h"
#include "core/records/Query.h"
#include "portfolio/paper/PaperFile.h"
#include "portfolio/reconcile/StatementLines.h"

namespace quorvane::reconcile {

Result<Statement> ReadStatement(const QString& path, const QStringList& passwords,
                                Progress& progress) {
  const Result<paper::PaperContent> content = paper::ReadPaper(path, passwords, progress);
  if (!content) {
    return content.Why();
  }
  if (const auto* lines = std::get_if<std::vector<paper::Line>>(&*content)) {
    return ReadStatementLines(*lines);
  }
  try {
    return ReadStatementTable(std::get<files::TextTable>(*content));
  } catch (const files::TableError& error) {
    return Refusal{QString::fromUtf8(error.what())};
  }
}

Result<Statement> ReadStatementOf(database::Connection& connection, ClientId client,
                                  const QString& path, const QStringList& entered,
                                  Progress& progress) {
  const auto record =
      records::Select<records::Client>(connection).Where(&records::Client::id, client).First();
  const records::Client owner = record.value_or(records::Client());
  return ReadStatement(path, paper::PasswordsFor(owner.pan, owner.date_of_birth, entered),
                       progress);
}

}  // namespace quorvane::reconcile
