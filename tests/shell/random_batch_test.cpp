#include <random>

#include "console_fixture.h"
#include "shell/batch_variables.h"
#include "shell/command_parser.h"
#include "shell/dos_wildcard.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane::test {
namespace {

using RandomBatch = ConsoleTest;

/// Each piece ends with a back quote.
const QList<QByteArray> kPieces =
    QByteArray(
        "echo `echo.`set A=`%A%`%`%%`%1`%~dp0`%*`if `not `exist `errorlevel 1 `goto l1`goto :eof`call :l1 `"
        "call x.bat `exit /b `exit `rem `:l1\r\n`\r\n`\r\n` `\"`^`&`&&`|`||`<`>`>>`2>`2>&1`1>&`nul`a.txt`"
        "a==a `type `erase `copy `mkdir `rmdir `attrib `cd `ver`*.*`?`\\`..\\`/q `C:\\T\\`@`(`)`,`;`=`\x84`"
        "\xE1`\xFF`\t`\n`dvdauthor `-x ")
        .split('`');

TEST_F(RandomBatch, NeitherCrashesNorHangs) {
  environment_.insert(u"PATH"_s, u"/nonexistent"_s);
  QFile outside(dir_.filePath(u"outside.txt"_s));
  ASSERT_TRUE(outside.open(QIODevice::WriteOnly));
  const QStringList around = QDir(dir_.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
  for (unsigned seed = 1; seed <= 150; ++seed) {
    std::mt19937 random(seed);
    QByteArray batch = seed % 2 ? "@echo off\r\n" : "";
    for (int i = 0; i < 60; ++i) batch += kPieces[qsizetype(random() % size_t(kPieces.size()))];
    // A jump back may loop for ever, as it does on Windows: each label ends the batch when it is reached too often.
    batch.replace(":l1\r\n", ":l1\r\nset N=%N%x\r\nif %N%==xxxx exit\r\n");
    QDir(Host({})).removeRecursively();
    QDir().mkpath(Host({}));
    Write(u"x.bat"_s, batch);
    const ConsoleRun run = Run({u"/k"_s, u"x.bat"_s, u"one"_s}, "");
    EXPECT_GE(run.exitCode, 0) << "seed " << seed << "\n" << batch.toStdString() << "\n" << run.output.substr(0, 2000);
    EXPECT_EQ(Leftovers(), QStringList()) << "seed " << seed;
    EXPECT_EQ(QDir(dir_.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), around) << "seed " << seed;
  }
}

TEST(RandomText, IsReadWithoutHarm) {
  std::mt19937 random(7);
  const BatchVariables variables;
  const QString signs = u"ab%\"^&|<>12 ,;=~*.?:@\r\t\u00e4"_s;
  for (int round = 0; round < 20000; ++round) {
    QString line;
    for (unsigned i = random() % 40; i > 0; --i) line += signs[int(random() % unsigned(signs.size()))];
    const QString expanded = ExpandVariables(line, variables, {line, line}, ExpansionRule::Batch);
    const ParsedLine parsed = ParseCommandLine(expanded);
    for (const CommandChain& chain : parsed.chains) {
      for (const CommandText& stage : chain.stages) SplitWords(stage.text);
    }
    MatchesWildcard(line, expanded);
    GoesOn(line);
  }
}

TEST(DosWildcard, MatchesAsDosDoes) {
  const QStringList names{u"a"_s, u"A.mpg"_s, u"ab.MPG"_s, u"a.b.mpg"_s, u".mpg"_s, u"Ä.m2v"_s};
  const std::pair<QString, QString> cases[] = {{u"*.*"_s, names.join(u' ')},
                                               {u"*"_s, names.join(u' ')},
                                               {u"*.mpg"_s, u"A.mpg ab.MPG a.b.mpg .mpg"_s},
                                               {u"a?.mpg"_s, u"A.mpg ab.MPG"_s},
                                               {u"a.*"_s, u"a A.mpg a.b.mpg"_s},
                                               {u"*."_s, u"a"_s},
                                               {u"ä.m?v"_s, u"Ä.m2v"_s},
                                               {u"?"_s, u"a"_s}};
  for (const auto& [pattern, expected] : cases) {
    QStringList matching = names;
    matching.removeIf([&](const QString& name) { return !MatchesWildcard(name, pattern); });
    EXPECT_EQ(matching.join(u' '), expected) << pattern.toStdString();
  }
}

}  // namespace
}  // namespace torvane::test
