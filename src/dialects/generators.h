// Generated video: slugs, and what parameters of titles mean.
#pragma once

#include "dialects/pass.h"

namespace XPJ {

// Makes generators of the items of video tracks whose file is a gap in the cut, and removes those
// of audio tracks. The angles of multiclips stay as they are.
void ReadSlugsAsGenerators(DialectPass& pass);

// Styles of titles: from the numbers of other programs to those of the import, and from those of
// the export to theirs.
void ReadTitleStyles(DialectPass& pass);
void WriteTitleStyles(DialectPass& pass);

} // namespace XPJ
