#pragma once

#include <cstdint>
#include <vector>

namespace torvane {

/// Who is told of something, in the order in which they came.
///
/// Observers may come and leave at any time, also from inside a notice:
///  - Who leaves hears nothing more, not even the notice under way. It may leave by itself or be taken out by another,
///    and may be deleted as soon as it has left, in its own notice too.
///  - Who comes hears nothing of the notice under way, and nothing of the second half of a pair that began before.
///  - Who leaves and comes again counts as new.
/// Who sends the notices must outlive them.
template <class Observer>
class ObserverList {
 public:
  /// Tells those who had come by then from those who came later.
  using Moment = std::uint64_t;

  void Add(Observer* observer) { entries_.push_back({observer, ++came_}); }
  void Remove(const Observer* observer) {
    for (Entry& entry : entries_) {
      if (entry.observer == observer) entry.observer = nullptr;
    }
    Sweep();
  }

  Moment Now() const { return came_; }
  /// True inside a notice.
  bool IsTelling() const { return depth_ > 0; }

  /// Calls `notice(observer)` for everybody who had come by the moment and has not left.
  template <class Notice>
  void Tell(Moment moment, const Notice& notice) {
    ++depth_;
    // By index, since an observer that comes may move the entries.
    for (std::size_t i = 0; i < entries_.size() && entries_[i].number <= moment; ++i) {
      if (entries_[i].observer) notice(*entries_[i].observer);
    }
    --depth_;
    Sweep();
  }

 private:
  struct Entry {
    Observer* observer;  ///< null once it has left
    Moment number;       ///< rises from entry to entry
  };

  void Sweep() {
    if (depth_ == 0) std::erase_if(entries_, [](const Entry& entry) { return !entry.observer; });
  }

  std::vector<Entry> entries_;
  Moment came_ = 0;
  int depth_ = 0;
};

}  // namespace torvane
