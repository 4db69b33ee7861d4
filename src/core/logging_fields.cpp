#include "core/logging_fields.h"

namespace XPJ {

namespace {

constexpr LoggingField kLogging[] = {
    {"description", "Description"}, {"scene", "Scene"},           {"shottake", "ShotTake"},
    {"lognote", "LogNote"},         {"tapeid", "TapeName", true}, // written as the reel of the
                                                                  // timecode
};

constexpr LoggingField kFilm[] = {
    {"cameraroll", "FilmCameraRoll"},
    {"dailyroll", "FilmDailyRoll"},
    {"labroll", "FilmLabRoll"},
};

constexpr LoggingField kKeycode[] = {
    {"feetframes", "FilmKeycodeFeetFrames"},
    {"perfoffset", "FilmKeycodePerfoffset"},
    {"prefix", "FilmKeycodePrefix"},
    {"reversed", "FilmKeycodeReversed"},
};

constexpr LoggingField kComments[] = {
    {"mastercomment1", "Master_95_Comment_95_1"},
    {"mastercomment2", "Master_95_Comment_95_2"},
    {"mastercomment3", "Master_95_Comment_95_3"},
    {"mastercomment4", "Master_95_Comment_95_4"},
    {"clipcommenta", "Clip_95_Comment_95_A"},
    {"clipcommentb", "Clip_95_Comment_95_B"},
    {"comment", "Comment", true},
};

} // namespace

std::span<const LoggingField> LoggingFields()
{
    return kLogging;
}

std::span<const LoggingField> FilmFields()
{
    return kFilm;
}

std::span<const LoggingField> KeycodeFields()
{
    return kKeycode;
}

std::span<const LoggingField> CommentFields()
{
    return kComments;
}

} // namespace XPJ
