// `file` elements. A Media is written in full where it is first used and referred to from then on.
#pragma once

#include "export/catalogs.h"

namespace XPJ::RVX {

// A Media and the master clip through which it was reached.
struct FileSource {
    Media media;
    MasterClip masterClip;
};

// Adds the `file` of a Media to an element, as a child or as the reference `fileid`. A clip item
// without `rate` of its own should take that of the file.
FileRecord& WriteFile(ExportContext& context, Catalogs& catalogs, const FileSource& source,
                      ObjectHandle element);

} // namespace XPJ::RVX
