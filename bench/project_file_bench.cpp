// Budget: loading and saving 50,000 nodes below 0.2 s each; one change of such a tree far below 1 ms.

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <QTemporaryDir>

#include "core/default_project.h"
#include "core/project_file.h"
#include "platform/host_files.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

constexpr int kNodes = 50000;
constexpr double kMostBytesPerNode = 200;

class Silent : public Prompter {
 public:
  Answer Show(const Box& box) override { return box.preselected; }
};

/// Groups of ten attributes, as menus and films have them.
void FillProject(Project& project) {
  AddDefaultProject(project);
  for (int group = 0; project.Tree.NodeCount() < kNodes; ++group) {
    const QString key = u"X%1"_s.arg(group);
    project.Tree.Add({.Key = key, .Caption = u"Element%1"_s.arg(group), .Image = kHeadNode}, u"MMB"_s, Relation::Child);
    for (int i = 0; i < 10; ++i) {
      project.Tree.Add({.Key = key + u'A' + QString::number(i), .Caption = u"Attribute=%1"_s.arg(i)}, key,
                       Relation::Child);
    }
  }
}

struct Fixture {
  Fixture() : project(Settings{}) {
    FillProject(project);
    project.ProjectFile = HostFiles::ToDos(dir.path()) + u"\\large.tvn";
    SaveProject(project, prompter);
  }
  QTemporaryDir dir;
  Silent prompter;
  Project project;
};

void Save(benchmark::State& state) {
  Fixture fixture;
  for (auto _ : state) {
    if (!SaveProject(fixture.project, fixture.prompter)) state.SkipWithError("not saved");
  }
}
BENCHMARK(Save)->Unit(benchmark::kMillisecond);

void Load(benchmark::State& state) {
  Fixture fixture;
  Project loaded{Settings{}};
  for (auto _ : state) {
    if (!LoadProject(loaded, fixture.project.ProjectFile, fixture.prompter)) state.SkipWithError("not loaded");
  }
  if (loaded.Tree.NodeCount() < kNodes) state.SkipWithError("nodes are missing");
}
BENCHMARK(Load)->Unit(benchmark::kMillisecond);

void OneChange(benchmark::State& state) {
  Fixture fixture;
  int value = 0;
  for (auto _ : state) fixture.project.Tree.SetCaption(u"X2000A5"_s, u"Attribute=%1"_s.arg(++value));
}
BENCHMARK(OneChange);

std::size_t HeapInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

std::size_t TextBytes(const ProjectTree& tree) {
  qsizetype characters = 0;
  for (const ProjectNode* node = tree.FirstRoot(); node; node = tree.NextInOrder(node)) {
    characters += node->Key().size() + node->Caption().size() + node->Tag().size();
  }
  return std::size_t(characters) * sizeof(QChar);
}

/// What a loaded project takes on the heap beyond the characters of its nodes.
void Memory(benchmark::State& state) {
  const Fixture fixture;
  for (auto _ : state) {
    const std::size_t before = HeapInUse();
    Project loaded{Settings{}};
    Silent prompter;
    LoadProject(loaded, fixture.project.ProjectFile, prompter);
    const double perNode = double(HeapInUse() - before - TextBytes(loaded.Tree)) / double(loaded.Tree.NodeCount());
    state.counters["bytes/node"] = perNode;
    if (perNode > kMostBytesPerNode) {
      state.SkipWithError(qPrintable(u"%1 bytes a node beyond its text"_s.arg(perNode)));
    }
  }
}
BENCHMARK(Memory)->Iterations(3)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace torvane
