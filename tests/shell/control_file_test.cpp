#include "shell/control_file.h"

#include <gtest/gtest.h>

#include <QXmlStreamReader>

#include "platform/host_files.h"
#include "support/drive_c.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

TEST(ControlFile, BecomesWellFormed) {
  const std::pair<const char*, const char*> cases[] = {
      // What is well-formed stays as it is.
      {"<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<pgc entry='root'>\r\n  <pre> { button=1024; } "
       "</pre>\r\n</pgc>\r\n",
       "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<pgc entry=\"root\">\r\n  <pre> { button=1024; } "
       "</pre>\r\n</pgc>\r\n"},
      {"<post>if (g0 &lt; 1 &amp;&amp; g1 &#62; 2) exit;</post>",
       "<post>if (g0 &lt; 1 &amp;&amp; g1 &#62; 2) exit;</post>"},
      {"<pgc><![CDATA[a<b]]></pgc>", "<pgc><![CDATA[a<b]]></pgc>"},
      // Commands.
      {"<post>if (g0 < 1) jump title 2;</post>", "<post>if (g0 &lt; 1) jump title 2;</post>"},
      {"<pre>if (g1<=2&&g2<g3) g0=g1&7;</pre>", "<pre>if (g1&lt;=2&amp;&amp;g2&lt;g3) g0=g1&amp;7;</pre>"},
      {"<button name=\"MMB1\">if (g1 <button) exit;</button>",
       "<button name=\"MMB1\">if (g1 &lt;button) exit;</button>"},
      {"<pre>a &lt b &unknown; &#0; ]]> <x></pre>", "<pre>a &amp;lt b &amp;unknown; &amp;#0; ]]&gt; &lt;x></pre>"},
      {"<pre>a\x01"
       "b</pre>",
       "<pre>a b</pre>"},
      {"<pgc><pre>never closed <vob file=\"a<b\"/></pgc>", "<pgc><pre>never closed <vob file=\"a&lt;b\"/></pgc>"},
      // Values.
      {"<vob file=\"Z:\\Tom & \"Jerry\" <1>.mpg\" chapters=\"0\"/>",
       "<vob file=\"Z:\\Tom &amp; &quot;Jerry&quot; &lt;1>.mpg\" chapters=\"0\"/>"},
      {"<vob file=\"it's\" pause='a\"b'/>", "<vob file=\"it's\" pause=\"a&quot;b\"/>"},
      {"<VOB File = \"x\" PAUSE=inf />", "<vob file=\"x\" pause=\"inf\" />"},
      // Comments.
      {"<!-- vmgm menu 2 (a -- b --- c-) --> \r\n<pgc/>", "<!-- vmgm menu 2 (a - - b - - - c-) --> \r\n<pgc/>"},
      {"<!-- menu (a --> b & <c>) --> \r\n<pgc/>", "<!-- menu (a - -> b & <c>) --> \r\n<pgc/>"},
      {"<!-- a --><pgc/><!-- b -->", "<!-- a --><pgc/><!-- b -->"},
      {"<!-- two\r\nlines -->", "<!-- two\r\nlines -->"},
      // What is no markup at all is text.
      {"a < b <1> <", "a &lt; b &lt;1> &lt;"},
      {"<!-- never closed <pgc>", "&lt;!-- never closed <pgc>"},
      {"<vob file=\"never closed", "&lt;vob file=\"never closed"},
      {"", ""},
  };
  for (const auto& [written, mended] : cases) EXPECT_EQ(ControlFile(written).ToBytes().toStdString(), mended);
}

TEST(ControlFile, ReadsUtf8AndElseTheDosCodePage) {
  EXPECT_EQ(ControlFile("\xEF\xBB\xBF<vob file=\"\xC3\xA4\xE2\x82\xAC\"/>").Films(), QStringList{u"ä€"_s});
  EXPECT_EQ(ControlFile("<?xml version='1.0' encoding='x'?><vob file=\"Gr\x94\xE1"
                        "e\"/>")
                .ToBytes(),
            QByteArray("<?xml version=\"1.0\" encoding=\"utf-8\"?><vob file=\"Größe\"/>"));
}

TEST(ControlFile, MapsThePathsOfBothKindsAndNothingElse) {
  const PathMapper map = [](const QString& path) -> QString { return u'{' + path + u'}'; };
  ControlFile author(
      "<dvdauthor dest=\"C:\\O\\DVD\" jumppad=\"1\"><pgc PALETTE=\"C:\\T\\R&B.pal\" entry=\"root\">"
      "<vob file=\"C:\\T\\a &amp; b.mpg\" chapters=\"0\"/><button name=\"C:\\x\">C:\\y</button><vob file=\"\"/>");
  author.MapAuthorPaths(map);
  EXPECT_EQ(
      author.ToBytes(),
      "<dvdauthor dest=\"{C:\\O\\DVD}\" jumppad=\"1\"><pgc palette=\"{C:\\T\\R&amp;B.pal}\" entry=\"root\">"
      "<vob file=\"{C:\\T\\a &amp; b.mpg}\" chapters=\"0\"/><button name=\"C:\\x\">C:\\y</button><vob file=\"\"/>");

  ControlFile spumux(
      "<spu start=\"0\" HIGHLIGHT=\"h\" select=\"s\" image=\"i\" force=\"yes\"><button name=\"b\"/></spu>"
      "<textsub filename=\"C:\\a.srt\" font=\"arial.ttf\" /><textsub font=\"C:\\a.TTF\"/>");
  spumux.MapSpumuxPaths(map, [](const QString& font) -> QString { return u'(' + font + u')'; });
  EXPECT_EQ(spumux.ToBytes(),
            "<spu start=\"0\" highlight=\"{h}\" select=\"{s}\" image=\"{i}\" force=\"yes\"><button name=\"b\"/></spu>"
            "<textsub filename=\"{C:\\a.srt}\" font=\"(arial.ttf)\" /><textsub font=\"(C:\\a.TTF)\"/>");
}

TEST(ControlFile, ExcludesPanScanWhereSubpicturesHaveTwoOtherForms) {
  const QByteArray wide = "<stream id=\"0\" mode=\"widescreen\" /><stream id=\"1\" mode=\"letterbox\" />";
  const QByteArray third = "<stream id=\"2\" mode=\"panscan\" />";
  const auto menus = [](const QByteArray& attributes, const QByteArray& streams) -> QByteArray {
    return "<menus><video format=\"pal\"" + attributes + "></video><subpicture>" + streams + "</subpicture></menus>";
  };
  const QByteArray plain = "<menus><video format=\"pal\"></video></menus>";
  const std::pair<QByteArray, QByteArray> cases[] = {
      {plain + menus("", wide) + plain, plain + menus(" widescreen=\"nopanscan\"", wide) + plain},
      {menus("", wide + third), menus("", wide + third)},
      {menus(" widescreen=\"noletterbox\"", wide), menus(" widescreen=\"noletterbox\"", wide)},
  };
  for (const auto& [written, handed] : cases) {
    ControlFile file(written);
    file.ExcludePanScan();
    EXPECT_EQ(file.ToBytes().toStdString(), handed.toStdString());
  }
}

TEST(ControlFile, TakesAValueAsItStandsWhereSuchAFileExists) {
  const test::DriveC drive;
  ASSERT_TRUE(HostFiles::WriteAtomically(u"C:\\R&amp;B.mpg"_s, {}));
  EXPECT_EQ(PathOfValue(u"C:\\R&amp;B.mpg"_s), u"C:\\R&amp;B.mpg"_s);
  EXPECT_EQ(PathOfValue(u"C:\\Q&amp;A &lt;&#228;&#x20AC;&quot;&apos;.mpg"_s), u"C:\\Q&A <ä€\"'.mpg"_s);
}

TEST(ControlFile, KnowsTheStatedVideoFormat) {
  EXPECT_EQ(ControlFile("<menus><video format=\"ntsc\"></video><video format=\"pal\"/>").StatedVideoFormat(),
            u"NTSC"_s);
  EXPECT_EQ(ControlFile("<menus><video aspect=\"4:3\"/><Video Format=\" Pal\"/>").StatedVideoFormat(), u"PAL"_s);
  EXPECT_EQ(ControlFile("<video format=\"secam\"/>").StatedVideoFormat(), QString());
}

TEST(ControlFile, GathersTheCommands) {
  EXPECT_EQ(ControlFile("<fpc> jump title 3; </fpc><pgc>text<pre>a<b<!-- c -->d</pre><pre> </pre>"
                        "<vob/><button name=\"x\">e&amp;f</button><POST>g</POST></pgc>")
                .Commands(),
            (QStringList{u" jump title 3; "_s, u"a<bd"_s, u"e&amp;f"_s, u"g"_s}));
}

/// Any mixture of the characters that matter comes out as text that an XML reader takes, as long as the tags match.
TEST(ControlFile, NoTextOrValueBreaksTheFile) {
  const QString signs = u"<>&\"'-!?/=; \r\n#xa]["_s;
  unsigned seed = 1;
  for (int round = 0; round < 3000; ++round) {
    QString noise;
    for (int i = 0; i < 24; ++i) {
      seed = seed * 1103515245 + 12345;
      noise += signs[int(seed >> 16) % int(signs.size())];
    }
    const QString text = u"<pgc><pre>%1</pre><!-- %1 -->\r\n</pgc>"_s.arg(noise);
    if (noise.contains(u"<!"_s)) continue;  // opens a comment, as it should
    QXmlStreamReader reader(ControlFile(text.toUtf8()).ToBytes());
    while (!reader.atEnd()) reader.readNext();
    EXPECT_FALSE(reader.hasError()) << reader.errorString().toStdString() << "\n" << text.toStdString();
  }
}

}  // namespace
}  // namespace torvane
