#pragma once

#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

#include "core/film_record.h"
#include "core/prompter.h"
#include "core/settings.h"

namespace torvane {

enum class StartKind { Nothing, LoadProject, AddFilm };

/// What the command line of the desktop asks for: nothing, a project to open, or a film to take into a new project.
///
///     "C:\films\holiday.tvn"
///     "C:\films\holiday.m2v" "C:\films\holiday.ac3" /format="PAL" /usetitlesets="ON" /chapters="00:00:00.000"
///     "C:\films\holiday.mpg" /chapterfile="C:\films\holiday.txt"
struct StartCommand {
  StartKind kind = StartKind::Nothing;
  QString commandLine = {};            ///< the raw text; "" when there is nothing to do
  QString projectFile = {};            ///< LoadProject: full path
  QString videoFile = {};              ///< AddFilm: full path
  qsizetype videoEnd = -1;             ///< AddFilm: place of the double quote behind the video in the raw text
  std::optional<bool> VideoNormPal = {};  ///< where the command line says it
  std::optional<bool> NoTitleSets = {};
  bool operator==(const StartCommand&) const = default;
};

/// The film that a command line names, as the video title dialog begins with it.
struct StartFilm {
  FilmRecord film = {};      ///< name, video, audio and chapters; nothing is known of the video yet
  QString chapterFile = {};  ///< to be read by the dialog; "" for none
  bool operator==(const StartFilm&) const = default;
};

/// Judges a file that exists, by its DOS path.
using FileJudge = std::function<bool(const QString& path)>;

/// Makes one raw command line of arguments that arrived apart, behind the program's name: each path in double quotes,
/// each option as /name="value". Host paths become DOS paths, relative ones full.
QString JoinArguments(const QStringList& arguments);

/// Reads a raw command line; `isVideo` analyses a video. What is wrong is told (messages 101 to 103 and 627), and then
/// there is nothing to do.
StartCommand ParseStartCommand(const QString& commandLine, const FileJudge& isVideo, Prompter& prompter);

/// Takes into the settings in force what the command line says: norm and height of the video, titlesets, and the
/// video's directory as source directory.
void ApplyStartCommand(const StartCommand& command, Settings& settings);

/// Reads the rest of a command line that adds a film, once the program is idle. Nothing when the source browser does
/// not show the video (message 150). Audio files that cannot be taken are told (messages 151 to 153) and left out.
std::optional<StartFilm> ReadStartFilm(const StartCommand& command, const Settings& settings, const FileJudge& isAudio,
                                       Prompter& prompter);

/// Patterns of the video files that the source browser shows: no multiplexed ones with MuxMan.
QStringList SourcePatterns(const Settings& settings);

}  // namespace torvane
