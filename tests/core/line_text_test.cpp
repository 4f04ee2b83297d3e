#include "core/line_text.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

TEST(LineText, GivesEveryLineItsEndAndEncodesInsertedTextByItsKind) {
  LineText lines;
  lines.Line("@echo off");
  lines.Line("echo *" + BatchText(u"Größe 100%"_s));
  lines.Line("\"" + BatchPath(u"C:\\Übung 50%\\Я.png"_s) + "\"");
  lines.Line(u"<name ä=\"%\"/>"_s);
  EXPECT_EQ(lines.Bytes(), QByteArray("@echo off\r\n"
                                      "echo *Gr\xC3\xB6\xC3\x9F"
                                      "e 100%%\r\n"
                                      "\"C:\\\x9A"
                                      "bung 50%%\\\xD0\xAF.png\"\r\n"
                                      "<name \xC3\xA4=\"%\"/>\r\n"));
}

}  // namespace
}  // namespace torvane
