#include "bench/RawRead.h"

namespace quorvane::bench {

std::size_t ReadAndDrop(database::Connection& connection, text::FinancialYear year) {
  std::size_t rows = 0;
  for (const char* sql :
       {"Select CId,ScriptId,AcId,Id,PDate,Qty,Rate,Total,STax,STT,Brk,FO From StkOpBal Where "
        "Fyear=?",
        "Select ID,BDate,AcId From SPMaster Where Fyear=?",
        "Select Id,Rate From Stock Where Fyear=?",
        "Select Cid,SID,Id,SP,StkId,ScriptId,Qty,Rate,Brk,Net,Amt,STax,STT,FO From SPTrans Where "
        "Fyear=?",
        "Select ID,Cid,FrmAcId,ToClientID,ToAcId,ScrId,TDate,PRate,Qty From ScrTransfer Where "
        "Fyear=?"}) {
    auto recordset = connection.Open(sql, year.Text());
    while (recordset.Next()) {
      ++rows;
    }
  }
  return rows;
}

}  // namespace quorvane::bench
