#include "frame/export_target.h"

#include <gtest/gtest.h>

namespace XPJ {
namespace {

TEST(ExportTargetOf, TakesTheMarkOutOfTheName)
{
    const struct {
        const char* path;
        const char* target;
        const char* title;
        bool isHandOff;
    } rows[] = {
        {"/p/clip.xml", "/p/clip.xml", "clip", false},
        {"/p/clip__Vl2Sn__final.xml", "/p/final.xml", "final", true},
        {"a__Vl2Sn__b__Vl2Sn__c.xml", "b__Vl2Sn__c.xml", "b__Vl2Sn__c", true},
        {"/p__Vl2Sn__q/clip.v2.xml", "/p__Vl2Sn__q/clip.v2.xml", "clip.v2", false},
        {"/p/clip", "/p/clip", "clip", false},
        {"/p/.xml", "/p/.xml", "Orrin Vela Pro Project", false},
        {"/p/clip__Vl2Sn__", "/p/", "Orrin Vela Pro Project", true},
        {"", "", "Orrin Vela Pro Project", false},
    };
    for (const auto& [path, targetPath, title, isHandOff] : rows) {
        const ExportTarget target = ExportTargetOf(path);
        EXPECT_EQ(target.path, targetPath) << path;
        EXPECT_EQ(target.title, title) << path;
        EXPECT_EQ(target.isHandOff, isHandOff) << path;
    }
}

} // namespace
} // namespace XPJ
