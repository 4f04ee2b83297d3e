#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include "core/prompter.h"
#include "core/settings.h"
#include "media/subtitle_format.h"

namespace torvane {

class VideoTitle;

/// A field that may not stand as it is, and why.
struct SubFieldFault {
  SubField Field = SubField::CharSet;
  QString Text = {};
  bool operator==(const SubFieldFault&) const = default;
};

/// A subtitle format under edit: that of a film's stream, or the default of the settings.
class SubFormatForm {
 public:
  explicit SubFormatForm(const Settings& settings);
  SubFormatForm(const VideoTitle& title, int stream, const Settings& settings);

  SubFormat Format;
  int Language = 0;  ///< place in LanguageList

  /// Frame rate, width, height, language and the storing as default belong to a stream alone.
  bool HasStreamFields() const { return stream_ != 0; }

  QList<SubFieldFault> Validate() const;

  /// Stores what stands there: in the film's stream, or as the default.
  void Accept(VideoTitle& title) const;
  void SetDefault(Settings& settings) const;

 private:
  int stream_ = 0;
  int videoHeight_;
};

/// Names of the TrueType fonts of the system's font folder.
QStringList SubtitleFonts(const QString& windowsDir);

/// The font viewer of the system; "" when there is none, and the user has been told.
QString FontViewer(const QString& windowsDir, Prompter& prompter);

}  // namespace torvane
