#pragma once

#include <QString>
#include <QTemporaryDir>

#include <atomic>
#include <thread>
#include <vector>

namespace quorvane::test {

/// A line between a program and a database server that is cut at a commit: before the commit
/// reaches the server, or after that and before its answer reaches the program.
class CuttingLine {
 public:
  CuttingLine(const QString& server_socket, bool commit_reaches_the_server);
  ~CuttingLine();
  CuttingLine(const CuttingLine&) = delete;

  /// Where the program connects to, instead of to the server.
  QString Socket() const { return folder_.filePath(QStringLiteral("line.sock")); }

  void CutAtNextCommit() { cut_next_ = true; }
  bool HasCut() const { return has_cut_; }

 private:
  void Listen();
  void Carry(int program);

  QTemporaryDir folder_;
  QString server_socket_;
  bool commit_reaches_the_server_;
  int listener_ = -1;
  std::atomic<bool> cut_next_ = false;
  std::atomic<bool> has_cut_ = false;
  std::vector<std::thread> threads_;
  std::thread listening_;
};

}  // namespace quorvane::test
