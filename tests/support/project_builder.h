#pragma once

#include <QStringList>

#include "core/default_project.h"
#include "core/project.h"

namespace torvane::test {

/// The settings of an empty profile, but with fixed directories.
inline Settings FixedSettings() {
  Settings settings;
  settings.AppPath = QStringLiteral("C:\\App");
  settings.OutDir = QStringLiteral("C:\\O");
  settings.TempDir = QStringLiteral("C:\\T");
  settings.DvdAuthorPath = QStringLiteral("C:\\tools");
  settings.NoTitleSets = true;
  settings.VideoHeight = 576;
  return settings;
}

/// The head of a film that an analyser takes for MPEG-2 video of 720 by 576 pixels, 4:3, 25 pictures a second.
inline QByteArray FilmHead() {
  return QByteArray("\x00\x00\x01\xB3\x2D\x02\x40\x23\x24\x9F\x23\x80", 12) +
         QByteArray("\x00\x00\x01\xB5\x14\x8A\x00\x01\x00\x00", 10) + QByteArray(200, '\0');
}

/// The head of AC3 sound of 48000 Hz.
inline QByteArray SoundHead() {
  return QByteArray("\x0B\x77\x00\x00\x1E\x40", 6) + QByteArray(200, '\0');
}

/// Adds a child node from "key|caption|tag".
inline void AddNode(Project& project, const QString& parent, const QString& line) {
  const QStringList fields = line.split(u'|');
  project.Tree.Add({.Key = fields.value(0), .Caption = fields.value(1), .Tag = fields.value(2)}, parent,
                   Relation::Child);
}

inline void AddTextButton(Project& project, const QString& menu, int number, const QString& caption, const QString& text,
                          const QString& action) {
  const QString key = ButtonKey(menu, number);
  const QString properties = ButtonPropertiesKey(menu, number);
  AddNode(project, MenuNodeKey(menu, menu_node::Buttons), key + u'|' + caption);
  AddNode(project, key, key + u"Text|Text=" + text);
  AddNode(project, key, key + u"Action|Action=" + action);
  AddNode(project, key, key + u"FixedSize|FixedSize=0");
  AddNode(project, key, properties + u"|Properties");
  for (const QString& attribute :
       {QStringLiteral("NormVis=1"), QStringLiteral("Align=0"), QStringLiteral("Color=255,255,255"),
        QStringLiteral("Left=100"), QString(u"Top=" + QString::number(60 + 60 * number)), QStringLiteral("Width=150"),
        QStringLiteral("Height=30"), QStringLiteral("Font=Arial"), QStringLiteral("FontSize=16"),
        QStringLiteral("FontBold=0"), QStringLiteral("FontItalic=0"), QStringLiteral("FontStrikethru=0"),
        QStringLiteral("FontUnderline=0")}) {
    AddNode(project, properties, properties + attribute.section(u'=', 0, 0) + u'|' + attribute);
  }
}

inline void AddFilm(Project& project, int number, const QString& owner, const QString& video) {
  const QString n = QString::number(number);
  project.Tree.Add({.Key = FilmKey(number), .Caption = u"Film" + n, .Tag = owner});
  AddNode(project, FilmKey(number), u"FP" + n + u"|Name=Film" + n + u'|' + n);
  const QString name = u"FP" + n;
  AddNode(project, name, u"FPV" + n + u"|Video=" + video + u"|2");
  AddNode(project, u"FPV" + n, u"FPVSize" + n + u"|Size(MB)=100");
  AddNode(project, u"FPV" + n, u"FPVFps" + n + u"|FPS=25");
  AddNode(project, name, u"FPCH" + n + u"|Chapters=00:00:00.000");
  AddNode(project, name, u"FPTS" + n + u"|TotalSize(MB)=100");
  AddNode(project, name, u"FPMux" + n + u"|Mux=1");
  AddNode(project, name, u"FPAni" + n + u"|Animated=0|" + owner);
  project.FilmCount = project.TitleSetCount = number;
}

/// A main submenu in slot 1 with its Back button, as button 3 of the main menu leads to it.
inline void AddSubMenu(Project& project) {
  AddNode(project, MainMenuKey(), QStringLiteral("MMM|SubMenus"));
  AddNode(project, QStringLiteral("MMM"), QStringLiteral("MMM1|SubMenu1 Type=SubMenu, PreviousMenu=MainMenu|MM1"));
  AddMenuSubtree(project, {.kind = MenuKind::MainSubMenu,
                           .number = 1,
                           .key = MainSubMenuKey(1),
                           .preCommand = QStringLiteral("button=1024;"),
                           .action = QStringLiteral("jump menu 2;"),
                           .buttonKey = QStringLiteral("MMB3")});
  project.MainSubMenuTable[1] = {true, 0, MainSubMenuKey(1), QStringLiteral("jump menu 2;"), QStringLiteral("MMB3")};
  AddTextButton(project, MainSubMenuKey(1), 0, QStringLiteral("BackButton"), QStringLiteral("Back"),
                QStringLiteral("jump menu 1;"));
}

/// Two films, a main menu with three buttons and one submenu with its Back button.
inline void BuildTwoFilms(Project& project) {
  AddDefaultProject(project);
  AddTextButton(project, MainMenuKey(), 1, QStringLiteral("FilmButton1"), QStringLiteral("First"),
                QStringLiteral("g1=1;jump title 1;"));
  AddTextButton(project, MainMenuKey(), 2, QStringLiteral("FilmButton2"), QStringLiteral("Second"),
                QStringLiteral("g1=2;jump title 2;"));
  AddTextButton(project, MainMenuKey(), 3, QStringLiteral("MenuButton1"), QStringLiteral("More"),
                QStringLiteral("jump menu 2;"));
  AddSubMenu(project);
  AddFilm(project, 1, MainMenuKey(), QStringLiteral("C:\\v\\a.m2v"));
  AddFilm(project, 2, MainMenuKey(), QStringLiteral("C:\\v\\b.m2v"));
}

}  // namespace torvane::test
