#include "admin/documents/DocumentList.h"

#include <QFileInfo>

namespace quorvane::documents {

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
