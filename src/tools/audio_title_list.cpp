#include "tools/audio_title_list.h"

#include <algorithm>
#include <utility>

#include "core/engine.h"
#include "core/messages.h"
#include "core/text.h"
#include "media/audio_info_line.h"
#include "media/media_advice.h"
#include "platform/host_files.h"
#include "tools/title_pattern.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kDvdFrequency = 48000;
constexpr int kWavFrequency = 96000;
constexpr double kPictureBytesASecond = 4700;
constexpr double kPictureBytes = 200000;

bool IsWrong(const QString& path, const AudioFileLine& file) {
  if (!file.Known) return true;
  const bool isFastWav = GetExtensionUpper(path) == u"WAV" && file.Info.SampleFreq == kWavFrequency;
  return file.Info.SampleFreq != kDvdFrequency && !isFastWav;
}

/// Bytes that a title takes with its picture.
int SizeOnDisc(const QString& path, const AudioFileLine& file) {
  return RoundToInt(file.Info.AudioSeconds * kPictureBytesASecond + kPictureBytes +
                    double(HostFiles::FileSizeOf(path).value_or(0)));
}

QString OrElse(const QString& text, const QString& absent) {
  return text.isEmpty() ? absent : text;
}

}  // namespace

AudioTitleList::AudioTitleList(const Settings& settings, Prompter& prompter)
    : Layout(DefaultAudioLayout(settings)), settings_(settings), prompter_(prompter) {
  Fields.Chapters = settings.DefAudioTSType == 1;
}

AudioTitleList::AudioTitleList(const AudioTitleStore& store, const Settings& settings, Prompter& prompter)
    : Layout(store.Layout), settings_(settings), prompter_(prompter), store_(store) {
  Fields.AudiotitlesetName = store.Name;
  Fields.Chapters = store.AudioTSLayoutType == u"1";
  for (const AudioTitle& title : store.Titles) rows_.push_back({.Title = title});
  if (!rows_.empty()) audioKind_ = KindOf(rows_.front().Title.File);
  CheckFiles();
}

QString AudioTitleList::NumberText(int row) {
  return QString::number(row + 1).rightJustified(2, u'0');
}

AudioTitleList::Kind AudioTitleList::KindOf(const QString& path) {
  const QString extension = GetExtensionUpper(path);
  return extension == u"AC3" ? Kind::Ac3 : extension == u"WAV" ? Kind::Wav : Kind::Mpeg;
}

bool AudioTitleList::Refuses(const QString& path) const {
  const QString extension = GetExtensionUpper(path);
  const bool isKnown = extension == u"AC3" || extension == u"MP2" || extension == u"MPA" || extension == u"WAV";
  return audioKind_ != Kind::None && isKnown && KindOf(path) != audioKind_;
}

bool AudioTitleList::Contains(const QString& path) const {
  return std::any_of(rows_.begin(), rows_.end(), [&](const AudioTitleRow& row) { return row.Title.File == path; });
}

void AudioTitleList::AddFiles(const QString& dir, const QStringList& names) {
  if (rows_.size() >= kMaxAudioTitles) {
    prompter_.Inform(GetMessage(674));
    return;
  }
  const QString image = OrElse(Fields.Image, settings_.AppPath + u"\\default.jpg");
  bool refused = false;
  bool full = false;
  for (const QString& name : names) {
    const QString path = dir.endsWith(u'\\') ? QString(dir + name) : QString(dir + u'\\' + name);
    if (Refuses(path)) {
      refused = true;
      continue;
    }
    if (Contains(path)) continue;
    AddRow(path, image);
    full = rows_.size() == kMaxAudioTitles;
    if (full) break;
  }
  if (refused) prompter_.Inform(GetMessage(675));
  if (full) prompter_.Inform(GetMessage(674));
  if (!rows_.empty()) Select(int(rows_.size()) - 1);
}

void AudioTitleList::AddRow(const QString& path, const QString& image) {
  if (audioKind_ == Kind::None) audioKind_ = KindOf(path);
  const AudioFileLine file = DescribeAudioFile(path);
  AudioTitle title{path, {}, {}, {}, image, SizeOnDisc(path, file)};
  const QString name = TitleOfFile(path);
  if (Fields.UsePattern && name.contains(kPatternSeparator)) {
    const TitlePattern pattern = ParseTitlePattern(name);
    title.Artist = pattern.Author;
    title.Album = pattern.Album;
    const bool hasTrack = Fields.AddTrack && !pattern.Track.isEmpty();
    title.Title = hasTrack ? QString(u'#' + pattern.Track + u"  " + pattern.Title) : pattern.Title;
  } else {
    title.Artist = OrElse(Fields.Author, u"Artist"_s);
    title.Album = OrElse(Fields.Album, u"Album"_s);
    title.Title = name;
  }
  rows_.push_back({std::move(title), file.Text, IsWrong(path, file)});
}

void AudioTitleList::RemoveFiles(const QList<int>& rows) {
  std::vector<AudioTitleRow> kept;
  for (int i = 0; i < int(rows_.size()); ++i) {
    if (!rows.contains(i)) kept.push_back(std::move(rows_[i]));
  }
  rows_ = std::move(kept);
  Deselect();
  if (rows_.empty()) audioKind_ = Kind::None;
}

void AudioTitleList::RemoveAll() {
  rows_.clear();
  Deselect();
  audioKind_ = Kind::None;
}

void AudioTitleList::Deselect() {
  selected_ = -1;
  Fields.AudioFile.clear();
}

void AudioTitleList::Swap(int row, int other) {
  if (row < 0 || other < 0 || other >= int(rows_.size())) return;
  std::swap(rows_[row], rows_[other]);
  selected_ = other;
}

void AudioTitleList::MoveUp() {
  Swap(selected_, selected_ - 1);
}

void AudioTitleList::MoveDown() {
  Swap(selected_, selected_ + 1);
}

void AudioTitleList::Shuffle(const RandomSource& random) {
  const int count = int(rows_.size());
  if (count < 2) return;
  for (int row = 0; row < count; ++row) {
    AudioTitleRow moved = std::move(rows_[row]);
    rows_.erase(rows_.begin() + row);
    rows_.insert(rows_.begin() + random(count), std::move(moved));
  }
  Deselect();
}

void AudioTitleList::Select(int row) {
  if (row < 0 || row >= int(rows_.size())) return;
  selected_ = row;
  const AudioTitle& title = rows_[row].Title;
  Fields.AudioFile = title.File;
  Fields.Author = title.Artist;
  Fields.Album = title.Album;
  Fields.Title = title.Title;
  Fields.Image = title.Image;
}

void AudioTitleList::UpdateSelected() {
  if (selected_ < 0) return;
  AudioTitle& title = rows_[selected_].Title;
  title.Artist = Fields.Author;
  title.Album = Fields.Album;
  title.Title = Fields.Title;
}

void AudioTitleList::SetImage(const QString& path) {
  Fields.Image = path;
  if (selected_ >= 0) rows_[selected_].Title.Image = path;
}

void AudioTitleList::SetAllAuthor() {
  for (AudioTitleRow& row : rows_) row.Title.Artist = Fields.Author;
}

void AudioTitleList::SetAllAlbum() {
  for (AudioTitleRow& row : rows_) row.Title.Album = Fields.Album;
}

void AudioTitleList::SetAllImages() {
  for (AudioTitleRow& row : rows_) row.Title.Image = Fields.Image;
}

bool AudioTitleList::CheckFiles() {
  bool allFit = true;
  for (AudioTitleRow& row : rows_) {
    const AudioFileLine file = DescribeAudioFile(row.Title.File);
    row.Info = file.Text;
    row.Wrong = IsWrong(row.Title.File, file);
    allFit = allFit && !row.Wrong;
  }
  return allFit;
}

/// What stands against the first file of which no sound of a disc can come; "" where all is well.
QString AudioTitleList::FirstSoundFault() const {
  for (const AudioTitleRow& row : rows_) {
    if (const std::optional<Finding> fault = MediaFault(row.Title.File, MediaUse::Sound, settings_)) return fault->text;
  }
  return {};
}

bool AudioTitleList::TellOfActions() const {
  prompter_.Inform(u"User defined pre/post actions are only possible for audiotitlesets with chapters!"_s);
  return false;
}

bool AudioTitleList::MayEditActions() const {
  return Fields.Chapters || TellOfActions();
}

bool AudioTitleList::ChooseTitles() {
  Fields.Chapters = !store_.PreAction.isEmpty() || !store_.PostAction.isEmpty();
  return !Fields.Chapters || TellOfActions();
}

void AudioTitleList::SetActions(const QString& preAction, const QString& postAction, const QString& uop) {
  store_.PreAction = preAction;
  store_.PostAction = postAction;
  store_.UOP = uop;
}

std::optional<AudioTitleStore> AudioTitleList::Accept() {
  if (rows_.empty()) {
    prompter_.Inform(GetMessage(676));
    return std::nullopt;
  }
  if (!Fields.AudioFile.isEmpty()) UpdateSelected();
  const bool allFit = CheckFiles();
  const QString fault = FirstSoundFault();
  if (!allFit || !fault.isEmpty()) {
    prompter_.Inform(GetMessage(683));
    if (!fault.isEmpty()) prompter_.Fail(fault);
    return std::nullopt;
  }
  AudioTitleStore store = store_;
  store.Titles.clear();
  for (const AudioTitleRow& row : rows_) store.Titles.push_back(row.Title);
  store.Name = Fields.AudiotitlesetName;
  store.TotalSize = AudioTitlesMB(store.Titles);
  store.AudioTSLayoutType = Fields.Chapters ? u"1"_s : QString();
  store.Layout = Layout;
  return store;
}

QString AudioTitlePattern(int engine) {
  return engine == kEngineMuxMan ? u"*.MP2;*.AC3;*.MPA;*.WAV"_s : u"*.MP2;*.AC3;*.MPA"_s;
}

}  // namespace torvane
