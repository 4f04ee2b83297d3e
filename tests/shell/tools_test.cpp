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
  static constexpr const char* kMakeMenu =
      "@echo off\r\necho *creating MMback.m2v\r\n"
      "\"C:\\Tools\\png2yuv.exe\" -n 1 -I p -L 0 -f 25 -j \"{T}\\MMBackg.png\" | \"C:\\Tools\\mpeg2enc.exe\" -f 8 -I 0 "
      "-q 1 "
      "-b 7000 -a 2 -n p -o \"{T}\\MMBackg.m2v\"\r\n"
      "echo *mux to MMback.mpg\r\n"
      "\"C:\\Tools\\mplex.exe\" -M -f 8 -o \"{T}\\MMBackg.mpg\" \"{T}\\MMBackg.m2v\"\r\n";
  static constexpr const char* kAddButtons =
      "@echo off\r\necho *creating menufile MMMenu.mpg\r\n"
      "\"C:\\Tools\\spumux.exe\" -w \"{T}\\MMSpu.xml\" <\"{T}\\MMBackg.mpg\" > \"{T}\\MMMenu.mpg\"\r\n";
  static constexpr const char* kAuthor =
      "@echo off\r\necho.\r\necho author DVD\r\n\"C:\\Tools\\dvdauthor.exe\" -w -r -x \"{T}\\Author.xml\"\r\n";
  static constexpr const char* kImage =
      "@echo off\r\n\"C:\\Tools\\mkisofs.exe\" -dvd-video -V \"Ü 1\" -udf -o \"{T}\\Ü 1.ISO\" \"{T}\\Out\\DVD\"\r\n";

  /// The directory of the films and batches, a DOS path below C:\T with signs that tools like to stumble over.
  static QString Temp() { return u"C:\\T\\Süße [1] & 100% 'x'"_s; }
  QString TempHost(const QString& name) const { return Host(u"Süße [1] & 100% 'x'/"_s + name); }

  RealTools() { QDir().mkpath(TempHost(u"Out"_s)); }

  void WriteText(const QString& name, QString text) const {
    Write(u"Süße [1] & 100% 'x'/"_s + name, text.replace(u"{T}"_s, Temp()).toUtf8());
  }

  /// Runs a batch text through a file of the given name; "%" in the directory's name is doubled as in any batch line.
  std::string RunText(const QString& name, const char* text) const {
    QString lines = QString::fromUtf8(text);
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
    WriteText(u"MMSpu.xml"_s,
              u"<subpictures>\r\n  <stream>\r\n    <spu start=\"00:00:00.0\"\r\n"
              "         highlight=\"{T}\\MMHigh.png\"\r\n         select=\"{T}\\MMAct.png\"\r\n"
              "         force=\"yes\"\r\n         autoorder=\"rows\">\r\n"
              "   <button name=\"MMB1\" x0=\"100\" y0=\"100\" x1=\"300\" y1=\"140\"/>\r\n"
              "   <button name=\"MMB2\" x0=\"100\" y0=\"200\" x1=\"300\" y1=\"240\"/>\r\n"
              "    </spu>\r\n  </stream>\r\n</subpictures>\r\n"_s);
  }

  /// A disc of one menu and two films, which are copies of the menu's picture. `{button}`, `{post1}` and `{post2}` are
  /// commands; `{film}` is the stem of the second film.
  void WriteAuthor(const QString& button, const QString& post1, const QString& post2, const QString& film) const {
    QString text =
        u"<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<dvdauthor dest=\"{T}\\Out\\DVD\">\r\n<vmgm>\r\n    <menus>\r\n"
        "      <!-- vmgm menu 1 (Main -- menu --> & more) --> \r\n    <video format=\"pal\"></video>\r\n      <pgc>\r\n"
        "      <pre> {  if (g1 < 1 && g2 >= 0) { button = 1024;} else  { button = g1*1024;} } </pre>\r\n"
        "        <vob file=\"{T}\\MMMenu.mpg\" pause=\"inf\"/>\r\n"
        "        <button name=\"MMB1\">g1=1;jump title 1;</button>\r\n"
        "        <button name=\"MMB2\">{button}</button>\r\n"
        "      </pgc>\r\n    </menus>\r\n</vmgm>\r\n<titleset>\r\n    <titles>\r\n"
        "      <pgc palette=\"{T}\\Film.pal\">\r\n"
        "        <vob file=\"{T}\\MMBackg.mpg\" chapters=\"00:00:00.000,00:10:00.000,00:20:00.000\"/>\r\n"
        "        <post>{post1}</post>\r\n      </pgc>\r\n"
        "      <pgc>\r\n        <vob file=\"{T}\\{film}.mpg\" chapters=\"00:00:00.000\"/>\r\n"
        "        <post>{post2}</post>\r\n      </pgc>\r\n    </titles>\r\n  </titleset>\r\n</dvdauthor>\r\n"_s;
    text.replace(u"{button}"_s, button).replace(u"{post1}"_s, post1).replace(u"{post2}"_s, post2);
    WriteText(u"Author.xml"_s, text.replace(u"{film}"_s, film));
  }

  void WriteGoodAuthor() const {
    WriteAuthor(u"g1=2;jump title 2;"_s, u"call vmgm menu 1;"_s, u"call vmgm menu 1;"_s, u"MMBackg"_s);
    QByteArray palette;
    for (int i = 0; i < 16; ++i) palette += "108080\r\n";
    Write(u"Süße [1] & 100% 'x'/Film.pal"_s, palette);
  }

  /// Count of titles in the disc's table of titles.
  int Titles() const {
    QFile file(TempHost(u"Out/DVD/VIDEO_TS/VIDEO_TS.IFO"_s));
    if (!file.open(QIODevice::ReadOnly)) return -1;
    const QByteArray ifo = file.readAll();
    const auto table = qsizetype(qFromBigEndian<quint32>(ifo.constData() + 0xC4)) * 2048;
    return table + 2 <= ifo.size() ? qFromBigEndian<quint16>(ifo.constData() + table) : -1;
  }
};

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST_F(RealTools, MakeADiscWhateverThePathsHold) {
  WriteMenu();
  WriteGoodAuthor();
  const QByteArray author = Read(u"Süße [1] & 100% 'x'/Author.xml"_s);
  std::string printed;
  for (const char* batch : {kMakeMenu, kAddButtons, kAuthor, kImage}) {
    const std::string output = RunText(u"step.bat"_s, batch);
    EXPECT_TRUE(output.ends_with("\r\n\r\nC:\\T>") || output.ends_with("\n\r\nC:\\T>")) << output;
    printed += output;
  }
  EXPECT_FALSE(Contains(printed, "ERR")) << printed;
  EXPECT_TRUE(Contains(printed, "INFO: 1 subtitles added"));
  EXPECT_EQ(QDir(TempHost(u"Out/DVD/VIDEO_TS"_s)).entryList(QDir::Files, QDir::Name),
            (QStringList{u"VIDEO_TS.BUP"_s, u"VIDEO_TS.IFO"_s, u"VIDEO_TS.VOB"_s, u"VTS_01_0.BUP"_s, u"VTS_01_0.IFO"_s,
                         u"VTS_01_1.VOB"_s}));
  EXPECT_EQ(Titles(), 2);
  EXPECT_GT(QFile(TempHost(u"Ü 1.ISO"_s)).size(), 100000);
  EXPECT_EQ(Read(u"Süße [1] & 100% 'x'/Author.xml"_s), author);
  EXPECT_EQ(Leftovers(), QStringList());
}

TEST_F(RealTools, SpumuxWithoutASubpictureFailsInItsOwnWords) {
  WriteMenu();
  RunText(u"step.bat"_s, kMakeMenu);
  QFile::remove(TempHost(u"MMHigh.png"_s));
  const std::string missing = RunText(u"step.bat"_s, kAddButtons);
  EXPECT_TRUE(Contains(missing, "ERR:  Unable to open file " + TempHost(u"MMHigh.png"_s).toStdString())) << missing;
  EXPECT_TRUE(missing.ends_with("\r\n*ERROR: spumux added no subpicture\r\n\r\nC:\\T>")) << missing;
  EXPECT_FALSE(QFile::exists(TempHost(u"MMMenu.mpg"_s)));

  std::vector<QRect> stripes;
  Draw(u"MMHigh.png"_s, stripes, Qt::transparent);
  QImage many(720, 576, QImage::Format_ARGB32);
  for (int y = 0; y < 576; ++y) {
    for (int x = 0; x < 720; ++x) many.setPixel(x, y, qRgb(x / 3, y / 3, 0));
  }
  many.save(TempHost(u"MMHigh.png"_s));
  const std::string colours = RunText(u"step.bat"_s, kAddButtons);
  EXPECT_TRUE(colours.ends_with("\r\n*ERROR: spumux was ended by signal 6 (Aborted)\r\n\r\nC:\\T>")) << colours;
  EXPECT_FALSE(QFile::exists(TempHost(u"MMMenu.mpg"_s)));

  WriteMenu();
  const std::string full =
      RunText(u"step.bat"_s, "@spumux \"{T}\\MMSpu.xml\" <\"{T}\\MMBackg.mpg\" > Z:\\dev\\full\r\n");
  EXPECT_TRUE(Contains(full, "ERR:  Write error 28 -- No space left on device\n\r\n*ERROR: spumux ended with status 1"))
      << full;
  EXPECT_TRUE(QFile::exists(u"/dev/full"_s));
}

TEST_F(RealTools, TextSubtitlesNeedNoFontFileAndTakeTheFilmsNorm) {
  WriteMenu();
  RunText(u"step.bat"_s, QByteArray(kMakeMenu).replace("-n 1 ", "-n 3 ").constData());
  WriteText(u"a.srt"_s, u"1\r\n00:00:00,000 --> 00:00:00,100\r\nHallo\r\n"_s);
  WriteText(u"Spu1Sub1.xml"_s,
            u"<subpictures>\r\n   <stream>\r\n     <textsub filename=\"{T}\\a.srt\"\r\n"
            "        characterset=\"ISO-8859-1\"\r\n        fontsize=\"28.0\"\r\n        font=\"arial.ttf\"\r\n"
            "        movie-fps=\"25\"\r\n        subtitle-fps=\"25\"\r\n        movie-width=\"720\"\r\n"
            "        movie-height=\"576\"\r\n     />\r\n   </stream>\r\n</subpictures>\r\n"_s);
  const std::string output = RunText(u"step.bat"_s,
                                     "@\"C:\\Tools\\spumux.exe\" -ma -s0 \"{T}\\Spu1Sub1.xml\" <\"{T}\\MMBackg.mpg\" > "
                                     "\"{T}\\Film1_SUB1.mpg\" \r\n");
  EXPECT_TRUE(Contains(output, "INFO: default video format is PAL")) << output;
  EXPECT_TRUE(Contains(output, "INFO: 1 subtitles added")) << output;
  EXPECT_FALSE(Contains(output, "ERR")) << output;
}

TEST_F(RealTools, DvdauthorFailsWhereAFilmIsMissingOrNone) {
  WriteMenu();
  WriteGoodAuthor();
  RunText(u"step.bat"_s, kMakeMenu);
  QFile::copy(TempHost(u"MMBackg.mpg"_s), TempHost(u"MMMenu.mpg"_s));
  WriteAuthor(u"jump title 2;"_s, u"exit;"_s, u"exit;"_s, u"nofilm"_s);
  const std::string missing = RunText(u"author.bat"_s, kAuthor);
  EXPECT_TRUE(Contains(missing, "\nERR:  2 opening input video file \"" + TempHost(u"nofilm.mpg"_s).toStdString()))
      << missing;
  EXPECT_TRUE(missing.ends_with("\r\n*ERROR: dvdauthor ended with status 1\r\n\r\nC:\\T>")) << missing;

  WriteText(u"nofilm.mpg"_s, u"no film"_s);
  const std::string garbage = RunText(u"author.bat"_s, kAuthor);
  EXPECT_TRUE(garbage.ends_with("\r\n*ERROR: dvdauthor ended with status 1\r\n\r\nC:\\T>")) << garbage;
}

TEST_F(RealTools, TheSyntaxCheckFindsFaultsInAnyCommandAndTouchesNoDisc) {
  QDir().mkpath(TempHost(u"Out/DVD/VIDEO_TS"_s));
  WriteText(u"Out/DVD/VIDEO_TS/VIDEO_TS.IFO"_s, u"former"_s);
  const auto check = [this] { return RunText(u"testrun.bat"_s, kAuthor); };

  WriteAuthor(u"g1=2;jump title 2;"_s, u"call vmgm menu 1;"_s, u"call vmgm menu 1;"_s, u"nofilm"_s);
  const std::string good = check();
  EXPECT_FALSE(Contains(good, "ERR")) << good;
  EXPECT_TRUE(Contains(good, "Generating VMGM")) << good;

  WriteText(u"Author.xml"_s,
            QString::fromUtf8(Read(u"Süße [1] & 100% 'x'/Author.xml"_s))
                .replace(u"</video>"_s,
                         u"</video><subpicture><stream id=\"0\" mode=\"widescreen\" />"
                         "<stream id=\"1\" mode=\"letterbox\" /></subpicture>"_s));
  const std::string wide = check();
  EXPECT_FALSE(Contains(wide, "ERR")) << wide;

  WriteAuthor(u"jum title 2;"_s, u"exit;"_s, u"exit;"_s, u"nofilm"_s);
  EXPECT_TRUE(Contains(check(), "ERR:  Parse error 'syntax error' on token 'title'"));
  WriteAuthor(u"jump title 2;"_s, u"exit;"_s, u"if (g1 < 1 exit;"_s, u"nofilm"_s);
  EXPECT_TRUE(Contains(check(), "ERR:  Parse error 'syntax error' on token 'exit'"));

  // A jump to a chapter is judged by the chapters that the film has, not the stand-in.
  WriteAuthor(u"jump title 2;"_s, u"jump chapter 3;"_s, u"exit;"_s, u"nofilm"_s);
  EXPECT_FALSE(Contains(check(), "ERR"));
  WriteAuthor(u"jump title 2;"_s, u"jump chapter 4;"_s, u"exit;"_s, u"nofilm"_s);
  EXPECT_TRUE(Contains(check(), "ERR:  Cannot jump to chapter 4, only 3 exist"));

  // Nor does a jump that leads nowhere hide what stands behind it.
  WriteAuthor(u"jump title 2;"_s, u"jump chapter 4;"_s, u"exit;"_s, u"nofilm"_s);
  WriteText(u"Author.xml"_s, QString::fromUtf8(Read(u"Süße [1] & 100% 'x'/Author.xml"_s))
                                 .replace(u"</dvdauthor>"_s,
                                          u"<titleset><menus><pgc><pre>jum menu 1;</pre></pgc></menus><titles>"
                                          "<pgc><vob file=\"C:\\none.mpg\"/></pgc></titles></titleset></dvdauthor>"_s));
  EXPECT_TRUE(Contains(check(), "ERR:  Parse error 'syntax error' on token 'menu'"));

  // In a second titleset, of a project without menus, in a norm that is told nowhere.
  WriteText(
      u"Author.xml"_s,
      u"<dvdauthor dest=\"{T}\\Out\\DVD\"><vmgm></vmgm>"
      "<titleset><titles><pgc><vob file=\"C:\\none.mpg\"/><post>exit;</post></pgc></titles></titleset>"
      "<titleset><titles><pgc><vob file=\"C:\\none.mpg\"/><post>exi;</post></pgc></titles></titleset></dvdauthor>"_s);
  EXPECT_TRUE(Contains(check(), "ERR:  Parse error 'syntax error' on token ';'"));

  EXPECT_EQ(Read(u"Süße [1] & 100% 'x'/Out/DVD/VIDEO_TS/VIDEO_TS.IFO"_s), "former");
  EXPECT_EQ(Leftovers(), QStringList());
}

TEST_F(RealTools, TheNormOfADiscWithoutMenusIsThatOfItsFirstFilm) {
  Draw(u"MMBackg.png"_s, {}, Qt::blue);
  QImage(TempHost(u"MMBackg.png"_s)).scaled(720, 480).save(TempHost(u"MMBackg.png"_s));
  RunText(u"step.bat"_s, QByteArray(kMakeMenu).replace("-f 25", "-f 29.97").replace("-n p", "-n n").constData());
  WriteText(u"Author.xml"_s,
            u"<dvdauthor dest=\"{T}\\Out\\DVD\">\r\n<vmgm>\r\n</vmgm>\r\n<titleset>\r\n    <titles>\r\n      <pgc>\r\n"
            "        <vob file=\"{T}\\MMBackg.mpg\" chapters=\"00:00:00.000\"/>\r\n        <post>exit;</post>\r\n"
            "      </pgc>\r\n    </titles>\r\n  </titleset>\r\n</dvdauthor>\r\n"_s);
  const std::string output = RunText(u"author.bat"_s, kAuthor);
  EXPECT_TRUE(Contains(output, "INFO: default video format is NTSC")) << output;
  EXPECT_FALSE(Contains(output, "ERR")) << output;
  EXPECT_EQ(Titles(), 1);
}

}  // namespace
}  // namespace torvane::test
