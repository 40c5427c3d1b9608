#include "support/CuttingLine.h"

#include <QByteArray>

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <cstring>
#include <stdexcept>
#include <string_view>

namespace quorvane::test {
namespace {

sockaddr_un AddressOf(const QString& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  const QByteArray bytes = path.toLocal8Bit();
  if (static_cast<std::size_t>(bytes.size()) >= sizeof(address.sun_path)) {
    throw std::runtime_error("the path of the socket is too long");
  }
  std::memcpy(address.sun_path, bytes.constData(), static_cast<std::size_t>(bytes.size()));
  return address;
}

using Buffer = std::array<char, 1 << 16>;

/// What has come; empty at the end of the line.
std::string_view Take(int from, Buffer& buffer) {
  const ssize_t size = read(from, buffer.data(), buffer.size());
  return {buffer.data(), static_cast<std::size_t>(size < 0 ? 0 : size)};
}

bool Give(int to, std::string_view text) {
  return !text.empty() && write(to, text.data(), text.size()) == static_cast<ssize_t>(text.size());
}

}  // namespace

CuttingLine::CuttingLine(const QString& server_socket, bool commit_reaches_the_server)
    : server_socket_(server_socket), commit_reaches_the_server_(commit_reaches_the_server) {
  listener_ = socket(AF_UNIX, SOCK_STREAM, 0);
  const sockaddr_un address = AddressOf(Socket());
  if (bind(listener_, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0 ||
      listen(listener_, 8) != 0) {
    throw std::runtime_error("cannot listen at the end of the line");
  }
  listening_ = std::thread([this] { Listen(); });
}

CuttingLine::~CuttingLine() {
  shutdown(listener_, SHUT_RDWR);
  listening_.join();
  close(listener_);
  for (std::thread& thread : threads_) {
    thread.join();
  }
}

void CuttingLine::Listen() {
  for (int program = 0; (program = accept(listener_, nullptr, nullptr)) >= 0;) {
    threads_.emplace_back([this, program] { Carry(program); });
  }
}

void CuttingLine::Carry(int program) {
  const int server = socket(AF_UNIX, SOCK_STREAM, 0);
  const sockaddr_un address = AddressOf(server_socket_);
  bool up = connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
  Buffer buffer{};
  bool cut = false;
  while (up) {
    std::array<pollfd, 2> ends{{{program, POLLIN, 0}, {server, POLLIN, 0}}};
    poll(ends.data(), ends.size(), -1);
    if (ends[0].revents != 0) {
      const std::string_view sent = Take(program, buffer);
      cut = sent.find("COMMIT") != std::string_view::npos && cut_next_.exchange(false);
      has_cut_ = has_cut_ || cut;
      up = (!cut || commit_reaches_the_server_) && Give(server, sent);
    }
    if (up && ends[1].revents != 0) {
      // By its answer the server has done the commit.
      const std::string_view answer = Take(server, buffer);
      up = !cut && Give(program, answer);
    }
  }
  close(program);
  close(server);
}

}  // namespace quorvane::test
