#include <QImage>
#include <QPainter>
#include <QtEndian>
#include <vector>

#include "console_fixture.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

/// Batches as a build generates them, run with the real tools.
class RealTools : public ConsoleTest {
 protected:
  /// The directory of the films and batches, a DOS path below C:\T with signs that tools like to stumble over.
  static QString Folder() { return u"Süße [1] & 100% 'x'"_s; }
  static QString Temp() { return u"C:\\T\\" + Folder(); }
  QString TempHost(const QString& name) const { return Host(Folder() + u'/' + name); }

  RealTools() { QDir().mkpath(TempHost(u"Out"_s)); }

  void WriteText(const QString& name, QString text) const {
    Write(Folder() + u'/' + name, text.replace(u"{T}"_s, Temp()).toUtf8());
  }

  QByteArray ReadText(const QString& name) const { return Read(Folder() + u'/' + name); }

  /// Runs a batch text through a file of the given name; "%" in the directory's name is doubled as in any batch line.
  std::string RunText(QString lines, const QString& name = u"step.bat"_s) const {
    Write(name, lines.replace(u"{T}"_s, Temp().replace(u'%', u"%%"_s)).toUtf8());
    return Run({u"/k"_s, name}).output;
  }

  void Draw(const QString& name, const std::vector<QRect>& rectangles, const QColor& background) const {
    QImage picture(720, 576, QImage::Format_ARGB32);
    picture.fill(background);
    QPainter painter(&picture);
    for (const QRect& rectangle : rectangles) painter.fillRect(rectangle, Qt::red);
    painter.end();
    picture.save(TempHost(name));
  }

  void WriteMenu() const {
    const std::vector<QRect> buttons{{100, 100, 200, 40}, {100, 200, 200, 40}};
    Draw(u"MMBackg.png"_s, {}, Qt::blue);
    Draw(u"MMHigh.png"_s, buttons, Qt::transparent);
    Draw(u"MMAct.png"_s, buttons, Qt::transparent);
    WriteText(u"MMSpu.xml"_s, Data(u"MMSpu.xml"_s));
  }

  /// A disc of one menu and two films, of which the first is the menu's picture and the second that or `film`. The
  /// commands `{button}`, `{post1}` and `{post2}` and other texts are changed first.
  void WriteAuthor(const QString& film, const QList<std::pair<QString, QString>>& changes = {}) const {
    QString text = Data(u"Author.xml"_s).replace(u"{film}"_s, film);
    for (const auto& [written, instead] : changes) text.replace(written, instead);
    text.replace(u"{button}"_s, u"g1=2;jump title 2;"_s).replace(u"{post1}"_s, u"call vmgm menu 1;"_s);
    WriteText(u"Author.xml"_s, text.replace(u"{post2}"_s, u"call vmgm menu 1;"_s));
    WriteText(u"Film.pal"_s, u"108080\r\n"_s.repeated(16));
  }

  /// Count of titles in the disc's table of titles.
  int Titles() const {
    const QByteArray ifo = ReadText(u"Out/DVD/VIDEO_TS/VIDEO_TS.IFO"_s);
    if (ifo.size() < 2048) return -1;
    const auto table = qsizetype(qFromBigEndian<quint32>(ifo.constData() + 0xC4)) * 2048;
    return table + 2 <= ifo.size() ? qFromBigEndian<quint16>(ifo.constData() + table) : -1;
  }
};

TEST_F(RealTools, SpumuxWithoutASubpictureFailsInItsOwnWords) {
  WriteMenu();
  RunText(Data(u"MakeMenu.bat"_s));
  QFile::remove(TempHost(u"MMHigh.png"_s));
  const std::string missing = RunText(Data(u"AddButtons.bat"_s));
  EXPECT_TRUE(Contains(missing, "ERR:  Unable to open file " + TempHost(u"MMHigh.png"_s).toStdString())) << missing;
  EXPECT_TRUE(missing.ends_with("\r\n*ERROR: spumux added no subpicture\r\n\r\nC:\\T>")) << missing;
  EXPECT_FALSE(QFile::exists(TempHost(u"MMMenu.mpg"_s)));

  QImage many(720, 576, QImage::Format_ARGB32);
  for (int y = 0; y < 576; ++y) {
    for (int x = 0; x < 720; ++x) many.setPixel(x, y, qRgb(x / 3, y / 3, 0));
  }
  many.save(TempHost(u"MMHigh.png"_s));
  const std::string colours = RunText(Data(u"AddButtons.bat"_s));
  EXPECT_TRUE(colours.ends_with("\r\n*ERROR: spumux was ended by signal 6 (Aborted)\r\n\r\nC:\\T>")) << colours;
  EXPECT_FALSE(QFile::exists(TempHost(u"MMMenu.mpg"_s)));

  WriteMenu();
  const std::string full = RunText(u"@spumux \"{T}\\MMSpu.xml\" <\"{T}\\MMBackg.mpg\" > Z:\\dev\\full\r\n"_s);
  EXPECT_TRUE(Contains(full, "ERR:  Write error 28 -- No space left on device\n\r\n*ERROR: spumux ended with status 1"))
      << full;
  EXPECT_TRUE(QFile::exists(u"/dev/full"_s));
}

TEST_F(RealTools, DvdauthorFailsWhereAFilmIsMissingOrNone) {
  WriteMenu();
  RunText(Data(u"MakeMenu.bat"_s));
  QFile::copy(TempHost(u"MMBackg.mpg"_s), TempHost(u"MMMenu.mpg"_s));
  WriteAuthor(u"nofilm"_s);
  const std::string missing = RunText(Data(u"Author.bat"_s), u"author.bat"_s);
  EXPECT_TRUE(Contains(missing, "\nERR:  2 opening input video file \"" + TempHost(u"nofilm.mpg"_s).toStdString()))
      << missing;
  EXPECT_TRUE(missing.ends_with("\r\n*ERROR: dvdauthor ended with status 1\r\n\r\nC:\\T>")) << missing;

  WriteText(u"nofilm.mpg"_s, u"no film"_s);
  const std::string garbage = RunText(Data(u"Author.bat"_s), u"author.bat"_s);
  EXPECT_TRUE(garbage.ends_with("\r\n*ERROR: dvdauthor ended with status 1\r\n\r\nC:\\T>")) << garbage;
}

TEST_F(RealTools, TheSyntaxCheckFindsFaultsInAnyCommandAndTouchesNoDisc) {
  QDir().mkpath(TempHost(u"Out/DVD/VIDEO_TS"_s));
  WriteText(u"Out/DVD/VIDEO_TS/VIDEO_TS.IFO"_s, u"former"_s);
  const QString parsing = u"ERR:  Parse error 'syntax error' on token "_s;
  const std::pair<QString, QString> farJump{u"{post1}"_s, u"jump chapter 4;"_s};
  const struct {
    QList<std::pair<QString, QString>> changes;
    QString said;
  } cases[] = {
      {{}, u"Generating VMGM"_s},
      {{{u"</video>"_s,
         u"</video><subpicture><stream id=\"0\" mode=\"widescreen\" />"
         "<stream id=\"1\" mode=\"letterbox\" /></subpicture>"_s}},
       u"Generating VMGM"_s},
      {{{u"{button}"_s, u"jum title 2;"_s}}, parsing + u"'title'"},
      {{{u"{post2}"_s, u"if (g1 < 1 exit;"_s}}, parsing + u"'exit'"},
      // A jump to a chapter is judged by the chapters that the film has, not the stand-in.
      {{{u"{post1}"_s, u"jump chapter 3;"_s}}, u"Generating VMGM"_s},
      {{farJump}, u"ERR:  Cannot jump to chapter 4, only 3 exist"_s},
      // Nor does a jump that leads nowhere hide what stands behind it.
      {{farJump,
        {u"</dvdauthor>"_s,
         u"<titleset><menus><pgc><pre>jum menu 1;</pre></pgc></menus><titles><pgc><vob "
         "file=\"C:\\none.mpg\"/></pgc></titles></titleset></dvdauthor>"_s}},
       parsing + u"'menu'"},
  };
  for (const auto& [changes, said] : cases) {
    WriteAuthor(u"nofilm"_s, changes);
    const std::string printed = RunText(Data(u"Author.bat"_s), u"testrun.bat"_s);
    EXPECT_TRUE(Contains(printed, said.toStdString())) << printed;
    EXPECT_EQ(Contains(printed, "ERR"), said.startsWith(u"ERR")) << printed;
  }
  // In a second titleset, of a project without menus, in a norm that is told nowhere.
  const QString titleset =
      u"<titleset><titles><pgc><vob file=\"C:\\none.mpg\"/><post>%1</post></pgc></titles></titleset>"_s;
  WriteText(u"Author.xml"_s, u"<dvdauthor dest=\"{T}\\Out\\DVD\"><vmgm></vmgm>"_s + titleset.arg(u"exit;"_s) +
                                 titleset.arg(u"exi;"_s) + u"</dvdauthor>"_s);
  EXPECT_TRUE(Contains(RunText(Data(u"Author.bat"_s), u"testrun.bat"_s), parsing.toStdString() + "';'"));

  EXPECT_EQ(ReadText(u"Out/DVD/VIDEO_TS/VIDEO_TS.IFO"_s), "former");
  EXPECT_EQ(Leftovers(), QStringList());
}

TEST_F(RealTools, TheNormOfADiscWithoutMenusIsThatOfItsFirstFilm) {
  Draw(u"MMBackg.png"_s, {}, Qt::blue);
  QImage(TempHost(u"MMBackg.png"_s)).scaled(720, 480).save(TempHost(u"MMBackg.png"_s));
  RunText(Data(u"MakeMenu.bat"_s).replace(u"-f 25"_s, u"-f 29.97"_s).replace(u"-n p"_s, u"-n n"_s));
  WriteText(u"Author.xml"_s,
            u"<dvdauthor dest=\"{T}\\Out\\DVD\">\r\n<vmgm>\r\n</vmgm>\r\n<titleset><titles><pgc>\r\n"
            "<vob file=\"{T}\\MMBackg.mpg\"/><post>exit;</post>\r\n</pgc></titles></titleset></dvdauthor>\r\n"_s);
  const std::string output = RunText(Data(u"Author.bat"_s), u"author.bat"_s);
  EXPECT_TRUE(Contains(output, "INFO: default video format is NTSC")) << output;
  EXPECT_FALSE(Contains(output, "ERR")) << output;
  EXPECT_EQ(Titles(), 1);
}

}  // namespace
}  // namespace torvane::test
