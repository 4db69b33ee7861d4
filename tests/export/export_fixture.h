// Project nodes for tests, and the context of an export around them.
#pragma once

#include "core/progress.h"
#include "export/export_context.h"

#include <gtest/gtest.h>

namespace XPJ::RVX {

class ExportTest : public testing::Test {
protected:
    ObjectHandle Add(ObjectHandle parent, Name name, Name className)
    {
        const ObjectHandle child = project_.NewObject(className);
        parent.AddChild(name, child);
        return child;
    }
    ObjectHandle Add(ObjectHandle parent, Name name) { return Add(parent, name, name); }

    Document project_;
    Document result_;
    SilentProgress progress_;
    IssueSet issues_;
    IdCounters ids_;
    ExportContext context_{result_, progress_, issues_, ids_};
};

} // namespace XPJ::RVX
