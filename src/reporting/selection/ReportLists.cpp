#include "reporting/selection/ReportLists.h"

namespace quorvane::reporting {
namespace {

std::vector<lookups::Item> ReadItems(database::Recordset rows) {
  std::vector<lookups::Item> items;
  while (rows.Next()) {
    items.push_back({rows.Int(0), rows.Text(1)});
  }
  return items;
}

// The ids as a joined table, which is made once; "Id In (... Union ...)" would be asked again for
// every scrip.
constexpr std::string_view kScripsOfLots =
    "Select Script.Id,Script.Name From Script Join (Select ScriptId From Stock Where Cid=? "
    "Union Select ScriptId From StkOpBal Where Cid=? and Fyear=? "
    "Union Select ScriptId From SPTrans Where Cid=? and Fyear=?) As Held "
    "On Held.ScriptId=Script.Id Order By Script.Name";

constexpr std::string_view kScripsOfLotsAndChoice =
    "Select Script.Id,Script.Name From Script Join (Select ScriptId From Stock Where Cid=? "
    "Union Select ScriptId From StkOpBal Where Cid=? and Fyear=? and FO=? "
    "Union Select ScriptId From SPTrans Where Cid=? and Fyear=? and FO=?) As Held "
    "On Held.ScriptId=Script.Id Order By Script.Name";

constexpr std::string_view kScripsOfChoice =
    "Select Script.Id,Script.Name From Script Join ("
    "Select ScriptId From StkOpBal Where Cid=? and Fyear=? and FO=? "
    "Union Select ScriptId From SPTrans Where Cid=? and Fyear=? and FO=?) As Held "
    "On Held.ScriptId=Script.Id Order By Script.Name";

}  // namespace

std::vector<lookups::Item> AccountsByNumber(database::Connection& connection, ClientId client) {
  return ReadItems(
      connection.Open("Select Id,AcNo From ClientActDet Where Cid=? Order By ACNo", client));
}

std::vector<lookups::Item> ScripsOfClient(database::Connection& connection, const ClientYear& of,
                                          gains::FoChoice fo) {
  const QString year = of.year.Text();
  switch (fo) {
    case gains::FoChoice::kFo:
      return ReadItems(connection.Open(kScripsOfChoice, of.client, year, 1, of.client, year, 1));
    case gains::FoChoice::kNonFo:
      return ReadItems(connection.Open(kScripsOfLotsAndChoice, of.client, of.client, year, 0,
                                       of.client, year, 0));
    case gains::FoChoice::kAll:
      break;
  }
  return ReadItems(connection.Open(kScripsOfLots, of.client, of.client, year, of.client, year));
}

std::vector<lookups::Item> AllScrips(database::Connection& connection) {
  return ReadItems(connection.Open("Select Id,Name From Script Order By Name"));
}

}  // namespace quorvane::reporting
