#include "admin/users/window/frmLogin.h"
#include "admin/users/window/frmLoginSetUp.h"
#include "support/Test.h"
#include "ui/Features.h"
#include "ui/main/ShownMain.h"

using namespace quorvane;

namespace {

/// What the model behind a window may refuse, and the control that gets the focus.
using Places = std::vector<std::pair<Field, const char*>>;

Places Contact(int first) {
  static constexpr std::array kNames{"Text1_2", "Text1_3", "Text1_4", "Text1_5", "Text1_6",
                                     "Text1_7", "Text1_8", "Text1_9", "Text1_10"};
  const auto box = [first](int after) {
    return kNames.at(static_cast<std::size_t>(first + after));
  };
  return {{Field::kCity, box(0)},    {Field::kState, "Combo1"}, {Field::kPin, box(1)},
          {Field::kStdCode, box(2)}, {Field::kPhone, box(3)},   {Field::kMobile, box(4)},
          {Field::kFax, box(5)},     {Field::kEmail, box(6)}};
}

Places With(Places places, const Places& more) {
  places.insert(places.end(), more.begin(), more.end());
  return places;
}

void Add(const char* window, const Places& places) {
  QTest::newRow(window) << places;
}

}  // namespace

class RefusedFieldsTest : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void initTestCase() {
    shown_ = std::make_unique<test::ShownMain>();
    shown_->session.current =
        ClientYear{shown_->database.AddClient(QStringLiteral("C1")), text::FinancialYear(2011)};
  }
  void cleanupTestCase() { shown_.reset(); }

  void EachIsFocused_data() {
    QTest::addColumn<Places>("places");
    AddMasters();
    AddDocuments();
    const Places period{{Field::kFromDate, "Text1_0"}, {Field::kToDate, "Text1_1"}};
    Add("RptBrokerLedger", With(period, {{Field::kBrokers, "VSB"}}));
    Add("RptBrokerAccount", With(period, {{Field::kBrokers, "VSB"}}));
    Add("RptReturns", period);
    Add("RptBooklet", {{Field::kRecord, "VSF"}});
    Add("RptDMatStatement", With(period, {{Field::kAccounts, "VSF"}}));
    Add("RptTransaction", With(period, {{Field::kAccounts, "VSF"}}));
    const Places gains{{Field::kAccounts, "VSD"}, {Field::kScrips, "VSS"}};
    Add("RptProfitStatement", With(period, gains));
    Add("RptCapitalGain", With(period, gains));
    Add("RptVariousReport", {{Field::kFromDate, "Text1_0"},
                             {Field::kToDate, "Text1_1"},
                             {Field::kRateDate, "Text3"},
                             {Field::kClients, "VSC"},
                             {Field::kAccounts, "VSD"},
                             {Field::kScrips, "VSS"}});
    AddAdministration();
  }

  void EachIsFocused() {
    QFETCH(const Places, places);
    const QString name = QLatin1String(QTest::currentDataTag());
    shown_->session.target = name;
    const std::unique_ptr<controls::ChildWindow> window = Make(*shown_, name);
    for (QWidget* control : window->findChildren<QWidget*>()) {
      control->setEnabled(true);
    }
    test::PutOnScreen(*window);
    for (const auto& [field, control] : places) {
      window->Show({{}, field});
      const QWidget* focused = QApplication::focusWidget();
      QVERIFY2(focused != nullptr && focused->objectName() == QLatin1String(control), control);
    }
  }

 private:
  static std::unique_ptr<controls::ChildWindow> Make(test::ShownMain& shown, const QString& name) {
    static users::Attempts attempts;
    if (name == QLatin1String("frmLogin")) {
      const app::MachineKey key(shown.folder.filePath(QStringLiteral("machine.ini")));
      auto login = std::make_unique<users::frmLogin>(
          shown.desk, users::Login(*shown.session.connection, key, attempts));
      login->findChild<QAbstractButton*>(QStringLiteral("cmdChange"))->click();
      return login;
    }
    if (name == QLatin1String("frmLoginSetUp")) {
      return std::make_unique<users::frmLoginSetUp>(shown.desk);
    }
    return std::unique_ptr<controls::ChildWindow>(ui::FindFeature(name)->make(shown.desk));
  }

  static void AddMasters() {
    Add("FrmClientMaster", With(Contact(2), {{Field::kCode, "Text1_0"},
                                             {Field::kGroupCode, "Text1_1"},
                                             {Field::kName, "Text1_2"},
                                             {Field::kAccounts, "VS"},
                                             {Field::kDateOfBirth, "MaskEdBox1"},
                                             {Field::kPan, "Text1_11"},
                                             {Field::kDocument, "Text1_12"}}));
    const Places named = With(Contact(0), {{Field::kName, "Text1_0"}});
    Add("FrmBroker", named);
    Add("FrmDepPart", With(named, {{Field::kPerson, "Text1_9"},
                                   {Field::kDesignation, "Text1_10"},
                                   {Field::kDpIds, "VS"}}));
    Add("FrmScript", {{Field::kCode, "Text1_0"},
                      {Field::kName, "Text1_1"},
                      {Field::kSecondCode, "Text1_2"},
                      {Field::kType, "Combo1"},
                      {Field::kClass, "Combo2"},
                      {Field::kIsins, "VS"}});
    for (const char* name : {"FrmScriptType", "FrmScriptCls", "FrmExchange"}) {
      Add(name, {{Field::kName, "Text1_0"}});
    }
    Add("FrmSttPer", {{Field::kPercent, "Text1_0"}});
    Add("FrmTransPer", {{Field::kYear, "Text1_0"},
                        {Field::kDeliveryType, "CmbName"},
                        {Field::kPercent, "Text1_1"},
                        {Field::kAsOn, "Text1_2"}});
    Add("ImpScrRate", {{Field::kDate, "TxtDate"}});
    Add("FrmFairValue", {{Field::kRate, "VSF"}, {Field::kScrip, "VSF"}});
  }

  static void AddDocuments() {
    Add("FrmCorpAction", {{Field::kKind, "Combo1"},
                          {Field::kScrip, "Combo2"},
                          {Field::kToScrip, "Combo3"},
                          {Field::kRatio, "Text1_0"},
                          {Field::kPrice, "Text1_2"},
                          {Field::kPercent, "Text1_3"},
                          {Field::kDate, "Text2_0"},
                          {Field::kRecordDate, "Text2_1"}});
    Add("FrmReconcile", {{Field::kClients, "Combo1"},
                         {Field::kAccount, "Combo2"},
                         {Field::kDate, "TxtDate"},
                         {Field::kPassword, "TxtPassword"}});
    Add("ImpNotes", {{Field::kClients, "Combo1"},
                     {Field::kAccount, "Combo2"},
                     {Field::kBroker, "Combo3"},
                     {Field::kPassword, "TxtPassword"},
                     {Field::kRecord, "VSF"},
                     {Field::kLines, "VSL"}});
    Add("FrmDividend", {{Field::kScrip, "Combo1"},
                        {Field::kAccount, "Combo2"},
                        {Field::kDate, "Text1_0"},
                        {Field::kQuantity, "Text1_1"},
                        {Field::kRate, "Text1_2"},
                        {Field::kTax, "Text1_3"}});
    Add("FrmTaxLoss", {{Field::kYear, "VSF"}, {Field::kKind, "VSF"}, {Field::kAmount, "VSF"}});
    Add("FrmSalePurchase", {{Field::kNumber, "Text1_0"},
                            {Field::kDate, "Text1_1"},
                            {Field::kBroker, "Text1_2"},
                            {Field::kSettlementNumber, "Text1_15"},
                            {Field::kExchange, "Combo1"},
                            {Field::kAccount, "Combo2"},
                            {Field::kSide, "Combo3"},
                            {Field::kScrip, "Combo4"},
                            {Field::kScripCode, "TxtScr"},
                            {Field::kQuantity, "Text1_3"},
                            {Field::kLot, "VS3"},
                            {Field::kLine, "CmdUpdate1"},
                            {Field::kLines, "Vs1"},
                            {Field::kRecord, "VSF"}});
    Add("FrmStkOpBalance", {{Field::kScrip, "Combo1"},
                            {Field::kQuantity, "Text1_0"},
                            {Field::kAccount, "Combo2"},
                            {Field::kDate, "Text1_3"},
                            {Field::kRate, "Text1_1"},
                            {Field::kRecord, "VSF"}});
    Add("FrmScriptTransfer", {{Field::kDate, "Text1_0"},
                              {Field::kAccount, "Combo1"},
                              {Field::kToAccount, "Combo2"},
                              {Field::kLot, "VS"},
                              {Field::kQuantity, "Text1_2"},
                              {Field::kRecord, "VSF"}});
    Add("FrmBrOpBal",
        {{Field::kBroker, "Combo1"}, {Field::kAmount, "Text1_0"}, {Field::kSide, "Combo2"}});
    Add("FrmBrPayment", {{Field::kBroker, "Combo1"},
                         {Field::kTransactionMode, "Combo2"},
                         {Field::kAmount, "Text1_0"},
                         {Field::kDate, "Text1_1"},
                         {Field::kPaymentMode, "Combo3"},
                         {Field::kChequeNumber, "Text1_2"},
                         {Field::kDrawnOn, "Text1_4"},
                         {Field::kRemark, "Text1_5"}});
  }

  static void AddAdministration() {
    Add("frmLogin", {{Field::kName, "Text1_0"},
                     {Field::kPassword, "Text1_1"},
                     {Field::kChangedName, "Text2_0"},
                     {Field::kOldPassword, "Text2_1"},
                     {Field::kNewPassword, "Text2_2"},
                     {Field::kConfirmedPassword, "Text2_3"}});
    Add("frmLoginSetUp", {{Field::kName, "Text1_0"}, {Field::kPassword, "Text1_1"}});
    Add("frmBackUpRestore", {{Field::kFolder, "TxtFolder"}});
    Add("frmsettings", {{Field::kScreenWidth, "Text1_0"},
                        {Field::kTemplates, "Text1_4"},
                        {Field::kServer, "Text1_6"},
                        {Field::kDatabase, "Text1_9"},
                        {Field::kTlsKey, "Text1_14"},
                        {Field::kIndexFeed, "Text1_16"},
                        {Field::kNseArchiveHost, "Text1_22"},
                        {Field::kPrinter, "Text1_23"}});
  }

  std::unique_ptr<test::ShownMain> shown_;
};

static const quorvane::test::RegisterTest<RefusedFieldsTest> kRegistered;
#include "RefusedFieldsTest.moc"
