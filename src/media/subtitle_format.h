#pragma once

#include <QList>
#include <QString>
#include <array>

namespace torvane {

/// The fields of a subtitle format string, in their order.
enum class SubField {
  CharSet,
  FontSize,  ///< points
  FontFace,  ///< file name of a TrueType font
  HAlign,
  VAlign,
  LeftMargin,  ///< margins, width and height in pixels
  RightMargin,
  TopMargin,
  BottomMargin,
  MovieFps,
  SubtitleFps,
  Width,
  Height
};

inline constexpr int kSubFields = 13;
inline constexpr int kStoredSubFields = 9;  ///< a stored default ends with the bottom margin

inline constexpr std::array<QStringView, 28> kSubCharSets{
    u"ISO-8859-1",  u"ISO-8859-2",  u"ISO-8859-3",  u"ISO-8859-5",  u"ISO-8859-6",  u"ISO-8859-7", u"ISO-8859-8",
    u"ISO-8859-9",  u"ISO-8859-10", u"ISO-8859-13", u"ISO-8859-15", u"ISO-8859-16", u"KOI8-R",     u"SHIFT_JIS",
    u"ISO-2022-JP", u"EUC-JP",      u"CP850",       u"CP866",       u"CP936",       u"CP1250",     u"CP1251",
    u"CP1252",      u"CP1254",      u"CP1257",      u"MACINTOSH",   u"BIG5",        u"GB2312",     u"UTF-8"};
inline constexpr std::array<QStringView, 3> kSubHAligns{u"left", u"center", u"right"};
inline constexpr std::array<QStringView, 3> kSubVAligns{u"top", u"center", u"bottom"};
inline constexpr std::array<QStringView, 8> kSubFpsValues{u"23.976", u"24", u"25",    u"29.97",
                                                          u"30",     u"50", u"59.94", u"60"};

/// How a text subtitle is drawn: one text of 13 fields separated by "/".
class SubFormat {
 public:
  SubFormat() = default;

  /// Takes a format string apart; a missing field is "", what follows the last one is left out.
  explicit SubFormat(const QString& text);

  QString& operator[](SubField field) { return fields_[size_t(field)]; }
  const QString& operator[](SubField field) const { return fields_[size_t(field)]; }

  QString Text() const;
  QString DefaultText() const;  ///< the fields that a stored default has

  bool operator==(const SubFormat&) const = default;

 private:
  QString Joined(int count) const;

  std::array<QString, kSubFields> fields_;
};

/// The format string of a new subtitle stream: a stored default with the film's frame rate for both rates, 720 pixels
/// wide and as high as the film.
QString NewSubFormat(const QString& stored, float fps, int ResV);

/// Why a field of a format may not stand as it is, as the text of a message box; "" where it may. `videoHeight` is 576
/// or 480. Fields other than margins, width, height and font size are never refused.
QString SubFieldError(const SubFormat& format, SubField field, int videoHeight);

/// The first bytes of a subtitle file tell whether it can be one: a ".sup" begins with "SP", any other file is text and
/// has no two zero bytes side by side among its first 11.
bool CheckSubtitleFile(const QString& path);

}  // namespace torvane
