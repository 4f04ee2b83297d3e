#include "media/sub_format_form.h"

#include "core/messages.h"
#include "core/text.h"
#include "media/video_title.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr SubField kCheckedFields[] = {SubField::LeftMargin,   SubField::RightMargin, SubField::TopMargin,
                                       SubField::BottomMargin, SubField::Width,       SubField::Height,
                                       SubField::FontSize};

}  // namespace

SubFormatForm::SubFormatForm(const Settings& settings)
    : Format(settings.DefaultSubFormatStr + u"/25/25/720/480"), videoHeight_(settings.VideoHeight) {}

SubFormatForm::SubFormatForm(const VideoTitle& title, int stream, const Settings& settings)
    : Format(title.SubFormatStr(stream).isEmpty()
                 ? NewSubFormat(settings.DefaultSubFormatStr, title.FPS(), title.ResV())
                 : title.SubFormatStr(stream)),
      Language(title.Fields.Languages.Subtitle[stream - 1]),
      stream_(stream),
      videoHeight_(settings.VideoHeight) {
  if (Format[SubField::FontFace].isEmpty()) Format[SubField::FontFace] = u"arial.ttf"_s;
}

QList<SubFieldFault> SubFormatForm::Validate() const {
  QList<SubFieldFault> faults;
  for (const SubField field : kCheckedFields) {
    const QString fault = SubFieldError(Format, field, videoHeight_);
    if (!fault.isEmpty()) faults.append({field, fault});
  }
  return faults;
}

void SubFormatForm::Accept(VideoTitle& title) const {
  SubFormat format = Format;
  format[SubField::MovieFps] = FormatNumberDot(title.FPS());
  title.SetSubFormatStr(stream_, format.Text());
  title.Fields.Languages.Subtitle[stream_ - 1] = Language;
}

void SubFormatForm::SetDefault(Settings& settings) const {
  settings.DefaultSubFormatStr = Format.DefaultText();
}

QStringList SubtitleFonts(const QString& windowsDir) {
  QStringList fonts;
  for (const QString& name : HostFiles::FileNames(windowsDir + u"\\fonts")) {
    if (GetExtensionUpper(name) == u"TTF") fonts << name;
  }
  return fonts;
}

QString FontViewer(const QString& windowsDir, Prompter& prompter) {
  for (const QStringView place : {QStringView(u"\\system32\\fontview.exe"), QStringView(u"\\fontview.exe")}) {
    QString viewer = windowsDir + place;
    if (HostFiles::FileExists(viewer)) return viewer;
  }
  prompter.Inform(GetMessage(613));
  return {};
}

}  // namespace torvane
