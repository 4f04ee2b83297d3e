#pragma once

#include <QRect>

#include "support/project_builder.h"

namespace torvane::test {

/// Gives a node "key|caption|tag" its caption and tag, and adds it when it is missing.
inline void SetNode(Project& project, const QString& parent, const QString& line) {
  const QString key = line.section(u'|', 0, 0);
  if (!project.Tree.Contains(key)) {
    AddNode(project, parent, line);
    return;
  }
  project.Tree.SetCaption(key, line.section(u'|', 1, 1));
  project.Tree.SetTag(key, line.section(u'|', 2, 2));
}

/// Sets attributes ("Align=2") of the properties node of a button or label.
inline void SetDrawing(Project& project, const QString& properties, const QStringList& attributes) {
  for (const QString& attribute : attributes) {
    SetNode(project, properties, properties + attribute.section(u'=', 0, 0) + u'|' + attribute);
  }
}

inline QStringList PlaceAttributes(const QRect& place) {
  return {u"Left=" + QString::number(place.x()), u"Top=" + QString::number(place.y()),
          u"Width=" + QString::number(place.width()), u"Height=" + QString::number(place.height())};
}

inline void AddButton(Project& project, const QString& menu, int number, const QString& text, const QRect& place,
                      const QStringList& attributes = {}) {
  AddTextButton(project, menu, number, QStringLiteral("FreeButton1"), text, QStringLiteral("jump title 1;"));
  SetDrawing(project, ButtonPropertiesKey(menu, number), PlaceAttributes(place) + attributes);
}

inline void AddLabel(Project& project, const QString& menu, int index, const QString& text, const QRect& place,
                     const QStringList& attributes = {}) {
  const QString key = LabelKey(menu, index);
  AddNode(project, MenuNodeKey(menu, menu_node::Labels), key + u"|Label1");
  AddNode(project, key, key + u"Text|Text=" + text);
  AddNode(project, key, LabelPropertiesKey(menu, index) + u"|Properties");
  SetDrawing(project, LabelPropertiesKey(menu, index),
             PlaceAttributes(place) +
                 QStringList{QStringLiteral("Font=Arial"), QStringLiteral("FontSize=16"),
                             QStringLiteral("Color=255,255,255")} +
                 attributes);
}

inline void AddImage(Project& project, const QString& menu, int number, const QString& path, const QRect& place) {
  const QString key = ImageKey(menu, number);
  AddNode(project, MenuNodeKey(menu, menu_node::Images), key + u"|Image1");
  AddNode(project, key, key + u"File|" + path);
  AddNode(project, key, key + u"HSize|HSize=" + QString::number(place.width()));
  AddNode(project, key, key + u"VSize|VSize=" + QString::number(place.height()));
  AddNode(project, key, key + u"Left|Left=" + QString::number(place.x()));
  AddNode(project, key, key + u"Top|Top=" + QString::number(place.y()));
}

/// The mask of a button or image. `highlight` is "" for none.
inline void AddMask(Project& project, const QString& element, const QString& path, const QString& relSize,
                    const QString& highlight, int xOffset = 0, int yOffset = 0) {
  const QString key = element + u"GifMask";
  AddNode(project, element, key + u"|GifMask=1");
  AddNode(project, key, key + u"Gif|Gif=mask|" + path);
  if (!relSize.isEmpty()) AddNode(project, key, key + u"RelSize|Rel.Size=" + relSize);
  AddNode(project, key, key + u"XOff|X-Offset=" + QString::number(xOffset));
  AddNode(project, key, key + u"YOff|Y-Offset=" + QString::number(yOffset));
  if (!highlight.isEmpty()) AddNode(project, key, key + u"UseHigh|Highlight=" + highlight);
}

/// Sets a caption of an existing attribute of the menu's own nodes: "MMHT2" to "Frame=1".
inline void SetCaptions(Project& project, const QList<QPair<QString, QString>>& captions) {
  for (const auto& [key, caption] : captions) project.Tree.SetCaption(key, caption);
}

}  // namespace torvane::test
