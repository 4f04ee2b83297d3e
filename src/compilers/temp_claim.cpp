#include "compilers/temp_claim.h"

#include <algorithm>

#include "compilers/disc_checks.h"
#include "compilers/former_disc.h"
#include "platform/generated_file.h"
#include "platform/host_files.h"
#include "run/batch_outputs.h"
#include "run/source_guard.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr qsizetype kMostNames = 10;

QString FirstNames(const QStringList& names, const QString& between) {
  return names.first(std::min(names.size(), kMostNames)).join(between) +
         (names.size() > kMostNames ? u" ..."_s : u""_s);
}

/// What a run makes that is not temporary, should it lie there as well.
SourceGuard ResultsOf(const Settings& settings) {
  const QString iso = IsoFile(settings);
  QStringList results{settings.OutDir,     settings.ISOPath,
                      settings.TVNLogFile, iso,
                      iso + u".former",    FormerDisc(settings.OutDir).Folder()};
  for (const QStringView name : {u"DVD", u"TorvaneAuthor.log", u"muxman.log", u"ImgBurn.log"}) {
    results << settings.OutDir + u'\\' + name;
  }
  return SourceGuard(results);
}

}  // namespace

bool CleansTemp(const TempFiles& files, const Settings& settings, Prompter& prompter) {
  if (!settings.AutoDelete) return false;
  const QStringList others = files.Others(ResultsOf(settings));
  if (others.isEmpty()) return true;
  prompter.Warn(
      u"The temporary directory %1 holds what Torvane did not make, such as %2. Nothing is deleted there "
      u"after this run."_s.arg(HostFiles::ToHost(settings.TempDir), FirstNames(others, u", "_s)));
  return false;
}

QStringList OutputNames(const QList<QByteArray>& batches, const QString& tempDir) {
  QStringList names;
  for (const QByteArray& batch : batches) names += OutputsInTemp(batch, tempDir).names;
  return names;
}

bool ClaimOutputs(TempFiles& files, const QList<QByteArray>& batches, const Settings& settings,
                  const QStringList& sources, Prompter& prompter) {
  QStringList names;
  QStringList lost;
  for (const QByteArray& batch : batches) {
    const BatchOutputs outputs = OutputsInTemp(batch, settings.TempDir);
    names += outputs.names;
    lost += files.OthersMatching(outputs.masks);
  }
  QStringList written = names;
  for (const QString& name : std::as_const(names)) written << name + kUnfinishedEnding;
  lost += files.OthersAmong(written);
  const SourceGuard guard(sources);
  for (const QString& name : std::as_const(names)) {
    if (guard.Protects(settings.TempDir + u'\\' + QString(name).replace(u'/', u'\\'))) lost << name;
  }
  lost.removeDuplicates();
  if (!lost.isEmpty()) {
    prompter.Fail(
        u"These files of the temporary directory %1 would be overwritten or erased, and Torvane did not make "
        u"them. Please move them elsewhere or choose another temporary directory:\r\n%2"_s.arg(
            HostFiles::ToHost(settings.TempDir), FirstNames(lost, u"\r\n"_s)));
    return false;
  }
  Status claimed = files.RemoveLinks(written);
  if (claimed) claimed = files.Note(names);
  if (!claimed) prompter.Fail(claimed.Error());
  return bool(claimed);
}

}  // namespace torvane
