#pragma once

#include <QString>

namespace torvane {

/// An attribute of a project element: what its key adds to the element's, and the label in front of its value.
/// The value of a node is its caption behind the label.
struct Attribute {
  QStringView Suffix;
  QStringView Label;
};

// ---- Roots ----

inline constexpr QStringView kTotalSizeKey = u"TS";
inline constexpr QStringView kTotalSizeLabel = u"TotalSize(MB)=";
inline constexpr QStringView kIntroKey = u"INTRO";
inline constexpr QStringView kIntroFileKey = u"INTROFile";
inline constexpr QStringView kIntroAudioKey = u"INTROAudio";

// ---- Menus ----

inline constexpr int kMainSubMenuSlots = 50;  ///< slot 0 is never used
inline constexpr int kSubMenuSlots = 1000;    ///< slot 0 is never used

QString MainMenuKey();              ///< "MM"
QString MainSubMenuKey(int slot);   ///< "MM3", slot 1 to 49
QString TitleSetMenuKey(int number);  ///< "TS2"
QString SubMenuKey(int slot);       ///< "SM7", slot 1 to 999

bool IsMainMenuFamily(QStringView menu);  ///< "MM" and "MM3"
bool IsMainSubMenu(QStringView menu);     ///< "MM3", not "MM"
bool IsTitleSetMenu(QStringView menu);    ///< "TS2", not the root "TS" that carries the size
bool IsSubMenu(QStringView menu);         ///< "SM7"

/// True for menus that carry a properties group "P": main submenus and titleset submenus.
bool IsAdditionalMenu(QStringView menu);

/// Groups and attributes below a menu; the key is the menu's key and the suffix.
namespace menu_node {
inline constexpr Attribute Properties{u"P", u"Properties"};
inline constexpr Attribute Type{u"PType", u"Type="};
inline constexpr Attribute Pause{u"PPause", u"Pause="};
inline constexpr Attribute PreCommand{u"PPre", u"PreCommand="};
inline constexpr Attribute PostCommand{u"PPost", u"PostCommand="};
inline constexpr Attribute UOP{u"PUOP", u"UOP="};
inline constexpr Attribute Transition{u"PTrans", u"Transition="};
inline constexpr Attribute SubMenus{u"M", u"SubMenus"};
inline constexpr Attribute Background{u"BG", u"Background"};
inline constexpr Attribute BackgroundPath{u"BGPath", u"Image="};
inline constexpr Attribute BackgroundLoop{u"BGLoop", u"Loop="};
inline constexpr Attribute BackgroundRasterX{u"BGRasterX", u"RasterX="};
inline constexpr Attribute BackgroundRasterY{u"BGRasterY", u"RasterY="};
inline constexpr Attribute BackgroundBlur{u"BGBlur", u"Blur="};
inline constexpr Attribute BackgroundBlurX{u"BGBlurX", u"BlurX="};
inline constexpr Attribute BackgroundBlurY{u"BGBlurY", u"BlurY="};
inline constexpr Attribute BackgroundAudio{u"BGAudio", u"Audio="};
inline constexpr Attribute BackgroundAnimation{u"BGAni", u"Animation="};
inline constexpr Attribute BackgroundLoopTrim{u"BGAniLT", u"LoopTrim="};
inline constexpr Attribute BackgroundDelay{u"BGDelay", u"HighlightDelay="};
inline constexpr Attribute BackgroundDuration{u"BGDuration", u"Duration="};
inline constexpr Attribute BackgroundBitrate{u"BGBitrate", u"Bitrate="};
inline constexpr Attribute BackgroundQuality{u"BGQuality", u"Quality="};
inline constexpr Attribute BackgroundAspect{u"BG16:9", u"16:9="};
inline constexpr Attribute BackgroundPause{u"BGPause", u"Pause="};
inline constexpr Attribute BackgroundPreAction{u"BGPreAction", u"PreAction="};
inline constexpr Attribute BackgroundPostAction{u"BGPostAction", u"PostAction="};
inline constexpr Attribute BackgroundUOP{u"BGUOP", u"UOP="};
inline constexpr Attribute BackgroundTransition{u"BGTrans", u"Transition="};
inline constexpr Attribute BackgroundFrames{u"BGFrames", u"Frames="};
inline constexpr Attribute HighLight{u"H", u"HighLight"};
inline constexpr Attribute HighLightType{u"HT", u"Type"};
inline constexpr Attribute HighLightFill{u"HT1", u"Fill="};
inline constexpr Attribute HighLightFrame{u"HT2", u"Frame="};
inline constexpr Attribute HighLightRounded{u"HT3", u"Rounded="};
inline constexpr Attribute HighLightFillColor{u"HC1", u"FillColor="};
inline constexpr Attribute HighLightFillTrans{u"HCT1", u"Transparenz="};
inline constexpr Attribute HighLightFrameColor{u"HC2", u"FrameColor="};
inline constexpr Attribute HighLightFrameTrans{u"HCT2", u"Transparenz="};
inline constexpr Attribute Activated{u"A", u"Activated"};
inline constexpr Attribute ActivatedFillColor{u"AC1", u"FillColor="};
inline constexpr Attribute ActivatedFillTrans{u"ACT1", u"Transparenz="};
inline constexpr Attribute ActivatedFrameColor{u"AC2", u"FrameColor="};
inline constexpr Attribute ActivatedFrameTrans{u"ACT2", u"Transparenz="};
inline constexpr Attribute Buttons{u"B", u"Buttons"};
inline constexpr Attribute Images{u"I", u"Images"};
inline constexpr Attribute Labels{u"L", u"Labels"};
inline constexpr Attribute Animations{u"S", u"Animations"};
}  // namespace menu_node

/// Key of a group or attribute of a menu.
QString MenuNodeKey(const QString& menu, Attribute attribute);

// ---- Menu elements ----

/// Attributes directly below a button, label, image or animation; the key is the element's key and the suffix.
namespace element_node {
inline constexpr Attribute Text{u"Text", u"Text="};
inline constexpr Attribute Action{u"Action", u"Action="};
inline constexpr Attribute FixedSize{u"FixedSize", u"FixedSize="};
inline constexpr Attribute AutoAction{u"AutoAction", u"AutoAction="};
inline constexpr Attribute ActionLeft{u"ActionLeft", u"ActionLeft="};
inline constexpr Attribute ActionRight{u"ActionRight", u"ActionRight="};
inline constexpr Attribute ActionUp{u"ActionUp", u"ActionUp="};
inline constexpr Attribute ActionDown{u"ActionDown", u"ActionDown="};
inline constexpr Attribute GifMask{u"GifMask", u"GifMask="};
inline constexpr Attribute MaskFile{u"GifMaskGif", u"Gif="};
inline constexpr Attribute MaskRelSize{u"GifMaskRelSize", u"Rel.Size="};
inline constexpr Attribute MaskXOffset{u"GifMaskXOff", u"X-Offset="};
inline constexpr Attribute MaskYOffset{u"GifMaskYOff", u"Y-Offset="};
inline constexpr Attribute MaskUseHigh{u"GifMaskUseHigh", u"Highlight="};
inline constexpr Attribute File{u"File", u""};
inline constexpr Attribute HSize{u"HSize", u"HSize="};
inline constexpr Attribute VSize{u"VSize", u"VSize="};
inline constexpr Attribute Image{u"Image", u"Image="};
inline constexpr Attribute Crop{u"Crop", u"Crop="};
}  // namespace element_node

/// Drawing attributes: below the properties node of a button or label, below the head of an image or animation.
namespace drawing_node {
inline constexpr Attribute NormVis{u"NormVis", u"NormVis="};
inline constexpr Attribute Shadow{u"Shadow", u"Shadow="};
inline constexpr Attribute Block{u"Block", u"Block="};
inline constexpr Attribute Outline{u"Outline", u"Outline="};
inline constexpr Attribute Align{u"Align", u"Align="};
inline constexpr Attribute Color{u"Color", u"Color="};
inline constexpr Attribute Left{u"Left", u"Left="};
inline constexpr Attribute Top{u"Top", u"Top="};
inline constexpr Attribute Width{u"Width", u"Width="};
inline constexpr Attribute Height{u"Height", u"Height="};
inline constexpr Attribute Font{u"Font", u"Font="};
inline constexpr Attribute FontSize{u"FontSize", u"FontSize="};
inline constexpr Attribute FontBold{u"FontBold", u"FontBold="};
inline constexpr Attribute FontItalic{u"FontItalic", u"FontItalic="};
inline constexpr Attribute FontStrikethru{u"FontStrikethru", u"FontStrikethru="};
inline constexpr Attribute FontUnderline{u"FontUnderline", u"FontUnderline="};
}  // namespace drawing_node

inline constexpr int kBackButton = 0;    ///< number of a menu's Back button
inline constexpr int kMaxButtons = 36;   ///< highest number of another button
inline constexpr int kFirstLabel = 37;   ///< labels share the numbers of the canvas with the buttons
inline constexpr int kLastLabel = 72;
inline constexpr int kMaxPictures = 50;  ///< highest number of an image or animation

QString ButtonKey(const QString& menu, int number);           ///< "MMB5"; 0 is the Back button
QString ButtonPropertiesKey(const QString& menu, int number);  ///< "MMBP5"
QString LabelKey(const QString& menu, int index);              ///< "MML37", index 37 to 72
QString LabelPropertiesKey(const QString& menu, int index);    ///< "MMLP37"
QString ImageKey(const QString& menu, int number);             ///< "MMI5"
QString AnimationKey(const QString& menu, int number);         ///< "MMS05", two digits
QString SubMenuLinkKey(const QString& menu, int number);       ///< "MMM2": entry of the "SubMenus" group

/// Key of an attribute of an element or of its properties node.
QString ElementNodeKey(const QString& element, Attribute attribute);

/// Number of an element from its key: what stands behind the key of its group ("MMB"), which must be one or two
/// digits; -1 for anything else. "TS10B3" in group "TS10B" is number 3.
int ElementNumber(QStringView key, QStringView groupKey);

// ---- Films ----

/// Attributes of a film; the key is the suffix and the film's number.
namespace film_node {
inline constexpr Attribute Film{u"F", u"Film"};
inline constexpr Attribute Name{u"FP", u"Name="};
inline constexpr Attribute Video{u"FPV", u"Video="};
inline constexpr Attribute VideoSize{u"FPVSize", u"Size(MB)="};
inline constexpr Attribute ResH{u"FPVResH", u"ResH="};
inline constexpr Attribute ResV{u"FPVResV", u"ResV="};
inline constexpr Attribute Fps{u"FPVFps", u"FPS="};
inline constexpr Attribute Aspect{u"FPVAspect", u"Aspect="};
inline constexpr Attribute Duration{u"FPVTime", u"Duration="};
inline constexpr Attribute ShrinkTo{u"FPVShrinkTo", u"ShrinkTo(MB)="};
inline constexpr Attribute AudioDelay{u"FPAD", u"AudioDelay="};
inline constexpr Attribute SubColors{u"FPS", u"SubColors="};
inline constexpr Attribute AddSubStream{u"FPSA", u"AddSubStream="};
inline constexpr Attribute Chapters{u"FPCH", u"Chapters="};
inline constexpr Attribute TotalSize{u"FPTS", u"TotalSize(MB)="};
inline constexpr Attribute LanguageTags{u"FPLang", u"LanguageTags="};
inline constexpr Attribute Mux{u"FPMux", u"Mux="};
inline constexpr Attribute Animated{u"FPAni", u"Animated="};
inline constexpr Attribute PreAction{u"FPPreAct", u"Pre Action="};
inline constexpr Attribute PostAction{u"FPPostAct", u"Post Action="};
inline constexpr Attribute UOP{u"FPUOP", u"UOP="};
inline constexpr Attribute AudioTitles{u"FPA", u"AudioTitles="};
inline constexpr Attribute AudioLayout{u"FPAL", u"AudioTSLayout"};
inline constexpr Attribute AuthorFont{u"FPALAFont", u"AuthorTextFont="};
inline constexpr Attribute AuthorColor{u"FPALAColor", u"AuthorTextColor="};
inline constexpr Attribute AuthorXPos{u"FPALAXPos", u"AuthorTextXPos="};
inline constexpr Attribute AuthorYPos{u"FPALAYPos", u"AuthorTextYPos="};
inline constexpr Attribute AlbumFont{u"FPALBFont", u"AlbumTextFont="};
inline constexpr Attribute AlbumColor{u"FPALBColor", u"AlbumTextColor="};
inline constexpr Attribute AlbumXPos{u"FPALBXPos", u"AlbumTextXPos="};
inline constexpr Attribute AlbumYPos{u"FPALBYPos", u"AlbumTextYPos="};
inline constexpr Attribute TitleFont{u"FPALTFont", u"TitleTextFont="};
inline constexpr Attribute TitleColor{u"FPALTColor", u"TitleTextColor="};
inline constexpr Attribute TitleXPos{u"FPALTXPos", u"TitleTextXPos="};
inline constexpr Attribute TitleYPos{u"FPALTYPos", u"TitleTextYPos="};
inline constexpr Attribute AudioBlur{u"FPALBlur", u"UseBlur="};
inline constexpr Attribute AudioBlurX{u"FPALBlurX", u"BlurX="};
inline constexpr Attribute AudioBlurY{u"FPALBlurY", u"BlurY="};
}  // namespace film_node

/// Attributes below a title of an audio titleset; the key is the title's key and the suffix.
namespace audio_title_node {
inline constexpr Attribute File{u"FILE", u"File="};
inline constexpr Attribute Artist{u"ARTIST", u"Artist="};
inline constexpr Attribute Album{u"ALBUM", u"Album="};
inline constexpr Attribute Image{u"IMAGE", u"Image="};
inline constexpr Attribute Size{u"SIZE", u"Size="};
}  // namespace audio_title_node

/// Attributes below a playlist; the key is the playlist's key and the suffix.
namespace playlist_node {
inline constexpr Attribute List{u"List", u"Play="};
inline constexpr Attribute PreAction{u"PreAct", u"Pre Action="};
inline constexpr Attribute PostAction{u"PostAct", u"Post Action="};
inline constexpr Attribute UOP{u"UOP", u"UOP="};
}  // namespace playlist_node

inline constexpr QStringView kAudioTitleSetMark = u"(AudioTitleSet)";  ///< ends the caption of such a film's root
inline constexpr int kMaxFilms = 98;
inline constexpr int kMaxAudioTitles = 96;  ///< of one audio titleset
inline constexpr int kFilmStreams = 3;  ///< audio and subtitle streams a film can have, each

QString FilmNodeKey(Attribute attribute, int film);  ///< "FPVResH3"
QString FilmKey(int film);                           ///< "F3"
QString FilmAudioKey(int film, int stream);          ///< "FP1A3", stream 1 to 3
QString FilmSubtitleKey(int film, int stream);       ///< "FP1S3"
QString FilmSubtitleFormatKey(int film, int stream);  ///< "FP1SF3"
QString FilmAudioLabel(int stream);                  ///< "Audio1="
QString FilmSubtitleLabel(int stream);               ///< "SubTitel1="
QString FilmSubtitleFormatLabel(int stream);         ///< "SubFormatStr1="
QString AudioTitleKey(int film, int title);          ///< "FPA3#01", title 1 to 96
QString AudioTitleLabel(int title);                  ///< "Title01="
QString PlayListsKey(int film);                      ///< "FP3P": the group
QString PlayListKey(int film, int number);           ///< "FP3P2"
QString PlayListTag(int film, int number);           ///< "03 02": tag of a playlist and of its button's text

}  // namespace torvane
