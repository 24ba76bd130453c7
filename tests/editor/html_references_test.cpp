#include "editor/html_references.hpp"

#include <gtest/gtest.h>

namespace quorrel::test {
namespace {

TEST(HtmlReferences, AreDecodedAsBrowsersDo) {
    struct Row {
        const char* text;
        std::size_t size;
        std::size_t size_in_attribute;
        const char* meaning;
    };
    for (const Row& row :
         {Row{"&amp;x", 5, 5, "&"}, Row{"&lt2", 3, 0, "<"}, Row{"&nbsp;", 6, 6, "\u00A0"},
          Row{"&copy=1", 5, 0, "\u00A9"}, Row{"&copy 1", 5, 5, "\u00A9"},
          Row{"&notit;", 4, 0, "\u00AC"}, Row{"&notin;", 7, 7, "\u2209"},
          Row{"&alpha;", 7, 7, "\u03B1"}, Row{"&alpha", 0, 0, ""}, Row{"&yuml;", 6, 6, "\u00FF"},
          Row{"&#233;", 6, 6, "\u00E9"}, Row{"&#xE9z", 5, 5, "\u00E9"},
          Row{"&#151;", 6, 6, "\u2014"}, Row{"&#0;", 4, 4, "\uFFFD"},
          Row{"&#99999999999;", 14, 14, "\uFFFD"}, Row{"&#xD800;", 8, 8, "\uFFFD"},
          Row{"&#;", 0, 0, ""}, Row{"&", 0, 0, ""}, Row{"& x", 0, 0, ""}}) {
        SCOPED_TRACE(row.text);
        using html::ReferencePlace;
        std::string decoded, ignored;
        EXPECT_EQ(html::DecodeReference(row.text, 0, ReferencePlace::kText, decoded), row.size);
        EXPECT_EQ(decoded, row.meaning);
        EXPECT_EQ(html::DecodeReference(row.text, 0, ReferencePlace::kAttribute, ignored),
                  row.size_in_attribute);
    }
}

}  // namespace
}  // namespace quorrel::test
