#include "editor/page_parts.hpp"

#include <gtest/gtest.h>

namespace quorrel {
namespace {

using Parts = std::vector<std::string>;

TEST(PageParts, AreWhatTheSourceLoadsByItself) {
    const std::pair<std::string_view, Parts> cases[] = {
        {"<IMG SRC=a&amp;b.gif><a href=b.htm>x</a>", {"a&b.gif"}},
        {"<link rel=stylesheet href=\"../s.css\"><script src='m.js'></script>",
         {"../s.css", "m.js"}},
        {"<body background=b.png><p style=\"background:URL( 'c.png' )\">", {"b.png", "c.png"}},
        {"<style>@import \"i.css\"; p{background:url(j.gif)}</style>", {"j.gif", "i.css"}},
        {"<video poster=p.jpg src=v.mp4>", {"p.jpg", "v.mp4"}},
        {"<!-- <img src=a.gif> --><script>document.write('<img src=b.gif>')</script>", {}},
        {"<style>url(</style>", {""}}};
    for (const auto& [html, parts] : cases) EXPECT_EQ(PartsOfPage(html), parts) << html;
    EXPECT_EQ(PartsOfStyleSheet("@import url(\"a.css\");p{b:url(c.gif)"),
              (Parts{"a.css", "c.gif", "url(\"a.css\")"}));
}

}  // namespace
}  // namespace quorrel
