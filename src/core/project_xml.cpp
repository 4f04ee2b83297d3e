#include "core/project_xml.h"

#include <QXmlStreamReader>

#include "core/text.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr std::size_t kMostNodes = 500'000;  ///< ten times a very large project
constexpr std::size_t kMostLevels = 64;  ///< a project has six; each level is two blanks in every line below it

/// The second line of a text with any kind of line end.
QByteArray SecondLine(const QByteArray& file) {
  const auto lineEnd = [&file](qsizetype from) {
    while (from < file.size() && file[from] != '\r' && file[from] != '\n') ++from;
    return from;
  };
  qsizetype start = lineEnd(0);
  if (start < file.size() && file.sliced(start).startsWith("\r\n")) ++start;
  if (start >= file.size()) return {};
  ++start;
  return file.sliced(start, lineEnd(start) - start);
}

/// Puts "_" in front of the attribute name 169MODE in the tags of settings elements, leaving quoted values alone.
QByteArray MendAttributeName(const QByteArray& file) {
  QByteArray mended;
  qsizetype copied = 0;
  for (const char* tag : {"<SETTINGS4", "<SETTINGS5"}) {
    qsizetype i = file.indexOf(tag);
    if (i < 0) continue;
    char quote = 0;
    for (; i < file.size() && (quote || file[i] != '>'); ++i) {
      if (quote) {
        if (file[i] == quote) quote = 0;
      } else if (file[i] == '"' || file[i] == '\'') {
        quote = file[i];
      } else if (QChar::isSpace(uchar(file[i])) && QByteArrayView(file).sliced(i + 1).startsWith("169MODE") &&
                 i + 1 >= copied) {
        mended += QByteArrayView(file).sliced(copied, i + 1 - copied);
        mended += '_';
        copied = i + 1;
      }
    }
  }
  return copied == 0 ? file : mended + QByteArrayView(file).sliced(copied);
}

NodeData ReadNode(const QXmlStreamAttributes& attributes) {
  return {attributes.value("Key"_L1).toString(), NormalizeLineBreaks(attributes.value("Caption"_L1).toString()),
          NormalizeLineBreaks(attributes.value("Tag"_L1).toString()), ValToInt(attributes.value("Image"_L1))};
}

}  // namespace

std::optional<int> ReadFileVersion(const QByteArray& file) {
  const QString line = QString::fromUtf8(SecondLine(file));
  const qsizetype name = line.indexOf(u"TVNVERSION", 0, Qt::CaseInsensitive);
  if (name < 0) return std::nullopt;
  QString version = line.sliced(name).section(u'"', 1, 1);
  const double number = Val(version.replace(u',', u'.'));
  return static_cast<int>(RoundHalfEven(std::min(number, 1e6) * 1000));
}

Result<ProjectXml> ReadProjectXml(const QByteArray& file) {
  ProjectXml project;
  QXmlStreamReader reader(MendAttributeName(file));
  std::vector<int> open;  // indices of the nodes whose element is open; -1 for any other element
  while (!reader.atEnd()) {
    const QXmlStreamReader::TokenType token = reader.readNext();
    if (token == QXmlStreamReader::EndElement) {
      open.pop_back();
    } else if (token == QXmlStreamReader::StartElement) {
      int index = -1;
      if (open.size() == 1 && reader.name() != u"NODE") {
        QHash<QString, QString>& attributes = project.elements[reader.name().toString()];
        for (const QXmlStreamAttribute& attribute : reader.attributes()) {
          attributes.insert(attribute.name().toString(), attribute.value().toString());
        }
      } else if (!open.empty() && reader.name() == u"NODE" && (open.size() == 1 || open.back() >= 0)) {
        index = static_cast<int>(project.nodes.size());
        project.nodes.push_back({ReadNode(reader.attributes()), open.size() == 1 ? -1 : open.back()});
      }
      open.push_back(index);
      if (project.nodes.size() > kMostNodes) reader.raiseError(u"there are more than %1 nodes"_s.arg(kMostNodes));
      if (open.size() > kMostLevels) reader.raiseError(u"elements stand more than %1 levels deep"_s.arg(kMostLevels));
    }
  }
  if (reader.hasError()) {
    return Failure{u"line %1, column %2: %3"_s.arg(reader.lineNumber()).arg(reader.columnNumber()).arg(
        reader.errorString())};
  }
  return project;
}

}  // namespace torvane
