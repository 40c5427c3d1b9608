#include "portfolio/Export.h"

#include "core/database/Transaction.h"
#include "core/text/Amounts.h"
#include "core/text/Csv.h"
#include "portfolio/ExportBills.h"
#include "portfolio/ExportScope.h"
#include "portfolio/FileLayouts.h"
#include "portfolio/OutputFile.h"

#include <fmt/format.h>

namespace quorvane::portfolio {
namespace {

using database::Connection;
using database::Recordset;

// Names are sorted by their bytes: the same on every server and in every tool that sorts text.

/// A date text as it sorts.
std::string DateOrder(std::string_view column) {
  return fmt::format("concat_ws('-',right({0},4),mid({0},4,2),left({0},2))", column);
}

void AppendField(std::string& out, const Recordset& row, std::size_t column) {
  switch (row.Kind(column)) {
    case database::ColumnKind::kDouble:
      text::AppendExact(out, row.Double(column));
      break;
    case database::ColumnKind::kInteger:
      if (!row.IsNull(column)) {
        out += std::to_string(row.Int64(column));
      }
      break;
    default:
      text::AppendCsvField(out, row.Utf8(column));
  }
}

/// Writes a file whose columns are those of a query, in order.
class QueryExport {
 public:
  QueryExport(Connection& connection, OutputFolder& folder, const ExportScope& scope)
      : connection_(connection), folder_(folder), scope_(scope) {}

  void Write(FileKind kind, const std::string& select, const ScopedText& where,
             const std::string& order) {
    OutputFile& file = folder_.Add(LayoutOf(kind));
    std::string& out = file.Buffer();
    std::string sql = select;
    sql.append(where.text).append(" Order By ").append(order);
    for (const auto& row : connection_.OpenValues(sql, where.values)) {
      for (std::size_t i = 0; i < row.ColumnCount(); ++i) {
        out += i > 0 ? "," : "";
        AppendField(out, row, i);
      }
      out += '\n';
      file.WriteWhenLarge();
    }
    file.Finish();
  }

  void WriteMasters() {
    Write(FileKind::kParticipants,
          "Select P.Name,Elt(P.Depository+1,'NSDL','CDSL'),D.DPID,P.Address,P.City,P.State,P.PIN,"
          "P.STD,P.Phone,P.Mobile,P.Fax,P.Email,P.Person,P.Designation From DepPart P Left Join "
          "DpIDs D On D.DepId=P.Id",
          scope_.Participants("P.Id"), "Binary P.Name,P.Id,D.id");
    Write(FileKind::kClients,
          "Select Code,GCode,Name,Address,City,State,PIN,STD,Phone,Mobile,Fax,EMail,DOB,PAN,"
          "Elt(Sex+1,'Male','Female','Other'),Elt(MStatus+1,'Single','Married','Widowed',"
          "'Divorced') From ClientInfo",
          scope_.Clients("Id"), "Binary Code,Id");
    Write(FileKind::kAccounts,
          "Select C.Code,P.Name,D.DPID,A.ACNo From ClientActDet A Join ClientInfo C On "
          "C.Id=A.CId Left Join DepPart P On P.Id=A.DMATAC Left Join DpIDs D On D.id=A.DPID And "
          "D.DepId=A.DMATAC",
          scope_.Clients("A.CId"), "Binary C.Code,Binary A.ACNo,A.id");
    Write(FileKind::kBrokers,
          "Select Name,Address,City,State,PIN,STD,Phone,Mobile,Fax,Email From Broker",
          scope_.Brokers("Id"), "Binary Name,Id");
    Write(FileKind::kScrips,
          "Select S.Code,S.NCode,S.Name,T.Type,C.Name From Script S Left Join ScriptType T On "
          "T.Id=S.Type Left Join ScriptClass C On C.Id=S.ScrCls",
          scope_.Scrips("S.Id"), "Binary S.Code,S.Id");
    Write(FileKind::kPercentages, "Select FYear,Name,Percent,Ason From TransTaxPer", {},
          "FYear,Binary Name,Id");
  }

  void WriteMovements() {
    Write(FileKind::kOpening,
          "Select C.Code,A.ACNo,O.Fyear,S.Code,O.Qty,O.Rate,O.PDate,O.STax,O.Brk,O.STT,O.FO From "
          "StkOpBal O Join ClientInfo C On C.Id=O.CId Left Join ClientActDet A On A.id=O.AcId "
          "Left Join Script S On S.Id=O.ScriptId",
          scope_.Clients("O.CId"),
          "Binary C.Code,Binary A.ACNo,O.Fyear,Binary S.Code," + DateOrder("O.PDate") + ",O.Id");
    Write(FileKind::kTransfers,
          "Select T.TDate,F.ACNo,A.ACNo,S.Code,T.PRate,T.Qty From ScrTransfer T Left Join "
          "ClientActDet F On F.id=T.FrmAcId Left Join ClientActDet A On A.id=T.ToAcId Left Join "
          "Script S On S.Id=T.ScrId",
          scope_.Clients("T.Cid"), DateOrder("T.TDate") + ",T.ID");
    Write(FileKind::kBrokerOpening,
          "Select C.Code,O.Fyear,B.Name,O.OpBal,Elt(O.Dr+1,'Dr','Cr') From BrOpBal O Join "
          "ClientInfo C On C.Id=O.CId Left Join Broker B On B.Id=O.BrId",
          scope_.Clients("O.CId"), "Binary C.Code,O.Fyear,Binary B.Name,O.Id");
    WritePayments(FileKind::kPayments, "BrPayment", "'Payment','Cr. By Broker'");
    WritePayments(FileKind::kReceipts, "BrRec", "'Receving','Dr. By Broker'");
    Write(FileKind::kRates,
          "Select M.MDate,S.Code,M.Rate From MarketRate M Join Script S On S.Id=M.ScrId",
          scope_.Scrips("M.ScrId"), DateOrder("M.MDate") + ",Binary S.Code,M.Id");
  }

 private:
  void WritePayments(FileKind kind, const char* table, const char* modes) {
    Write(kind,
          fmt::format("Select C.Code,B.Name,Elt(P.TMode+1,{}),P.Amt,P.PDate,"
                      "Elt(P.PMode+1,'Cash','Cheque'),P.ChqNo,P.ChqDate,P.DrawOn,P.Remark From "
                      "{} P Join ClientInfo C On C.Id=P.Cid Left Join Broker B On B.Id=P.BrId",
                      modes, table),
          scope_.Clients("P.Cid"), "Binary C.Code," + DateOrder("P.PDate") + ",Binary B.Name,P.Id");
  }

  Connection& connection_;
  OutputFolder& folder_;
  const ExportScope& scope_;
};

}  // namespace

void ExportPortfolio(Connection& connection, const QString& folder, std::optional<ClientId> client,
                     Progress& progress) {
  OutputFolder files(folder);
  {
    // Never committed: it only holds every query to one instant.
    const database::Transaction instant(connection);
    const ExportScope scope(connection, client);
    QueryExport tables(connection, files, scope);
    tables.WriteMasters();
    tables.WriteMovements();
    ExportBills(connection, files, scope, progress);
  }
  files.Publish();
}

}  // namespace quorvane::portfolio
