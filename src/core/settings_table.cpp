#include "core/settings_table.h"

#include <array>

namespace torvane {
namespace {

constexpr SettingRow Flag(QStringView key, bool Settings::*member, ProjectPlace place = {}, PresetPlace preset = {}) {
  return {key, SettingKind::Flag, member, place, preset};
}

constexpr SettingRow Switch(QStringView key, int Settings::*member, ProjectPlace place = {}, PresetPlace preset = {}) {
  return {key, SettingKind::Switch, member, place, preset};
}

constexpr SettingRow Number(QStringView key, int Settings::*member, ProjectPlace place = {}, PresetPlace preset = {}) {
  return {key, SettingKind::Number, member, place, preset};
}

constexpr SettingRow Magnitude(int Settings::*member, ProjectPlace place) {
  return {{}, SettingKind::Magnitude, member, place};
}

constexpr SettingRow Byte(QStringView key, int Settings::*member, ProjectPlace place = {}, PresetPlace preset = {}) {
  return {key, SettingKind::Byte, member, place, preset};
}

constexpr SettingRow Text(QStringView key, QString Settings::*member, ProjectPlace place = {},
                          PresetPlace preset = {}) {
  return {key, SettingKind::Text, member, place, preset};
}

constexpr SettingRow Path(QStringView key, QString Settings::*member, ProjectPlace place = {},
                          PresetPlace preset = {}) {
  return {key, SettingKind::Path, member, place, preset};
}

constexpr SettingRow Mask(QStringView key, GifMaskRecord Settings::*member, ProjectPlace place = {},
                          PresetPlace preset = {}) {
  return {key, SettingKind::Mask, member, place, preset};
}

constexpr SettingRow Font(QStringView key, FontRecord Settings::*member, ProjectPlace place = {},
                          PresetPlace preset = {}) {
  return {key, SettingKind::Font, member, place, preset};
}

constexpr auto kSettings = std::to_array<SettingRow>({
    // General
    Number(u"LangID", &Settings::LangID),
    Flag(u"AskForSave", &Settings::AskForSave),
    Flag(u"AutoAcceptVideo", &Settings::AutoAcceptVideo),
    Flag(u"MaxSizeInd", &Settings::MaxSizeInd),
    Number(u"LastTvNXPos", &Settings::LastTvNXPos),
    Number(u"LastTvNYPos", &Settings::LastTvNYPos),
    Flag(u"AdvancedMode", &Settings::AdvancedMode, {1, 7, u"ADVANCED"}),
    Flag(u"EditXML", &Settings::EditXML),
    Flag(u"CommentXML", &Settings::CommentXML),
    Flag(u"ShortDVDALog", &Settings::ShortDVDALog),
    Flag(u"KeepLogFile", &Settings::KeepLogFile),
    Path(u"TVNLogFile", &Settings::TVNLogFile),
    // Directories and tools
    Path(u"OutDir", &Settings::OutDir),
    Flag(u"TempOutDir", &Settings::TempOutDir),
    Path(u"TempDir", &Settings::TempDir),
    Flag(u"AutoDelete", &Settings::AutoDelete),
    Path(u"ISOPath", &Settings::ISOPath),
    Path(u"DvdAuthorPath", &Settings::DvdAuthorPath),
    Path(u"InDir", &Settings::InDir),
    Path(u"OwnDir", &Settings::OwnDir),
    Path(u"OwnAudioDir", &Settings::OwnAudioDir),
    Path(u"OwnGifMaskDir", &Settings::OwnGifMaskDir, {5, 12, u"OWNGIFMASKDIR"}, {62}),
    Path(u"ExternalViewer", &Settings::ExternalViewer),
    Flag(u"IncludeOutdir", &Settings::IncludeOutdir),
    Path(u"DVDViewer", &Settings::DVDViewer),
    Number(u"DVDViewerType", &Settings::DVDViewerType),
    Switch(u"Engine", &Settings::Engine, {5, 2, u"ENGINE"}),
    Text(u"AniEncoder", &Settings::AniEncoder),
    // Authoring
    Number(u"NumStillFrames", &Settings::NumStillFrames),
    Flag(u"AdjNTSCtc", &Settings::AdjNTSCtc, {5, 10, u"ADJNTSCTC"}),
    Flag(u"UseInsnavForMenus", &Settings::UseInsnavForMenus),
    Flag(u"ForceSCR", &Settings::ForceSCR),
    Flag(u"LoopSyntax", &Settings::LoopSyntax, {5, 1, u"LOOPSYNTAX"}),
    Flag(u"VideoNormPal", &Settings::VideoNormPal, {1, 1, u"NORM"}),
    Flag(u"NoTitleSets", &Settings::NoTitleSets, {1, 2, u"NOTS"}),
    Flag(u"NoChapterMenus", &Settings::NoChapterMenus),
    Flag(u"NoShowTitleSetMenu", &Settings::NoShowTitleSetMenu, {1, 10, u"PREACT1"}),
    Flag(u"NoMenus", &Settings::NoMenus, {4, 12, u"NOMENUS"}),
    Flag(u"PostGoMain", &Settings::PostGoMain, {1, 11, u"POSTACT1"}),
    Flag(u"GoNextTitle", &Settings::GoNextTitle, {1, 12, u"POSTACT2"}),
    Flag(u"DefaultLoop", &Settings::DefaultLoop, {5, 11, u"DEFAULTLOOP"}),
    Number(u"AutoChapter", &Settings::AutoChapter, {3, 7, u"AUTOCHAP"}),
    Number(u"AutoChapterMinutes", &Settings::AutoChapterMinutes, {3, 8, u"CHAPMIN"}),
    Number(u"AutoChapterNum", &Settings::AutoChapterNum, {3, 9, u"CHAPNUM"}),
    Flag(u"AutoCrop", &Settings::AutoCrop, {3, 10, u"AUTOCROP"}, {41}),
    Text(u"AutoCropVal", &Settings::AutoCropVal, {3, 11, u"CROPVAL"}, {42}),
    Flag(u"ChapEditMarkOnly", &Settings::ChapEditMarkOnly),
    Text(u"DefaultSubFormatStr", &Settings::DefaultSubFormatStr),
    Flag(u"AnimatedMainMenu", &Settings::AnimatedMainMenu, {1, 6, u"ANIMATED"}),
    Number(u"AnimationDuration", &Settings::AnimationDuration),
    // Canvas
    Flag(u"ShowPointGrid", &Settings::ShowPointGrid),
    Number(u"TVSafeAreaColor", &Settings::TVSafeAreaColor),
    Flag(u"ShowTVSafeArea", &Settings::ShowTVSafeArea),
    Flag(u"AutoGroup", &Settings::AutoGroup, {}, {4}),
    Flag(u"UseRaster", &Settings::UseRaster, {1, 8, u"USERASTER"}, {3}),
    Number(u"RasterX", &Settings::RasterX, {}, {1, {}, u"DefRasterX"}),
    Number(u"RasterY", &Settings::RasterY, {}, {2, {}, u"DefRasterY"}),
    Number(u"BlurX", &Settings::BlurX, {}, {60}),
    Number(u"BlurY", &Settings::BlurY, {}, {61}),
    Flag(u"UseBlur", &Settings::UseBlur, {}, {59}),
    Text(u"GridLayout", &Settings::GridLayout, {}, {5}),
    // Menu defaults
    Flag(u"DefMenuRatio", &Settings::DefMenuRatio, {1, 3, u"MRATIO"}),
    Number(u"Def169Mode", &Settings::Def169Mode, {5, 3, u"_169MODE"}),
    Number(u"DefFrameWidth", &Settings::DefFrameWidth, {2, 4, u"DEFFRAMEWIDTH"}),
    Number(u"DefLabelPos", &Settings::DefLabelPos, {4, 10, u"DEFLABELPOS"}, {40}),
    Number(u"TextButtons", &Settings::TextButtons, {1, 4, u"TEXTBUTTONS"}, {39}),
    Number(u"DefButtomType", &Settings::DefButtomType, {4, 1, u"DEFBUTTONTYPE"}, {38}),
    Flag(u"RoundedButtonFrames", &Settings::RoundedButtonFrames, {1, 5, u"ROUNDEDBUTTONS"}, {22}),
    Flag(u"ExclTextFromGifMask", &Settings::ExclTextFromGifMask, {2, 5, u"EXCLTEXTFROMGIFMASK"}),
    Flag(u"ClipGifMask", &Settings::ClipGifMask, {2, 6, u"CLIPGIFMASK"}),
    Number(u"DefHighLightFillColor", &Settings::DefHighLightFillColor, {4, 2, u"DEFHIGHLIGHTFILLCOLOR"}, {14}),
    Number(u"DefSelectedFillColor", &Settings::DefSelectedFillColor, {4, 3, u"DEFSELECTEDFILLCOLOR"}, {15}),
    Number(u"DefHighLightFrameColor", &Settings::DefHighLightFrameColor, {4, 4, u"DEFHIGHLIGHTFRAMECOLOR"}, {16}),
    Number(u"DefSelectedFrameColor", &Settings::DefSelectedFrameColor, {4, 5, u"DEFSELECTEDFRAMECOLOR"}, {17}),
    Byte(u"DefHighLightFillTrans", &Settings::DefHighLightFillTrans, {4, 6, u"DEFHIGHLIGHTFILLTRANS"}, {18}),
    Byte(u"DefSelectedFillTrans", &Settings::DefSelectedFillTrans, {4, 7, u"DEFSELECTEDFILLTRANS"}, {19}),
    Byte(u"DefHighLightFrameTrans", &Settings::DefHighLightFrameTrans, {4, 8, u"DEFHIGHLIGHTFRAMETRANS"}, {20}),
    Byte(u"DefSelectedFrameTrans", &Settings::DefSelectedFrameTrans, {4, 9, u"DEFSELECTEDFRAMETRANS"}, {21}),
    // Element defaults
    Font(u"DefaultFont", &Settings::DefaultFont, {2, 1, u"DEFAULTFONT"}, {13}),
    Number(u"DefTextColor", &Settings::DefTextColor, {2, 3, u"DEFTEXTCOLOR"}, {11}),
    Number(u"DefTextAlign", &Settings::DefTextAlign, {2, 2, u"DEFTEXTALIGN"}, {12}),
    Number(u"ImageSizeX", &Settings::ImageSizeX, {1, 14, u"CUSTIMAGESIZEX"}, {7, {}, u"CustImageSizeX"}),
    Number(u"ImageSizeY", &Settings::ImageSizeY, {1, 15, u"CUSTIMAGESIZEY"}, {8, {}, u"CustImageSizeY"}),
    Number(u"ARPreset", &Settings::ARPreset, {4, 11, u"ARPRESET"}, {6}),
    Magnitude(&Settings::LastImageSize, {1, 13, u"LASTIMAGESIZE"}),
    Number(u"FixTextSizeX", &Settings::FixTextSizeX, {1, 16, u"CUSTTEXTSIZEX"}, {9, {}, u"CustTextSizeX"}),
    Number(u"FixTextSizeY", &Settings::FixTextSizeY, {1, 17, u"CUSTTEXTSIZEY"}, {10, {}, u"CustTextSizeY"}),
    Text(u"DefFreeButtonText", &Settings::DefFreeButtonText, {}, {23}),
    Text(u"DefChapterButtonText", &Settings::DefChapterButtonText, {2, 7, u"CHAPTERBUTTONTEXT"}, {24}),
    Flag(u"ChapterButtonUseNum", &Settings::ChapterButtonUseNum, {2, 8, u"CHAPTERUSENUM"}, {25}),
    Flag(u"ChapterButtonUseTime", &Settings::ChapterButtonUseTime, {2, 9, u"CHAPTERUSETIME"}, {26}),
    Mask(u"DefTextButtonGif", &Settings::DefTextButtonGif, {2, 10, u"TEXTBUTTONGIF"}, {27}),
    Mask(u"DefGraphButtonGif", &Settings::DefGraphButtonGif, {2, 11, u"GRAPHBUTTONGIF"}, {28}),
    Mask(u"DefBackButtonGif", &Settings::DefBackButtonGif, {3, 1, u"BACKBUTTONGIF"}, {31}),
    Mask(u"DefAnimGif", &Settings::DefAnimGif, {2, 12, u"ANIMGIF"}, {29}),
    Mask(u"DefImagGif", &Settings::DefImagGif, {2, 13, u"IMAGGIF"}, {30}),
    Text(u"DefBackButtonText", &Settings::DefBackButtonText, {1, 9, u"BACKBUTTONTEXT"}, {32}),
    Flag(u"BackButtonIsText", &Settings::BackButtonIsText, {3, 2, u"BBISTEXT"}, {33}),
    Number(u"BackButtonXpos", &Settings::BackButtonXpos, {3, 3, u"BBXPOS"}, {34}),
    Number(u"BackButtonYpos", &Settings::BackButtonYpos, {3, 4, u"BBYPOS"}, {35}),
    Number(u"BackButtonWidth", &Settings::BackButtonWidth, {3, 5, u"BBWIDTH"}, {36}),
    Number(u"BackButtonHeight", &Settings::BackButtonHeight, {3, 6, u"BBHEIGHT"}, {37}),
    Text(u"DefShadow", &Settings::DefShadow, {5, 5, u"DEFSHADOW"}),
    Text(u"DefBlock", &Settings::DefBlock, {5, 6, u"DEFBLOCK"}),
    Text(u"DefOutline", &Settings::DefOutline, {5, 7, u"DEFOUTLINE"}),
    Text(u"DefBOutline", &Settings::DefBOutline, {5, 8, u"DEFBOUTLINE"}),
    Text(u"DefBBOutline", &Settings::DefBBOutline, {5, 9, u"DEFBBOUTLINE"}),
    // Audio titlesets
    Number(u"DefAudioTSType", &Settings::DefAudioTSType, {5, 4, u"AUDIOTSTYPE"}, {58, u"AudioTSType"}),
    Number(u"ArtistColor", &Settings::ArtistColor, {}, {43}),
    Number(u"AlbumColor", &Settings::AlbumColor, {}, {44}),
    Number(u"TitleColor", &Settings::TitleColor, {}, {45}),
    Number(u"ArtistXpos", &Settings::ArtistXpos, {}, {46}),
    Number(u"ArtistYpos", &Settings::ArtistYpos, {}, {47}),
    Number(u"AlbumXpos", &Settings::AlbumXpos, {}, {48}),
    Number(u"AlbumYpos", &Settings::AlbumYpos, {}, {49}),
    Number(u"TitleXpos", &Settings::TitleXpos, {}, {50}),
    Number(u"TitleYpos", &Settings::TitleYpos, {}, {51}),
    Font(u"ArtistFont", &Settings::ArtistFont, {}, {52}),
    Font(u"AlbumFont", &Settings::AlbumFont, {}, {53}),
    Font(u"TitleFont", &Settings::TitleFont, {}, {54}),
    Flag(u"AudioTSBlur", &Settings::AudioTSBlur, {}, {55}),
    Number(u"AudioTSBlurX", &Settings::AudioTSBlurX, {}, {56}),
    Number(u"AudioTSBlurY", &Settings::AudioTSBlurY, {}, {57}),
    // Burning
    Flag(u"NeroBurn", &Settings::NeroBurn),
    Flag(u"NeroErase", &Settings::NeroErase),
    Flag(u"NeroVerify", &Settings::NeroVerify),
    Text(u"NeroSpeed", &Settings::NeroSpeed),
    Text(u"NeroDrive", &Settings::NeroDrive),
    Path(u"NeroPath", &Settings::NeroPath),
    Text(u"NeroVersion", &Settings::NeroVersion),
    Text(u"ISO_Name", &Settings::ISO_Name),
    Path(u"IMGBurnPath", &Settings::IMGBurnPath),
    Flag(u"UseImgBurn", &Settings::UseImgBurn),
    Flag(u"CreateISO", &Settings::CreateISO),
    Flag(u"CreateIBG", &Settings::CreateIBG),
    Flag(u"DeleteISO", &Settings::DeleteISO),
    Flag(u"DeleteDVDafterISO", &Settings::DeleteDVDafterISO),
    // Intro
    Path(u"IntroMovie", &Settings::IntroMovie),
    Path(u"IntroAudio", &Settings::IntroAudio),
    Flag(u"UseIntro", &Settings::UseIntro),
    // Recent files
    Path(u"MRUFILE0", &Settings::MRUFILE0),
    Path(u"MRUFILE1", &Settings::MRUFILE1),
    Path(u"MRUFILE2", &Settings::MRUFILE2),
    Path(u"MRUFILE3", &Settings::MRUFILE3),
    Path(u"MRUFILE4", &Settings::MRUFILE4),
    Path(u"MRUFILE5", &Settings::MRUFILE5),
    Path(u"MRUFILE6", &Settings::MRUFILE6),
    Path(u"MRUFILE7", &Settings::MRUFILE7),
    Path(u"MRUFILE8", &Settings::MRUFILE8),
    Path(u"MRUFILE9", &Settings::MRUFILE9),
});

}  // namespace

std::span<const SettingRow> SettingsTable() {
  return kSettings;
}

}  // namespace torvane
