#include "core/recent_files.h"

#include <algorithm>
#include <utility>

#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kKeys = 10;

QString KeyOf(int index) { return u"MRUFILE%1"_s.arg(index); }

}  // namespace

RecentFiles::RecentFiles(SettingsStore store) : store_(std::move(store)) {
  const Result<SettingTexts> texts = store_.Read();
  if (!texts) return;
  for (int i = 0; i < kKeys && paths_.size() < kMost; ++i) {
    const QString path = texts->value(KeyOf(i));
    if (HostFiles::FileExists(path) && !paths_.contains(path, Qt::CaseInsensitive)) paths_ << path;
  }
}

Status RecentFiles::Add(const QString& path) {
  Drop(path);
  paths_.prepend(path);
  paths_.resize(std::min(paths_.size(), kMost));
  return store_.Write(Texts());
}

Status RecentFiles::Remove(const QString& path) {
  Drop(path);
  return store_.Write(Texts());
}

void RecentFiles::CopyTo(Settings& settings) const { ReadSettings(Texts(), settings); }

void RecentFiles::Drop(const QString& path) {
  paths_.removeIf([&path](const QString& each) { return each.compare(path, Qt::CaseInsensitive) == 0; });
}

SettingTexts RecentFiles::Texts() const {
  SettingTexts texts;
  for (int i = 0; i < kKeys; ++i) texts.insert(KeyOf(i), paths_.value(i));
  return texts;
}

}  // namespace torvane
