#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "refhost/template/ReadTemplate.h"

#include "support/TemplateText.h"

using refhost::ReadTemplate;

namespace {

/// What stands between two words; empty where they don't.
std::string Between(const std::string& text, std::string_view before, std::string_view behind)
{
    const auto from = text.find(before);
    if (from == std::string::npos) return {};
    const auto begin = from + before.size();
    return text.substr(begin, text.find(behind, begin) - begin);
}

}  // namespace

TEST(Templates, HoldNoWordOfOneLanguage)
{
    for (const char* name : {"FacetBarChart", "NPAROneSampleRunsTest"}) {
        SCOPED_TRACE(name);
        const auto tree = ReadTemplate(TemplateText(name), [](std::string_view key) {
            return key == "Frequency" || key == "Number of Runs" ? "translated" : std::string(key);
        });
        ASSERT_TRUE(tree);
        int translated = 0;
        for (const auto& axis : tree->fGraphs.front().fAxes)
            translated += axis.fLabel && axis.fLabel->Shown() == "translated";
        EXPECT_EQ(translated, 1);
    }
    const std::string opening = "<text>";
    for (const auto& file :
         std::filesystem::directory_iterator(NONPAR_SOURCE_DIR "/refhost/templates")) {
        const std::string name = file.path().stem();
        const std::string text = TemplateText(name);
        const std::string placeholders = ";" + Between(text, "placeholders words=\"", "\"") + ";";
        for (auto at = text.find(opening); at != std::string::npos;
             at = text.find(opening, at + 1)) {
            const std::string word = Between(text.substr(at), opening, "</text>");
            SCOPED_TRACE(name + ": " + word);
            const bool isArrow = word.find("&#") != std::string::npos;
            EXPECT_TRUE(isArrow || placeholders.find(";" + word + ";") != std::string::npos);
        }
    }
}
