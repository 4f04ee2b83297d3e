#include "compilers/pipeline.h"

#include <algorithm>
#include <cerrno>

#include "compilers/audio_titleset.h"
#include "compilers/author_xml.h"
#include "compilers/disc_checks.h"
#include "compilers/menu_files.h"
#include "compilers/plan_check.h"
#include "compilers/temporary_names.h"
#include "compilers/written_values.h"
#include "core/action_strings.h"
#include "core/film_view.h"
#include "core/messages.h"
#include "platform/generated_file.h"
#include "render/audio_slide.h"
#include "render/menu_encoding.h"
#include "run/source_guard.h"

using namespace Qt::Literals::StringLiterals;

namespace torvane {

bool CreateDvdPipeline::HasButtons() const {
  const ProjectNode* buttons = project_.Tree.Find(MenuNodeKey(MainMenuKey(), menu_node::Buttons));
  return buttons && buttons->ChildCount() > 0;
}

bool CreateDvdPipeline::IsSupported(PlanUse use) {
  const Settings& settings = project_.Settings;
  QString reason;
  if (settings.Engine != kEngineDvdauthor) {
    reason = u"Projects for MuxMan cannot be authored yet. Please choose dvdauthor as authoring engine."_s;
  } else if (settings.NeroBurn) {
    reason = u"Discs cannot be burnt yet. Please switch burning off and create an ISO image."_s;
  }
  for (const QString& key : DiscMenuKeys(project_)) {
    const MenuView menu(project_.Tree, key);
    if (!reason.isEmpty() || !menu.IsAnimated(settings)) continue;
    reason =
        u"Menu %1 (%2) is animated; such menus cannot be authored yet. Please take its animations or transition away."_s
            .arg(menu.Name(), key);
  }
  if (reason.isEmpty()) return CheckPlan(project_, prompter_, use);
  prompter_.Fail(reason);
  return false;
}

Readiness CreateDvdPipeline::PrepareCreateDvd() {
  if (!HasButtons()) return Readiness::NothingToDo;
  const Settings& settings = project_.Settings;
  const bool ready = IsSupported(PlanUse::Run) && CheckIntro(project_, prompter_) &&
                     (!settings.AnimatedMainMenu || CheckLoopingMenus(project_, prompter_)) &&
                     CheckWrittenValues(project_, prompter_) && CheckTemporaryNames(project_, prompter_) &&
                     CheckSourcesSafe(project_, prompter_) && ClearVideoTs(project_, OldDisc::RemoveTree, prompter_) &&
                     ClearOldIso(project_, prompter_) && CheckFreeSpace(project_, prompter_);
  return ready ? Readiness::Ready : Readiness::Refused;
}

Readiness CreateDvdPipeline::PrepareCreateBatch() {
  if (!HasButtons()) return Readiness::NothingToDo;
  const bool ready = IsSupported(PlanUse::WriteOnly) && CheckIntro(project_, prompter_) &&
                     (!project_.Settings.AnimatedMainMenu || CheckLoopingMenus(project_, prompter_)) &&
                     CheckWrittenValues(project_, prompter_) && ClearVideoTs(project_, OldDisc::RemoveFiles, prompter_);
  return ready ? Readiness::Ready : Readiness::Refused;
}

std::optional<RunPlan> CreateDvdPipeline::BuildProject(BatchUse use) {
  const Settings& settings = project_.Settings;
  batchList_.clear();
  const bool written = WriteVideoFiles() && CompileMenus() &&
                       WriteTemp(u"Author.xml"_s, AuthorXml(AuthorMode::Run)) &&
                       AddBatch(kAuthorBatch.toString(), AuthorBatch(values_)) && WriteIsoBatch(use);
  if (!written) return std::nullopt;

  if (use == BatchUse::WriteOnly) {
    if (!WriteTemp(kMainBatch.toString(), MainBatch(batchList_, values_))) return std::nullopt;
    prompter_.Inform(GetMessage(117));
  } else if (!AddBatch(kEndBatch.toString(), EndBatch(values_))) {
    return std::nullopt;
  }
  return RunPlan{.BatchList = batchList_, .LogText = settings.KeepLogFile ? AuthorLogText(project_) : QString()};
}

std::optional<RunPlan> CreateDvdPipeline::BuildSyntaxCheck() {
  if (project_.Settings.Engine != 0) {
    prompter_.Fail(GetMessage(53));
    return std::nullopt;
  }
  if (!IsSupported(PlanUse::SyntaxCheck) || !CheckWrittenValues(project_, prompter_)) return std::nullopt;
  batchList_.clear();
  const bool written = WriteTemp(u"Author.xml"_s, AuthorXml(AuthorMode::SyntaxCheck)) &&
                       AddBatch(kSyntaxBatch.toString(), SyntaxBatch(values_));
  if (!written) return std::nullopt;
  return RunPlan{.BatchList = batchList_,
                 .RunMode = u"1"_s,
                 .LogText = project_.Settings.KeepLogFile ? AuthorLogText(project_) : QString()};
}

QByteArray CreateDvdPipeline::AuthorXml(AuthorMode mode) {
  return project_.Settings.NoTitleSets ? WriteAuthorXmlSingle(project_, mode, values_)
                                       : WriteAuthorXmlTitlesets(project_, mode, values_);
}

bool CreateDvdPipeline::WriteVideoFiles() {
  const VideoBatch video = WriteVideoBatch(project_, values_);
  if (!AllValuesPassed()) return false;
  for (const GeneratedFile& palette : video.palettes) WritePaletteFile(palette);
  for (const GeneratedFile& file : video.controlFiles) {
    if (!Succeeded(WriteGeneratedFile(file.path, file.content))) return false;
  }
  for (int i = 1; i <= project_.FilmCount; ++i) {
    if (FilmView(project_.Tree, i).IsAudioTitleSet() && !WriteAudioSlides(i)) return false;
  }
  return AddBatch(kVideoBatch.toString(), video.batch);
}

void CreateDvdPipeline::WritePaletteFile(const GeneratedFile& palette) {
  errno = 0;
  const Status written = WriteGeneratedFile(palette.path, palette.content);
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
    if (!Succeeded(WriteGeneratedFile(path, *picture))) return false;
  }
  for (const QString& error : pictures.Errors()) prompter_.Warn(error);
  return true;
}

bool CreateDvdPipeline::CompileMenus() {
  const Settings& settings = project_.Settings;
  // Which PGCs pass on without being seen, and so need the empty menu, depends on the form of the control file.
  if (settings.NoMenus) return settings.NoTitleSets || WriteEmptyBackgroundBatch();
  if (!CompileMainMenus()) return false;
  if ((settings.NoTitleSets || settings.UseIntro) && !WriteEmptyBackgroundBatch()) return false;
  return settings.NoTitleSets || CompileTitlesetMenus();
}

bool CreateDvdPipeline::CompileMainMenus() { return CompileMenus(MainMenuKeys(project_)); }

bool CreateDvdPipeline::CompileTitlesetMenus() { return CompileMenus(TitlesetMenuKeys(project_)); }

bool CreateDvdPipeline::CompileMenus(const QStringList& keys) {
  return std::ranges::all_of(keys, [this](const QString& key) { return CompileMenu(key); });
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
    prompter_.Fail(ButtonRulesText(menu));
    if (settings.AutoDelete) CleanTempDir(settings.TempDir, SourceGuard(ProjectFiles(project_)));
    return false;
  }
  return RefusesNothing(composed->Refused, prompter_) && Succeeded(WriteMenuFiles(*composed, settings.TempDir)) &&
         AddBatch(key + u"Brun1.bat", StillMenuBatch1(menu, values_)) &&
         AddBatch(key + u"Brun2.bat", StillMenuBatch2(menu, values_));
}

bool CreateDvdPipeline::WriteEmptyBackgroundBatch() {
  const Settings& settings = project_.Settings;
  const QString name = u"EmptyBackg.jpg"_s;
  const Result<QByteArray> picture = EncodePicture(EmptyMenuPicture(settings), name);
  if (!picture) {
    prompter_.Fail(picture.Error());
    return false;
  }
  return WriteTemp(name, *picture) && AddBatch(kEmptyMenuBatch.toString(), EmptyMenuBatch(values_));
}

bool CreateDvdPipeline::WriteIsoBatch(BatchUse use) {
  const Settings& settings = project_.Settings;
  return !settings.CreateISO || AddBatch(kIsoBatch.toString(), IsoBatch(IsoFile(settings), use, values_));
}

bool CreateDvdPipeline::AddBatch(const QString& name, const QByteArray& text) {
  batchList_ << name;
  return WriteTemp(name, text);
}

bool CreateDvdPipeline::WriteTemp(const QString& name, const QByteArray& content) {
  return AllValuesPassed() && Succeeded(WriteGeneratedFile(project_.Settings.TempDir + u'\\' + name, content));
}

/// The checks before a run have let the writers try already; this holds where one was left out.
bool CreateDvdPipeline::AllValuesPassed() { return RefusesNothing(values_.Refused(), prompter_); }

bool CreateDvdPipeline::Succeeded(const Status& status) {
  if (!status) prompter_.Fail(status.Error());
  return bool(status);
}

}  // namespace torvane
