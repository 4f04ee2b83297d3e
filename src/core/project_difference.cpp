#include "core/project_difference.h"

namespace torvane {
namespace {

using Difference = ProjectDifference;

constexpr auto kIntroKeys = std::to_array<QStringView>({u"IntroMovie", u"IntroAudio", u"UseIntro"});

// They follow from settings of the project, or from the menu shown.
constexpr auto kDerived = std::to_array<int Settings::*>(
    {&Settings::VideoHeight, &Settings::ActiveRasterX, &Settings::ActiveRasterY});

template <class Table>
void CompareTables(Difference::Family family, const Table& before, const Table& after,
                   std::vector<Difference::Slot>& slots) {
  for (int i = 0; i < int(before.size()); ++i) {
    if (before[i] != after[i]) slots.push_back({family, i, before[i], after[i]});
  }
}

}  // namespace

bool BelongsToProject(const SettingRow& row) {
  return row.project.element != 0 || std::ranges::find(kIntroKeys, row.key) != kIntroKeys.end();
}

ProjectSnapshot::ProjectSnapshot(const Project& project)
    : State(project),
      MainSubMenuTable(project.MainSubMenuTable),
      SubMenuTable(project.SubMenuTable),
      Settings(project.Settings) {}

ProjectDifference::ProjectDifference(const ProjectSnapshot& snapshot, const Project& project)
    : before(snapshot.State), after(project) {
  CompareTables(Family::Main, snapshot.MainSubMenuTable, project.MainSubMenuTable, slots);
  CompareTables(Family::TitleSet, snapshot.SubMenuTable, project.SubMenuTable, slots);

  const auto compare = [&](auto member) {
    const auto& was = snapshot.Settings.*member;
    const auto& is = project.Settings.*member;
    if (was != is) settings.push_back({member, was, is});
  };
  for (const SettingRow& row : SettingsTable()) {
    if (BelongsToProject(row)) std::visit(compare, row.member);
  }
  for (int Settings::*member : kDerived) compare(member);
}

bool ProjectDifference::IsEmpty() const {
  if (!slots.empty()) return false;
  for (const Setting& setting : settings) {
    const auto* number = std::get_if<int Settings::*>(&setting.member);
    const bool raster = number && (*number == &Settings::ActiveRasterX || *number == &Settings::ActiveRasterY);
    if (!raster) return false;
  }
  ProjectState shown = before;
  shown.CurrentMenuKey = after.CurrentMenuKey;
  shown.CurrentTitleSet = after.CurrentTitleSet;
  return shown == after;
}

void ProjectDifference::Apply(Project& project, Side side) const {
  static_cast<ProjectState&>(project) = side == Side::Before ? before : after;
  for (const Slot& slot : slots) {
    MenuSlot& target = slot.family == Family::Main ? project.MainSubMenuTable[slot.number]
                                                   : project.SubMenuTable[slot.number];
    target = side == Side::Before ? slot.before : slot.after;
  }
  for (const Setting& setting : settings) {
    std::visit(
        [&](auto member) {
          using Value = std::remove_reference_t<decltype(project.Settings.*member)>;
          project.Settings.*member = std::get<Value>(side == Side::Before ? setting.before : setting.after);
        },
        setting.member);
  }
}

}  // namespace torvane
