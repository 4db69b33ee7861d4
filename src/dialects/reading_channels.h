// Channels of audio that documents state in other ways.
#pragma once

#include "dialects/pass.h"

namespace XPJ {

// Gives the audio of files the channel count that its channels, its layout or its items state, and
// makes pairs of those labelled left and right. Where not all channels are in pairs they count one
// by one: the import takes pairs alone.
//   audio(audiochannel, audiochannel)              -> audio(channelcount 2, ...)
//   audio(label left), audio(label right)          -> layout stereo for both
//   audio(layout stereo) x 2, audio(layout mono)   -> layout mono for all
void ReadChannels(DialectPass& pass);

// Marks the items that show both channels of a stereo file: where a document names the first
// channel of a file alone, on all of its items, none of them stands for half of the file.
//   clipitem(sourcetrack 1, file(audio(channelcount 2))) -> clipitem(velaChannelType stereo, ...)
void ShowBothChannels(DialectPass& pass);

} // namespace XPJ
