#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/code_page.hpp"

namespace quorrel {
namespace {

/// Sets environment variables, and gives them back their values at the end.
class Environment {
  public:
    Environment() {
        for (const char* name : kNames) {
            const char* value = std::getenv(name);
            old_.push_back(value == nullptr ? std::nullopt : std::optional<std::string>(value));
            unsetenv(name);
        }
    }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;
    ~Environment() {
        for (std::size_t i = 0; i < old_.size(); ++i) {
            if (old_[i]) setenv(kNames[i], old_[i]->c_str(), 1);
            if (!old_[i]) unsetenv(kNames[i]);
        }
    }

  private:
    static constexpr const char* kNames[] = {"QUORREL_ANSI_CODEPAGE", "LC_ALL", "LC_CTYPE", "LANG"};
    std::vector<std::optional<std::string>> old_;
};

TEST(MachineCodePage, VariableThenLocaleThenWestern) {
    struct Case {
        const char *variable, *all, *lang;
        int page;
        bool chosen;
    };
    const Case cases[] = {{nullptr, nullptr, nullptr, 1252, false},
                          {nullptr, nullptr, "ja_JP.UTF-8", 932, false},
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
                          {"99999999999999999999", "ja_JP", nullptr, 932, false}};
    for (const Case& c : cases) {
        const Environment environment;
        if (c.variable != nullptr) setenv("QUORREL_ANSI_CODEPAGE", c.variable, 1);
        if (c.all != nullptr) setenv("LC_ALL", c.all, 1);
        if (c.lang != nullptr) setenv("LANG", c.lang, 1);
        const MachineCodePage found = CodePageOfMachine();
        EXPECT_EQ(found.number, c.page) << "row " << &c - cases;
        EXPECT_EQ(found.chosen, c.chosen) << "row " << &c - cases;
    }
}

}  // namespace
}  // namespace quorrel
