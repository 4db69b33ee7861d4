#include "platform/default_platform.h"
#include "platform/platform.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <set>

namespace XPJ {
namespace {

// Sets an environment variable, nothing unsets it, for the scope's life.
class EnvironmentScope {
public:
    EnvironmentScope(const char* name, const std::string& value) : name_(name)
    {
        const char* const previous = std::getenv(name); // NOLINT(concurrency-mt-unsafe)
        hadValue_ = previous != nullptr;
        previous_ = previous ? previous : "";
        Set(!value.empty(), value);
    }
    ~EnvironmentScope() { Set(hadValue_, previous_); }
    EnvironmentScope(const EnvironmentScope&) = delete;
    EnvironmentScope& operator=(const EnvironmentScope&) = delete;

private:
    void Set(bool present, const std::string& value)
    {
        if (present)
            setenv(name_, value.c_str(), 1); // NOLINT(concurrency-mt-unsafe)
        else
            unsetenv(name_); // NOLINT(concurrency-mt-unsafe)
    }

    const char* name_;
    bool hadValue_ = false;
    std::string previous_;
};

TEST(DefaultPlatform, GuidsAreRandomVersionFourAndSeedable)
{
    DefaultPlatform platform;
    const PlatformScope scope(platform);
    std::set<std::string> guids;
    for (int i = 0; i < 1000; ++i) {
        const std::string guid = NewGuidText();
        ASSERT_EQ(guid.size(), 36u);
        EXPECT_EQ(guid[14], '4') << guid;
        EXPECT_NE(std::string("89ab").find(guid[19]), std::string::npos) << guid;
        EXPECT_TRUE(guids.insert(guid).second) << guid;
    }
    const auto seeded = [&platform](std::uint64_t seed) {
        platform.SeedGuids(seed);
        return NewGuidText() + NewGuidText();
    };
    EXPECT_EQ(seeded(7), seeded(7));
    EXPECT_NE(seeded(7), seeded(8));

    DefaultPlatform other;
    EXPECT_NE(AsString(other.CreateUniqueGuid()), AsString(DefaultPlatform().CreateUniqueGuid()));
}

TEST(DefaultPlatform, DebugFlags)
{
    const TempFolder folder;
    const std::string database = folder.Write("flags", "# comment\nOn = 1\nOff=0\r\nWord=TRUE\n"
                                                       "No=False\nEmpty=\nnoise\nBoth=file\n");
    const EnvironmentScope environment("VELA_DEBUG_DATABASE", database);
    DefaultPlatform platform;
    const PlatformScope scope(platform);
    platform.SetDebugEntry("Both", "memory");
    const struct {
        const char* key;
        bool flag;
    } rows[] = {{"On", true},     {"Off", false},   {"Word", true},    {"No", false},
                {"Empty", false}, {"noise", false}, {"Absent", false}, {"# comment", false}};
    for (const auto& [key, flag] : rows)
        EXPECT_EQ(DebugFlag(key), flag) << key;
    EXPECT_EQ(platform.DebugEntry("Both"), "memory");
    EXPECT_EQ(platform.DebugEntry("Absent"), std::nullopt);
}

TEST(DefaultPlatform, ReportFolderWinsOverTheUsersFolder)
{
    DefaultPlatform platform;
    platform.SetReportFolder("/tmp/reports");
    EXPECT_EQ(platform.DocumentsFolder(), "/tmp/reports/");
    platform.SetReportFolder("");
    EXPECT_EQ(platform.DocumentsFolder(), DefaultPlatform().DocumentsFolder());
}

TEST(DocumentsFolder, IsTheFirstThatExists)
{
    DefaultPlatform platform;
    const TempFolder home;
    const EnvironmentScope homeVariable("HOME", home / "");
    const EnvironmentScope noConfig("XDG_CONFIG_HOME", "");
    const EnvironmentScope noDocuments("XDG_DOCUMENTS_DIR", "");
    const std::string base = home.Path();
    EXPECT_EQ(platform.DocumentsFolder(), base);

    std::filesystem::create_directories(home / "Documents");
    EXPECT_EQ(platform.DocumentsFolder(), base + "/Documents/");

    std::filesystem::create_directories(home / ".config");
    std::filesystem::create_directories(home / "Papers");
    home.Write(".config/user-dirs.dirs", "# made by a desktop\nXDG_MUSIC_DIR=\"$HOME/Music\"\n"
                                         "XDG_DOCUMENTS_DIR=\"$HOME/Papers\"\n");
    EXPECT_EQ(platform.DocumentsFolder(), base + "/Papers/");

    std::filesystem::create_directories(home / "Desk");
    const EnvironmentScope documents("XDG_DOCUMENTS_DIR", home / "Desk");
    EXPECT_EQ(platform.DocumentsFolder(), base + "Desk/");
    const EnvironmentScope missing("XDG_DOCUMENTS_DIR", home / "Missing");
    EXPECT_EQ(platform.DocumentsFolder(), base + "/Papers/");
}

TEST(DocumentsFolder, IsEmptyWithoutAHome)
{
    const EnvironmentScope homeVariable("HOME", "");
    const EnvironmentScope noConfig("XDG_CONFIG_HOME", "");
    const EnvironmentScope noDocuments("XDG_DOCUMENTS_DIR", "");
    EXPECT_EQ(DefaultPlatform().DocumentsFolder(), "");
}

class ShoutingPlatform final : public DefaultPlatform {
public:
    std::u16string Localize(std::string_view key) override
    {
        return u"\u00A1" + DefaultPlatform::Localize(key) + u"!";
    }
};

TEST(PlatformScope, ReplacesAndBringsBack)
{
    Platform& before = GetPlatform();
    {
        ShoutingPlatform platform;
        const PlatformScope scope(platform);
        EXPECT_EQ(&GetPlatform(), &platform);
        EXPECT_EQ(GetMessage(Message::kLayer, {"3"}), "\xC2\xA1Layer 3!");
    }
    EXPECT_EQ(&GetPlatform(), &before);
    EXPECT_EQ(GetMessage(Message::kLayer, {"3"}), "Layer 3");
    EXPECT_EQ(GetMessage(static_cast<Message>(kMessageCount)), "");
}

} // namespace
} // namespace XPJ
