#include "cli/project_info.h"

#include "compilers/project_findings.h"
#include "core/audio_title_set.h"
#include "core/engine.h"
#include "core/film_view.h"
#include "core/menu_view.h"
#include "core/size_bar.h"
#include "designer/edit_context.h"
#include "designer/element_limits.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

QString FormatText(const Settings& settings) {
  return u"%1, %2, %3, %4%5%6"_s.arg(
      settings.NoTitleSets ? u"one titleset" : u"titlesets", settings.VideoNormPal ? u"PAL" : u"NTSC",
      settings.DefMenuRatio ? u"16:9" : u"4:3", settings.Engine == kEngineMuxMan ? u"MuxMan" : u"dvdauthor",
      settings.AnimatedMainMenu ? u", animated menus" : u"", settings.NoMenus ? u", no menus" : u"");
}

QString SizeText(const Project& project) {
  const int total = TotalSizeMB(project);
  const DiscSize disc = DiscOf(project.Settings);
  QStringList colors;
  for (const SizeBar::Segment& segment : MakeSizeBar(total, disc).segments) {
    const QStringView name = segment.color == SizeBar::kGreen ? u"green" : segment.color == SizeBar::kYellow ? u"yellow" : u"red";
    colors << u"%1 to %2"_s.arg(name, QString::number(segment.to, 'f', 3));
  }
  return u"Size: %1 MB\nSize bar: %2 disc, %3 of %4 pixels\n"_s.arg(total)
      .arg(disc == DiscSize::DualLayer ? u"dual-layer" : u"single-layer")
      .arg(colors.join(u", "))
      .arg(SizeBar::kWidth);
}

QString FilmText(const ProjectTree& tree, int number) {
  const FilmView film(tree, number);
  const auto text = [&film](Attribute attribute) { return film.Text(attribute).value_or(QString()); };
  const QString head = u"  F%1 \"%2\" %3 MB"_s.arg(number).arg(film.Name(), text(film_node::TotalSize));
  if (film.IsAudioTitleSet()) return head + u", audio titleset of %1 titles\n"_s.arg(text(film_node::AudioTitles));
  int audio = 0;
  for (int stream = 1; stream <= kFilmStreams; ++stream) audio += film.Audio(stream).has_value();
  const qsizetype chapters = film.Chapters().split(u',', Qt::SkipEmptyParts).size();
  return head + u", %1, %2x%3, %4 fps, %5, %6 chapters, %7 audio files, %8 subtitle files\n      %9\n"_s.arg(
                    text(film_node::Duration), text(film_node::ResH), text(film_node::ResV), text(film_node::Fps),
                    text(film_node::Aspect), QString::number(chapters), QString::number(audio),
                    QString::number(film.SubtitleCount()), film.Video());
}

QString MenuText(const MenuView& menu, const Settings& settings) {
  return u"  %1 \"%2\" %3, %4 buttons of %5, %6 labels, %7 images, %8 animations\n"_s.arg(menu.Key(), menu.Name())
      .arg(menu.IsWide(settings) ? u"16:9"_s : u"4:3"_s)
      .arg(menu.Buttons().size())
      .arg(ButtonLimit(menu, settings))
      .arg(menu.Labels().size())
      .arg(menu.Images().size())
      .arg(menu.Animations().size());
}

QString Findings(const Project& project) {
  QString text;
  for (const Finding& finding : ProjectFindings(project, PlanUse::Run)) {
    const QStringView mark = finding.severity == Severity::Error ? u"error: " : u"warning: ";
    text += u"  "_s + mark + finding.text + u'\n';
  }
  return text;
}

}  // namespace

QString ProjectInfo(const Project& project) {
  QString text = u"Project: %1\nFormat: %2\n"_s.arg(project.ProjectFile, FormatText(project.Settings));
  text += SizeText(project);
  text += u"Films: %1\n"_s.arg(project.FilmCount);
  for (int film = 1; film <= project.FilmCount; ++film) text += FilmText(project.Tree, film);
  text += u"Menus:\n"_s;
  for (const ProjectNode* root = project.Tree.FirstRoot(); root; root = root->Next()) {
    if (MenuOfNode(project.Tree, root->Key()).isEmpty()) continue;
    text += MenuText(MenuView(project.Tree, root->Key()), project.Settings);
  }
  const QString findings = Findings(project);
  return text + (findings.isEmpty() ? u"Findings: none\n"_s : QString(u"Findings:\n" + findings));
}

}  // namespace torvane
