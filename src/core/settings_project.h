#pragma once

#include <QHash>
#include <QList>
#include <QString>
#include <utility>

#include "core/settings.h"

namespace torvane {

/// The version that project files carry and up to which they are read.
inline constexpr QStringView ProgramVersion = u"1.07";

/// One of the five settings elements of a project file, its attributes in file order.
struct ProjectElement {
  QString name;
  QList<std::pair<QString, QString>> attributes;
  bool operator==(const ProjectElement&) const = default;
};

/// SETTINGS, SETTINGS2 to SETTINGS5 as a project file holds them; the first attribute of SETTINGS is TVNVERSION.
QList<ProjectElement> ProjectAttributes(const Settings& settings);

/// Attributes by name of the settings elements by name.
using ElementAttributes = QHash<QString, QHash<QString, QString>>;

/// Takes the settings of a project file of the given version: SETTINGS; above 0.85 also SETTINGS2 to SETTINGS4, of
/// which the last holds in files up to 1.04 what later went to SETTINGS5; above 1.04 also SETTINGS5. A setting whose
/// attribute is absent stays, but for NOMENUS, LOOPSYNTAX, ENGINE, 169MODE, AUDIOTSTYPE and ADJNTSCTC, which absent
/// from SETTINGS4 are 0. Masks are looked up in the mask directory of the project. VideoHeight and the effects of
/// NoMenus follow. Paths take
/// their DOS form, relative ones being relative to `projectDir`.
void ReadProjectSettings(const ElementAttributes& elements, float fileVersion, const QString& projectDir,
                         Settings& settings);

}  // namespace torvane
