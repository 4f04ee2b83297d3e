#include "core/line_values.h"

#include <gtest/gtest.h>

#include "core/batch_lines.h"
#include "core/dos_path.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

TEST(BatchLines, EncodesEachValueByItsKind) {
  Settings settings;
  settings.TempDir = u"C:\\Übung 50%"_s;
  settings.DvdAuthorPath = u"C:\\t"_s;
  LineValues values(settings);
  BatchLines lines(values);
  lines.Line("@echo off");
  lines.Line(lines.Tool(u"mplex.exe") + " -O " + lines.WholeNumber(u"-5"_s, u"k"_s) + "ms " + lines.Temp(u"Я.png"_s));
  lines.Line("echo " + lines.Word(u"MM1"_s) + " " + lines.Name(u"Größe & 100%"_s));
  EXPECT_EQ(lines.Bytes(), QByteArray("@echo off\r\n"
                                      "\"C:\\t\\mplex.exe\" -O -5ms \"C:\\\x9A"
                                      "bung 50%%\\\xD0\xAF.png\"\r\n"
                                      "echo MM1 \"Gr\xC3\xB6\xC3\x9F"
                                      "e & 100%%\"\r\n"));
  EXPECT_EQ(values.Refused(), QList<Finding>());
  EXPECT_EQ(values.TempFiles(), (QList<TempFile>{{u"Я.png"_s, {}}}));
}

TEST(LineValues, EachKindRefusesWhatWouldBreakOut) {
  using Kind = QString (LineValues::*)(const QString&, const QString&);
  const struct {
    Kind kind;
    QStringList passes, refused;
  } cases[] = {
      {&LineValues::Path,
       {u"C:\\a.b"_s, u"Z:\\it's 5% <a> & b^ (c) | d!\\e\\..\\Я"_s},
       {u""_s, u"a"_s, u"\\a"_s, u"C:a"_s, u"C:\\"_s, u"/tmp/a"_s, u"Z:/tmp/a"_s, u"C:\\a\" & b"_s, u"C:\\a\r\nb"_s,
        u"C:\\a\u0085b"_s, u"C:\\a\u2028b"_s, u"C:\\a\u0000b"_s, u"C:\\dir\\"_s, u"C:\\x; touch y |"_s, u"\\\\s\\a"_s}},
      {&LineValues::Name,
       {u"It's 100% über & out^ (1)!"_s},
       {u""_s, u"a\""_s, u"..\\a"_s, u"../a"_s, u"a:b"_s, u"*"_s, u"a?"_s, u"<a"_s, u"a>"_s, u"a|"_s, u"a\nb"_s}},
      {&LineValues::Word,
       {u"MMBrun1.bat"_s, u"MM_1"_s},
       {u""_s, u"a b"_s, u"a&b"_s, u"a^"_s, u"%X%"_s, u"a\n"_s, u"ü"_s}},
      {&LineValues::WholeNumber, {u"-250"_s, u"0"_s}, {u""_s, u"1 & b"_s, u"1\n"_s, u"-"_s, u"1.5"_s, u"+1"_s}},
      {&LineValues::Attribute, {u"inf"_s, u"it's > & so"_s, u""_s}, {u"0\"/><vob file=\"x"_s, u"a<b"_s, u"a\r\nb"_s}},
      {&LineValues::Commands,
       {u""_s, u"if (g1<g2) jump\r\n\ttitle 1; g3 < 2 && g1<button)"_s, u"\"&lt;/pre&gt;"_s},
       {u"exit;</button><vob file=\"x\"/>"_s, u"<VOB\tfile=x"_s, u"<pgc>"_s, u"<vob/>"_s, u"<!-- "_s, u"<?x"_s,
        u"a<pre"_s, u"a\u0001"_s}},
      {&LineValues::Comment, {u"A -- B -> \"C\" <d>"_s}, {u"a) --> <vob file=\"x\"/>"_s, u"a\nb"_s}},
  };
  for (const auto& [kind, passes, refused] : cases) {
    for (const QString& value : passes + refused) {
      const Settings settings;
      LineValues values(settings);
      EXPECT_EQ((values.*kind)(value, u"K1"_s), value);
      ASSERT_EQ(values.Refused().size(), refused.contains(value) ? 1 : 0) << value.toStdString();
      if (values.Refused().isEmpty()) continue;
      EXPECT_EQ(values.Refused()[0].key, u"K1"_s);
      EXPECT_FALSE(values.Refused()[0].text.contains(u'\n'));
    }
  }
}

TEST(DosPath, ATextOfAProjectFileBecomesOne) {
  const std::pair<QString, QString> cases[] = {
      {u""_s, u""_s},
      {u"C:\\a\\\\b.m2v"_s, u"C:\\a\\\\b.m2v"_s},
      {u"C:/a/b.m2v"_s, u"C:\\a\\b.m2v"_s},
      {u"/tmp/a b.m2v"_s, u"Z:\\tmp\\a b.m2v"_s},
      {u"/tmp/../../etc/./x"_s, u"Z:\\etc\\x"_s},
      {u"film.m2v"_s, u"D:\\p\\q\\film.m2v"_s},
      {u"..\\v/film.m2v"_s, u"D:\\p\\v\\film.m2v"_s},
      {u"..\\..\\..\\x"_s, u"D:\\x"_s},
      {u"\\x"_s, u"D:\\x"_s},
      {u"C:x"_s, u"C:\\x"_s},
      {u"-"_s, u"D:\\p\\q\\-"_s},
      {u"&3"_s, u"D:\\p\\q\\&3"_s},
      {u"\\\\server\\share\\x"_s, u"\\\\server\\share\\x"_s},
      {u"/tmp/a\" & b"_s, u"/tmp/a\" & b"_s},
      {u"a\r\nb"_s, u"a\r\nb"_s},
  };
  for (const auto& [text, path] : cases) EXPECT_EQ(DosPathOf(text, u"D:\\p\\q"_s), path) << text.toStdString();
}

}  // namespace
}  // namespace torvane
