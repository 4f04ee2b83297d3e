#pragma once

#include <gtest/gtest.h>

#include "core/line_values.h"

namespace torvane::test {

/// The gate for a writer in a test; fails the test when a value is refused.
class Harmless {
 public:
  explicit Harmless(const Settings& settings) : values_(settings) {}
  ~Harmless() {
    for (const Finding& finding : values_.Refused()) ADD_FAILURE() << finding.text.toStdString();
  }
  operator LineValues&() { return values_; }  // NOLINT(google-explicit-constructor)

 private:
  LineValues values_;
};

}  // namespace torvane::test
