#include "reports/home/HomeWork.h"

#include "core/database/CommitMark.h"
#include "reports/home/RecordsSince.h"

#include <QCoreApplication>

#include <memory>
#include <utility>

namespace quorvane::home {
namespace {

/// Stops when another question was asked.
class UntilAsked final : public Progress {
 public:
  UntilAsked(const std::atomic<int>& newest, int question) : newest_(newest), question_(question) {}

  bool Cancelled() const override { return newest_ != question_; }

 private:
  const std::atomic<int>& newest_;
  int question_;
};

}  // namespace

/// Lives in the thread of its own.
class HomeWork::Worker : public QObject {
 public:
  Worker(HomeWork& owner, database::ConnectionSettings settings, bool read_only)
      : owner_(owner), settings_(std::move(settings)), read_only_(read_only) {}

  void Run(const Scope& scope, int question) {
    UntilAsked until(owner_.newest_, question);
    if (until.Cancelled()) {
      return;
    }
    try {
      Work(scope, until);
    } catch (const Cancellation&) {
      return;  // the next question is in the queue
    } catch (const std::exception& error) {
      connection_.reset();
      Q_EMIT owner_.Failed(QString::fromUtf8(error.what()));
    }
  }

  void Close() { connection_.reset(); }

 private:
  void Work(const Scope& scope, Progress& until) {
    if (connection_ == nullptr) {
      connection_ = std::make_unique<database::Connection>(settings_);
      database::CommitMark::WritesFiguresOnly(*connection_);
      checked_state_.clear();
      shown_state_.clear();
      since_.Forget();
    }
    // What is committed from here on is looked at the next time.
    const auto [state, records] = database::CommitMark::StateOfOthers(*connection_);
    const bool is_checked = !records.empty() && records == checked_state_ &&
                            scope.year == checked_year_ && scope.today == checked_day_;
    const bool checks = !read_only_ && !is_checked;
    if (!checks && !state.empty() && state == shown_state_ && scope == shown_scope_) {
      return;  // nothing was recorded since
    }
    Show(scope, checks, until);
    shown_state_ = state;
    shown_scope_ = scope;
    if (!checks) {
      return;
    }
    Known& known = since_.Begin(*connection_, scope.year, scope.today);
    RefreshFigures(
        *connection_, scope.year, scope.today, until, [&] { Show(scope, true, until); }, &known);
    since_.End();
    checked_state_ = records;
    checked_year_ = scope.year;
    checked_day_ = scope.today;
    Show(scope, false, until);
  }

  void Show(const Scope& scope, bool checking, const Progress& until) {
    const Shown shown{scope, ReadFigures(*connection_, scope), LastRefresh(*connection_), checking};
    until.ThrowIfCancelled();
    Q_EMIT owner_.Ready(shown);
  }

  HomeWork& owner_;
  database::ConnectionSettings settings_;
  bool read_only_;
  std::unique_ptr<database::Connection> connection_;
  std::string shown_state_;
  Scope shown_scope_;
  std::string checked_state_;  ///< of the others' commits of records when all was up to date
  text::FinancialYear checked_year_;
  Date checked_day_;
  RecordsSince since_;
};

HomeWork::HomeWork(database::ConnectionSettings settings, bool read_only, QObject* parent)
    : QObject(parent), worker_(new Worker(*this, std::move(settings), read_only)) {
  qRegisterMetaType<Shown>("quorvane::home::Shown");
  worker_->moveToThread(&thread_);
  connect(&thread_, &QThread::finished, worker_, &QObject::deleteLater);
  connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, &HomeWork::End);
  thread_.setObjectName(QStringLiteral("Home"));
  thread_.start(QThread::LowPriority);
}

HomeWork::~HomeWork() {
  End();
}

void HomeWork::End() {
  newest_ = -1;
  thread_.quit();
  thread_.wait();
}

void HomeWork::Ask(const Scope& scope) {
  if (newest_ < 0) {
    return;
  }
  const int question = ++newest_;
  QMetaObject::invokeMethod(
      worker_, [worker = worker_, scope, question] { worker->Run(scope, question); },
      Qt::QueuedConnection);
}

}  // namespace quorvane::home
