#include "core/database/DatabaseSettings.h"
#include "support/Test.h"

#include <QMap>

#include <stdexcept>

using quorvane::database::ConnectionSettings;
using quorvane::database::ReadDatabaseSettings;

namespace {

using Section = QMap<QString, QString>;
namespace test = quorvane::test;

std::optional<ConnectionSettings> SettingsOf(const Section& section) {
  return ReadDatabaseSettings([&](const QString& key) { return section.value(key); });
}

}  // namespace

/// Which database the settings file names.
class DatabaseSettingsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void WithoutAPlaceTheProgramKeepsItsOwnServer_data() {
    const test::Table<QString, bool> row;
    for (const char* key : {"Server", "Socket", "Database"}) {
      row(key, key, true);
    }
    for (const char* key : {"", "Driver", "User", "Password", "TlsCa", "Port", "TlsVerify"}) {
      row(*key == '\0' ? "empty section" : key, key, false);
    }
  }
  void WithoutAPlaceTheProgramKeepsItsOwnServer() {
    const auto [key, names_a_place] = test::Table<QString, bool>::Row();
    QCOMPARE(SettingsOf({{key, QStringLiteral("x")}}).has_value(), names_a_place);
  }

  void EveryKeyReachesItsPlace() {
    const auto settings = SettingsOf({{"Driver", "Other Driver"},
                                      {"Server", "db.example.in"},
                                      {"Port", "3307"},
                                      {"Socket", "/run/db.sock"},
                                      {"Database", "portfolio"},
                                      {"User", "clerk"},
                                      {"Password", "p;w}d"},
                                      {"TlsCa", "/ca.pem"},
                                      {"TlsCertificate", "/cert.pem"},
                                      {"TlsKey", "/key.pem"},
                                      {"TlsVerify", "1"}});
    QVERIFY(settings.has_value());
    const QByteArray text =
        QByteArray::fromStdString(settings->ConnectionString(settings->Addresses().front()));
    for (const char* part :
         {"DRIVER={Other Driver}", ";SERVER=db.example.in;", ";PORT=3307;", ";SOCKET=/run/db.sock;",
          ";DATABASE=portfolio;", ";UID=clerk;", ";PWD={p;w}}d};", ";SSLCA=/ca.pem;",
          ";SSLCERT=/cert.pem;", ";SSLKEY=/key.pem;", ";SSLVERIFY=1"}) {
      QVERIFY2(text.contains(part), text.constData());
    }
  }

  void ServerMayNameSeveral_data() {
    const test::Table<QString, QString> row;
    row("one", "db", "db 3307");
    row("three", "a, b:13302 ,10.0.0.3:1", "a 3307,b 13302,10.0.0.3 1");
    row("version 6", "::1,[fe80::2]:13302,[::3]", "::1 3307,fe80::2 13302,::3 3307");
  }
  void ServerMayNameSeveral() {
    const auto [server, addresses] = test::Table<QString, QString>::Row();
    const auto settings = SettingsOf({{"Server", server}, {"Port", "3307"}, {"Database", "q"}});
    QStringList found;
    for (const auto& [host, port] : settings->Addresses()) {
      found << QStringLiteral("%1 %2").arg(host).arg(port);
    }
    QCOMPARE(found.join(QLatin1Char(',')), addresses);
  }

  void ValuesThatMakeNoSenseAreNamed_data() {
    const test::Table<QString, QString, bool> row;
    row("lowest port", "Port", "1", true);
    row("highest port", "Port", "65535", true);
    row("zero", "Port", "0", false);
    row("too high", "Port", "65536", false);
    row("second server's port", "Server", "a,b:x", false);
    row("misspelt", "TlsVerify", "yess", false);
    row("driver of the administrator", "Driver", "/bin/sh", true);
    row("driver of anybody", "Driver", "/tmp/../tmp/x.so", false);
  }
  void ValuesThatMakeNoSenseAreNamed() {
    const auto [key, value, accepted] = test::Table<QString, QString, bool>::Row();
    QString told;
    try {
      SettingsOf({{"Server", "localhost"}, {key, value}});
    } catch (const std::runtime_error& error) {
      told = QString::fromUtf8(error.what());
    }
    QCOMPARE(told.isEmpty(), accepted);
    QCOMPARE(told.contains(key) && told.contains(value), !accepted);
  }

  void VerifyingIsReadAsYesOrNo() {
    for (const char* yes : {"1", "yes", "TRUE", "On"}) {
      QVERIFY(SettingsOf({{"Server", "x"}, {"TlsVerify", yes}})->tls_verify);
    }
    for (const char* no : {"0", "no", "False", "off", ""}) {
      QVERIFY(!SettingsOf({{"Server", "x"}, {"TlsVerify", no}})->tls_verify);
    }
  }
};

static const quorvane::test::RegisterTest<DatabaseSettingsTest> kRegistered;
#include "DatabaseSettingsTest.moc"
