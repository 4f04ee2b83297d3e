#pragma once

#include <QHash>
#include <QString>

#include "core/font_string.h"
#include "core/gif_mask.h"

namespace torvane {

/// Everything the user can set, under the names of the stored keys, and a few values that follow from it. The member
/// initialisers are the defaults of the keys.
///
/// The directories that LoadSettings completes carry no trailing "\". Colours are packed (R + G * 256 + B * 65536),
/// positions and sizes are pixels of the 720 x VideoHeight frame, blur values hundredths of a pixel.
struct Settings {  // NOLINT(clang-analyzer-optin.performance.Padding): by theme
  // General
  int LangID = 1000;
  bool AskForSave = true;
  bool AutoAcceptVideo = false;
  bool MaxSizeInd = false;
  int LastTvNXPos = 0;
  int LastTvNYPos = 0;
  bool AdvancedMode = false;
  bool EditXML = false;
  bool CommentXML = false;
  bool ShortDVDALog = false;
  bool KeepLogFile = false;
  QString TVNLogFile;

  // Directories and tools
  QString OutDir;
  bool TempOutDir = true;
  QString TempDir;
  bool AutoDelete = false;
  QString ISOPath;
  QString DvdAuthorPath;
  QString InDir;
  QString OwnDir;
  QString OwnAudioDir;
  QString OwnGifMaskDir;
  QString ExternalViewer;
  bool IncludeOutdir = true;
  QString DVDViewer;
  int DVDViewerType = 0;
  int Engine = 0;
  QString AniEncoder = QStringLiteral("HC");
  double ToolPatience = 10;  ///< minutes after which a tool that does nothing is ended; 0 is never

  // Authoring
  int NumStillFrames = 1;
  bool AdjNTSCtc = false;
  bool UseInsnavForMenus = false;
  bool ForceSCR = false;
  bool LoopSyntax = false;
  bool VideoNormPal = true;
  bool NoTitleSets = false;
  bool NoChapterMenus = false;
  bool NoShowTitleSetMenu = false;
  bool NoMenus = false;
  bool PostGoMain = true;
  bool GoNextTitle = false;
  bool DefaultLoop = true;
  int AutoChapter = 0;
  int AutoChapterMinutes = 10;
  int AutoChapterNum = 8;
  bool AutoCrop = false;
  QString AutoCropVal = QStringLiteral("10,8,-10,-8");
  bool ChapEditMarkOnly = false;
  QString DefaultSubFormatStr = QStringLiteral("ISO-8859-1/28.0/arial.ttf/center/bottom/60/60/30/30");
  bool AnimatedMainMenu = false;
  int AnimationDuration = 10;

  // Canvas
  bool ShowPointGrid = false;
  int TVSafeAreaColor = 65535;
  bool ShowTVSafeArea = true;
  bool AutoGroup = true;
  bool UseRaster = true;
  int RasterX = 16;
  int RasterY = 16;
  int BlurX = 50;
  int BlurY = 90;
  bool UseBlur = false;
  QString GridLayout = QStringLiteral("R10C1PX100PY100DX300DY64");

  // Menu defaults
  bool DefMenuRatio = false;
  int Def169Mode = 0;
  int DefFrameWidth = 3;
  int DefLabelPos = 0;
  int TextButtons = 1;
  int DefButtomType = 0;
  bool RoundedButtonFrames = true;
  bool ExclTextFromGifMask = true;
  bool ClipGifMask = true;
  int DefHighLightFillColor = 255;
  int DefSelectedFillColor = 65280;
  int DefHighLightFrameColor = 255;
  int DefSelectedFrameColor = 65280;
  int DefHighLightFillTrans = 150;
  int DefSelectedFillTrans = 150;
  int DefHighLightFrameTrans = 255;
  int DefSelectedFrameTrans = 255;

  // Element defaults
  FontRecord DefaultFont;
  int DefTextColor = 16777088;
  int DefTextAlign = 0;
  int ImageSizeX = 100;
  int ImageSizeY = 80;
  int ARPreset = 2;
  int LastImageSize = 2;  ///< size preset in use; only project files hold it, it starts as ARPreset does
  int FixTextSizeX = 100;
  int FixTextSizeY = 50;
  QString DefFreeButtonText = QStringLiteral("Button");
  QString DefChapterButtonText = QStringLiteral("Chapter");
  bool ChapterButtonUseNum = true;
  bool ChapterButtonUseTime = false;
  GifMaskRecord DefTextButtonGif;
  GifMaskRecord DefGraphButtonGif;
  GifMaskRecord DefBackButtonGif;
  GifMaskRecord DefAnimGif;
  GifMaskRecord DefImagGif;
  QString DefBackButtonText = QStringLiteral("Back");
  bool BackButtonIsText = true;
  int BackButtonXpos = 600;
  int BackButtonYpos = 500;
  int BackButtonWidth = 100;
  int BackButtonHeight = 50;
  QString DefShadow = QStringLiteral("128;5;6;0;");
  QString DefBlock = QStringLiteral("128;3;3;0;");
  QString DefOutline = QStringLiteral("0;0;0;0;");
  QString DefBOutline = QStringLiteral("0;0;0;0;");
  QString DefBBOutline = QStringLiteral("0;0;0;0;");

  // Audio titlesets
  int DefAudioTSType = 1;
  int ArtistColor = 16777088;
  int AlbumColor = 16777088;
  int TitleColor = 16777088;
  int ArtistXpos = 100;
  int ArtistYpos = 100;
  int AlbumXpos = 100;
  int AlbumYpos = 200;
  int TitleXpos = 100;
  int TitleYpos = 300;
  FontRecord ArtistFont;
  FontRecord AlbumFont;
  FontRecord TitleFont;
  bool AudioTSBlur = false;
  int AudioTSBlurX = 50;
  int AudioTSBlurY = 100;

  // Burning
  bool NeroBurn = false;
  bool NeroErase = false;
  bool NeroVerify = false;
  QString NeroSpeed = QStringLiteral("Max.");
  QString NeroDrive;
  QString NeroPath;
  QString NeroVersion = QStringLiteral("56");
  QString ISO_Name = QStringLiteral("TVN");
  QString IMGBurnPath;
  bool UseImgBurn = false;
  bool CreateISO = false;
  bool CreateIBG = false;
  bool DeleteISO = false;
  bool DeleteDVDafterISO = false;

  // Intro
  QString IntroMovie;
  QString IntroAudio;
  bool UseIntro = false;

  // Recent files
  QString MRUFILE0;
  QString MRUFILE1;
  QString MRUFILE2;
  QString MRUFILE3;
  QString MRUFILE4;
  QString MRUFILE5;
  QString MRUFILE6;
  QString MRUFILE7;
  QString MRUFILE8;
  QString MRUFILE9;

  // What follows from the above or from the machine; not stored.
  QString AppPath;         ///< directory of the program and its data files
  int VideoHeight = 576;   ///< 576 with VideoNormPal, 480 without
  int ActiveRasterX = 16;  ///< raster in use; a menu's own raster takes its place while that menu is shown
  int ActiveRasterY = 16;
  QString ViewerName;     ///< file name of ExternalViewer without directory and extension
  QString DVDViewerName;  ///< the same of DVDViewer

  bool operator==(const Settings&) const = default;
};

/// Values as text by key, as the store and settings files hold them.
using SettingTexts = QHash<QString, QString>;

/// Takes the values of all keys that `texts` holds; the others stay. A damaged number reads as far as it is one, a
/// flag is set by any number but 0. Masks are looked up in the directories that are then in force.
void ReadSettings(const SettingTexts& texts, Settings& settings);

/// Only the masks, or all but the masks: for a reader that works out the mask directories in between.
void ReadMaskSettings(const SettingTexts& texts, Settings& settings);
void ReadSettingsButMasks(const SettingTexts& texts, Settings& settings);

/// The text of every stored key.
SettingTexts WriteSettings(const Settings& settings);

/// Brings VideoHeight in line with VideoNormPal.
void FollowVideoNorm(Settings& settings);

/// What a project without menus implies: titles play on to the next one without a titleset menu, no animated menus,
/// no advanced mode. Does nothing while NoMenus is clear.
void ApplyNoMenus(Settings& settings);

}  // namespace torvane
