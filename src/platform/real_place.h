#pragma once

#include <QString>
#include <QStringList>

namespace torvane {

/// Host path with all links followed, as far as the path exists; what lies behind that stands as written. Absolute.
QString ResolvedPath(const QString& dosPath);

/// Where a path really lies: equal for all ways to write it, through links, "..", mounts and letters of either case.
/// Hard links are one place. Of what does not exist yet, the nearest existing folder counts and the names behind it.
struct RealPlace {
  quint64 device = 0;
  quint64 inode = 0;
  QString rest = {};  ///< names behind what exists, in small letters
  bool operator==(const RealPlace&) const = default;
};
size_t qHash(const RealPlace& place, size_t seed = 0);

/// Place of what a path leads to.
RealPlace PlaceOf(const QString& dosPath);

/// Place of the name itself: that of the link where the last part is one.
RealPlace PlaceOfName(const QString& dosPath);

/// True when the path, by its own name or by what it leads to, lies in the folder or anywhere below it.
bool LiesWithin(const QString& dosPath, const QString& dosFolder);

/// True when it lies directly in the folder.
bool LiesDirectlyIn(const QString& dosPath, const QString& dosFolder);

/// True when something bears the name, be it a link that leads nowhere.
bool NameExists(const QString& dosPath);

/// True when the name itself is a link.
bool IsLink(const QString& dosPath);

}  // namespace torvane
