#include "core/settings_defaults.h"

#include <optional>

#include "core/messages.h"
#include "core/program.h"
#include "core/settings_store.h"
#include "core/settings_table.h"
#include "core/text.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kLowestBackButtonNtsc = 450;

void StripTrailingBackslash(QString& path) {
  if (path.endsWith(u'\\')) path.chop(1);
}

/// Completes the settings of one start, step by step in the order in which they need each other.
class Start {
 public:
  Start(const StartOptions& options, Prompter& prompter)
      : options_(options), prompter_(prompter), writableDir_(WritableProgramDir(options.appPath)) {}

  Settings Run() {
    settings_.AppPath = options_.appPath;
    CollectTexts();
    ReadSettingsButMasks(texts_, settings_);
    SetLanguage(settings_.LangID);
    ChooseOutDir();
    ChooseTempDir();
    WarnOfFilesInTempDir();
    ChooseTools();
    ChooseSourceDirs();
    ReadMaskSettings(texts_, settings_);
    ChooseFonts();
    settings_.LastImageSize = settings_.ARPreset;
    settings_.ActiveRasterX = settings_.RasterX;
    settings_.ActiveRasterY = settings_.RasterY;
    FollowVideoNorm(settings_);
    if (!settings_.VideoNormPal && settings_.BackButtonYpos > kLowestBackButtonNtsc) {
      settings_.BackButtonYpos = kLowestBackButtonNtsc;
    }
    ApplyNoMenus(settings_);
    if (!HostFiles::FileExists(settings_.IntroMovie)) settings_.UseIntro = false;
    return settings_;
  }

 private:
  void CollectTexts() {
    const SettingsStore store(options_.profileDir);
    Result<SettingTexts> stored = store.Read();
    if (stored) {
      texts_ = std::move(*stored);
    } else {
      prompter_.Warn(stored.Error());
    }
    for (const SettingOverride& given : options_.overrides) {
      const SettingRow* row = FindSetting(given.key);
      texts_.insert(given.key, row ? SettingTextOf(*row, given.value) : given.value);
    }
    if (Given(u"TempDir"_s) && !Given(u"TempOutDir"_s)) texts_.insert(u"TempOutDir"_s, u"0"_s);
  }

  /// A directory that is given stays as it is given, there or not: a run makes it or is refused.
  void ChooseOutDir() {
    QString& outDir = settings_.OutDir;
    if (outDir.isEmpty()) outDir = DefaultOutDir();
    if (outDir.isEmpty()) {
      outDir = writableDir_ + u"\\OutDir"_s;
      HostFiles::MakeDir(outDir);
    }
    StripTrailingBackslash(outDir);
  }

  static QString DefaultOutDir() {
    QString documents = DocumentsDir();
    if (documents.isEmpty()) return {};
    StripTrailingBackslash(documents);
    const QString dir = documents + u"\\TVNOutDir"_s;
    return HostFiles::MakeDir(dir) ? dir : QString();
  }

  void ChooseTempDir() {
    QString& tempDir = settings_.TempDir;
    if (settings_.TempOutDir) {
      tempDir = settings_.OutDir + u"\\Temp"_s;
      if (HostFiles::DirExists(settings_.OutDir)) HostFiles::MakeDir(tempDir);
    } else if (tempDir.isEmpty()) {
      tempDir = writableDir_ + u"\\Temp"_s;
      HostFiles::MakeDir(tempDir);
    }
    StripTrailingBackslash(tempDir);
  }

  void WarnOfFilesInTempDir() {
    if (!settings_.AutoDelete || HostFiles::FileNames(settings_.TempDir).isEmpty()) return;
    QStringList lines;
    for (const int message : {376, 377, 378, 379}) lines += GetMessage(message, {{u"|1", settings_.TempDir}});
    prompter_.Warn(lines.join(u"\r\n"_s));
  }

  void ChooseTools() {
    if (!HostFiles::DirExists(settings_.DvdAuthorPath)) settings_.DvdAuthorPath = settings_.AppPath;
    if (settings_.ExternalViewer.isEmpty()) settings_.ExternalViewer = settings_.AppPath + u"\\TVNDSView.exe"_s;
    settings_.ViewerName = CheckViewer(settings_.ExternalViewer);
    if (!settings_.DVDViewer.isEmpty()) settings_.DVDViewerName = CheckViewer(settings_.DVDViewer);
  }

  QString CheckViewer(const QString& viewer) {
    if (options_.viewerCheck == ViewerCheck::Tell && !HostFiles::FileExists(viewer)) {
      prompter_.Warn(GetMessage(100, {{u"|1", viewer}}));
    }
    return SplitFileName(viewer).name;
  }

  void ChooseSourceDirs() {
    const QString documents = DocumentsDir();
    QString& inDir = settings_.InDir;
    if (inDir.isEmpty()) inDir = documents;
    if (!HostFiles::DirExists(inDir)) inDir = settings_.AppPath;
    StripTrailingBackslash(inDir);
    for (QString* dir : {&settings_.OwnDir, &settings_.OwnAudioDir}) {
      if (dir->isEmpty()) *dir = documents.isEmpty() ? inDir : documents;
      StripTrailingBackslash(*dir);
    }
    if (settings_.OwnGifMaskDir.isEmpty()) settings_.OwnGifMaskDir = settings_.AppPath + u"\\GifMask"_s;
    StripTrailingBackslash(settings_.OwnGifMaskDir);
    if (settings_.TVNLogFile.isEmpty()) settings_.TVNLogFile = writableDir_ + u"\\tvn.log"_s;
  }

  void ChooseFonts() {
    const auto takeDefault = [this](const QString& key, FontRecord& font) {
      if (texts_.value(key).isEmpty()) font = settings_.DefaultFont;
    };
    takeDefault(u"ArtistFont"_s, settings_.ArtistFont);
    takeDefault(u"AlbumFont"_s, settings_.AlbumFont);
    takeDefault(u"TitleFont"_s, settings_.TitleFont);
  }

  /// The value that the last override gives to a key, as it was typed.
  std::optional<QString> Given(const QString& key) const {
    std::optional<QString> value;
    for (const SettingOverride& given : options_.overrides) {
      if (given.key == key) value = given.value;
    }
    return value;
  }

  const StartOptions& options_;
  Prompter& prompter_;
  const QString writableDir_;
  SettingTexts texts_;
  Settings settings_;
};

}  // namespace

Settings LoadSettings(const StartOptions& options, Prompter& prompter) {
  return Start(options, prompter).Run();
}

}  // namespace torvane
