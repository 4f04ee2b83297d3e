#include "shell/control_file.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <algorithm>

#include "platform/dos_code_page.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

bool IsTag(const LoosePiece& piece, const QString& name) {
  return (piece.kind == LoosePiece::Kind::OpenTag || piece.kind == LoosePiece::Kind::EmptyTag) && piece.name == name;
}

QString Decode(const QByteArray& bytes) {
  QStringDecoder decoder(QStringDecoder::Utf8);
  const QString text = decoder.decode(bytes);
  return decoder.hasError() ? FromDosCodePage(bytes) : text;
}

LooseAttribute* Find(LoosePiece& piece, const QString& name) {
  const auto found = std::ranges::find(piece.attributes, name, &LooseAttribute::name);
  return found == piece.attributes.end() ? nullptr : &*found;
}

void MapAttribute(LooseAttribute& attribute, const PathMapper& map) {
  const QString path = PathOfValue(attribute.value);
  if (!path.isEmpty()) attribute.value = EncodeValue(map(path));
}

}  // namespace

QString PathOfValue(const QString& value) {
  const QString decoded = DecodeEntities(value);
  return decoded != value && HostFiles::FileExists(value) ? value : decoded;
}

ControlFile::ControlFile(const QByteArray& bytes) {
  QString text = Decode(bytes);
  if (text.startsWith(QChar::ByteOrderMark)) text.remove(0, 1);
  pieces_ = ParseLooseXml(text);
}

QByteArray ControlFile::ToBytes() const {
  QList<LoosePiece> pieces = pieces_;
  for (LoosePiece& piece : pieces) {
    if (piece.kind == LoosePiece::Kind::Verbatim && piece.text.startsWith(u"<?xml")) {
      piece.text = u"<?xml version=\"1.0\" encoding=\"utf-8\"?>"_s;
    }
  }
  return ToWellFormed(pieces).toUtf8();
}

QString ControlFile::StatedVideoFormat() const {
  for (const LoosePiece& piece : pieces_) {
    if (!IsTag(piece, u"video"_s)) continue;
    for (const LooseAttribute& attribute : piece.attributes) {
      if (attribute.name != u"format") continue;
      QString format = attribute.value.trimmed().toUpper();
      if (format == u"PAL" || format == u"NTSC") return format;
    }
  }
  return {};
}

QString ControlFile::Disc() const {
  QString folder;
  bool hasManager = false;
  for (const LoosePiece& piece : pieces_) {
    hasManager = hasManager || IsTag(piece, u"vmgm"_s);
    if (!IsTag(piece, u"dvdauthor"_s)) continue;
    for (const LooseAttribute& attribute : piece.attributes) {
      if (attribute.name == u"dest") folder = PathOfValue(attribute.value);
    }
  }
  return hasManager ? folder : QString();
}

QStringList ControlFile::Films() const {
  QStringList films;
  for (const LoosePiece& piece : pieces_) {
    if (!IsTag(piece, u"vob"_s)) continue;
    for (const LooseAttribute& attribute : piece.attributes) {
      if (attribute.name == u"file") films << PathOfValue(attribute.value);
    }
  }
  return films;
}

QStringList ControlFile::Commands() const {
  QStringList commands;
  QString text;
  bool inside = false;
  for (const LoosePiece& piece : pieces_) {
    if (piece.kind == LoosePiece::Kind::Text && inside) text += piece.text;
    const bool ends = inside && piece.kind == LoosePiece::Kind::CloseTag;
    if (ends && !text.trimmed().isEmpty()) commands << text;
    if (ends || piece.kind == LoosePiece::Kind::OpenTag) {
      inside = !ends && HoldsCommands(piece.name);
      text.clear();
    }
  }
  return commands;
}

void ControlFile::MapAuthorPaths(const PathMapper& map) {
  for (LoosePiece& piece : pieces_) {
    for (LooseAttribute& attribute : piece.attributes) {
      const bool isPath = (piece.name == u"dvdauthor" && attribute.name == u"dest") ||
                          (piece.name == u"vob" && attribute.name == u"file") || attribute.name == u"palette";
      if (isPath) MapAttribute(attribute, map);
    }
  }
}

void ControlFile::ExcludePanScan() {
  LoosePiece* video = nullptr;
  QStringList modes;
  for (LoosePiece& piece : pieces_) {
    if (IsTag(piece, u"video"_s)) {
      video = &piece;
      modes.clear();
    } else if (IsTag(piece, u"stream"_s)) {
      for (const LooseAttribute& attribute : piece.attributes) {
        if (attribute.name == u"mode") modes << attribute.value;
      }
    } else if (piece.kind == LoosePiece::Kind::CloseTag && piece.name == u"subpicture" && video) {
      const bool states = std::ranges::any_of(
          video->attributes, [](const LooseAttribute& attribute) { return attribute.name == u"widescreen"; });
      if (!states && modes == QStringList{u"widescreen"_s, u"letterbox"_s}) {
        video->attributes << LooseAttribute{u" "_s, u"widescreen"_s, u"nopanscan"_s};
      }
      video = nullptr;
    }
  }
}

void ControlFile::MapSpumuxPaths(const PathMapper& map, const PathMapper& font) {
  for (LoosePiece& piece : pieces_) {
    for (LooseAttribute& attribute : piece.attributes) {
      const bool picture = piece.name == u"spu" && (attribute.name == u"image" || attribute.name == u"highlight" ||
                                                    attribute.name == u"select");
      if (picture || (piece.name == u"textsub" && attribute.name == u"filename")) MapAttribute(attribute, map);
      if (piece.name == u"textsub" && attribute.name == u"font") {
        attribute.value = EncodeValue(font(PathOfValue(attribute.value)));
      }
    }
  }
}

Status ControlFile::ReplaceTexts(const std::function<Result<SubtitleText>(const QString&)>& answer) {
  for (LoosePiece& piece : pieces_) {
    LooseAttribute* const file = IsTag(piece, u"textsub"_s) ? Find(piece, u"filename"_s) : nullptr;
    if (!file) continue;
    const Result<SubtitleText> given = answer(PathOfValue(file->value));
    if (!given) return Failure{given.Error()};
    if (!given->file.isEmpty()) file->value = EncodeValue(given->file);
    if (given->characterSet.isEmpty()) continue;
    if (LooseAttribute* const stated = Find(piece, u"characterset"_s)) {
      stated->value = given->characterSet;
    } else {
      piece.attributes << LooseAttribute{u" "_s, u"characterset"_s, given->characterSet};
    }
  }
  return {};
}

Status ControlFile::ReplacePalettes(const std::function<Result<QString>(const QString&)>& answer) {
  static const QRegularExpression kSubtitled(u"_SUB[1-3]\\.mpg$"_s, QRegularExpression::CaseInsensitiveOption);
  LooseAttribute* palette = nullptr;
  for (LoosePiece& piece : pieces_) {
    if (IsTag(piece, u"pgc"_s)) palette = Find(piece, u"palette"_s);
    LooseAttribute* const film = palette && IsTag(piece, u"vob"_s) ? Find(piece, u"file"_s) : nullptr;
    if (!film || !kSubtitled.match(film->value).hasMatch()) continue;
    const Result<QString> given = answer(PathOfValue(palette->value));
    if (!given) return Failure{given.Error()};
    palette->value = EncodeValue(*given);
    palette = nullptr;
  }
  return {};
}

void ControlFile::SetTextColors(const QString& outline, const QString& fill) {
  for (LoosePiece& piece : pieces_) {
    if (!IsTag(piece, u"textsub"_s)) continue;
    for (const auto& [name, color] : {std::pair(u"outline-color"_s, outline), std::pair(u"fill-color"_s, fill)}) {
      const bool stated =
          std::any_of(piece.attributes.cbegin(), piece.attributes.cend(),
                      [&name = name](const LooseAttribute& attribute) { return attribute.name == name; });
      if (!stated) piece.attributes << LooseAttribute{u" "_s, name, color};
    }
  }
}

}  // namespace torvane
