#include "editor/surface_limits.hpp"

#include <gtest/gtest.h>

#include <string>

namespace quorrel::test {
namespace {

std::string Repeated(std::string_view text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i) result += text;
    return result;
}

TEST(SurfaceLimits, AreThoseOfTheEngine) {
    const struct {
        const char* what;
        std::string text;
        bool fits;
    } cases[] = {
        {"no text", "", true},
        {"a long topic", Repeated("<p>One <b>word</b> of many.</p>\r\n", 40'000), true},
        {"too many elements", Repeated("<p>One <b>word</b> of many.</p>\r\n", 60'000), false},
        {"tags that are left open", Repeated("<p>One<br>\n<li>Two", 30'000), true},
        {"a long paragraph", "<p>" + Repeated("<b>w</b> ", 15'000), true},
        {"too much in one paragraph", "<p>" + Repeated("<b>w</b> ", 25'000), false},
        {"long lines of text", Repeated("<p>" + Repeated("word ", 20'000) + "</p>", 50), true},
        {"too much text in one paragraph", "<p>" + Repeated("word ", 500'000), false},
        {"deep", Repeated("<div>", 500) + "x" + Repeated("</div>", 500), true},
        {"too deep", Repeated("<div>", 20'000) + "x" + Repeated("</div>", 20'000), false},
        {"a script of the same length", "<script>" + Repeated("f(); ", 100'000) + "</script>",
         true},
    };
    for (const auto& c : cases) EXPECT_EQ(FitsSurface(c.text), c.fits) << c.what;
}

}  // namespace
}  // namespace quorrel::test
