#pragma once

#include <QString>
#include <optional>
#include <utility>

namespace torvane {

/// A failure: a text fit for the user, which names the file or node and what to do.
struct Failure {
  QString text;
  bool operator==(const Failure&) const = default;
};

/// What a function that can fail returns: a value, or a failure. No exception crosses a room.
template <class T>
class [[nodiscard]] Result {
 public:
  Result(T value) : value_(std::move(value)) {}                 // NOLINT(google-explicit-constructor)
  Result(Failure failure) : failure_(std::move(failure.text)) {}  // NOLINT(google-explicit-constructor)

  explicit operator bool() const { return value_.has_value(); }
  const T& operator*() const { return *value_; }
  T& operator*() { return *value_; }
  const T* operator->() const { return &*value_; }
  T* operator->() { return &*value_; }
  const QString& Error() const { return failure_; }

 private:
  std::optional<T> value_;
  QString failure_;
};

/// The same for a function without a value: true when it did its work.
template <>
class [[nodiscard]] Result<void> {
 public:
  Result() = default;
  Result(Failure failure) : ok_(false), failure_(std::move(failure.text)) {}  // NOLINT(google-explicit-constructor)

  explicit operator bool() const { return ok_; }
  const QString& Error() const { return failure_; }

 private:
  bool ok_ = true;
  QString failure_;
};

using Status = Result<void>;

}  // namespace torvane
