#include "core/film_record.h"

#include <algorithm>

#include "core/film_view.h"
#include "core/node_writer.h"
#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr double kHundredths = 100;

/// The nodes of one film, in their stored order.
class FilmNodes {
 public:
  explicit FilmNodes(int film) : film_(film) {}

  WantedNode Node(Attribute attribute, const QString& value, bool present = true) const {
    return {{.Key = FilmNodeKey(attribute, film_), .Caption = attribute.Label + value}, present};
  }
  WantedNode InPlace(Attribute attribute, const QString& value, bool present = true) const {
    WantedNode wanted = Node(attribute, value, present);
    wanted.node.Image = kInPlaceNode;
    return wanted;
  }

  std::vector<WantedNode> OfVideo(const FilmRecord& record) const {
    using namespace film_node;
    WantedNode duration = InPlace(film_node::Duration, record.Duration);
    duration.node.Tag = QString::number(RoundToInt(record.DurationSec * kHundredths));
    return {Node(VideoSize, QString::number(record.SizeMB)),
            InPlace(film_node::ResH, QString::number(record.ResH)),
            InPlace(film_node::ResV, QString::number(record.ResV)),
            InPlace(Fps, FormatNumberDot(static_cast<float>(record.FPS))),
            InPlace(film_node::Aspect, record.Aspect),
            duration,
            InPlace(film_node::ShrinkTo, QString::number(record.ShrinkTo), record.ShrinkTo != -1)};
  }

  std::vector<WantedNode> OfFilm(const FilmRecord& record, const QString& owner) const {
    using namespace film_node;
    WantedNode video = Node(Video, record.VideoFile);
    video.node.Tag = record.MpegVersion;
    video.node.Image = kVideoNode;
    std::vector<WantedNode> nodes{video};
    for (int stream = 1; stream <= kFilmStreams; ++stream) {
      const QString& path = record.Audio[stream - 1];
      nodes.push_back({{FilmAudioKey(film_, stream), FilmAudioLabel(stream) + path}, !path.isEmpty()});
    }
    nodes.push_back(Node(film_node::AudioDelay, QString::number(record.AudioDelay), record.AudioDelay != 0));
    nodes.push_back(Node(film_node::SubColors, record.SubColors, !record.SubColors.isEmpty()));
    nodes.push_back(Node(film_node::AddSubStream, QString::number(record.AddSubStream), record.AddSubStream != 0));
    for (int stream = 1; stream <= kFilmStreams; ++stream) AppendSubtitle(record, stream, nodes);
    nodes.push_back(Node(film_node::Chapters, record.Chapters));
    nodes.push_back(Node(film_node::TotalSize, QString::number(record.TotalSize)));
    nodes.push_back(Node(film_node::LanguageTags, record.LanguageTags, !record.LanguageTags.isEmpty()));
    WantedNode mux = Node(film_node::Mux, QString::number(record.FilmMux));
    mux.node.Tag = QString::number(record.MuxOK);
    nodes.push_back(mux);
    WantedNode animated = Node(film_node::Animated, QString::number(record.Animated));
    animated.node.Tag = owner;
    nodes.push_back(animated);
    nodes.push_back(Node(film_node::PreAction, record.PreAction, !record.PreAction.isEmpty()));
    nodes.push_back(Node(film_node::PostAction, record.PostAction, !record.PostAction.isEmpty()));
    nodes.push_back(Node(film_node::UOP, record.UOP, !record.UOP.isEmpty() && record.UOP != u"0"));
    return nodes;
  }

 private:
  void AppendSubtitle(const FilmRecord& record, int stream, std::vector<WantedNode>& nodes) const {
    const QString& path = record.SubTitel[stream - 1];
    const bool present = !path.isEmpty();
    nodes.push_back({{FilmSubtitleKey(film_, stream), FilmSubtitleLabel(stream) + path}, present});
    NodeData format{FilmSubtitleFormatKey(film_, stream),
                    FilmSubtitleFormatLabel(stream) + record.SubFormatStr[stream - 1]};
    if (stream == 1) format.Tag = record.AutoStartSubs ? u"1"_s : u"0"_s;
    nodes.push_back({format, present});
  }

  int film_;
};

}  // namespace

bool IsMultiplexedFile(QStringView path) {
  const QString ending = path.last(std::min<qsizetype>(3, path.size())).toString().toUpper();
  return ending == u"MPG" || ending == u"VOB";
}

int AddFilmSubtree(Project& project, const FilmRecord& record, const QString& ownerMenu, int buttonNumber) {
  const int film = ++project.FilmCount;
  ++project.TitleSetCount;
  ProjectTree& tree = project.Tree;
  tree.Add({.Key = FilmKey(film), .Caption = u"Film%1"_s.arg(film), .Tag = ownerMenu});
  const QString head = FilmNodeKey(film_node::Name, film);
  tree.Add({.Key = head, .Caption = {}, .Tag = QString::number(buttonNumber), .Image = kHeadNode}, FilmKey(film),
           Relation::Child);
  const QString animated = FilmNodeKey(film_node::Animated, film);
  tree.Add({.Key = animated, .Caption = {}, .Tag = ownerMenu}, head, Relation::Child);
  WriteFilmNodes(tree, film, record);
  return film;
}

FilmRecord ReadFilmNodes(const ProjectTree& tree, int film) {
  const FilmView view(tree, film);
  const auto text = [&view](Attribute attribute) { return view.Text(attribute).value_or(QString()); };
  const auto number = [&text](Attribute attribute) { return ValToInt(text(attribute)); };

  FilmRecord record;
  record.Name = view.Name();
  record.VideoFile = view.Video();
  record.MpegVersion = view.Tag(film_node::Video);
  record.SizeMB = number(film_node::VideoSize);
  record.ResH = number(film_node::ResH);
  record.ResV = number(film_node::ResV);
  record.FPS = Val(text(film_node::Fps));
  record.Aspect = text(film_node::Aspect);
  record.Duration = text(film_node::Duration);
  record.DurationSec = Val(view.Tag(film_node::Duration)) / kHundredths;
  if (const auto shrink = view.Text(film_node::ShrinkTo)) record.ShrinkTo = ValToInt(*shrink);
  for (int stream = 1; stream <= kFilmStreams; ++stream) {
    record.Audio[stream - 1] = view.Audio(stream).value_or(QString());
    record.SubTitel[stream - 1] = view.Subtitle(stream).value_or(QString());
    record.SubFormatStr[stream - 1] = view.SubtitleFormat(stream);
  }
  record.AudioDelay = number(film_node::AudioDelay);
  record.SubColors = text(film_node::SubColors);
  record.AddSubStream = number(film_node::AddSubStream);
  record.AutoStartSubs = view.StartsWithSubtitle();
  if (const auto chapters = view.Text(film_node::Chapters)) record.Chapters = *chapters;
  record.TotalSize = number(film_node::TotalSize);
  record.LanguageTags = text(film_node::LanguageTags);
  record.FilmMux = number(film_node::Mux);
  record.MuxOK = ValToInt(view.Tag(film_node::Mux));
  record.Animated = number(film_node::Animated);
  record.PreAction = text(film_node::PreAction);
  record.PostAction = text(film_node::PostAction);
  record.UOP = text(film_node::UOP);
  return record;
}

void WriteFilmNodes(ProjectTree& tree, int film, const FilmRecord& record) {
  const QString head = FilmNodeKey(film_node::Name, film);
  const FilmNodes nodes(film);
  tree.SetCaption(head, film_node::Name.Label + record.Name);
  WriteChildren(tree, head, nodes.OfFilm(record, FilmView(tree, film).Tag(film_node::Animated)));
  WriteChildren(tree, FilmNodeKey(film_node::Video, film), nodes.OfVideo(record));
}

}  // namespace torvane
