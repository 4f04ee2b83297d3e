#include "compilers/pipeline.h"

#include <algorithm>
#include <cerrno>

#include "compilers/audio_titleset.h"
#include "compilers/author_xml.h"
#include "compilers/button_check.h"
#include "compilers/disc_checks.h"
#include "compilers/menu_files.h"
#include "compilers/plan_check.h"
#include "compilers/project_findings.h"
#include "compilers/temp_claim.h"
#include "core/engine.h"
#include "core/film_view.h"
#include "core/messages.h"
#include "platform/host_files.h"
#include "render/audio_slide.h"
#include "render/menu_encoding.h"
#include "run/batch_outputs.h"
#include "run/source_guard.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

bool CreateDvdPipeline::HasButtons() const {
  const ProjectNode* buttons = project_.Tree.Find(MenuNodeKey(MainMenuKey(), menu_node::Buttons));
  return buttons && buttons->ChildCount() > 0;
}

bool CreateDvdPipeline::AgreesToReplaceFormer() {
  if (!AgreesToReplaceDisc(project_, prompter_) || !AgreesToReplaceImage(project_, prompter_)) return false;
  const std::optional<FormerFate> fate = CheckFreeSpace(project_, prompter_);
  former_ = fate.value_or(FormerFate::SetAside);
  return fate.has_value();
}

Readiness CreateDvdPipeline::PrepareCreateDvd() {
  if (!HasButtons()) return Readiness::NothingToDo;
  const Settings& settings = project_.Settings;
  const bool ready = TellFindings(ProjectFindings(project_, PlanUse::Run), prompter_) &&
                     (!settings.AnimatedMainMenu || CheckLoopingMenus(project_, prompter_)) && AgreesToReplaceFormer();
  return ready ? Readiness::Ready : Readiness::Refused;
}

Readiness CreateDvdPipeline::PrepareCreateBatch() {
  if (!HasButtons()) return Readiness::NothingToDo;
  const bool ready = TellFindings(ProjectFindings(project_, PlanUse::WriteOnly), prompter_) &&
                     CheckIntro(project_, prompter_) &&
                     (!project_.Settings.AnimatedMainMenu || CheckLoopingMenus(project_, prompter_));
  if (ready) TellOfFormerDisc(project_, prompter_);
  return ready ? Readiness::Ready : Readiness::Refused;
}

std::optional<RunPlan> CreateDvdPipeline::BuildProject(BatchUse use) {
  const Settings& settings = project_.Settings;
  inForce_ = settings;
  const VideoBatch video = WriteVideoBatch(project_, values_);
  const QByteArray author = AuthorXml(AuthorMode::Run);
  plan_ = {.LogText = settings.KeepLogFile ? AuthorLogText(project_) : QString(),
           .Former = former_,
           .Titlesets = int(author.count("\r\n<titleset>\r\n"))};
  OpenTemp(video.batch);
  const std::vector<PlannedBatch> batches = PlanBatches(use, video.batch);
  const QStringList menus = DiscMenuKeys(project_);
  const bool written = AllValuesPassed() && Claim(batches) && HasTools(batches, use) && WriteVideoFiles(video) &&
                       std::ranges::all_of(menus, [this](const QString& key) { return CompileMenu(key); }) &&
                       (!NeedsEmptyMenu(settings) || WriteEmptyMenuPicture()) && WriteTemp(u"Author.xml"_s, author) &&
                       WriteBatches(batches);
  if (!written) return std::nullopt;

  if (use == BatchUse::WriteOnly) {
    if (!WriteTemp(kMainBatch.toString(), MainBatch(plan_.BatchList, values_))) return std::nullopt;
    prompter_.Inform(GetMessage(117));
  }
  return plan_;
}

/// Reads what is ours. A former version has kept no list; what this project's run makes is then taken as its work.
void CreateDvdPipeline::OpenTemp(const QByteArray& video) {
  files_ = TempFiles(project_.Settings.TempDir);
  if (!files_.IsFromFormerVersion()) return;
  files_.Adopt(WrittenNames(project_));
  for (const PlannedBatch& batch : DiscBatches(project_, video, values_)) {
    files_.Adopt(OutputNames({batch.text}, project_.Settings.TempDir) << batch.name);
  }
}

/// All batches of a run. What may be erased at its end depends on what lies in the temporary directory now.
std::vector<PlannedBatch> CreateDvdPipeline::PlanBatches(BatchUse use, const QByteArray& video) {
  std::vector<PlannedBatch> batches = DiscBatches(project_, video, values_);
  if (use == BatchUse::Run) inForce_.AutoDelete = plan_.AutoDelete = CleansTemp(files_, inForce_, prompter_);
  if (inForce_.CreateISO) batches.push_back({kIsoBatch.toString(), IsoBatch(IsoFile(inForce_), use, values_)});
  if (use == BatchUse::Run) batches.push_back({kEndBatch.toString(), EndBatch(values_)});
  return batches;
}

bool CreateDvdPipeline::Claim(const std::vector<PlannedBatch>& batches) {
  QList<QByteArray> texts;
  for (const PlannedBatch& batch : batches) texts << batch.text;
  return ClaimOutputs(files_, texts, project_.Settings, ProjectFiles(project_), prompter_);
}

bool CreateDvdPipeline::HasTools(const std::vector<PlannedBatch>& batches, BatchUse use) {
  QStringList programs;
  for (const PlannedBatch& batch : batches) programs += ProgramsOf(batch.text);
  programs.removeDuplicates();
  const QStringList missing = toolCheck_(programs);
  if (missing.isEmpty()) return true;
  if (use == BatchUse::WriteOnly) {
    prompter_.Warn(missing.join(u"\r\n"));
    return true;
  }
  return RefusesNothing(missing, prompter_);
}

std::optional<RunPlan> CreateDvdPipeline::BuildSyntaxCheck() {
  const Settings& settings = project_.Settings;
  if (settings.Engine != kEngineDvdauthor) {
    prompter_.Fail(GetMessage(53));
    return std::nullopt;
  }
  if (!TellFindings(ProjectFindings(project_, PlanUse::SyntaxCheck), prompter_)) return std::nullopt;
  inForce_ = settings;
  plan_ = {.RunMode = u"1"_s, .LogText = settings.KeepLogFile ? AuthorLogText(project_) : QString()};
  OpenTemp(WriteVideoBatch(project_, values_).batch);
  const std::vector<PlannedBatch> batches{{kSyntaxBatch.toString(), SyntaxBatch(values_)}};
  plan_.AutoDelete = CleansTemp(files_, settings, prompter_);
  const bool written = AllValuesPassed() && HasTools(batches, BatchUse::Run) &&
                       WriteTemp(u"Author.xml"_s, AuthorXml(AuthorMode::SyntaxCheck)) && WriteBatches(batches);
  return written ? std::optional(plan_) : std::nullopt;
}

QByteArray CreateDvdPipeline::AuthorXml(AuthorMode mode) {
  return project_.Settings.NoTitleSets ? WriteAuthorXmlSingle(project_, mode, values_)
                                       : WriteAuthorXmlTitlesets(project_, mode, values_);
}

bool CreateDvdPipeline::WriteVideoFiles(const VideoBatch& video) {
  for (const GeneratedFile& palette : video.palettes) WritePaletteFile(palette);
  for (const GeneratedFile& file : video.controlFiles) {
    if (!WriteTemp(NameInTemp(file.path), file.content)) return false;
  }
  for (int i = 1; i <= project_.FilmCount; ++i) {
    if (FilmView(project_.Tree, i).IsAudioTitleSet() && !WriteAudioSlides(i)) return false;
  }
  return true;
}

void CreateDvdPipeline::WritePaletteFile(const GeneratedFile& palette) {
  errno = 0;
  const Status written = files_.Write(NameInTemp(palette.path), palette.content);
  const int number = errno;
  if (!written) prompter_.Warn(written.Error() + u"   " + QString::number(number));
}

bool CreateDvdPipeline::WriteAudioSlides(int film) {
  const Settings& settings = project_.Settings;
  const AudioTitleStore store = ReadAudioTitleSet(project_.Tree, film);
  PictureLoader pictures(u"film %1 (%2)"_s.arg(film).arg(store.Name));
  for (std::size_t i = 0; i < store.Titles.size(); ++i) {
    const QString path = AudioSlideFile(settings, film, int(i) + 1);
    const QImage slide = DrawAudioSlide(store.Titles[i], store.Layout, settings, pictures);
    const Result<QByteArray> picture = EncodePicture(slide, path);
    if (!picture) {
      prompter_.Fail(picture.Error());
      return false;
    }
    if (!WriteTemp(NameInTemp(path), *picture)) return false;
  }
  for (const QString& error : pictures.Errors()) prompter_.Warn(error);
  return true;
}

bool CreateDvdPipeline::CompileMenu(const QString& key) {
  const Settings& settings = project_.Settings;
  const MenuView menu(project_.Tree, key);
  const Result<ComposedMenu> composed = ComposeMenu(menu, settings, ComposeMode::Compile);
  if (!composed) {
    prompter_.Fail(composed.Error());
    return false;
  }
  for (const QString& error : composed->Errors) prompter_.Warn(error);
  if (!composed->ButtonsValid) {
    prompter_.Fail(ButtonRulesText(menu, settings));
    if (plan_.AutoDelete) files_.Clean(SourceGuard(ProjectFiles(project_)));
    return false;
  }
  const HighlightFiles highlights = WriteHighlightFiles(menu, *composed, values_);
  return AllValuesPassed() && Succeeded(files_.Claim(MenuFileNames(*composed, highlights))) &&
         Succeeded(WriteMenuFiles(*composed, highlights, settings.TempDir));
}

bool CreateDvdPipeline::WriteEmptyMenuPicture() {
  const QString name = u"EmptyBackg.jpg"_s;
  const Result<QByteArray> picture = EncodePicture(EmptyMenuPicture(project_.Settings), name);
  if (!picture) prompter_.Fail(picture.Error());
  return picture && WriteTemp(name, *picture);
}

bool CreateDvdPipeline::WriteBatches(const std::vector<PlannedBatch>& batches) {
  for (const PlannedBatch& batch : batches) {
    plan_.BatchList << batch.name;
    if (!WriteTemp(batch.name, batch.text)) return false;
  }
  return true;
}

bool CreateDvdPipeline::WriteTemp(const QString& name, const QByteArray& content) {
  return AllValuesPassed() && Succeeded(files_.Write(name, content));
}

QString CreateDvdPipeline::NameInTemp(const QString& path) const {
  return path.sliced(project_.Settings.TempDir.size() + 1);
}

/// The checks before a run have let the writers try already; this holds where one was left out.
bool CreateDvdPipeline::AllValuesPassed() {
  return RefusesNothing(values_.Refused(), prompter_);
}

bool CreateDvdPipeline::Succeeded(const Status& status) {
  if (!status) prompter_.Fail(status.Error());
  return bool(status);
}

std::optional<RunPlan> PlanGivenBatches(const QStringList& names, const Settings& settings, Prompter& prompter) {
  QList<QByteArray> texts;
  for (const QString& name : names) {
    const QString path = settings.TempDir + u'\\' + name;
    const Result<QByteArray> text = HostFiles::Read(path);
    if (!text) {
      prompter.Fail(u"There is no batch file "_s + path);
      return std::nullopt;
    }
    texts << *text;
  }
  TempFiles files(settings.TempDir);
  RunPlan plan{.BatchList = names};
  // Without its project nobody knows what a former version has made.
  if (files.IsFromFormerVersion()) return plan;
  plan.AutoDelete = CleansTemp(files, settings, prompter);
  return ClaimOutputs(files, texts, settings, {}, prompter) ? std::optional(plan) : std::nullopt;
}

}  // namespace torvane
