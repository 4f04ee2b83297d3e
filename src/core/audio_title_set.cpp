#include "core/audio_title_set.h"

#include <numeric>

#include "core/film_view.h"
#include "core/node_writer.h"
#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

struct TextAttributes {
  Attribute font;
  Attribute color;
  Attribute xPos;
  Attribute yPos;
  AudioTextLayout AudioLayout::*layout;
};

constexpr TextAttributes kTexts[] = {
    {film_node::AuthorFont, film_node::AuthorColor, film_node::AuthorXPos, film_node::AuthorYPos, &AudioLayout::Author},
    {film_node::AlbumFont, film_node::AlbumColor, film_node::AlbumXPos, film_node::AlbumYPos, &AudioLayout::Album},
    {film_node::TitleFont, film_node::TitleColor, film_node::TitleXPos, film_node::TitleYPos, &AudioLayout::Title},
};

WantedNode Node(Attribute attribute, int film, const QString& value, bool present = true) {
  return {{.Key = FilmNodeKey(attribute, film), .Caption = attribute.Label + value}, present};
}

WantedNode TitleNode(const QString& title, Attribute attribute, const QString& value) {
  return {{.Key = title + attribute.Suffix, .Caption = attribute.Label + value}};
}

void WriteTitles(ProjectTree& tree, int film, const std::vector<AudioTitle>& titles) {
  std::vector<WantedNode> heads;
  for (int i = 1; i <= kMaxAudioTitles; ++i) {
    const bool present = i <= int(titles.size());
    const QString caption = present ? AudioTitleLabel(i) + titles[i - 1].Title : QString();
    heads.push_back({{AudioTitleKey(film, i), caption}, present});
  }
  WriteChildren(tree, FilmNodeKey(film_node::AudioTitles, film), heads);
  for (int i = 1; i <= kMaxAudioTitles && i <= int(titles.size()); ++i) {
    const AudioTitle& title = titles[i - 1];
    const QString key = AudioTitleKey(film, i);
    WriteChildren(
        tree, key,
        {TitleNode(key, audio_title_node::File, title.File), TitleNode(key, audio_title_node::Artist, title.Artist),
         TitleNode(key, audio_title_node::Album, title.Album), TitleNode(key, audio_title_node::Image, title.Image),
         TitleNode(key, audio_title_node::Size, QString::number(title.Size))});
  }
}

void WriteLayout(ProjectTree& tree, int film, const AudioLayout& layout) {
  std::vector<WantedNode> nodes;
  for (const TextAttributes& text : kTexts) {
    const AudioTextLayout& values = layout.*text.layout;
    nodes.push_back(Node(text.font, film, FormatFontString(values.Font)));
    nodes.push_back(Node(text.color, film, ColorToRGBString(values.Color)));
    nodes.push_back(Node(text.xPos, film, QString::number(values.XPos)));
    nodes.push_back(Node(text.yPos, film, QString::number(values.YPos)));
  }
  nodes.push_back(Node(film_node::AudioBlur, film, layout.UseBlur ? u"1"_s : u"0"_s));
  nodes.push_back(Node(film_node::AudioBlurX, film, QString::number(layout.BlurX)));
  nodes.push_back(Node(film_node::AudioBlurY, film, QString::number(layout.BlurY)));
  WriteChildren(tree, FilmNodeKey(film_node::AudioLayout, film), nodes);
}

AudioLayout ReadLayout(const FilmView& view) {
  const auto value = [&view](Attribute attribute) { return view.Text(attribute).value_or(QString()); };
  AudioLayout layout;
  for (const TextAttributes& text : kTexts) {
    layout.*text.layout = {ParseFontString(value(text.font)), RGBStringToColor(value(text.color)),
                           ValToInt(value(text.xPos)), ValToInt(value(text.yPos))};
  }
  layout.UseBlur = Val(value(film_node::AudioBlur)) != 0;
  layout.BlurX = ValToInt(value(film_node::AudioBlurX));
  layout.BlurY = ValToInt(value(film_node::AudioBlurY));
  return layout;
}

}  // namespace

AudioLayout DefaultAudioLayout(const Settings& settings) {
  return {.Author = {settings.ArtistFont, settings.ArtistColor, settings.ArtistXpos, settings.ArtistYpos},
          .Album = {settings.AlbumFont, settings.AlbumColor, settings.AlbumXpos, settings.AlbumYpos},
          .Title = {settings.TitleFont, settings.TitleColor, settings.TitleXpos, settings.TitleYpos},
          .UseBlur = settings.AudioTSBlur,
          .BlurX = settings.AudioTSBlurX,
          .BlurY = settings.AudioTSBlurY};
}

int AudioTitlesMB(const std::vector<AudioTitle>& titles) {
  const double bytes = std::accumulate(titles.begin(), titles.end(), 0.0,
                                       [](double sum, const AudioTitle& title) { return sum + title.Size; });
  return RoundToInt(bytes / 1048576.0);
}

int AddAudioTitleSetSubtree(Project& project, const AudioTitleStore& store, const QString& ownerMenu,
                            int buttonNumber) {
  const int film = ++project.FilmCount;
  ++project.TitleSetCount;
  ProjectTree& tree = project.Tree;
  tree.Add({.Key = FilmKey(film), .Caption = u"Film%1"_s.arg(film) + kAudioTitleSetMark, .Tag = ownerMenu});
  const QString head = FilmNodeKey(film_node::Name, film);
  tree.Add({.Key = head, .Caption = {}, .Tag = QString::number(buttonNumber), .Image = kHeadNode}, FilmKey(film),
           Relation::Child);
  tree.Add({.Key = FilmNodeKey(film_node::Animated, film), .Caption = {}, .Tag = ownerMenu}, head, Relation::Child);
  WriteAudioTitleSet(tree, film, store);
  return film;
}

AudioTitleStore ReadAudioTitleSet(const ProjectTree& tree, int film) {
  const FilmView view(tree, film);
  const auto text = [&view](Attribute attribute) { return view.Text(attribute).value_or(QString()); };

  AudioTitleStore store;
  store.Name = view.Name();
  for (int i = 1; i <= kMaxAudioTitles; ++i) {
    const QString key = AudioTitleKey(film, i);
    const ProjectNode* head = tree.Find(key);
    if (!head) break;
    const auto value = [&tree, &key](Attribute attribute) {
      const ProjectNode* node = tree.Find(key + attribute.Suffix);
      return node ? node->Value(attribute.Label.size()) : QString();
    };
    store.Titles.push_back({.File = value(audio_title_node::File),
                            .Artist = value(audio_title_node::Artist),
                            .Album = value(audio_title_node::Album),
                            .Title = head->Value(AudioTitleLabel(i).size()),
                            .Image = value(audio_title_node::Image),
                            .Size = ValToInt(value(audio_title_node::Size))});
  }
  store.AudioTSLayoutType = view.Tag(film_node::AudioLayout);
  store.Layout = ReadLayout(view);
  store.TotalSize = ValToInt(text(film_node::TotalSize));
  store.PreAction = text(film_node::PreAction);
  store.PostAction = text(film_node::PostAction);
  store.UOP = text(film_node::UOP);
  return store;
}

void WriteAudioTitleSet(ProjectTree& tree, int film, const AudioTitleStore& store) {
  const QString head = FilmNodeKey(film_node::Name, film);
  tree.SetCaption(head, film_node::Name.Label + store.Name);
  const QString count = QString::number(store.Titles.size());
  WantedNode titles = Node(film_node::AudioTitles, film, count);
  titles.node.Tag = count;
  WantedNode layout = Node(film_node::AudioLayout, film, {});
  layout.node.Tag = store.AudioTSLayoutType;
  WantedNode animated = Node(film_node::Animated, film, u"0"_s);
  animated.node.Tag = FilmView(tree, film).Tag(film_node::Animated);
  WriteChildren(tree, head,
                {titles, layout, Node(film_node::TotalSize, film, QString::number(store.TotalSize)), animated,
                 Node(film_node::PreAction, film, store.PreAction, !store.PreAction.isEmpty()),
                 Node(film_node::PostAction, film, store.PostAction, !store.PostAction.isEmpty()),
                 Node(film_node::UOP, film, store.UOP, !store.UOP.isEmpty() && store.UOP != u"0")});
  WriteTitles(tree, film, store.Titles);
  WriteLayout(tree, film, store.Layout);
}

}  // namespace torvane
