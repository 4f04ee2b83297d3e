#include "core/help_pages.h"

#include "core/messages.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

QStringView FileNameOf(HelpPage page) {
  switch (page) {
    case HelpPage::Index:
      return u"TVNIndex.html";
    case HelpPage::Faq:
      return u"TvnFAQ.html";
    case HelpPage::Readme:
      return u"TVNReadme.html";
  }
  return {};
}

}  // namespace

QString HelpDir(const Settings& settings) {
  return settings.AppPath + (settings.LangID == kGerman ? u"\\hilfe\\" : u"\\help\\");
}

Result<QString> FindHelpPage(const Settings& settings, HelpPage page) {
  const QString path = HelpDir(settings) + FileNameOf(page);
  if (HostFiles::FileExists(path)) return path;
  return Failure{GetMessage(715, {{u"|1", path}})};
}

}  // namespace torvane
