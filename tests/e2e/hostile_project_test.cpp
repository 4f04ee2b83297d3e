// A project file may come from a stranger. Whatever its texts hold, a build changes nothing but what is its own, and
// starts no program but the known tools.

#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <random>

#include "workshop.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

constexpr int kProjects = 100;  // of each seed

/// Stands for each outside tool: logs its call, and makes the file that the tool would make.
const QByteArray kFakeTool = R"sh(#!/bin/sh
name=${0##*/}
{ echo "$name"; for word; do echo "  $word"; done; } >> "@ROOT@/log"
last=; out=
for word; do [ "$last" = -o ] && out=$word; last=$word; done
case $name in
  dvdauthor)
    tr '<' '\n' < "$last" | grep -E '(file|palette)="([^"]*\|"|[^/"])' >> "@ROOT@/alarm"
    dest=$(sed -n 's/.*<dvdauthor dest="\([^"]*\)".*/\1/p' "$last" | tail -n 1)
    [ -n "$dest" ] && mkdir -p "$dest/VIDEO_TS" && cd "$dest/VIDEO_TS" && perl -e '
      sub put { my ($name, $bytes) = @_; open(my $file, ">", $name) or die; print $file $bytes; }
      for my $end ("IFO", "BUP") {
        put("VIDEO_TS.$end", pack("a12 N x46 n x1984", "DVDVIDEO-VMG", 31, 1));
        put("VTS_01_0.$end", pack("a12 N x2032", "DVDVIDEO-VTS", 2));
      }
      put("VTS_01_1.VOB", "f" x 2048)' ;;
  genisoimage) perl -e 'print "\0" x 32768, pack("C a5 x74 V x44 v x1918", 1, "CD001", 20, 2048), "\0" x 6144' > "$out" ;;
  spumux) cat; echo "INFO: 1 subtitles added, 0 subtitles skipped" >&2 ;;
  png2yuv|jpeg2yuv) echo x ;;
  mpeg2enc) { cat; printf '\000\000\001\267'; } > "$out" ;;
  *) [ -n "$out" ] && printf 'x\000\000\001\271' > "$(printf %s "$out" | sed 's/%%/%/g')" ;;
esac
exit 0
)sh";

/// Every file below a directory with what it holds.
QMap<QString, QByteArray> Contents(const QString& dir) {
  QMap<QString, QByteArray> contents;
  QDirIterator files(dir, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                     QDirIterator::Subdirectories);
  while (files.hasNext()) {
    const QString path = files.next();
    const QFileInfo info(path);
    QFile file(path);
    contents[path] = info.isDir()                     ? QByteArray("directory")
                     : info.isSymLink()               ? info.symLinkTarget().toUtf8()
                     : file.open(QIODevice::ReadOnly) ? file.readAll()
                                                      : QByteArray("unreadable");
  }
  return contents;
}

void MakeProgram(const QString& path, const QByteArray& text) {
  Put(path, text);
  EXPECT_TRUE(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

/// A place to build in, with things around it that no build may touch.
class Fortress {
 public:
  explicit Fortress(unsigned seed) : random_(seed) {
    for (const QString& dir : {u"tools"_s, u"around"_s, u"around/deep"_s}) EXPECT_TRUE(QDir(shop_.Dir()).mkpath(dir));
    for (const QString& file : {u"around/film.m2v"_s, u"around/a.mpg"_s, u"around/deep/keep.xml"_s})
      Put(At(file), "mine");
    Put(At(u"film.srt"_s), "1\n00:00:01,000 --> 00:00:02,000\nHello\n");
    MakeProgram(At(u"around/evil"_s), "#!/bin/sh\necho evil >> \"" + At(u"alarm"_s).toUtf8() + "\"\n");
    for (const QString& tool : {u"dvdauthor"_s, u"spumux"_s, u"mplex"_s, u"mpeg2enc"_s, u"png2yuv"_s, u"jpeg2yuv"_s,
                                u"genisoimage"_s, u"ffmpeg"_s}) {
      MakeProgram(At(u"tools/"_s + tool), QByteArray(kFakeTool).replace("@ROOT@", shop_.Dir().toUtf8()));
    }
    base_ = QString::fromUtf8(shop_.project.Text());
    // What the sample lacks.
    const QString extra =
        u"<NODE Caption=\"AudioDelay=20\" Key=\"FPAD1\" Tag=\"\" Image=\"1\" ParentKey=\"FP1\"/>"
        u"<NODE Caption=\"SubColors=1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16\" Key=\"FPS1\" Tag=\"\" Image=\"1\"/>"
        u"<NODE Caption=\"SubTitel1=C:\\Torvane\\Sample\\film.srt\" Key=\"FP1S1\" Tag=\"\" Image=\"1\"/>"
        u"<NODE Caption=\"SubFormatStr1=UTF-8/28.0/arial.ttf/center/bottom/60/60/30/30/25/25/720/576\" "
        u"Key=\"FP1SF1\" Tag=\"0\" Image=\"1\"/>"
        u"<NODE Caption=\"LanguageTags=en de    \" Key=\"FPLang1\" Tag=\"\" Image=\"1\"/>"
        u"<NODE Caption=\"Pre Action=g1=0;\" Key=\"FPPreAct1\" Tag=\"\" Image=\"1\"/>"
        u"<NODE Caption=\"Post Action=call vmgm menu;\" Key=\"FPPostAct1\" Tag=\"\" Image=\"1\"/>"_s;
    base_.insert(base_.indexOf(u"<NODE Caption=\"Chapters="_s), extra);
    base_.insert(base_.indexOf(u"<NODE"_s, base_.indexOf(u"Key=\"MMBG\""_s)),
                 u"<NODE Caption=\"Audio=C:\\Torvane\\Sample\\film1.ac3\" Key=\"MMBGAudio\" Tag=\"\" Image=\"1\"/>"
                 u"<NODE Caption=\"Pause=inf\" Key=\"MMBGPause\" Tag=\"\" Image=\"1\"/>"
                 u"<NODE Caption=\"PreAction=g1=0;\" Key=\"MMBGPreAction\" Tag=\"\" Image=\"1\"/>"
                 u"<NODE Caption=\"PostAction=g1=0;\" Key=\"MMBGPostAction\" Tag=\"\" Image=\"1\"/>"_s);
    static const QRegularExpression kValue(u" (Caption|Key|Tag|[A-Z0-9_]{4,})=\"([^\"]*)\""_s);
    for (const auto& match : kValue.globalMatch(base_)) {
      values_ << match;
      // What stands in generated lines is worth more attempts, each kind as many.
      static const QRegularExpression kWritten(
          u"^(Video|Audio\\d?|SubTitel1|SubFormatStr1|LanguageTags|AudioDelay|Name|Chapters|Pause|\\w* "
          u"?Action|PreCommand|"
          u"Type)="_s);
      const QRegularExpressionMatch label = kWritten.match(match.captured(2));
      if (match.captured(1) == u"Caption" && label.hasMatch()) written_[label.captured(1)] << match;
    }
    EXPECT_GE(written_.size(), 15);
  }

  QString At(const QString& name) const { return shop_.Dir() + u'/' + name; }

  /// Builds a project with one hostile text and returns what it did that it must not, "" for nothing. Without a text it
  /// is the base.
  QString Build(const QString& text) {
    EXPECT_TRUE(QDir(shop_.OutDir()).removeRecursively() && QDir(shop_.TempDir()).removeRecursively());
    EXPECT_TRUE(QDir().mkpath(shop_.OutDir()) && QDir().mkpath(shop_.TempDir()));
    for (const QString& name : {u"alarm"_s, u"log"_s}) QFile::remove(At(name));
    QFile::remove(shop_.IsoFile());
    Put(shop_.ProjectFile(), text.toUtf8());
    const QMap<QString, QByteArray> before = Around();
    QProcess build;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"PATH"_s, At(u"tools"_s) + u":/usr/bin:/bin"_s);
    environment.insert(u"TORVANE_DRIVE_C"_s, At(u"around"_s));
    build.setProcessEnvironment(environment);
    build.setStandardInputFile(QProcess::nullDevice());
    build.setWorkingDirectory(At(u"around/deep"_s));
    build.start(QStringLiteral(TORVANE_BIN_DIR "/torvane-cli"), shop_.CommandLine({u"build"_s, shop_.ProjectFile()}));
    if (!build.waitForFinished(120'000)) return u"it does not end"_s;
    words_ = build.readAllStandardOutput() + build.readAllStandardError();
    if (build.exitStatus() != QProcess::NormalExit) return u"it crashed"_s;
    built_ = build.exitCode() == 0;
    if (QFile::exists(At(u"alarm"_s)) && !ContentOf(At(u"alarm"_s)).isEmpty()) {
      return u"a foreign program was started or named: "_s + QString::fromUtf8(ContentOf(At(u"alarm"_s)));
    }
    const QMap<QString, QByteArray> after = Around();
    for (auto file = after.cbegin(); file != after.cend(); ++file) {
      if (!before.contains(file.key())) return u"it made "_s + file.key();
      if (before[file.key()] != file.value()) return u"it changed "_s + file.key();
    }
    for (const QString& file : before.keys()) {
      if (!after.contains(file)) return u"it deleted "_s + file;
    }
    return {};
  }

  /// The base with one of its texts made hostile.
  QString Hostile() {
    const QList<QRegularExpressionMatch>& from =
        Below(4) == 0 ? values_ : *std::next(written_.cbegin(), Below(int(written_.size())));
    const QRegularExpressionMatch& match = from[Below(int(from.size()))];
    const QString value = match.captured(2);
    const qsizetype label = value.indexOf(u'=') + 1;
    const QString attack = Attack();
    const QString hostile = Below(3) == 0 ? value + attack : value.left(label) + attack;
    QString escaped = hostile.toHtmlEscaped();
    escaped.replace(u'\r', u"&#13;"_s).replace(u'\n', u"&#10;"_s);
    QString text = base_;
    return text.replace(match.capturedStart(2), match.capturedLength(2), escaped);
  }

  const QString& Base() const { return base_; }
  bool Built() const { return built_; }
  std::string Words() const { return words_.toStdString(); }

 private:
  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(random_); }

  QString Attack() {
    const QString evil = At(u"around/evil"_s);
    const QString file = At(u"around/film.m2v"_s);
    const QString made = At(u"around/made"_s);
    const QStringList separators{u"\" & "_s, u"\" | "_s, u"\" && "_s,  u"\" || "_s,    u"^\" & "_s, u"\r\n"_s,
                                 u"\n"_s,    u" & "_s,   u"\"\" & "_s, u"\" ) & ( "_s, u"%\" & "_s, u"\"/><!-- "_s};
    const QStringList orders{u"Z:"_s + evil,
                             evil,
                             u"C:\\evil"_s,
                             u"Z:/usr/bin/touch Z:"_s + made,
                             u"erase \"Z:"_s + file + u"\" /q",
                             u"erase C:\\*.* /q"_s,
                             u"echo x > \"Z:"_s + made + u'"',
                             u"copy C:\\film.m2v C:\\made"_s,
                             u"mkdir C:\\made"_s};
    const QStringList others{u"\" > \"Z:"_s + made,
                             u"\" >> \"Z:"_s + file,
                             u"\" < \"Z:"_s + file,
                             u"\" -o \"Z:"_s + made,
                             file,
                             u"Z:"_s + file,
                             u"C:\\film.m2v"_s,
                             u"..\\around\\a"_s,
                             u"../around/a"_s,
                             u"..\\..\\around\\film"_s,
                             u"around\\..\\..\\made"_s,
                             evil + u'|',
                             evil + u" |"_s,
                             u"&3"_s,
                             u"-"_s,
                             u"-o"_s,
                             u"*"_s,
                             u"?"_s,
                             u"*.*"_s,
                             u"intro"_s,
                             u"EmptyBackg"_s,
                             u"MMMenu"_s,
                             u"mmbackg"_s,
                             u"nul"_s,
                             u"%PATH%"_s,
                             u"%CD%"_s,
                             u"!PATH!"_s,
                             u"^"_s,
                             u"%0"_s,
                             u"\\\\host\\share\\x"_s,
                             u"\"/><vob file=\""_s + evil + u"|"_s,
                             u"\"/><vob file=\"-"_s,
                             u"0\" palette=\""_s + evil + u"|"_s,
                             u"exit;</button></pgc><vob file=\""_s + evil + u"|\"/>"_s,
                             u"--><vob file=\""_s + evil + u"|\"/><!--"_s,
                             u"</pre></pgc></menus></vmgm></dvdauthor><dvdauthor dest=\""_s + made + u"\">"_s,
                             u"\"><dvdauthor dest=\""_s + made,
                             u"<!DOCTYPE x>"_s,
                             u"]]>"_s,
                             u""_s,
                             u" "_s,
                             QString(5000, u'a')};
    if (Below(2) == 0) return others[Below(int(others.size()))];
    return separators[Below(int(separators.size()))] + orders[Below(int(orders.size()))] +
           (Below(2) == 0 ? u" & rem "_s : u" \""_s);
  }

  /// All but what the build may write: its two directories, the image and the user's own store.
  QMap<QString, QByteArray> Around() const {
    QMap<QString, QByteArray> contents = Contents(shop_.Dir());
    const QStringList own{shop_.OutDir(), shop_.TempDir(), shop_.IsoFile(), At(u"log"_s), At(u"alarm"_s)};
    contents.removeIf([&](const auto& file) {
      return std::ranges::any_of(
          own, [&](const QString& path) { return file.key() == path || file.key().startsWith(path + u'/'); });
    });
    return contents;
  }

  Workshop shop_;
  std::mt19937 random_;
  QString base_;
  QList<QRegularExpressionMatch> values_;
  QMap<QString, QList<QRegularExpressionMatch>> written_;
  QByteArray words_;
  bool built_ = false;
};

/// The seed. TORVANE_HOSTILE_SECONDS and TORVANE_HOSTILE_SEED run it for longer, with other texts.
class HostileProjectTest : public testing::TestWithParam<int> {};

TEST_P(HostileProjectTest, HarmsNothing) {
  const int seconds = qEnvironmentVariableIntValue("TORVANE_HOSTILE_SECONDS");
  Fortress fortress(unsigned(GetParam() + qEnvironmentVariableIntValue("TORVANE_HOSTILE_SEED")));
  ASSERT_EQ(fortress.Build(fortress.Base()), QString());
  ASSERT_TRUE(fortress.Built()) << fortress.Words();

  QElapsedTimer clock;
  clock.start();
  int projects = 0;
  int built = 0;
  for (; seconds > 0 ? clock.elapsed() < seconds * 1000LL : projects < kProjects; ++projects) {
    const QString text = fortress.Hostile();
    const QString harm = fortress.Build(text);
    ASSERT_EQ(harm.toStdString(), "") << "project " << projects << '\n' << fortress.Words() << text.toStdString();
    built += fortress.Built();
  }
  printf("%d projects, %d of them built\n", projects, built);
  EXPECT_GT(built, 0);
  EXPECT_LT(built, projects);
}

INSTANTIATE_TEST_SUITE_P(Of, HostileProjectTest, testing::Values(0, 1000));

}  // namespace
}  // namespace torvane::test
