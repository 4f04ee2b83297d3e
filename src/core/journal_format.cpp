#include "core/journal_format.h"

#include <QDataStream>
#include <QIODevice>
#include <algorithm>
#include <cstring>
#include <utility>

#include "core/edit.h"
#include "core/project_settings.h"
#include "core/settings_table.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {
namespace {

enum class Record : quint8 { Add = 1, Remove, Move, Caption, Tag, Clear, State, MainSlot, TitleSetSlot, Setting };

constexpr qsizetype kFrameSize = sizeof(quint32) + sizeof(quint64);

/// Not against intent, only against torn and damaged files.
quint64 Checksum(QByteArrayView bytes) {
  constexpr quint64 kPrime = 0x9E3779B97F4A7C15;
  quint64 sum = quint64(bytes.size()) * kPrime;
  while (!bytes.isEmpty()) {
    const qsizetype count = std::min<qsizetype>(bytes.size(), sizeof(quint64));
    quint64 word = 0;
    std::memcpy(&word, bytes.data(), std::size_t(count));
    sum = (sum ^ word) * kPrime;
    sum ^= sum >> 32;
    bytes = bytes.sliced(count);
  }
  return sum;
}

void SetForm(QDataStream& stream) {
  stream.setVersion(QDataStream::Qt_6_0);
  stream.setByteOrder(QDataStream::LittleEndian);
}

/// Name of a setting in a journal.
QString NameOf(const SettingRow& row) { return (row.key.isEmpty() ? row.project.attribute : row.key).toString(); }

/// Writes records to the end of the bytes.
class Writer : public QDataStream {
 public:
  explicit Writer(QByteArray& bytes) : QDataStream(&bytes, QIODevice::Append) { SetForm(*this); }

  QDataStream& Begin(Record record) { return *this << quint8(record); }

  void Node(const ProjectNode& node) {
    Begin(Record::Add) << node.Key() << node.Caption() << node.Tag() << qint32(node.Image());
    Place(node);
  }

  /// The keys of the parent and of the sibling in front, "" for none.
  void Place(const ProjectNode& node) {
    const auto keyOf = [](const ProjectNode* other) { return other ? other->Key() : QString(); };
    *this << keyOf(node.Parent()) << keyOf(node.Previous());
  }

  void State(const ProjectState& state) {
    Begin(Record::State) << state.CurrentMenuKey << qint32(state.FilmCount) << qint32(state.TitleSetCount)
                         << qint32(state.CurrentTitleSet) << state.ProjectHasVideos << state.ProjectAspect
                         << qint32(state.ProjectResH) << qint32(state.ProjectResV) << state.ProjectFps;
  }

  void Slot(Record table, int number, const MenuSlot& slot) {
    Begin(table) << qint32(number) << slot.Used << qint32(slot.TitleSet) << slot.MenuKey << slot.Action
                 << slot.ButtonKey;
  }

  template <class Table>
  void FilledSlots(Record record, const Table& table) {
    for (int i = 0; i < int(table.size()); ++i) {
      if (table[i] != MenuSlot()) Slot(record, i, table[i]);
    }
  }

  void Setting(const SettingRow& row, const QString& text) { Begin(Record::Setting) << NameOf(row) << text; }
};

const SettingRow* FindByName(const QString& name) {
  for (const SettingRow& row : SettingsTable()) {
    if (BelongsToProject(row) && NameOf(row) == name) return &row;
  }
  return nullptr;
}

/// The records of one block, made again in a project.
class Reader : public QDataStream {
 public:
  explicit Reader(const QByteArray& records) : QDataStream(records) { SetForm(*this); }

  JournalHead Head() { return {.ProjectFile = Text(), .ProjectNamed = Flag()}; }

  /// False when a record is none or cannot be made.
  bool Replay(Project& project) {
    while (!atEnd()) {
      if (!ReplayOne(project) || status() != Ok) return false;
    }
    FollowVideoNorm(project.Settings);
    return true;
  }

 private:
  template <class T>
  T Value() {
    T value{};
    *this >> value;
    return value;
  }
  QString Text() { return Value<QString>(); }
  int Number() { return Value<qint32>(); }
  bool Flag() { return Value<bool>(); }

  bool ReplayOne(Project& project) {
    ProjectTree& tree = project.Tree;
    switch (static_cast<Record>(Value<quint8>())) {
      case Record::Add: {
        const NodeData data{.Key = Text(), .Caption = Text(), .Tag = Text(), .Image = Number()};
        const QString parent = Text();
        const QString previous = Text();
        return previous.isEmpty() ? tree.Add(data, {parent, 0}) : tree.Add(data, previous, Relation::Next);
      }
      case Record::Remove:
        return tree.Remove(Text());
      case Record::Move: {
        const QString key = Text();
        const QString parent = Text();
        const QString previous = Text();
        return previous.isEmpty() ? tree.Move(key, {parent, 0}) : tree.Move(key, previous, Relation::Next);
      }
      case Record::Caption: {
        const QString key = Text();
        return tree.SetCaption(key, Text());
      }
      case Record::Tag: {
        const QString key = Text();
        return tree.SetTag(key, Text());
      }
      case Record::Clear:
        tree.Clear();
        return true;
      case Record::State:
        ReplayState(project);
        return true;
      case Record::MainSlot:
        return ReplaySlot(project.MainSubMenuTable);
      case Record::TitleSetSlot:
        return ReplaySlot(project.SubMenuTable);
      case Record::Setting: {
        const SettingRow* row = FindByName(Text());
        const QString text = Text();
        if (row) SetSettingText(project.Settings, *row, text);
        return row;
      }
    }
    return false;
  }

  void ReplayState(ProjectState& state) {
    state = {.CurrentMenuKey = Text(),
             .FilmCount = Number(),
             .TitleSetCount = Number(),
             .CurrentTitleSet = Number(),
             .ProjectHasVideos = Flag(),
             .ProjectAspect = Text(),
             .ProjectResH = Number(),
             .ProjectResV = Number(),
             .ProjectFps = Value<double>()};
  }

  template <class Table>
  bool ReplaySlot(Table& table) {
    const int number = Number();
    if (number < 0 || number >= int(table.size())) return false;
    table[number] = {.Used = Flag(), .TitleSet = Number(), .MenuKey = Text(), .Action = Text(), .ButtonKey = Text()};
    return true;
  }
};

/// The records of the block at `position`, which moves behind it; null when no whole block stands there.
QByteArray NextBlock(const QByteArray& journal, qsizetype& position) {
  if (journal.size() - position < kFrameSize) return {};
  QDataStream frame(QByteArray::fromRawData(journal.constData() + position, kFrameSize));
  SetForm(frame);
  quint32 size = 0;
  quint64 checksum = 0;
  frame >> size >> checksum;
  const qsizetype start = position + kFrameSize;
  if (size == 0 || qsizetype(size) > journal.size() - start) return {};
  const QByteArray records = journal.sliced(start, size);
  if (Checksum(records) != checksum) return {};
  position = start + size;
  return records;
}

Result<QByteArray> FirstBlock(const QByteArray& journal, qsizetype& position) {
  if (!journal.startsWith(kJournalMark)) return Failure{u"is no journal of this program"_s};
  position = kJournalMark.size();
  const QByteArray records = NextBlock(journal, position);
  if (records.isNull()) return Failure{u"is damaged at its beginning, so that nothing can be taken from it"_s};
  return records;
}

}  // namespace

void JournalBlock::AddWhole(const Project& project) {
  Writer writer(records_);
  writer << project.ProjectFile << project.ProjectNamed;
  writer.State(project);
  writer.FilledSlots(Record::MainSlot, project.MainSubMenuTable);
  writer.FilledSlots(Record::TitleSetSlot, project.SubMenuTable);
  const Settings carried = CarriedSettings(project);
  for (const SettingRow& row : SettingsTable()) {
    if (BelongsToProject(row)) writer.Setting(row, SettingText(carried, row));
  }
  for (const ProjectNode* node = project.Tree.FirstRoot(); node; node = project.Tree.NextInOrder(node)) {
    writer.Node(*node);
  }
}

void JournalBlock::AddChange(const ProjectTree& tree, const TreeChange& change) {
  Writer writer(records_);
  switch (change.kind) {
    case TreeChange::Added:
      writer.Node(*tree.Find(change.key));
      return;
    case TreeChange::Removed:
      writer.Begin(Record::Remove) << change.key;
      return;
    case TreeChange::Moved:
      writer.Begin(Record::Move) << change.key;
      writer.Place(*tree.Find(change.key));
      return;
    case TreeChange::CaptionSet:
      writer.Begin(Record::Caption) << change.key << tree.Find(change.key)->Caption();
      return;
    case TreeChange::TagSet:
      writer.Begin(Record::Tag) << change.key << tree.Find(change.key)->Tag();
      return;
    case TreeChange::Cleared:
      writer.Begin(Record::Clear);
      return;
  }
}

void JournalBlock::AddDifference(const ProjectDifference& difference) {
  Writer writer(records_);
  if (difference.before != difference.after) writer.State(difference.after);
  for (const ProjectDifference::Slot& slot : difference.slots) {
    const bool isMain = slot.family == ProjectDifference::Family::Main;
    writer.Slot(isMain ? Record::MainSlot : Record::TitleSetSlot, slot.number, slot.after);
  }
  Settings after;
  for (const ProjectDifference::Setting& setting : difference.settings) {
    const auto row = std::ranges::find(SettingsTable(), setting.member, &SettingRow::member);
    if (row == SettingsTable().end()) continue;  // it follows from one that stands there
    std::visit([&](auto member) { after.*member = std::get<std::decay_t<decltype(after.*member)>>(setting.after); },
               setting.member);
    writer.Setting(*row, SettingText(after, *row));
  }
}

QByteArray JournalBlock::Take() {
  const QByteArray records = std::exchange(records_, {});
  QByteArray block;
  block.reserve(kFrameSize + records.size());
  Writer(block) << quint32(records.size()) << Checksum(records);
  return block += records;
}

Result<JournalHead> ReadJournalHead(const QByteArray& journal) {
  qsizetype position = 0;
  const Result<QByteArray> first = FirstBlock(journal, position);
  if (!first) return Failure{first.Error()};
  return Reader(*first).Head();
}

Result<JournalReplay> ReplayJournal(const QByteArray& journal, Project& project) {
  qsizetype position = 0;
  const Result<QByteArray> first = FirstBlock(journal, position);
  if (!first) return Failure{first.Error()};

  const ChangeGroup group(project.Tree);
  project.Reset();
  Reader whole(*first);
  const JournalHead head = whole.Head();
  if (!whole.Replay(project)) {
    project.Reset();
    return Failure{u"holds a project that cannot be built"_s};
  }
  JournalReplay replay;
  qsizetype end = position;
  for (QByteArray records; !(records = NextBlock(journal, position)).isNull();) {
    Edit edit(project, u"Recover"_s);
    if (!Reader(records).Replay(project)) break;
    edit.Commit();
    ++replay.groups;
    end = position;
  }
  replay.lostBytes = journal.size() - end;
  project.ProjectFile = head.ProjectFile;
  project.ProjectNamed = head.ProjectNamed;
  project.History.Reset();
  project.History.MarkUnsaved();
  return replay;
}

}  // namespace torvane
