#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/code_page.hpp"

namespace quorrel {
namespace {

TEST(MachineCodePage, VariableThenLocaleThenWestern) {
    struct Case {
        const char *variable, *all, *lang;
        int page;
        bool chosen;
    };
    const Case cases[] = {{nullptr, nullptr, "ja_JP.UTF-8", 932, false},
                          {nullptr, "ru_RU", "ja_JP.UTF-8", 1251, false},
                          {nullptr, "", "ja", 932, false},
                          {nullptr, "C", "ja_JP", 1252, false},
                          {nullptr, nullptr, "zh_CN.UTF-8", 936, false},
                          {nullptr, nullptr, "sr_RS@latin", 1250, false},
                          {nullptr, nullptr, "jam_JM", 1252, false},
                          {"1251", "ja_JP", nullptr, 1251, true},
                          {"65001", nullptr, nullptr, 65001, true},
                          {"", "ja_JP", nullptr, 932, false},
                          {"-1", "ja_JP", nullptr, 932, false},
                          {"99999999999999999999", "ja_JP", nullptr, 932, false},
                          // The last one, so that nothing stays behind.
                          {nullptr, nullptr, nullptr, 1252, false}};
    const auto set = [](const char* name, const char* value) {
        value == nullptr ? unsetenv(name) : setenv(name, value, 1);
    };
    unsetenv("LC_CTYPE");
    for (const Case& c : cases) {
        set("QUORREL_ANSI_CODEPAGE", c.variable);
        set("LC_ALL", c.all);
        set("LANG", c.lang);
        const MachineCodePage found = CodePageOfMachine();
        EXPECT_EQ(found.number, c.page) << "row " << &c - cases;
        EXPECT_EQ(found.chosen, c.chosen) << "row " << &c - cases;
    }
}

}  // namespace
}  // namespace quorrel
