#include "core/database/DatabaseSettings.h"
#include "support/TestMain.h"

#include <QMap>
#include <QTest>

#include <stdexcept>

using quorvane::database::ConnectionSettings;
using quorvane::database::ReadDatabaseSettings;

namespace {

using Section = QMap<QString, QString>;

std::optional<ConnectionSettings> SettingsOf(const Section& section) {
  return ReadDatabaseSettings([&](const QString& key) { return section.value(key); });
}

}  // namespace

/// Which database the settings file names.
class DatabaseSettingsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void WithoutAPlaceTheProgramKeepsItsOwnServer_data() {
    QTest::addColumn<QString>("key");
    QTest::addColumn<bool>("names_a_place");
    for (const char* key : {"Server", "Socket", "Database"}) {
      QTest::newRow(key) << key << true;
    }
    for (const char* key : {"", "Driver", "User", "Password", "TlsCa", "Port", "TlsVerify"}) {
      QTest::newRow(*key == '\0' ? "empty section" : key) << key << false;
    }
  }

  void WithoutAPlaceTheProgramKeepsItsOwnServer() {
    QFETCH(QString, key);
    QFETCH(bool, names_a_place);
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
    QTest::addColumn<QString>("server");
    QTest::addColumn<QString>("addresses");
    QTest::newRow("one") << "db"
                         << "db 3307";
    QTest::newRow("none") << ""
                          << " 3307";
    QTest::newRow("three") << "a, b:13302 ,10.0.0.3:1"
                           << "a 3307,b 13302,10.0.0.3 1";
    QTest::newRow("version 6") << "::1,[fe80::2]:13302,[::3]"
                               << "::1 3307,fe80::2 13302,::3 3307";
  }

  void ServerMayNameSeveral() {
    QFETCH(const QString, server);
    QFETCH(const QString, addresses);
    const auto settings = SettingsOf({{"Server", server}, {"Port", "3307"}, {"Database", "q"}});
    QStringList found;
    for (const auto& [host, port] : settings->Addresses()) {
      found << QStringLiteral("%1 %2").arg(host).arg(port);
    }
    QCOMPARE(found.join(QLatin1Char(',')), addresses);
  }

  void MissingKeysAreLeftToTheDriver() {
    const auto settings = SettingsOf({{"Server", "localhost"}});
    QVERIFY(settings.has_value());
    QCOMPARE(settings->driver, ConnectionSettings().driver);
    QCOMPARE(settings->port, 0);
    QVERIFY(!settings->tls_verify);
    const QByteArray text =
        QByteArray::fromStdString(settings->ConnectionString(settings->Addresses().front()));
    for (const char* part : {"PORT", "SOCKET", "UID", "PWD", "SSL"}) {
      QVERIFY2(!text.contains(part), text.constData());
    }
  }

  void ValuesThatMakeNoSenseAreNamed_data() {
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("lowest port") << "Port"
                                 << "1" << true;
    QTest::newRow("highest port") << "Port"
                                  << "65535" << true;
    QTest::newRow("no number") << "Port"
                               << "mysql" << false;
    QTest::newRow("number and more") << "Port"
                                     << "3306x" << false;
    QTest::newRow("zero") << "Port"
                          << "0" << false;
    QTest::newRow("negative") << "Port"
                              << "-1" << false;
    QTest::newRow("too high") << "Port"
                              << "65536" << false;
    QTest::newRow("fraction") << "Port"
                              << "33.06" << false;
    QTest::newRow("beyond any number") << "Port"
                                       << "99999999999" << false;
    QTest::newRow("second server's port") << "Server"
                                          << "a,b:x" << false;
    QTest::newRow("server's port too high") << "Server"
                                            << "a:65536,b" << false;
    QTest::newRow("verify") << "TlsVerify"
                            << "Yes" << true;
    QTest::newRow("do not verify") << "TlsVerify"
                                   << "off" << true;
    QTest::newRow("misspelt") << "TlsVerify"
                              << "yess" << false;
    QTest::newRow("driver of the administrator") << "Driver"
                                                 << "/bin/sh" << true;
    QTest::newRow("driver of anybody") << "Driver"
                                       << "/tmp/../tmp/x.so" << false;
    QTest::newRow("driver below the working folder") << "Driver"
                                                     << "../../../../../../../bin/sh" << false;
  }

  void ValuesThatMakeNoSenseAreNamed() {
    QFETCH(QString, key);
    QFETCH(QString, value);
    QFETCH(bool, accepted);
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
