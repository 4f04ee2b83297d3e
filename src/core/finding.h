#pragma once

#include <QList>
#include <QString>

namespace torvane {

/// How grave a finding is: with an error no disc can be made, a warning tells of one that may not play as it should.
enum class Severity { Error, Warning, Note };

/// What a check of the project found, with the place to go to.
struct Finding {
  Severity severity = Severity::Error;
  QString key = {};  ///< of the node it is about; "" for the project as a whole
  QString text;      ///< a sentence fit for the user: what is wrong, with its name, and what to do
  bool operator==(const Finding&) const = default;
};

}  // namespace torvane
