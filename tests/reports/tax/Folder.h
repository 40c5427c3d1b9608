#pragma once

#include "portfolio/Import.h"
#include "support/Files.h"
#include "support/TestDatabase.h"

#include <QTemporaryDir>

#include <map>
#include <stdexcept>

namespace quorvane::test {

inline constexpr char kBillColumns[] =
    "client_code,account_no,bill_no,bill_date,broker,exchange,side,scrip_code,quantity,rate,stt\n";

/// Takes in the masters of the scenarios and these files of a portfolio folder.
inline void TakeInFiles(TestDatabase& database, const std::map<QString, QByteArray>& files) {
  const QTemporaryDir folder;
  const QDir common(QStringLiteral(QUORVANE_SOURCE_DIR "/tests/scenarios/common"));
  for (const QString& name : common.entryList(QDir::Files)) {
    WriteFile(folder.filePath(name), ReadFile(common.filePath(name)));
  }
  for (const auto& [name, content] : files) {
    WriteFile(folder.filePath(name), content);
  }
  Progress progress;
  const auto result = portfolio::ImportPortfolio(*database, folder.path(), false, progress);
  if (!result.errors.empty()) {
    throw std::runtime_error(result.errors.front().Text());
  }
}

/// Shares without STT, without ISIN, of before 2018 without their price, and more than there are;
/// in 2023-24 a short-term loss of 500.
inline void TakeInTaxYears(TestDatabase& database) {
  TakeInFiles(database,
              {{"opening.csv",
                "client_code,account_no,fyear,scrip_code,quantity,rate,purchase_date\n"
                "AN,A1,2023-24,600001,20,200,01/06/2015\n"
                "AN,A1,2024-25,600001,20,200,01/06/2015\n"},
               {"bills.csv", QByteArray(kBillColumns) +
                                 "AN,A1,1,01/06/2023,LOTUS BROKING,NSE,P,600002,10,150,1\n"
                                 "AN,A1,2,01/08/2023,LOTUS BROKING,NSE,S,600002,10,100,1\n"
                                 "AN,A1,3,01/06/2024,LOTUS BROKING,NSE,S,600001,10,700,1\n"
                                 "AN,A1,4,02/06/2024,LOTUS BROKING,NSE,P,600002,5,150,1\n"
                                 "AN,A1,5,03/06/2024,LOTUS BROKING,NSE,S,600002,5,350,\n"
                                 "BI,B1,6,04/06/2024,LOTUS BROKING,NSE,P,600002,5,150,1\n"
                                 "BI,B1,7,05/08/2024,LOTUS BROKING,NSE,S,600002,5,250,1\n"}});
}

}  // namespace quorvane::test
