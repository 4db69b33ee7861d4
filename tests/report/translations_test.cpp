#include "core/messages.h"
#include "core/remark_kinds.h"
#include "grading/look_messages.h"
#include "grading/transfer_curves.h"
#include "platform/message_catalog.h"

#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include <gtest/gtest.h>
#include <utf8.h>

namespace XPJ {
namespace {

// All that goes through the platform's localizer, with the default texts.
std::vector<std::string> AllKeys()
{
    std::vector<std::string> keys;
    for (int number = 0; number < kMessageCount; ++number)
        keys.emplace_back(MessageKey(static_cast<Message>(number)));
    for (const Message message : {Message::kInvalidBytes, Message::kUnknownEncoding})
        keys.emplace_back(MessageKey(message));
    for (const RemarkRow& row : RemarkRows()) {
        keys.push_back(ReasonKey(row));
        if (!row.remedy.empty())
            keys.push_back(RemedyKey(row));
    }
    for (int number = 0; number < kLookMessageCount; ++number)
        keys.emplace_back(LookMessageKey(static_cast<LookMessage>(number)));
    for (const TransferCurve& curve : kTransferCurves)
        keys.emplace_back(curve.displayKey);
    return keys;
}

std::string ReadFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

// Of each language: no text is missing, none has other placeholders, no line is lost to a slip.
TEST(Translations, AreComplete)
{
    int languages = 0;
    for (const auto& entry : std::filesystem::directory_iterator(VELA_MESSAGES)) {
        ++languages;
        const std::string name = entry.path().filename().string();
        EXPECT_EQ(CatalogNames(entry.path().stem().string()).empty(), false) << name;
        const std::string text = ReadFile(entry.path());
        EXPECT_TRUE(utf8::is_valid(text.begin(), text.end())) << name;
        MessageCatalog catalog;
        catalog.Add(text);
        std::set<std::string_view> known;
        const std::vector<std::string> keys = AllKeys();
        for (const std::string& key : keys) {
            known.insert(std::string_view(key).substr(0, key.find('=')));
            EXPECT_TRUE(catalog.Find(key)) << name << " lacks, or has other placeholders: " << key;
        }
        for (const std::string_view key : catalog.Keys())
            EXPECT_TRUE(known.contains(key)) << name << " has an unknown key: " << key;
        std::size_t lines = 0;
        std::istringstream stream(text);
        for (std::string line; std::getline(stream, line);)
            lines += !line.empty() && line.front() != '#' ? 1 : 0;
        EXPECT_EQ(lines, known.size()) << name << " has lines that are ignored or there twice";
    }
    EXPECT_GE(languages, 1);
}

} // namespace
} // namespace XPJ
