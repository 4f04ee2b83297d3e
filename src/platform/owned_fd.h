#pragma once

#include <unistd.h>

#include <utility>

namespace torvane {

/// A file descriptor that is closed with its owner.
class OwnedFd {
 public:
  OwnedFd() = default;
  explicit OwnedFd(int fd) : fd_(fd) {}
  OwnedFd(OwnedFd&& other) noexcept : fd_(std::exchange(other.fd_, -1)) {}
  OwnedFd& operator=(OwnedFd&& other) noexcept {
    std::swap(fd_, other.fd_);
    return *this;
  }
  ~OwnedFd() {
    if (fd_ >= 0) close(fd_);
  }

  int Get() const { return fd_; }
  explicit operator bool() const { return fd_ >= 0; }

  /// Hands the descriptor over to the caller.
  int Release() { return std::exchange(fd_, -1); }

 private:
  int fd_ = -1;
};

}  // namespace torvane
