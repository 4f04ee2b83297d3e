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

constexpr SettingRow Decimal(QStringView key, double Settings::*member) {
  return {key, SettingKind::Decimal, member, {}};
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

constexpr int kWhite = 0xFFFFFF;
constexpr int kMostBlur = 158;

constexpr auto kSettings = std::to_array<SettingRow>({
    // General
    Number(u"LangID", &Settings::LangID)
        .OneOf(u"1000 2000")
        .Means(u"Language of the messages: 1000 is English, 2000 German."),
    Flag(u"AskForSave", &Settings::AskForSave).Means(u"1 asks about a changed project before it is closed."),
    Flag(u"AutoAcceptVideo", &Settings::AutoAcceptVideo)
        .Means(u"1 takes a video of the start command without showing its dialog."),
    Flag(u"MaxSizeInd", &Settings::MaxSizeInd)
        .Means(u"1 shows the size of a project on the scale of a dual-layer disc."),
    Number(u"LastTvNXPos", &Settings::LastTvNXPos)
        .Means(u"Left edge of the window at the last end of the program, in pixels."),
    Number(u"LastTvNYPos", &Settings::LastTvNYPos)
        .Means(u"Top edge of the window at the last end of the program, in pixels."),
    Flag(u"AdvancedMode", &Settings::AdvancedMode, {1, 7, u"ADVANCED"})
        .Means(u"1 lets actions and commands of menus and films be written by hand."),
    Flag(u"EditXML", &Settings::EditXML).Means(u"1 shows the control file for changes before a run."),
    Flag(u"CommentXML", &Settings::CommentXML).Means(u"1 writes comments into the control file."),
    Flag(u"ShortDVDALog", &Settings::ShortDVDALog)
        .Means(u"1 shortens what dvdauthor says, which also takes most warnings away."),
    Flag(u"KeepLogFile", &Settings::KeepLogFile).Means(u"1 adds the log of each run to the file TVNLogFile."),
    Path(u"TVNLogFile", &Settings::TVNLogFile)
        .Means(u"The file that collects the logs of all runs; empty is the one of the program."),
    // Directories and tools
    Path(u"OutDir", &Settings::OutDir)
        .Means(u"The directory that discs are made in; empty is TVNOutDir in your documents."),
    Flag(u"TempOutDir", &Settings::TempOutDir)
        .Means(u"1 takes the directory Temp below OutDir for what a run needs in between, 0 takes TempDir."),
    Path(u"TempDir", &Settings::TempDir).Means(u"The directory for what a run needs in between."),
    Flag(u"AutoDelete", &Settings::AutoDelete).Means(u"1 deletes after a run what it needed in between."),
    Path(u"ISOPath", &Settings::ISOPath).Means(u"The directory that ISO images are made in."),
    Path(u"DvdAuthorPath", &Settings::DvdAuthorPath)
        .Means(u"The directory of the authoring tools, as the batches name it."),
    Path(u"InDir", &Settings::InDir).Means(u"The directory of your films, where files that moved are looked for."),
    Path(u"OwnDir", &Settings::OwnDir).Means(u"The directory of your pictures, where files that moved are looked for."),
    Path(u"OwnAudioDir", &Settings::OwnAudioDir)
        .Means(u"The directory of your sound files, where files that moved are looked for."),
    Path(u"OwnGifMaskDir", &Settings::OwnGifMaskDir, {5, 12, u"OWNGIFMASKDIR"}, {62})
        .Means(u"The directory of your own mask pictures."),
    Path(u"ExternalViewer", &Settings::ExternalViewer).Means(u"The program that plays a film."),
    Flag(u"IncludeOutdir", &Settings::IncludeOutdir).Means(u"1 tells the player of films the directory OutDir."),
    Path(u"DVDViewer", &Settings::DVDViewer).Means(u"The program that plays a finished disc."),
    Number(u"DVDViewerType", &Settings::DVDViewerType)
        .From(0, 1)
        .Means(u"What the disc player is given: 0 the folder VIDEO_TS, 1 the file VIDEO_TS.IFO."),
    Switch(u"Engine", &Settings::Engine, {5, 2, u"ENGINE"})
        .Means(u"The authoring engine: 0 is dvdauthor, 1 is MuxMan."),
    Text(u"AniEncoder", &Settings::AniEncoder).OneOf(u"HC QuEnc").Means(u"The encoder of animated menus: HC or QuEnc."),
    Decimal(u"ToolPatience", &Settings::ToolPatience)
        .Means(u"Minutes after which a tool that does nothing is ended; 0 is never."),
    // Authoring
    Number(u"NumStillFrames", &Settings::NumStillFrames)
        .From(1, 99)
        .Means(u"Pictures that the film of a still menu has."),
    Flag(u"AdjNTSCtc", &Settings::AdjNTSCtc, {5, 10, u"ADJNTSCTC"})
        .Means(u"1 adjusts the chapter times of NTSC films to their real length."),
    Flag(u"UseInsnavForMenus", &Settings::UseInsnavForMenus).Means(u"1 uses insnav for still menus with sound."),
    Flag(u"ForceSCR", &Settings::ForceSCR)
        .Means(u"1 forces dvdauthor through the error of a clock that moves backwards; use with care."),
    Flag(u"LoopSyntax", &Settings::LoopSyntax, {5, 1, u"LOOPSYNTAX"})
        .Means(u"1 lets menus loop by a jump to the menu, which more players take."),
    Flag(u"VideoNormPal", &Settings::VideoNormPal, {1, 1, u"NORM"}).Means(u"The norm: 1 is PAL, 0 is NTSC."),
    Flag(u"NoTitleSets", &Settings::NoTitleSets, {1, 2, u"NOTS"})
        .Means(u"0 gives each film a titleset and a menu of its own, 1 puts all films into one titleset."),
    Flag(u"NoChapterMenus", &Settings::NoChapterMenus).Means(u"1 makes no menus of chapters."),
    Flag(u"NoShowTitleSetMenu", &Settings::NoShowTitleSetMenu, {1, 10, u"PREACT1"})
        .Means(u"What a film's button does: 1 starts the film, 0 shows the menu of its titleset."),
    Flag(u"NoMenus", &Settings::NoMenus, {4, 12, u"NOMENUS"})
        .Means(u"1 makes discs without menus that play their films in order."),
    Flag(u"PostGoMain", &Settings::PostGoMain, {1, 11, u"POSTACT1"}).Means(u"1 shows the main menu after a film."),
    Flag(u"GoNextTitle", &Settings::GoNextTitle, {1, 12, u"POSTACT2"})
        .Means(u"1 goes on with the next film after a film, unless PostGoMain is 1."),
    Flag(u"DefaultLoop", &Settings::DefaultLoop, {5, 11, u"DEFAULTLOOP"}).Means(u"1 lets new animated menus loop."),
    Number(u"AutoChapter", &Settings::AutoChapter, {3, 7, u"AUTOCHAP"})
        .From(0, 2)
        .Means(u"Chapters of a new film: 0 none, 1 a number of them, 2 one every few minutes."),
    Number(u"AutoChapterMinutes", &Settings::AutoChapterMinutes, {3, 8, u"CHAPMIN"})
        .From(1, 99)
        .Means(u"Minutes from one chapter to the next with AutoChapter 2."),
    Number(u"AutoChapterNum", &Settings::AutoChapterNum, {3, 9, u"CHAPNUM"})
        .From(1, 99)
        .Means(u"Number of chapters with AutoChapter 1."),
    Flag(u"AutoCrop", &Settings::AutoCrop, {3, 10, u"AUTOCROP"}, {41}).Means(u"1 crops new animations by AutoCropVal."),
    Text(u"AutoCropVal", &Settings::AutoCropVal, {3, 11, u"CROPVAL"}, {42})
        .As(SettingForm::Crop)
        .Means(
            u"What is cropped of an animation, in pixels: one number for all sides, or left, top, right and bottom."),
    Flag(u"ChapEditMarkOnly", &Settings::ChapEditMarkOnly)
        .Means(u"1 lets the chapter editor mark chapters without making pictures of them."),
    Text(u"DefaultSubFormatStr", &Settings::DefaultSubFormatStr)
        .As(SettingForm::SubtitleFormat)
        .Means(u"How text subtitles look: character set, size, font, places and margins, separated by a slash."),
    Flag(u"AnimatedMainMenu", &Settings::AnimatedMainMenu, {1, 6, u"ANIMATED"}).Means(u"1 makes menus that move."),
    Number(u"AnimationDuration", &Settings::AnimationDuration)
        .From(1, 999)
        .Means(u"Length of an animated menu, in seconds."),
    // Canvas
    Flag(u"ShowPointGrid", &Settings::ShowPointGrid).Means(u"1 shows the raster as points."),
    Number(u"TVSafeAreaColor", &Settings::TVSafeAreaColor)
        .From(0, kWhite)
        .Means(u"Colour of the frames that show what every television set shows: red + green * 256 + blue * 65536."),
    Flag(u"ShowTVSafeArea", &Settings::ShowTVSafeArea).Means(u"1 shows these frames."),
    Flag(u"AutoGroup", &Settings::AutoGroup, {}, {4})
        .Means(u"1 moves a button and a picture of the same rectangle together."),
    Flag(u"UseRaster", &Settings::UseRaster, {1, 8, u"USERASTER"}, {3}).Means(u"1 places elements on the raster."),
    Number(u"RasterX", &Settings::RasterX, {}, {1, {}, u"DefRasterX"})
        .EvenFrom(2, 698)
        .Means(u"Horizontal step of the raster, in pixels."),
    Number(u"RasterY", &Settings::RasterY, {}, {2, {}, u"DefRasterY"})
        .EvenFrom(2, 574)
        .Means(u"Vertical step of the raster, in pixels."),
    Number(u"BlurX", &Settings::BlurX, {}, {60})
        .From(0, kMostBlur)
        .Means(u"Horizontal blur of menus, in hundredths of a pixel."),
    Number(u"BlurY", &Settings::BlurY, {}, {61})
        .From(0, kMostBlur)
        .Means(u"Vertical blur of menus, in hundredths of a pixel."),
    Flag(u"UseBlur", &Settings::UseBlur, {}, {59}).Means(u"1 blurs new menus, so that thin lines do not flicker."),
    Text(u"GridLayout", &Settings::GridLayout, {}, {5})
        .As(SettingForm::Grid)
        .Means(u"The grid of new elements: rows, columns, place of the first and steps to the next, in pixels."),
    // Menu defaults
    Flag(u"DefMenuRatio", &Settings::DefMenuRatio, {1, 3, u"MRATIO"}).Means(u"Aspect of menus: 0 is 4:3, 1 is 16:9."),
    Number(u"Def169Mode", &Settings::Def169Mode, {5, 3, u"_169MODE"})
        .From(0, 2)
        .Means(u"How a 4:3 set shows a 16:9 menu: 0 letterbox, 1 letterbox and pan-scan, 2 pan-scan."),
    Number(u"DefFrameWidth", &Settings::DefFrameWidth, {2, 4, u"DEFFRAMEWIDTH"})
        .From(1, 9)
        .Means(u"Width of the frame of a highlighted button, in pixels."),
    Number(u"DefLabelPos", &Settings::DefLabelPos, {4, 10, u"DEFLABELPOS"}, {40})
        .From(0, 3)
        .Means(u"Place of the text beside a graphic button: 0 right, 1 below, 2 left, 3 above."),
    Number(u"TextButtons", &Settings::TextButtons, {1, 4, u"TEXTBUTTONS"}, {39})
        .From(0, 2)
        .Means(u"What a new button is: 0 a graphic, 1 a text, 2 a graphic with a text beside it."),
    Number(u"DefButtomType", &Settings::DefButtomType, {4, 1, u"DEFBUTTONTYPE"}, {38})
        .From(0, 2)
        .Means(u"Highlight of new menus: 0 fill, 1 frame, 2 both."),
    Flag(u"RoundedButtonFrames", &Settings::RoundedButtonFrames, {1, 5, u"ROUNDEDBUTTONS"}, {22})
        .Means(u"1 gives new menus rounded frames."),
    Flag(u"ExclTextFromGifMask", &Settings::ExclTextFromGifMask, {2, 5, u"EXCLTEXTFROMGIFMASK"})
        .Means(u"1 leaves the text of a button with a mask out of its highlight."),
    Flag(u"ClipGifMask", &Settings::ClipGifMask, {2, 6, u"CLIPGIFMASK"})
        .Means(u"1 cuts masks to the rectangle of their button."),
    Number(u"DefHighLightFillColor", &Settings::DefHighLightFillColor, {4, 2, u"DEFHIGHLIGHTFILLCOLOR"}, {14})
        .From(0, kWhite)
        .Means(u"Colour of the fill of a button that is reached: red + green * 256 + blue * 65536."),
    Number(u"DefSelectedFillColor", &Settings::DefSelectedFillColor, {4, 3, u"DEFSELECTEDFILLCOLOR"}, {15})
        .From(0, kWhite)
        .Means(u"Colour of the fill of a button that is pressed: red + green * 256 + blue * 65536."),
    Number(u"DefHighLightFrameColor", &Settings::DefHighLightFrameColor, {4, 4, u"DEFHIGHLIGHTFRAMECOLOR"}, {16})
        .From(0, kWhite)
        .Means(u"Colour of the frame of a button that is reached: red + green * 256 + blue * 65536."),
    Number(u"DefSelectedFrameColor", &Settings::DefSelectedFrameColor, {4, 5, u"DEFSELECTEDFRAMECOLOR"}, {17})
        .From(0, kWhite)
        .Means(u"Colour of the frame of a button that is pressed: red + green * 256 + blue * 65536."),
    Byte(u"DefHighLightFillTrans", &Settings::DefHighLightFillTrans, {4, 6, u"DEFHIGHLIGHTFILLTRANS"}, {18})
        .Means(u"Opacity of the fill of a button that is reached: 0 is invisible, 255 opaque."),
    Byte(u"DefSelectedFillTrans", &Settings::DefSelectedFillTrans, {4, 7, u"DEFSELECTEDFILLTRANS"}, {19})
        .Means(u"Opacity of the fill of a button that is pressed: 0 is invisible, 255 opaque."),
    Byte(u"DefHighLightFrameTrans", &Settings::DefHighLightFrameTrans, {4, 8, u"DEFHIGHLIGHTFRAMETRANS"}, {20})
        .Means(u"Opacity of the frame of a button that is reached: 0 is invisible, 255 opaque."),
    Byte(u"DefSelectedFrameTrans", &Settings::DefSelectedFrameTrans, {4, 9, u"DEFSELECTEDFRAMETRANS"}, {21})
        .Means(u"Opacity of the frame of a button that is pressed: 0 is invisible, 255 opaque."),
    // Element defaults
    Font(u"DefaultFont", &Settings::DefaultFont, {2, 1, u"DEFAULTFONT"}, {13})
        .Means(u"Font of new texts: name, size, bold, italic, strikethrough and underline, separated by a backslash."),
    Number(u"DefTextColor", &Settings::DefTextColor, {2, 3, u"DEFTEXTCOLOR"}, {11})
        .From(0, kWhite)
        .Means(u"Colour of new texts: red + green * 256 + blue * 65536."),
    Number(u"DefTextAlign", &Settings::DefTextAlign, {2, 2, u"DEFTEXTALIGN"}, {12})
        .From(0, 2)
        .Means(u"Alignment of new texts: 0 left, 1 right, 2 centred."),
    Number(u"ImageSizeX", &Settings::ImageSizeX, {1, 14, u"CUSTIMAGESIZEX"}, {7, {}, u"CustImageSizeX"})
        .From(10, 700)
        .Means(u"Width of new pictures and graphic buttons, in pixels."),
    Number(u"ImageSizeY", &Settings::ImageSizeY, {1, 15, u"CUSTIMAGESIZEY"}, {8, {}, u"CustImageSizeY"})
        .From(10, 480)
        .Means(u"Height of new pictures and graphic buttons, in pixels."),
    Number(u"ARPreset", &Settings::ARPreset, {4, 11, u"ARPRESET"}, {6})
        .From(0, 5)
        .Means(u"The row of sizes that are offered for pictures."),
    Magnitude(&Settings::LastImageSize, {1, 13, u"LASTIMAGESIZE"}),
    Number(u"FixTextSizeX", &Settings::FixTextSizeX, {1, 16, u"CUSTTEXTSIZEX"}, {9, {}, u"CustTextSizeX"})
        .From(10, 600)
        .Means(u"Width of new texts of fixed size, in pixels."),
    Number(u"FixTextSizeY", &Settings::FixTextSizeY, {1, 17, u"CUSTTEXTSIZEY"}, {10, {}, u"CustTextSizeY"})
        .From(10, 480)
        .Means(u"Height of new texts of fixed size, in pixels."),
    Text(u"DefFreeButtonText", &Settings::DefFreeButtonText, {}, {23}).Means(u"Text of a new free button."),
    Text(u"DefChapterButtonText", &Settings::DefChapterButtonText, {2, 7, u"CHAPTERBUTTONTEXT"}, {24})
        .Means(u"Text of a new chapter button."),
    Flag(u"ChapterButtonUseNum", &Settings::ChapterButtonUseNum, {2, 8, u"CHAPTERUSENUM"}, {25})
        .Means(u"1 adds the number of the chapter to that text."),
    Flag(u"ChapterButtonUseTime", &Settings::ChapterButtonUseTime, {2, 9, u"CHAPTERUSETIME"}, {26})
        .Means(u"1 adds the time of the chapter to that text."),
    Mask(u"DefTextButtonGif", &Settings::DefTextButtonGif, {2, 10, u"TEXTBUTTONGIF"}, {27})
        .Means(u"Mask of new text buttons: use, size in percent, two offsets, highlight mode and picture, separated by "
               u"semicolons."),
    Mask(u"DefGraphButtonGif", &Settings::DefGraphButtonGif, {2, 11, u"GRAPHBUTTONGIF"}, {28})
        .Means(u"Mask of new graphic buttons: use, size in percent, two offsets, highlight mode and picture, separated "
               u"by semicolons."),
    Mask(u"DefBackButtonGif", &Settings::DefBackButtonGif, {3, 1, u"BACKBUTTONGIF"}, {31})
        .Means(u"Mask of new Back buttons: use, size in percent, two offsets, highlight mode and picture, separated by "
               u"semicolons."),
    Mask(u"DefAnimGif", &Settings::DefAnimGif, {2, 12, u"ANIMGIF"}, {29})
        .Means(u"Mask of new animations: use, size in percent, two offsets, highlight mode and picture, separated by "
               u"semicolons."),
    Mask(u"DefImagGif", &Settings::DefImagGif, {2, 13, u"IMAGGIF"}, {30})
        .Means(u"Mask of new pictures: use, size in percent, two offsets, highlight mode and picture, separated by "
               u"semicolons."),
    Text(u"DefBackButtonText", &Settings::DefBackButtonText, {1, 9, u"BACKBUTTONTEXT"}, {32})
        .As(SettingForm::NotEmpty)
        .Means(u"Text of new Back buttons."),
    Flag(u"BackButtonIsText", &Settings::BackButtonIsText, {3, 2, u"BBISTEXT"}, {33})
        .Means(u"What a new Back button is: 1 a text, 0 a graphic."),
    Number(u"BackButtonXpos", &Settings::BackButtonXpos, {3, 3, u"BBXPOS"}, {34})
        .From(10, 700)
        .Means(u"Left edge of new Back buttons, in pixels."),
    Number(u"BackButtonYpos", &Settings::BackButtonYpos, {3, 4, u"BBYPOS"}, {35})
        .From(10, 566)
        .Means(u"Top edge of new Back buttons, in pixels."),
    Number(u"BackButtonWidth", &Settings::BackButtonWidth, {3, 5, u"BBWIDTH"}, {36})
        .From(10, 600)
        .Means(u"Width of a graphic Back button, in pixels."),
    Number(u"BackButtonHeight", &Settings::BackButtonHeight, {3, 6, u"BBHEIGHT"}, {37})
        .From(10, 480)
        .Means(u"Height of a graphic Back button, in pixels."),
    Text(u"DefShadow", &Settings::DefShadow, {5, 5, u"DEFSHADOW"})
        .As(SettingForm::Effect)
        .Means(u"Shadow of new texts: opacity, two offsets and whether it is used, separated by semicolons."),
    Text(u"DefBlock", &Settings::DefBlock, {5, 6, u"DEFBLOCK"})
        .As(SettingForm::Effect)
        .Means(u"Block behind new texts: brightness, two offsets and whether it is used, separated by semicolons."),
    Text(u"DefOutline", &Settings::DefOutline, {5, 7, u"DEFOUTLINE"})
        .As(SettingForm::Effect)
        .Means(u"Outline of new texts: red, green, blue and whether it is used, separated by semicolons."),
    Text(u"DefBOutline", &Settings::DefBOutline, {5, 8, u"DEFBOUTLINE"})
        .As(SettingForm::Effect)
        .Means(u"Outline of new buttons: red, green, blue and whether it is used, separated by semicolons."),
    Text(u"DefBBOutline", &Settings::DefBBOutline, {5, 9, u"DEFBBOUTLINE"})
        .As(SettingForm::Effect)
        .Means(u"Outline of new Back buttons: red, green, blue and whether it is used, separated by semicolons."),
    // Audio titlesets
    Number(u"DefAudioTSType", &Settings::DefAudioTSType, {5, 4, u"AUDIOTSTYPE"}, {58, u"AudioTSType"})
        .From(0, 1)
        .Means(u"Tracks of a new audio titleset: 0 titles, 1 chapters of one title."),
    Number(u"ArtistColor", &Settings::ArtistColor, {}, {43})
        .From(0, kWhite)
        .Means(u"Colour of the artist on the pictures of audio titlesets: red + green * 256 + blue * 65536."),
    Number(u"AlbumColor", &Settings::AlbumColor, {}, {44})
        .From(0, kWhite)
        .Means(u"Colour of the album on the pictures of audio titlesets: red + green * 256 + blue * 65536."),
    Number(u"TitleColor", &Settings::TitleColor, {}, {45})
        .From(0, kWhite)
        .Means(u"Colour of the title on the pictures of audio titlesets: red + green * 256 + blue * 65536."),
    Number(u"ArtistXpos", &Settings::ArtistXpos, {}, {46})
        .From(10, 700)
        .Means(u"Left edge of the artist on these pictures, in pixels."),
    Number(u"ArtistYpos", &Settings::ArtistYpos, {}, {47})
        .From(10, 566)
        .Means(u"Top edge of the artist on these pictures, in pixels."),
    Number(u"AlbumXpos", &Settings::AlbumXpos, {}, {48})
        .From(10, 700)
        .Means(u"Left edge of the album on these pictures, in pixels."),
    Number(u"AlbumYpos", &Settings::AlbumYpos, {}, {49})
        .From(10, 566)
        .Means(u"Top edge of the album on these pictures, in pixels."),
    Number(u"TitleXpos", &Settings::TitleXpos, {}, {50})
        .From(10, 700)
        .Means(u"Left edge of the title on these pictures, in pixels."),
    Number(u"TitleYpos", &Settings::TitleYpos, {}, {51})
        .From(10, 566)
        .Means(u"Top edge of the title on these pictures, in pixels."),
    Font(u"ArtistFont", &Settings::ArtistFont, {}, {52})
        .Means(u"Font of the artist on these pictures; empty is DefaultFont."),
    Font(u"AlbumFont", &Settings::AlbumFont, {}, {53})
        .Means(u"Font of the album on these pictures; empty is DefaultFont."),
    Font(u"TitleFont", &Settings::TitleFont, {}, {54})
        .Means(u"Font of the title on these pictures; empty is DefaultFont."),
    Flag(u"AudioTSBlur", &Settings::AudioTSBlur, {}, {55}).Means(u"1 blurs the pictures of audio titlesets."),
    Number(u"AudioTSBlurX", &Settings::AudioTSBlurX, {}, {56})
        .From(0, kMostBlur)
        .Means(u"Horizontal blur of these pictures, in hundredths of a pixel."),
    Number(u"AudioTSBlurY", &Settings::AudioTSBlurY, {}, {57})
        .From(0, kMostBlur)
        .Means(u"Vertical blur of these pictures, in hundredths of a pixel."),
    // Burning
    Flag(u"NeroBurn", &Settings::NeroBurn).Means(u"1 burns the disc after a run."),
    Flag(u"NeroErase", &Settings::NeroErase).Means(u"1 erases a rewritable disc before it is burnt (Nero alone)."),
    Flag(u"NeroVerify", &Settings::NeroVerify).Means(u"1 compares the burnt disc with the files."),
    Text(u"NeroSpeed", &Settings::NeroSpeed)
        .OneOf(u"Max. 1x 2x 2.4x 4x 8x")
        .Means(u"Speed of burning: Max., 1x, 2x, 2.4x, 4x or 8x."),
    Text(u"NeroDrive", &Settings::NeroDrive).Means(u"The drive that burns."),
    Path(u"NeroPath", &Settings::NeroPath).Means(u"The directory of NeroCmd."),
    Text(u"NeroVersion", &Settings::NeroVersion).Means(u"Generation of NeroCmd; 56 is the one of versions 5 and 6."),
    Text(u"ISO_Name", &Settings::ISO_Name)
        .As(SettingForm::VolumeName)
        .Means(u"Volume name of the disc and name of its image: up to 30 capitals, digits and underscores."),
    Path(u"IMGBurnPath", &Settings::IMGBurnPath).Means(u"The directory of ImgBurn."),
    Flag(u"UseImgBurn", &Settings::UseImgBurn).Means(u"1 burns with ImgBurn, 0 with Nero."),
    Flag(u"CreateISO", &Settings::CreateISO).Means(u"1 makes an ISO image of the disc."),
    Flag(u"CreateIBG", &Settings::CreateIBG).Means(u"1 lets ImgBurn write its graph data file."),
    Flag(u"DeleteISO", &Settings::DeleteISO).Means(u"1 lets ImgBurn delete the image after writing."),
    Flag(u"DeleteDVDafterISO", &Settings::DeleteDVDafterISO)
        .Means(u"1 deletes the folder VIDEO_TS once the image is made."),
    // Intro
    Path(u"IntroMovie", &Settings::IntroMovie).Means(u"The film that is shown when the disc starts."),
    Path(u"IntroAudio", &Settings::IntroAudio).Means(u"The sound of that film, unless it is multiplexed."),
    Flag(u"UseIntro", &Settings::UseIntro).Means(u"1 starts discs with that film."),
    // Recent files
    Path(u"MRUFILE0", &Settings::MRUFILE0).Means(u"A project used lately, the latest first."),
    Path(u"MRUFILE1", &Settings::MRUFILE1).Means(u"A project used lately, the latest first."),
    Path(u"MRUFILE2", &Settings::MRUFILE2).Means(u"A project used lately, the latest first."),
    Path(u"MRUFILE3", &Settings::MRUFILE3).Means(u"A project used lately, the latest first."),
    Path(u"MRUFILE4", &Settings::MRUFILE4).Means(u"A project used lately, the latest first."),
    Path(u"MRUFILE5", &Settings::MRUFILE5).Means(u"A project used lately, the latest first."),
    Path(u"MRUFILE6", &Settings::MRUFILE6).Means(u"A project used lately, the latest first."),
    Path(u"MRUFILE7", &Settings::MRUFILE7).Means(u"A project used lately, the latest first."),
    Path(u"MRUFILE8", &Settings::MRUFILE8).Means(u"A project used lately, the latest first."),
    Path(u"MRUFILE9", &Settings::MRUFILE9).Means(u"A project used lately, the latest first."),
});

}  // namespace

std::span<const SettingRow> SettingsTable() {
  return kSettings;
}

}  // namespace torvane
