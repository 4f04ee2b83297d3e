#include "compilers/film_check.h"

#include <gtest/gtest.h>

#include "support/drive_c.h"
#include "support/project_builder.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

/// Packs of 2048 bytes whose clocks, in seconds, are given.
QByteArray Packs(const QList<int>& seconds) {
  QByteArray stream;
  for (const int second : seconds) {
    const quint64 scr = quint64(second) * 90000;
    QByteArray pack("\x00\x00\x01\xBA", 4);
    pack += char(0x44 | (scr >> 27 & 0x38) | (scr >> 28 & 3));
    pack += char(scr >> 20 & 0xFF);
    pack += char((scr >> 12 & 0xF8) | 4 | (scr >> 13 & 3));
    pack += char(scr >> 5 & 0xFF);
    pack += char((scr << 3 & 0xF8) | 4);
    pack += char(1);
    stream += pack.leftJustified(2048, '\xFF');
  }
  return stream;
}

TEST(FilmCheck, TellsWhatFilmsDoNotGoTogether) {
  struct Case {
    bool noTitleSets;
    QStringList nodes;  ///< "key|caption", added to their film
    QList<Finding> findings;
  };
  const QString pal = u"|FPS=25"_s;
  const QString ntsc = u"|FPS=29.97"_s;
  const auto otherNorm = [](int film) {
    return Finding{
        Severity::Warning, u"FPVFps%1"_s.arg(film),
        u"Film %1 (Film%1) is NTSC, but the project is PAL: not every player and television shows both. Please "
        u"convert the film or change the norm of the project."_s.arg(film)};
  };
  const Finding norms{
      Severity::Error, u"FPVFps2"_s,
      u"Films 1 (Film1) and 2 (Film2) are of different norms, PAL and NTSC, which one titleset cannot hold. "
      u"Please switch titlesets on or convert one."_s};
  const Finding lines{
      Severity::Warning, u"FPVResV2"_s,
      u"Films 1 (Film1) and 2 (Film2) have different numbers of lines, 576 and 288, but share a titleset: "
      u"many players show one of them distorted. Please switch titlesets on or convert one."_s};
  const Finding aspects{
      Severity::Warning, u"FPVAspect2"_s,
      u"Films 1 (Film1) and 2 (Film2) have different aspects, 4:3 and 16:9, but share a titleset: one of "
      u"them is shown distorted. Please switch titlesets on or convert one."_s};
  const QString chapters = u"FPCH1|Chapters="_s + QStringList(100, u"00:00:00.000"_s).join(u',');
  const Case cases[] = {
      {true, {u"FPVFps1"_s + pal, u"FPVFps2|FPS=0"_s}, {}},
      {true, {u"FPVFps1"_s + pal, u"FPVFps2"_s + ntsc}, {norms}},
      {true, {u"FPVFps1|FPS=0"_s, u"FPVResV1|ResV=576"_s, u"FPVFps2|FPS=23.976"_s}, {norms}},
      {false, {u"FPVFps1"_s + pal, u"FPVFps2"_s + ntsc}, {otherNorm(2)}},
      {true, {u"FPVFps1"_s + ntsc, u"FPVFps2"_s + ntsc}, {otherNorm(1), otherNorm(2)}},
      {true, {u"FPVResV1|ResV=576"_s, u"FPVResV2|ResV=288"_s}, {lines}},
      {false, {u"FPVResV1|ResV=576"_s, u"FPVResV2|ResV=288"_s}, {}},
      {true, {u"FPVAspect1|Aspect=4:3"_s, u"FPVAspect2|Aspect=16:9"_s}, {aspects}},
      {false, {u"FPVAspect1|Aspect=4:3"_s, u"FPVAspect2|Aspect=16:9"_s}, {}},
      {true, {QString(chapters).chopped(13)}, {}},
      {true,
       {chapters},
       {{Severity::Error, u"FPCH1"_s,
         u"Film 1 (Film1) has 100 chapters; a title can have 99. Please take some out."_s}}},
  };
  for (const Case& c : cases) {
    Project project(test::FixedSettings());
    test::BuildTwoFilms(project);
    project.Settings.NoTitleSets = c.noTitleSets;
    for (const QString& node : c.nodes) {
      const QString key = node.section(u'|', 0, 0);
      if (!project.Tree.Contains(key)) test::AddNode(project, u"FPV"_s + key.back(), node);
      project.Tree.SetCaption(key, node.section(u'|', 1, 1));
    }
    EXPECT_EQ(FilmFindings(project), c.findings) << c.nodes.join(u' ').toStdString();
  }
}

TEST(FilmCheck, AClockThatStartsAgainIsTold) {
  const test::DriveC drive;
  Project project(test::FixedSettings());
  test::BuildTwoFilms(project);
  project.Tree.SetCaption(u"FPV1"_s, u"Video=C:\\a.vob"_s);
  const QList<int> half{1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
  for (const auto& [clocks, mux, found] :
       {std::tuple(half, 0, false), {half + half, 0, true}, {half + half, 1, false}, {half + half.first(5), 0, true}}) {
    drive.Write(u"a.vob"_s, Packs(clocks));
    project.Tree.SetCaption(u"FPMux1"_s, u"Mux=%1"_s.arg(mux));
    const QList<Finding> findings = FilmFindings(project);
    ASSERT_EQ(!findings.isEmpty(), found);
    if (!found) continue;
    EXPECT_EQ(findings[0].severity, Severity::Warning);
    EXPECT_TRUE(
        findings[0].text.startsWith(u"Film 1 (Film1): the clock of " + drive.Host(u"a.vob"_s) + u" starts again"));
  }
}

}  // namespace
}  // namespace torvane
